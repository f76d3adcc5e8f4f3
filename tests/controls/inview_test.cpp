// tests/controls/inview_test.cpp: a page with many controls costs, when it is painted or scrolled, what those in view
// cost; and the others lack nothing.
#include "controls/guihtmlcontroledit.h"
#include "controls/guiwidgetscrollbar.h"
#include "tests/controls/pagewindow.h"
#include "tests/controls/stalearea.h"

#include <QApplication>
#include <QLineEdit>
#include <QPaintEvent>
#include <QScrollBar>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

constexpr int kWidth = 500;
constexpr int kHeight = 300;
constexpr int kControlsOfRow = 5;
constexpr int kLeastRowHeight = 30;
constexpr int kMostInView = (kHeight / kLeastRowHeight + 2) * kControlsOfRow;

std::string row(int number)
{
    std::string const n = std::to_string(number);
    return "<tr><td>Row " + n + "</td><td><input type=text name=t" + n + " size=8 value='text " + n +
           "'></td><td><input type=checkbox name=c" + n + "></td><td><select name=s" + n +
           "><option>One<option>Two</select></td><td><input type=button name=b" + n +
           " value=Go></td><td><textarea name=a" + n + " rows=2 cols=5>few</textarea></td></tr>";
}

std::string rows(int count)
{
    std::string page = "<table>";
    for (int i = 0; i < count; ++i)
        page += row(i);
    return page + "</table>";
}

/// Counts what the toolkit tells the widgets, by kind of event.
class EventCounter : public QObject
{
public:
    EventCounter() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched->isWidgetType())
            ++counts[event->type()];
        if (event->type() == QEvent::Paint)
            painted[watched] = static_cast<QPaintEvent*>(event)->rect();
        return false;
    }
    std::map<QEvent::Type, int> counts;
    std::map<QObject*, QRect> painted;
};

struct ControlsInView : testing::Test
{
    /// `isShown` false: the window is laid out, but not on the screen.
    void open(int rowCount, bool isShown = true) { openPage(rows(rowCount), isShown); }

    void openPage(std::string const& page, bool isShown = true)
    {
        QApplication::setCursorFlashTime(0);
        window.root.setSizePolicy(kPolicyScroll);
        window.widget->resize(kWidth, kHeight);
        ASSERT_EQ(window.root.setText(sstring(page.c_str()), sstring()), 1);
        window.widget->setVisible(isShown);
        PageWindow::settle();
        ASSERT_NE(bar(), nullptr);
    }

    QScrollBar* bar() { return window.root.getScroll().barY; }
    int end() { return bar()->maximum(); }

    void scrollTo(int y)
    {
        bar()->setValue(y);
        PageWindow::settle();
    }

    QLineEdit* field(int number)
    {
        guiHtml* node = window.root.getNamed(sstring(("t" + std::to_string(number)).c_str()));
        return node ? dynamic_cast<QLineEdit*>(node->getChildWidget()) : nullptr;
    }

    QList<QWidget*> clippers(Qt::FindChildOptions depth)
    {
        return window.widget->findChildren<QWidget*>("controlclipper", depth);
    }
    QList<QWidget*> clippersOfWindow() { return clippers(Qt::FindDirectChildrenOnly); }

    std::string focus() { return window.root.getFocus().c_str(); }

    /// The widgets that Tab goes to, in its order, from the first field on.
    std::vector<QWidget*> focusChain()
    {
        std::vector<QWidget*> chain;
        QWidget* const first = field(0);
        for (QWidget* at = first; chain.empty() || at != first; at = at->nextInFocusChain())
            if (at->focusPolicy() & Qt::TabFocus)
                chain.push_back(at);
        return chain;
    }

    PageWindow window{sstring(), kWidth, kHeight};
};

} // namespace

