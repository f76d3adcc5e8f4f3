// page/guipagehost.h: what pages ask of the world outside: files, content filters and script handlers. The component
// provides it (runtime/guicomponenthost.h); without one no file can be read and no handler exists, and pages still lay
// out and paint.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;
class guiHtmlBase;
class QPixmap;
class ScriptObject;

/// GUI thread. Every function may run script, which may replace the page and close the window: the caller asks whether
/// its nodes still live (page/guinodewatch.h). A `root` may be null for nodes outside a window.
class guiPageHost
{
public:
    virtual ~guiPageHost() = default;

    /// Calls the handler that `event` names ("onPick/3/red": the method `onPick`) on `target` and waits for it. 0 when
    /// `target` has no such method; else 1 and, in `reply`, the string that it returned, "" for anything else.
    virtual int callHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring& reply) = 0;

    /// The full name of a file that is named relative to the script that owns the window; full names stay as they are.
    virtual sstring resolvePath(guiHtmlBase* root, sstring const& path) = 0;
    /// The text of a file; 0 when it can not be read. Nothing is logged.
    virtual int readText(guiHtmlBase* root, sstring const& path, sstring& text) = 0;
    /// Runs the content filters over a page's text, in place. 0 when that failed.
    virtual int filterText(guiHtmlBase* root, sstring& name, sstring& text) = 0;
    /// Decodes an image file; 0, after a log line, when that failed.
    virtual int readImage(guiHtmlBase* root, sstring const& path, QPixmap& image) = 0;

    /// The host in use, null without one. Not owned; install() it before the first node is made.
    static guiPageHost* current();
    static void install(guiPageHost* host);
};
