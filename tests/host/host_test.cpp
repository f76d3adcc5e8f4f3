// tests/host/host_test.cpp: the NativeHost and its windows, over a component without a toolkit.
#include "host/native/nativehost.h"
#include "tests/host/fakecomponent.h"

#include <gtest/gtest.h>

#include <thread>

using namespace std::chrono_literals;

namespace {

struct HostTest : testing::Test
{
    void SetUp() override { FakeComponent::takeLog(); }
    NativeHost host{{.component = FakeComponent::entryPoints()}};
};

} // namespace

TEST(HostLife, InitialisesConfiguresAndShutsDown)
{
    FakeComponent::takeLog();
    {
        NativeHost host({.component = FakeComponent::entryPoints()});
        EXPECT_EQ(host.classNames(), (std::vector<std::string>{"GuiWindow", "GuiSizePolicy"}));
        EXPECT_EQ(FakeComponent::takeLog(), "init configure/GuiWindow configure/GuiSizePolicy");
        EXPECT_TRUE(host.files().isAttached());
        host.shutdown();
        EXPECT_FALSE(host.files().isAttached());
    }
    EXPECT_EQ(FakeComponent::takeLog(), "shutdown");
}

TEST(HostLife, OneAfterAnotherButNotTwoAtATime)
{
    for (int round = 0; round < 3; ++round) {
        NativeHost host({.component = FakeComponent::entryPoints()});
        EXPECT_THROW(NativeHost({.component = FakeComponent::entryPoints()}), std::runtime_error);
        EXPECT_TRUE(host.window());
    }
}

TEST(HostLife, AComponentThatCanNotStartIsAnError)
{
    FakeComponent::failInit(true);
    EXPECT_THROW(NativeHost({.component = FakeComponent::entryPoints()}), std::runtime_error);
    FakeComponent::failInit(false);
}

TEST(HostLife, AClassThatCanNotBeConfiguredIsAnErrorAndTheComponentEnds)
{
    FakeComponent::failConfigure(true);
    FakeComponent::takeLog();
    try {
        NativeHost host({.component = FakeComponent::entryPoints()});
        ADD_FAILURE() << "no error";
    } catch (std::runtime_error const& error) {
        EXPECT_STREQ(error.what(), "NativeHost: the component's ConfigCompClass failed for GuiWindow");
    }
    EXPECT_EQ(FakeComponent::takeLog(), "init configure/GuiWindow shutdown");
    FakeComponent::failConfigure(false);
}

TEST_F(HostTest, MakesWindowsWithAndWithoutAPage)
{
    FakeComponent::takeLog();
    NativeWindow empty = host.window();
    NativeWindow loaded = host.window("page.html");
    EXPECT_TRUE(empty && loaded);
    EXPECT_EQ(FakeComponent::takeLog(), "create/0 create/1");
    EXPECT_EQ(host.session("currentWindow"), NativeValue(loaded.object()));
    EXPECT_TRUE(host.session("nothing").isNull());
    EXPECT_FALSE(host.create("GuiPicture"));
}

TEST_F(HostTest, CallsClassMethodsAndReadsClassProperties)
{
    NativeValue filter = host.function([](NativeObject&, NativeArguments const&) { return ""; });
    EXPECT_EQ(host.callClass("GuiWindow", "onLoad", {"*", filter}), NativeValue(true));
    EXPECT_TRUE(host.callClass("GuiWindow", "missing").isNull());
    EXPECT_TRUE(host.callClass("Missing", "onLoad").isNull());
    EXPECT_EQ(host.classProperty("GuiSizePolicy", "FIXED"), NativeValue("FIXED"));
    EXPECT_TRUE(host.classProperty("GuiSizePolicy", "LOOSE").isNull());
    EXPECT_TRUE(host.classProperty("Missing", "FIXED").isNull());
}

TEST_F(HostTest, AFunctionValueIsCalledWithAnEmptyMethodName)
{
    NativeValue filter = host.function([](NativeObject&, NativeArguments const& args) { return args[0]; });
    NativeArguments args{"text"};
    NativeValue result;
    ScriptObject* function = filter.toObject(0);
    EXPECT_TRUE(function->hasMethod(""));
    function->callMethod(host.window().object().get(), "", &args, &result);
    EXPECT_EQ(result, NativeValue("text"));
}

TEST_F(HostTest, ShowReturnsWhatAHandlerSet)
{
    NativeWindow window = host.window();
    window.on("onOk", [](NativeWindow& self, NativeArguments const&) {
        self.setReturnValue("red");
        self.close();
    });
    host.post([] { FakeComponent::click("onOk"); });
    EXPECT_EQ(window.show(), NativeValue("red"));
    EXPECT_FALSE(window.isOpen());
}

TEST_F(HostTest, ShowReturnsNullWhenTheUserClosesTheWindow)
{
    NativeWindow window = host.window();
    host.post([] { FakeComponent::closeAllByUser(); });
    EXPECT_TRUE(window.show().isNull());
}

TEST_F(HostTest, ABlockingCallServesTheHandlerThatItWaitsFor)
{
    NativeWindow window = host.window();
    window.on("onWork", [](NativeWindow& self, NativeArguments const&) {
        self.open(); // calls the component, which waits in the pump a second time
        return self.isOpen();
    });
    EXPECT_EQ(window.call("work"), NativeValue(true));
    window.close();
}

