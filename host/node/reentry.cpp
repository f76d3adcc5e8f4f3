// host/node/reentry.cpp: finds functions of V8 by their mangled names. All but the last are public and have kept their
// signatures since Node 12; all pointers are opaque here.
#include "host/node/reentry.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <iterator>

#include <dlfcn.h>

namespace reentry {

namespace {

// What the room for a v8::TryCatch is filled with, and how many bytes at its end must stay untouched.
constexpr unsigned char kUntouched = 0xA5;
[[maybe_unused]] constexpr int kMargin = 128;

struct Functions
{
    void* (*currentIsolate)();                         // static v8::Isolate::GetCurrent
    void* (*currentContext)(void* isolate);            // v8::Isolate::GetCurrentContext; a Local is one pointer
    void* (*queueOf)(void* context);                   // v8::Context::GetMicrotaskQueue
    void (*makeTryCatch)(void* memory, void* isolate); // v8::TryCatch::TryCatch
    void (*endTryCatch)(void* tryCatch);               // v8::TryCatch::~TryCatch
    void (*setVerbose)(void* tryCatch, bool verbose);  // v8::TryCatch::SetVerbose
    int (*run)(void* queue, void* isolate);            // v8::internal::MicrotaskQueue::RunMicrotasks
};

template <class Function>
void find(Function& out, char const* name)
{
    out = reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
}

Functions findAll()
{
    Functions found{};
    if (std::getenv("TARN_NO_REENTRY")) // for tests, and in case a future Node changes what a name stands for
        return found;
    find(found.currentIsolate, "_ZN2v87Isolate10GetCurrentEv");
    find(found.currentContext, "_ZN2v87Isolate17GetCurrentContextEv");
    find(found.queueOf, "_ZN2v87Context17GetMicrotaskQueueEv");
    find(found.makeTryCatch, "_ZN2v88TryCatchC1EPNS_7IsolateE");
    find(found.endTryCatch, "_ZN2v88TryCatchD1Ev");
    find(found.setVerbose, "_ZN2v88TryCatch10SetVerboseEb");
    find(found.run, "_ZN2v88internal14MicrotaskQueue13RunMicrotasksEPNS0_7IsolateE");
    return found;
}

Functions const& v8()
{
    static Functions const found = findAll();
    return found;
}

} // namespace

bool canRunMicrotasks() { return v8().currentIsolate && v8().currentContext && v8().queueOf && v8().run; }

void runMicrotasks()
{
    if (!canRunMicrotasks())
        return;
    void* isolate = v8().currentIsolate();
    void* context = v8().currentContext(isolate);
    if (void* queue = context ? v8().queueOf(context) : nullptr)
        v8().run(queue, isolate);
}

ErrorBarrier::ErrorBarrier()
{
    if (!v8().currentIsolate || !v8().makeTryCatch || !v8().endTryCatch || !v8().setVerbose)
        return;
    m_end = v8().endTryCatch;
    std::fill(std::begin(m_tryCatch), std::end(m_tryCatch), kUntouched);
    v8().makeTryCatch(m_tryCatch, v8().currentIsolate());
    assert(std::count(std::end(m_tryCatch) - kMargin, std::end(m_tryCatch), kUntouched) == kMargin);
    v8().setVerbose(m_tryCatch, true);
}

ErrorBarrier::~ErrorBarrier()
{
    if (m_end)
        m_end(m_tryCatch);
}

} // namespace reentry
