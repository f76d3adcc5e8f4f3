#include "host/native/nativeopenwindows.h"

#include "host/native/nativepump.h"

void NativeOpenWindows::setOpen(NativeObjectRef const& window, bool isOpen)
{
    {
        std::lock_guard lock(mutex_);
        if (isOpen)
            open_.emplace(window.get(), window);
        else
            open_.erase(window.get()); // not the last handle: the caller has one
    }
    if (!isOpen)
        pump_.post([window] {}); // it goes with the work, and the turn lets run() look again
}

bool NativeOpenWindows::any() const
{
    std::lock_guard lock(mutex_);
    return !open_.empty();
}

void NativeOpenWindows::clear()
{
    decltype(open_) open;
    std::lock_guard lock(mutex_);
    open.swap(open_);
}
