// tests/controls/textgesture_test.cpp: selecting and copying the text of a page with the pointer and the keys.
#include "tests/controls/shownpage.h"

#include "page/guihtmltext.h"
#include "page/guipagetext.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <string>

namespace {

class TextGesture : public testing::Test
{
protected:
    TextGesture() { QApplication::clipboard()->clear(); }

    void show(char const* body, char const* attributes = "")
    {
        std::string const page =
            std::string("<html><body ") + attributes + " valign=\"top\">" + body + "</body></html>";
        shown.load(page.c_str());
        shown.layOut();
    }

    guiTextSpot before(char const* text, int behind = 0)
    {
        guiTextFlow const flow(&shown.window.root, guiTextFlow::scope::kAll);
        for (std::size_t i = 0; i < flow.size(); ++i) {
            qsizetype const at = flow[i].node->editText().view().indexOf(QString::fromUtf8(text));
            if (at >= 0)
                return {flow[i].node, static_cast<unsigned>(at + behind)};
        }
        ADD_FAILURE() << text << " is not on the page";
        return {};
    }
    QPoint pointOf(char const* text, int behind = 0) { return guiCaretOf(before(text, behind)).center(); }

    void mouse(QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        guiWidget* widget = shown.window.widget;
        bool const isUp = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, widget->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : button,
                          isUp ? Qt::NoButton : button, modifiers);
        QApplication::sendEvent(widget, &event);
    }
    void press(QPoint at, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, modifiers);
    }
    void release(QPoint at) { mouse(QEvent::MouseButtonRelease, at); }
    void drag(QPoint from, QPoint to)
    {
        press(from);
        mouse(QEvent::MouseMove, (from + to) / 2);
        mouse(QEvent::MouseMove, to);
        release(to);
    }
    void doubleClick(QPoint at)
    {
        press(at);
        release(at);
        mouse(QEvent::MouseButtonDblClick, at);
        release(at);
    }
    void key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier, QWidget* to = nullptr)
    {
        QKeyEvent event(QEvent::KeyPress, code, modifiers);
        QApplication::sendEvent(to ? to : shown.window.widget, &event);
    }

    std::string selected()
    {
        guiPageText* text = shown.window.root.pageText();
        return text ? text->selection.text().toStdString() : "";
    }
    static std::string copied() { return QApplication::clipboard()->text().toStdString(); }

    ShownPage shown{"<html><body></body></html>"};
};

TEST_F(TextGesture, DraggingSelectsFromLetterToLetter)
{
    show("<p>alpha beta gamma</p><p>delta</p>");
    drag(pointOf("beta", 1), pointOf("delta", 3));
    EXPECT_EQ(selected(), "eta gamma\n\ndel");
    drag(pointOf("gamma", 2), pointOf("alpha", 4));
    EXPECT_EQ(selected(), "a beta ga");
}

TEST_F(TextGesture, AClickEndsIt)
{
    show("<p>alpha beta gamma</p>");
    drag(pointOf("alpha"), pointOf("gamma"));
    ASSERT_EQ(selected(), "alpha beta ");
    press(pointOf("beta"));
    EXPECT_EQ(selected(), "");
    mouse(QEvent::MouseMove, pointOf("beta") + QPoint(3, 0));
    release(pointOf("beta") + QPoint(3, 0));
    EXPECT_EQ(selected(), "");
}

TEST_F(TextGesture, EscapeEndsIt)
{
    show("<p>alpha beta gamma</p>");
    drag(pointOf("alpha"), pointOf("gamma"));
    key(Qt::Key_Escape);
    EXPECT_EQ(selected(), "");
}

TEST_F(TextGesture, ADoubleClickTakesTheWordAndAThirdPressTheParagraph)
{
    show("<p>alpha beta gamma</p><p>delta</p>");
    doubleClick(pointOf("beta", 2));
    EXPECT_EQ(selected(), "beta");
    press(pointOf("beta", 2));
    EXPECT_EQ(selected(), "alpha beta gamma");
    mouse(QEvent::MouseMove, pointOf("delta", 1));
    release(pointOf("delta", 1));
    EXPECT_EQ(selected(), "alpha beta gamma\n\ndelta");
}

TEST_F(TextGesture, ADoubleClickBesideTheTextTakesNothing)
{
    show("<p>alpha beta gamma</p>");
    doubleClick({200, 250});
    EXPECT_EQ(selected(), "");
}

