// tests/runtime/guievents_test.cpp: tests of what each event does on the GUI thread, and of the thread's own ways: its
// application, its input filter, its wait and its end.
#include "runtime/guithread.h"

#include "controls/guiwidget.h"
#include "runtime/guihtmlbase.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QThread>
#include <QTimer>
#include <future>
#include <thread>

namespace {

using namespace std::chrono_literals;
using List = std::vector<std::string>;

/// Writes down which of its operations were called and with what.
struct LogNode : guiHtml
{
    using guiHtml::operator=;
    int loadFile(sstring file) override { return log.push_back(std::string("file ") + file.c_str()), 3; }
    int loadBackground(sstring file) override { return log.push_back(std::string("background ") + file.c_str()), 4; }
    int setText(sstring const& text, sstring const& directory) override
    {
        log.push_back("text " + std::string(text.c_str()) + " in \"" + directory.c_str() + "\"");
        return 5;
    }
    void setCaption(sstring const& text) override { log.push_back(std::string("caption ") + text.c_str()); }
    int updateLayout(int apply) override { return log.push_back("layout " + std::to_string(apply)), 6; }
    void update() override { log.push_back("update"); }
    List log; // GUI thread while a call is under way
};

/// A page that counts how often it is painted.
struct PaintedRoot : guiHtmlBase
{
    using guiHtml::operator=;
    PaintedRoot() : guiHtmlBase(nullptr, nullptr, nullptr, sstring()) {}
    ~PaintedRoot() override { destroyWidget(); }
    void paintTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region) override
    {
        ++paints;
        guiHtmlBase::paintTo(painter, x, y, widget, region);
    }
    int paints = 0; // GUI thread
};

/// A PaintedRoot that lives and dies on the GUI thread.
struct PaintedPage
{
    PaintedPage()
    {
        onGuiThread([this] { root = std::make_unique<PaintedRoot>(); });
    }
    ~PaintedPage()
    {
        onGuiThread([this] { root.reset(); });
    }
    std::unique_ptr<PaintedRoot> root;
};

/// What the toolkit delivers to one object.
struct Receiver : QObject
{
    bool event(QEvent* event) override { return ++events[event->type()], QObject::event(event); }
    std::map<int, int> events;
};

int delivered(Receiver& receiver, QEvent::Type type)
{
    int before = receiver.events[type];
    QMouseEvent event(type, QPointF(), QPointF(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&receiver, &event);
    return receiver.events[type] - before;
}

} // namespace

TEST(GuiEvents, EachCallRunsOneOperationOfItsNodeAndReturnsWhatThatLeft)
{
    NativeHost host;
    LogNode node;
    guiThread* thread = pGUI->getThread();
    EXPECT_EQ(thread->callLoadFile(&node, "page.html"), 3);
    EXPECT_EQ(thread->callLoadBackground(&node, "back.png"), 4);
    EXPECT_EQ(thread->callSetText(&node, "<p>x"), 5);
    EXPECT_EQ(thread->callSetCaption(&node, "Group"), 0) << "leaves no result";
    EXPECT_EQ(thread->callUpdateLayout(&node, 7), 0) << "leaves no result";
    thread->callRepaint(&node); // it has no widget
    EXPECT_EQ(node.log, (List{"file page.html", "background back.png", "text <p>x in \"\"", "caption Group", "layout 7",
                              "update"}));
}

TEST(GuiEvents, OpeningAPageShowsItsWindowUnderItsTitle)
{
    NativeHost host;
    PaintedPage page;
    guiWidget* widget = nullptr;
    onGuiThread([&] { page.root->setTitle("A page"); });
    EXPECT_EQ(pGUI->getThread()->callPageOpen(page.root.get(), 0), 1);
    onGuiThread([&] {
        widget = page.root->getWidget();
        ASSERT_NE(widget, nullptr);
        EXPECT_TRUE(widget->isVisible());
        EXPECT_EQ(widget->windowTitle(), "A page");
        EXPECT_EQ(widget->windowModality(), Qt::NonModal);
    });
    EXPECT_EQ(pGUI->getThread()->callPageOpen(page.root.get(), 0), 1);
    onGuiThread([&] { EXPECT_EQ(page.root->getWidget(), widget) << "an open window stays"; });
    pGUI->getThread()->callPageClose(page.root.get());
    EXPECT_FALSE(page.root->isOpen());
    pGUI->getThread()->callPageClose(page.root.get()); // nothing left to close
}

TEST(GuiEvents, AnActiveWindowMakesTheNextOneModalIfThatIsAskedFor)
{
    NativeHost host;
    PaintedPage first;
    PaintedPage second;
    pGUI->getThread()->callPageOpen(first.root.get(), 0);
    onGuiThread([&] {
        first.root->getWidget()->activateWindow();
        QCoreApplication::processEvents();
        ASSERT_NE(QApplication::activeWindow(), nullptr);
    });
    pGUI->getThread()->callPageOpen(second.root.get(), 1);
    onGuiThread([&] {
        EXPECT_EQ(second.root->getWidget()->windowModality(), Qt::ApplicationModal);
        EXPECT_TRUE((second.root->getWidget()->windowFlags() & Qt::Dialog) == Qt::Dialog);
    });
}

TEST(GuiEvents, ARepaintIsDoneWhenTheCallReturns)
{
    NativeHost host;
    PaintedPage page;
    pGUI->getThread()->callPageOpen(page.root.get(), 0);
    onGuiThread([&] {
        QCoreApplication::processEvents();
        int before = page.root->paints;
        pGUI->getThread()->callRepaint(page.root.get());
        EXPECT_GT(page.root->paints, before) << "without the event loop";
    });
}

