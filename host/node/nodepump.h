// host/node/nodepump.h: work for the script thread. Other threads post it; the script thread runs it while it waits
// inside the component (step) and, while it is idle, when the event loop is woken (uv_async_t).
#pragma once

#include "host/hostslots.h"
#include "host/node/closingguard.h"

#include <uv.h>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

class NodeEngine;

/// One piece of work. Exactly one of the two functions is called, once: `run` on the script thread, or `cancel` when
/// the engine closes first (any thread; may be empty). Neither throws.
struct NodeTask
{
    std::function<void()> run;
    std::function<void()> cancel;
    bool callsHandler = false; // runs a handler of the application, not only book-keeping
};

class NodePump final : public ScriptPumpSlots
{
public:
    explicit NodePump(NodeEngine& engine) : m_engine(engine) {}
    NodePump(NodePump const&) = delete;
    NodePump& operator=(NodePump const&) = delete;

    /// Sets up the handles in the environment's loop. Script thread.
    void start(uv_loop_t* loop);
    /// Takes the handles out of the loop again and calls `closed` when that is done. Script thread.
    void stop(std::function<void()> closed);
    uv_loop_t* loop() const { return m_loop; }

    /// Any thread; never blocks. Cancelled at once when the pump is closed.
    void post(NodeTask task);
    /// Cancels what is queued and, from now on, everything at once. Any thread.
    void close();
    bool isClosed() const { return m_isClosed.load(std::memory_order_acquire); }

    /// Runs one queued piece of work; false when there is none. Script thread.
    bool runOne();
    /// Runs the book-keeping at the head of the queue, up to the first call of a handler. Script thread.
    void runBookKeeping();
    bool hasWork() const;

    /// Whether the loop is kept alive. Script thread.
    void setAlive(bool alive);

    /// Brackets a call into the component, which may wait. Script thread.
    class Wait
    {
    public:
        explicit Wait(NodePump& pump);
        ~Wait();
        Wait(Wait const&) = delete;
        Wait& operator=(Wait const&) = delete;

    private:
        NodePump& m_pump;
        [[maybe_unused]] int const m_depth; // of this wait, from 1
        bool const m_wasQuiet;
        std::unique_ptr<ClosingGuard> m_guard; // of the wait below
    };
    bool isWaiting() const { return m_waitDepth > 0; }

    void runOnce(int flags) override;
    void step() override;
    void wake() override;

private:
    enum class Sleep
    {
        kAwake,
        kOnSignal,
        kInLoop
    };

    static void onAsync(uv_async_t* handle);
    static void onPrepare(uv_prepare_t* handle);
    static void onCheck(uv_check_t* handle);
    bool take(NodeTask& task, bool handlersToo);
    bool runReady();
    bool takeWake();
    bool waitForSignal(int64_t microseconds);
    void stepInLoop();
    void waitInLoop();
    void turnLoop();
    int loopTimeout();
    void rouse();

    NodeEngine& m_engine;
    uv_loop_t* m_loop = nullptr; // not owned
    uv_async_t m_async{};
    uv_prepare_t m_prepare{};
    uv_check_t m_check{};
    std::function<void()> m_onStopped;
    int m_openHandles = 0;
    int m_waitDepth = 0;
    bool m_isAlive = false;
    std::unique_ptr<ClosingGuard> m_guard; // of this wait, once it has turned the loop
    bool m_isQuiet = false;                // the last step of this wait ended because its time was up
    int m_idleTurns = 0;                   // turns in a row for which the loop wanted no sleep

    std::atomic<bool> m_isClosed{false};
    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_signal;
    std::deque<NodeTask> m_tasks;
    bool m_isWoken = false;
    Sleep m_sleep = Sleep::kAwake;
};
