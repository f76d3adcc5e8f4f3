// tests/node/fake/guithread.cpp: see the header.
#include "tests/node/fake/guithread.h"

void FakeGuiThread::start()
{
    m_isStopping = false;
    m_thread = std::thread([this] { runUntil([this] { return m_isStopping; }); });
}

void FakeGuiThread::stop()
{
    post([this] { m_isStopping = true; });
    m_thread.join();
}

void FakeGuiThread::post(Job job)
{
    std::lock_guard lock(m_mutex);
    m_jobs.push_back(std::move(job));
    m_signal.notify_all();
}

void FakeGuiThread::postLater(int delayMs, void const* owner, Job job)
{
    std::lock_guard lock(m_mutex);
    m_lateJobs.insert({Clock::now() + std::chrono::milliseconds(delayMs), {owner, std::move(job)}});
    m_signal.notify_all();
}

void FakeGuiThread::forget(void const* owner)
{
    std::lock_guard lock(m_mutex);
    std::erase_if(m_lateJobs, [owner](auto const& entry) { return entry.second.owner == owner; });
}

void FakeGuiThread::takeLateJobs()
{
    auto const due = m_lateJobs.upper_bound(Clock::now());
    for (auto at = m_lateJobs.begin(); at != due; at = m_lateJobs.erase(at))
        m_jobs.push_back(std::move(at->second.job));
}

void FakeGuiThread::waitForWork(std::unique_lock<std::mutex>& lock)
{
    for (takeLateJobs(); m_jobs.empty() && !m_isNudged; takeLateJobs()) {
        if (m_lateJobs.empty()) {
            m_signal.wait(lock);
            continue;
        }
        Clock::time_point const due = m_lateJobs.begin()->first; // a copy: the job may go meanwhile
        m_signal.wait_until(lock, due);
    }
}

void FakeGuiThread::nudge()
{
    std::lock_guard lock(m_mutex);
    m_isNudged = true;
    m_signal.notify_all();
}

void FakeGuiThread::runUntil(std::function<bool()> const& done)
{
    while (!done()) {
        Job job;
        {
            std::unique_lock lock(m_mutex);
            waitForWork(lock);
            if (m_jobs.empty()) {
                m_isNudged = false;
                continue;
            }
            job = std::move(m_jobs.front());
            m_jobs.pop_front();
        }
        job();
    }
}
