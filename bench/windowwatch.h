// bench/windowwatch.h: watches another program's window from outside, through the X server, as its user would: the
// program is not asked and can not help.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <xcb/xcb.h>

/// A connection that sees which windows the window manager takes into its care.
class WindowWatch
{
public:
    /// Throws std::runtime_error when there is no display.
    WindowWatch();

    struct Seen
    {
        xcb_window_t window;
        int width;  // pixels
        int height; // pixels
    };

    /// Waits until a window that the window manager has taken since the last call shows its content: `background` in
    /// its upper left corner and some pixels of `text`, both 0xRRGGBB. Nothing when `giveUp` says so; it is asked now
    /// and then.
    std::optional<Seen> waitForContent(uint32_t background, uint32_t text, std::function<bool()> const& giveUp);
    /// Waits until the window is gone. The program must have ended.
    void waitUntilGone(xcb_window_t window);

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void readEvents();
    std::optional<Seen> sizeOf(xcb_window_t window);
    bool showsContent(Seen const& seen, uint32_t background, uint32_t text);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = 0;
    xcb_window_t m_managed = 0; // the window manager's latest; 0: none
};
