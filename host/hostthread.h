// host/hostthread.h: which thread an object of a host belongs to. A process may have several script threads (the main
// program's and those of workers), so each engine knows its own.
#pragma once

#include <thread>

/// The thread that made it. Any thread may ask.
class HostThread
{
public:
    HostThread() : m_id(std::this_thread::get_id()) {}
    bool isCurrent() const { return std::this_thread::get_id() == m_id; }

private:
    std::thread::id const m_id;
};
