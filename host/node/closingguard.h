// host/node/closingguard.h: keeps the event loop, while it is turned inside one of its own callbacks, from destroying
// the handle that this callback belongs to.
//
// libuv never finishes closing a handle inside a callback, and Node relies on it: its callbacks use their object to the
// end. A turn inside a callback has a closing phase of its own, though. A script that calls show() in a socket's "data"
// event, for example, would come back to an object that is gone when the socket was closed meanwhile.
#pragma once

#include <uv.h>

#include <vector>

/// Which handles are in use further down the stack is told from the stack itself: those it holds a pointer to, or to
/// Node's object around them. A stray pointer only delays the end of a handle. All other handles close as usual. Loop's
/// thread.
class ClosingGuard
{
public:
    /// Looks at the stack of the calling thread.
    explicit ClosingGuard(uv_loop_t* loop);
    /// Gives the handles that were held back to the loop again; they end when the callback below has returned.
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

/// Clears the part of the stack right below the caller's frame. libuv's frames have large buffers that stay unfilled
/// for the most part: what lies in them from before would count as pointers. To be called where the loop starts a turn.
void clearDeadStack();

/// Makes `check` the last check handle of its loop: it runs right before the closing phase.
void startLast(uv_check_t* check, uv_check_cb callback);
