// bench/windowwatch.cpp: see windowwatch.h.
#include "bench/windowwatch.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

/// The interval of polling: short compared with the start of any program, long compared with the time that a poll takes
/// the server.
constexpr std::chrono::microseconds kPollInterval{250};
/// More pixels than a frame or a caret has.
constexpr auto kLeastTextPixels = 30;
/// The bits of a pixel that hold its colour.
constexpr uint32_t kColourMask = 0xFFFFFF;

struct Free
{
    void operator()(void* block) const { std::free(block); }
};
template <class T>
using Owned = std::unique_ptr<T, Free>;

/// Returns nothing while the window is not visible. The screen has 24 or 32 bits of colour.
std::vector<uint32_t> pixelsOf(xcb_connection_t* connection, xcb_window_t window, int x, int y, int width, int height)
{
    auto const request =
        xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<int16_t>(x), static_cast<int16_t>(y),
                      static_cast<uint16_t>(width), static_cast<uint16_t>(height), UINT32_MAX);
    xcb_generic_error_t* error = nullptr;
    Owned<xcb_get_image_reply_t> const image(xcb_get_image_reply(connection, request, &error));
    Owned<xcb_generic_error_t> const ownedError(error);
    if (!image)
        return {};
    std::vector<uint32_t> pixels(static_cast<size_t>(xcb_get_image_data_length(image.get())) / sizeof(uint32_t));
    std::memcpy(pixels.data(), xcb_get_image_data(image.get()), pixels.size() * sizeof(uint32_t));
    for (uint32_t& pixel : pixels)
        pixel &= kColourMask;
    return pixels;
}

} // namespace

WindowWatch::WindowWatch()
{
    int screen = 0;
    m_connection.reset(xcb_connect(nullptr, &screen));
    if (xcb_connection_has_error(m_connection.get()) != 0)
        throw std::runtime_error("there is no display to open windows on");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    uint32_t const events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), m_root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_connection.get());
}

/// A window manager makes each managed window the child of a frame.
void WindowWatch::readEvents()
{
    while (Owned<xcb_generic_event_t> const event{xcb_poll_for_event(m_connection.get())}) {
        auto const* const moved = reinterpret_cast<xcb_reparent_notify_event_t*>(event.get());
        if ((event->response_type & 0x7F) == XCB_REPARENT_NOTIFY && moved->parent != m_root)
            m_managed = moved->window;
    }
}

std::optional<WindowWatch::Seen> WindowWatch::sizeOf(xcb_window_t window)
{
    xcb_generic_error_t* error = nullptr;
    Owned<xcb_get_geometry_reply_t> const size(
        xcb_get_geometry_reply(m_connection.get(), xcb_get_geometry(m_connection.get(), window), &error));
    Owned<xcb_generic_error_t> const ownedError(error);
    if (!size)
        return std::nullopt;
    return Seen{window, size->width, size->height};
}

bool WindowWatch::showsContent(Seen const& seen, uint32_t background, uint32_t text)
{
    std::vector<uint32_t> const corner = pixelsOf(m_connection.get(), seen.window, 2, 2, 1, 1);
    if (corner.empty() || corner[0] != background)
        return false;
    std::vector<uint32_t> const all = pixelsOf(m_connection.get(), seen.window, 0, 0, seen.width, seen.height);
    return std::count(all.begin(), all.end(), text) >= kLeastTextPixels;
}

std::optional<WindowWatch::Seen> WindowWatch::waitForContent(uint32_t background, uint32_t text,
                                                             std::function<bool()> const& giveUp)
{
    readEvents();
    for (m_managed = 0; !giveUp(); std::this_thread::sleep_for(kPollInterval)) {
        readEvents();
        std::optional<Seen> const seen = m_managed != 0 ? sizeOf(m_managed) : std::nullopt;
        if (seen && showsContent(*seen, background, text))
            return seen;
    }
    return std::nullopt;
}

void WindowWatch::waitUntilGone(xcb_window_t window)
{
    while (sizeOf(window))
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}