TEST_F(HostTest, AHandlerMayShowASecondWindow)
{
    NativeWindow first = host.window();
    NativeWindow second = host.window();
    second.on("onInner", [](NativeWindow& self, NativeArguments const&) {
        self.setReturnValue("inner");
        self.close();
    });
    first.on("onOuter", [&](NativeWindow& self, NativeArguments const&) {
        host.post([] { FakeComponent::click("onInner"); });
        self.setReturnValue(second.show().text() + " in outer");
        self.close();
    });
    host.post([] { FakeComponent::click("onOuter"); });
    EXPECT_EQ(first.show(), NativeValue("inner in outer"));
}

TEST_F(HostTest, RunReturnsAtOnceWithoutOpenWindows) { host.run(); }

TEST_F(HostTest, RunServesUntilTheLastWindowIsClosed)
{
    int clicks = 0;
    NativeWindow window = host.window();
    window.on("onClick", [&](NativeWindow&, NativeArguments const&) {
        if (++clicks == 3)
            FakeComponent::closeAllByUser();
        else
            FakeComponent::click("onClick");
    });
    host.window().open(); // stays open without a handle
    window.open();
    FakeComponent::click("onClick");
    host.run();
    EXPECT_EQ(clicks, 3);
    EXPECT_FALSE(host.engine().windows().any());
}

TEST_F(HostTest, QuitEndsRunFromAnyThreadAndOnlyOnce)
{
    NativeWindow window = host.window();
    window.open();
    std::thread quitter([this] {
        std::this_thread::sleep_for(10ms);
        host.quit();
    });
    host.run();
    quitter.join();
    EXPECT_TRUE(window.isOpen());
    host.post([] { FakeComponent::closeAllByUser(); });
    host.run();
    EXPECT_FALSE(window.isOpen());
}

TEST_F(HostTest, PostedWorkThatThrowsIsReported)
{
    testing::internal::CaptureStderr();
    host.post([] { throw std::runtime_error("no paper"); });
    host.engine().pump().step();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "posted work threw an exception: no paper\n");
}

TEST_F(HostTest, ServeUntilIsTrueInTimeAndFalseAfterwards)
{
    bool done = false;
    host.post([&done] { done = true; });
    EXPECT_TRUE(host.serveUntil([&done] { return done; }, 10s));
    EXPECT_FALSE(host.serveUntil([] { return false; }, 20ms));
}

TEST_F(HostTest, ShutdownEndsCallsDestroysWindowsAndBreaksCycles)
{
    NativeLater never;
    NativeWindow window = host.window();
    window.on("onAsk", [never, window](NativeWindow&, NativeArguments const&) { return never; });
    window.open();
    FakeComponent::click("onAsk");
    ASSERT_TRUE(host.serveUntil([] { return FakeComponent::pendingClicks() == 1; }, 10s));
    FakeComponent::takeLog();
    host.shutdown();
    EXPECT_EQ(FakeComponent::pendingClicks(), 0);
    EXPECT_EQ(FakeComponent::takeLog(), "destroy shutdown");
    EXPECT_EQ(host.engine().objects().size(), 1u);
    window = {};
    EXPECT_EQ(host.engine().objects().size(), 0u);
}

TEST_F(HostTest, ShutdownIsRefusedInsideACallOfTheComponent)
{
    NativeWindow window = host.window();
    window.on("onEnd", [this](NativeWindow& self, NativeArguments const&) {
        testing::internal::CaptureStderr();
        host.shutdown();
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "NativeHost::shutdown() is refused inside a call of the component\n");
        self.setReturnValue("alive");
        self.close();
    });
    host.post([] { FakeComponent::click("onEnd"); });
    EXPECT_EQ(window.show(), NativeValue("alive"));
}

TEST_F(HostTest, ShutdownInAHandlerOfAnOpenWindowEndsRun)
{
    NativeWindow window = host.window();
    window.on("onEnd", [this](NativeWindow&, NativeArguments const&) { host.shutdown(); });
    window.open();
    FakeComponent::click("onEnd");
    FakeComponent::takeLog();
    host.run();
    EXPECT_EQ(FakeComponent::takeLog(), "destroy shutdown");
    EXPECT_EQ(FakeComponent::pendingClicks(), 0);
}

TEST_F(HostTest, AHandleThatOutlivesTheHostGivesNull)
{
    NativeWindow window;
    EXPECT_TRUE(window.show().isNull());
    window = host.window();
    host.shutdown();
    EXPECT_FALSE(window.open());
    EXPECT_FALSE(window.isOpen());
    EXPECT_FALSE(host.window());
}

TEST(HostExitDeathTest, ExitInsideAHandlerEndsTheComponentAndKeepsTheCode)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto exitInHandler = [] {
        std::atexit([] { std::fprintf(stderr, "log: %s\n", FakeComponent::takeLog().c_str()); });
        NativeHost host({.component = FakeComponent::entryPoints()});
        NativeWindow window = host.window();
        window.on("onExit", [](NativeWindow&, NativeArguments const&) { std::exit(7); });
        host.post([] { FakeComponent::click("onExit"); });
        window.show();
    };
    EXPECT_EXIT(exitInHandler(), testing::ExitedWithCode(7), "log: init .* create/0 destroy shutdown");
}
