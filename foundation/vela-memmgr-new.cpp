// foundation/vela-memmgr-new.cpp: the global operators new and delete, which call malloc() and free() directly, so that
// blocks can be exchanged with code that uses those. Sanitizers bring their own.

#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TARN_SANITIZER_ALLOCATES 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define TARN_SANITIZER_ALLOCATES 1
#endif
#endif

#ifndef TARN_SANITIZER_ALLOCATES

void* operator new(std::size_t size)
{
    // An allocation of zero bytes has an address of its own, too.
    if (void* block = std::malloc(size ? size : 1))
        return block;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, std::nothrow_t const&) noexcept { return std::malloc(size ? size : 1); }
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new[](std::size_t size, std::nothrow_t const&) noexcept { return std::malloc(size ? size : 1); }

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, std::nothrow_t const&) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::nothrow_t const&) noexcept { std::free(block); }

#endif
