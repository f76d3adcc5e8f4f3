// tests/controls/tabs_test.cpp: tabs: which sheet is shown, what the others keep, and how large all of them are.
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmltabbar.h"
#include "controls/guihtmltabs.h"
#include "controls/guitabstops.h"
#include "controls/guiwidgettabbar.h"
#include "page/guihtmlsheet.h"
#include "tests/controls/shownpage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

namespace {

constexpr char kPage[] =
    "<tabs name=where><tab title=One name=one><input type=text name=a value=x></tab>"
    "<tab title=Two name=two><input type=text name=b value=y><p>more<p>and more</tab>"
    "<tab title=Three><input type=button name=c value=z></tab></tabs><input type=button name=below value=ok>";

struct Tabs : ShownPage
{
    explicit Tabs(char const* page = kPage, int height = 300) : ShownPage(page, 400, height)
    {
        window.widget->show();
        PageWindow::settle();
    }

    guiHtmlTabBar& bar() { return control<guiHtmlTabBar>("where"); }
    guiWidgetTabBar* widget() { return ShownPage::widget<guiWidgetTabBar>("where"); }
    guiHtml& tabs() { return *bar().getParent(); }
    bool isSeen(char const* name)
    {
        QWidget* shown = node(name)->getChildWidget();
        return shown && shown->isVisible();
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* to = window.widget->focusWidget() ? window.widget->focusWidget() : window.widget;
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(to, &event);
        PageWindow::settle();
    }
};

} // namespace

TEST(Tabs, ShowTheFirstSheetAndMakeNoWidgetsInTheOthers)
{
    Tabs page;
    EXPECT_EQ(page.bar().getText(), "one");
    EXPECT_TRUE(page.isSeen("a"));
    EXPECT_EQ(page.node("b")->getChildWidget(), nullptr);
    EXPECT_EQ(page.node("c")->getChildWidget(), nullptr);
}

TEST(Tabs, TheirValueIsTheNameOrThePlaceOfTheSheetThatIsShown)
{
    Tabs page;
    EXPECT_EQ(page.bar().setText("TWO", ""), 1);
    EXPECT_EQ(page.bar().getText(), "two");
    EXPECT_TRUE(page.isSeen("b"));
    EXPECT_FALSE(page.isSeen("a"));
    EXPECT_EQ(page.bar().setText("2", ""), 1);
    EXPECT_TRUE(page.isSeen("c"));
    EXPECT_EQ(page.bar().setText("three", ""), 0) << "a tab without a name has its place";
    EXPECT_EQ(page.bar().getText(), "2");
}

TEST(Tabs, TheUserTurnsThem)
{
    Tabs page;
    page.widget()->setCurrentIndex(1);
    EXPECT_EQ(page.bar().getText(), "two");
    EXPECT_TRUE(page.isSeen("b"));
}

TEST(Tabs, WhatIsInASheetThatWasNotShownHasItsValue)
{
    Tabs page;
    auto& field = page.control<guiHtmlControlEdit>("b");
    EXPECT_EQ(field.getText(), "y");
    field.setText("new", "");
    EXPECT_EQ(field.getChildWidget(), nullptr);
    page.bar().setText("two", "");
    EXPECT_EQ(field.getText(), "new");
}

TEST(Tabs, NothingMovesWhenAnotherSheetIsShown)
{
    Tabs page;
    guiRect const before = page.tabs().m.rect;
    int const below = page.node("below")->m.rect.top;
    for (char const* each : {"two", "2", "one"}) {
        page.bar().setText(each, "");
        EXPECT_EQ(page.tabs().m.rect, before) << each;
        EXPECT_EQ(page.node("below")->m.rect.top, below) << each;
    }
}

TEST(Tabs, AreAsLargeAsTheLargestSheetAsksFor)
{
    Tabs small("<tabs name=where><tab title=One>x</tab></tabs>");
    Tabs large(
        "<tabs name=where><tab title=One>x</tab><tab title=Two><table height=150><tr><td>x</table></tab></tabs>");
    constexpr int kSpace = 8;
    EXPECT_LT(small.tabs().m.rect.height, 100);
    EXPECT_EQ(large.tabs().m.rect.height, large.bar().m.rect.height + 150 + 2 * (kSpace + guiHtmlTabSheet::kFrame));
}

TEST(Tabs, OfAHeightOfTheirOwnGiveTheSheetWhatTheBarLeaves)
{
    Tabs page("<tabs name=where height=200><tab title=One><table name=t height=100%><tr><td>x</table></tab></tabs>");
    constexpr int kSpace = 8;
    EXPECT_EQ(page.tabs().m.rect.height, 200);
    EXPECT_EQ(page.node("t")->m.rect.height, 200 - page.bar().m.rect.height - 2 * (kSpace + guiHtmlTabSheet::kFrame));
}

