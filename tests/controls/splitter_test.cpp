// tests/controls/splitter_test.cpp: panes and the dividers between them.
#include "controls/guihtmlsplitter.h"
#include "controls/guisplitsizes.h"
#include "controls/guiwidgetdivider.h"
#include "tests/controls/shownpage.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <gtest/gtest.h>

namespace {

using Sizes = std::vector<int>;

struct Splitter : ShownPage
{
    explicit Splitter(char const* page, int width = 407, int height = 200) : ShownPage(page, width, height)
    {
        window.widget->show();
        PageWindow::settle();
    }

    guiHtmlSplitter& split() { return control<guiHtmlSplitter>("s"); }
    std::string value() { return split().getText().c_str(); }
    guiWidgetDivider* divider(int index = 0) { return window.widget->findChildren<guiWidgetDivider*>()[index]; }

    void press(int key)
    {
        for (QEvent::Type const type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(divider(), &event);
        }
    }

    void mouse(QEvent::Type type, QPoint at)
    {
        bool const isDown = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, divider()->mapToGlobal(at), Qt::LeftButton, isDown ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(divider(), &event);
    }
};

constexpr char kTwo[] = "<splitter name=s><pane width=100 name=l>left</pane><pane name=r>right</pane></splitter>";

} // namespace

TEST(SplitSizes, ElasticPartsShareWhatTheOthersLeave)
{
    EXPECT_EQ(guiShareSplit({{100, 10, false}, {0, 10, true}, {0, 10, true}}, 401), (Sizes{100, 150, 151}));
    EXPECT_EQ(guiShareSplit({{100, 10, false}, {100, 10, false}}, 300), (Sizes{100, 200}));
    EXPECT_EQ(guiShareSplit({}, 300), Sizes());
}

TEST(SplitSizes, WhatIsMissingIsTakenFromElasticPartsAndThenFromTheLast)
{
    EXPECT_EQ(guiShareSplit({{100, 10, false}, {100, 40, true}, {100, 10, false}}, 200), (Sizes{100, 40, 60}));
    EXPECT_EQ(guiShareSplit({{100, 60, false}, {100, 70, false}}, 50), (Sizes{60, 70}));
}

TEST(SplitSizes, APartAtItsLeastPushesTheNextOne)
{
    std::vector<guiSplitPart> const parts{{0, 20, false}, {0, 20, false}, {0, 20, false}};
    EXPECT_EQ(guiMoveSplit({100, 100, 100}, parts, 0, 30), (Sizes{130, 70, 100}));
    EXPECT_EQ(guiMoveSplit({100, 100, 100}, parts, 0, 120), (Sizes{220, 20, 60}));
    EXPECT_EQ(guiMoveSplit({100, 100, 100}, parts, 1, -170), (Sizes{20, 20, 260}));
    EXPECT_EQ(guiMoveSplit({100, 100, 100}, parts, 0, -1000), (Sizes{20, 180, 100}));
    EXPECT_EQ(guiMoveSplit({100, 100, 100}, parts, 2, 10), (Sizes{100, 100, 100}));
}

TEST(Splitter, FillsItsPlaceAndGivesPanesWhatTheyAskFor)
{
    Splitter page(kTwo);
    EXPECT_EQ(page.value(), "100,300");
    EXPECT_EQ(page.node("l")->m.rect, (guiRect{0, 100, 0, 200}));
    EXPECT_EQ(page.node("r")->m.rect, (guiRect{107, 300, 0, 200}));
    EXPECT_EQ(page.divider()->size(), QSize(7, 200));
}

TEST(Splitter, StacksPanesWhenItIsVertical)
{
    Splitter page("<splitter name=s vertical><pane height=25%>a</pane><pane name=b>b</pane><pane height=30>c</pane>"
                  "</splitter>",
                  300, 214);
    EXPECT_EQ(page.value(), "50,120,30");
    EXPECT_EQ(page.node("b")->m.rect, (guiRect{0, 300, 57, 120}));
    EXPECT_EQ(page.divider(1)->size(), QSize(300, 7));
}

TEST(Splitter, FollowsTheWindowWithThePanesThatAskForNothing)
{
    Splitter page(kTwo);
    page.window.widget->resize(507, 200);
    PageWindow::settle();
    EXPECT_EQ(page.value(), "100,400");
    page.split().setText("250,150", "");
    EXPECT_EQ(page.value(), "250,250") << "the other pane takes the rest";
}

TEST(Splitter, IsDragged)
{
    Splitter page(kTwo);
    page.mouse(QEvent::MouseButtonPress, {3, 50});
    page.mouse(QEvent::MouseMove, {43, 50});
    EXPECT_EQ(page.value(), "140,260");
    EXPECT_EQ(page.divider()->mapTo(page.window.widget, QPoint()), QPoint(140, 0));
    page.mouse(QEvent::MouseMove, {-997, 50});
    EXPECT_EQ(page.value(), "16,384") << "a pane keeps something";
    page.mouse(QEvent::MouseButtonRelease, {3, 50});
    page.mouse(QEvent::MouseMove, {90, 50});
    EXPECT_EQ(page.value(), "16,384");
    page.mouse(QEvent::MouseButtonDblClick, {3, 50});
    EXPECT_EQ(page.value(), "100,300");
}

