// tests/controls/fields_test.cpp: what a page asks of text fields and boxes: how many characters, completion, labels,
// titles, and what counts as wrong.
#include "controls/guiformcheck.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmlform.h"
#include "controls/guimistakemark.h"
#include "controls/guitextlimit.h"
#include "controls/guititle.h"
#include "controls/guiwidgetcheckbox.h"
#include "controls/guiwidgetcombobox.h"
#include "controls/guiwidgetlineedit.h"
#include "controls/guiwidgetmultiedit.h"
#include "controls/guiwidgetradiobutton.h"
#include "page/guihtmltext.h"
#include "tests/controls/shownpage.h"

#include <QApplication>
#include <QCompleter>
#include <QFocusEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QToolTip>

namespace {

QString const kAccent = QString::fromUtf8("e\xCC\x81");                      // one character of two units
QString const kFlag = QString::fromUtf8("\xF0\x9F\x87\xA9\xF0\x9F\x87\xAA"); // one of four

std::string mistakeOf(ShownPage& page, char const* name)
{
    return page.control<guiHtmlControl>(name).getMistake().c_str();
}

bool isMarked(ShownPage& page, char const* name)
{
    auto const* mark = page.node(name)->getChildWidget()->findChild<guiMistakeMark*>();
    return mark && !mark->isHidden();
}

void leave(QWidget* widget, Qt::FocusReason reason = Qt::TabFocusReason)
{
    QFocusEvent out(QEvent::FocusOut, reason);
    QCoreApplication::sendEvent(widget, &out);
}

} // namespace

TEST(TextLimit, CountsWhatTheUserSees)
{
    EXPECT_EQ(guiCharactersIn(""), 0);
    EXPECT_EQ(guiCharactersIn("abc"), 3);
    EXPECT_EQ(guiCharactersIn(kAccent + kFlag + kFlag), 3);
}

TEST(TextLimit, CutsWhatIsTypedToWhatFitsBetweenTwoTexts)
{
    EXPECT_EQ(guiFitting("ab", "cdef", "gh", 6), "cd");
    EXPECT_EQ(guiFitting("ab", "cd", "", 6), "cd");
    EXPECT_EQ(guiFitting("abcdefg", "x", "", 6), "");
    EXPECT_EQ(guiFitting("a", kFlag + kAccent + "z", "b", 4), kFlag + kAccent);
}

TEST(TextLimit, OfAFieldRefusesWhatIsTooMuchAndKeepsWhatCanBeUndone)
{
    ShownPage page("<input type=text name=t maxlength=3 value=ab>");
    auto* field = page.widget<guiWidgetLineEdit>("t");
    field->setCursorPosition(1);
    field->insert("x");
    field->insert("y");
    EXPECT_EQ(field->text(), "axb");
    field->undo();
    EXPECT_EQ(field->text(), "ab");
    field->end(false);
    field->insert(kFlag + "cd");
    EXPECT_EQ(field->text(), "ab" + kFlag);
}

TEST(TextLimit, DoesNotHoldForThePageAndScript)
{
    ShownPage page("<input type=text name=t maxlength=3 value=longer><textarea name=a maxlength=2>longer</textarea>");
    auto* field = page.widget<guiWidgetLineEdit>("t");
    EXPECT_EQ(field->text(), "longer");
    field->insert("x");
    EXPECT_EQ(field->text(), "longer");
    field->backspace();
    EXPECT_EQ(field->text(), "longe");
    page.node("t")->setText("even longer", "");
    EXPECT_EQ(field->text(), "even longer");
    EXPECT_EQ(page.widget<guiWidgetMultiEdit>("a")->toPlainText(), "longer");
}

TEST(TextLimit, OfNothingOrLessIsNone)
{
    for (char const* most : {"0", "-3", "x"}) {
        ShownPage page(("<input type=text name=t maxlength=" + std::string(most) + ">").c_str());
        page.widget<guiWidgetLineEdit>("t")->insert("any length");
        EXPECT_EQ(page.widget<guiWidgetLineEdit>("t")->text(), "any length") << most;
    }
}

