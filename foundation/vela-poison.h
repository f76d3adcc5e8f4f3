// foundation/vela-poison.h: fills memory that is given up, so that a late use of it shows itself.
#pragma once

#include <cstddef>
#include <cstring>

/// Fills `bytes` bytes with 0xFE. A plain memset() in front of the end of an object, or of free(), is a store that
/// nobody reads, and optimisers leave it out; this one they have to keep.
inline void velaPoison(void* place, std::size_t bytes)
{
    std::memset(place, 0xFE, bytes);
    __asm__ volatile("" : : "r"(place) : "memory"); // may read it, as far as the compiler knows
}
