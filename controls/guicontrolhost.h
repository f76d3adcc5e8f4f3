// controls/guicontrolhost.h: what controls, pictures and windows need from outside, beyond what every page needs
// (page/guipagehost.h): threads, script's objects and values, the component's list of windows. The window runtime
// provides it (runtime/guicomponenthost.h). Without it controls can be made, used and painted, but script is not told.
#pragma once

#include "page/guipagehost.h"
#include "script/hostinterface.h"

class guiPageRoot;
class guiWidget;

/// Every function has a neutral default here. GUI thread, unless stated otherwise.
class guiControlHost : public guiPageHost
{
public:
    // ---- Threads ----

    /// Which thread is calling. Without a component, any thread that works with pages is the GUI thread. Any thread.
    virtual bool isGuiThread() const;
    virtual bool isScriptThread() const;
    /// Runs the method on the GUI thread and waits for it; without a component, calls it directly. Any thread.
    virtual void callFunction(ScriptMethod method, LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                              ScriptArgs& args, ScriptValue& result);
    /// Repaints a node soon, if it still lives then. Any thread.
    virtual void postUpdate(guiHtml* node);
    /// Discards mouse moves until the matching enableMM(). Calls nest.
    virtual void disableMM();
    virtual void enableMM();
    /// Makes all who wait for a window or for a call check again whether they still have to. Any thread.
    virtual void wakeWaiters();

    // ---- Windows ----

    /// The window no longer belongs to the page.
    virtual void onClose(guiWidget* window, guiHtml* root);
    /// The window is on the screen or being painted, or is not any more.
    virtual void onVisible(guiWidget* window, bool isVisible);
    /// The user works with this window.
    virtual void setCurrentWindow(guiWidget* window);

    // ---- Script's objects and values ----

    /// A new GuiControl object for the node, with the methods that all controls have; null, without a log line, when
    /// there is no script or it could not be made. Script thread.
    virtual ScriptObject* makeControlObject(guiHtml* node);
    /// The object stands for the node from now on. Any thread.
    virtual void bindObject(ScriptObject* object, guiHtml* node);
    /// The node that a GuiControl object stands for, null when that is gone.
    virtual guiHtml* nodeOf(ScriptPrivate* data, ScriptObject* self);
    /// newValue() makes a script value, which is null at first, and deleteValue() destroys it. Without a component
    /// there is none: newValue() returns a null pointer. Any thread.
    virtual ScriptValue* newValue();
    virtual void deleteValue(ScriptValue* value);
    /// The host's services, null without a component. Any thread.
    virtual HostPlatform* platform();
    virtual HostFormProp* formProp();
    virtual HostLoadFile* loadFile();

    /// The host in use: the installed one, or one with the neutral defaults. Any thread.
    static guiControlHost& current();
    /// Installs a host, also as the host of pages. Not owned; null removes it.
    static void install(guiControlHost* host);
};