TEST(GuiEvents, APostedCloseEndsALiveWindow)
{
    NativeHost host;
    PaintedPage page;
    pGUI->getThread()->callPageOpen(page.root.get(), 0);
    pGUI->getThread()->postClose(page.root.get());
    onGuiThread([] {}); // behind the post
    EXPECT_FALSE(page.root->isOpen());
}

TEST(GuiEvents, AFunctionIsCalledWithItsFiveArguments)
{
    struct call_t
    {
        LibManager* manager;
        ScriptPrivate* data;
        ScriptObject* self;
        ScriptArgs* args;
        ScriptValue* result;
    };
    static call_t seen;
    NativeHost host;
    NativeArguments args;
    NativeValue result;
    auto* data = reinterpret_cast<ScriptPrivate*>(0x10);
    auto* self = reinterpret_cast<ScriptObject*>(0x20);
    ScriptMethod look = [](LibManager& manager, ScriptPrivate* slot, ScriptObject* object, ScriptArgs& list,
                           ScriptValue& out) {
        seen = {&manager, slot, object, &list, &out};
    };
    pGUI->getThread()->callFunction(look, pGUI->getManager(), data, self, args, result);
    EXPECT_EQ(seen.manager, &pGUI->getManager());
    EXPECT_EQ(seen.data, data);
    EXPECT_EQ(seen.self, self);
    EXPECT_EQ(seen.args, &args);
    EXPECT_EQ(seen.result, &result);
    guiEventFunction event(look, pGUI->getManager(), data, self, args, result);
    EXPECT_EQ(event.type(), 1009);
}

TEST(GuiEvents, MouseMovesAreDroppedWhileAnEventIsHandledAndNothingElse)
{
    NativeHost host;
    onGuiThread([] {
        Receiver receiver;
        EXPECT_EQ(delivered(receiver, QEvent::MouseMove), 0);
        EXPECT_EQ(delivered(receiver, QEvent::MouseButtonPress), 1);
    });
    std::promise<int> moves;
    onGuiThread([&] {
        auto later = [&] {
            Receiver receiver;
            moves.set_value(delivered(receiver, QEvent::MouseMove));
        };
        QMetaObject::invokeMethod(qApp, later, Qt::QueuedConnection); // after this event
    });
    EXPECT_EQ(moves.get_future().get(), 1);
}

TEST(GuiEvents, DisablingBlocksAllInputUntilItIsTakenBackOrForced)
{
    NativeHost host;
    guiThread* thread = pGUI->getThread();
    auto presses = [] {
        int count = 0;
        onGuiThread([&] {
            Receiver receiver;
            count = delivered(receiver, QEvent::MouseButtonPress);
        });
        return count;
    };
    thread->disable();
    thread->disable();
    EXPECT_EQ(presses(), 0);
    thread->enable();
    EXPECT_EQ(presses(), 0) << "calls nest";
    thread->enable();
    EXPECT_EQ(presses(), 1);
    thread->disable();
    thread->disable();
    thread->disableMM();
    thread->forceEnable();
    EXPECT_EQ(presses(), 1);
    thread->disableMM();
    EXPECT_EQ(presses(), 1) << "moves alone";
    thread->enableMM();
}

TEST(GuiEvents, ANullEventWakesAWaitingPump)
{
    NativeHost host;
    bool isRescued = false;
    onGuiThread([&] {
        std::atomic<bool> posted{false};
        std::thread poster([&] {
            std::this_thread::sleep_for(50ms);
            posted = true;
            pGUI->getThread()->postNullEvent();
        });
        auto rescue = [&] { isRescued = true; };
        QTimer::singleShot(10s, qApp, rescue);
        assertOnGuiThread();
        while (!posted)
            pGUI->getThread()->pumpOnce();
        poster.join();
    });
    EXPECT_FALSE(isRescued);
}

TEST(GuiEvents, TheApplicationIsCalledAppAndLivesOnTheGuiThread)
{
    NativeHost host;
    onGuiThread([] {
        EXPECT_EQ(QCoreApplication::arguments(), QStringList{"app"});
        EXPECT_EQ(QCoreApplication::instance(), pGUI->getThread()->getApp());
        EXPECT_EQ(qApp->thread(), QThread::currentThread());
        EXPECT_TRUE(pthread_equal(pthread_self(), pGUI->getThread()->id()));
    });
    EXPECT_TRUE(pthread_equal(pthread_self(), pGUI->getThread()->idScript()));
}

TEST(GuiEvents, AnEventThatNobodyWaitsForHasNothingToFinish)
{
    guiBlockingEvent blocking(guiEventIdRepaint); // neither a flag nor a waiter, nor a component
    blocking.Finished();
    guiEventShutdown plain;
    plain.Finished();
}

TEST(GuiEvents, TheThreadObjectLeavesNoField)
{
    alignas(guiThread) unsigned char place[sizeof(guiThread)];
    auto* thread = new (place) guiThread(pthread_self());
    EXPECT_NE(thread->getApp(), nullptr) << "the constructor waits for the application";
    EXPECT_TRUE(thread->isScriptThread());
    thread->~guiThread();
    EXPECT_EQ(QCoreApplication::instance(), nullptr) << "and the destructor for its end";
    for (unsigned char byte : place)
        ASSERT_EQ(byte, 0xFE);
}
