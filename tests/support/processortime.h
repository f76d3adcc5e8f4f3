// tests/support/processortime.h: what work costs, whatever else the machine is doing.
#pragma once

#include <cstdint>
#include <ctime>

/// The calling thread's processor time so far, in nanoseconds.
inline std::int64_t processorTime()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}
