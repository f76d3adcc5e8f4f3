// tests/e2e/frameset_test.cpp: framesets in real windows: their pages, the targets of links, and dividers under the
// pointer.
#include "tests/e2e/fixture.h"

#include <atomic>

using namespace std::chrono_literals;

namespace {

constexpr unsigned kRed = 0xA01010;
constexpr unsigned kGreen = 0x10A010;
constexpr unsigned kBlue = 0x3050D0;
constexpr unsigned kYellow = 0xD0C010;
constexpr unsigned kGap = 0x404040;
constexpr int kWidth = 600;
constexpr int kHeight = 400;
constexpr int kTolerance = 1; // pixels: where the pointer is and where a divider's middle is

std::string hex(unsigned color)
{
    char text[10];
    std::snprintf(text, sizeof text, "#%06X", color);
    return text;
}

struct FramesetTest : testing::Test
{
    TimeLimit limit{90s};
    PageFolder pages;
    NativeHost host{{.folder = pages.path()}};
    Desktop desktop;

    FramesetTest()
    {
        for (auto const& [name, color] :
             {std::pair("red.html", kRed), {"green.html", kGreen}, {"blue.html", kBlue}, {"yellow.html", kYellow}})
            writeFrame(name, color, "");
    }

    void writeFrame(std::string const& name, unsigned color, std::string const& content)
    {
        pages.write(name, "<html><body bgcolor=\"" + hex(color) + "\" link=\"#2030C0\" alink=\"#10C0C0\">" + content +
                              "</body></html>");
    }
    static std::string link(std::string const& attributes)
    {
        return "<font size=\"7\"><b><a " + attributes + ">MM</a></b></font>";
    }

    NativeWindow open(std::string const& frameset, std::string const& body = "")
    {
        pages.write("top.html", "<html><head><title>Frames</title></head><body width=\"" + std::to_string(kWidth) +
                                    "\" height=\"" + std::to_string(kHeight) + "\" bgcolor=\"" + hex(kGap) + "\" " +
                                    body + ">" + frameset + "</body></html>");
        NativeWindow window = host.window("top.html");
        desktop.move(1250, 900);
        EXPECT_TRUE(window.open());
        return window;
    }

    /// Does what a user does, then ends the program.
    void run(std::function<void(DesktopArea const& inner)> acts)
    {
        User user([&] {
            acts(desktop.window("Frames"));
            host.quit();
        });
        host.run();
    }

    /// Waits until a colour fills this part of the window, counted from its corner.
    void expectArea(unsigned color, DesktopArea const& inner, DesktopArea expected)
    {
        std::optional<DesktopArea> seen;
        auto isClose = [](int a, int b) { return std::abs(a - b) <= kTolerance; };
        bool found = Desktop::waitUntil(
            [&] {
                seen = desktop.find(color);
                return seen && isClose(seen->left - inner.left, expected.left) &&
                       isClose(seen->top - inner.top, expected.top) &&
                       isClose(seen->right - inner.left, expected.right) &&
                       isClose(seen->bottom - inner.top, expected.bottom);
            },
            3s);
        EXPECT_TRUE(found) << hex(color) << " covers " << (seen ? seen->left - inner.left : -1) << ","
                           << (seen ? seen->top - inner.top : -1) << " to " << (seen ? seen->right - inner.left : -1)
                           << "," << (seen ? seen->bottom - inner.top : -1);
    }
    void drag(DesktopArea const& inner, int fromX, int fromY, int toX, int toY)
    {
        desktop.drag(inner.left + fromX, inner.top + fromY, inner.left + toX, inner.top + toY);
    }
};

} // namespace

TEST_F(FramesetTest, LoadsThePageOfEachFrameIntoItsPlace)
{
    NativeWindow window =
        open("<frameset cols=\"200,*\" rows=\"25%,*\"><frame src=\"red.html\"><frame src=\"green.html\">"
             "<frame src=\"blue.html\"><frame src=\"yellow.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 200, 100});
        expectArea(kGreen, inner, {200, 0, 600, 100});
        expectArea(kBlue, inner, {0, 100, 200, 400});
        expectArea(kYellow, inner, {200, 100, 600, 400});
    });
}

