// tests/controls/formcontrols_test.cpp: buttons, check boxes, radio buttons and fields of text: how large they are, the
// widgets that they make while their page is in a window, and how those are cut off where the page is.
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guihtmlcontrolhidden.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmlform.h"
#include "controls/guiwidgetcheckbox.h"
#include "controls/guiwidgetlineedit.h"
#include "controls/guiwidgetmultiedit.h"
#include "controls/guiwidgetpushbutton.h"
#include "controls/guiwidgetradiobutton.h"
#include "tests/controls/shownpage.h"

#include <QInputMethodEvent>

namespace {

QWidget* clipperOf(QWidget* widget)
{
    QWidget* clipper = widget->parentWidget();
    EXPECT_EQ(clipper->objectName(), "controlclipper");
    return clipper;
}

std::string textOf(sstring const& text) { return text.c_str(); }

} // namespace

TEST(ControlSizes, CheckBoxesAndRadioButtonsAreThirteenByThirteenAlsoOutsideAWindow)
{
    for (guiButtonType type : {kButtonCheckBox, kButtonRadio}) {
        guiHtmlControlButton button;
        button.init(type, false);
        EXPECT_EQ(button.getPreferredWidth(), 13);
        EXPECT_EQ(button.getHeightEstimate(100), 13);
    }
}

TEST(ControlSizes, PushButtonsAreAsWideAsTheirLabelAndTwelve)
{
    ShownPage page("<input type=submit name=b value='Save as'>");
    EXPECT_EQ(page.node("b")->getPreferredWidth(), page.metrics().horizontalAdvance("Save as") + 12);
    EXPECT_EQ(page.node("b")->getHeightEstimate(0), page.metrics().lineSpacing() + 8);
    guiHtmlControlButton lone;
    lone.initText("Save as");
    EXPECT_EQ(lone.getPreferredWidth(), 0);
    EXPECT_EQ(lone.getHeightEstimate(0), 0);
}

TEST(ControlSizes, FieldsAreAsWideAsTheirSizeInCapitalXesAndEight)
{
    ShownPage page("<input type=text name=t size=7><textarea name=a cols=11 rows=4></textarea>");
    int const letter = page.metrics().horizontalAdvance("X");
    int const line = page.metrics().lineSpacing();
    EXPECT_EQ(page.node("t")->getPreferredWidth(), 7 * letter + 8);
    EXPECT_EQ(page.node("t")->getHeightEstimate(0), line + 6);
    EXPECT_EQ(page.node("a")->getPreferredWidth(), 11 * letter + 8);
    EXPECT_EQ(page.node("a")->getHeightEstimate(0), 4 * line + 6);
    EXPECT_EQ(static_cast<int>(page.node("t")->m.activeCx), 7 * letter + 8);
    EXPECT_EQ(page.node("a")->m.rect.height, 4 * line + 6);
}

TEST(ControlSizes, FieldsAreNothingOutsideAWindowOrWithASizeOfZero)
{
    guiHtmlControlEdit lone;
    EXPECT_EQ(lone.getPreferredWidth(), 0);
    EXPECT_EQ(lone.getHeightEstimate(0), 0);
    ShownPage page("<input type=text name=t>");
    auto& edit = page.control<guiHtmlControlEdit>("t");
    edit.init({kEditText, 0, 0, 1});
    EXPECT_EQ(edit.getPreferredWidth(), 0);
    edit.init({kEditText, 2000000000, 0, 2000000000});
    EXPECT_EQ(edit.getPreferredWidth(), kMaxPixels);
    EXPECT_EQ(edit.getHeightEstimate(0), kMaxPixels);
}

TEST(ControlSizes, EveryWidgetHasTheFontOfItsNode)
{
    ShownPage page(
        "<font size=7><input type=button name=b value=Go><input type=checkbox name=c><input type=radio name=r>"
        "<input type=text name=t><textarea name=a></textarea><select name=s><option>One</select>"
        "<select name=l size=3><option>One</select></font>");
    for (char const* name : {"b", "c", "r", "t", "a", "s", "l"}) {
        EXPECT_EQ(page.widget<QWidget>(name)->font(), page.node(name)->getDefaultFont(nullptr)) << name;
        EXPECT_NE(page.widget<QWidget>(name)->font(), page.window.root.getDefaultFont(nullptr)) << name;
    }
}

