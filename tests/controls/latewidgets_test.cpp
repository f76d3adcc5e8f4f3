// tests/controls/latewidgets_test.cpp: widgets that are made when they are needed. Until then, and after they have
// gone, the node answers as the widget would, and nobody is told that a widget comes or goes.
#include "controls/guiformcheck.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmlcontrolnumber.h"
#include "controls/guilatewidgets.h"
#include "controls/guimistakemark.h"
#include "controls/guiwidgetcheckbox.h"
#include "controls/guiwidgetcombobox.h"
#include "controls/guiwidgetlineedit.h"
#include "controls/guiwidgetmultiedit.h"
#include "controls/guiwidgetnumber.h"
#include "controls/guiwidgetpushbutton.h"
#include "controls/guiwidgetradiobutton.h"
#include "tests/controls/shownpage.h"
#include "tests/controls/stalearea.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <gtest/gtest.h>

namespace {

constexpr int kHeight = 200;

std::string field(std::string const& name, std::string const& rest = "")
{
    return "<p><input type=text size=5 name=" + name + " " + rest + "></p>";
}

std::string fields(int count, std::string const& prefix = "f")
{
    std::string page;
    for (int i = 0; i < count; ++i)
        page += field(prefix + std::to_string(i));
    return page;
}

/// A small page whose widgets are made late all the same.
struct LatePage : ShownPage
{
    explicit LatePage(std::string const& page) : ShownPage("", 300, kHeight)
    {
        window.root.setSizePolicy(kPolicyScroll);
        guiMakeWidgets(&window.root, false);
        load(page.c_str());
        window.widget->show();
        PageWindow::settle();
    }

    bool hasWidget(char const* name) { return node(name)->getChildWidget() != nullptr; }
    guiHtmlControl& control(char const* name) { return dynamic_cast<guiHtmlControl&>(*node(name)); }
    std::string text(char const* name) { return control(name).getText().c_str(); }
    bool isChecked(char const* name) { return button(name).isChecked() != 0; }
    guiHtmlControlButton& button(char const* name) { return dynamic_cast<guiHtmlControlButton&>(*node(name)); }
    guiHtmlControlList& list(char const* name) { return dynamic_cast<guiHtmlControlList&>(*node(name)); }

