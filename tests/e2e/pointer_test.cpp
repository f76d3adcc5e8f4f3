// tests/e2e/pointer_test.cpp: a real pointer over real pages: the order in which nodes hear of it, and links.
#include "tests/e2e/fixture.h"

#include <atomic>

using namespace std::chrono_literals;

namespace {

using Log = std::vector<std::string>;

constexpr unsigned kRed = 0xA01010;
constexpr unsigned kGreen = 0x10A010;
constexpr unsigned kOutside = 1250; // pixels; the windows stand further to the left and above

/// A cell that tells of everything that the pointer does to it, with its name as the argument.
std::string cell(std::string const& name, unsigned color)
{
    char attributes[80];
    std::snprintf(attributes, sizeof attributes, "<td width=\"200\" height=\"200\" bgcolor=\"#%06X\"", color);
    std::string text = attributes;
    for (char const* event : {"over", "out", "down", "up"})
        text += std::string(" onmouse") + event + "=\"event://" + event + "/" + name + "\"";
    return text + "></td>";
}

struct PointerTest : testing::Test
{
    TimeLimit limit{90s};
    PageFolder pages;
    NativeHost host{{.folder = pages.path()}};
    Desktop desktop;
    std::mutex mutex;
    Log log; // guarded by mutex

    void note(std::string const& what)
    {
        std::lock_guard lock(mutex);
        log.push_back(what);
    }
    Log heard()
    {
        std::lock_guard lock(mutex);
        return log;
    }
    bool waitFor(Log const& expected)
    {
        return Desktop::waitUntil([&] { return heard() == expected; }, 5s);
    }

    NativeWindow open(std::string const& content, std::string const& colors = "")
    {
        pages.write("page.html", "<html><head><title>Pointer</title></head><body width=\"400\" height=\"200\" bgcolor="
                                 "\"#F0F0F0\" " +
                                     colors + ">" + content + "</body></html>");
        NativeWindow window = host.window("page.html");
        for (char const* event : {"over", "out", "down", "up"})
            window.on(event, [this, event](NativeWindow&, NativeArguments const& args) {
                note(event + (" " + args[1].text()));
            });
        desktop.move(kOutside, 900); // it rests in the middle of a new screen
        EXPECT_TRUE(window.open());
        return window;
    }
    NativeWindow openCells()
    {
        return open("<table cellspacing=\"0\"><tr>" + cell("red", kRed) + cell("green", kGreen) + "</tr></table>");
    }
    void goTo(DesktopArea const& area, int dx = 0) { desktop.move(area.centerX() + dx, area.centerY()); }
};

} // namespace

TEST_F(PointerTest, LeavesOneNodeBeforeItEntersAnother)
{
    NativeWindow window = openCells();
    User user([&] {
        DesktopArea red = desktop.waitFor(kRed);
        DesktopArea green = desktop.waitFor(kGreen);
        goTo(red);
        EXPECT_TRUE(waitFor({"over red"}));
        goTo(red, 20);
        goTo(red, 40);
        goTo(green);
        EXPECT_TRUE(waitFor({"over red", "out red", "over green"})) << testing::PrintToString(heard());
        goTo(red);
        EXPECT_TRUE(waitFor({"over red", "out red", "over green", "out green", "over red"}));
        host.quit();
    });
    host.run();
}

TEST_F(PointerTest, LeavesTheNodeWhenItLeavesTheWindow)
{
    NativeWindow window = openCells();
    User user([&] {
        goTo(desktop.waitFor(kRed));
        EXPECT_TRUE(waitFor({"over red"}));
        desktop.move(kOutside, 900);
        EXPECT_TRUE(waitFor({"over red", "out red"})) << testing::PrintToString(heard());
        host.quit();
    });
    host.run();
}

TEST_F(PointerTest, ThePressGoesToOneNodeAndTheReleaseToTheOneUnderIt)
{
    NativeWindow window = openCells();
    User user([&] {
        DesktopArea red = desktop.waitFor(kRed);
        DesktopArea green = desktop.waitFor(kGreen);
        goTo(red);
        EXPECT_TRUE(waitFor({"over red"}));
        desktop.press();
        EXPECT_TRUE(waitFor({"over red", "down red"}));
        goTo(green);
        EXPECT_TRUE(waitFor({"over red", "down red", "out red", "over green"})) << testing::PrintToString(heard());
        desktop.release();
        EXPECT_TRUE(waitFor({"over red", "down red", "out red", "over green", "up green"}))
            << testing::PrintToString(heard());
        host.quit();
    });
    host.run();
}

TEST_F(PointerTest, AReleaseOutsideOfTheWindowReachesNoNode)
{
    NativeWindow window = openCells();
    User user([&] {
        DesktopArea red = desktop.waitFor(kRed);
        goTo(red);
        EXPECT_TRUE(waitFor({"over red"}));
        desktop.press();
        EXPECT_TRUE(waitFor({"over red", "down red"}));
        desktop.move(kOutside, 900);
        desktop.release();
        EXPECT_TRUE(waitFor({"over red", "down red", "out red"})) << testing::PrintToString(heard());
        std::this_thread::sleep_for(200ms);
        EXPECT_EQ(heard().size(), 3u);
        host.quit();
    });
    host.run();
}

