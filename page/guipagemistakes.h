// page/guipagemistakes.h: tells the author of a page what is wrong in it, one line for each mistake. The page is shown
// as well as it goes all the same.
#pragma once

#include "foundation/vela-string.h"
#include "page/guihandlerplaces.h"

#include <string>
#include <string_view>
#include <vector>

class mlAttr;
class mlSection;

/// The mistakes of one page while it is read. GUI thread.
class guiPageMistakes
{
public:
    /// Lines that are logged for one page. What comes after them is counted, and the number logged at the end.
    static constexpr unsigned kMostLines = 100;

    /// `file`: the full name of the page's file, "" for text that comes from elsewhere.
    explicit guiPageMistakes(sstring const& file) : m_file(file) {}
    ~guiPageMistakes();
    guiPageMistakes(guiPageMistakes const&) = delete;
    guiPageMistakes& operator=(guiPageMistakes const&) = delete;

    /// Whether to log one more. A caller that is told no makes no message either: a page may have a million mistakes.
    bool mayAdd() { return ++m_count <= kMostLines; }
    /// After mayAdd(): logs the message, which is whole but for its newline, with the place behind it and what was
    /// probably meant. A page without a file has no place. `line` from 1; 0 when it is not known.
    void add(std::string const& message, unsigned line, std::string_view meant = {});

    /// " in FILE:LINE" for messages about something that was written there; "" for a page without a file.
    sstring place(unsigned line) const;

    /// A tag that nobody reads.
    void addUnknownTag(mlSection* section);
    /// A value that is none of the words of its attribute, such as the type of an input.
    void addUnknownWord(mlSection* section, char const* attribute, std::vector<std::string_view> const& words);
    /// The same for an attribute without which the element is shown as well.
    void addUnusedWord(mlSection* section, char const* attribute, std::vector<std::string_view> const& words);
    /// A character reference that nobody knows, without "&" and ";".
    void addUnknownReference(std::string const& name, unsigned line);
    /// Looks at the attributes of an element: their names, those values that are to be colours or numbers, and the
    /// handlers that they name.
    void checkAttributes(mlSection* section);
    /// The handlers that the page has named so far.
    guiHandlerLines const& handlers() const { return m_handlers; }
    /// The full name of the page's file, "" without one.
    sstring const& file() const { return m_file; }

private:
    void checkAttribute(mlSection* section, mlAttr const& attr);
    void checkLink(mlSection* section, mlAttr const& attr, bool isAction);

    sstring m_file;
    guiHandlerLines m_handlers;
    unsigned m_count = 0;
};
