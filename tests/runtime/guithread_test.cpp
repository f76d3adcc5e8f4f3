// tests/runtime/guithread_test.cpp: tests of the GUI thread: what runs where, who waits how, and what becomes of late
// events.
#include "runtime/guithread.h"

#include "controls/guiwidget.h"
#include "host/native/nativehost.h"
#include "page/guihtml.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <chrono>
#include <thread>

namespace {

using namespace std::chrono_literals;

/// What one function call on the GUI thread saw. Static: ScriptMethod takes no context.
struct seen
{
    static inline bool isGuiThread = false;
    static inline int calls = 0;
};

void noteThread(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    ++seen::calls;
    seen::isGuiThread = pGUI->getThread()->isGuiThread();
    result.setInt(42);
}

void call(ScriptMethod method, NativeValue& result)
{
    NativeArguments args;
    pGUI->getThread()->callFunction(method, pGUI->getManager(), nullptr, nullptr, args, result);
}

/// Lets everything that is posted already be handled.
void flush()
{
    NativeValue ignored;
    call(noteThread, ignored);
}

struct CountingNode : guiHtml
{
    using guiHtml::operator=;
    int updates = 0;
    int triggers = 0;
    int paints = 0;
    std::function<void()> whileUpdating;
    void update() override
    {
        ++updates;
        if (whileUpdating)
            whileUpdating();
    }
    void paintTo(QPainter*, int, int, guiWidget*, QRegion const*) override { ++paints; }
    void triggerNow() override { ++triggers; }
};

TEST(GuiThread, IsAThreadOfItsOwn)
{
    NativeHost host;
    guiThread* thread = pGUI->getThread();
    EXPECT_TRUE(thread->isScriptThread());
    EXPECT_FALSE(thread->isGuiThread());
    EXPECT_FALSE(pthread_equal(thread->id(), thread->idScript()));
    EXPECT_NE(thread->getApp(), nullptr);
}

TEST(GuiThread, BlockingCallRunsThereAndBringsItsResultBack)
{
    NativeHost host;
    NativeValue result;
    call(noteThread, result);
    EXPECT_TRUE(seen::isGuiThread);
    EXPECT_EQ(result.toInt(0), 42);
}

TEST(GuiThread, BlockingCallWithoutAnEnginePolls)
{
    NativeHost host;
    ASSERT_EQ(pGUI->getEngine(), nullptr);
    auto start = std::chrono::steady_clock::now();
    onGuiThread([] { std::this_thread::sleep_for(30ms); });
    auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, 100ms) << "looks ten times a second";
    EXPECT_LT(waited, 2s);
}

TEST(GuiThread, BlockingCallWithAnEngineDoesNotPoll)
{
    NativeHost host;
    NativeWindow window = host.window(); // brings the engine
    auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 100; ++i)
        flush();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 1s); // a hundred polls would take ten
}

void callFromGuiThread(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    int before = seen::calls;
    NativeValue inner;
    call(noteThread, inner); // runs inside this very event
    result.setBool(seen::calls == before + 1 && inner.toInt(0) == 42);
}

TEST(GuiThread, BlockingCallOnTheGuiThreadRunsAtOnce)
{
    NativeHost host;
    NativeValue result;
    call(callFromGuiThread, result);
    EXPECT_TRUE(result.toBool(0));
}

TEST(GuiThread, ThirdThreadWaitsWithoutThePump)
{
    NativeHost host;
    NativeWindow window = host.window();
    int result = 0;
    std::thread third([&] {
        NativeValue value;
        call(noteThread, value);
        result = value.toInt(0);
    });
    third.join(); // the script thread serves nothing meanwhile
    EXPECT_EQ(result, 42);
}

void holdGuiThread(LibManager&, ScriptPrivate*, ScriptObject* node, ScriptArgs&, ScriptValue&)
{
    auto* counting = reinterpret_cast<CountingNode*>(node);
    std::thread poster([counting] {
        pGUI->getThread()->postUpdate(counting);
        pGUI->getThread()->postUpdate(counting);
    });
    poster.join(); // both are posted before either can be handled
}

TEST(GuiThread, TwoUpdatesBeforeItRunsAreOne)
{
    NativeHost host;
    CountingNode node;
    NativeArguments args;
    NativeValue result;
    pGUI->getThread()->callFunction(holdGuiThread, pGUI->getManager(), nullptr, reinterpret_cast<ScriptObject*>(&node),
                                    args, result);
    flush();
    EXPECT_EQ(node.updates, 1);
    pGUI->getThread()->postUpdate(&node); // the flag is clear again
    flush();
    EXPECT_EQ(node.updates, 2);
}

/// Posts updates of both nodes, the first twice, before the GUI thread can handle any.
void postForTwoNodes(LibManager&, ScriptPrivate* second, ScriptObject* first, ScriptArgs&, ScriptValue&)
{
    for (void* node : {static_cast<void*>(first), static_cast<void*>(second), static_cast<void*>(first)})
        pGUI->getThread()->postUpdate(static_cast<CountingNode*>(node));
}