TEST_F(FramesetTest, StarsShareEvenlyWhatPixelsAndPercentsLeave)
{
    NativeWindow window = open("<frameset cols=\"*,20%,*,80\"><frame src=\"red.html\"><frame src=\"green.html\">"
                               "<frame src=\"blue.html\"><frame src=\"yellow.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 200, 400});
        expectArea(kGreen, inner, {200, 0, 320, 400});
        expectArea(kBlue, inner, {320, 0, 520, 400});
        expectArea(kYellow, inner, {520, 0, 600, 400});
    });
}

TEST_F(FramesetTest, StarsShareEvenlyWhateverTheirPagesHold)
{
    std::string words;
    for (int i = 0; i < 200; ++i)
        words += "word ";
    writeFrame("long.html", kRed, words);
    NativeWindow window = open("<frameset cols=\"*,*\"><frame src=\"long.html\"><frame src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) { expectArea(kGreen, inner, {300, 0, 600, 400}); });
}

TEST_F(FramesetTest, FramesetsStandInFramesets)
{
    NativeWindow window =
        open("<frameset cols=\"150,*\"><frame src=\"red.html\"><frameset rows=\"*,100\"><frame src=\"green.html\">"
             "<frame src=\"blue.html\"></frameset></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 150, 400});
        expectArea(kGreen, inner, {150, 0, 600, 300});
        expectArea(kBlue, inner, {150, 300, 600, 400});
    });
}

TEST_F(FramesetTest, APageWithAFramesetLoadsInAFrame)
{
    pages.write("inner.html",
                "<html><body><frameset rows=\"50%,50%\"><frame src=\"blue.html\"><frame src=\"yellow.html\">"
                "</frameset></body></html>");
    NativeWindow window = open("<frameset cols=\"*,*\"><frame src=\"red.html\"><frame src=\"inner.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 300, 400});
        expectArea(kBlue, inner, {300, 0, 600, 200});
        expectArea(kYellow, inner, {300, 200, 600, 400});
    });
}

TEST_F(FramesetTest, ALinkLoadsIntoTheFrameThatItsTargetNames)
{
    writeFrame("nav.html", kRed, link("href=\"blue.html\" target=\"Main\""));
    NativeWindow window =
        open("<frameset cols=\"200,*\"><frame src=\"nav.html\"><frame name=\"main\" src=\"green.html\">"
             "</frameset>");
    run([&](DesktopArea const& inner) {
        clickLink(desktop, {0x2030C0, 0x10C0C0});
        expectArea(kBlue, inner, {200, 0, 600, 400});
        expectArea(kRed, inner, {0, 0, 200, 400});
        EXPECT_FALSE(desktop.find(kGreen));
    });
}

TEST_F(FramesetTest, ALinkWithoutATargetLoadsIntoItsOwnFrame)
{
    writeFrame("nav.html", kRed, "<table><tr><td>" + link("href=\"blue.html\"") + "</td></tr></table>");
    NativeWindow window =
        open("<frameset cols=\"200,*\"><frame src=\"nav.html\"><frame name=\"main\" src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        clickLink(desktop, {0x2030C0, 0x10C0C0});
        expectArea(kBlue, inner, {0, 0, 200, 400});
        expectArea(kGreen, inner, {200, 0, 600, 400});
    });
}

TEST_F(FramesetTest, AnUnknownTargetIsTheEnclosingFrame)
{
    writeFrame("nav.html", kRed, link("href=\"blue.html\" target=\"nobody\""));
    NativeWindow window =
        open("<frameset cols=\"200,*\"><frame src=\"nav.html\"><frame name=\"main\" src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        clickLink(desktop, {0x2030C0, 0x10C0C0});
        expectArea(kBlue, inner, {0, 0, 200, 400});
        expectArea(kGreen, inner, {200, 0, 600, 400});
    });
}

TEST_F(FramesetTest, TopReplacesTheWholePage)
{
    writeFrame("nav.html", kRed, link("href=\"blue.html\" target=\"_top\""));
    NativeWindow window =
        open("<frameset cols=\"200,*\"><frame src=\"nav.html\"><frame src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        clickLink(desktop, {0x2030C0, 0x10C0C0});
        expectArea(kBlue, inner, {0, 0, 600, 400});
    });
}

