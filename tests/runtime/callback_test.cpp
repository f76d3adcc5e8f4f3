// tests/runtime/callback_test.cpp: tests of calls from pages into script: event names, and calls from each kind of
// thread.
#include "runtime/guicallback.h"

#include "controls/guihtmlcustom.h"
#include "runtime/guihtmlbase.h"
#include "tests/runtime/onguithread.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace {

std::vector<std::string> argumentsIn(char const* name, std::string* method = nullptr)
{
    NativeArguments args;
    NativeValue scratch;
    sstring stripped = guiCallback_ProcessEventName(name, &args, &scratch);
    if (method)
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
    EXPECT_EQ(argumentsIn("a//"), texts{""}) << "only what follows the last separator";
    EXPECT_EQ(argumentsIn(""), texts{});
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
    for (char const* name : {"eCreate", "eDestroy", "ePaint", "eMouseMove", "eMouseOver", "eMouseOut", "eMouseDown",
                             "eMouseUp", "EMOUSEMOVE", "emouseup"})
        EXPECT_EQ(guiCallback_ShouldDisable(name), 0) << name;
    for (char const* name : {"onOk", "ePostOpen", "eMouse", "eMouseMoved", "eMouseMove/1", "ePaint\\x", ""})
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

/// Whether a key that the user presses now would reach anything.
bool isInputBlocked()
{
    bool isBlocked = false;
    onGuiThread([&] {
        QObject target; // nothing of the program is disturbed
        QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QEvent other(QEvent::Show);
        isBlocked = QCoreApplication::sendEvent(&target, &key) && !QCoreApplication::sendEvent(&target, &other);
    });
    return isBlocked;
}

TEST(CallEvent, BlocksInputForItsLengthUnlessTheEventIsLowLevel)
{
    NativeHost host;
    NativeWindow window = host.window();
    ScriptObject* object = window.object().get();
    int calls = 0;
    bool expected = false;
    auto check = [&](NativeWindow&, NativeArguments const&) {
        ++calls;
        EXPECT_EQ(isInputBlocked(), expected);
    };
    for (char const* name : {"onPick", "eMouseMove", "EPAINT", "eCreate", "eDestroy"})
        window.on(name, check);
    struct
    {
        char const* event;
        bool blocks;
    } const cases[] = {{"onPick", true},   {"onPick/1", true},  {"eMouseMove", false}, {"EPAINT", false},
                       {"eCreate", false}, {"eDestroy", false}, {"eMouseMove/1", true}};
    for (auto const& [event, blocks] : cases) {
        expected = blocks;
        guiCallback_CallEvent(nullptr, object, event, object); // on the script thread
        EXPECT_FALSE(isInputBlocked()) << event;
        onGuiThread([&, name = event] { guiCallback_CallEvent(nullptr, object, name, object); });
        EXPECT_FALSE(isInputBlocked()) << event;
    }
    EXPECT_EQ(calls, 14);
}

using Values = std::vector<NativeValue>;

Values valuesOf(NativeArguments const& args)
{
    Values values;
    for (size_t i = 0; i < args.size(); ++i)
        values.push_back(args[i]);
    return values;
}

TEST(CallEvent, TheSourceIsTheFirstArgumentAndTheNamesArgumentsFollow)
{
    NativeHost host;
    NativeWindow window = host.window();
    NativeObjectRef source = host.object();
    std::vector<Values> seen;
    window.on("onPick", [&](NativeWindow&, NativeArguments const& args) { seen.push_back(valuesOf(args)); });
    ScriptObject* object = window.object().get();
    guiCallback_CallEvent(nullptr, object, "onPick", source.get());
    guiCallback_CallEvent(nullptr, object, "onPick/3\\red", source.get());
    guiCallback_CallEvent(nullptr, object, "onPick/", nullptr);
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[0], (Values{source}));
    EXPECT_EQ(seen[1], (Values{source, "3", "red"}));
    EXPECT_EQ(seen[2], (Values{NativeValue()}));
}

