// runtime/guihandlercall.h: one call of a handler, from its start until it returns, and the promise that it may return.
#pragma once

#include "foundation/vela-string.h"
#include "script/hostinterface.h"

/// Calls the handler `method` of `target` and waits until it has returned; on the GUI thread the windows go on
/// painting. 0: its result is in `result`. Otherwise it has returned a promise, which is known by that number from now
/// on: when it has settled, guiPromises_settled() is called. `form` (may be null) has the page's values, `event` (the
/// same) is what the user has done. Any thread that does not hold the component lock.
unsigned guiHandlerCall_run(ScriptObject* target, sstring const& method, ScriptArgs* args, ScriptObject* form,
                            ScriptObject* event, ScriptValue* result);

/// Nobody waits for the promise of this number any more. Any thread.
void guiHandlerCall_forget(unsigned promise);