TEST_F(FramesetTest, ParentIsTheNearestNamedNodeAround)
{
    writeFrame("nav.html", kRed, link("href=\"blue.html\" target=\"_parent\""));
    NativeWindow window =
        open("<frameset name=\"all\" cols=\"200,*\"><frame src=\"nav.html\"><frame src=\"green.html\">"
             "</frameset>");
    run([&](DesktopArea const& inner) {
        clickLink(desktop, {0x2030C0, 0x10C0C0});
        desktop.waitUntilGone(kRed);
        desktop.waitUntilGone(kGreen);
        EXPECT_TRUE(desktop.find(kBlue)) << "in " << inner.left;
    });
}

TEST_F(FramesetTest, AFileThatAHandlerNamesLoadsIntoTheTargetOfItsLink)
{
    writeFrame("nav.html", kRed, link("href=\"event://onPick/7\" target=\"main\""));
    NativeWindow window =
        open("<frameset cols=\"200,*\"><frame src=\"nav.html\"><frame name=\"main\" src=\"green.html\"></frameset>");
    window.on("onPick", [](NativeWindow&, NativeArguments const& args) {
        return NativeValue(args[1].text() == "7" ? "yellow.html" : "blue.html");
    });
    run([&](DesktopArea const& inner) {
        clickLink(desktop, {0x2030C0, 0x10C0C0});
        expectArea(kYellow, inner, {200, 0, 600, 400});
        expectArea(kRed, inner, {0, 0, 200, 400});
    });
}

TEST_F(FramesetTest, ABookmarkScrollsThePage)
{
    NativeWindow window = open(link("href=\"#end\"") + "<table cellspacing=\"0\"><tr><td width=\"100\" height=\"900\">"
                                                       "</td></tr></table><a name=\"end\">here</a>"
                                                       "<table cellspacing=\"0\"><tr><td bgcolor=\"#10A010\" "
                                                       "width=\"100\" height=\"500\"></td></tr></table>",
                               "scrolling=\"yes\" link=\"#2030C0\" alink=\"#10C0C0\"");
    run([&](DesktopArea const& inner) {
        EXPECT_FALSE(desktop.find(kGreen));
        clickLink(desktop, {0x2030C0, 0x10C0C0});
        DesktopArea green = desktop.waitFor(kGreen);
        EXPECT_LT(green.top - inner.top, 60) << "the line above it is at the top";
    });
}

TEST_F(FramesetTest, ABookmarkScrollsTheFrameThatItsFileIsLoadedInto)
{
    constexpr char kFrames[] = "<frameset cols=\"200,*\"><frame src=\"nav.html\">"
                               "<frame name=\"main\" src=\"tall.html#end\" scrolling=\"yes\"></frameset>";
    writeFrame(
        "tall.html", kRed,
        "<a name=\"top\">top</a><table cellspacing=\"0\"><tr><td width=\"100\" height=\"900\"></td></tr></table>"
        "<a name=\"end\">here</a><table cellspacing=\"0\"><tr><td bgcolor=\"#10A010\" width=\"100\" height=\"500\">"
        "</td></tr></table>");
    writeFrame("nav.html", kBlue, link("href=\"tall.html#top\" target=\"main\"") + "<a name=\"end\"></a>");
    NativeWindow window = open(kFrames);
    run([&](DesktopArea const& inner) {
        DesktopArea const green = desktop.waitFor(kGreen);
        EXPECT_LT(green.top - inner.top, 60) << "from the beginning";
        clickLink(desktop, {0x2030C0, 0x10C0C0});
        desktop.waitUntilGone(kGreen);
    });
}

TEST_F(FramesetTest, AScrollingFrameScrollsAlone)
{
    writeFrame("tall.html", kRed,
               "<table cellspacing=\"0\"><tr><td width=\"100\" height=\"900\"></td></tr><tr><td bgcolor=\"#3050D0\" "
               "width=\"100\" height=\"100\"></td></tr></table>");
    NativeWindow window = open("<frameset cols=\"200,*\"><frame src=\"tall.html\" scrolling=\"yes\">"
                               "<frame src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kGreen, inner, {200, 0, 600, 400});
        EXPECT_FALSE(desktop.find(kBlue));
        drag(inner, 193, 30, 193, 600);
        DesktopArea blue = desktop.waitFor(kBlue);
        EXPECT_EQ(blue.bottom, inner.bottom);
        expectArea(kGreen, inner, {200, 0, 600, 400});
    });
}

