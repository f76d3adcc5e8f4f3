// tests/e2e/window_test.cpp: real windows under a window manager: what a user's clicks do, and what the user sees.
#include "tests/e2e/fixture.h"

using namespace std::chrono_literals;

namespace {

struct WindowTest : testing::Test
{
    TimeLimit limit{90s};
    PageFolder pages;
    NativeHost host{{.folder = pages.path()}};
    Desktop desktop;

    /// A window with one link.
    NativeWindow linkWindow(std::string const& href)
    {
        pages.write("page.html", linkPage("Page", href));
        return host.window("page.html");
    }
};

/// What cursor themes call the hand; a theme may also leave its pictures without names.
bool isHand(std::string const& name)
{
    return name == "pointer" || name == "pointing_hand" || name == "hand1" || name == "hand2" || name.empty();
}

} // namespace

TEST_F(WindowTest, AClickCallsTheHandlerWithItsArgumentsAndShowGivesTheReturnValue)
{
    NativeWindow window = linkWindow("event://onPick/3/red");
    std::vector<NativeValue> seen;
    window.on("onPick", [&](NativeWindow& self, NativeArguments const& args) {
        for (size_t i = 0; i < args.size(); ++i)
            seen.push_back(args[i]);
        EXPECT_EQ(self, window);
        self.setReturnValue("picked " + args[2].text());
        self.close();
    });
    User user([this] { clickLink(desktop); });
    EXPECT_EQ(window.show(), NativeValue("picked red"));
    EXPECT_EQ(seen, (std::vector<NativeValue>{host.engine().session(), "3", "red"}));
    EXPECT_FALSE(window.isOpen());
}

TEST_F(WindowTest, TheReturnValueKeepsItsKind)
{
    NativeWindow window = linkWindow("event://onPick");
    NativeObjectRef order = host.object();
    window.on("onPick", [&](NativeWindow& self, NativeArguments const&) {
        self.setReturnValue(order);
        self.close();
    });
    User user([this] { clickLink(desktop); });
    EXPECT_EQ(window.show(), NativeValue(order));
}

TEST_F(WindowTest, AltF4EndsShowWithNull)
{
    NativeWindow window = linkWindow("event://onPick");
    User user([this] {
        waitForLink(desktop);
        desktop.activate("Page");
        desktop.key("alt+F4");
    });
    EXPECT_TRUE(window.show().isNull());
    EXPECT_FALSE(window.isOpen());
    EXPECT_TRUE(window.isValid());
}

TEST_F(WindowTest, TheCloseButtonOfTheTitleBarEndsShowWithNull)
{
    NativeWindow window = linkWindow("event://onPick");
    User user([this] {
        waitForLink(desktop);
        desktop.click(desktop.closeButton("Page"));
    });
    EXPECT_TRUE(window.show().isNull());
    EXPECT_FALSE(window.isOpen());
}

TEST_F(WindowTest, AWindowCanBeShownAgain)
{
    NativeWindow window = linkWindow("event://onPick");
    window.on("onPick", [](NativeWindow& self, NativeArguments const&) {
        self.setReturnValue("again");
        self.close();
    });
    {
        User user([this] {
            waitForLink(desktop);
            desktop.click(desktop.closeButton("Page"));
        });
        EXPECT_TRUE(window.show().isNull());
    }
    desktop.waitUntilClosed("Page"); // before the same window can open again
    User user([this] { clickLink(desktop); });
    EXPECT_EQ(window.show(), NativeValue("again"));
}

TEST_F(WindowTest, RunServesClicksUntilTheUserClosesTheWindow)
{
    NativeWindow window = linkWindow("event://onPick");
    std::atomic<int> clicks{0};
    window.on("onPick", [&clicks](NativeWindow&, NativeArguments const&) { ++clicks; });
    ASSERT_TRUE(window.open());
    User user([&] {
        for (int click = 1; click <= 3; ++click) {
            clickLink(desktop);
            EXPECT_TRUE(Desktop::waitUntil([&] { return clicks == click; }));
        }
        desktop.click(desktop.closeButton("Page"));
    });
    host.run();
    EXPECT_EQ(clicks, 3);
    EXPECT_FALSE(window.isOpen());
}

