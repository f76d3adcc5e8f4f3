// script/guiwindow.h: the script class GuiWindow: a window that loads a page, shows it and gives a value back.
#pragma once

#include "controls/guiscriptrecord.h"
#include "foundation/vela-string.h"
#include "script/hostinterface.h"

#include <cstdint>

class guiHtml;
class guiHtmlBase;

/// The private record of a GuiWindow object. Made and destroyed with it on the script thread, which waits while the GUI
/// thread reads or changes it.
struct guiWindowData
{
    std::uint32_t tag;
    guiHtmlBase* root;           // owned; null before a page is loaded
    ScriptObject* window;        // not owned: the record lives as long as it
    ScriptPrivate* data;         // not owned
    ScriptObject* form;          // owned
    ScriptObject* control;       // kept; stands for the control that the user used last, null before that
    std::uintptr_t reservedWord; // always 0
};

/// Declares the class. Always 1. Any thread.
int guiWindow_onConfigure(ScriptClass& scriptClass);

/// Declares what hosts with properties and promises need besides: "getForm", "readForm", "writeForm", "isFormValid",
/// "startShow", "getReturnValue", "readZoom", "writeZoom" and others. Always 1. Any thread.
int guiWindow_onConfigureExtension(ScriptClass& scriptClass);

/// The record in a private slot, null when there is none or it has no tag.
guiWindowData* guiWindow_getData(ScriptPrivate* data);

/// The page root of a record (may be null), null without a page. Any thread.
guiHtmlBase* GetWindow(void* record);
/// The node of this name in the window's page, the root for an empty name; null with a log line when there is none. GUI
/// thread.
guiHtml* GetControl(void* record, sstring& name);
/// Names the record's control object `name` and publishes it as session property "currentControl"; does nothing when
/// the record has none. Any thread.
void SetCurrentControl(ScriptPrivate* data, sstring& name);
/// The user has used the control of this name: it becomes the current one; without a name there is none. Makes the
/// record's control object when it is missing. GUI thread.
void guiWindow_chooseControl(ScriptPrivate* data, sstring name);

/// Opens the window; 0 without a page. Script thread.
int guiWindow_open(ScriptPrivate* data, int modal);
/// Closes the window, if it is open. Script thread.
void guiWindow_close(ScriptPrivate* data);
/// The full name of a file whose name is relative to the script that owns `relativeTo`. Any thread.
sstring guiWindow_resolve(ScriptObject* relativeTo, sstring path);
/// Loads a page file, relative to the script that owns `relativeTo`. 1 or 0, with a log line. Script thread.
int guiWindow_load(ScriptPrivate* data, ScriptObject* relativeTo, sstring path);
/// The control object of the named control, kept once for the caller, also written into `out` (not null); null when
/// there is none. GUI thread.
ScriptObject* guiWindow_control(ScriptPrivate* data, sstring name, void** out);

// What the host calls.

/// Makes the record of a new window, and loads its page when there is an argument.
void guiWindow_onCreate(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                        ScriptValue& result);
/// Closes the window, deletes its page and ends the record.
void guiWindow_onDestroy(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                         ScriptValue& result);
/// The class method "onLoad": a pattern alone removes its content filters, a pattern with a function or an object adds
/// one.
void guiWindow_onLoad_script(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                             ScriptValue& result);
