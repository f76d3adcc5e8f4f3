// tests/controls/keyboard_test.cpp: the keyboard on a page: where Tab goes, and what scrolls.
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guitabstops.h"
#include "controls/guiwidgetpushbutton.h"
#include "tests/controls/shownpage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <gtest/gtest.h>

namespace {

using List = std::vector<std::string>;

struct Keyboard : ShownPage
{
    explicit Keyboard(std::string const& page, int height = 200) : ShownPage("", 300, height)
    {
        window.root.setSizePolicy(kPolicyScroll);
        load(page.c_str());
        window.widget->show();
        PageWindow::settle();
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* to = window.widget->focusWidget() ? window.widget->focusWidget() : window.widget;
        for (QEvent::Type const type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers);
            QCoreApplication::sendEvent(to, &event);
        }
        PageWindow::settle();
    }

    std::string focus()
    {
        QWidget* at = window.widget->focusWidget();
        guiHtml* found = at ? window.root.findWidget(at) : nullptr;
        return found ? found->getName().c_str() : "";
    }

    /// The controls at which so many presses of a key stop.
    List stops(int count, int key = Qt::Key_Tab)
    {
        List names;
        for (int i = 0; i < count; ++i) {
            press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            names.push_back(focus());
        }
        return names;
    }

    bool isInView(char const* name)
    {
        QWidget* control = node(name)->getChildWidget();
        QRect const place(control->mapTo(window.widget, QPoint()), control->size());
        return control->isVisible() && window.widget->rect().contains(place);
    }

    QScrollBar* bar() { return window.root.getScroll().barY; }
};

std::string field(std::string const& name, std::string const& rest = "")
{
    return "<p><input type=text size=5 name=" + name + " " + rest + "></p>";
}

std::string fields(int count)
{
    std::string page;
    for (int i = 0; i < count; ++i)
        page += field("f" + std::to_string(i));
    return page;
}

} // namespace

TEST(Keyboard, TabReachesControlsThatAreOutOfViewAndScrollsToThem)
{
    Keyboard page(fields(40));
    page.window.root.setFocus("f0");
    ASSERT_FALSE(page.isInView("f39"));
    List wanted;
    for (int i = 1; i < 40; ++i)
        wanted.push_back("f" + std::to_string(i));
    List seen;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        page.press(Qt::Key_Tab);
        seen.push_back(page.focus());
        EXPECT_TRUE(page.isInView(page.focus().c_str())) << page.focus();
    }
    EXPECT_EQ(seen, wanted);
    EXPECT_EQ(page.stops(1), List{"f0"}) << "behind the last comes the first";
    EXPECT_TRUE(page.isInView("f0"));
    EXPECT_EQ(page.stops(3, Qt::Key_Backtab), (List{"f39", "f38", "f37"}));
    EXPECT_TRUE(page.isInView("f37"));
}

TEST(Keyboard, TabScrollsThePanesAroundAControlToo)
{
    Keyboard page(fields(10) + "<table name=pane width=200 height=80 scrolling=yes><tr><td>" + field("a") + fields(9) +
                  field("z") + "</td></tr></table>");
    page.window.root.setFocus("z");
    page.press(Qt::Key_Tab);
    page.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(page.focus(), "z");
    EXPECT_TRUE(page.isInView("z"));
}

TEST(Keyboard, TabGoesByTabIndexAndPassesOverWhatIsDisabled)
{
    Keyboard page(field("c", "tabindex=3") + field("a", "tabindex=1") + field("off", "tabindex=2 disabled") +
                  field("b", "tabindex=2"));
    page.window.root.setFocus("a");
    EXPECT_EQ(page.stops(3), (List{"b", "c", "a"}));
}

TEST(Keyboard, AGroupOfRadioButtonsIsOneStopAtItsCheckedButton)
{
    std::string const group = "<input type=radio name=g value=1><input type=radio name=g value=2 checked>"
                              "<input type=radio name=g value=3>";
    Keyboard page(field("before") + group + field("after"));
    auto checkedIsFocused = [&] {
        auto const* at = dynamic_cast<QAbstractButton*>(page.window.widget->focusWidget());
        return at && at->isChecked();
    };
    page.window.root.setFocus("before");
    EXPECT_EQ(page.stops(1), List{"g"});
    EXPECT_TRUE(checkedIsFocused());
    EXPECT_EQ(page.stops(1), List{"after"});
    EXPECT_EQ(page.stops(1, Qt::Key_Backtab), List{"g"});
    EXPECT_TRUE(checkedIsFocused());
    EXPECT_EQ(page.stops(1, Qt::Key_Backtab), List{"before"});
}

