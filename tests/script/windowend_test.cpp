// tests/script/windowend_test.cpp: tests of windows that end while script still runs for them: inside their own
// handlers, from either thread, during show(), and twice. Nothing may wait for itself, and nothing may be used after
// its end.
#include "page/guinodewatch.h"
#include "runtime/guicallback.h"
#include "tests/script/scriptfixture.h"

namespace {

class WindowEnd : public ScriptTest
{
protected:
    static void end(NativeWindow& window) { window.object()->runDestroyHandler(); }

    /// Handles what is posted to the GUI thread, a released page's end among it.
    void flush()
    {
        NativeWindow any = host.window();
        for (int i = 0; i < 2; ++i)
            onGuiThread(any, [](guiHtmlBase*) {});
    }

    static guiHtmlBase* rootOf(NativeWindow& window)
    {
        return GetWindow(guiWindow_getData(window.object()->getPrivate()));
    }
};

TEST_F(WindowEnd, InsideAHandlerThatTheGuiThreadCalls)
{
    NativeWindow window = windowOf("text");
    window.call("open");
    guiHtmlBase* root = rootOf(window);
    window.on("onEnd", [&](NativeWindow& self, NativeArguments const&) {
        end(self);
        EXPECT_EQ(self.call("isOpen"), NativeValue(false));
        EXPECT_EQ(self.call("isValid"), NativeValue(false));
        EXPECT_TRUE(pGUI->contains(root)) << "while the call into script lasts";
        EXPECT_FALSE(host.engine().windows().any());
        return NativeValue("other.html"); // leads nowhere any more
    });
    EXPECT_EQ(printed([&] {
                  window.call("isOpen"),
                      onGuiThread(window, [](guiHtmlBase* at) { at->onHyperlink(sstring("event://onEnd"), nullptr); });
              }),
              "");
    flush();
    EXPECT_FALSE(pGUI->contains(root));
}

TEST_F(WindowEnd, InsideALowLevelHandler)
{
    NativeWindow window = windowOf("text");
    window.call("open");
    guiHtmlBase* root = rootOf(window);
    window.on("eMouseMove", [&](NativeWindow& self, NativeArguments const&) { end(self); });
    onGuiThread(window, [](guiHtmlBase* at) { at->onMouseMove(1, 1); });
    flush();
    EXPECT_FALSE(pGUI->contains(root));
}

TEST_F(WindowEnd, InsideAHandlerThatTheScriptThreadCalls)
{
    NativeWindow window = windowOf("text");
    guiHtmlBase* root = rootOf(window);
    window.on("onEnd", [&](NativeWindow& self, NativeArguments const&) { end(self); });
    ScriptObject* self = window.object().get();
    guiCallback_CallEvent(root, self, "onEnd", self);
    flush();
    EXPECT_FALSE(pGUI->contains(root));
}

TEST_F(WindowEnd, InsidePostOpenEndsShowWithNull)
{
    NativeWindow window = windowOf("text");
    window.setReturnValue("never seen");
    window.on("ePostOpen", [&](NativeWindow& self, NativeArguments const&) { end(self); });
    EXPECT_EQ(window.show(), NativeValue());
    flush();
}

TEST_F(WindowEnd, WhileShowWaits)
{
    NativeWindow window = windowOf("text");
    guiHtmlBase* root = rootOf(window);
    window.on("ePostOpen", [&](NativeWindow&, NativeArguments const&) { host.post([&] { end(window); }); });
    EXPECT_EQ(window.show(), NativeValue());
    flush();
    EXPECT_FALSE(pGUI->contains(root));
}

TEST_F(WindowEnd, TwiceIsOnce)
{
    NativeWindow window = windowOf("text");
    window.on("onEnd", [&](NativeWindow& self, NativeArguments const&) {
        end(self);
        end(self);
    });
    follow(window, "event://onEnd");
    end(window);
    flush();
}

TEST_F(WindowEnd, OfTheOuterWindowInsideAHandlerOfAnInnerOne)
{
    NativeWindow outer = windowOf("text");
    NativeWindow inner = windowOf("text");
    guiHtmlBase* root = rootOf(outer);
    inner.on("onInner", [&](NativeWindow& self, NativeArguments const&) {
        end(outer);
        end(self);
    });
    outer.on("onOuter", [&](NativeWindow&, NativeArguments const&) { follow(inner, "event://onInner"); });
    follow(outer, "event://onOuter");
    flush();
    EXPECT_FALSE(pGUI->contains(root));
}

TEST_F(WindowEnd, ByTheLastHandleInsideItsOwnHandler)
{
    auto window = std::make_unique<NativeWindow>(windowOf("text"));
    window->call("open");
    guiHtmlBase* root = rootOf(*window);
    ASSERT_NE(root, nullptr);
    window->on("onEnd", [&](NativeWindow& self, NativeArguments const&) {
        self.close();             // the host holds it no more
        host.window("page.html"); // nor does the session
        window.reset();
    });
    follow(*window, "event://onEnd");
    EXPECT_EQ(window, nullptr);
    host.engine().pump().runOnce(0);
    flush();
    EXPECT_FALSE(pGUI->contains(root));
}

} // namespace