TEST(FieldAttributes, AreInTheWidgets)
{
    ShownPage page(
        "<input type=text name=t placeholder='Your name' readonly>"
        "<textarea name=a placeholder=Notes wrap=off readonly></textarea><textarea name=s wrap=soft></textarea>"
        "<input type=search name=q><input type=text name=plain>");
    EXPECT_EQ(page.widget<guiWidgetLineEdit>("t")->placeholderText(), "Your name");
    EXPECT_TRUE(page.widget<guiWidgetLineEdit>("t")->isReadOnly());
    EXPECT_EQ(page.widget<guiWidgetMultiEdit>("a")->placeholderText(), "Notes");
    EXPECT_TRUE(page.widget<guiWidgetMultiEdit>("a")->isReadOnly());
    EXPECT_EQ(page.widget<guiWidgetMultiEdit>("a")->lineWrapMode(), QPlainTextEdit::NoWrap);
    EXPECT_EQ(page.widget<guiWidgetMultiEdit>("s")->lineWrapMode(), QPlainTextEdit::WidgetWidth);
    EXPECT_TRUE(page.widget<guiWidgetLineEdit>("q")->isClearButtonEnabled());
    EXPECT_FALSE(page.widget<guiWidgetLineEdit>("plain")->isReadOnly());
}

TEST(FieldAttributes, AreCopied)
{
    ShownPage page("<input type=text name=t placeholder=hint required>");
    std::unique_ptr<guiHtml> copy(page.node("t")->Clone(nullptr));
    page.window.root.append(copy.get());
    copy.release()->setString(kStringName, "copy");
    page.layOut();
    EXPECT_EQ(page.widget<guiWidgetLineEdit>("copy")->placeholderText(), "hint");
    EXPECT_NE(mistakeOf(page, "copy"), "");
}

TEST(Completion, HasTheOptionsOfTheListOfThatNameWhereverItStands)
{
    ShownPage page("<input type=text name=t list=towns><datalist id=towns><option value=Bern><option>Ulm</datalist>"
                   "<input type=text name=u list=nobody><input type=text name=v list=t>");
    QCompleter* completer = page.widget<guiWidgetLineEdit>("t")->completer();
    ASSERT_TRUE(completer);
    completer->setCompletionPrefix("");
    EXPECT_EQ(completer->completionCount(), 2);
    completer->setCompletionPrefix("LM");
    EXPECT_EQ(completer->currentCompletion(), "Ulm");
    EXPECT_FALSE(page.widget<guiWidgetLineEdit>("u")->completer());
    EXPECT_FALSE(page.widget<guiWidgetLineEdit>("v")->completer());
}

TEST(Mistakes, AreWhatIsMissingOrDoesNotMatchAsAWhole)
{
    ShownPage page(
        "<input type=text name=r required><input type=text name=p pattern='[0-9][0-9]*' title='A number'>"
        "<input type=text name=a pattern='^ab*$'><input type=text name=free><textarea name=t required></textarea>");
    EXPECT_EQ(mistakeOf(page, "r"), "This has to be filled in.");
    EXPECT_EQ(mistakeOf(page, "t"), "This has to be filled in.");
    page.widget<guiWidgetLineEdit>("r")->setText("x");
    EXPECT_EQ(mistakeOf(page, "r"), "");
    EXPECT_EQ(mistakeOf(page, "p"), "") << "nothing is asked of an empty field";
    for (auto const& [text, mistake] : {std::pair("12", ""), {"x12", "A number"}, {"12x", "A number"}}) {
        page.widget<guiWidgetLineEdit>("p")->setText(text);
        EXPECT_EQ(mistakeOf(page, "p"), mistake) << text;
    }
    page.widget<guiWidgetLineEdit>("a")->setText("abb");
    EXPECT_EQ(mistakeOf(page, "a"), "");
    page.widget<guiWidgetLineEdit>("a")->setText("babb");
    EXPECT_NE(mistakeOf(page, "a"), "");
    EXPECT_EQ(mistakeOf(page, "free"), "");
}

