// page/guihandlerplaces.h: where the pages of a window name their handlers, so that a handler which nobody has can be
// told with its place.
#pragma once

#include "foundation/vela-string.h"

#include <map>
#include <string>

/// The name of the handler in a link or attribute, without its arguments: "onPick" for "event://onPick/3/red". "" when
/// it names none.
std::u16string guiHandlerIn(sstring const& link);

/// The handlers that one page names, while it is read: the line of the first place of each, from 1; 0 when unknown.
using guiHandlerLines = std::map<std::u16string, unsigned>;

/// The places of all pages that one window shows. GUI thread.
class guiHandlerPlaces
{
public:
    /// A page has been read. `file`: its full name, "" for text that comes from elsewhere.
    void add(std::string const& file, guiHandlerLines const& lines);
    /// The first time after the page was read: true, and " in FILE:LINE" as far as that is known. False from then on:
    /// a pointer that moves over an element would repeat a message without end.
    bool take(std::u16string const& handler, std::string& place);

private:
    struct entry
    {
        std::string text; // " in FILE:LINE"
        bool isTaken = false;
    };

    std::map<std::u16string, entry> m_places;
};