TEST_F(TextGesture, DraggingAfterADoubleClickGoesByWords)
{
    show("<p>alpha beta gamma</p>");
    QPoint const at = pointOf("beta", 2);
    press(at);
    release(at);
    mouse(QEvent::MouseButtonDblClick, at);
    mouse(QEvent::MouseMove, pointOf("gamma", 1));
    release(pointOf("gamma", 1));
    EXPECT_EQ(selected(), "beta gamma");
}

TEST_F(TextGesture, ShiftAndAClickOrTheArrowsMoveTheEnd)
{
    show("<p>alpha beta gamma</p><p>delta epsilon</p>");
    press(pointOf("beta"));
    release(pointOf("beta"));
    press(pointOf("gamma", 2), Qt::ShiftModifier);
    EXPECT_EQ(selected(), "beta ga");
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "beta gam");
    key(Qt::Key_Left, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(selected(), "beta ");
    key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "beta gamma");
    key(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "alpha ");
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "beta gamma\n\n");
    key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "alpha ");
}

TEST_F(TextGesture, CopiesTextAndMarkup)
{
    show("<p>alpha <b>beta</b></p>");
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selected(), "alpha beta");
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), "alpha beta");
    EXPECT_EQ(QApplication::clipboard()->mimeData()->html().toStdString(), "alpha <b>beta</b>");
}

TEST_F(TextGesture, NothingSelectedLeavesTheClipboardAlone)
{
    show("<p>alpha</p>");
    QApplication::clipboard()->setText(QStringLiteral("before"));
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), "before");
}

TEST_F(TextGesture, AFieldCopiesWhatIsSelectedInItAndElseTheKeyIsForThePage)
{
    show("<p>alpha</p><input type=\"text\" name=\"field\" value=\"beta\" width=\"200\">");
    auto* field = shown.widget<QLineEdit>("field");
    drag(pointOf("alpha"), pointOf("alpha", 5) + QPoint(5, 0));
    ASSERT_EQ(selected(), "alpha");
    key(Qt::Key_C, Qt::ControlModifier, field);
    EXPECT_EQ(copied(), "alpha");
    field->selectAll();
    key(Qt::Key_C, Qt::ControlModifier, field);
    EXPECT_EQ(copied(), "beta");
}

TEST_F(TextGesture, APressOnAControlEndsIt)
{
    show("<p>alpha</p><input type=\"text\" name=\"field\" width=\"200\">");
    drag(pointOf("alpha"), pointOf("alpha", 5) + QPoint(5, 0));
    ASSERT_EQ(selected(), "alpha");
    auto* field = shown.widget<QLineEdit>("field");
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(3, 3), field->mapToGlobal(QPointF(3, 3)), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(field, &event);
    EXPECT_EQ(selected(), "");
}

TEST_F(TextGesture, NoneBeginsOnALinkOrAnElementThatHearsOfThePress)
{
    show("<p>alpha <a href=\"mailto:nobody\">link</a> beta</p>"
         "<table><tr><td onmousedown=\"event://down\">cell</td></tr></table>");
    mouse(QEvent::MouseMove, pointOf("cell", 1), Qt::NoButton);
    drag(pointOf("cell"), pointOf("alpha"));
    EXPECT_EQ(selected(), "");
    drag(pointOf("alpha"), pointOf("link", 2));
    EXPECT_EQ(selected(), "alpha li");
}

TEST_F(TextGesture, DraggingBeyondThePaneScrollsIt)
{
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += "<p>line" + std::to_string(i) + "</p>";
    show(lines.c_str());
    shown.window.root.setSizePolicy(kPolicyScroll);
    shown.layOut();
    QScrollBar* bar = shown.window.root.getScroll().barY;
    ASSERT_TRUE(bar);
    press(pointOf("line0"));
    mouse(QEvent::MouseMove, {100, 400});
    for (QDeadlineTimer const end(20000); bar->value() < bar->maximum() && !end.hasExpired();)
        QApplication::processEvents();
    EXPECT_EQ(bar->value(), bar->maximum());
    release({100, 400});
    EXPECT_EQ(selected().substr(selected().size() - 6), "line59");
}

TEST_F(TextGesture, AWindowOfWhichNothingIsSelectedIsUnchanged)
{
    show("<p>alpha beta</p>", "noselect");
    drag(pointOf("alpha"), pointOf("beta"));
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selected(), "");
}

} // namespace