TEST(Mistakes, OfWhatNobodyCanChangeDoNotCount)
{
    ShownPage page(
        "<form name=f><input type=text name=d required disabled><input type=text name=o required readonly></form>");
    EXPECT_EQ(mistakeOf(page, "d"), "");
    EXPECT_EQ(mistakeOf(page, "o"), "");
    EXPECT_TRUE(guiIsFormValid(page.node("f")));
    page.node("d")->setEnabled(1);
    EXPECT_FALSE(guiIsFormValid(page.node("f")));
}

TEST(Mistakes, OfBoxesAreThatTheyAreOffAndOfRadioButtonsThatNoneIsOn)
{
    ShownPage page("<input type=checkbox name=c required><input type=radio name=r value=a required>"
                   "<input type=radio name=R value=b><input type=radio name=other checked>");
    EXPECT_EQ(mistakeOf(page, "c"), "This box has to be ticked.");
    page.widget<guiWidgetCheckBox>("c")->click();
    EXPECT_EQ(mistakeOf(page, "c"), "");
    EXPECT_EQ(mistakeOf(page, "r"), "One of these has to be chosen.");
    page.control<guiHtmlControl>("r").showMistake();
    EXPECT_TRUE(isMarked(page, "r"));
    dynamic_cast<guiHtmlControlButton&>(*page.node("r")->getParent()->getChild(2)).setChecked(1);
    EXPECT_EQ(mistakeOf(page, "r"), "");
    EXPECT_FALSE(isMarked(page, "r"));
}

TEST(Mistakes, OfSelectsAreThatNothingIsChosenOrOnlyWhatStandsForNothing)
{
    ShownPage page("<select name=s required><option value='' selected>Choose<option value=a>A</select>"
                   "<select name=l size=3 required multiple><option>a<option>b</select>"
                   "<select name=e edit required><option>a</select><select name=free><option value=''>none</select>");
    EXPECT_EQ(mistakeOf(page, "s"), "One of these has to be chosen.");
    EXPECT_EQ(mistakeOf(page, "l"), "One of these has to be chosen.");
    EXPECT_EQ(mistakeOf(page, "free"), "");
    for (char const* name : {"s", "l"}) {
        page.control<guiHtmlControl>(name).showMistake();
        EXPECT_TRUE(isMarked(page, name));
        page.control<guiHtmlControlList>(name).setSelected("a", 1);
        EXPECT_EQ(mistakeOf(page, name), "");
        EXPECT_FALSE(isMarked(page, name));
    }
    auto* typed = page.widget<guiWidgetComboBox>("e");
    typed->setEditText("");
    page.control<guiHtmlControl>("e").showMistake();
    EXPECT_EQ(mistakeOf(page, "e"), "This has to be filled in.");
    typed->setEditText("b");
    EXPECT_FALSE(isMarked(page, "e"));
    page.control<guiHtmlControlList>("s").clear();
    EXPECT_TRUE(isMarked(page, "s"));
}

TEST(Marks, AppearWhenTheUserLeavesAndFollowTheValueFromThenOn)
{
    ShownPage page("<input type=text name=r required title='Your name'>");
    auto* field = page.widget<guiWidgetLineEdit>("r");
    EXPECT_FALSE(isMarked(page, "r"));
    for (Qt::FocusReason back : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason, Qt::MenuBarFocusReason})
        leave(field, back);
    EXPECT_FALSE(isMarked(page, "r"));
    leave(field);
    EXPECT_TRUE(isMarked(page, "r"));
    EXPECT_TRUE(field->toolTip().contains("has to be filled in"));
    field->setText("x");
    EXPECT_FALSE(isMarked(page, "r"));
    EXPECT_EQ(field->toolTip(), "<qt>Your name</qt>");
    field->clear();
    EXPECT_TRUE(isMarked(page, "r"));
    page.control<guiHtmlControlEdit>("r").setText("script");
    EXPECT_FALSE(isMarked(page, "r"));
}

