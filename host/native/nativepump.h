// host/native/nativepump.h: the script thread's queue of work, and its sleep between two pieces of it.
#pragma once

#include "host/hostslots.h"
#include "host/hostthread.h"

#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <mutex>

/// `post` and `wake` may be called on any thread, everything else on the script thread, which is the one that makes the
/// pump. Turns may be nested: a piece of work may take turns itself.
class NativePump final : public ScriptPumpSlots
{
public:
    using Work = std::function<void()>;

    /// The longest time that one step waits.
    static constexpr std::chrono::milliseconds kStepLimit{50};

    /// Adds a piece of work at the end of the queue. It must not throw.
    void post(Work work);
    /// Waits at most `limit` for work or a wake and runs one piece of work if there is one. False when the time was up.
    bool turn(std::chrono::nanoseconds limit);

    // What the component calls.
    void runOnce(int flags) override;
    void step() override { turn(kStepLimit); }
    void wake() override;

private:
    bool runFront();
    bool waitForSignal(std::chrono::nanoseconds limit);
    bool spinForSignal();
    bool sleepForSignal(std::chrono::steady_clock::time_point end);

    // What `m_signal` says. Asleep is set only by the script thread, and whoever replaces it wakes that thread.
    static constexpr unsigned kQuiet = 0;
    static constexpr unsigned kWoken = 1;
    static constexpr unsigned kAsleep = 2;

    std::atomic<unsigned> m_signal{kQuiet};
    [[maybe_unused]] HostThread const m_scriptThread;
    bool m_shortWaits = false; // the last wait was over within the spin limit
    std::mutex m_mutex;        // guards m_queue
    std::deque<Work> m_queue;
};
