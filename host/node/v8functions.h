// host/node/v8functions.h: the functions of V8 that reentry.cpp and microtaskloop.cpp call. All are public and have
// kept their signatures since Node.js 18, but a Node-API addon does not link them: they are looked up by their mangled
// names. All pointers are opaque here.
#pragma once

/// Functions that are not exported are null. `isolate` is the calling thread's, `queue` one of v8::MicrotaskQueue.
struct V8Functions
{
    void* (*currentIsolate)();                         // static v8::Isolate::GetCurrent
    void* (*currentContext)(void* isolate);            // v8::Isolate::GetCurrentContext; a Local is one pointer
    void* (*queueOf)(void* context);                   // v8::Context::GetMicrotaskQueue
    void (*makeTryCatch)(void* memory, void* isolate); // v8::TryCatch::TryCatch
    void (*endTryCatch)(void* tryCatch);               // v8::TryCatch::~TryCatch
    void (*setVerbose)(void* tryCatch, bool verbose);  // v8::TryCatch::SetVerbose
    // Of the isolate's own queue, which is that of every context that was not given another one.
    void (*enqueue)(void* isolate, void (*task)(void*), void* data); // v8::Isolate::EnqueueMicrotask
    void (*performCheckpoint)(void* isolate);                        // static v8::MicrotasksScope::PerformCheckpoint
    bool (*isRunning)(void* isolate);                                // static v8::MicrotasksScope::IsRunningMicrotasks
    // As long as such a scope exists, performCheckpoint does nothing.
    void (*makeSuppression)(void* memory, void* isolate, void* queue); // v8::Isolate::SuppressMicrotaskExecutionScope
    void (*endSuppression)(void* scope);
};

/// What this process exports; nothing while the environment variable TARN_NO_REENTRY is set when this is first called.
V8Functions const& v8Functions();
