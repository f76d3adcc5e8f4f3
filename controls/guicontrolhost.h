// controls/guicontrolhost.h: what controls, pictures and windows need from outside, beyond what every page needs
// (page/guipagehost.h): threads, script's objects and values, the component's list of windows. The window runtime
// provides it (runtime/guicomponenthost.h). Without it controls can be made, used and painted, but script is not told.
#pragma once

#include "page/guipagehost.h"
#include "script/hostinterface.h"

#include <functional>

class guiHtmlCustom;
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
    /// Whether the user's input is dropped now, since a handler is waited for.
    virtual bool isInputBlocked() const;
    /// Makes all who wait for a window or for a call check again whether they still have to. Any thread.
    virtual void wakeWaiters();

    /// Runs `work` on the GUI thread soon. Any thread.
    virtual void postToGui(std::function<void()> const& work);
    /// Runs `work` on the script thread soon, and then `done` on any thread; `done` alone when script is ending. The
    /// node's window is kept until `done` has returned, the node is not. GUI thread.
    virtual void postToScript(guiHtml* node, std::function<void()> const& work, std::function<void()> const& done);

    // ---- Windows ----

    /// The user has chosen something in this control, about which a handler is called next: it becomes the session's
    /// current control.
    virtual void noteChoice(guiHtml* control);
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
    /// Gives the instance of a script component what every control object has. Script thread.
    virtual void fleshIn(ScriptObject* object, guiHtml* node);
    /// Calls a handler of a custom element's instance and waits for it (guiCallback_CallCustom): its number, or 1 when
    /// the instance has no such handler. The node may be gone afterwards.
    virtual int callElement(guiHtmlCustom* node, ScriptObject* instance, char const* event);
    /// Calls a handler with the session as its argument and waits for it. Script thread.
    virtual void callHandlerHere(ScriptObject* object, char const* name);
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
