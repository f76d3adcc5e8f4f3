// tests/controls/findbar_test.cpp: finding text on a page with the bar, and the context menu for text.
#include "tests/controls/shownpage.h"

#include "controls/guifind.h"
#include "controls/guifindbar.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlsheet.h"
#include "page/guihtmltext.h"
#include "page/guipagetext.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <string>

namespace {

class FindBar : public testing::Test
{
protected:
    FindBar() { QApplication::clipboard()->clear(); }
    ~FindBar() override
    {
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    }

    void show(char const* body, char const* attributes = "")
    {
        std::string const page =
            std::string("<html><body ") + attributes + " valign=\"top\">" + body + "</body></html>";
        shown.load(page.c_str());
        shown.layOut();
    }

    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier, QWidget* to = nullptr)
    {
        QKeyEvent event(QEvent::KeyPress, code, modifiers);
        QApplication::sendEvent(to ? to : shown.window.widget, &event);
    }
    void open() { key(Qt::Key_F, Qt::ControlModifier); }
    guiFindBar* bar() { return shown.window.widget->findChild<guiFindBar*>(); }
    bool isOpen() { return bar() && bar()->isOpen(); }
    QLineEdit* field() { return bar()->findChild<QLineEdit*>(); }
    std::string count() { return bar()->findChild<QLabel*>()->text().toStdString(); }

    std::string selected()
    {
        guiPageText* text = shown.window.root.pageText();
        return text ? text->selection.text().toStdString() : "";
    }