TEST_F(ControlsInView, AreTheOnlyOnesThatTheWindowHasToLookAt)
{
    constexpr int kRows = 400;
    open(kRows);
    window.widget->setFocus(); // the first control has it, and stays in the window with it
    for (int y : {0, 5, end() / 2, end() / 2 + 16, end(), 700, 0}) {
        scrollTo(y);
        QList<QWidget*> const inWindow = clippersOfWindow();
        EXPECT_GE(inWindow.size(), kControlsOfRow) << y;
        EXPECT_LE(inWindow.size(), kMostInView) << y;
        for (QWidget* clipper : inWindow) {
            EXPECT_TRUE(clipper->isVisible()) << y;
            EXPECT_TRUE(window.widget->rect().intersects(clipper->geometry())) << y;
        }
        EXPECT_EQ(clippers(Qt::FindChildrenRecursively).size(), kRows * kControlsOfRow) << y;
    }
}

TEST_F(ControlsInView, OthersHaveHiddenClipWidgetsOfTheSameWindow)
{
    open(100);
    QWidget* const clipper = field(99)->parentWidget();
    EXPECT_TRUE(clipper->isHidden());
    EXPECT_EQ(clipper->window(), window.widget);
    EXPECT_EQ(field(99)->text(), "text 99");
    scrollTo(end());
    EXPECT_TRUE(clipper->isVisible());
    EXPECT_EQ(clipper->parentWidget(), window.widget);
    EXPECT_EQ(field(99)->parentWidget(), clipper);
    EXPECT_TRUE(field(0)->parentWidget()->isHidden());
    EXPECT_EQ(field(0)->window(), window.widget);
    scrollTo(0);
    EXPECT_TRUE(clipper->isHidden());
}

TEST_F(ControlsInView, AreMovedWithThePixelsAndNotPaintedAgain)
{
    constexpr int kStep = 10;
    constexpr int kSteps = 12;
    open(400);
    scrollTo(end() / 2);
    QList<QWidget*> const before = clippersOfWindow();
    EventCounter events;
    for (int i = 1; i <= kSteps; ++i)
        scrollTo(end() / 2 + i * kStep);
    // A row that comes paints its five controls, their parts and clip widgets in the few steps that uncover it.
    int const rowsThatCome = kSteps * kStep / kLeastRowHeight + 2;
    EXPECT_LE(events.counts[QEvent::Move], kSteps * kMostInView * 2);
    EXPECT_LE(events.counts[QEvent::Paint], kSteps * 2 + rowsThatCome * kControlsOfRow * 8);
    EXPECT_LE(events.counts[QEvent::ParentChange], 2 * rowsThatCome * kControlsOfRow);
    int stayed = 0;
    for (QWidget* clipper : before) {
        if (clipper->y() < 60 || clipper->y() > kHeight - 100 - kSteps * kStep)
            continue;
        ++stayed;
        EXPECT_EQ(events.painted.count(clipper->findChild<QWidget*>()), 0u) << clipper->y();
    }
    EXPECT_GE(stayed, kControlsOfRow);
}

TEST_F(ControlsInView, AndThePageShowWhatAFreshPaintShowsAfterEveryStep)
{
    open(120);
    QPalette palette = window.widget->palette();
    palette.setColor(QPalette::Base, Qt::yellow);
    window.widget->setPalette(palette);
    PageWindow::settle();
    for (int y : {0, 1, 8, 24, 40, 39, 30, 20, 120, 419, 900, 903, 2000, 1990, 1, 0}) {
        scrollTo(y);
        EXPECT_EQ(staleArea(window.widget), "") << y;
    }
}

