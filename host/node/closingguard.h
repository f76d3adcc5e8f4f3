// host/node/closingguard.h: keeps the event loop, while it is turned inside one of its own callbacks, from destroying
// the handle that this callback belongs to.
//
// libuv never finishes closing a handle inside a callback, and Node relies on it: its callbacks use their object to the
// end. A turn inside a callback has a closing phase of its own, though. A script that calls show() in a socket's "data"
// event, for example, would return to a socket that no longer exists if that was closed meanwhile.
#pragma once

#include <uv.h>

#include <vector>

/// A handle counts as in use when a word on the stack points to it, or to Node's object around it. A stray pointer only
/// delays the end of a handle. All other handles close as usual. Loop's thread.
class ClosingGuard
{
public:
    /// Whether the loop's list of closing handles is where this class expects it, which it finds out by closing a
    /// handle of its own. If not, guards must not touch the list.
    static bool isPossible(uv_loop_t* loop);
    /// Looks at the stack of the calling thread. Does nothing when `canHoldBack` is false.
    ClosingGuard(uv_loop_t* loop, bool canHoldBack);
    /// Puts the handles back into the list; they end when the callback further down the stack has returned.
    ~ClosingGuard();
    ClosingGuard(ClosingGuard const&) = delete;
    ClosingGuard& operator=(ClosingGuard const&) = delete;

    /// Takes handles that are in use out of the loop's list of closing handles. To be called right before the closing
    /// phase of each turn.
    void holdBack();

private:
    /// A handle and what Node keeps around it, as addresses.
    struct Extent
    {
        uintptr_t begin;
        uintptr_t end;
        uv_handle_t* handle;
    };

    static bool isBelow(Extent const& a, Extent const& b);
    static void collect(uv_handle_t* handle, void* extents);
    void scanStack(std::vector<Extent> const& extents);
    bool isInUse(uv_handle_t* handle) const;

    uv_loop_t* m_loop;
    std::vector<uv_handle_t*> m_inUse;
    std::vector<uv_handle_t*> m_heldBack;
};

/// Clears the part of the stack right below the caller's frame. libuv's frames have large buffers that mostly stay
/// unfilled; what earlier calls left there would count as pointers. To be called when the loop starts a turn.
void clearDeadStack();