TEST(ControlSizes, AreOfTheFontAroundThem)
{
    ShownPage page(
        "<font size=7><input type=button name=big value=Hello></font><input type=button name=b value=Hello>");
    EXPECT_GT(page.node("big")->getPreferredWidth(), page.node("b")->getPreferredWidth());
    EXPECT_EQ(page.widget<QWidget>("big")->font().pixelSize(), page.node("big")->getDefaultFont(nullptr).pixelSize());
}

TEST(HiddenFields, HaveNoSizeAndNoWidgetAndKeepTheTextTheyAreGiven)
{
    ShownPage page("<input type=hidden name=h value=old>x");
    auto& hidden = page.control<guiHtmlControlHidden>("h");
    EXPECT_EQ(hidden.getPreferredWidth(), 0);
    EXPECT_EQ(hidden.getHeightEstimate(50), 0);
    EXPECT_EQ(hidden.getChildWidget(), nullptr);
    EXPECT_EQ(hidden.setText("new", ""), 1);
    EXPECT_EQ(textOf(hidden.getText()), "new");
    EXPECT_EQ(hidden.getChildWidget(), nullptr);
}

TEST(ControlWidgets, AreMadeByTypeOnceThePageIsInAWindow)
{
    ShownPage page("<input type=button name=b value=Go><input type=reset name=r><input type=submit name=s>"
                   "<input type=checkbox name=c><input type=radio name=o>"
                   "<input type=text name=t><input type=file name=f><textarea name=a></textarea>");
    for (char const* name : {"b", "r", "s"})
        EXPECT_NE(page.widget<guiWidgetPushButton>(name), nullptr) << name;
    EXPECT_NE(page.widget<guiWidgetCheckBox>("c"), nullptr);
    EXPECT_NE(page.widget<guiWidgetRadioButton>("o"), nullptr);
    EXPECT_NE(page.widget<guiWidgetLineEdit>("t"), nullptr);
    EXPECT_NE(page.widget<guiWidgetLineEdit>("f"), nullptr);
    EXPECT_NE(page.widget<guiWidgetMultiEdit>("a"), nullptr);
    EXPECT_EQ(page.widget<guiWidgetPushButton>("b")->text(), "Go");
    EXPECT_EQ(page.widget<guiWidgetCheckBox>("c")->text(), "");
    EXPECT_EQ(page.widget<guiWidgetPushButton>("b")->owner, page.node("b"));
}

TEST(ControlWidgets, GoWithThePageOrTheWindowAndComeBackWithItsValues)
{
    ShownPage page("<input type=text name=t value=old><input type=checkbox name=c>");
    QPointer<QWidget> field = page.node("t")->getChildWidget();
    QPointer<QWidget> clipper = clipperOf(field);
    page.control<guiHtmlControlEdit>("t").setText("new");
    page.widget<guiWidgetCheckBox>("c")->click();
    page.window.root.destroyWidget();
    EXPECT_TRUE(field.isNull());
    EXPECT_TRUE(clipper.isNull());
    EXPECT_EQ(page.node("t")->getChildWidget(), nullptr);
    page.window.widget = page.window.root.createWidget(0);
    page.layOut();
    EXPECT_EQ(page.widget<guiWidgetLineEdit>("t")->text(), "new");
    EXPECT_TRUE(page.widget<guiWidgetCheckBox>("c")->isChecked());
    field = page.node("t")->getChildWidget();
    page.load("");
    EXPECT_TRUE(field.isNull());
}

TEST(ControlWidgets, WhatTheUserTypesIsKeptOnlyWhenItWasAskedFor)
{
    ShownPage page("<input type=text name=t value=old>");
    page.widget<guiWidgetLineEdit>("t")->setText("typed");
    page.node("t")->destroyChildWidget();
    EXPECT_EQ(textOf(page.control<guiHtmlControlEdit>("t").getText()), "old");
    page.layOut();
    page.widget<guiWidgetLineEdit>("t")->setText("typed");
    EXPECT_EQ(textOf(page.control<guiHtmlControlEdit>("t").getText()), "typed");
    page.node("t")->destroyChildWidget();
    EXPECT_EQ(textOf(page.control<guiHtmlControlEdit>("t").getText()), "typed");
}

