// host/node/reentry.h: two things that the interpreter does at the bottom of its stack only, done further up, where
// script waits in the component.
//
// Promises: a script that calls show() from a promise continuation (anything behind an `await`) is inside the
// interpreter's microtask loop, and that loop refuses to be entered again: no other promise would go on until the
// window closes. The queue itself is written for tasks that change it while it runs, and many builds of Node export the
// function that empties it.
//
// Errors: what a callback of the event loop throws is an uncaught error only if the interpreter sees at once that
// nobody below catches it; else it takes the script that waits for the catcher.
//
// Node-API offers neither, so both look the functions up by name. Where they are not exported, index.js warns about
// promises and points to showAsync(), and errors are reported when they have left the event loop.
#pragma once

namespace reentry {

/// Whether runMicrotasks() can do anything in this process.
bool canRunMicrotasks();

/// Runs what is in the current context's microtask queue, also when that queue is being run further down the stack.
/// Script thread, inside a call from script.
void runMicrotasks();

/// As long as it lives, an error that leaves script above it is reported as an uncaught one. On the stack only; script
/// thread, inside a call from script.
class ErrorBarrier
{
public:
    ErrorBarrier();
    ~ErrorBarrier();
    ErrorBarrier(ErrorBarrier const&) = delete;
    ErrorBarrier& operator=(ErrorBarrier const&) = delete;

private:
    // Room for a v8::TryCatch, which takes 7 words. The interpreter compares its address with those of script's own
    // frames, so it lies in the object.
    alignas(16) unsigned char m_tryCatch[256];
    bool m_isActive;
};

} // namespace reentry
