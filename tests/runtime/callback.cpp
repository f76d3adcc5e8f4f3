// Tests of calls from pages into script: event names, and calls from each kind of thread.
#include "runtime/guicallback.h"

#include "host/native/nativehost.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

std::vector<std::string> argumentsIn(const char* name, std::string* method = nullptr)
{
    NativeArguments args;
    NativeValue scratch;
    sstring stripped = guiCallback_ProcessEventName(name, &args, &scratch);
    if (method != nullptr)
        *method = stripped.c_str();
    std::vector<std::string> texts;
    for (size_t i = 0; i < args.size(); ++i)
        texts.push_back(args[i].text());
    return texts;
}

using texts = std::vector<std::string>;

TEST(EventName, EitherSeparatorSplits)
{
    std::string method;
    EXPECT_EQ(argumentsIn("a/b\\c", &method), (texts{"b", "c"}));
    EXPECT_EQ(method, "a");
    EXPECT_EQ(argumentsIn("select/3/red", &method), (texts{"3", "red"}));
    EXPECT_EQ(method, "select");
}

TEST(EventName, WithoutSeparatorsThereAreNoArguments)
{
    std::string method;
    EXPECT_EQ(argumentsIn("onOk", &method), texts{});
    EXPECT_EQ(method, "onOk");
}

TEST(EventName, EmptyTrailingTextAddsNoArgument)
{
    EXPECT_EQ(argumentsIn("a/"), texts{});
    EXPECT_EQ(argumentsIn("a/b/"), texts{"b"});
}

TEST(EventName, EmptyPieceBetweenSeparatorsIsAnArgument) { EXPECT_EQ(argumentsIn("a//b"), (texts{"", "b"})); }

TEST(EventName, StripEndsAtTheFirstSeparator)
{
    EXPECT_STREQ(guiCallback_StripEventName("a\\b/c").c_str(), "a");
    EXPECT_STREQ(guiCallback_StripEventName("plain").c_str(), "plain");
    EXPECT_STREQ(guiCallback_StripEventName("/x").c_str(), "");
}

TEST(EventName, OnlyTheEightLowLevelEventsLeaveInputEnabled)
{
    for (const char* name : {"eCreate", "eDestroy", "ePaint", "eMouseMove", "eMouseOver", "eMouseOut", "eMouseDown",
                             "eMouseUp", "EMOUSEMOVE", "emouseup"})
        EXPECT_EQ(guiCallback_ShouldDisable(name), 0) << name;
    for (const char* name : {"onOk", "ePostOpen", "eMouse", "eMouseMoved", ""})
        EXPECT_EQ(guiCallback_ShouldDisable(name), 1) << name;
}

/// Calls `onPing` of a window from the thread this runs on; the reply goes into `result`.
void pingFromGuiThread(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    result.setString(guiCallback_CallEvent(nullptr, self, "onPing/7", self));
}

void addPing(NativeWindow& window)
{
    window.on("onPing", [](NativeWindow& self, NativeArguments const& args) {
        EXPECT_EQ(args.size(), 2u);
        EXPECT_EQ(args[0].object(), self.object());
        return NativeValue("pong " + args[1].text());
    });
}

TEST(CallEvent, OnTheScriptThreadCallsDirectly)
{
    NativeHost host;
    NativeWindow window = host.window();
    addPing(window);
    ScriptObject* object = window.object().get();
    EXPECT_STREQ(guiCallback_CallEvent(nullptr, object, "onPing/7", object).c_str(), "pong 7");
}

TEST(CallEvent, OnTheGuiThreadGoesThroughTheScriptThread)
{
    NativeHost host;
    NativeWindow window = host.window();
    addPing(window);
    NativeArguments args;
    NativeValue result;
    pGUI->getThread()->callFunction(pingFromGuiThread, pGUI->getManager(), nullptr, window.object().get(), args,
                                    result);
    EXPECT_EQ(result.text(), "pong 7");
}

TEST(CallEvent, OnAThirdThreadWaits)
{
    NativeHost host;
    NativeWindow window = host.window();
    addPing(window);
    std::string reply;
    std::atomic<bool> done{false};
    std::thread third([&] {
        ScriptObject* object = window.object().get();
        reply = guiCallback_CallEvent(nullptr, object, "onPing/7", object).c_str();
        done = true;
    });
    EXPECT_TRUE(host.serveUntil([&] { return done.load(); }, std::chrono::seconds(10)));
    third.join();
    EXPECT_EQ(reply, "pong 7");
}

TEST(CallEvent, ResultThatIsNoStringGivesNoText)
{
    NativeHost host;
    NativeWindow window = host.window();
    window.on("onNumber", [](NativeWindow&, NativeArguments const&) { return NativeValue(3); });
    ScriptObject* object = window.object().get();
    EXPECT_STREQ(guiCallback_CallEvent(nullptr, object, "onNumber", object).c_str(), "");
}

} // namespace