TEST(Splitter, MovesByKeys)
{
    Splitter page(kTwo);
    page.press(Qt::Key_Right);
    EXPECT_EQ(page.value(), "110,290");
    page.press(Qt::Key_Left);
    page.press(Qt::Key_Left);
    EXPECT_EQ(page.value(), "90,310");
    page.press(Qt::Key_Up);
    EXPECT_EQ(page.value(), "90,310");
    page.press(Qt::Key_End);
    EXPECT_EQ(page.value(), "384,16");
    page.press(Qt::Key_Home);
    EXPECT_EQ(page.value(), "16,384");
}

TEST(Splitter, LeavesPanesTheirLeastSize)
{
    Splitter page(
        "<splitter name=s><pane minwidth=80>a</pane><pane scrolling=no><table width=120><tr><td>x</table></pane>"
        "</splitter>");
    page.press(Qt::Key_Home);
    EXPECT_EQ(page.value(), "80,320");
    page.press(Qt::Key_End);
    EXPECT_EQ(page.value(), "280,120");
}

TEST(Splitter, TakesOnlySizesForEachPane)
{
    Splitter page(kTwo);
    for (char const* text : {"1", "1,2,3", "a,b", "-1,5", "1,", "99999,1"}) {
        EXPECT_EQ(page.split().setText(text, ""), 0) << text;
        EXPECT_EQ(page.value(), "100,300") << text;
    }
    EXPECT_EQ(page.split().setText(" 120 , 7", ""), 1);
    EXPECT_EQ(page.value(), "120,280");
    EXPECT_EQ(page.split().setText("", ""), 1) << "as the page has it";
    EXPECT_EQ(page.value(), "100,300");
}

TEST(Splitter, IsFoundAsItWasLeftByThePageOfTheSameFile)
{
    struct Page : PageWindow
    {
        explicit Page(char const* file) : PageWindow(sstring(file), 407, 200)
        {
            widget->resize(407, 200);
            root.setText(sstring(kTwo), sstring());
        }
        guiHtmlSplitter& split() { return dynamic_cast<guiHtmlSplitter&>(*root.getNamed(sstring("s"))); }
        std::string value() { return split().getText().c_str(); }
    };
    {
        Page page("/pages/split.html");
        page.widget->findChild<guiWidgetDivider*>()->owner->moveBy(33);
        EXPECT_EQ(page.value(), "133,267");
    }
    Page again("/pages/split.html");
    EXPECT_EQ(again.value(), "133,267");
    EXPECT_EQ(Page("/pages/other.html").value(), "100,300");
    again.widget->findChild<guiWidgetDivider*>()->owner->reset();
    EXPECT_EQ(Page("/pages/split.html").value(), "100,300");
}

TEST(Splitter, ScrollsAPaneWhoseContentIsLarger)
{
    Splitter page("<splitter name=s><pane name=l width=100><table width=50 height=500><tr><td>x</table></pane>"
                  "<pane>y</pane></splitter>");
    EXPECT_TRUE(page.node("l")->getScroll().barY);
    EXPECT_EQ(page.node("l")->m.rect.height, 200);
}

TEST(Splitter, MovesTheControlsInItWhenThePageScrolls)
{
    Splitter page("<splitter name=s height=150><pane width=100><input type=button name=b value=x></pane><pane>y</pane>"
                  "</splitter><table height=600><tr><td>z</table>");
    page.window.root.setSizePolicy(kPolicyScroll);
    page.layOut();
    QPoint const before = page.node("b")->getChildWidget()->mapTo(page.window.widget, QPoint());
    page.window.root.onScrollY(20);
    EXPECT_EQ(page.node("b")->getChildWidget()->mapTo(page.window.widget, QPoint()), before - QPoint(0, 20));
}

TEST(Splitter, TellsAScreenReaderOfItsDividers)
{
    Splitter page(kTwo);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(page.divider());
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::Splitter);
    EXPECT_EQ(told->text(QAccessible::Name), "Divider");
}

TEST(Splitter, OfOnePaneHasNoDivider)
{
    Splitter page("<splitter name=s><pane>x</pane></splitter>");
    EXPECT_EQ(page.value(), "407");
    EXPECT_TRUE(page.window.widget->findChildren<guiWidgetDivider*>().isEmpty());
    Splitter empty("<splitter name=s></splitter>");
    EXPECT_EQ(empty.value(), "");
}

TEST(Splitter, NestsInTheOtherDirection)
{
    Splitter page("<splitter name=s><pane width=100>x</pane><pane><splitter vertical name=t><pane height=50 name=top>y"
                  "</pane><pane>z</pane></splitter></pane></splitter>");
    EXPECT_EQ(page.control<guiHtmlSplitter>("t").getText(), "50,143");
    EXPECT_EQ(page.node("top")->m.rect.width, 300);
}