TEST(ControlWidgets, StandInAClipperThatCutsThemOff)
{
    ShownPage page("<table><tr><td width=100 height=40 scrolling=yes>"
                   "<input type=text name=t width=80 height=60></td></tr></table>");
    QWidget* field = page.node("t")->getChildWidget();
    guiRect whole;
    guiRect shown;
    page.node("t")->getRectInWidget(&whole);
    page.node("t")->getClipRect(&shown);
    ASSERT_LT(shown.height, whole.height);
    EXPECT_EQ(clipperOf(field)->geometry(), QRect(shown.left, shown.top, shown.width, shown.height));
    EXPECT_EQ(field->geometry(), QRect(whole.left - shown.left, whole.top - shown.top, whole.width, whole.height));
}

TEST(ControlWidgets, ScrolledHalfOutOfViewShowTheirRest)
{
    ShownPage page("<table><tr><td name=cell width=100 height=40 scrolling=yes>"
                   "<input type=text name=t size=3 width=60 height=30><p>x</p><p>x</p><p>x</p></td></tr></table>");
    QWidget* field = page.node("t")->getChildWidget();
    page.node("cell")->onScrollY(10);
    EXPECT_EQ(field->geometry(), QRect(0, -10, 60, 30));
    EXPECT_EQ(clipperOf(field)->size(), QSize(60, 20));
    EXPECT_FALSE(clipperOf(field)->isHidden());
    page.node("cell")->onScrollY(35);
    EXPECT_TRUE(clipperOf(field)->isHidden());
    page.node("cell")->onScrollY(0);
    EXPECT_EQ(field->geometry(), QRect(0, 0, 60, 30));
    EXPECT_FALSE(clipperOf(field)->isHidden());
}

TEST(ControlWidgets, AreEnabledAndDisabledWithTheirNode)
{
    ShownPage page("<form name=f><input type=text name=t disabled><input type=button name=b></form>");
    EXPECT_FALSE(page.node("t")->getChildWidget()->isEnabled());
    EXPECT_TRUE(page.node("b")->getChildWidget()->isEnabled());
    page.node("f")->setEnabled(0);
    EXPECT_FALSE(page.node("b")->getChildWidget()->isEnabled());
    page.node("f")->setEnabled(1);
    EXPECT_TRUE(page.node("t")->getChildWidget()->isEnabled());
}

TEST(ControlWidgets, PasswordsAreHiddenAndFileFieldsAreNot)
{
    ShownPage page("<input type=password name=p value=secret><input type=file name=f maxlength=3>");
    EXPECT_EQ(page.widget<guiWidgetLineEdit>("p")->echoMode(), QLineEdit::Password);
    EXPECT_EQ(page.widget<guiWidgetLineEdit>("p")->text(), "secret");
    EXPECT_EQ(page.widget<guiWidgetLineEdit>("f")->echoMode(), QLineEdit::Normal);
}

TEST(ControlWidgets, TextAreasAreFieldsOfTheRowsTheyAskFor)
{
    ShownPage page("<textarea name=one rows=1></textarea><textarea name=zero rows=0></textarea>"
                   "<textarea name=two></textarea><textarea name=less rows=-1></textarea>"
                   "<textarea name=narrow cols=0></textarea>");
    EXPECT_NE(page.widget<guiWidgetLineEdit>("one"), nullptr);
    EXPECT_NE(page.widget<guiWidgetMultiEdit>("zero"), nullptr);
    EXPECT_EQ(page.control<guiHtmlControlEdit>("zero").getShape().rows, 2);
    EXPECT_NE(page.widget<guiWidgetMultiEdit>("two"), nullptr);
    EXPECT_EQ(page.node("less")->getChildWidget(), nullptr);
    EXPECT_EQ(page.control<guiHtmlControlEdit>("narrow").getShape().size, 20);
}

