// tests/e2e/modal_test.cpp: what a modal window does to the others while it is open, and after it.
#include "tests/e2e/fixture.h"

#include <atomic>

using namespace std::chrono_literals;

namespace {

constexpr LinkColors kThirdLink{0x8020A0, 0xA0A010};

struct ModalTest : testing::Test
{
    TimeLimit limit{90s};
    PageFolder pages;
    NativeHost host{{.folder = pages.path()}};
    Desktop desktop;
    std::atomic<int> firstClicks{0};

    NativeWindow linkWindow(std::string const& title, LinkColors colors)
    {
        pages.write(title + ".html", linkPage(title, "event://onClick", colors));
        return host.window(title + ".html");
    }

    /// The window at the top left, open and active, whose clicks are counted.
    NativeWindow openFirst()
    {
        NativeWindow first = linkWindow("First", kLink);
        first.on("onClick", [this](NativeWindow&, NativeArguments const&) { ++firstClicks; });
        EXPECT_TRUE(first.open());
        desktop.place("First", 100, 100);
        desktop.activate("First");
        return first;
    }

    static void closeOnClick(NativeWindow& window)
    {
        window.on("onClick", [](NativeWindow& self, NativeArguments const&) { self.close(); });
    }

    /// Goes to the link and clicks; whatever the window thinks of it.
    void tryToClick(DesktopArea const& link)
    {
        desktop.move(link.centerX() + 5, link.centerY());
        desktop.click(link);
    }

    /// Whether the window stays as it is when the user tries to use it.
    void expectBlocked(LinkColors colors, std::atomic<int>& clicks)
    {
        int before = clicks;
        DesktopArea link = waitForLink(desktop, colors);
        tryToClick(link);
        std::this_thread::sleep_for(300ms); // what was only put off would arrive now
        EXPECT_FALSE(desktop.find(colors.active)) << "the link answers";
        EXPECT_EQ(clicks, before);
    }
};

} // namespace

TEST_F(ModalTest, BlocksAnOpenWindowAndGivesItTheFocusBack)
{
    NativeWindow first = openFirst();
    NativeWindow modal = linkWindow("Modal", kSecondLink);
    closeOnClick(modal);
    User user([&] {
        desktop.place("Modal", 100, 500);
        desktop.waitUntilActive("Modal");
        expectBlocked(kLink, firstClicks);
        clickLink(desktop, kSecondLink);
        desktop.waitUntilClosed("Modal");
        desktop.waitUntilActive("First");
        clickLink(desktop);
        EXPECT_TRUE(Desktop::waitUntil([&] { return firstClicks == 1; }));
        host.quit();
    });
    modal.show();
    EXPECT_TRUE(first.isOpen());
    host.run();
    EXPECT_EQ(firstClicks, 1);
}

TEST_F(ModalTest, ABlockedWindowCanNotBeClosedByItsTitleBar)
{
    NativeWindow first = openFirst();
    NativeWindow modal = linkWindow("Modal", kSecondLink);
    closeOnClick(modal);
    User user([&] {
        desktop.place("Modal", 100, 500);
        desktop.waitUntilActive("Modal");
        desktop.click(desktop.closeButton("First"));
        std::this_thread::sleep_for(300ms);
        EXPECT_TRUE(desktop.isOpen("First"));
        clickLink(desktop, kSecondLink);
    });
    modal.show();
    EXPECT_TRUE(first.isOpen());
}

TEST_F(ModalTest, TheUpperOfTwoModalWindowsBlocksTheLower)
{
    NativeWindow first = openFirst();
    NativeWindow lower = linkWindow("Lower", kSecondLink);
    NativeWindow upper = linkWindow("Upper", kThirdLink);
    std::atomic<int> lowerClicks{0};
    closeOnClick(upper);
    lower.on("onClick", [&](NativeWindow& self, NativeArguments const&) {
        if (++lowerClicks == 1)
            upper.show();
        else
            self.close();
    });
    User user([&] {
        desktop.place("Lower", 100, 400);
        desktop.waitUntilActive("Lower");
        clickLink(desktop, kSecondLink);
        desktop.place("Upper", 100, 700);
        desktop.waitUntilActive("Upper");
        desktop.move(1200, 950);
        expectBlocked(kLink, firstClicks);
        tryToClick(waitForLink(desktop, kSecondLink));
        std::this_thread::sleep_for(300ms);
        EXPECT_EQ(lowerClicks, 1);
        clickLink(desktop, kThirdLink);
        desktop.waitUntilActive("Lower");
        expectBlocked(kLink, firstClicks);
        clickLink(desktop, kSecondLink);
        desktop.waitUntilActive("First");
    });
    lower.show();
    EXPECT_EQ(lowerClicks, 2);
    EXPECT_EQ(firstClicks, 0);
}

TEST_F(ModalTest, AnOrdinaryWindowBlocksNothing)
{
    NativeWindow first = openFirst();
    NativeWindow other = linkWindow("Other", kSecondLink);
    ASSERT_TRUE(other.open(false));
    User user([&] {
        desktop.place("Other", 100, 500);
        clickLink(desktop);
        EXPECT_TRUE(Desktop::waitUntil([&] { return firstClicks == 1; }));
        host.quit();
    });
    host.run();
}

TEST_F(ModalTest, WithoutAnActiveWindowShowWaitsAndBlocksNothing)
{
    NativeWindow window = linkWindow("Alone", kSecondLink);
    window.on("onClick", [&](NativeWindow& self, NativeArguments const&) {
        self.setReturnValue("done");
        self.close();
    });
    User user([&] {
        desktop.window("Alone");
        EXPECT_EQ(desktop.atoms("Alone", "_NET_WM_STATE"), std::vector<std::string>{});
        clickLink(desktop, kSecondLink);
    });
    EXPECT_EQ(window.show(), NativeValue("done"));
}