TEST_F(ControlsInView, OfAScrollingCellAreCutOffAtItsEdges)
{
    openPage("<table><tr><td scrolling=yes name=cell width=330 height=140>" + rows(30) +
             "</td></tr><tr><td height=700>below</td></tr></table>");
    window.widget->setFocus(); // the first control has it, and stays in the window with it
    guiHtml* const cell = window.root.getNamed(sstring("cell"));
    ASSERT_NE(cell, nullptr);
    QScrollBar* const inner = cell->getScroll().barY;
    ASSERT_NE(inner, nullptr);
    for (int y : {1, 16, 32, 48, 40, 24, 300, 310, 0, 8}) {
        inner->setValue(y);
        PageWindow::settle();
        EXPECT_EQ(staleArea(window.widget), "") << y;
        guiRect edge;
        cell->getRectInWidget(&edge);
        for (QWidget* clipper : clippersOfWindow())
            EXPECT_TRUE(QRect(edge.left, edge.top, edge.width, edge.height).contains(clipper->geometry())) << y;
    }
    for (int y : {10, 40, 60, 100, 90, 0}) {
        scrollTo(y);
        EXPECT_EQ(staleArea(window.widget), "") << "page at " << y;
    }
}

TEST_F(ControlsInView, ChangedBetweenTwoStepsShowTheChange)
{
    open(120);
    scrollTo(50);
    for (int y : {60, 75, 50}) {
        field(4)->setText("x" + QString::number(y));
        field(3)->setEnabled(y == 75);
        bar()->setValue(y + 3); // before the change is painted
        scrollTo(y);
        EXPECT_EQ(staleArea(window.widget), "") << y;
    }
}

TEST_F(ControlsInView, KeepTheFocusWhileTheyAreOutOfIt)
{
    open(100, false);
    window.root.setFocus("t3");
    field(3)->setText("typed");
    scrollTo(end());
    EXPECT_EQ(focus(), "t3");
    EXPECT_TRUE(field(3)->parentWidget()->isHidden());
    scrollTo(0);
    EXPECT_EQ(focus(), "t3");
    EXPECT_EQ(field(3)->text(), "typed");
}

TEST_F(ControlsInView, HaveTheFocusThatTheyWereGivenBefore)
{
    open(100, false);
    window.root.setFocus("t97");
    EXPECT_EQ(focus(), "t97");
    scrollTo(end());
    EXPECT_TRUE(field(97)->parentWidget()->isVisibleTo(window.widget));
    EXPECT_EQ(focus(), "t97");
}

TEST_F(ControlsInView, AreInTheSameTabOrderWhereverThePageIsScrolled)
{
    open(60);
    window.root.updateTabOrder();
    std::vector<QWidget*> const chain = focusChain();
    ASSERT_GE(chain.size(), 60u * kControlsOfRow);
    for (int y : {end(), end() / 2, 33, 0}) {
        scrollTo(y);
        EXPECT_EQ(focusChain(), chain) << y;
    }
}

TEST_F(ControlsInView, MayBeGoneWithTheirPageWhereverItIsScrolled)
{
    open(60);
    scrollTo(end());
    ASSERT_EQ(window.root.setText(sstring("<p>short</p>"), sstring()), 1);
    PageWindow::settle();
    EXPECT_TRUE(clippers(Qt::FindChildrenRecursively).isEmpty());
}

TEST_F(ControlsInView, AScrollBarIsNotPaintedWithThePage)
{
    open(200);
    EventCounter events;
    window.widget->repaint();
    EXPECT_EQ(events.painted.count(window.widget), 1u);
    EXPECT_EQ(events.painted.count(bar()), 0u);
}

TEST_F(ControlsInView, AScrollBarPaintsOnlyItsThumbWhenThatMoves)
{
    open(60);
    scrollTo(end() / 2);
    EventCounter events;
    scrollTo(end() / 2 + end() / 50);
    ASSERT_EQ(events.painted.count(bar()), 1u);
    EXPECT_LT(events.painted[bar()].height(), kHeight / 3);
    EXPECT_EQ(staleArea(window.widget), "");
    events.painted.clear();
    scrollTo(0);
    EXPECT_EQ(events.painted[bar()], bar()->rect()); // its arrows may look different at the end
}
