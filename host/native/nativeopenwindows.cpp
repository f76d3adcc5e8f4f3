// host/native/nativeopenwindows.cpp: see nativeopenwindows.h.
#include "host/native/nativeopenwindows.h"

#include "host/native/nativepump.h"

#include <cassert>

void NativeOpenWindows::setOpen(NativeObjectRef const& window, bool isOpen)
{
    assert(window);
    {
        std::lock_guard lock(m_mutex);
        if (isOpen)
            m_open.emplace(window.get(), window);
        else
            m_open.erase(window.get()); // not the last handle: the caller has one
    }
    if (!isOpen)
        m_pump.post([window] {}); // released with this piece of work, whose turn also lets run() look again
}

bool NativeOpenWindows::any() const
{
    std::lock_guard lock(m_mutex);
    return !m_open.empty();
}

void NativeOpenWindows::clear()
{
    decltype(m_open) open;
    std::lock_guard lock(m_mutex);
    open.swap(m_open);
}
