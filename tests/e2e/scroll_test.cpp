// tests/e2e/scroll_test.cpp: scrolling as a user does it: the bar's thumb, its empty part, the wheel, the keys.
#include "tests/e2e/roots.h"

using namespace std::chrono_literals;

namespace {

constexpr unsigned kTop = 0xA01010;
constexpr unsigned kMiddle = 0xB0B0F0;
constexpr unsigned kBottom = 0x10A010;
constexpr int kWidth = 400;
constexpr int kHeight = 300;

/// A coloured row of a table.
std::string row(unsigned color, int height, int width = 200)
{
    char text[120];
    std::snprintf(text, sizeof text, "<tr><td width=\"%d\" height=\"%d\" bgcolor=\"#%06X\"></td></tr>", width, height,
                  color);
    return text;
}

std::string tallTable(int width = 200)
{
    return "<table cellspacing=\"0\" width=\"" + std::to_string(width) + "\">" + row(kTop, 200, width) +
           row(kMiddle, 1000, width) + row(kBottom, 200, width) + "</table>";
}

struct ScrollTest : testing::Test
{
    TimeLimit limit{90s};
    NativeHost host;
    Desktop desktop;
    RootWindow window{"Scroll"};

    /// A page in a window that shows only a part of it.
    DesktopArea open(std::string const& content)
    {
        BareRoot& root = window.root();
        root.setDefaultSize(kWidth, kHeight);
        onGuiThread([&] { root.setSizePolicy(kPolicyScroll); });
        pGUI->getThread()->callSetText(&root, sstring(content.c_str()));
        window.open();
        desktop.place("Scroll", 100, 100);
        desktop.activate("Scroll");
        desktop.waitFor(kTop);
        return desktop.window("Scroll");
    }

    guiHtml::scroll_t scroll(char const* name = nullptr)
    {
        guiHtml::scroll_t copy;
        onGuiThread([&] {
            guiHtml* node = name ? window.root().getNamed(name) : &window.root();
            copy.posX = node->getScroll().posX;
            copy.posY = node->getScroll().posY;
            copy.rangeX = node->getScroll().rangeX;
            copy.rangeY = node->getScroll().rangeY;
        });
        return copy;
    }
    bool waitForY(unsigned expected, char const* name = nullptr)
    {
        return Desktop::waitUntil([&] { return scroll(name).posY == expected; }, 5s);
    }
    /// A point on the bar of the window, counted in pixels from its upper or, if negative, lower end.
    void moveToBar(DesktopArea const& inner, int y)
    {
        desktop.move(inner.right - 7, y >= 0 ? inner.top + y : inner.bottom + y);
    }
};

} // namespace

TEST_F(ScrollTest, DraggingTheThumbToTheEndShowsTheEnd)
{
    DesktopArea inner = open(tallTable());
    ASSERT_EQ(scroll().rangeY, 1400u - kHeight);
    EXPECT_FALSE(desktop.find(kBottom));
    desktop.drag(inner.right - 7, inner.top + 30, inner.right - 7, inner.bottom + 100);
    EXPECT_TRUE(waitForY(scroll().rangeY));
    DesktopArea bottom = desktop.waitFor(kBottom);
    EXPECT_EQ(bottom.bottom, inner.bottom) << "the last row ends where the window does";
    desktop.waitUntilGone(kTop);
    desktop.drag(inner.right - 7, inner.bottom - 30, inner.right - 7, inner.top - 100);
    EXPECT_TRUE(waitForY(0));
    DesktopArea top = desktop.waitFor(kTop);
    EXPECT_EQ(top.top, inner.top);
    desktop.waitUntilGone(kBottom);
}

TEST_F(ScrollTest, ThePageFollowsTheThumbWhileItIsDragged)
{
    DesktopArea inner = open(tallTable());
    moveToBar(inner, 30);
    desktop.press();
    moveToBar(inner, 120);
    EXPECT_TRUE(Desktop::waitUntil([&] { return scroll().posY > 200; }, 5s));
    desktop.waitUntilGone(kTop);
    desktop.release();
}

TEST_F(ScrollTest, AClickBelowTheThumbScrollsByTheVisibleHeight)
{
    DesktopArea inner = open(tallTable());
    moveToBar(inner, -40);
    desktop.press();
    desktop.release();
    EXPECT_TRUE(waitForY(kHeight)) << scroll().posY;
}

