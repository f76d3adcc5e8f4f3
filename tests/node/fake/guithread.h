// tests/node/fake/guithread.h: the second thread of the fake component: runs jobs, and goes on running them while a job
// waits for script, as the real GUI thread does.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
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
    /// Runs jobs until `done` answers true. GUI thread.
    void runUntil(std::function<bool()> const& done);
    /// Makes runUntil ask again. Any thread.
    void nudge();

private:
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_signal;
    std::deque<Job> m_jobs;
    bool m_isStopping = false; // GUI thread
    bool m_isNudged = false;
};
