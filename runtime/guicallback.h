// runtime/guicallback.h: calls from a page into script. An event name such as "onPick/3/red" becomes a call of the
// script method `onPick` with the arguments "3" and "red".
#pragma once

#include "foundation/pmutex.h"
#include "foundation/vela-string.h"
#include "runtime/guipromises.h"
#include "script/hostinterface.h"

#include <atomic>

class guiHtml;
class guiHtmlCustom;

/// An asynchronous call while its caller waits; the context of guiCallback_AsyncComplete. Lives in the caller's frame.
struct guiCallbackRecord
{
    ScriptValue* result;      // not owned
    pevent* waiter;           // not owned; null when the GUI thread waits, in its own event loop
    std::atomic<int> done{0}; // for a caller without a waiter
};

/// The part of an event name before the first "/" or "\".
sstring guiCallback_StripEventName(sstring name);

/// Appends the arguments in an event name to `args`, each a string, through `scratch`; returns the stripped name. Empty
/// trailing text adds no argument.
sstring guiCallback_ProcessEventName(sstring name, ScriptArgs* args, ScriptValue* scratch);

/// 0 for the names of the eight low-level events (creation, painting and mouse), which leave user input enabled; 1 for
/// any other text, a low-level name with arguments included.
int guiCallback_ShouldDisable(sstring name);

/// Calls the method that `name` says on `target` with `source` as the first argument, and waits for the result. Any
/// thread; on the GUI thread the windows go on painting meanwhile. A handler may close the window and destroy `node`,
/// so the caller asks the registry afterwards. The promise of a handler that was called for a page is not waited for:
/// the result is null.
void guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring name, ScriptObject* source,
                           ScriptValue* result);

/// The same for a handler of a page (`node` is in a window). When it has left a promise, `use` says what for.
void guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring const& name, ScriptObject* source,
                           ScriptValue* result, guiPromiseUse use);

/// The same; the result as text if it is a string, else "".
sstring guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring name, ScriptObject* source);

/// Calls the method `name` of `target` with the session and an address, which is one argument whatever it holds, and
/// waits for it as above; its result is of no use. User input is blocked meanwhile. Any thread. The node may be gone
/// afterwards.
void guiCallback_CallLink(guiHtml* node, ScriptObject* target, sstring const& name, sstring const& address);

/// Calls a filter function on the script thread, as a method of `owner` (null: of the function itself), with the window
/// and the text of a page, and waits for it. Gives its result if that is a string, else "". User input is blocked
/// meanwhile. Any thread.
sstring guiCallback_CallFilter(ScriptObject* owner, ScriptValue* function, ScriptObject* window, sstring const& text);

/// Calls the handler that `event` names on `owner`, as a link does: with the session first, then what the name carries.
/// Gives its result if that is a string, else "". User input is blocked meanwhile. Any thread.
sstring guiCallback_CallFilter(ScriptObject* owner, sstring const& event);

/// Calls the method "getString" of an object with messages, with a key as its only argument, and waits for the result,
/// which is null when there is none. User input is blocked meanwhile. Any thread.
void guiCallback_CallGetString(ScriptObject* messages, sstring const& key, ScriptValue* result);

/// Calls a handler of the script component that an `object` element stands for; before that the element tells its mouse
/// object where the pointer is. Returns the handler's number, 0 for a result of another kind, and 1 without a call when
/// `object` has no such handler. The node may be gone afterwards.
int guiCallback_CallCustom(guiHtmlCustom* node, ScriptObject* object, sstring name, ScriptObject* source);

/// Has a control's script object built on the script thread and waits for it; null when that failed. On the GUI thread
/// events are handled meanwhile, but no user input. Any thread.
ScriptObject* guiCallback_BuildCustomObject(guiHtml* node);
/// The part of it that runs on the script thread. Its first argument is the node's address as a number; the result is
/// the node's object, null when the node is gone.
void guiCallback_BuildCustomObject_Callback(LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                                            ScriptArgs& args, ScriptValue& result);

/// Waits until the call of this record is complete. On the GUI thread the windows go on painting meanwhile.
void guiCallback_Wait(guiCallbackRecord& call);

/// Completes an asynchronous call: copies the value into the result of `record`, a guiCallbackRecord, and wakes its
/// waiter. Once for each call. Any thread.
void guiCallback_AsyncComplete(ScriptValue& value, void* record);

/// Wakes both threads if they wait: the script thread in the host's message pump, the GUI thread in pumpOnce(). Any
/// thread.
void guiCallback_postNullEvent();
