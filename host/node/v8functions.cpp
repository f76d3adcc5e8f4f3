// host/node/v8functions.cpp: see the header.
#include "host/node/v8functions.h"

#include <cstdlib>

#include <dlfcn.h>

namespace {

template <class Function>
void find(Function& out, char const* name)
{
    out = reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
}

V8Functions findAll()
{
    V8Functions found{};
    if (std::getenv("TARN_NO_REENTRY")) // for tests, and in case a future Node changes what a name stands for
        return found;
    find(found.currentIsolate, "_ZN2v87Isolate10GetCurrentEv");
    find(found.currentContext, "_ZN2v87Isolate17GetCurrentContextEv");
    find(found.queueOf, "_ZN2v87Context17GetMicrotaskQueueEv");
    find(found.makeTryCatch, "_ZN2v88TryCatchC1EPNS_7IsolateE");
    find(found.endTryCatch, "_ZN2v88TryCatchD1Ev");
    find(found.setVerbose, "_ZN2v88TryCatch10SetVerboseEb");
    find(found.enqueue, "_ZN2v87Isolate16EnqueueMicrotaskEPFvPvES1_");
    find(found.performCheckpoint, "_ZN2v815MicrotasksScope17PerformCheckpointEPNS_7IsolateE");
    find(found.isRunning, "_ZN2v815MicrotasksScope19IsRunningMicrotasksEPNS_7IsolateE");
    find(found.makeSuppression, "_ZN2v87Isolate31SuppressMicrotaskExecutionScopeC1EPS0_PNS_14MicrotaskQueueE");
    find(found.endSuppression, "_ZN2v87Isolate31SuppressMicrotaskExecutionScopeD1Ev");
    return found;
}

} // namespace

V8Functions const& v8Functions()
{
    static V8Functions const found = findAll();
    return found;
}