TEST_F(PointerTest, MovesDoNotPileUpBehindASlowHandler)
{
    NativeWindow window = openCells();
    std::atomic<int> moves{0};
    window.on("eMouseMove", [&moves](NativeWindow&, NativeArguments const&) {
        ++moves;
        std::this_thread::sleep_for(400ms);
    });
    User user([&] {
        DesktopArea red = desktop.waitFor(kRed);
        goTo(red);
        ASSERT_TRUE(Desktop::waitUntil([&] { return moves != 0; }));
        for (int step = 1; step <= 20; ++step)
            goTo(red, step);
        std::this_thread::sleep_for(1500ms);
        EXPECT_LE(moves, 3) << "of 21 moves";
        host.quit();
    });
    host.run();
}

TEST_F(PointerTest, AHandlerThatClosesTheWindowHearsThatItsNodeIsLeftAndNoMoreOfIt)
{
    NativeWindow window = openCells();
    std::atomic<bool> left{false};
    window.on("down", [this](NativeWindow& self, NativeArguments const&) {
        note("closing");
        self.close();
        note("closed");
    });
    User user([&] {
        DesktopArea red = desktop.waitFor(kRed);
        goTo(red);
        EXPECT_TRUE(waitFor({"over red"}));
        desktop.press();
        desktop.waitUntilClosed("Pointer");
        desktop.release();
        goTo(red, 30);
        std::this_thread::sleep_for(200ms);
        left = true;
    });
    EXPECT_TRUE(host.serveUntil([&] { return left.load(); }, 30s)); // run() would end with the last window
    EXPECT_EQ(heard(), (Log{"over red", "closing", "out red", "closed"}));
}

namespace {

constexpr unsigned kLinkColor = 0x2030C0;
constexpr unsigned kActiveColor = 0x10C010;

struct LinkTest : PointerTest
{
    /// Two links without a gap, and text that is none.
    NativeWindow openLinks()
    {
        NativeWindow window =
            open("<font size=\"7\"><b><a href=\"event://one\">MMMM</a><a href=\"event://two\">MMMM</a></b></font>",
                 "link=\"#2030C0\" alink=\"#10C010\"");
        window.on("one", [this](NativeWindow&, NativeArguments const&) { note("one"); });
        window.on("two", [this](NativeWindow&, NativeArguments const&) { note("two"); });
        return window;
    }
    static DesktopArea leftHalf(DesktopArea area) { return {area.left, area.top, area.centerX() - 4, area.bottom}; }
    static DesktopArea rightHalf(DesktopArea area) { return {area.centerX() + 4, area.top, area.right, area.bottom}; }
    /// Whether exactly the text inside the area is drawn as hovered.
    bool waitForActive(DesktopArea const& area)
    {
        return Desktop::waitUntil(
            [&] {
                auto active = desktop.find(kActiveColor);
                return active && active->left >= area.left - 8 && active->right <= area.right + 8;
            },
            5s);
    }
};

} // namespace

TEST_F(LinkTest, CrossingFromOneLinkToTheNextKeepsTheHandAndMovesTheColor)
{
    NativeWindow window = openLinks();
    User user([&] {
        desktop.move(kOutside, 900);
        DesktopArea both = desktop.waitFor(kLinkColor);
        desktop.move(both.left, both.bottom + 60);
        std::this_thread::sleep_for(100ms);
        std::string arrow = desktop.cursorPicture();
        goTo(leftHalf(both));
        EXPECT_TRUE(waitForActive(leftHalf(both)));
        std::string hand = desktop.cursorPicture();
        EXPECT_NE(hand, arrow);
        for (int x = leftHalf(both).centerX(); x <= rightHalf(both).centerX(); x += 6) {
            desktop.move(x, both.centerY());
            EXPECT_EQ(desktop.cursorPicture(), hand) << "at " << x;
        }
        goTo(rightHalf(both));
        EXPECT_TRUE(waitForActive(rightHalf(both)));
        desktop.move(both.left, both.bottom + 60);
        desktop.waitUntilGone(kActiveColor);
        EXPECT_TRUE(Desktop::waitUntil([&] { return desktop.cursorPicture() == arrow; }));
        host.quit();
    });
    host.run();
}

TEST_F(LinkTest, LeavingTheWindowStraightFromALinkEndsItsColor)
{
    NativeWindow window = openLinks();
    User user([&] {
        desktop.move(kOutside, 900);
        DesktopArea both = desktop.waitFor(kLinkColor);
        goTo(leftHalf(both));
        EXPECT_TRUE(waitForActive(leftHalf(both)));
        desktop.move(kOutside, 900);
        desktop.waitUntilGone(kActiveColor);
        host.quit();
    });
    host.run();
}

TEST_F(LinkTest, EachLinkCallsItsOwnHandlerOnThePressAlone)
{
    NativeWindow window = openLinks();
    User user([&] {
        desktop.move(kOutside, 900);
        DesktopArea both = desktop.waitFor(kLinkColor);
        goTo(leftHalf(both));
        EXPECT_TRUE(waitForActive(leftHalf(both)));
        desktop.press();
        EXPECT_TRUE(waitFor({"one"})) << "a link is followed when the button goes down";
        desktop.release();
        goTo(rightHalf(both));
        EXPECT_TRUE(waitForActive(rightHalf(both)));
        desktop.press();
        EXPECT_TRUE(waitFor({"one", "two"}));
        desktop.move(both.left, both.bottom + 60);
        desktop.release();
        std::this_thread::sleep_for(200ms);
        EXPECT_EQ(heard(), (Log{"one", "two"}));
        host.quit();
    });
    host.run();
}
