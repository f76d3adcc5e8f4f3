// tests/controls/look_test.cpp: native widgets on a page that is zoomed, and on desktops whose colours or font change.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmldetails.h"
#include "controls/guiwidgetcheckbox.h"
#include "controls/guiwidgetlineedit.h"
#include "controls/guiwidgetlistview.h"
#include "controls/guiwidgetsummary.h"
#include "page/guicolor.h"
#include "page/guicontrast.h"
#include "page/guiinks.h"
#include "page/guizoom.h"
#include "tests/controls/shownpage.h"

#include <QApplication>
#include <QFontInfo>
#include <QKeyEvent>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr char const* kForm = "<body><input type=text name=who size=10 value=Ada><input type=checkbox name=box>"
                              "<input type=button name=ok value=OK></body>";

QPalette darkPalette()
{
    QPalette palette(QColor(49, 54, 59), QColor(35, 38, 41));
    palette.setColor(QPalette::Base, QColor(27, 30, 32));
    palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128)); // as some desktops have it
    return palette;
}

/// Gives the application other colours while it exists.
class OtherPalette
{
public:
    explicit OtherPalette(QPalette const& palette) : m_before(QApplication::palette())
    {
        QApplication::setPalette(palette);
        PageWindow::settle();
    }
    ~OtherPalette()
    {
        QApplication::setPalette(m_before);
        PageWindow::settle();
    }
    OtherPalette(OtherPalette const&) = delete;
    OtherPalette& operator=(OtherPalette const&) = delete;

private:
    QPalette m_before;
};

void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(widget, &event);
}

void turn(QWidget* widget, int by, Qt::KeyboardModifiers modifiers)
{
    QWheelEvent event(QPointF(5, 5), widget->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, by), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

} // namespace

TEST(DarkList, TheBoxesOfItsRowsCanBeMadeOut)
{
    OtherPalette const dark(darkPalette());
    ShownPage page("<body><object classid=listview name=list width=200 height=100></object></body>");
    auto& list = page.control<guiHtmlControlFlex>("list");
    list.addItem("box", "Box", "", kFlexCheckBox);
    list.addItem("radio", "Radio", "", kFlexRadio);
    auto* view = page.widget<guiWidgetListView>("list");
    QImage const seen = view->viewport()->grab().toImage();
    for (int row = 0; row < 2; ++row) {
        QRect const place = view->visualRect(view->model()->index(row, 0));
        int const end = place.left() + view->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, view);
        double best = 1;
        for (int x = place.left(); x < end; ++x)
            best = std::max(best, guiContrast(qtogui(seen.pixelColor(x, place.center().y())),
                                              qtogui(view->palette().color(QPalette::Base))));
        EXPECT_GT(best, 2.5) << row;
    }
}

TEST(ZoomedControls, AreLargerWithTheirFonts)
{
    ShownPage page(kForm);
    QSize const field = page.widget<QWidget>("who")->size();
    QSize const button = page.widget<QWidget>("ok")->size();
    int const font = page.widget<QWidget>("who")->font().pixelSize();
    guiZoomPage(page.window.root, 200);
    EXPECT_EQ(page.widget<QWidget>("who")->font().pixelSize(), 2 * font);
    EXPECT_NEAR(page.widget<QWidget>("who")->width(), 2 * field.width(), 4);
    EXPECT_NEAR(page.widget<QWidget>("ok")->height(), 2 * button.height(), 3);
    EXPECT_EQ(page.widget<QWidget>("box")->size(), QSize(26, 26));
}

TEST(ZoomedControls, HaveLargerMarks)
{
    ShownPage page(kForm);
    auto const markSize = [&page] {
        QWidget const* const box = page.widget<QWidget>("box");
        return box->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, box);
    };
    int const before = markSize();
    guiZoomPage(page.window.root, 200);
    EXPECT_EQ(markSize(), 2 * before);
    guiZoomPage(page.window.root, kUnzoomed);
    EXPECT_EQ(markSize(), before);
    EXPECT_EQ(page.widget<QWidget>("box")->style(), QApplication::style());
}

TEST(ZoomedControls, KeepTheirValues)
{
    ShownPage page(kForm);
    page.widget<guiWidgetLineEdit>("who")->setText(QStringLiteral("Grace"));
    page.widget<guiWidgetCheckBox>("box")->setChecked(true);
    guiZoomPage(page.window.root, 150);
    EXPECT_EQ(page.widget<guiWidgetLineEdit>("who")->text(), QStringLiteral("Grace"));
    EXPECT_TRUE(page.widget<guiWidgetCheckBox>("box")->isChecked());
}

