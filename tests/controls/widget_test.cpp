// tests/controls/widget_test.cpp: how the top-level widget turns what the toolkit reports into calls on the page.
#include "controls/guieventscope.h"
#include "controls/guiwidgetscrollbar.h"
#include "page/guilaterevents.h"
#include "tests/controls/pagewindow.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPointer>
#include <gtest/gtest.h>

namespace {

using List = std::vector<std::string>;

/// Writes down what it is told. Takes the pointer anywhere in its rectangle.
class LogNode : public guiHtml
{
public:
    LogNode(List& log, char const* name) : m_log(log), m_name(name) {}
    using guiHtml::operator=;

    int canHitTest() override { return 1; }
    void onMouseOn() override { note("on"); }
    void onMouseOff() override { note("off"); }
    void onMouseMove(int x, int y) override { note("move " + std::to_string(x) + "," + std::to_string(y)); }
    void onMouseDown(int x, int y) override { note("down " + std::to_string(x) + "," + std::to_string(y)); }
    void onMouseUp() override { note("up"); }
    void onScrollX(int pos) override { note("x " + std::to_string(pos)); }
    void onScrollY(int pos) override { note("y " + std::to_string(pos)); }
    void paintTo(QPainter*, int x, int y, guiWidget* on, QRegion const* damage) override
    {
        origin = {x, y};
        paintedOn = on;
        region = damage ? *damage : QRegion();
        if (whilePainting)
            whilePainting();
    }

    std::function<void(std::string const& what)> whileTold;
    std::function<void()> whilePainting;
    QPoint origin; // what paintTo() was given last
    guiWidget* paintedOn = nullptr;
    QRegion region;

private:
    void note(std::string const& what)
    {
        m_log.push_back(m_name + " " + what);
        if (auto told = whileTold) // a copy: the node may be gone when it returns
            told(what);
    }

    List& m_log;
    std::string m_name;
};

class LogRoot : public WindowRoot
{
public:
    explicit LogRoot(List& log) : m_log(log) {}

    using WindowRoot::operator=;
    int onEscape() override { return m_log.push_back("escape"), keyUsed; }
    int onEnter() override { return m_log.push_back("enter"), keyUsed; }
    void onShow() override { m_log.push_back("show"); }
    void setRect(guiRect* rect) override
    {
        m.rect = *rect;
        m_log.push_back("rect " + std::to_string(rect->left) + "," + std::to_string(rect->top) + " " +
                        std::to_string(rect->width) + "x" + std::to_string(rect->height));
    }
    QWidget* getTopLevelWidget() override { return standIn ? standIn : WindowRoot::getTopLevelWidget(); }
    int updateLayout(int) override { return 1; }

    int keyUsed = 1;
    QWidget* standIn = nullptr;

private:
    List& m_log;
};

class Widget : public ::testing::Test
{
protected:
    Widget() : root(log)
    {
        widget = root.createWidget(0);
        widget->resize(200, 100);
        root.m.rect = {0, 200, 0, 100};
        a = add("a", {10, 50, 10, 50});
        b = add("b", {60, 50, 10, 50});
    }
    ~Widget() override
    {
        root.destroyWidget();
        PageWindow::settle();
    }

    LogNode* add(char const* name, guiRect const& rect)
    {
        auto* node = new LogNode(log, name);
        root.append(node);
        node->m.rect = rect;
        return node;
    }

    void mouse(QEvent::Type type, int x, int y)
    {
        Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, QPointF(x, y), widget->mapToGlobal(QPointF(x, y)), button, button, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }

    /// Whether the widget took the key.
    bool key(int code)
    {
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
        return event.isAccepted();
    }

    void show()
    {
        widget->show();
        PageWindow::settle();
    }

    List log;
    LogRoot root;
    QPointer<guiWidget> widget;
    LogNode* a = nullptr;
    LogNode* b = nullptr;
};

} // namespace

