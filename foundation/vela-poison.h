// foundation/vela-poison.h: overwrites memory before it is freed, so that a use after free is noticed.
#pragma once

#include <cstddef>
#include <cstring>

/// Fills `bytes` bytes with 0xFE. A plain memset() before an object's end or a free() is a dead store, which optimisers
/// remove; they have to keep this one.
inline void velaPoison(void* place, std::size_t bytes)
{
    std::memset(place, 0xFE, bytes);
    __asm__ volatile("" : : "r"(place) : "memory"); // for the compiler, this may read the bytes
}
