// foundation/vela-alloc.h: where this library's memory comes from: the C library, by way of functions that a test can
// make fail (MemMgr_FailAfter). Blocks go back with std::free().
#pragma once

#include <cstddef>
#include <cstdlib>

#ifdef NDEBUG
inline bool velaAllocationFails() { return false; }
#else
/// Counts one allocation; whether it is the one that shall fail. Any thread.
bool velaAllocationFails();
#endif

/// As the C library's; null when there is no memory.
inline void* velaMalloc(std::size_t bytes) { return velaAllocationFails() ? nullptr : std::malloc(bytes); }
inline void* velaCalloc(std::size_t count, std::size_t bytes)
{
    return velaAllocationFails() ? nullptr : std::calloc(count, bytes);
}
inline void* velaRealloc(void* block, std::size_t bytes)
{
    return velaAllocationFails() ? nullptr : std::realloc(block, bytes);
}