TEST(ControlWidgets, CheckBoxesAndRadioButtonsAreDrawnWhole)
{
    ShownPage page("<input type=checkbox name=c><input type=radio name=r>");
    for (char const* name : {"c", "r"}) {
        QWidget* widget = page.node(name)->getChildWidget();
        ASSERT_EQ(widget->size(), QSize(13, 13));
        QImage image(13, 13, QImage::Format_RGB32);
        image.fill(Qt::white);
        widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        auto hasInk = [&](int x, int y) { return qGray(image.pixel(x, y)) < 230; };
        EXPECT_TRUE(hasInk(0, 6) || hasInk(1, 6)) << name;
        EXPECT_TRUE(hasInk(11, 6) || hasInk(12, 6)) << name;
        EXPECT_TRUE(hasInk(6, 0) || hasInk(6, 1)) << name;
        EXPECT_TRUE(hasInk(6, 11) || hasInk(6, 12)) << name;
    }
}

TEST(ControlText, SettingItMakesTheWidgetAnew)
{
    ShownPage page("<input type=button name=b value=OK>");
    EXPECT_EQ(page.node("b")->setText("A longer label", ""), 1);
    EXPECT_EQ(page.widget<guiWidgetPushButton>("b")->text(), "A longer label");
    EXPECT_EQ(page.widget<guiWidgetPushButton>("b")->width(), page.metrics().horizontalAdvance("A longer label") + 12);
    EXPECT_EQ(textOf(page.control<guiHtmlControlButton>("b").getText()), "A longer label");
}

TEST(ControlText, OfAFieldIsSetInTheWidgetThatStands)
{
    ShownPage page("<input type=text name=t><textarea name=a></textarea>");
    QWidget* field = page.node("t")->getChildWidget();
    EXPECT_EQ(page.control<guiHtmlControlEdit>("t").setText("one"), 1);
    EXPECT_EQ(page.node("t")->getChildWidget(), field);
    EXPECT_EQ(page.widget<guiWidgetLineEdit>("t")->text(), "one");
    page.control<guiHtmlControlEdit>("a").setText("two\nlines");
    EXPECT_EQ(page.widget<guiWidgetMultiEdit>("a")->toPlainText(), "two\nlines");
    page.widget<guiWidgetMultiEdit>("a")->setPlainText("typed");
    EXPECT_EQ(textOf(page.control<guiHtmlControlEdit>("a").getText()), "typed");
}

TEST(ControlText, OfAFieldKeepsTheCursorAndWhatCanBeUndone)
{
    ShownPage page("<input type=text name=t value=first>");
    auto* field = page.widget<guiWidgetLineEdit>("t");
    field->setCursorPosition(3);
    field->insert("XY");
    for (char const* text : {"a longer text", "abc", "abc"}) {
        EXPECT_EQ(page.node("t")->setText(sstring(text), sstring()), 1);
        ASSERT_EQ(page.node("t")->getChildWidget(), field) << "which keeps the focus, too";
        EXPECT_EQ(field->text(), text);
        EXPECT_EQ(field->cursorPosition(), std::min(5, static_cast<int>(field->text().size())));
        EXPECT_FALSE(field->hasSelectedText());
    }
    for (char const* before : {"a longer text", "firXYst", "first"}) {
        field->undo();
        EXPECT_EQ(field->text(), before);
    }
}

TEST(ControlText, OfATextAreaKeepsTheCursorAndWhatCanBeUndone)
{
    ShownPage page("<textarea name=a>one\ntwo</textarea>");
    auto* area = page.widget<guiWidgetMultiEdit>("a");
    QTextCursor cursor = area->textCursor();
    cursor.setPosition(5);
    cursor.insertText("XY");
    area->setTextCursor(cursor);
    for (char const* text : {"a longer\ntext", "abc", "abc"}) {
        EXPECT_EQ(page.node("a")->setText(sstring(text), sstring()), 1);
        ASSERT_EQ(page.node("a")->getChildWidget(), area) << "which keeps the focus, too";
        EXPECT_EQ(area->toPlainText(), text);
        EXPECT_EQ(area->textCursor().position(), std::min(7, static_cast<int>(area->toPlainText().size())));
        EXPECT_FALSE(area->textCursor().hasSelection());
    }
    for (char const* before : {"a longer\ntext", "one\ntXYwo", "one\ntwo"}) {
        area->undo();
        EXPECT_EQ(area->toPlainText(), before);
    }
}

