// page/guiatplace.h: where in a page's file something was written, for the lines that tell its author what is missing.
#pragma once

#include "foundation/vela-string.h"

#include <string>

/// While it lives, what can not be read was asked for by this element. An element that does not know where it was
/// written leaves the place of the one outside. GUI thread.
class guiAtPlace
{
public:
    /// `place`: the element's kStringPlace.
    explicit guiAtPlace(sstring const& place);
    ~guiAtPlace();
    guiAtPlace(guiAtPlace const&) = delete;
    guiAtPlace& operator=(guiAtPlace const&) = delete;

    /// What to append to a log line, before its newline: " in FILE:LINE", or "" where nothing is known.
    static std::string text();
    /// The same once: whoever is asked next knows nothing. For what runs script before it ends.
    static std::string take();

private:
    sstring m_outer;
};