TEST(Keyboard, AGroupWithoutACheckedButtonIsOneStopToo)
{
    Keyboard page(field("before") + "<input type=radio name=g value=1><input type=radio name=g value=2>" +
                  field("after"));
    page.window.root.setFocus("before");
    EXPECT_EQ(page.stops(2), (List{"g", "after"}));
    EXPECT_EQ(page.stops(2, Qt::Key_Backtab), (List{"g", "before"}));
}

TEST(Keyboard, AScrollBarOfThePageIsNoStop)
{
    Keyboard page(fields(40));
    ASSERT_NE(page.bar(), nullptr);
    EXPECT_EQ(page.bar()->focusPolicy(), Qt::NoFocus);
}

TEST(Keyboard, ThePageIsScrolledByKeysThatTheControlHasNoUseFor)
{
    Keyboard page(fields(40));
    page.window.root.setFocus("f0");
    page.press(Qt::Key_PageDown);
    int const afterPage = page.bar()->value();
    EXPECT_GT(afterPage, 0);
    EXPECT_EQ(page.focus(), "f0");
    page.press(Qt::Key_Down);
    EXPECT_EQ(page.bar()->value(), afterPage + page.bar()->singleStep());
    page.press(Qt::Key_Up);
    page.press(Qt::Key_PageUp);
    EXPECT_EQ(page.bar()->value(), 0);
    page.press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(page.bar()->value(), 0) << "keys with Ctrl are others";
}

TEST(Keyboard, APageWithoutControlsScrollsByAllKeys)
{
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += "<p>line</p>";
    Keyboard page(lines);
    page.press(Qt::Key_End);
    EXPECT_EQ(page.bar()->value(), page.bar()->maximum());
    page.press(Qt::Key_Home);
    EXPECT_EQ(page.bar()->value(), 0);
    page.press(Qt::Key_Space);
    int const afterSpace = page.bar()->value();
    EXPECT_EQ(afterSpace, page.bar()->pageStep());
    page.press(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(page.bar()->value(), 0);
}

TEST(Keyboard, AKeyScrollsThePaneAroundTheControlBeforeThePage)
{
    Keyboard page("<table name=pane width=200 height=80 scrolling=yes><tr><td>" + field("a") + fields(9) +
                  "</td></tr></table>" + fields(30));
    page.window.root.setFocus("a");
    page.press(Qt::Key_PageDown);
    EXPECT_EQ(page.bar()->value(), 0);
}

TEST(Keyboard, ADisabledControlIsNotTriggered)
{
    PageWindow window;
    auto* button = window.place(new LinkWriter<guiHtmlControlButton>, {0, 80, 0, 30});
    button->setAction("event://pressed");
    button->triggerNow();
    EXPECT_EQ(button->links.size(), 1U);
    button->setEnabled(0);
    button->triggerNow();
    EXPECT_EQ(button->links.size(), 1U);
}

TEST(Keyboard, TabStopsAtAPaneInWhichNothingTakesTheKeyboardAndKeysScrollIt)
{
    std::string const tall = "<table width=50 height=400><tr><td>x</td></tr></table>";
    Keyboard page(field("a") + "<table><tr><td name=pane width=100 height=60 scrolling=yes>" + tall +
                  "</td></tr></table>" +
                  "<table><tr><td name=small width=100 height=60 scrolling=yes>x</td></tr></table>" +
                  "<table><tr><td name=with width=100 height=60 scrolling=yes>" + field("in") + tall +
                  "</td></tr></table>" + field("b"));
    page.window.root.setFocus("a");
    page.press(Qt::Key_Tab);
    QScrollBar* bar = page.node("pane")->getScroll().barY;
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(bar->hasFocus() || page.window.widget->focusWidget() == bar);
    int const before = page.bar()->value();
    page.press(Qt::Key_Down);
    EXPECT_EQ(bar->value(), bar->singleStep());
    page.press(Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
    page.press(Qt::Key_Home);
    page.press(Qt::Key_Space);
    EXPECT_EQ(bar->value(), bar->pageStep());
    EXPECT_EQ(page.bar()->value(), before) << "the page stays";
    EXPECT_EQ(page.stops(2), (List{"in", "b"}));
    EXPECT_EQ(page.stops(2, Qt::Key_Backtab), (List{"in", ""}));
    EXPECT_EQ(page.window.widget->focusWidget(), bar);
}

TEST(Keyboard, APaneDoesNotTakeTheFirstFocusFromAControl)
{
    Keyboard page(
        "<table><tr><td width=100 height=60 scrolling=yes><table width=50 height=400><tr><td>x</table></td></tr>"
        "</table>" +
        field("a"));
    EXPECT_EQ(page.focus(), "a");
}