TEST(ControlText, OfAFieldFollowsTheLinkOnlyWhenTheFormSetsIt)
{
    using Edit = LinkWriter<guiHtmlControlEdit>;
    PageWindow window;
    for (int rows : {1, 3}) {
        auto* edit = new Edit;
        window.root.append(edit);
        edit->init({kEditText, 20, 0, rows});
        edit->setAction("event://c");
        EXPECT_EQ(edit->setText(sstring("early")), 1);
        window.root.updateLayout(1);
        ASSERT_TRUE(edit->getChildWidget());
        EXPECT_EQ(edit->setText(sstring("script"), sstring()), 1);
        EXPECT_EQ(edit->links.size(), 0u);
        EXPECT_EQ(edit->setText(sstring("form")), 1);
        EXPECT_EQ(edit->setText(sstring("form")), 1);
        EXPECT_EQ(edit->links.size(), 1u);
    }
}

TEST(ControlText, OfATextAreaIsReportedOnlyWhenItDiffers)
{
    using Edit = LinkWriter<guiHtmlControlEdit>;
    PageWindow window;
    auto* edit = new Edit;
    window.root.append(edit);
    edit->initText("ab");
    edit->init({kEditText, 20, 0, 3});
    edit->setAction("event://c");
    window.root.updateLayout(1);
    QWidget* const area = edit->getChildWidget();
    ASSERT_TRUE(area);
    auto compose = [&](char const* shown, char const* typed) {
        QInputMethodEvent step(shown, {});
        step.setCommitString(typed);
        QCoreApplication::sendEvent(area, &step);
    };
    compose("x", "");
    compose("xy", "");
    EXPECT_EQ(edit->links.size(), 0u) << "what is being composed is not in the text yet";
    compose("", "z");
    EXPECT_EQ(edit->links.size(), 1u);
    EXPECT_EQ(textOf(edit->getText()), "zab");
    compose("x", "");
    compose("", "");
    EXPECT_EQ(edit->links.size(), 1u) << "given up";
    static_cast<guiWidgetMultiEdit*>(area)->setPlainText("zab");
    EXPECT_EQ(edit->links.size(), 1u);
}

TEST(CheckedState, IsTheWidgetsWhileThereIsOne)
{
    ShownPage page("<input type=checkbox name=c checked><input type=checkbox name=d>");
    auto& box = page.control<guiHtmlControlButton>("c");
    EXPECT_TRUE(page.widget<guiWidgetCheckBox>("c")->isChecked());
    page.widget<guiWidgetCheckBox>("c")->click();
    EXPECT_EQ(box.isChecked(), 0);
    page.widget<guiWidgetCheckBox>("c")->click();
    box.setChecked(0);
    EXPECT_FALSE(page.widget<guiWidgetCheckBox>("c")->isChecked());
    box.setChecked(7);
    EXPECT_EQ(box.isChecked(), 1);
}

TEST(CheckedState, RadioButtonsOfOneNameExcludeEachOther)
{
    ShownPage page("<input type=radio name=r value=a checked><input type=radio name=r value=b>"
                   "<input type=radio name=other checked>");
    auto& first = page.control<guiHtmlControlButton>("r");
    auto* second = dynamic_cast<guiHtmlControlButton*>(first.getParent()->getChild(1));
    ASSERT_NE(second, nullptr);
    second->setChecked(1);
    EXPECT_EQ(first.isChecked(), 0);
    EXPECT_EQ(second->isChecked(), 1);
    EXPECT_EQ(page.control<guiHtmlControlButton>("other").isChecked(), 1);
    second->setChecked(0); // the toolkit refuses
    EXPECT_EQ(second->isChecked(), 1);
}

TEST(ClickedButtons, FollowTheirLinkOrAsSubmitButtonsTheirForms)
{
    guiHtmlForm form;
    form.setAction("event://form");
    auto* button = new LinkWriter<guiHtmlControlButton>;
    form.append(new guiHtml)->append(button);
    button->init(kButtonSubmit, false);
    button->triggerNow();
    button->setAction("event://own");
    button->onClick();
    EXPECT_EQ(button->links, (std::vector<std::string>{"event://form", "event://own"}));
}

