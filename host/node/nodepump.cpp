// host/node/nodepump.cpp: the queue and the wait.
//
// A wait has two stages. The GUI thread answers most calls within some microseconds, so the first stage is a plain
// signal and the event loop is left alone. Only what takes longer, above all a modal show(), turns the loop: timers,
// promises and I/O go on then. uv_run is entered again from inside its own callbacks, which libuv forbids; docs/node.md
// says why it works all the same, what needs help, and which tests cover it.
#include "host/node/nodepump.h"

#include "host/node/nodeengine.h"

#include <algorithm>
#include <cassert>
#include <chrono>

#include <poll.h>

namespace {

constexpr int64_t kSignalWaitUs = 1000; // stage one; a call that the GUI thread answers at once takes 20 to 50 us
constexpr int kStepMs = 50;             // the longest that a step waits
constexpr int kEagerTurns = 64;         // after so many turns without sleep the loop gets kEagerSleepMs each time
constexpr int kEagerSleepMs = 2;

} // namespace

NodePump::Wait::Wait(NodePump& pump)
    : m_pump(pump), m_depth(++pump.m_waitDepth), m_wasQuiet(pump.m_isQuiet), m_guard(std::move(pump.m_guard))
{
    assert(pump.m_engine.isScriptThread());
    pump.m_isQuiet = false;
}

NodePump::Wait::~Wait()
{
    assert(m_pump.m_waitDepth == m_depth); // waits end in the reverse order of their beginning
    --m_pump.m_waitDepth;
    m_pump.m_isQuiet = m_wasQuiet;
    m_pump.m_guard = std::move(m_guard);
}

void NodePump::start(uv_loop_t* loop)
{
    assert(m_engine.isScriptThread() && !m_loop && m_openHandles == 0);
    m_loop = loop;
    m_canHoldBack = ClosingGuard::isPossible(loop);
    uv_async_init(loop, &m_async, onAsync);
    uv_prepare_init(loop, &m_prepare);
    uv_check_init(loop, &m_firstCheck);
    uv_check_init(loop, &m_lastCheck);
    m_async.data = m_prepare.data = m_firstCheck.data = m_lastCheck.data = this;
    m_openHandles = 4;
    uv_unref(reinterpret_cast<uv_handle_t*>(&m_async));
    uv_prepare_start(&m_prepare, onPrepare);
    uv_unref(reinterpret_cast<uv_handle_t*>(&m_prepare));
    frameChecks();
    uv_unref(reinterpret_cast<uv_handle_t*>(&m_firstCheck));
    uv_unref(reinterpret_cast<uv_handle_t*>(&m_lastCheck));
}

void NodePump::stop(std::function<void()> closed)
{
    assert(m_loop && isClosed() && m_openHandles == 4);
    m_onStopped = std::move(closed);
    {
        std::lock_guard lock(m_mutex); // after this nobody sends to the handle
        m_loop = nullptr;
    }
    auto onClosed = [](uv_handle_t* handle) {
        auto self = static_cast<NodePump*>(handle->data);
        assert(self->m_openHandles > 0);
        if (--self->m_openHandles == 0)
            self->m_onStopped();
    };
    uv_close(reinterpret_cast<uv_handle_t*>(&m_async), onClosed);
    uv_close(reinterpret_cast<uv_handle_t*>(&m_prepare), onClosed);
    uv_close(reinterpret_cast<uv_handle_t*>(&m_firstCheck), onClosed);
    uv_close(reinterpret_cast<uv_handle_t*>(&m_lastCheck), onClosed);
}

void NodePump::post(NodeTask task)
{
    assert(task.run);
    {
        std::lock_guard lock(m_mutex);
        if (!isClosed()) {
            m_tasks.push_back(std::move(task));
            rouse();
            if (m_sleep != Sleep::kOnSignal && m_loop)
                uv_async_send(&m_async);
            return;
        }
    }
    if (task.cancel)
        task.cancel();
}

void NodePump::close()
{
    std::deque<NodeTask> left;
    {
        std::lock_guard lock(m_mutex);
        m_isClosed.store(true, std::memory_order_release);
        left.swap(m_tasks);
        rouse();
    }
    for (auto& task : left)
        if (task.cancel)
            task.cancel();
}

bool NodePump::take(NodeTask& task, bool handlersToo)
{
    assert(m_engine.isScriptThread());
    std::lock_guard lock(m_mutex);
    assert(!isClosed() || m_tasks.empty());
    if (m_tasks.empty() || (m_tasks.front().callsHandler && !handlersToo))
        return false;
    task = std::move(m_tasks.front());
    m_tasks.pop_front();
    return true;
}

bool NodePump::runOne()
{
    NodeTask task;
    if (!take(task, true))
        return false;
    task.run();
    return true;
}

void NodePump::runBookKeeping()
{
    for (NodeTask task; take(task, false);)
        task.run();
}

bool NodePump::hasWork() const
{
    std::lock_guard lock(m_mutex);
    return !m_tasks.empty();
}

void NodePump::setAlive(bool alive)
{
    assert(m_engine.isScriptThread());
    if (alive == m_isAlive || !m_loop)
        return;
    m_isAlive = alive;
    auto handle = reinterpret_cast<uv_handle_t*>(&m_async);
    alive ? uv_ref(handle) : uv_unref(handle);
}

