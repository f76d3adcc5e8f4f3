// bench/windowwatch.h: watches another program's window through the X server, without help from that program.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <xcb/xcb.h>

/// A connection to the X server that observes which windows the window manager manages.
class WindowWatch
{
public:
    /// Throws std::runtime_error if there is no display.
    WindowWatch();

    struct Seen
    {
        xcb_window_t window;
        int width;  // pixels
        int height; // pixels
    };

    /// Waits until a window that became managed since the last call shows its content: `background` in its upper left
    /// corner and some pixels of `text`, both 0xRRGGBB. Returns nothing if `giveUp`, which it calls repeatedly, returns
    /// true.
    std::optional<Seen> waitForContent(uint32_t background, uint32_t text, std::function<bool()> const& giveUp);
    /// Waits until the window is gone, after its program has ended.
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
    xcb_window_t m_managed = 0; // the window managed last; 0: none
};
