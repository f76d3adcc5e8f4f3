// runtime/guicallback.h: calls from a page into script. An event name such as "onPick/3/red" becomes a call of the
// script method `onPick` with the arguments "3" and "red".
#pragma once

#include "foundation/vela-string.h"
#include "script/hostinterface.h"

class guiHtml;
class guiHtmlCustom;

/// The part of an event name before the first "/" or "\".
sstring guiCallback_StripEventName(sstring name);

/// Appends the arguments in an event name to `args`, each a string, through `scratch`; returns the stripped name. Empty
/// trailing text adds no argument.
sstring guiCallback_ProcessEventName(sstring name, ScriptArgs* args, ScriptValue* scratch);

/// 0 for the eight low-level events (creation, painting and mouse), which leave user input enabled; 1 for all others.
int guiCallback_ShouldDisable(sstring name);

/// Calls the method that `name` says on `target` with `source` as the first argument, and waits for the result. GUI
/// thread: the GUI keeps painting meanwhile. Any handler may close the window and destroy `node`: the caller asks the
/// registry again.
void guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring name, ScriptObject* source,
                           ScriptValue* result);

/// The same; the result as text if it is a string, else "".
sstring guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring name, ScriptObject* source);

/// Has a control's script object built on the script thread and waits for it; null when that failed. The GUI handles
/// events meanwhile, but no user input.
ScriptObject* guiCallback_BuildCustomObject(guiHtml* node);
/// Does that on the script thread. Its first argument is a number that names the node; the result is the node's object,
/// null when there is no such node any more.
void guiCallback_BuildCustomObject_Callback(LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                                            ScriptArgs& args, ScriptValue& result);

/// Completes an asynchronous call: `record` is the waiter's. Any thread.
void guiCallback_AsyncComplete(ScriptValue& value, void* record);

/// Wakes whoever waits: the host's message pump and the GUI thread's. Any thread.
void guiCallback_postNullEvent();