TEST(ClickedButtons, DoNothingWithoutALink)
{
    guiHtmlForm form;
    form.setAction("event://form");
    for (guiButtonType type : {kButtonPlain, kButtonReset, kButtonCheckBox, kButtonRadio}) {
        auto* button = new LinkWriter<guiHtmlControlButton>;
        form.append(button);
        button->init(type, false);
        button->onClick();
        EXPECT_TRUE(button->links.empty()) << type;
    }
    LinkWriter<guiHtmlControlButton> outside;
    outside.init(kButtonSubmit, false);
    outside.onClick();
    form.setAction("");
    auto* inside = new LinkWriter<guiHtmlControlButton>;
    form.append(inside);
    inside->init(kButtonSubmit, false);
    inside->onClick();
    EXPECT_TRUE(outside.links.empty() && inside->links.empty());
}

TEST(ChangedFields, KeepTheirTextAndFollowTheirLinkOnlyWhenTheyHaveOne)
{
    LinkWriter<guiHtmlControlEdit> edit;
    edit.initText("old");
    edit.onChange("new");
    EXPECT_EQ(textOf(edit.getText()), "old");
    edit.setAction("event://c");
    edit.onChange("newer");
    EXPECT_EQ(textOf(edit.getText()), "newer");
    EXPECT_EQ(edit.links, std::vector<std::string>{"event://c"});
}

TEST(ControlCopies, HaveTheFieldsAndNoWidgets)
{
    ShownPage page("<input type=password name=t value=v size=9 onchange=event://c>"
                   "<input type=checkbox name=c value=yes checked>");
    std::unique_ptr<guiHtml> edit(page.node("t")->Clone(nullptr));
    auto& copy = dynamic_cast<guiHtmlControlEdit&>(*edit);
    EXPECT_EQ(textOf(copy.getText() + copy.getAction()), "vevent://c");
    EXPECT_EQ(copy.getShape().size, 9);
    EXPECT_EQ(copy.getChildWidget(), nullptr);
    std::unique_ptr<guiHtml> box(page.node("c")->Clone(nullptr));
    EXPECT_EQ(dynamic_cast<guiHtmlControlButton&>(*box).isChecked(), 1);
    EXPECT_NE(page.node("t")->getChildWidget(), nullptr);
}

TEST(ControlFocus, FollowsTheTabIndexAndThenThePage)
{
    ShownPage page("<input type=text name=c><input type=text name=a tabindex=1>"
                   "<input type=text name=d><input type=text name=b tabindex=2>");
    QWidget* at = page.node("a")->getChildWidget();
    for (char const* name : {"b", "c", "d"}) {
        at = at->nextInFocusChain();
        while (!at->findChildren<QWidget*>().isEmpty() || at->focusPolicy() == Qt::NoFocus)
            at = at->nextInFocusChain();
        EXPECT_EQ(at, page.node(name)->getChildWidget()) << name;
    }
}

TEST(OwnData, IsEmptyWhereThePageSaysSoAndOneWithoutAnEqualsSign)
{
    ShownPage page(
        "<input type=text name=t value=\"\"><input type=text name=u value><input type=checkbox name=c value=\"\">"
        "<input type=hidden name=h value=''><select name=s><option value=\"\" selected>Choose<option value>One</select>"
        "<table name=\"\" caption=\"\"><tr><td name>x</td></tr></table>");
    auto text = [&](char const* name) { return std::string(page.control<guiHtmlControl>(name).getText().c_str()); };
    EXPECT_EQ(text("t"), "");
    EXPECT_EQ(text("u"), "1");
    EXPECT_EQ(text("c"), "");
    EXPECT_EQ(text("h"), "");
    auto& list = page.control<guiHtmlControlList>("s");
    EXPECT_EQ(std::string(list.getEntry(0)->value.c_str()), "");
    EXPECT_EQ(std::string(list.getEntry(0)->text.c_str()), "Choose");
    EXPECT_EQ(std::string(list.getEntry(1)->value.c_str()), "1");
    guiHtml* table = page.node("1")->getParent(); // the cell's name is the one without "="
    EXPECT_FALSE(table->hasString(kStringName));
    EXPECT_FALSE(table->hasString(kStringCaption));
}
