// tests/runtime/componentwindows_test.cpp: tests of how the component keeps its windows: which one is the current one,
// and how it lets script work go on while one is waited for.
#include "controls/guiwidget.h"
#include "page/guihtml.h"
#include "runtime/guihtmlbase.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <atomic>
#include <thread>

namespace {

using namespace std::chrono_literals;

int presses(guiThread* thread)
{
    struct Receiver : QObject
    {
        bool event(QEvent* event) override
        {
            return count += event->type() == QEvent::MouseButtonPress, QObject::event(event);
        }
        int count = 0;
    };
    int count = 0;
    EXPECT_EQ(thread, pGUI->getThread());
    onGuiThread([&] {
        Receiver receiver;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(), QPointF(), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&receiver, &press);
        count = receiver.count;
    });
    return count;
}

} // namespace

TEST(CurrentWindow, IsNullForAWindowWithoutScript)
{
    NativeHost host;
    NativeWindow window = host.window();
    onGuiThread([&] {
        guiHtmlBase root(nullptr, nullptr, nullptr, sstring());
        pGUI->getSession()->deleteProperty("currentWindow");
        pGUI->setCurrentWindow(root.createWidget(0));
        NativeValue published(1);
        EXPECT_TRUE(pGUI->getSession()->getProperty("currentWindow", &published));
        EXPECT_TRUE(published.isNull());
        root.destroyWidget();
    });
}

TEST(CurrentWindow, IsTheActiveOneThatPaintsItself)
{
    NativeHost host;
    NativeWindow window = host.window();
    onGuiThread([&] {
        guiHtmlBase root(window.object().get(), nullptr, nullptr, sstring());
        guiWidget* widget = root.createWidget(0);
        widget->show();
        widget->activateWindow();
        QCoreApplication::processEvents();
        ASSERT_TRUE(widget->isActiveWindow());
        pGUI->setCurrentWindow(nullptr);
        widget->repaint();
        NativeValue published;
        pGUI->getSession()->getProperty("currentWindow", &published);
        EXPECT_EQ(published.object(), window.object());
        root.destroyWidget();
    });
}

TEST(RunPump, WithoutAWindowRunsWhatIsReadyOnceAndLetsInputThrough)
{
    int runs = 0; // outlives the host, which runs what is left
    NativeHost host;
    NativeWindow window = host.window(); // brings the engine
    pGUI->getThread()->disable();
    pGUI->getThread()->disable();
    pGUI->getThread()->disableMM();
    EXPECT_EQ(presses(pGUI->getThread()), 0);
    host.post([&] {
        ++runs;
        host.post([&] { ++runs; }); // not ready when the pump was asked
    });
    host.post([&] { ++runs; });
    pGUI->runPump(nullptr);
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(presses(pGUI->getThread()), 1);
}

TEST(RunPump, GoesOnUntilTheWindowIsGone)
{
    NativeHost host;
    NativeWindow window = host.window();
    std::unique_ptr<guiHtmlBase> root;
    onGuiThread([&] { root = std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, sstring()); });
    pGUI->getThread()->callPageOpen(root.get(), 0);
    guiWidget* widget = root->getWidget();
    int runs = 0;
    std::thread closer([&] {
        for (int i = 0; i < 3; ++i)
            host.post([&] { ++runs; });
        std::this_thread::sleep_for(100ms);
        pGUI->getThread()->postClose(root.get());
    });
    auto start = std::chrono::steady_clock::now();
    pGUI->runPump(widget);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 90ms);
    EXPECT_EQ(runs, 3) << "script work goes on meanwhile";
    EXPECT_FALSE(root->isOpen());
    closer.join();
    pGUI->runPump(widget); // gone already: returns
    onGuiThread([&] { root.reset(); });
}

namespace {

/// Takes its time when the pointer leaves it.
struct SlowNode : guiHtml
{
    using guiHtml::operator=;
    void onMouseOff() override
    {
        std::this_thread::sleep_for(200ms);
        isOver = true;
    }
    std::atomic<bool> isOver{false};
};

} // namespace

TEST(RunPump, GoesOnUntilAWindowThatTheUserClosedHasEnded)
{
    NativeHost host;
    NativeWindow window = host.window();
    std::unique_ptr<guiHtmlBase> root;
    auto* node = new SlowNode;
    guiWidget* widget = nullptr;
    onGuiThread([&] {
        root = std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, sstring());
        root->append(node);
        widget = root->createWidget(0);
        widget->show();
        widget->hoverNode = node;
        QMetaObject::invokeMethod(widget, &QWidget::close, Qt::QueuedConnection);
    });
    pGUI->runPump(widget);
    EXPECT_TRUE(node->isOver) << "it was hidden long before";
    EXPECT_FALSE(root->isOpen());
    onGuiThread([&] { root.reset(); });
}

TEST(RunPump, DoesNotWaitForAWindowThatIsNotShown)
{
    NativeHost host;
    NativeWindow window = host.window();
    onGuiThread([] {});
    std::unique_ptr<guiHtmlBase> root;
    onGuiThread([&] {
        root = std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, sstring());
        root->createWidget(0);
    });
    pGUI->runPump(root->getWidget());
    onGuiThread([&] { root->getWidget()->show(); });
    std::thread hider([&] {
        std::this_thread::sleep_for(50ms);
        onGuiThread([&] { root->getWidget()->hide(); });
    });
    pGUI->runPump(root->getWidget());
    hider.join();
    EXPECT_TRUE(root->isOpen());
    onGuiThread([&] {
        root->destroyWidget();
        root.reset();
    });
}

TEST(ComponentWindows, AWindowDeletedWithItsPageStillBoundIsNoOpenOneAnyMore)
{
    NativeHost host;
    onGuiThread([] {
        guiHtmlBase root(nullptr, nullptr, nullptr, sstring());
        auto* widget = new guiWidget(nullptr, "other", 0, Qt::Window);
        widget->htmlBase = &root;
        pGUI->onOpen(widget, &root);
        EXPECT_TRUE(pGUI->isWindowOpen(widget));
        delete widget;
        EXPECT_FALSE(pGUI->hasOpenWindow());
        auto* again = new guiWidget(nullptr, "again", 0, Qt::Window);
        pGUI->onOpen(again, &root);
        pGUI->onClose(again, &root);
        EXPECT_FALSE(pGUI->hasOpenWindow());
        pGUI->onClose(again, &root); // told twice
        delete again;
    });
}
