// script/guicontrol.h: the script class GuiControl: one named element of a window's page. A control object does not
// hold a node but its window and the element's name, and looks the node up in every call. So script may keep it when
// the page is replaced.
#pragma once

#include "foundation/vela-string.h"
#include "script/hostinterface.h"

#include <cstdint>

class guiHtml;

struct guiWindowData;

/// The private record of a GuiControl object. Made with it on any thread, destroyed with it on the script thread. Its
/// fields change under a lock of their own.
struct guiControlData
{
    std::uint32_t tag;
    ScriptObject* window;      // not owned: null until setPrivateInfo, and again when the window has ended
    sstring name;              // the element's name in the page
    ScriptObject* self;        // not owned: the record lives as long as it
    guiWindowData* windowData; // the window's record, gone with the window
    bool isOfNode;             // the object was made for a node, which it is bound to as long as the node lives
};

/// Declares the class. Always 1. Any thread.
int guiControl_onConfigure(ScriptClass& scriptClass);

/// Declares what hosts with properties need besides: "getValue" and "setValue". Always 1. Any thread.
int guiControl_onConfigureExtension(ScriptClass& scriptClass);

/// The record in a private slot, null when there is none or it has no tag.
guiControlData* guiControl_getData(ScriptPrivate* data);
/// Binds a control object to an element, and sets its properties "window" and "name". The window is not kept, because
/// its page may keep the control. Any thread.
void guiControl_setPrivateInfo(ScriptPrivate* data, ScriptObject* window, sstring const& name);
void guiControl_setPrivateName(ScriptPrivate* data, sstring const& name);
/// The node that the object was made for; when that is gone, the page's present element of the same name, or null (with
/// a log line) when there is none. GUI thread.
guiHtml* guiControl_getHtml(ScriptPrivate* data, ScriptObject* self);
/// The window is ending: the control objects of its page have no window from now on. Script thread.
void guiControl_forgetWindow(ScriptObject* window);

// What the host calls. The properties are "width" and "height" of an instance: the size of the element's client
// rectangle in pixels, 0 when there is no element; read-only.

/// Makes the record of a new control object, bound to nothing yet.
void guiControl_onCreate(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                         ScriptValue& result);
void guiControl_onDestroy(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                          ScriptValue& result);
bool guiControl_onAddProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                          bool isStatic);
bool guiControl_onDelProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                          bool isStatic);
bool guiControl_onGetProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                          ScriptValue& out, bool isStatic);
bool guiControl_onSetProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                          ScriptValue const& value, bool isStatic);

/// A new control object in the engine of `page`, kept once for the caller; null when there is no page or, after a log
/// line of the host, when the object can not be made. Any thread.
ScriptObject* CreateControlObject(ScriptObject* page);
/// Makes `object` the control object of `node`: fills its record, adds the methods of the class and sets its properties
/// "window" and "name". An object of another class has no record: its methods find the node that it is bound to
/// (guiComponent::bindObject). Any thread.
void FleshInControlObject(ScriptObject* object, guiHtml* node);