TEST(SubmitButtons, FollowTheirLinkOnlyFromAFormWithoutMistakes)
{
    ShownPage page("<form name=f action='event://form'><input type=text name=r required></form>");
    std::vector<LinkWriter<guiHtmlControlButton>*> buttons;
    for (bool checks : {true, false}) {
        buttons.push_back(new LinkWriter<guiHtmlControlButton>);
        page.node("f")->append(buttons.back());
        buttons.back()->init(kButtonSubmit, false);
        buttons.back()->setChecksForm(checks);
        buttons.back()->onClick();
    }
    EXPECT_EQ(buttons[0]->links.size(), 0u);
    EXPECT_EQ(buttons[1]->links.size(), 1u);
    EXPECT_TRUE(isMarked(page, "r"));
    EXPECT_EQ(page.window.root.getFocus(), sstring("r"));
    page.widget<guiWidgetLineEdit>("r")->setText("x");
    buttons[0]->onClick();
    EXPECT_EQ(buttons[0]->links.size(), 1u);
}

TEST(Labels, UnderlineTheirKeyAndGiveOneAmpersandForTwo)
{
    ShownPage page("<label for=a>&Name && &more</label><input type=text name=a><label for=b>Fish & chips</label> & co");
    auto textAt = [&](unsigned index) {
        return std::string(static_cast<guiHtmlText*>(page.window.root.getChild(index))->getText().c_str());
    };
    EXPECT_EQ(textAt(0), "[[l a]][[u]]N[[/u]]ame & &more[[/l]]");
    EXPECT_EQ(textAt(2), "[[l b]]Fish & chips[[/l]] & co");
    ASSERT_EQ(page.window.widget->findChildren<QShortcut*>().size(), 1);
    EXPECT_EQ(page.window.widget->findChild<QShortcut*>()->key(), QKeySequence(Qt::ALT | Qt::Key_N));
    emit page.window.widget->findChild<QShortcut*>()->activated();
    EXPECT_EQ(page.window.root.getFocus(), sstring("a"));
    page.window.root.destroyChildWidget();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(page.window.widget->findChildren<QShortcut*>().size(), 0);
}

TEST(Labels, ActOnTheControlThatTheyNameOrHold)
{
    ShownPage page("<label for=late>Late</label><label><input type=checkbox name=c> Box</label>"
                   "<label>Off <input type=checkbox name=d disabled></label>"
                   "<label><input type=radio name=r value=a> A</label><input type=text name=late>");
    std::vector<std::pair<guiHtml*, guiHotspot>> labels;
    for (guiHtml* child : guiNodesOf(&page.window.root))
        if (child->getType() == guiHtml::kTypeText)
            for (guiHotspot const& spot : static_cast<guiHtmlText*>(child)->mx.hotspots)
                labels.emplace_back(child, spot);
    ASSERT_EQ(labels.size(), 4u);
    auto pressLabel = [&](unsigned index) {
        auto const& [run, spot] = labels[index];
        run->onMouseMove(spot.left, spot.top);
        run->onMouseDown(spot.left, spot.top);
    };
    pressLabel(0);
    EXPECT_EQ(page.window.root.getFocus(), sstring("late"));
    EXPECT_EQ(page.window.widget->cursor().shape(), Qt::ArrowCursor);
    pressLabel(1);
    EXPECT_TRUE(page.widget<guiWidgetCheckBox>("c")->isChecked());
    EXPECT_EQ(page.window.root.getFocus(), sstring("c"));
    pressLabel(2);
    EXPECT_FALSE(page.widget<guiWidgetCheckBox>("d")->isChecked());
    pressLabel(3);
    EXPECT_TRUE(page.widget<guiWidgetRadioButton>("r")->isChecked());
}

