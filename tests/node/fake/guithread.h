// tests/node/fake/guithread.h: the second thread of the fake component: runs jobs, and goes on running them while a job
// waits for script, as the real GUI thread does.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <thread>

class FakeGuiThread
{
public:
    using Job = std::function<void()>;

    void start();
    void stop();
    bool isRunning() const { return m_thread.joinable(); }
    bool isCurrent() const { return std::this_thread::get_id() == m_thread.get_id(); }

    void post(Job job);
    /// Runs `job` after a while, unless `forget(owner)` comes first. Any thread.
    void postLater(int delayMs, void const* owner, Job job);
    void forget(void const* owner);
    /// Runs jobs until `done` answers true. GUI thread.
    void runUntil(std::function<bool()> const& done);
    /// Makes runUntil ask again. Any thread.
    void nudge();

private:
    using Clock = std::chrono::steady_clock;
    struct LateJob
    {
        void const* owner;
        Job job;
    };

    void takeLateJobs();
    void waitForWork(std::unique_lock<std::mutex>& lock);

    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_signal;
    std::deque<Job> m_jobs;
    std::multimap<Clock::time_point, LateJob> m_lateJobs;
    bool m_isStopping = false; // GUI thread
    bool m_isNudged = false;
};