TEST(GuiThread, OnePassServesEveryNodeThatAskedForAnUpdate)
{
    NativeHost host;
    std::unique_ptr<guiHtmlBase> root;
    CountingNode* first = nullptr;
    CountingNode* second = nullptr;
    onGuiThread([&] {
        root = std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, sstring());
        root->append(first = new CountingNode);
        root->append(second = new CountingNode);
        root->createWidget(0)->show();
        first->m.rect = {0, 10, 0, 10};
        second->m.rect = {100, 10, 100, 10};
        QCoreApplication::processEvents();
        first->paints = second->paints = 0;
    });
    NativeArguments args;
    NativeValue result;
    pGUI->getThread()->callFunction(postForTwoNodes, pGUI->getManager(), reinterpret_cast<ScriptPrivate*>(second),
                                    reinterpret_cast<ScriptObject*>(first), args, result);
    onGuiThread([] { QCoreApplication::processEvents(); });
    EXPECT_EQ(first->updates, 1);
    EXPECT_EQ(second->updates, 0) << "its request was dropped";
    EXPECT_GT(second->paints, 0) << "but its place is painted with the first one's";
    pGUI->getThread()->postUpdate(second);
    flush();
    EXPECT_EQ(second->updates, 1) << "the next request is a new one";
    onGuiThread([&] {
        root->destroyWidget();
        root.reset();
    });
}

TEST(GuiThread, ARequestInTheMiddleOfAnUpdateIsDropped)
{
    NativeHost host;
    CountingNode first;
    CountingNode second;
    first.whileUpdating = [&] { pGUI->getThread()->postUpdate(&second); };
    pGUI->getThread()->postUpdate(&first);
    flush();
    flush();
    EXPECT_EQ(first.updates, 1);
    EXPECT_EQ(second.updates, 0) << "the flag is cleared when the update is over";
}

TEST(GuiThread, TriggerReachesALiveNode)
{
    NativeHost host;
    CountingNode node;
    pGUI->getThread()->postTrigger(&node);
    flush();
    EXPECT_EQ(node.triggers, 1);
}

/// Posts events for a node and destroys it before the GUI thread can handle them.
void postAndDestroy(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    auto* node = new CountingNode;
    pGUI->getThread()->postTrigger(node);
    pGUI->getThread()->postUpdate(node);
    delete node;
    auto* root = new guiHtmlBase(nullptr, nullptr, nullptr, sstring());
    pGUI->getThread()->postClose(root);
    delete root;
}

TEST(GuiThread, LateEventsForDestroyedNodesDoNothing)
{
    NativeHost host;
    NativeValue result;
    call(postAndDestroy, result);
    flush(); // would crash under the sanitizers, or call into freed memory
    CountingNode node;
    pGUI->getThread()->postUpdate(&node); // the flag of the lost update was cleared
    flush();
    EXPECT_EQ(node.updates, 1);
}

/// An event that no handler knows.
struct StrayEvent : guiEvent
{
    explicit StrayEvent(std::atomic<int>* f) : guiEvent(static_cast<guiEventID>(1500)), finished(f) {}
    void Finished() override { ++*finished; }
    std::atomic<int>* finished;
};

TEST(GuiThread, UnknownEventIsLoggedAndFinished)
{
    NativeHost host;
    std::atomic<int> finished{0};
    testing::internal::CaptureStderr();
    pGUI->getThread()->postEvent(new StrayEvent(&finished));
    flush();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "guiThread::event() - unexpected event received\n");
    EXPECT_EQ(finished, 1);
}

TEST(GuiThread, EventNumbersAreFixed)
{
    int result = 0;
    guiHtmlBase* root = nullptr;
    guiHtml* node = nullptr;
    EXPECT_EQ(guiEventShutdown().type(), 1000);
    EXPECT_EQ(guiEventPageOpen(root, 0, &result).type(), 1001);
    EXPECT_EQ(guiEventPageClose(root).type(), 1002);
    EXPECT_EQ(guiEventLoadFile(node, sstring(), &result).type(), 1003);
    EXPECT_EQ(guiEventLoadBackground(node, sstring(), &result).type(), 1004);
    EXPECT_EQ(guiEventSetText(node, sstring(), &result).type(), 1005);
    EXPECT_EQ(guiEventSetCaption(node, sstring(), &result).type(), 1006);
    EXPECT_EQ(guiEventUpdateLayout(node, 0, &result).type(), 1007);
    EXPECT_EQ(guiEventRepaint(node).type(), 1008);
    EXPECT_EQ(guiEventTrigger(node, std::nullopt).type(), 1010);
    EXPECT_EQ(guiEventClose(root).type(), 1011);
    EXPECT_EQ(guiEventUpdate(node).type(), 1012);
}

TEST(GuiThread, CallsForANodeThatIsGoneGiveZero)
{
    NativeHost host;
    auto* node = new guiHtml;
    delete node;
    EXPECT_EQ(pGUI->getThread()->callSetText(node, "text"), 0);
    EXPECT_EQ(pGUI->getThread()->callLoadFile(node, "x.html"), 0);
}

TEST(GuiThread, BlockingEventSetsTheFlagAndSignalsTheWaiter)
{
    std::atomic<int> done{0};
    pevent* waiter = pevent_create();
    guiBlockingEvent event(guiEventIdRepaint);
    event.setWaiter(&done, waiter);
    event.Finished();
    EXPECT_EQ(done, 1);
    pevent_wait(waiter); // returns at once
    pevent_destroy(waiter);
}

} // namespace