TEST(ZoomKeys, AreStepsToTheBoundsAndBack)
{
    ShownPage page(kForm);
    press(page.window.widget, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(page.window.root.getZoom(), 110u);
    press(page.window.widget, Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(page.window.root.getZoom(), 125u);
    press(page.window.widget, Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(page.window.root.getZoom(), 110u);
    press(page.window.widget, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(page.window.root.getZoom(), 100u);
    for (int i = 0; i < 20; ++i)
        press(page.window.widget, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(page.window.root.getZoom(), 50u);
    for (int i = 0; i < 20; ++i)
        press(page.window.widget, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(page.window.root.getZoom(), 300u);
}

TEST(ZoomKeys, NeedCtrlAlone)
{
    ShownPage page(kForm);
    press(page.window.widget, Qt::Key_Plus, Qt::NoModifier);
    press(page.window.widget, Qt::Key_Plus, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(page.window.root.getZoom(), 100u);
}

TEST(ZoomWheel, TurnsStepByStepAndOnlyWithCtrl)
{
    ShownPage page(kForm);
    turn(page.window.widget, 120, Qt::NoModifier);
    EXPECT_EQ(page.window.root.getZoom(), 100u);
    turn(page.window.widget, 120, Qt::ControlModifier);
    EXPECT_EQ(page.window.root.getZoom(), 110u);
    for (int i = 0; i < 3; ++i)
        turn(page.window.widget, -40, Qt::ControlModifier);
    EXPECT_EQ(page.window.root.getZoom(), 100u);
    turn(page.widget<QWidget>("who"), 120, Qt::ControlModifier);
    EXPECT_EQ(page.window.root.getZoom(), 110u);
}

TEST(Desktop, ASummaryOnALightPageReadsOnADarkDesktop)
{
    OtherPalette const dark(darkPalette());
    ShownPage page("<body bgcolor=white><details name=more><summary>More</summary>text</details></body>");
    auto* const summary = page.window.widget->findChild<guiWidgetSummary*>();
    ASSERT_NE(summary, nullptr);
    EXPECT_EQ(summary->palette().color(QPalette::WindowText), QColor(Qt::black));
}

TEST(Desktop, ASummaryFollowsItsColoursWhereThePageGivesNone)
{
    ShownPage page("<body><details name=more><summary>More</summary>text</details></body>");
    auto* const summary = page.window.widget->findChild<guiWidgetSummary*>();
    ASSERT_NE(summary, nullptr);
    OtherPalette const dark(darkPalette());
    EXPECT_EQ(summary->palette().color(QPalette::WindowText), darkPalette().color(QPalette::WindowText));
}

TEST(Desktop, AnEmptyFieldsTextAndReadOnlyFieldsFollowItsColours)
{
    ShownPage page(
        "<body><input type=text name=who placeholder=Name><input type=text name=fixed readonly value=x></body>");
    auto const inkOf = [&page] { return page.widget<QWidget>("who")->palette().color(QPalette::PlaceholderText); };
    auto const groundOf = [&page] { return page.widget<QWidget>("fixed")->palette().color(QPalette::Base); };
    QColor const before = inkOf();
    {
        OtherPalette const dark(darkPalette());
        EXPECT_GT(inkOf().lightness(), 128);
        EXPECT_EQ(groundOf(), darkPalette().color(QPalette::Window));
    }
    EXPECT_EQ(inkOf(), before);
    EXPECT_EQ(groundOf(), QApplication::palette().color(QPalette::Window));
}

TEST(Desktop, ItsFontIsFollowedWhereThePageAsksForIt)
{
    ShownPage page("<body usesystemfont><h1>Head</h1><input type=text name=who></body>");
    QFont const before = QApplication::font();
    int const size = QFontInfo(page.widget<QWidget>("who")->font()).pixelSize();
    QFont larger = before;
    larger.setPixelSize(2 * QFontInfo(before).pixelSize());
    QApplication::setFont(larger);
    PageWindow::settle();
    EXPECT_EQ(page.widget<QWidget>("who")->font().pixelSize(), 2 * size);
    QApplication::setFont(before);
    PageWindow::settle();
    EXPECT_EQ(QFontInfo(page.widget<QWidget>("who")->font()).pixelSize(), size);
}
