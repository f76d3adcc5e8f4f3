// controls/guicontrolhost.h: what controls, pictures and windows ask of the world outside, beyond what every page asks
// (page/guipagehost.h): threads, script's objects and values, the component's list of windows. The window runtime
// answers (runtime/guicomponenthost.h). Without it controls are made, used and painted, and nobody hears of it.
#pragma once

#include "page/guipagehost.h"
#include "script/hostinterface.h"

class guiPageRoot;
class guiWidget;

/// Every function has a neutral answer here. GUI thread, unless it says otherwise.
class guiControlHost : public guiPageHost
{
public:
    // ---- Threads ----

    /// Without a component whoever works with pages is the GUI thread. Any thread.
    virtual bool isGuiThread() const;
    virtual bool isScriptThread() const;
    /// Runs the method on the GUI thread and waits for it. Any thread; without a component here and now.
    virtual void callFunction(ScriptMethod method, LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                              ScriptArgs& args, ScriptValue& result);
    /// Repaints a node soon, if it still lives then. Any thread.
    virtual void postUpdate(guiHtml* node);
    /// Drops mouse moves until the matching enableMM(). Calls nest.
    virtual void disableMM();
    virtual void enableMM();
    /// Whoever waits for a window or a call looks again. Any thread.
    virtual void wakeWaiters();

    // ---- Windows ----

    /// The window is not the page's any more.
    virtual void onClose(guiWidget* window, guiHtml* root);
    /// The window is on the screen or being painted, or is not any more.
    virtual void onVisible(guiWidget* window, bool isVisible);
    /// The window is the one that the user works with.
    virtual void setCurrentWindow(guiWidget* window);

    // ---- Script's objects and values ----

    /// A new GuiControl object for the node, with what all controls can do; null, without a log line, when there is no
    /// script or it could not be made. Script thread.
    virtual ScriptObject* makeControlObject(guiHtml* node);
    /// The object stands for the node from now on. Any thread.
    virtual void bindObject(ScriptObject* object, guiHtml* node);
    /// The node that a GuiControl object stands for, null when there is none any more.
    virtual guiHtml* nodeOf(ScriptPrivate* data, ScriptObject* self);
    /// A value of the current engine, null at first; null without a component. Made by one, released by the other. Any
    /// thread.
    virtual ScriptValue* newValue();
    virtual void deleteValue(ScriptValue* value);
    /// The host's services, null without a component. Any thread.
    virtual HostPlatform* platform();
    virtual HostFormProp* formProp();
    virtual HostLoadFile* loadFile();

    /// The host in use: the installed one, or one that gives the neutral answers. Any thread.
    static guiControlHost& current();
    /// Installs it as the host of pages too. Not owned; null: none any more.
    static void install(guiControlHost* host);
};