TEST_F(Widget, IsSetUpForPaintingByThePageAlone)
{
    EXPECT_TRUE(widget->testAttribute(Qt::WA_OpaquePaintEvent));
    EXPECT_TRUE(widget->testAttribute(Qt::WA_NoSystemBackground));
    EXPECT_TRUE(widget->testAttribute(Qt::WA_StaticContents));
    EXPECT_TRUE(widget->hasMouseTracking());
    EXPECT_EQ(widget->focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(widget->windowModality(), Qt::NonModal);
    EXPECT_EQ(widget->logPixelsY(), widget->logicalDpiY());
    guiWidget modal(nullptr, "name", 1, Qt::Window);
    EXPECT_EQ(modal.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(modal.objectName(), "name");
}

TEST_F(Widget, MovingFromOneNodeToAnotherIsOffBeforeOn)
{
    mouse(QEvent::MouseMove, 15, 17);
    EXPECT_EQ(log, (List{"a on", "a move 5,7"}));
    log.clear();
    mouse(QEvent::MouseMove, 16, 17);
    EXPECT_EQ(log, List{"a move 6,7"}) << "within one node only moves";
    log.clear();
    mouse(QEvent::MouseMove, 60, 10);
    EXPECT_EQ(log, (List{"a off", "b on", "b move 0,0"}));
    log.clear();
    mouse(QEvent::MouseMove, 1, 1);
    EXPECT_EQ(log, List{"b off"});
    EXPECT_EQ(widget->hoverNode, nullptr);
}

TEST_F(Widget, LeavingANodeResetsTheCursor)
{
    mouse(QEvent::MouseMove, 15, 17);
    widget->setCursor(Qt::PointingHandCursor);
    mouse(QEvent::MouseMove, 60, 10);
    EXPECT_EQ(widget->cursor().shape(), Qt::ArrowCursor);
    widget->setCursor(Qt::PointingHandCursor);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(widget, &leave);
    EXPECT_EQ(widget->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(log.back(), "b off") << "the pointer left the window";
}

TEST_F(Widget, APressGoesToTheNodeUnderItAndTheReleaseToTheOneUnderThatPoint)
{
    widget->setCursor(Qt::PointingHandCursor);
    mouse(QEvent::MouseButtonPress, 20, 30);
    EXPECT_EQ(widget->cursor().shape(), Qt::PointingHandCursor);
    mouse(QEvent::MouseButtonRelease, 70, 30);
    EXPECT_EQ(log, (List{"a down 10,20", "b up"}));
    EXPECT_EQ(widget->cursor().shape(), Qt::ArrowCursor);
    log.clear();
    mouse(QEvent::MouseButtonPress, 1, 1);
    mouse(QEvent::MouseButtonRelease, 1, 1);
    EXPECT_TRUE(log.empty());
}

TEST_F(Widget, CoordinatesAreThoseOfTheScrolledNodeFound)
{
    guiHtml* frame = root.append(new guiHtml);
    frame->m.rect = {0, 100, 70, 30};
    frame->m.border = 2;
    frame->m.space = 3;
    frame->ensureScroll().posX = 4;
    frame->ensureScroll().posY = 50;
    auto* inner = new LogNode(log, "inner");
    frame->append(inner);
    inner->m.rect = {5, 200, 40, 200};
    mouse(QEvent::MouseButtonPress, 20, 80);
    EXPECT_EQ(log, List{"inner down 19,20"}); // (20 + 4 - 5, 80 - 70 + 50 - 40)
    log.clear();
    mouse(QEvent::MouseButtonPress, 4, 80);
    mouse(QEvent::MouseButtonPress, 20, 74);
    EXPECT_TRUE(log.empty()) << "the frame's border and space show no content";
}

TEST_F(Widget, OnlyNodesThatAskForThePointerAreHit)
{
    guiHtml* cell = root.append(new guiHtml);
    cell->m.rect = {0, 200, 60, 40};
    int x = 5;
    int y = 65;
    EXPECT_EQ(root.hitTest(&x, &y), nullptr);
    for (guiNodeString handler : {kStringMouseOver, kStringMouseOut, kStringMouseDown, kStringMouseUp}) {
        cell->setString(handler, sstring("event://x"));
        x = 5;
        y = 65;
        EXPECT_EQ(root.hitTest(&x, &y), cell);
        EXPECT_EQ(x, 5);
        EXPECT_EQ(y, 5);
        cell->setString(handler, sstring());
    }
    x = 110; // right of b: the right edge is exclusive
    y = 20;
    EXPECT_EQ(root.hitTest(&x, &y), nullptr);
    x = 109;
    EXPECT_EQ(root.hitTest(&x, &y), b);
}

TEST_F(Widget, ADestroyedHoverNodeIsToldOnceAndForgotten)
{
    mouse(QEvent::MouseMove, 15, 17);
    log.clear();
    widget->onHtmlDestroy(b);
    EXPECT_TRUE(log.empty()) << "another node";
    widget->onHtmlDestroy(a);
    EXPECT_EQ(log, List{"a off"});
    EXPECT_EQ(widget->hoverNode, nullptr);
    widget->onHtmlDestroy(a);
    EXPECT_EQ(log.size(), 1u);
}

TEST_F(Widget, ReplacingThePageForgetsTheHoverNode)
{
    mouse(QEvent::MouseMove, 15, 17);
    log.clear();
    root.destroyChildren();
    EXPECT_EQ(log, List{"a off"});
    EXPECT_EQ(widget->hoverNode, nullptr);
    mouse(QEvent::MouseMove, 16, 17);
    EXPECT_EQ(log.size(), 1u);
}

TEST_F(Widget, RefreshTellsTheHoverNodeOnce)
{
    mouse(QEvent::MouseMove, 15, 17);
    log.clear();
    widget->setCursor(Qt::PointingHandCursor);
    widget->refresh();
    widget->refresh();
    EXPECT_EQ(log, List{"a off"});
    EXPECT_EQ(widget->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Widget, AHandlerThatReplacesThePageEndsTheMove)
{
    mouse(QEvent::MouseMove, 15, 17);
    log.clear();
    a->whileTold = [this](std::string const& what) {
        if (what == "off")
            root.destroyChildren();
    };
    mouse(QEvent::MouseMove, 60, 10);
    EXPECT_EQ(log, (List{"a off", "b off"})) << "b was hovered when it went, and was never told that it was";
    EXPECT_EQ(widget->hoverNode, nullptr);
}

TEST_F(Widget, AHandlerThatClosesTheWindowLeavesTheToolkitAWidgetUntilItReturns)
{
    show();
    bool alive = false;
    a->whileTold = [&](std::string const&) {
        root.destroyWidget();
        alive = !widget.isNull();
    };
    mouse(QEvent::MouseButtonPress, 15, 17);
    EXPECT_TRUE(alive);
    ASSERT_FALSE(widget.isNull());
    EXPECT_FALSE(widget->isVisible());
    EXPECT_EQ(widget->htmlBase, nullptr);
    PageWindow::settle();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(Widget, AWindowClosedInTheEventLoopOfAWaitingHandlerLivesUntilThatReturns)
{
    show();
    bool alive = false;
    a->whileTold = [&](std::string const&) {
        // A handler waits for script; script, meanwhile, closes the window: an event of its own in the loop of the
        // wait.
        QMetaObject::invokeMethod(
            qApp, [this] { root.destroyWidget(); }, Qt::QueuedConnection);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        alive = !widget.isNull();
    };
    mouse(QEvent::MouseButtonPress, 15, 17);
    EXPECT_TRUE(alive);
    PageWindow::settle();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(Widget, OutsideOfHandlersDeletionIsAtOnce)
{
    root.destroyWidget();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(Widget, EscapeAndEnterGoToThePage)
{
    show();
    log.clear();
    int finished = 0;
    QObject::connect(widget, &QDialog::finished, [&] { ++finished; });
    EXPECT_TRUE(key(Qt::Key_Escape));
    EXPECT_TRUE(key(Qt::Key_Return));
    EXPECT_TRUE(key(Qt::Key_Enter));
    EXPECT_FALSE(key(Qt::Key_A));
    EXPECT_EQ(log, (List{"escape", "enter", "enter"}));
    EXPECT_TRUE(widget->isVisible());
    EXPECT_EQ(finished, 0) << "a used key is not the dialog's";
    root.keyUsed = 0;
    key(Qt::Key_Escape);
    EXPECT_FALSE(widget->isVisible()) << "an unused one is";
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(log.size(), 4u);
}

TEST_F(Widget, ResizingPlacesTheRootAndShowingTellsIt)
{
    show();
    log.clear();
    widget->resize(300, 150);
    PageWindow::settle();
    EXPECT_EQ(log, List{"rect 0,0 300x150"});
    widget->hide();
    mouse(QEvent::MouseMove, 15, 17);
    log.clear();
    show();
    ASSERT_GE(log.size(), 2u);
    EXPECT_EQ(log[0], "a off") << "the pointer may be elsewhere by now";
    EXPECT_EQ(log[1], "show");
}

TEST_F(Widget, ACloseRequestHidesAndDestroysTheWindowWithoutFinishingTheDialog)
{
    show();
    int finished = 0;
    QObject::connect(widget, &QDialog::finished, [&] { ++finished; });
    EXPECT_FALSE(widget->close());
    EXPECT_FALSE(root.isOpen());
    ASSERT_FALSE(widget.isNull());
    EXPECT_FALSE(widget->isVisible());
    PageWindow::settle();
    EXPECT_TRUE(widget.isNull());
    EXPECT_EQ(finished, 0);
}

TEST_F(Widget, TheBackBufferGrowsByAMarginAndNeverShrinks)
{
    show();
    widget->repaint();
    EXPECT_EQ(widget->backBuffer.size(), QSize(328, 228));
    widget->resize(328, 228);
    PageWindow::settle();
    widget->resize(60, 60);
    widget->repaint();
    EXPECT_EQ(widget->backBuffer.size(), QSize(328, 228));
    widget->resize(329, 70);
    PageWindow::settle();
    widget->repaint();
    EXPECT_EQ(widget->backBuffer.size(), QSize(457, 228));
}

TEST_F(Widget, WhatThePagePaintsReachesTheScreen)
{
    root.setBackgroundColor(guiColor{1, 2, 3});
    guiHtml* cell = root.append(new guiHtml);
    cell->m.rect = {0, 10, 80, 10};
    cell->setBackgroundColor(guiColor{4, 5, 6});
    show();
    QImage image = widget->grab().toImage();
    EXPECT_EQ(image.pixel(150, 50), qRgb(1, 2, 3));
    EXPECT_EQ(image.pixel(5, 85), qRgb(4, 5, 6));
}

TEST_F(Widget, WhatThePageLeavesUnpaintedHasTheWindowsColour)
{
    show();
    EXPECT_EQ(widget->grab().toImage().pixel(150, 50), widget->palette().color(QPalette::Window).rgb());
}

TEST_F(Widget, ClosingFromInsideAPaintDefersTheDeletionToItsEnd)
{
    show();
    int painted = 0;
    a->whilePainting = [&] {
        ++painted;
        EXPECT_TRUE(widget->isPainting());
        root.destroyWidget();
        ASSERT_FALSE(widget.isNull());
        EXPECT_EQ(widget->deletePending, 1);
        EXPECT_TRUE(widget->isVisible()) << "not even hidden before its end";
    };
    widget->repaint();
    EXPECT_EQ(painted, 1);
    ASSERT_FALSE(widget.isNull()) << "the toolkit is not done with it";
    EXPECT_FALSE(widget->isPainting());
    EXPECT_FALSE(widget->isVisible());
    PageWindow::settle();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(Widget, APaintInsideAPaintIsPutOffUntilAfterIt)
{
    show();
    int painted = 0;
    a->whilePainting = [&] {
        if (++painted > 1)
            return;
        QPaintEvent nested(QRect(0, 0, 200, 100));
        QCoreApplication::sendEvent(widget, &nested);
        EXPECT_EQ(painted, 1) << "not now";
        EXPECT_TRUE(widget->isPainting());
    };
    widget->repaint();
    EXPECT_EQ(painted, 1);
    PageWindow::settle();
    EXPECT_EQ(painted, 2) << "but soon";
    PageWindow::settle();
    EXPECT_EQ(painted, 2);
}

namespace {

class BufferlessWidget : public guiWidget
{
public:
    using guiWidget::guiWidget;

protected:
    QPixmap makeBuffer(QSize const&) override { return QPixmap(); }
};

} // namespace

TEST_F(Widget, WithoutMemoryForTheBufferThePageIsPaintedDirectly)
{
    BufferlessWidget direct(nullptr, "direct", 0, Qt::Window);
    direct.resize(200, 100);
    root.setBackgroundColor(guiColor{1, 2, 3});
    root.standIn = &direct;
    direct.htmlBase = &root;
    direct.show();
    EXPECT_EQ(direct.grab().toImage().pixel(150, 50), qRgb(1, 2, 3));
    EXPECT_TRUE(direct.backBuffer.isNull());
    direct.htmlBase = nullptr;
    root.standIn = nullptr;
}

TEST_F(Widget, AnUnboundWidgetDoesWhatTheToolkitDoes)
{
    guiWidget unbound(nullptr, "unbound", 0, Qt::Window);
    EXPECT_EQ(unbound.htmlBase, nullptr);
    EXPECT_EQ(unbound.hoverNode, nullptr);
    EXPECT_EQ(unbound.paintDepth, 0u);
    EXPECT_EQ(unbound.deletePending, 0);
    unbound.resize(50, 50);
    unbound.show();
    PageWindow::settle();
    QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), QPointF(5, 5), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&unbound, &move);
    EXPECT_TRUE(unbound.isVisible());
    EXPECT_TRUE(unbound.backBuffer.isNull());
    EXPECT_FALSE(unbound.isPainting());
    unbound.close();
    EXPECT_FALSE(unbound.isVisible());
    unbound.show();
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&unbound, &escape);
    EXPECT_FALSE(unbound.isVisible());
}

TEST_F(Widget, APageIsPaintedFromItsCornerWithinTheDamage)
{
    show();
    a->whilePainting = [this] { log.push_back("a painted"); };
    b->whilePainting = [this] { log.push_back("b painted"); };
    log.clear();
    widget->repaint(QRect(60, 10, 5, 5));
    EXPECT_EQ(log, List{"b painted"});
    EXPECT_EQ(b->origin, QPoint(0, 0));
    EXPECT_EQ(b->paintedOn, widget);
    EXPECT_EQ(b->region, QRegion(60, 10, 5, 5));
}

TEST_F(Widget, NothingReachesThePageOfAWindowThatClosedInItsPaint)
{
    show();
    log.clear();
    int keyUses = 0;
    a->whilePainting = [&] {
        root.destroyWidget();
        mouse(QEvent::MouseMove, 65, 15); // its handler waits, and the user goes on meanwhile
        mouse(QEvent::MouseButtonPress, 65, 15);
        mouse(QEvent::MouseButtonRelease, 65, 15);
        key(Qt::Key_A);
        widget->resize(210, 110);
        ++keyUses;
    };
    widget->repaint();
    EXPECT_EQ(keyUses, 1);
    EXPECT_EQ(log, List());
    PageWindow::settle();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(Widget, ClosingTellsTheHoveredNodeOnceWhileItsPageIsWhole)
{
    show();
    mouse(QEvent::MouseMove, 15, 17);
    log.clear();
    bool wasWhole = false;
    a->whileTold = [&](std::string const&) {
        EXPECT_FALSE(widget->isVisible()) << "whatever its handler does";
        wasWhole = root.isOpen() && !guiLaterEvents::take(a, "event://x"); // its event need not wait
    };
    widget->close();
    EXPECT_EQ(log, List{"a off"});
    EXPECT_TRUE(wasWhole);
    PageWindow::settle();
    EXPECT_EQ(log.size(), 1u) << "no later word from the window that is gone";
}

TEST_F(Widget, ThePointerOnAnotherWidgetIsNoLongerOnThePage)
{
    QWidget child(widget);
    mouse(QEvent::MouseMove, 15, 17);
    log.clear();
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QCoreApplication::sendEvent(&child, &enter);
    EXPECT_EQ(log, List{"a off"});
}

TEST_F(Widget, AScrollBarTellsItsOwnerAlongItsOwnAxis)
{
    auto* vertical = new guiWidgetScrollBar(Qt::Vertical, widget, "html y-scrollbar");
    auto* horizontal = new guiWidgetScrollBar(Qt::Horizontal, widget, "html x-scrollbar");
    EXPECT_EQ(vertical->focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(horizontal->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(vertical->objectName(), "html y-scrollbar");
    EXPECT_TRUE(vertical->hasTracking());
    vertical->setRange(0, 100);
    horizontal->setRange(0, 100);
    vertical->setValue(1);
    vertical->owner = a;
    horizontal->owner = a;
    vertical->setValue(2);
    EXPECT_TRUE(log.empty()) << "not the owner's bar";
    a->ensureScroll().barY = vertical;
    a->ensureScroll().barX = horizontal;
    vertical->setValue(30);
    horizontal->setValue(40);
    EXPECT_EQ(log, (List{"a y 30", "a x 40"}));
}

TEST_F(Widget, TheWheelScrollsTheInnermostNodeWithABar)
{
    auto* outer = new guiWidgetScrollBar(Qt::Vertical, widget);
    outer->setRange(0, 1000);
    root.ensureScroll().barY = outer;
    auto* inner = new guiWidgetScrollBar(Qt::Vertical, widget);
    inner->setRange(0, 1000);
    a->ensureScroll().barY = inner;
    auto turn = [&](int x, int y) {
        QWheelEvent event(QPointF(x, y), QPointF(x, y), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget, &event);
    };
    turn(20, 20);
    EXPECT_GT(inner->value(), 0);
    EXPECT_EQ(outer->value(), 0);
    turn(150, 90);
    EXPECT_GT(outer->value(), 0);
}

TEST_F(Widget, TheWheelGoesOnInThePaneAroundOneThatIsAtItsEnd)
{
    auto* outer = new guiWidgetScrollBar(Qt::Vertical, widget);
    outer->setRange(0, 1000);
    root.ensureScroll().barY = outer;
    auto* inner = new guiWidgetScrollBar(Qt::Vertical, widget);
    inner->setRange(0, 3); // one turn
    a->ensureScroll().barY = inner;
    auto turn = [&](int by) {
        QWheelEvent event(QPointF(20, 20), QPointF(20, 20), QPoint(), QPoint(0, by), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget, &event);
    };
    turn(-120);
    EXPECT_EQ(inner->value(), 3);
    EXPECT_EQ(outer->value(), 0);
    turn(-120);
    EXPECT_GT(outer->value(), 0);
    turn(120);
    EXPECT_EQ(inner->value(), 0) << "the inner one turns back first";
}

TEST_F(Widget, ScrollingStaysInRange)
{
    guiHtml* frame = root.append(new guiHtml);
    frame->m.rect = {0, 100, 0, 100};
    frame->ensureScroll().rangeY = 60;
    frame->onScrollY(50);
    EXPECT_EQ(frame->getScroll().posY, 50u);
    frame->onScrollY(500);
    EXPECT_EQ(frame->getScroll().posY, 60u);
    frame->onScrollY(-3);
    EXPECT_EQ(frame->getScroll().posY, 0u);
    frame->onScrollX(10);
    EXPECT_EQ(frame->getScroll().posX, 0u);
}
