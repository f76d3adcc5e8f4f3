// host/native/nativeopenwindows.h: the windows that are open. They stay, whether or not the script still holds a
// handle.
#pragma once

#include "host/native/nativeobjectref.h"

#include <map>
#include <mutex>

class NativePump;

/// Keeps each window's object while it is open. Any thread.
class NativeOpenWindows
{
public:
    explicit NativeOpenWindows(NativePump& pump) : m_pump(pump) {}

    /// The component's notice that a window was opened or has closed. Returns at once: the object of a closed window is
    /// let go on the script thread.
    void setOpen(NativeObjectRef const& window, bool isOpen);
    bool any() const;
    /// Lets go of all. Script thread.
    void clear();

private:
    NativePump& m_pump;
    mutable std::mutex m_mutex;
    std::map<NativeObject*, NativeObjectRef> m_open;
};