TEST(CallEvent, ThePageOfTheNodeStaysUntilTheCallEnds)
{
    NativeHost host;
    NativeWindow window = host.window();
    ScriptObject* object = window.object().get();
    guiHtmlBase root(object, nullptr, nullptr, sstring());
    guiHtml* node = root.append(new guiHtml);
    std::atomic<bool> mayGo{false};
    std::thread waiting;
    window.on("onSlow", [&](NativeWindow&, NativeArguments const&) {
        waiting = std::thread([&] {
            root.shutdownWait();
            mayGo = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_FALSE(mayGo);
    });
    guiCallback_CallEvent(node, object, "onSlow", object);
    waiting.join();
    EXPECT_TRUE(mayGo);
}

TEST(AsyncComplete, OfTheGuiThreadsCallCopiesTheResultAndSetsTheFlag)
{
    NativeHost host;
    NativeValue value("answer");
    NativeValue result;
    guiCallbackRecord record{&result, nullptr};
    guiCallback_AsyncComplete(value, &record);
    EXPECT_EQ(result, NativeValue("answer"));
    EXPECT_EQ(record.done, 1);
    value = NativeValue(2); // the result is a copy
    EXPECT_EQ(result, NativeValue("answer"));
}

TEST(AsyncComplete, OfAnotherThreadsCallSignalsItsEventInstead)
{
    NativeHost host;
    NativeValue value(7);
    NativeValue result;
    guiCallbackRecord record{&result, pevent_create()};
    guiCallback_AsyncComplete(value, &record);
    pevent_wait(record.waiter); // returns, as the event is set
    EXPECT_EQ(result, NativeValue(7));
    EXPECT_EQ(record.done, 0);
    pevent_destroy(record.waiter);
}

TEST(CallCustom, WithoutAHandlerOfTheNameGivesOneAndCallsNothing)
{
    NativeHost host;
    host.window();
    NativeObjectRef object = host.object();
    object->on("eMouse", [](NativeObject&, NativeArguments const&) { ADD_FAILURE(); });
    guiHtmlCustom node;
    NativeObjectRef mouse = host.object();
    node.mx.mouse = mouse.get();
    testing::internal::CaptureStderr();
    EXPECT_EQ(guiCallback_CallCustom(&node, object.get(), "ePaint", object.get()), 1);
    EXPECT_EQ(guiCallback_CallCustom(&node, object.get(), "eMouseMove/eMouse", object.get()), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(mouse->get("x"), NativeValue()) << "the node is not told either";
}

TEST(CallCustom, GivesTheHandlersNumberAndZeroForAnythingElse)
{
    NativeHost host;
    host.window();
    NativeObjectRef object = host.object();
    NativeObjectRef source = host.object();
    guiHtmlCustom node;
    NativeValue reply;
    object->on("eMouseDown", [&](NativeObject& self, NativeArguments const& args) {
        EXPECT_EQ(&self, object.get());
        EXPECT_EQ(valuesOf(args), (Values{source, "x"}));
        return reply;
    });
    struct
    {
        NativeValue reply;
        int result;
    } const cases[] = {{7, 7}, {-2.9, -2}, {0, 0}, {"7", 0}, {true, 0}, {{}, 0}, {source, 0}};
    for (auto const& [value, result] : cases) {
        reply = value;
        EXPECT_EQ(guiCallback_CallCustom(&node, object.get(), "eMouseDown/x", source.get()), result) << value;
    }
}

TEST(CallCustom, TellsTheMouseObjectThePlaceBeforeTheHandlerRuns)
{
    NativeHost host;
    host.window();
    NativeObjectRef object = host.object();
    NativeObjectRef mouse = host.object();
    guiHtmlCustom node;
    node.mx = {mouse.get(), 12, -3};
    int calls = 0;
    object->on("eMouseMove", [&](NativeObject&, NativeArguments const&) {
        ++calls;
        EXPECT_EQ(mouse->get("x"), NativeValue(12));
        EXPECT_EQ(mouse->get("y"), NativeValue(-3));
    });
    guiCallback_CallCustom(&node, object.get(), "eMouseMove", object.get());
    EXPECT_EQ(calls, 1);
}

TEST(CallFilter, GetsTheWindowAndTheTextAndGivesItsStringFromEachThread)
{
    NativeHost host;
    NativeWindow window = host.window();
    NativeObjectRef owner = host.object();
    NativeValue reply;
    int calls = 0;
    NativeValue function = host.function([&](NativeObject& self, NativeArguments const& args) {
        ++calls;
        EXPECT_EQ(&self, owner.get());
        EXPECT_EQ(valuesOf(args), (Values{window.object(), "page text"}));
        EXPECT_TRUE(isInputBlocked());
        return reply;
    });
    sstring const text("page text");
    for (NativeValue const& value : {NativeValue("other"), NativeValue(""), NativeValue(3), NativeValue()}) {
        reply = value;
        std::string const wanted = value == NativeValue("other") ? "other" : "";
        EXPECT_EQ(guiCallback_CallFilter(owner.get(), &function, window.object().get(), text), wanted.c_str());
        onGuiThread([&] {
            EXPECT_EQ(guiCallback_CallFilter(owner.get(), &function, window.object().get(), text), wanted.c_str());
        });
    }
    EXPECT_EQ(calls, 8);
    EXPECT_FALSE(isInputBlocked());
    NativeValue none;
    EXPECT_EQ(guiCallback_CallFilter(owner.get(), &none, window.object().get(), text), "");
}

/// What the build callback gives for one argument list.
NativeValue builtFor(NativeArguments args)
{
    NativeValue result("before");
    guiCallback_BuildCustomObject_Callback(pGUI->getManager(), nullptr, nullptr, args, result);
    return result;
}

TEST(BuildCustomObject, GivesTheObjectOfALiveNodeThatItsArgumentNames)
{
    NativeHost host;
    host.window();
    NativeObjectRef object = host.object();
    auto node = std::make_unique<guiHtml>();
    auto number = static_cast<double>(reinterpret_cast<std::uintptr_t>(node.get()));
    EXPECT_EQ(builtFor({number}), NativeValue()) << "the node has no object";
    node->m.object = object.get();
    EXPECT_EQ(builtFor({number}).object(), object);
    EXPECT_EQ(builtFor({}), NativeValue());
    EXPECT_EQ(builtFor({std::to_string(number)}), NativeValue());
    EXPECT_EQ(builtFor({0}), NativeValue());
    node->m.object = nullptr;
    node.reset();
    EXPECT_EQ(builtFor({number}), NativeValue()) << "the node is gone";
}

} // namespace
