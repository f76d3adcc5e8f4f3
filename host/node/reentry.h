// host/node/reentry.h: two things that the interpreter does only at the bottom of its stack, done further up, where
// script waits in the component.
//
// Promises: a script that calls show() from a promise continuation (anything behind an `await`) is inside the
// interpreter's microtask loop, and that loop refuses to be entered again: no other promise would continue until
// the window is closed. The queue itself is written for tasks that change it while it runs.
//
// Errors: what a callback of the event loop throws is reported as uncaught only if the interpreter sees no script
// further down the stack that might catch it. The script that waits is there.
//
// Node-API offers neither, so both look functions up by name. docs/node.md says what happens where they are not
// exported.
#pragma once

namespace reentry {

/// Whether runMicrotasks() does anything where the calling thread stands now. Inside the microtask loop the first call
/// finds it out with a task of its own, and runs other tasks doing so. Script thread, inside a call from script.
bool canRunMicrotasks();

/// Runs what is in the thread's microtask queue, also when that queue is being run further down the stack. Script
/// thread, inside a call from script.
void runMicrotasks();

/// As long as it exists, an error that escapes from script further up the stack is reported as uncaught. To be created
/// on the stack only, on the script thread, inside a call from script.
class ErrorBarrier
{
public:
    ErrorBarrier();
    ~ErrorBarrier();
    ErrorBarrier(ErrorBarrier const&) = delete;
    ErrorBarrier& operator=(ErrorBarrier const&) = delete;

private:
    // Room for a v8::TryCatch, which takes 7 words today. It has to be on the stack: the interpreter compares its
    // address with those of script's frames.
    alignas(16) unsigned char m_tryCatch[256] = {};
    void (*m_end)(void* tryCatch) = nullptr; // what destroys it; null: there is none
};

} // namespace reentry
