// script/guicontrol.h: the script class GuiControl: one named element of a window's page. A control object holds no
// node, only its window and the element's name, and looks the node up in every call; so it is safe to keep across page
// loads.
#pragma once

#include "foundation/vela-string.h"
#include "script/hostinterface.h"

#include <cstdint>

class guiHtml;

/// The private record of a GuiControl object. Made and destroyed with it.
struct guiControlData
{
    std::uint32_t tag;
    ScriptObject* window; // kept; the GuiWindow object, null until setPrivateInfo
    sstring name;         // the element's name in the page
    ScriptObject* self;   // not owned: the record lives as long as it
    bool isNameless;      // stands for one node and, when that is gone, for none
};

/// Declares the class. Always 1.
int guiControl_onConfigure(ScriptClass& scriptClass);

/// The record in a private slot, null when there is none or it has no tag.
guiControlData* guiControl_getData(ScriptPrivate* data);
/// Binds a control object to an element, and sets its properties "window" and "name". Script thread.
void guiControl_setPrivateInfo(ScriptPrivate* data, ScriptObject* window, sstring const& name);
void guiControl_setPrivateName(ScriptPrivate* data, sstring const& name);
/// A new GuiControl object in the engine of a page object, kept once for the caller; null when that failed. Script
/// thread.
ScriptObject* CreateControlObject(ScriptObject* page);
/// Binds a control object to a node's window and name, and gives it the methods of the class that it lacks. Script
/// thread.
void FleshInControlObject(ScriptObject* control, guiHtml* node);
/// The node that the object was made for or, when it is gone, the element of its name that the page has now; null (with
/// a log line) when the page has none of its name. GUI thread.
guiHtml* guiControl_getHtml(ScriptPrivate* data, ScriptObject* self);
