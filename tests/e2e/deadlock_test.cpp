// tests/e2e/deadlock_test.cpp: the script thread and the GUI thread call each other; none of these may wait for ever.
#include "tests/e2e/fixture.h"

#include <sys/wait.h>

using namespace std::chrono_literals;

namespace {

struct DeadlockTest : testing::Test
{
    TimeLimit limit{60s};
    PageFolder pages;
    NativeHost host{{.folder = pages.path()}};
    Desktop desktop;

    NativeWindow linkWindow(std::string const& title, std::string const& href, LinkColors colors = kLink)
    {
        pages.write(title + ".html", linkPage(title, href, colors));
        return host.window(title + ".html");
    }
};

} // namespace

TEST_F(DeadlockTest, AHandlerCallsBackIntoItsWindow)
{
    NativeWindow window = linkWindow("Page", "event://onPick");
    window.on("onPick", [](NativeWindow& self, NativeArguments const&) {
        self.setTitle("Renamed");
        EXPECT_EQ(self.title(), "Renamed");
        EXPECT_TRUE(self.isOpen());
        EXPECT_TRUE(self.setText("<p>new text</p>"));
        self.setReturnValue(1);
        self.close();
    });
    User user([this] { clickLink(desktop); });
    EXPECT_EQ(window.show(), NativeValue(1));
}

TEST_F(DeadlockTest, AHandlerShowsASecondModalWindow)
{
    NativeWindow first = linkWindow("First", "event://onFirst");
    NativeWindow second = linkWindow("Second", "event://onSecond", kSecondLink);
    second.on("onSecond", [](NativeWindow& self, NativeArguments const&) {
        self.setReturnValue("inner");
        self.close();
    });
    first.on("onFirst", [&second](NativeWindow& self, NativeArguments const&) {
        self.setReturnValue(second.show().text() + " and outer");
        self.close();
    });
    User user([this] {
        clickLink(desktop);
        clickLink(desktop, kSecondLink);
    });
    EXPECT_EQ(first.show(), NativeValue("inner and outer"));
}

TEST_F(DeadlockTest, TenWindowsAreOpenedAndClosedInHandlers)
{
    NativeWindow window = linkWindow("Page", "event://onPick");
    pages.write("other.html", linkPage("Other", "event://none", kSecondLink));
    int opened = 0;
    window.on("onPick", [&](NativeWindow& self, NativeArguments const&) {
        std::vector<NativeWindow> others;
        for (int i = 0; i < 10; ++i) {
            others.push_back(host.window("other.html"));
            opened += others.back().open();
        }
        for (NativeWindow& other : others) {
            EXPECT_TRUE(other.isOpen());
            other.close();
            EXPECT_FALSE(other.isOpen());
        }
        self.close();
    });
    User user([this] { clickLink(desktop); });
    window.show();
    EXPECT_EQ(opened, 10);
    EXPECT_FALSE(host.engine().windows().any());
}

TEST_F(DeadlockTest, TheHostEndsWhileACallIsInFlight)
{
    NativeLater never;
    NativeWindow window = linkWindow("Page", "event://onPick");
    std::atomic<bool> called{false};
    window.on("onPick", [&](NativeWindow&, NativeArguments const&) {
        called = true;
        return never;
    });
    ASSERT_TRUE(window.open());
    User user([this] { clickLink(desktop); });
    ASSERT_TRUE(host.serveUntil([&called] { return called.load(); }, 30s));
    host.shutdown();
    EXPECT_FALSE(desktop.isOpen("Page"));
}

TEST_F(DeadlockTest, TheHostEndsInsideAHandlerOfAnOpenWindow)
{
    NativeWindow window = linkWindow("Page", "event://onPick");
    window.on("onPick", [this](NativeWindow&, NativeArguments const&) { host.shutdown(); });
    ASSERT_TRUE(window.open());
    User user([this] { clickLink(desktop); });
    host.run();
    EXPECT_FALSE(window.isOpen());
    desktop.waitUntilClosed("Page");
}

TEST_F(DeadlockTest, TheUserClosesAWindowWhoseHandlerNeverAnswers)
{
    auto never = std::make_unique<NativeLater>();
    NativeWindow window = linkWindow("Page", "event://onPick");
    std::atomic<bool> called{false};
    window.on("onPick", [&](NativeWindow&, NativeArguments const&) {
        called = true;
        return *never;
    });
    User user([&] {
        clickLink(desktop);
        ASSERT_TRUE(Desktop::waitUntil([&called] { return called.load(); }));
        desktop.click(desktop.closeButton("Page"));
        desktop.waitUntilClosed("Page");
    });
    EXPECT_TRUE(window.show().isNull());
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(host.engine().calls().size(), 1u);
    never.reset();
    EXPECT_EQ(host.engine().calls().size(), 0u);
}

TEST_F(DeadlockTest, TheWindowGoesWhileItsHandlerNeverAnswers)
{
    NativeLater never;
    NativeWindow window = linkWindow("Page", "event://onPick");
    std::atomic<bool> called{false};
    window.on("onPick", [&](NativeWindow&, NativeArguments const&) {
        called = true;
        return never;
    });
    User user([&] {
        clickLink(desktop);
        ASSERT_TRUE(Desktop::waitUntil([&called] { return called.load(); }));
        desktop.click(desktop.closeButton("Page"));
    });
    window.show();
    host.post([never] { never.complete(nullptr); }); // the end of the page waits for this
    window = {};
    EXPECT_TRUE(host.serveUntil([this] { return host.engine().calls().size() == 0; }, 30s));
}

// exit() needs a process that may end: the program exitdriver.cpp.

namespace {

struct Ending
{
    int code;
    std::string output;
};

Ending runDriver(std::string const& how)
{
    FILE* pipe = popen((std::string(TARN_EXIT_DRIVER) + " " + how + " 2>&1").c_str(), "r");
    Ending ending{-1, ""};
    for (int c = 0; (c = std::fgetc(pipe)) != EOF;)
        ending.output += static_cast<char>(c);
    int status = pclose(pipe);
    ending.code = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return ending;
}

/// The driver ends five times with the code that it gives, and says nothing.
void expectCodeAndSilence(char const* how)
{
    for (int round = 0; round < 5; ++round) {
        Ending ending = runDriver(how);
        EXPECT_EQ(ending.code, 7);
        EXPECT_EQ(ending.output, "");
    }
}

} // namespace

TEST(Exit, InsideAHandlerOfAModalWindowKeepsTheCode) { expectCodeAndSilence("modal"); }

TEST(Exit, InsideAHandlerOfAnOpenWindowKeepsTheCode) { expectCodeAndSilence("open"); }

TEST(Exit, InTheFirstHandlerOfAModalWindowKeepsTheCode) { expectCodeAndSilence("opening"); }

TEST(Exit, WhileTheFirstWindowOpensKeepsTheCode) { expectCodeAndSilence("posted"); }

TEST(Exit, OutsideOfHandlersWithAnOpenWindowKeepsTheCode) { expectCodeAndSilence("idle"); }
