// host/node/microtasks.h: promises while a promise waits.
//
// A script that calls show() from a promise continuation (anything behind an `await`) is inside the interpreter's
// microtask loop, and that loop refuses to be entered again: no other promise would go on until the window closes. The
// interpreter's own queue is written for tasks that change it while it runs, though, and many builds of Node export the
// function that empties it. Where it is exported it is used; where it is not, index.js warns and points to showAsync().
#pragma once

namespace microtasks {

/// Whether runNested() can do anything in this process.
bool canRunNested();

/// Runs what is in the current context's microtask queue, also when that queue is being run further up the stack.
/// Script thread, inside a call from script.
void runNested();

} // namespace microtasks
