// page/guipagehost.h: the interface through which pages reach files, content filters, script handlers and script
// objects. The window runtime implements it (runtime/guicomponenthost.h). Without an implementation no file can be read
// and no handler exists, but pages can be laid out and painted.
#pragma once

#include "foundation/vela-string.h"
#include "page/guipicture.h"

#include <vector>

class guiHtml;
class guiPageRoot;
class ScriptObject;

/// Every function has a default answer here. GUI thread, unless it says otherwise. A function that runs script may
/// replace the page or close the window: the caller checks whether its nodes are still alive (page/guinodewatch.h).
class guiPageHost
{
public:
    virtual ~guiPageHost() = default;

    // ---- Script ----

    /// Calls the handler that `event` names ("onPick/3/red": the method `onPick`) on `target` and waits for it. 0 when
    /// `target` has no such method; else 1 and, in `reply`, the string that it returned, "" for anything else.
    virtual int callHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring& reply);
    /// The names of the methods that callHandler() finds, as far as the host can list them. For messages.
    virtual std::vector<sstring> methodNames(ScriptObject* target);
    /// The same for a link whose answer is loaded into the frame called `frame` ("": as usual). A handler may answer
    /// later: then `reply` is "" now, and what it answers is followed when it is there. A node whose handler has not
    /// answered yet is not asked again: 1 then.
    virtual int callLinkHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring const& frame,
                                sstring& reply);
    /// Opens an address that is no page of the program's ("https:", "mailto:"): the window's handler `eLink` is called
    /// with it, or without one the desktop opens it. 0, with a log line, when neither could. Runs script.
    virtual int openOutside(guiHtml* node, sstring const& address);
    /// Makes the script object that stands for the node, which then holds a reference to it; null on failure. Runs
    /// script. Script thread too.
    virtual ScriptObject* buildCustomObject(guiHtml* node);
    /// Called when a node with a script object is destroyed: gives up the node's reference to the object. Any thread.
    virtual void unbindObject(ScriptObject* object, guiHtml* node);
    /// Has the event loop call triggerNow() of the node later, if the node still exists then. Any thread.
    virtual void postTrigger(guiHtml* node);

    // ---- Files; `owner` is the window's script object, null for nodes outside a window ----

    /// The full name of a file that is named relative to the script that owns the window; full names stay as they are.
    virtual sstring resolvePath(ScriptObject* owner, sstring const& path);
    /// The text of a file; 0 when it can not be read. Nothing is logged.
    virtual int readText(ScriptObject* owner, sstring const& path, sstring& text);
    /// Runs the content filters over a page's text, in place. 0 when that failed. Runs script. `root` may be null.
    virtual int filterText(guiPageRoot* root, sstring& name, sstring& text);
    /// The picture in a file, shared with all who show it. It has at least as many pixels as it is shown with, `shown`
    /// (a side that is not above 0 follows the other), if the file has as many. Null, after a log line, when it can not
    /// be decoded.
    virtual guiPictureRef readImage(ScriptObject* owner, sstring const& path, QSize shown = QSize());

    /// The installed host, or one that gives the default answers. Any thread.
    static guiPageHost& current();
    /// Whether a host is installed.
    static bool isInstalled();
    /// Not owned; null removes it. Called before the first node is made and after the last one is destroyed.
    static void install(guiPageHost* host);
};
