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
            m_signal.wait(lock, [this] { return !m_jobs.empty() || m_isNudged; });
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
