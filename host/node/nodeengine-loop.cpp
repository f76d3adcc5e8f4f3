// host/node/nodeengine-loop.cpp: what the pump asks of the interpreter: to run one piece of work, to turn its event
// loop from further up the stack, and to run its promises there.
#include "host/node/nodeengine.h"

#include "host/node/reentry.h"

#include <cassert>

// --- while the program is idle ---

void NodeEngine::runOneTask() { pump().runOne(); }

bool NodeEngine::dispatchOne()
{
    Napi::HandleScope scope(m_env);
    auto result = m_runOneTask.MakeCallback(m_env.Global(), std::initializer_list<napi_value>{}, *m_asyncContext);
    m_helpers.reportPending();
    return !result.IsEmpty();
}

void NodeEngine::onLoopTurn()
{
    assert(isScriptThread() && !pump().isWaiting());
    if (!m_methodNames.tracksAny() || !m_windows.any())
        return;
    Napi::HandleScope scope(m_env);
    m_publishMethodNames.MakeCallback(m_env.Global(), std::initializer_list<napi_value>{}, *m_asyncContext);
    m_helpers.reportPending();
}

void NodeEngine::updateAlive() { pump().setAlive((m_doWindowsHold && m_windows.any()) || pump().hasWork()); }

void NodeEngine::dropHold()
{
    m_doWindowsHold = false;
    updateAlive();
}

// --- while script waits in the component ---

void NodeEngine::startWait()
{
    Napi::HandleScope scope(m_env);
    m_helpers.call("startWait", {});
}

void NodeEngine::runLoopOnce()
{
    assert(pump().isWaiting() && pump().loop());
    reentry::ErrorBarrier barrier;
    uv_run(pump().loop(), UV_RUN_NOWAIT);
}

/// Calls runLoopOnce through the interpreter, so that an error which escapes from a callback of the loop stops here
/// instead of in the script that waits.
void NodeEngine::turnLoop()
{
    Napi::HandleScope scope(m_env);
    HandlerScope const none(*this);
    m_runLoopOnce.Call({});
    m_helpers.reportPending();
    runMicrotasks();
    m_methodNames.publish();
}

bool NodeEngine::runImmediates()
{
    Napi::HandleScope scope(m_env);
    return m_helpers.ask("runImmediates", {}, true);
}

void NodeEngine::runMicrotasks()
{
    Napi::HandleScope scope(m_env);
    HandlerScope const none(*this);
    auto done = m_helpers.call("runTicks", {});
    if (reentry::canRunMicrotasks()) {
        reentry::runMicrotasks();
        done = m_helpers.call("runTicks", {});
    } else {
        done = m_helpers.call("checkPromises", {});
    }
    if (done.IsEmpty() && !m_helpers.hasGivenUp() && !m_helpers.isScriptAlive())
        abandon();
}

/// The environment was terminated while it waits inside the component. No script runs any more, so whatever waits for a
/// window to close has to return.
void NodeEngine::abandon()
{
    assert(pump().isWaiting());
    m_helpers.giveUp();
    close();
    closeWindows();
}
