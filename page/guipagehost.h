// page/guipagehost.h: what pages ask of the world outside: files, content filters, script handlers and objects. The
// window runtime answers (runtime/guicomponenthost.h). Without it no file can be read and no handler exists, and pages
// still lay out and paint.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;
class guiPageRoot;
class QPixmap;
class ScriptObject;

/// Every function has a neutral answer here. GUI thread, unless it says otherwise. Those that may run script may
/// replace the page and close the window: the caller asks whether its nodes still live (page/guinodewatch.h).
class guiPageHost
{
public:
    virtual ~guiPageHost() = default;

    // ---- Script ----

    /// Calls the handler that `event` names ("onPick/3/red": the method `onPick`) on `target` and waits for it. 0 when
    /// `target` has no such method; else 1 and, in `reply`, the string that it returned, "" for anything else.
    virtual int callHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring& reply);
    /// Has the script side make a node's object, which stands for the node from then on and is kept by it; null when
    /// that failed. Runs script. Script thread too.
    virtual ScriptObject* buildCustomObject(guiHtml* node);
    /// The node that this object stands for is going: the object stands for nothing any more and is let go. Any thread.
    virtual void unbindObject(ScriptObject* object, guiHtml* node);
    /// Runs triggerNow() of the node later, from the event loop, if the node still lives then. Any thread.
    virtual void postTrigger(guiHtml* node);

    // ---- Files; `owner` is the window's script object, null for nodes outside a window ----

    /// The full name of a file that is named relative to the script that owns the window; full names stay as they are.
    virtual sstring resolvePath(ScriptObject* owner, sstring const& path);
    /// The text of a file; 0 when it can not be read. Nothing is logged.
    virtual int readText(ScriptObject* owner, sstring const& path, sstring& text);
    /// Runs the content filters over a page's text, in place. 0 when that failed. Runs script. `root` may be null.
    virtual int filterText(guiPageRoot* root, sstring& name, sstring& text);
    /// Decodes an image file; 0, after a log line, when that failed.
    virtual int readImage(ScriptObject* owner, sstring const& path, QPixmap& image);

    /// The host in use: the installed one, or one that gives the neutral answers. Any thread.
    static guiPageHost& current();
    /// Whether there is an installed one.
    static bool isInstalled();
    /// Not owned; null: none any more. Before the first node is made, and after the last one is gone.
    static void install(guiPageHost* host);
};
