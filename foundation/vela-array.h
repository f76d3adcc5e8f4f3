// foundation/vela-array.h: standard containers that throw this library's own error when out of memory.
#pragma once

#include "foundation/vela-alloc.h"
#include "foundation/vela-error.h"

#include <cerrno>
#include <new>
#include <string>
#include <vector>

/// At least one byte; free it with std::free(). Throws velaError 12 when out of memory.
inline void* velaAllocate(std::size_t bytes)
{
    void* block = velaMalloc(bytes ? bytes : 1);
    if (!block)
        throw velaError(ENOMEM);
    return block;
}

/// An allocator that throws velaError 12 instead of std::bad_alloc.
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
            throw velaError(ENOMEM);
        return static_cast<T*>(velaAllocate(count * sizeof(T)));
    }
    void deallocate(T* block, std::size_t) noexcept { std::free(block); }
    bool operator==(velaAllocator const&) const { return true; }
};

template <class T>
using velaArray = std::vector<T, velaAllocator<T>>;
/// 8-bit text for internal use, such as code-set names and digits.
using velaBytes = std::basic_string<char, std::char_traits<char>, velaAllocator<char>>;

/// Base of classes that this library allocates with `new`.
struct velaAllocated
{
    static void* operator new(std::size_t bytes) { return velaAllocate(bytes); }
    static void operator delete(void* block) { std::free(block); }
};