TEST_F(WindowTest, ALinkUnderThePointerIsDrawnInTheActiveColorUnderAHand)
{
    NativeWindow window = linkWindow("event://onPick");
    ASSERT_TRUE(window.open());
    User user([this] {
        DesktopArea link = waitForLink(desktop);
        desktop.move(link.right + 60, link.bottom + 60);
        desktop.waitFor(kLink.plain);
        std::string arrow = desktop.cursorPicture();
        std::string arrowName = desktop.cursorName();
        desktop.move(link.centerX(), link.centerY());
        desktop.waitFor(kLink.active);
        desktop.waitUntilGone(kLink.plain);
        EXPECT_TRUE(Desktop::waitUntil([&] { return desktop.cursorPicture() != arrow; }))
            << "the pointer stays an arrow";
        EXPECT_PRED1(isHand, desktop.cursorName());
        EXPECT_FALSE(isHand(arrowName) && !arrowName.empty()) << arrowName;
        desktop.move(link.right + 60, link.bottom + 60);
        desktop.waitFor(kLink.plain);
        desktop.waitUntilGone(kLink.active);
        EXPECT_TRUE(Desktop::waitUntil([&] { return desktop.cursorPicture() == arrow; })) << "the pointer stays a hand";
        desktop.click(desktop.closeButton("Page"));
    });
    host.run();
}

TEST_F(WindowTest, DuringASlowHandlerTheWindowPaintsAndTakesNoSecondClick)
{
    NativeWindow window = linkWindow("event://onPick");
    std::atomic<int> clicks{0};
    std::atomic<bool> busy{false};
    window.on("onPick", [&](NativeWindow&, NativeArguments const&) {
        ++clicks;
        busy = true;
        std::this_thread::sleep_for(2s);
        busy = false;
    });
    ASSERT_TRUE(window.open());
    User user([&] {
        constexpr unsigned kCover = 0xFF00FF;
        DesktopArea link = waitForLink(desktop);
        clickLink(desktop);
        ASSERT_TRUE(Desktop::waitUntil([&] { return busy.load(); }));
        DesktopArea page = desktop.window("Page");
        auto cover = desktop.cover(page, kCover);
        EXPECT_FALSE(desktop.find(kPaper));
        cover.reset();
        desktop.waitFor(kPaper);
        EXPECT_EQ(desktop.find(kCover), std::nullopt);
        EXPECT_TRUE(desktop.find(kLink.plain) || desktop.find(kLink.active));
        EXPECT_TRUE(busy) << "the window was painted only after the handler";
        desktop.click(link);
        desktop.click(link);
        ASSERT_TRUE(Desktop::waitUntil([&] { return !busy.load(); }));
        std::this_thread::sleep_for(500ms); // a click that was only put off would arrive now
        EXPECT_EQ(clicks, 1);
        clickLink(desktop);
        EXPECT_TRUE(Desktop::waitUntil([&] { return clicks == 2; })) << "later clicks are taken again";
        ASSERT_TRUE(Desktop::waitUntil([&] { return !busy.load(); }));
        desktop.click(desktop.closeButton("Page"));
    });
    host.run();
    EXPECT_EQ(clicks, 2);
}

TEST_F(WindowTest, AfterASlowHandlerTheWindowKnowsWhereThePointerWent)
{
    NativeWindow window = linkWindow("event://onPick");
    std::atomic<bool> busy{false};
    window.on("onPick", [&busy](NativeWindow&, NativeArguments const&) {
        busy = true;
        std::this_thread::sleep_for(1s);
        busy = false;
    });
    ASSERT_TRUE(window.open());
    User user([&] {
        DesktopArea link = waitForLink(desktop);
        clickLink(desktop);
        ASSERT_TRUE(Desktop::waitUntil([&] { return busy.load(); }));
        desktop.move(link.right + 60, link.bottom + 60);
        desktop.waitFor(kLink.plain); // without a further move
        EXPECT_FALSE(busy);
        desktop.click(desktop.closeButton("Page"));
    });
    host.run();
}

TEST_F(WindowTest, AfterASlowHandlerAnotherWindowSeesThePointer)
{
    NativeWindow window = linkWindow("event://onPick");
    pages.write("other.html", linkPage("Other", "event://onOther", kSecondLink));
    NativeWindow other = host.window("other.html");
    std::atomic<int> picked{0};
    window.on("onPick", [&picked](NativeWindow&, NativeArguments const&) {
        std::this_thread::sleep_for(500ms); // the button comes up meanwhile
        ++picked;
    });
    other.on("onOther", [this](NativeWindow&, NativeArguments const&) { host.quit(); });
    ASSERT_TRUE(window.open());
    ASSERT_TRUE(other.open());
    User user([&] {
        desktop.place("Page", 100, 100);
        desktop.place("Other", 100, 600);
        clickLink(desktop);
        ASSERT_TRUE(Desktop::waitUntil([&] { return picked == 1; }));
        clickLink(desktop, kSecondLink);
    });
    host.run();
    EXPECT_EQ(picked, 1);
}
