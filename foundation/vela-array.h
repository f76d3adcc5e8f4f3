// foundation/vela-array.h: the standard containers of this library, with its own error for want of memory.
#pragma once

#include <new>
#include <string>
#include <vector>

#include "foundation/vela-alloc.h"
#include "foundation/vela-error.h"

/// Memory for at least one byte; throws velaError 12 when there is none. Goes back with std::free().
inline void* velaAllocate(std::size_t bytes)
{
    void* block = velaMalloc(bytes ? bytes : 1);
    if (!block)
        throw velaError(12);
    return block;
}

/// Lets standard containers throw velaError 12 instead of std::bad_alloc.
template <class T>
struct velaAllocator
{
    using value_type = T;

    velaAllocator() = default;
    template <class Other>
    velaAllocator(velaAllocator<Other> const&)
    {}

    T* allocate(std::size_t count)
    {
        if (count > static_cast<std::size_t>(-1) / 2 / sizeof(T))
            throw velaError(12);
        return static_cast<T*>(velaAllocate(count * sizeof(T)));
    }
    void deallocate(T* block, std::size_t) noexcept { std::free(block); }
    bool operator==(velaAllocator const&) const { return true; }
};

template <class T>
using velaArray = std::vector<T, velaAllocator<T>>;
/// 8-bit text that is not for display: names of code sets, digits.
using velaBytes = std::basic_string<char, std::char_traits<char>, velaAllocator<char>>;

/// Base of classes that are made with `new` inside this library.
struct velaAllocated
{
    static void* operator new(std::size_t bytes) { return velaAllocate(bytes); }
    static void operator delete(void* block) { std::free(block); }
};
