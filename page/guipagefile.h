// page/guipagefile.h: gets the text of a page from its file: the host reads it, then script filters it. Used for the
// first page of a window and for every later one.
#pragma once

#include "foundation/vela-string.h"

#include <string>
#include <utility>

class guiPageRoot;
class ScriptObject;

/// While it lives, the next page text that a node is given comes from this file. GUI thread.
class guiPageOrigin
{
public:
    explicit guiPageOrigin(sstring const& file);
    ~guiPageOrigin();
    guiPageOrigin(guiPageOrigin const&) = delete;
    guiPageOrigin& operator=(guiPageOrigin const&) = delete;

    /// The file of the text that is given now, "" when it comes from script. Only the first asker is told.
    static sstring take();
    /// Whether the text that is given now comes from a file, and nobody has asked yet.
    static bool isSet();

private:
    sstring m_outer;
};

/// The file of one page while it is loaded. A failure is logged in one line that begins with the name of the caller.
/// GUI thread.
class guiPageFile
{
public:
    /// `path`: the full name. `caller` such as "guiHtml::loadFile()"; a literal. `place`: of what asked for it, as
    /// guiAtPlace gives it.
    guiPageFile(sstring const& path, char const* caller, std::string place = {})
        : m_path(path), m_caller(caller), m_place(std::move(place))
    {}

    /// Reads the file for the window whose script object is `owner` (may be null). 1, or 0 with a log line.
    int read(ScriptObject* owner);
    /// Runs the content filters over what was read; they are script, so nodes may be gone afterwards. `root` may be
    /// null. 1, or 0 with a log line.
    int filter(guiPageRoot* root);
    /// The text, read and filtered; the caller may move it out.
    sstring& text() { return m_text; }
    sstring const& path() const { return m_path; }
    /// Logs that the file could not be `what` ("load file", "apply content from"). Always 0.
    int fail(char const* what) const;

private:
    sstring m_path;
    char const* m_caller;
    std::string m_place;
    sstring m_text;
};
