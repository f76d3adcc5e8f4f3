// tests/runtime/widgetcalls_test.cpp: tests of what a window's widget does to the component around it: it keeps moves
// back while a node is told of one, and wakes whoever waits when it has painted or is gone.
#include "controls/guiwidget.h"
#include "runtime/guihtmlbase.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <chrono>
#include <future>
#include <thread>

namespace {

using namespace std::chrono_literals;

/// Sends itself a move and counts it when it arrives.
struct MoveProbe : QObject
{
    bool event(QEvent* event) override { return moves += event->type() == QEvent::MouseMove, QObject::event(event); }
    int send()
    {
        QMouseEvent move(QEvent::MouseMove, QPointF(), QPointF(), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        moves = 0;
        QCoreApplication::sendEvent(this, &move);
        return moves;
    }
    int moves = 0;
};

/// Notes whether another move would arrive while it is told of one.
struct ProbingNode : guiHtml
{
    using guiHtml::operator=;
    int canHitTest() override { return 1; }
    void onMouseOn() override { whileOn = MoveProbe().send(); }
    void onMouseMove(int, int) override { whileMoved = MoveProbe().send(); }
    void onMouseOff() override { whileOff = MoveProbe().send(); }
    int whileOn = -1;
    int whileMoved = -1;
    int whileOff = -1;
};

struct WorkEvent : QEvent
{
    explicit WorkEvent(std::function<void()> w) : QEvent(QEvent::User), work(std::move(w)) {}
    std::function<void()> work;
};

/// Does on the GUI thread what it is sent, outside of any event of the component.
struct Worker : QObject
{
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        static_cast<WorkEvent*>(event)->work();
        return true;
    }
    /// Does not wait for the end of it. Any thread.
    void post(std::function<void()> work) { guiThreadPost::post(this, new WorkEvent(std::move(work))); }
};

struct WidgetCalls : testing::Test
{
    NativeHost host;
    NativeWindow window = host.window(); // brings the engine, and with it the pump
    std::unique_ptr<guiHtmlBase> root;
    std::unique_ptr<Worker> worker;

    WidgetCalls()
    {
        onGuiThread([this] {
            worker = std::make_unique<Worker>();
            root = std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, sstring());
            root->createWidget(0)->show();
            QCoreApplication::processEvents();
        });
    }
    ~WidgetCalls() override
    {
        onGuiThread([this] {
            root->destroyWidget();
            root.reset();
            worker.reset();
        });
    }

    /// Whether something wakes the script thread soon after `work` on the GUI thread.
    bool wakes(std::function<void()> work)
    {
        std::this_thread::sleep_for(50ms); // what is still under way
        NativePump& pump = host.engine().pump();
        while (pump.turn(0ns)) {}
        worker->post(std::move(work));
        auto start = std::chrono::steady_clock::now();
        pump.turn(1500ms);
        return std::chrono::steady_clock::now() - start < 1s;
    }
};

} // namespace

TEST_F(WidgetCalls, MovesAreKeptBackWhileANodeHearsOfOne)
{
    auto* node = new ProbingNode;
    std::promise<int> after;
    onGuiThread([&] {
        root->append(node);
        root->m.rect = {0, 480, 0, 240};
        node->m.rect = {0, 50, 0, 50};
        worker->post([&] {
            for (int x : {10, 100}) {
                QMouseEvent move(QEvent::MouseMove, QPointF(x, 10), QPointF(x, 10), Qt::NoButton, Qt::NoButton,
                                 Qt::NoModifier);
                QCoreApplication::sendEvent(root->getWidget(), &move);
            }
            after.set_value(MoveProbe().send());
        });
    });
    EXPECT_EQ(after.get_future().get(), 1);
    EXPECT_EQ(node->whileOn, 1);
    EXPECT_EQ(node->whileMoved, 0);
    EXPECT_EQ(node->whileOff, 1);
}

TEST_F(WidgetCalls, ThePaintOfAWindowWakesWhoWaitsForIt)
{
    EXPECT_FALSE(wakes([] {})) << "nothing has happened";
    EXPECT_TRUE(wakes([this] { root->getWidget()->repaint(); }));
}

TEST_F(WidgetCalls, TheEndOfAWindowWakesWhoWaitsForIt)
{
    EXPECT_TRUE(wakes([this] { root->destroyWidget(); }));
    EXPECT_FALSE(wakes([this] { root->destroyWidget(); })) << "there is none any more";
}