TEST_F(ScrollTest, TheWheelScrollsThePageUnderThePointer)
{
    DesktopArea inner = open(tallTable());
    desktop.move(inner.centerX(), inner.centerY());
    desktop.press(5);
    desktop.release(5);
    EXPECT_TRUE(Desktop::waitUntil([&] { return scroll().posY > 0; }, 5s));
    unsigned step = scroll().posY;
    EXPECT_EQ(step % 16, 0u) << "whole lines";
    desktop.press(5);
    desktop.release(5);
    EXPECT_TRUE(waitForY(2 * step));
    for (int i = 0; i < 3; ++i) {
        desktop.press(4);
        desktop.release(4);
    }
    EXPECT_TRUE(waitForY(0));
    DesktopArea top = desktop.waitFor(kTop);
    EXPECT_EQ(top.top, inner.top);
}

TEST_F(ScrollTest, TheWheelScrollsTheInnermostNodeFirst)
{
    DesktopArea inner =
        open("<table cellspacing=\"0\"><tr><td name=\"inner\" scrolling=\"yes\" width=\"250\" height=\"150\">" +
             tallTable() + "</td></tr>" + row(0x808080, 900) + "</table>");
    ASSERT_GT(scroll("inner").rangeY, 0u);
    ASSERT_GT(scroll().rangeY, 0u);
    desktop.move(inner.left + 100, inner.top + 50);
    desktop.press(5);
    desktop.release(5);
    EXPECT_TRUE(Desktop::waitUntil([&] { return scroll("inner").posY > 0; }, 5s));
    EXPECT_EQ(scroll().posY, 0u);
    unsigned before = scroll("inner").posY;
    desktop.move(inner.left + 100, inner.top + 250);
    desktop.press(5);
    desktop.release(5);
    EXPECT_TRUE(Desktop::waitUntil([&] { return scroll().posY > 0; }, 5s));
    EXPECT_EQ(scroll("inner").posY, before);
}

TEST_F(ScrollTest, TheWheelOfAWidePageScrollsSideways)
{
    DesktopArea inner = open(tallTable(900));
    ASSERT_GT(scroll().rangeX, 0u);
    desktop.move(inner.centerX(), inner.centerY());
    desktop.press(7);
    desktop.release(7);
    EXPECT_TRUE(Desktop::waitUntil([&] { return scroll().posX > 0; }, 5s));
    EXPECT_EQ(scroll().posY, 0u);
    desktop.press(6);
    desktop.release(6);
    EXPECT_TRUE(Desktop::waitUntil([&] { return scroll().posX == 0; }, 5s));
}

TEST_F(ScrollTest, KeysScrollOnceTheBarHasTheFocus)
{
    DesktopArea inner = open(tallTable());
    desktop.key("Tab");
    desktop.key("Down");
    EXPECT_TRUE(waitForY(16)) << scroll().posY;
    desktop.key("Up");
    EXPECT_TRUE(waitForY(0));
    desktop.key("Page_Down");
    EXPECT_TRUE(waitForY(kHeight)) << scroll().posY;
    desktop.key("End");
    EXPECT_TRUE(waitForY(scroll().rangeY));
    desktop.waitFor(kBottom);
    desktop.key("Home");
    EXPECT_TRUE(waitForY(0));
    EXPECT_EQ(desktop.waitFor(kTop).top, inner.top);
}

TEST_F(ScrollTest, AClickOnTheBarGivesItTheKeysAndEscapeStillReachesThePage)
{
    DesktopArea inner = open(tallTable());
    window.root().setEscapeControl("X");
    moveToBar(inner, -40);
    desktop.press();
    desktop.release();
    EXPECT_TRUE(waitForY(kHeight));
    desktop.key("Down");
    EXPECT_TRUE(waitForY(kHeight + 16));
    desktop.key("Escape");
    desktop.waitUntilClosed("Scroll");
}

TEST_F(ScrollTest, AWindowThatGrowsBeyondItsPageLosesItsBars)
{
    open(tallTable(300));
    onGuiThread([&] { window.root().getWidget()->resize(500, 900); });
    EXPECT_TRUE(Desktop::waitUntil([&] { return scroll().rangeY == 500; }, 5s)) << scroll().rangeY;
    desktop.activate("Scroll");
    desktop.key("Tab");
    desktop.key("End");
    EXPECT_TRUE(waitForY(500));
    onGuiThread([&] { window.root().getWidget()->resize(500, 850); });
    EXPECT_TRUE(Desktop::waitUntil([&] { return scroll().rangeY == 550; }, 5s)) << scroll().rangeY;
    pGUI->getThread()->callSetText(&window.root(), "<p>short</p>");
    EXPECT_TRUE(Desktop::waitUntil([&] { return scroll().rangeY == 0 && scroll().posY == 0; }, 5s));
}