TEST(Tabs, GrowWithTheCellAroundThem)
{
    Tabs page("<table height=100%><tr><td><tabs name=where><tab title=One name=s>x</tab></tabs></table>", 320);
    EXPECT_EQ(page.node("s")->m.rect.height + page.bar().m.rect.height, page.tabs().m.rect.height);
    EXPECT_EQ(page.tabs().m.rect.height, 320);
}

TEST(Tabs, TabStopsAtTheBarAndPassesOverWhatIsPutAway)
{
    Tabs page;
    std::vector<std::string> seen;
    for (int i = 0; i < 4; ++i) {
        page.press(Qt::Key_Tab);
        guiHtml* at = page.window.root.findWidget(page.window.widget->focusWidget());
        seen.emplace_back(at ? at->getName().c_str() : "");
    }
    std::vector<std::string> const wanted{"a", "below", "where", "a"};
    EXPECT_EQ(seen, wanted);
}

TEST(Tabs, KeysTurnThemFromWhereverTheKeyboardIs)
{
    Tabs page;
    page.window.root.setFocus("a");
    page.press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(page.bar().getText(), "two");
    EXPECT_EQ(page.window.root.getFocus(), "b") << "the keyboard goes along";
    page.press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(page.bar().getText(), "2");
    page.press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(page.bar().getText(), "one") << "behind the last comes the first";
    page.press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(page.bar().getText(), "2");
    page.press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(page.bar().getText(), "two");
    page.window.root.setFocus("below");
    page.press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(page.bar().getText(), "2");
    EXPECT_EQ(page.window.root.getFocus(), "below");
}

TEST(Tabs, TheBarIsTurnedByArrowsHomeAndEndPastWhatIsDisabled)
{
    Tabs page("<tabs name=where><tab title=One>x</tab><tab title=Two disabled>x</tab><tab title=Three>x</tab></tabs>");
    page.window.root.setFocus("where");
    page.press(Qt::Key_Right);
    EXPECT_EQ(page.bar().getText(), "2");
    page.press(Qt::Key_Home);
    EXPECT_EQ(page.bar().getText(), "0");
    page.press(Qt::Key_End);
    EXPECT_EQ(page.bar().getText(), "2");
    EXPECT_EQ(page.bar().setText("1", ""), 1) << "a program may show it";
    EXPECT_EQ(page.bar().getText(), "1");
}

TEST(Tabs, RevealShowsWhatIsNestedInSeveral)
{
    Tabs page("<tabs name=where><tab title=One>x</tab><tab title=Two><tabs name=inner><tab title=A>x</tab>"
              "<tab title=B><input type=text name=deep></tab></tabs></tab></tabs>");
    EXPECT_TRUE(guiIsPutAway(page.node("deep")));
    guiReveal(page.node("deep"));
    EXPECT_FALSE(guiIsPutAway(page.node("deep")));
    EXPECT_TRUE(page.isSeen("deep"));
    EXPECT_EQ(page.bar().getText(), "1");
}

TEST(Tabs, ATabThatNobodyHasClosedEndsWhereTheNextBegins)
{
    Tabs page("<tabs name=where><tab title=One>x<tab title=Two>y</tabs><p name=behind>z");
    EXPECT_EQ(page.widget()->count(), 2);
    EXPECT_EQ(dynamic_cast<guiHtmlTabs&>(page.tabs()).sheets().size(), 2U);
}

TEST(Tabs, WithoutATabAreEmpty)
{
    Tabs page("<tabs name=where></tabs><tab title=x><input type=text name=inside></tab>");
    EXPECT_EQ(page.bar().getText(), "");
    EXPECT_TRUE(page.isSeen("inside")) << "outside of tabs a tab is what it contains";
}

TEST(Tabs, ShowTitlesPicturesAndStatesThatScriptChanges)
{
    Tabs page;
    page.node("two")->setCaption("Second");
    page.node("two")->setEnabled(0);
    EXPECT_EQ(page.widget()->tabText(1), "Second");
    EXPECT_FALSE(page.widget()->isTabEnabled(1));
    EXPECT_EQ(page.bar().getText(), "one");
}

TEST(Tabs, AreMadeAnewWhenTheirPageIsShownAgain)
{
    Tabs page;
    page.bar().setText("two", "");
    page.window.root.destroyWidget();
    PageWindow::settle();
    page.window.widget = page.window.root.createWidget(0);
    page.window.widget->show();
    PageWindow::settle();
    EXPECT_EQ(page.bar().getText(), "two");
    EXPECT_TRUE(page.isSeen("b"));
    EXPECT_FALSE(page.isSeen("a"));
}
