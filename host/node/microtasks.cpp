// host/node/microtasks.cpp: finds four functions of V8 by their mangled names. All four have kept their signature since
// Node 12; the pointers stay opaque.
#include "host/node/microtasks.h"

#include <dlfcn.h>

namespace microtasks {

namespace {

struct Functions
{
    void* (*currentIsolate)();              // static v8::Isolate::GetCurrent
    void* (*currentContext)(void* isolate); // v8::Isolate::GetCurrentContext; a Local is one pointer
    void* (*queueOf)(void* context);        // v8::Context::GetMicrotaskQueue
    int (*run)(void* queue, void* isolate); // v8::internal::MicrotaskQueue::RunMicrotasks

    bool isComplete() const { return currentIsolate && currentContext && queueOf && run; }
};

template <class Function>
void find(Function& out, const char* name)
{
    out = reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
}

Functions findAll()
{
    Functions found{};
    find(found.currentIsolate, "_ZN2v87Isolate10GetCurrentEv");
    find(found.currentContext, "_ZN2v87Isolate17GetCurrentContextEv");
    find(found.queueOf, "_ZN2v87Context17GetMicrotaskQueueEv");
    find(found.run, "_ZN2v88internal14MicrotaskQueue13RunMicrotasksEPNS0_7IsolateE");
    return found;
}

Functions const& functions()
{
    static Functions const found = findAll();
    return found;
}

} // namespace

bool canRunNested() { return functions().isComplete(); }

void runNested()
{
    auto& v8 = functions();
    void* isolate = v8.isComplete() ? v8.currentIsolate() : nullptr;
    void* context = isolate ? v8.currentContext(isolate) : nullptr;
    void* queue = context ? v8.queueOf(context) : nullptr;
    if (queue)
        v8.run(queue, isolate);
}

} // namespace microtasks