    /// The menu that the right button shows at a point; null for none.
    QMenu* menuAt(QPoint at)
    {
        guiWidget* widget = shown.window.widget;
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
        QApplication::sendEvent(widget, &event);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    static std::string itemsOf(QMenu const* menu)
    {
        std::string items;
        for (QAction const* each : menu->actions())
            if (!each->isSeparator())
                items += (each->isEnabled() ? "" : "-") + each->text().section(u'\t', 0, 0).toStdString() + "|";
        return items;
    }
    QPoint placeOf(char const* text)
    {
        guiTextFlow const flow(&shown.window.root, guiTextFlow::scope::kAll);
        for (std::size_t i = 0; i < flow.size(); ++i) {
            qsizetype const at = flow[i].node->editText().view().indexOf(QString::fromUtf8(text));
            if (at >= 0)
                return guiCaretOf({flow[i].node, static_cast<unsigned>(at)}).center();
        }
        ADD_FAILURE() << text << " is not on the page";
        return {};
    }

    ShownPage shown{"<html><body></body></html>"};
};

TEST_F(FindBar, MarksWhileTheUserTypesAndGoesFromPlaceToPlace)
{
    show("<p>tea, Tea</p><p>more tea</p>");
    EXPECT_FALSE(bar());
    open();
    ASSERT_TRUE(isOpen());
    field()->setText(QStringLiteral("tea"));
    EXPECT_EQ(count(), "1 of 3");
    EXPECT_EQ(selected(), "tea");
    key(Qt::Key_Return, Qt::NoModifier, field());
    EXPECT_EQ(count(), "2 of 3");
    EXPECT_EQ(selected(), "Tea");
    key(Qt::Key_Return, Qt::ShiftModifier, field());
    key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(count(), "3 of 3");
    key(Qt::Key_F3);
    EXPECT_EQ(count(), "1 of 3");
    bar()->findChild<QCheckBox*>()->setChecked(true);
    EXPECT_EQ(count(), "1 of 2");
    field()->setText(QStringLiteral("milk"));
    EXPECT_EQ(count(), "Not found");
    field()->clear();
    EXPECT_EQ(count(), "");
}

TEST_F(FindBar, EscapeClosesItAndKeepsThePlaceSelected)
{
    show("<p>tea</p>");
    open();
    field()->setText(QStringLiteral("tea"));
    unsigned const marking = guiMarking::count();
    key(Qt::Key_Escape, Qt::NoModifier, field());
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(selected(), "tea");
    EXPECT_EQ(guiMarking::count(), marking - 1);
    key(Qt::Key_Escape);
    EXPECT_EQ(selected(), "");
}

TEST_F(FindBar, LooksForWhatIsSelected)
{
    show("<p>tea and tea</p>");
    assertOnGuiThread();
    guiFind(shown.window.root, QStringLiteral("tea"), false, guiFindStep::kFirst);
    open();
    EXPECT_EQ(field()->text(), QStringLiteral("tea"));
    EXPECT_EQ(count(), "1 of 2");
}

TEST_F(FindBar, ShowsAPartOfThePageThatIsPutAway)
{
    show("<p>start</p><details><summary>More</summary><table name=\"box\"><tr><td>hidden "
         "tea</td></tr></table></details>");
    open();
    field()->setText(QStringLiteral("tea"));
    EXPECT_EQ(count(), "1 of 1");
    EXPECT_EQ(selected(), "tea");
    EXPECT_FALSE(guiIsPutAway(shown.node("box")));
}

TEST_F(FindBar, ScrollsToThePlace)
{
    std::string lines = "<p>start</p>";
    for (int i = 0; i < 60; ++i)
        lines += "<p>line</p>";
    show((lines + "<p>tea</p>").c_str());
    shown.window.root.setSizePolicy(kPolicyScroll);
    shown.layOut();
    open();
    field()->setText(QStringLiteral("tea"));
    QRect const view = shown.window.widget->rect();
    EXPECT_TRUE(view.contains(placeOf("tea")));
    EXPECT_LT(placeOf("tea").y(), bar()->y());
}

TEST_F(FindBar, APageMayHaveNone)
{
    show("<p>tea</p>", "nofind");
    open();
    EXPECT_FALSE(bar());
    key(Qt::Key_F3);
    EXPECT_FALSE(bar());
}

TEST_F(FindBar, KeysOfTheWindowComeFirst)
{
    show("<p>tea</p>");
    QAction own;
    own.setShortcut(QKeySequence(QStringLiteral("Ctrl+F")));
    own.setParent(shown.window.widget);
    open();
    EXPECT_FALSE(bar());
    own.setParent(nullptr);
}

TEST_F(FindBar, TabStaysInIt)
{
    show("<input type=\"text\" name=\"field\"><p>tea</p>");
    shown.window.widget->show();
    open();
    for (int i = 0; i < 6; ++i) {
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QApplication::sendEvent(shown.window.widget->focusWidget(), &tab);
        EXPECT_TRUE(bar()->isAncestorOf(shown.window.widget->focusWidget())) << i;
    }
}

TEST_F(FindBar, TheRightButtonOffersWhatCanBeDoneWithText)
{
    show("<p>some text and <a href=\"event://go\">a <b>link</b></a></p>");
    QMenu* menu = menuAt(placeOf("text"));
    ASSERT_TRUE(menu);
    EXPECT_EQ(itemsOf(menu), "-Copy|Select All|Find\u2026|");
    menu->actions().at(1)->trigger();
    EXPECT_EQ(selected(), "some text and a link");
    menu->close();
    menu = menuAt(placeOf("link") + QPoint(3, 0));
    ASSERT_TRUE(menu);
    EXPECT_EQ(itemsOf(menu), "Copy Link Text|Copy|Select All|Find\u2026|");
    menu->actions().front()->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("a link"));
    menu->actions().at(1)->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("some text and a link"));
    menu->actions().back()->trigger();
    EXPECT_TRUE(isOpen());
}

TEST_F(FindBar, ThereIsNoMenuWhereNothingCanBeDoneOrAnElementHearsOfTheMouse)
{
    show("<p>some text</p>", "noselect");
    EXPECT_FALSE(menuAt(placeOf("some")));
    show("<table><tr><td onmousedown=\"event://down\">cell</td></tr></table>");
    EXPECT_FALSE(menuAt(placeOf("cell")));
    show("<p>text</p><input type=\"button\" name=\"button\" value=\"Button\" width=\"100\" height=\"30\">");
    guiRect button;
    shown.node("button")->getRectInWidget(&button);
    shown.window.widget->show();
    EXPECT_FALSE(menuAt(QPoint(button.left + 5, button.top + 5)));
}

} // namespace
