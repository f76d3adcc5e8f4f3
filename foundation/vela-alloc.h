// foundation/vela-alloc.h: how this library allocates memory: from the C library, through functions that a test can
// make fail (MemMgr_FailAfter). Free blocks with std::free().
#pragma once

#include <cstddef>
#include <cstdlib>

#ifdef NDEBUG
inline bool velaAllocationFails() { return false; }
#else
/// Counts one allocation and says whether it is the one to fail. Any thread.
bool velaAllocationFails();
#endif

/// Deleter for std::unique_ptr of a block that these functions return.
struct velaFreed
{
    void operator()(void* block) const { std::free(block); }
};

/// Like malloc(), calloc() and realloc().
inline void* velaMalloc(std::size_t bytes) { return velaAllocationFails() ? nullptr : std::malloc(bytes); }
inline void* velaCalloc(std::size_t count, std::size_t bytes)
{
    return velaAllocationFails() ? nullptr : std::calloc(count, bytes);
}
inline void* velaRealloc(void* block, std::size_t bytes)
{
    return velaAllocationFails() ? nullptr : std::realloc(block, bytes);
}