    /// The widget of a control that is out of view, made if need be.
    template <typename Widget>
    Widget* made(char const* name)
    {
        auto* const widget = dynamic_cast<Widget*>(control(name).needWidget());
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    void letGo(char const* name)
    {
        control(name).letGo();
        EXPECT_FALSE(hasWidget(name)) << name;
    }

    void scrollTo(int y)
    {
        window.root.getScroll().barY->setValue(y);
        PageWindow::settle();
    }
    int end() { return window.root.getScroll().barY->maximum(); }

    std::string press(int key)
    {
        QWidget* const to = window.widget->focusWidget() ? window.widget->focusWidget() : window.widget;
        QKeyEvent event(QEvent::KeyPress, key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        QCoreApplication::sendEvent(to, &event);
        PageWindow::settle();
        return focus();
    }
    std::string focus() { return window.root.getFocus().c_str(); }

    QList<QWidget*> clippers() { return window.widget->findChildren<QWidget*>("controlclipper"); }
};

/// Something to scroll past before the controls that a test is about, which are out of view then.
std::string below(std::string const& controls) { return fields(20) + controls; }

} // namespace

TEST(LateWidgets, AreMadeWhenTheirControlComesIntoView)
{
    LatePage page(fields(40));
    EXPECT_TRUE(page.hasWidget("f0"));
    EXPECT_FALSE(page.hasWidget("f39"));
    EXPECT_TRUE(page.node("f39")->awaitsWidget());
    EXPECT_LE(page.clippers().size(), 12);
    page.scrollTo(page.end());
    EXPECT_TRUE(page.hasWidget("f39"));
    EXPECT_TRUE(page.node("f39")->getChildWidget()->isVisible());
    EXPECT_FALSE(page.node("f39")->awaitsWidget());
    EXPECT_FALSE(page.hasWidget("f20"));
    EXPECT_EQ(staleArea(page.window.widget), "");
}

TEST(LateWidgets, OfALargePageAreMadeLateAndThoseOfASmallOneAtOnce)
{
    int const most = static_cast<int>(guiLateWidgets::kMostAtOnce);
    ShownPage page("", 300, kHeight);
    page.window.root.setSizePolicy(kPolicyScroll);
    page.load(fields(most).c_str());
    EXPECT_NE(page.node("f1999")->getChildWidget(), nullptr);
    page.load(fields(most + 1).c_str());
    EXPECT_EQ(page.node("f1999")->getChildWidget(), nullptr);
    EXPECT_NE(page.node("f0")->getChildWidget(), nullptr);
    EXPECT_LT(page.window.widget->findChildren<QWidget*>("controlclipper").size(), 100);
}

TEST(LateWidgets, GoWhenThePageIsScrolledFarAndKeepWhatWasTyped)
{
    int const count = static_cast<int>(guiLateWidgets::kMostAtOnce) + 500;
    ShownPage page("", 300, kHeight);
    page.window.root.setSizePolicy(kPolicyScroll);
    page.load(fields(count).c_str());
    page.window.widget->show();
    PageWindow::settle();
    QApplication::setCursorFlashTime(0);
    page.widget<QLineEdit>("f1")->setText("typed");
    QScrollBar* const bar = page.window.root.getScroll().barY;
    qsizetype most = 0;
    for (int y = 0; y < bar->maximum(); y += kHeight) {
        bar->setValue(y);
        PageWindow::settle();
        most = std::max(most, page.window.widget->findChildren<QWidget*>("controlclipper").size());
    }
    EXPECT_LT(most, 400);
    EXPECT_EQ(page.node("f1")->getChildWidget(), nullptr);
    EXPECT_EQ(std::string(page.control<guiHtmlControl>("f1").getText().c_str()), "typed");
    bar->setValue(0);
    PageWindow::settle();
    EXPECT_EQ(page.widget<QLineEdit>("f1")->text(), "typed");
    EXPECT_EQ(staleArea(page.window.widget), "");
}

TEST(LateWidgets, OfAFieldKeepItsTextAndTheCursor)
{
    LatePage page(below(field("t", "value=first")));
    EXPECT_EQ(page.text("t"), "first");
    auto* edit = page.made<QLineEdit>("t");
    EXPECT_EQ(edit->text(), "first");
    EXPECT_EQ(edit->cursorPosition(), 5);
    edit->setText("typed");
    edit->setCursorPosition(2);
    page.letGo("t");
    EXPECT_EQ(page.text("t"), "typed");
    edit = page.made<QLineEdit>("t");
    EXPECT_EQ(edit->text(), "typed");
    EXPECT_EQ(edit->cursorPosition(), 2);
}

TEST(LateWidgets, OfPasswordsAndSearchesAreOfTheirKindAgain)
{
    LatePage page(below("<input type=password name=p value=secret reveal><input type=search name=s value=x>"
                        "<input type=text name=r value=y readonly placeholder=hint>"));
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(page.made<QLineEdit>("p")->echoMode(), QLineEdit::Password);
        EXPECT_TRUE(page.made<QLineEdit>("s")->isClearButtonEnabled());
        EXPECT_TRUE(page.made<QLineEdit>("r")->isReadOnly());
        for (char const* name : {"p", "s", "r"})
            page.letGo(name);
    }
    EXPECT_EQ(page.text("p"), "secret");
}

TEST(LateWidgets, OfATextAreaKeepTextCursorAndFirstLine)
{
    std::string lines;
    for (int i = 0; i < 30; ++i)
        lines += "line " + std::to_string(i) + "\n";
    LatePage page(below("<textarea name=a rows=3 cols=20>" + lines + "</textarea>"));
    std::string const before = page.text("a");
    page.scrollTo(page.end());
    auto* area = page.widget<guiWidgetMultiEdit>("a");
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(area->toPlainText().toStdString(), before);
    QTextCursor cursor = area->textCursor();
    cursor.setPosition(100);
    area->setTextCursor(cursor);
    area->verticalScrollBar()->setValue(7);
    page.scrollTo(0);
    page.letGo("a");
    page.scrollTo(page.end());
    area = page.widget<guiWidgetMultiEdit>("a");
    EXPECT_EQ(area->textCursor().position(), 100);
    EXPECT_EQ(area->verticalScrollBar()->value(), 7);
}

TEST(LateWidgets, TextsAreWhatTheWidgetMakesOfThemBeforeThereIsOne)
{
    LatePage page(below("<textarea name=a>x</textarea>" + field("t")));
    page.control("a").setText(sstring("one\r\ntwo\xC2\xA0three\rfour"), sstring());
    page.control("t").setText(sstring(std::string(40000, 'x').c_str()), sstring());
    std::string const area = page.text("a");
    std::string const line = page.text("t");
    EXPECT_EQ(page.made<QPlainTextEdit>("a")->toPlainText().toStdString(), area);
    EXPECT_EQ(page.made<QLineEdit>("t")->text().toStdString(), line);
    EXPECT_EQ(area, "one\ntwo three\nfour");
}

TEST(LateWidgets, OfANumberKeepWhatStandsThere)
{
    LatePage page(below("<input type=number name=n value=7 min=1><input type=number name=o value=nonsense>"));
    EXPECT_EQ(page.text("n"), "7");
    EXPECT_EQ(page.text("o"), page.made<guiWidgetNumber>("o")->value().toStdString());
    page.made<guiWidgetNumber>("n")->stepBy(2);
    page.letGo("n");
    EXPECT_EQ(page.text("n"), "9");
    EXPECT_EQ(page.control("n").setText(sstring("12"), sstring()), 1);
    EXPECT_EQ(page.made<guiWidgetNumber>("n")->value(), "12");
}

TEST(LateWidgets, OfABoxKeepItsCheck)
{
    LatePage page(below("<input type=checkbox name=c><input type=checkbox name=d checked>"));
    EXPECT_FALSE(page.isChecked("c"));
    EXPECT_TRUE(page.isChecked("d"));
    page.made<QCheckBox>("c")->click();
    page.letGo("c");
    EXPECT_TRUE(page.isChecked("c"));
    page.button("d").setChecked(0);
    EXPECT_FALSE(page.made<QCheckBox>("d")->isChecked());
    EXPECT_TRUE(page.made<QCheckBox>("c")->isChecked());
}

TEST(LateWidgets, OfAButtonShowItsCaptionAndPressIt)
{
    LatePage page(below("<input type=submit name=b value='Send it'>"));
    EXPECT_EQ(page.made<guiWidgetPushButton>("b")->text(), "Send it");
    page.letGo("b");
    EXPECT_EQ(page.made<guiWidgetPushButton>("b")->owner, page.node("b"));
}

TEST(LateWidgets, OfASelectShowItsFirstEntryIfThePageSelectsNone)
{
    LatePage page(below("<select name=s><option value=a>One<option value=b>Two<option value=c>Three</select>"
                        "<select name=t><option value=a>One<option value=b selected>Two</select>"));
    EXPECT_EQ(std::string(page.list("s").getSelected().c_str()), "a");
    EXPECT_EQ(std::string(page.list("t").getSelected().c_str()), "b");
    EXPECT_EQ(page.made<QComboBox>("s")->currentIndex(), 0);
    EXPECT_EQ(page.made<QComboBox>("t")->currentIndex(), 1);
    page.made<QComboBox>("s")->setCurrentIndex(2);
    page.letGo("s");
    EXPECT_EQ(std::string(page.list("s").getSelected().c_str()), "c");
    page.list("s").setSelected(sstring("b"), 1);
    EXPECT_EQ(page.list("s").isItemSelected(sstring("b")), 1);
    EXPECT_EQ(page.list("s").isItemSelected(sstring("c")), 0);
    EXPECT_EQ(page.made<QComboBox>("s")->currentIndex(), 1);
}

TEST(LateWidgets, OfASelectWithoutASelectionHaveNoneAgain)
{
    LatePage page(below("<select name=s><option value=a>One<option value=b>Two</select>"));
    page.made<QComboBox>("s")->setCurrentIndex(-1);
    page.letGo("s");
    EXPECT_EQ(std::string(page.list("s").getSelected().c_str()), "");
    EXPECT_EQ(page.made<QComboBox>("s")->currentIndex(), -1);
}

TEST(LateWidgets, OfASelectHaveTheEntriesThatScriptAddsAndRemoves)
{
    LatePage page(below("<select name=s><option value=a>One<option value=b>Two</select>"));
    page.list("s").addItem(sstring("c"), sstring("Three"));
    EXPECT_EQ(std::string(page.list("s").getSelected().c_str()), "c");
    EXPECT_EQ(page.made<QComboBox>("s")->count(), 3);
    page.letGo("s");
    page.list("s").removeItem(sstring("a"));
    EXPECT_EQ(page.made<QComboBox>("s")->count(), 2);
    page.control("s").letGo();
    EXPECT_TRUE(page.hasWidget("s")) << "its rows and entries have different indices";
}

TEST(LateWidgets, OfRadioButtonsExcludeThoseThatHaveNone)
{
    LatePage page(field("first") + "<input type=radio name=g value=a checked>" + fields(30) +
                  "<input type=radio name=g value=b><input type=radio name=G value=c>");
    std::vector<guiHtmlControlButton*> radios;
    for (guiHtml* child : guiNodesOf(&page.window.root))
        if (auto* radio = dynamic_cast<guiHtmlControlButton*>(child))
            radios.push_back(radio);
    ASSERT_EQ(radios.size(), 3U);
    auto const states = [&] {
        std::string all;
        for (guiHtmlControlButton* radio : radios)
            all += radio->isChecked() ? '1' : '0';
        return all;
    };
    EXPECT_NE(radios[0]->getChildWidget(), nullptr);
    EXPECT_EQ(radios[1]->getChildWidget(), nullptr);
    EXPECT_EQ(states(), "100");
    radios[1]->setChecked(1);
    EXPECT_EQ(states(), "010") << "the widget that is shown is not checked any more";
    radios[1]->setChecked(0);
    EXPECT_EQ(states(), "010") << "one of a group stays checked";
    static_cast<QAbstractButton*>(radios[0]->getChildWidget())->click();
    EXPECT_EQ(states(), "100") << "the one without a widget is not checked any more";
    radios[2]->setChecked(1);
    radios[0]->letGo();
    EXPECT_EQ(radios[0]->getChildWidget(), nullptr);
    EXPECT_EQ(states(), "001");
    static_cast<QAbstractButton*>(radios[1]->needWidget())->click();
    EXPECT_EQ(states(), "010");
    for (guiHtmlControlButton* radio : radios)
        radio->needWidget();
    EXPECT_EQ(states(), "010");
}

TEST(LateWidgets, AGroupOfRadioButtonsIsOneStopAtItsCheckedButtonWhereverThatIs)
{
    LatePage page(field("before") + "<input type=radio name=g value=a>" + fields(30) +
                  "<input type=radio name=g value=b checked>" + field("after"));
    page.window.root.setFocus("before");
    EXPECT_EQ(page.press(Qt::Key_Tab), "f0");
    page.window.root.setFocus("after");
    EXPECT_EQ(page.press(Qt::Key_Backtab), "g");
    auto const* const at = dynamic_cast<QAbstractButton*>(page.window.widget->focusWidget());
    EXPECT_TRUE(at && at->isChecked());
    EXPECT_EQ(page.press(Qt::Key_Backtab), "f29");
}

TEST(LateWidgets, AnArrowKeyGoesToTheNextRadioButtonAlsoWhenItHasNone)
{
    LatePage page("<input type=radio name=g value=a checked>" + fields(30) + "<input type=radio name=g value=b>");
    page.window.root.setFocus("g");
    page.press(Qt::Key_Down);
    auto const* const at = dynamic_cast<guiWidgetRadioButton*>(page.window.widget->focusWidget());
    ASSERT_NE(at, nullptr);
    EXPECT_TRUE(at->isChecked());
    EXPECT_EQ(std::string(at->owner->getText().c_str()), "b");
    EXPECT_TRUE(at->isVisible());
}

TEST(LateWidgets, TabGoesThroughControlsThatHaveNone)
{
    LatePage page(fields(40));
    page.window.root.setFocus("f0");
    EXPECT_EQ(page.press(Qt::Key_Backtab), "f39");
    EXPECT_TRUE(page.node("f39")->getChildWidget()->isVisible());
    EXPECT_EQ(page.press(Qt::Key_Tab), "f0");
    for (int i = 1; i < 40; ++i)
        ASSERT_EQ(page.press(Qt::Key_Tab), "f" + std::to_string(i));
}

TEST(LateWidgets, TabGoesByTabIndexAndPassesOverWhatIsDisabled)
{
    LatePage page(field("c", "tabindex=3") + fields(20) + field("off", "tabindex=2 disabled") +
                  field("b", "tabindex=2") + field("a", "tabindex=1"));
    page.window.root.setFocus("a");
    EXPECT_EQ(page.press(Qt::Key_Tab), "b");
    EXPECT_EQ(page.press(Qt::Key_Tab), "c");
}

TEST(LateWidgets, OfTheControlWithTheFocusStay)
{
    LatePage page(fields(40));
    page.window.root.setFocus("f39");
    EXPECT_EQ(page.focus(), "f39");
    page.control("f39").letGo();
    EXPECT_TRUE(page.hasWidget("f39"));
    page.window.root.setFocus("f0");
    page.control("f39").letGo();
    EXPECT_FALSE(page.hasWidget("f39"));
    EXPECT_EQ(page.focus(), "f0");
}

TEST(LateWidgets, OfTheFirstControlByTabIndexAreMadeWhenTheWindowHasTheKeyboard)
{
    LatePage page(fields(30) + field("z", "tabindex=1"));
    page.window.widget->setFocus();
    EXPECT_EQ(page.press(Qt::Key_Tab), "z");
    EXPECT_TRUE(page.node("z")->getChildWidget()->isVisible());
}

TEST(LateWidgets, AreDisabledWithTheirControl)
{
    LatePage page(below(field("t")));
    page.node("t")->setEnabled(0);
    EXPECT_FALSE(page.made<QLineEdit>("t")->isEnabled());
    page.letGo("t");
    page.node("t")->setEnabled(1);
    EXPECT_TRUE(page.made<QLineEdit>("t")->isEnabled());
}

TEST(LateWidgets, OfALabelledControlAreMadeForTheLabel)
{
    LatePage page(below(field("t") + "<input type=checkbox name=c>"));
    page.node("t")->onLabel();
    EXPECT_EQ(page.focus(), "t");
    page.node("c")->onLabel();
    EXPECT_TRUE(page.isChecked("c"));
}

TEST(LateWidgets, OfAControlWithAKeyAreMadeAtOnce)
{
    LatePage page(below("<label for=t>&Town</label>" + field("t")));
    EXPECT_TRUE(page.hasWidget("t"));
}

TEST(LateWidgets, ShowWhatIsWrongAlsoWhenThatWasFoundBefore)
{
    LatePage page(below(field("t", "required")));
    EXPECT_FALSE(guiIsFormValid(&page.window.root));
    page.control("t").showMistake();
    auto const mark = [&] { return page.made<QLineEdit>("t")->findChild<guiMistakeMark*>(); };
    ASSERT_NE(mark(), nullptr);
    EXPECT_FALSE(mark()->isHidden());
    page.letGo("t");
    EXPECT_FALSE(mark()->isHidden()) << "it comes back with its mark";
    page.letGo("t");
    page.control("t").setText(sstring("x"), sstring());
    EXPECT_TRUE(guiIsFormValid(&page.window.root));
    EXPECT_TRUE(mark()->isHidden());
}

TEST(LateWidgets, OfTheFirstWrongFieldAreMadeWhenTheFormIsChecked)
{
    LatePage page(below(field("t", "required")));
    EXPECT_FALSE(guiCheckForm(&page.window.root));
    EXPECT_EQ(page.focus(), "t");
}

TEST(LateWidgets, ComeAndGoWithoutAWordToScript)
{
    LatePage page(fields(20));
    auto& edit = *page.window.place(new LinkWriter<guiHtmlControlEdit>, {0, 80, 5000, 30});
    auto& box = *page.window.place(new LinkWriter<guiHtmlControlButton>, {0, 13, 5000, 13});
    auto& list = *page.window.place(new LinkWriter<guiHtmlControlList>, {0, 80, 5000, 30});
    box.init(kButtonCheckBox, true);
    list.appendEntry("a", "One", false);
    list.appendEntry("b", "Two", true);
    edit.initText("text");
    std::vector<guiHtmlControl*> const all = {&edit, &box, &list};
    for (guiHtmlControl* control : all) {
        control->setAction("event://changed");
        control->await();
        for (int i = 0; i < 3; ++i) {
            ASSERT_NE(control->needWidget(), nullptr);
            control->letGo();
        }
    }
    EXPECT_TRUE(edit.links.empty() && box.links.empty() && list.links.empty());
    edit.setText("other");
    EXPECT_EQ(edit.links.size(), 1U) << "a value that script gives is a change, as with a widget";
    edit.setText("other");
    EXPECT_EQ(edit.links.size(), 1U);
    dynamic_cast<QLineEdit&>(*edit.needWidget()).setText("typed");
    EXPECT_EQ(edit.links.size(), 2U);
}

TEST(LateWidgets, GoWithTheWindowAndTheControlsAnswerAsBefore)
{
    LatePage page(below(field("t", "value=x")));
    page.control("t").setText(sstring("y"), sstring());
    page.window.root.destroyWidget();
    EXPECT_FALSE(page.node("t")->awaitsWidget());
    EXPECT_EQ(page.text("t"), "y");
    page.window.widget = page.window.root.createWidget(0);
    page.layOut();
    EXPECT_TRUE(page.node("t")->awaitsWidget());
    EXPECT_EQ(page.made<QLineEdit>("t")->text(), "y");
}

TEST(LateWidgets, OfAPartAreMadeWhenItIsAskedFor)
{
    ShownPage page("<table><tr><td name=part><input type=text name=t value=x><select name=s><option value=a>One"
                   "</select><input type=range name=r></td></tr></table><input type=text name=u>");
    EXPECT_NE(page.node("t")->getChildWidget(), nullptr);
    guiMakeWidgets(page.node("part"), false);
    EXPECT_EQ(page.node("t")->getChildWidget(), nullptr);
    EXPECT_EQ(page.node("s")->getChildWidget(), nullptr);
    EXPECT_NE(page.node("r")->getChildWidget(), nullptr) << "not of a frequent kind";
    EXPECT_NE(page.node("u")->getChildWidget(), nullptr);
    EXPECT_EQ(std::string(page.control<guiHtmlControlList>("s").getSelected().c_str()), "a");
    guiMakeWidgets(page.node("part"), true);
    EXPECT_NE(page.node("t")->getChildWidget(), nullptr);
    EXPECT_NE(page.node("s")->getChildWidget(), nullptr);
}
