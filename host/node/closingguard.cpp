// host/node/closingguard.cpp: see the header. Reads the list of closing handles in uv_loop_t, whose layout libuv keeps
// for all of its version 1.
#include "host/node/closingguard.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include <pthread.h>

namespace {

constexpr uintptr_t kLargestWrap = 4096; // more than any object of Node that has a handle inside takes in front of it

constexpr int kFrameWords = 64; // the scan begins below this frame's saved registers, wherever the compiler puts them

/// One past the highest address of the calling thread's stack.
uintptr_t stackTop()
{
    thread_local uintptr_t const top = [] {
        pthread_attr_t attributes;
        void* lowest = nullptr;
        size_t size = 0;
        if (pthread_getattr_np(pthread_self(), &attributes) != 0)
            return uintptr_t{0};
        pthread_attr_getstack(&attributes, &lowest, &size);
        pthread_attr_destroy(&attributes);
        return reinterpret_cast<uintptr_t>(lowest) + size;
    }();
    return top;
}

} // namespace

bool ClosingGuard::isBelow(Extent const& a, Extent const& b) { return a.begin < b.begin; }

void ClosingGuard::collect(uv_handle_t* handle, void* extents)
{
    auto address = reinterpret_cast<uintptr_t>(handle);
    auto wrap = reinterpret_cast<uintptr_t>(handle->data); // Node's object, which has the handle inside
    bool isInside = wrap < address && address - wrap < kLargestWrap;
    auto end = address + uv_handle_size(handle->type);
    assert(end > address);
    static_cast<std::vector<Extent>*>(extents)->push_back({isInside ? wrap : address, end, handle});
}

// Reading the frames of callers is what this is for; the sanitizer would take it for an overrun.
__attribute__((noinline, no_sanitize("address"))) void ClosingGuard::scanStack(std::vector<Extent> const& extents)
{
    __builtin_unwind_init(); // puts the registers that callers keep pointers in into this frame
    auto word = static_cast<uintptr_t const*>(__builtin_frame_address(0)) - kFrameWords;
    auto top = reinterpret_cast<uintptr_t const*>(stackTop());
    assert(!top || word < top);
    assert(std::is_sorted(extents.begin(), extents.end(), isBelow));
    for (; word < top; ++word) {
        auto after = std::upper_bound(extents.begin(), extents.end(), *word,
                                      [](uintptr_t value, Extent const& extent) { return value < extent.begin; });
        if (after != extents.begin() && *word < std::prev(after)->end)
            m_inUse.push_back(std::prev(after)->handle);
    }
}

ClosingGuard::ClosingGuard(uv_loop_t* loop) : m_loop(loop)
{
    std::vector<Extent> extents;
    uv_walk(loop, collect, &extents);
    std::sort(extents.begin(), extents.end(), isBelow);
    scanStack(extents);
    std::sort(m_inUse.begin(), m_inUse.end());
    m_inUse.erase(std::unique(m_inUse.begin(), m_inUse.end()), m_inUse.end());
}

ClosingGuard::~ClosingGuard()
{
    for (auto handle : m_heldBack) {
        assert(uv_is_closing(handle) && handle->loop == m_loop);
        handle->next_closing = m_loop->closing_handles;
        m_loop->closing_handles = handle;
    }
}

bool ClosingGuard::isInUse(uv_handle_t* handle) const
{
    return std::binary_search(m_inUse.begin(), m_inUse.end(), handle);
}

void ClosingGuard::holdBack()
{
    for (auto at = &m_loop->closing_handles; *at;) {
        auto handle = *at;
        assert(uv_is_closing(handle) && handle->loop == m_loop); // what we take for the list is it
        if (isInUse(handle)) {
            *at = handle->next_closing;
            m_heldBack.push_back(handle);
        } else {
            at = &handle->next_closing;
        }
    }
}

__attribute__((noinline)) void clearDeadStack()
{
    constexpr size_t kBytes = 32 * 1024; // libuv's frame with the events of a poll takes 12 KB
    unsigned char dead[kBytes];
    std::memset(dead, 0, kBytes);
    __asm__ volatile("" : : "r"(dead) : "memory"); // a store that counts
}

void startLast(uv_check_t* check, uv_check_cb callback)
{
    assert(check->loop && !uv_is_closing(reinterpret_cast<uv_handle_t*>(check)));
    uv_check_stop(check);
    uv_check_start(check, callback);
    // A check handle that is started runs before all others: the others are started again, and so run before this one.
    auto restart = [](uv_handle_t* handle, void* last) {
        if (handle->type != UV_CHECK || handle == last || !uv_is_active(handle))
            return;
        auto other = reinterpret_cast<uv_check_t*>(handle);
        auto itsCallback = other->check_cb;
        uv_check_stop(other);
        uv_check_start(other, itsCallback);
    };
    uv_walk(check->loop, restart, check);
}