TEST(Titles, AreTheTipsOfControlsAndOfTheInnermostElementAtAPoint)
{
    ShownPage page("<table title=outer width=300 height=100 cellpadding=10><tr><td title='a <b>' width=100 height=50>"
                   "text</td></tr></table><input type=button name=b value=x title='press'>");
    EXPECT_EQ(page.widget<QWidget>("b")->toolTip(), "<qt>press</qt>");
    guiRect const rect = page.window.root.getChild(0)->m.rect;
    EXPECT_EQ(guiTitleAt(&page.window.root, {rect.left + 30, rect.top + 30}), sstring("a <b>"));
    EXPECT_EQ(guiTitleAt(&page.window.root, {rect.left + 2, rect.top + 2}), sstring("outer"));
    EXPECT_EQ(guiTitleAt(&page.window.root, {rect.left + 2, rect.bottom() + 60}), sstring(""));
    EXPECT_EQ(guiTipOf("a <b>"), "<qt>a &lt;b&gt;</qt>");
}

TEST(Titles, OfLinksAreTheTipsOfTheirTextAlone)
{
    ShownPage page(
        "plain <a href=one.html title=First>one</a> <a href=two.html>two</a> <a href=3.html title='a b'>3</a>");
    auto* run = static_cast<guiHtmlText*>(page.window.root.getChild(0));
    ASSERT_EQ(run->mx.hotspots.size(), 3u);
    auto titleOf = [&](int x) {
        return std::string(guiTitleAt(&page.window.root, {run->m.rect.left + x, run->m.rect.top + 5}).c_str());
    };
    EXPECT_EQ(titleOf(run->mx.hotspots[0].left + 1), "First");
    EXPECT_EQ(titleOf(run->mx.hotspots[1].left + 1), "");
    EXPECT_EQ(titleOf(run->mx.hotspots[2].left + 1), "a b");
    EXPECT_EQ(titleOf(6), "");
}

TEST(Fieldsets, AreGroupBoxesWithTheirLegendAsTitle)
{
    ShownPage page(
        "<fieldset name=a><legend>Your &amp; mine</legend><input type=text name=t></fieldset>"
        "<fieldset name=b border=4 cellpadding=3 disabled><input type=text name=u></fieldset><legend>text</legend>");
    EXPECT_EQ(page.node("a")->getString(kStringCaption), sstring("Your & mine"));
    EXPECT_EQ(page.node("a")->m.border, 2);
    EXPECT_EQ(page.node("a")->m.space, 8);
    EXPECT_EQ(page.node("b")->getString(kStringCaption), sstring(kEmptyGroupBox));
    EXPECT_EQ(page.node("b")->m.border, 4);
    EXPECT_EQ(page.node("b")->m.space, 3);
    EXPECT_TRUE(page.node("t")->getChildWidget()->isEnabled());
    EXPECT_FALSE(page.node("u")->getChildWidget()->isEnabled());
    EXPECT_EQ(page.window.root.getLastChild()->getRunText(), sstring("text"));
    EXPECT_LT(page.node("a")->m.rect.bottom(), page.node("b")->m.rect.top + 1);
}

TEST(Placeholders, ArePaleOnAnyGround)
{
    QPalette const before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    for (QPalette const& palette : {before, dark}) {
        QApplication::setPalette(palette);
        ShownPage page("<input type=text name=t placeholder=x><textarea name=a placeholder=x></textarea>"
                       "<input type=number name=n placeholder=x><input type=date name=d>");
        for (char const* name : {"t", "a", "n", "d"}) {
            QWidget* widget = page.node(name)->getChildWidget();
            if (QWidget* edit = widget->findChild<QLineEdit*>())
                widget = edit;
            int const text = widget->palette().color(QPalette::Text).lightness();
            EXPECT_NEAR(widget->palette().color(QPalette::PlaceholderText).lightness(), text, 64) << name;
        }
    }
    QApplication::setPalette(before);
}