/// While the program is idle each piece of work is a callback of its own for the interpreter, which runs its promises
/// after it. While script waits, the step that turned the loop runs the queue.
void NodePump::onAsync(uv_async_t* handle)
{
    auto self = static_cast<NodePump*>(handle->data);
    if (self->isWaiting())
        return;
    while (self->hasWork() && self->m_engine.dispatchOne()) {}
    self->m_engine.updateAlive();
}

void NodePump::onPrepare(uv_prepare_t* handle)
{
    auto self = static_cast<NodePump*>(handle->data);
    if (!self->isWaiting())
        self->m_engine.onLoopTurn();
    clearDeadStack();
}

/// Comes before the check handle with which Node runs immediates. What is stopped is added to the list: timers run
/// after this, and one that waits turns the loop before the turn that stopped the first has started them again.
void NodePump::onFirstCheck(uv_check_t* handle)
{
    auto self = static_cast<NodePump*>(handle->data);
    if (!self->m_guard || self->m_engine.runImmediates())
        return;
    auto stopped = stopNodesChecks(self->m_loop);
    self->m_stoppedChecks.insert(self->m_stoppedChecks.end(), stopped.begin(), stopped.end());
}

void NodePump::onLastCheck(uv_check_t* handle)
{
    auto self = static_cast<NodePump*>(handle->data);
    if (self->m_guard)
        self->m_guard->holdBack();
}

void NodePump::runOnce(int)
{
    assert(isWaiting());
    runReady();
    takeWake();
}

void NodePump::step()
{
    assert(isWaiting()); // every call into the component is inside a Wait
    if (runReady() || takeWake())
        return;
    if (isClosed()) {
        if (!waitForSignal(kStepMs * 1000))
            m_engine.closeWindowsAgain();
        return;
    }
    if (!m_isQuiet && waitForSignal(kSignalWaitUs)) {
        runReady();
        return;
    }
    stepInLoop();
}

void NodePump::stepInLoop()
{
    bool wasAlive = m_isAlive;
    setAlive(true); // a loop without active handles neither runs timers nor sleeps
    turnLoop();
    if (!runReady() && !takeWake()) {
        waitInLoop();
        turnLoop();
        bool worked = runReady();
        m_isQuiet = !takeWake() && !worked;
    }
    if (!wasAlive)
        m_engine.updateAlive();
}

void NodePump::wake()
{
    std::lock_guard lock(m_mutex);
    m_isWoken = true;
    rouse();
}

/// Ends the wait of the script thread, if it waits. Under the lock.
void NodePump::rouse()
{
    if (m_sleep == Sleep::kOnSignal)
        m_signal.notify_one();
    else if (m_sleep == Sleep::kInLoop && m_loop)
        uv_async_send(&m_async);
}

bool NodePump::runReady()
{
    bool any = false;
    while (runOne())
        any = true;
    m_isQuiet = m_isQuiet && !any;
    return any;
}

bool NodePump::takeWake()
{
    std::lock_guard lock(m_mutex);
    bool woken = m_isWoken;
    m_isWoken = false;
    m_isQuiet = m_isQuiet && !woken;
    return woken;
}

bool NodePump::waitForSignal(int64_t microseconds)
{
    std::unique_lock lock(m_mutex);
    assert(m_sleep == Sleep::kAwake);
    m_sleep = Sleep::kOnSignal;
    bool roused = m_signal.wait_for(lock, std::chrono::microseconds(microseconds),
                                    [this] { return m_isWoken || !m_tasks.empty(); });
    m_sleep = Sleep::kAwake;
    m_isWoken = false;
    return roused;
}

/// Sleeps until the loop has something to do, somebody wakes us, or the step's time is up.
void NodePump::waitInLoop()
{
    {
        std::lock_guard lock(m_mutex);
        if (m_isWoken || !m_tasks.empty())
            return;
        assert(m_sleep == Sleep::kAwake);
        m_sleep = Sleep::kInLoop;
    }
    pollfd descriptor{uv_backend_fd(m_loop), POLLIN, 0};
    poll(&descriptor, 1, loopTimeout());
    std::lock_guard lock(m_mutex);
    m_sleep = Sleep::kAwake;
}

/// How long the loop may sleep now, in milliseconds. Immediates behind one that waits are not served before it
/// returns, and as long as there are any the loop asks for no sleep at all.
int NodePump::loopTimeout()
{
    uv_update_time(m_loop);
    int timeout = uv_backend_timeout(m_loop);
    m_idleTurns = timeout == 0 ? m_idleTurns + 1 : 0;
    if (timeout == 0 && m_idleTurns > kEagerTurns)
        return kEagerSleepMs;
    return timeout < 0 ? kStepMs : std::min(timeout, kStepMs);
}

void NodePump::turnLoop()
{
    if (isClosed())
        return;
    if (!m_guard) {
        m_guard = std::make_unique<ClosingGuard>(m_loop, m_canHoldBack);
        frameChecks(); // again: in a wait that an immediate began, the loop is past them
        m_engine.startWait();
    }
    m_engine.turnLoop();
    restart(std::exchange(m_stoppedChecks, {}));
    startFirst(&m_firstCheck, onFirstCheck); // in front of those that were started again
}

/// Puts one check handle in front of all others and one behind.
void NodePump::frameChecks()
{
    startLast(&m_lastCheck, onLastCheck);
    startFirst(&m_firstCheck, onFirstCheck);
}
