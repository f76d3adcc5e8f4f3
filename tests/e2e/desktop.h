// tests/e2e/desktop.h: what a user has: eyes and a pointer. It looks at pixels and at what the window manager says, and
// knows nothing of the program under test.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A rectangle of the screen, in pixels; right and bottom are outside of it.
struct DesktopArea
{
    int left;
    int top;
    int right;
    int bottom;

    int centerX() const { return (left + right) / 2; }
    int centerY() const { return (top + bottom) / 2; }
};

/// One connection to the display of $DISPLAY, used by one thread at a time. What waits gives up after kPatience; what
/// can not be found throws std::runtime_error with its name.
class Desktop
{
public:
    static constexpr std::chrono::seconds kPatience{20};

    Desktop();
    ~Desktop();
    Desktop(Desktop const&) = delete;
    Desktop& operator=(Desktop const&) = delete;

    /// The smallest area that holds every pixel of exactly this colour (0xRRGGBB), inside `within` or on the whole
    /// screen.
    std::optional<DesktopArea> find(unsigned color) const;
    /// The same, once there is such a pixel.
    DesktopArea waitFor(unsigned color) const;
    /// Waits until there is no pixel of this colour.
    void waitUntilGone(unsigned color) const;

    /// The inner area, without the frame, of the window with this title, once there is one.
    DesktopArea window(std::string const& title) const;
    void waitUntilClosed(std::string const& title) const;
    bool isOpen(std::string const& title) const;
    /// The middle of the close button that the window manager drew: the last one in the title bar.
    DesktopArea closeButton(std::string const& title) const;
    /// The window becomes the active one and comes to the top.
    void activate(std::string const& title) const;

    /// Puts the window with this title somewhere else.
    void place(std::string const& title, int x, int y) const;

    /// The words of a property of the window with this title, as the window manager reads them; empty without it.
    std::vector<unsigned long> property(std::string const& title, std::string const& name) const;
    /// The names of the atoms in such a property, sorted.
    std::vector<std::string> atoms(std::string const& title, std::string const& name) const;
    /// The title of the active window, "" when none has one.
    std::string activeWindow() const;
    /// Waits until the window with this title is the active one.
    void waitUntilActive(std::string const& title) const;

    void move(int x, int y) const;
    void click(DesktopArea const& area) const;
    /// Buttons of the pointer: 1 left, 4 and 5 the wheel away from and towards the user, 6 and 7 to the left and right.
    void press(int button = 1) const;
    void release(int button = 1) const;
    /// Presses the left button at the first point, goes to the second one in steps, and lets go.
    void drag(int fromX, int fromY, int toX, int toY) const;
    /// Presses a key with its modifiers, as in "alt+F4".
    void key(std::string const& name) const;
    /// Another program's window of this colour lies over the area while the returned pointer lives.
    std::shared_ptr<void> cover(DesktopArea const& area, unsigned color) const;

    /// The picture of the pointer, as bytes that can be compared.
    std::string cursorPicture() const;
    /// The name of the pointer in its theme, "" when it has none.
    std::string cursorName() const;

    /// Looks again and again until `check` is true. False when the patience is over.
    static bool waitUntil(std::function<bool()> const& check, std::chrono::milliseconds limit = kPatience);

private:
    struct Connection;
    std::unique_ptr<Connection> m_x;
};