TEST_F(FramesetTest, ADraggedDividerMovesTheBorderOfTheTwoFrames)
{
    NativeWindow window = open("<frameset cols=\"200,*\" framespacing=\"8\"><frame src=\"red.html\"><frame "
                               "src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 200, 400});
        expectArea(kGreen, inner, {208, 0, 600, 400});
        drag(inner, 204, 200, 304, 220);
        expectArea(kRed, inner, {0, 0, 300, 400});
        expectArea(kGreen, inner, {308, 0, 600, 400});
        drag(inner, 304, 200, 104, 200);
        expectArea(kRed, inner, {0, 0, 100, 400});
        expectArea(kGreen, inner, {108, 0, 600, 400});
    });
}

TEST_F(FramesetTest, ADividerWithoutWidthCanBeDraggedAndMovesAllRows)
{
    NativeWindow window = open("<frameset cols=\"*,*\" rows=\"*,*\"><frame src=\"red.html\"><frame src=\"green.html\">"
                               "<frame src=\"blue.html\"><frame src=\"yellow.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 300, 200});
        drag(inner, 300, 100, 380, 100);
        expectArea(kRed, inner, {0, 0, 380, 200});
        expectArea(kYellow, inner, {380, 200, 600, 400});
        drag(inner, 100, 200, 100, 90);
        expectArea(kRed, inner, {0, 0, 380, 90});
        expectArea(kGreen, inner, {380, 0, 600, 90});
        expectArea(kBlue, inner, {0, 90, 380, 400});
    });
}

TEST_F(FramesetTest, TheThirdFrameKeepsItsSizeWhileTheFirstDividerIsDragged)
{
    NativeWindow window = open("<frameset cols=\"100,200,*\"><frame src=\"red.html\"><frame src=\"green.html\">"
                               "<frame src=\"blue.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kBlue, inner, {300, 0, 600, 400});
        drag(inner, 100, 50, 160, 50);
        expectArea(kRed, inner, {0, 0, 160, 400});
        expectArea(kGreen, inner, {160, 0, 300, 400});
        expectArea(kBlue, inner, {300, 0, 600, 400});
    });
}

TEST_F(FramesetTest, ADividerStopsBeforeAFrameIsGone)
{
    NativeWindow window =
        open("<frameset cols=\"200,*\"><frame src=\"red.html\"><frame src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 200, 400});
        drag(inner, 200, 100, 2, 100);
        expectArea(kRed, inner, {0, 0, 16, 400});
        drag(inner, 16, 100, 598, 100);
        expectArea(kRed, inner, {0, 0, 584, 400});
        expectArea(kGreen, inner, {584, 0, 600, 400});
    });
}

TEST_F(FramesetTest, WithoutAResizeTheDividersStay)
{
    NativeWindow window =
        open("<frameset cols=\"200,*\" noresize><frame src=\"red.html\"><frame src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 200, 400});
        drag(inner, 200, 100, 300, 100);
        std::this_thread::sleep_for(200ms);
        expectArea(kRed, inner, {0, 0, 200, 400});
    });
}

TEST_F(FramesetTest, ThePointerOverADividerSaysSo)
{
    NativeWindow window = open("<frameset cols=\"200,*\" framespacing=\"8\"><frame src=\"red.html\"><frame "
                               "src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 200, 400});
        desktop.move(inner.left + 100, inner.top + 100);
        std::this_thread::sleep_for(100ms);
        std::string arrow = desktop.cursorPicture();
        desktop.move(inner.left + 204, inner.top + 100);
        EXPECT_TRUE(Desktop::waitUntil([&] { return desktop.cursorPicture() != arrow; }, 3s));
        desktop.move(inner.left + 300, inner.top + 100);
        EXPECT_TRUE(Desktop::waitUntil([&] { return desktop.cursorPicture() == arrow; }, 3s));
    });
}

TEST_F(FramesetTest, AfterADragTheFramesStillFillAWindowThatGrows)
{
    NativeWindow window =
        open("<frameset cols=\"50%,50%\"><frame src=\"red.html\"><frame src=\"green.html\"></frameset>");
    run([&](DesktopArea const& inner) {
        expectArea(kRed, inner, {0, 0, 300, 400});
        drag(inner, 300, 100, 200, 100);
        expectArea(kRed, inner, {0, 0, 200, 400});
        host.post([window] { window.setDefaultSize(700, 400); });
        expectArea(kGreen, desktop.window("Frames"), {200, 0, 700, 400});
    });
}
