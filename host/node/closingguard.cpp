// host/node/closingguard.cpp: see the header. Reads the list of closing handles in uv_loop_t, whose layout libuv keeps
// for all of its version 1.
#include "host/node/closingguard.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <memory>

#include <pthread.h>

namespace {

constexpr uintptr_t kLargestWrap = 4096; // no object of Node has more in front of the handle inside it

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

// Reads the frames of its callers on purpose; the sanitizer would report an overrun.
__attribute__((noinline, no_sanitize("address"))) void ClosingGuard::scanStack(std::vector<Extent> const& extents)
{
    __builtin_unwind_init(); // saves in this frame the registers in which callers keep pointers
    auto word = static_cast<uintptr_t const*>(__builtin_alloca(sizeof(uintptr_t))); // below them, and of this frame
    __asm__ volatile("" : "+r"(word)); // what is read from there on is more than the compiler knows of
    auto top = reinterpret_cast<uintptr_t const*>(stackTop());
    assert(!top || word < top);
    assert(std::is_sorted(extents.begin(), extents.end(), isBelow));
    for (; word < top; ++word) {
        uintptr_t const value = *word; // what is called from here may not read the stack
        auto after = std::upper_bound(extents.begin(), extents.end(), value,
                                      [](uintptr_t address, Extent const& extent) { return address < extent.begin; });
        if (after != extents.begin() && value < std::prev(after)->end)
            m_inUse.push_back(std::prev(after)->handle);
    }
}

bool ClosingGuard::isPossible(uv_loop_t* loop)
{
    auto check = std::make_unique<uv_check_t>();
    if (uv_check_init(loop, check.get()) != 0)
        return false;
    auto before = loop->closing_handles;
    auto probe = reinterpret_cast<uv_handle_t*>(check.release());
    uv_close(probe, [](uv_handle_t* closed) { delete reinterpret_cast<uv_check_t*>(closed); });
    return loop->closing_handles == probe && probe->next_closing == before;
}

ClosingGuard::ClosingGuard(uv_loop_t* loop, bool canHoldBack) : m_loop(loop)
{
    if (!canHoldBack)
        return;
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
    if (m_inUse.empty())
        return;
    for (auto at = &m_loop->closing_handles; *at;) {
        auto handle = *at;
        assert(uv_is_closing(handle) && handle->loop == m_loop); // else this is not the list
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
    __asm__ volatile("" : : "r"(dead) : "memory"); // keeps the compiler from leaving the stores out
}
