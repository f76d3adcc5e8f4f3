// tests/e2e/fixture.h: a host, a folder of pages, and a user who acts while the script waits.
#pragma once

#include <condition_variable>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

#include "host/native/nativehost.h"
#include "tests/e2e/desktop.h"

/// Ends the process with a message when it is not over in time: a deadlock is a failed test, not a hanging one.
class TimeLimit
{
public:
    explicit TimeLimit(std::chrono::seconds limit)
        : m_thread([this, limit] {
              std::unique_lock lock(m_mutex);
              if (m_over.wait_for(lock, limit, [this] { return m_done; }))
                  return;
              std::fprintf(stderr, "the test has not ended within %lld s\n", static_cast<long long>(limit.count()));
              std::_Exit(99);
          })
    {}
    ~TimeLimit()
    {
        {
            std::lock_guard lock(m_mutex);
            m_done = true;
        }
        m_over.notify_one();
        m_thread.join();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_over;
    bool m_done = false;
    std::thread m_thread; // last: it uses the rest
};

/// A folder of files, gone with this object.
class PageFolder
{
public:
    PageFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "tarn-pages-XXXXXX").string();
        if (!mkdtemp(name.data()))
            throw std::runtime_error("no room for temporary files");
        m_path = name;
    }
    ~PageFolder() { std::filesystem::remove_all(m_path); }
    PageFolder(PageFolder const&) = delete;
    PageFolder& operator=(PageFolder const&) = delete;

    std::filesystem::path const& path() const { return m_path; }
    void write(std::string const& name, std::string_view bytes) const
    {
        std::ofstream(m_path / name, std::ios::binary) << bytes;
    }

private:
    std::filesystem::path m_path;
};

/// Somebody at the desk: runs on a thread of its own, and has left when this object goes. What it throws fails the
/// test.
class User
{
public:
    explicit User(std::function<void()> acts)
        : m_thread([acts = std::move(acts)] {
              try {
                  acts();
              } catch (std::exception const& error) {
                  ADD_FAILURE() << error.what();
              }
          })
    {}
    ~User() { m_thread.join(); }

private:
    std::thread m_thread;
};

/// The two colours of a page's link, 0xRRGGBB: as it is, and under the pointer.
struct LinkColors
{
    unsigned plain;
    unsigned active;
};

constexpr LinkColors kLink{0x2030C0, 0x10C010};
constexpr LinkColors kSecondLink{0xC03020, 0x10C0C0};
constexpr unsigned kPaper = 0xF0F0F0;

/// A page titled `title` with one large link.
inline std::string linkPage(std::string const& title, std::string const& href, LinkColors colors = kLink)
{
    char body[200];
    std::snprintf(body, sizeof body,
                  "<body width=\"400\" height=\"200\" link=\"#%06X\" alink=\"#%06X\" bgcolor=\"#%06X\">", colors.plain,
                  colors.active, kPaper);
    return "<html><head><title>" + title + "</title></head>" + body + "<font size=\"7\"><b><a href=\"" + href +
           "\">MMMM</a></b></font></body></html>";
}

/// Where a link is, once it is on the screen; it may have appeared under the pointer.
inline DesktopArea waitForLink(Desktop const& desktop, LinkColors colors = kLink)
{
    std::optional<DesktopArea> area;
    if (!Desktop::waitUntil(
            [&] { return (area = desktop.find(colors.plain)) || (area = desktop.find(colors.active)); }))
        throw std::runtime_error("there is no link on the screen");
    return *area;
}

/// Goes over a link, until it answers with its other colour, and clicks. While another handler begins or ends, a window
/// takes no input for a moment.
inline void clickLink(Desktop const& desktop, LinkColors colors = kLink)
{
    DesktopArea area = waitForLink(desktop, colors);
    int step = 0;
    bool answers = Desktop::waitUntil([&] {
        step ^= 1;
        area = waitForLink(desktop, colors); // the window may still be on its way to where it was put
        desktop.move(area.centerX() + step, area.centerY());
        return Desktop::waitUntil([&] { return desktop.find(colors.active).has_value(); },
                                  std::chrono::milliseconds(200));
    });
    if (!answers)
        throw std::runtime_error("the link of the colour " + std::to_string(colors.plain) +
                                 " does not see the pointer");
    desktop.click(area);
}
