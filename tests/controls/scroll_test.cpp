// tests/controls/scroll_test.cpp: scrolling moves pixels, and what is then on the screen is what a fresh paint would
// show.
#include "controls/guiwidgetscrollbar.h"
#include "page/guipicture.h"
#include "tests/controls/pagewindow.h"
#include "tests/controls/stalearea.h"

#include <gtest/gtest.h>

namespace {

/// A control that is a plain coloured widget, placed as controls place theirs: within what its node shows.
class ColorControl : public guiHtml
{
public:
    using guiHtml::operator=;
    explicit ColorControl(QWidget* window) : m_widget(new QWidget(window))
    {
        m_widget->setAutoFillBackground(true);
        m_widget->setPalette(QPalette(Qt::red));
        m_widget->show();
    }
    int getType() override { return kTypeControl; }
    QWidget* getChildWidget() override { return m_widget; }
    void setRect(guiRect* rect) override
    {
        m.rect = *rect;
        ++placed;
        guiRect clip;
        getClipRect(&clip);
        m_widget->setGeometry(clip.left, clip.top, clip.width, clip.height);
        m_widget->setVisible(clip.width > 0 && clip.height > 0);
    }

    int placed = 0;

private:
    QWidget* m_widget; // owned by the window
};

/// Counts how many pixels it is asked to paint.
class Striped : public guiHtml
{
public:
    using guiHtml::operator=;
    void paintTo(QPainter* painter, int x, int y, guiWidget*, QRegion const* region) override
    {
        QRect own(x + m.rect.left, y + m.rect.top, m.rect.width, m.rect.height);
        painter->setClipRegion(*region);
        for (QRect const& part : region->intersected(own))
            painted += part.width() * part.height();
        for (int i = 0; i < own.height(); ++i)
            painter->fillRect(own.left(), own.top() + i, own.width(), 1,
                              QColor(i % 256, (i * 7) % 256, (i * 13) % 256));
    }

    long painted = 0;
};

class Scrolling : public ::testing::Test
{
protected:
    Scrolling()
    {
        window.widget->resize(200, 150);
        window.widget->show();
        PageWindow::settle();
        window.root.m.rect = {0, 200, 0, 150};
        window.root.m.activeCy = 150;
        window.root.setBackgroundColor(guiColor{9, 99, 199});
        frame = window.add({20, 100, 10, 120});
        frame->m.border = 2;
        frame->setBackgroundColor(guiColor{200, 220, 240});
        frame->ensureScroll().rangeX = 50;
        frame->ensureScroll().rangeY = 2000;
        stripes = window.place(new Striped, {5, 120, 0, 2100}, frame);
        window.widget->update();
        PageWindow::settle();
    }

    PageWindow window;
    guiHtml* frame = nullptr;
    Striped* stripes = nullptr;
};

} // namespace

TEST_F(Scrolling, ShowsWhatAFreshPaintShowsAfterEveryStep)
{
    for (int pos : {1, 17, 16, 116, 120, 1000, 1001, 2000, 1990, 0}) {
        frame->onScrollY(pos);
        PageWindow::settle();
        EXPECT_EQ(staleArea(window.widget), "") << "at " << pos;
    }
    for (int pos : {3, 50, 20, 0}) {
        frame->onScrollX(pos);
        PageWindow::settle();
        EXPECT_EQ(staleArea(window.widget), "") << "at x " << pos;
    }
}

TEST_F(Scrolling, PaintsOnlyTheStripThatAppears)
{
    stripes->painted = 0;
    frame->onScrollY(10);
    PageWindow::settle();
    EXPECT_EQ(stripes->painted, 93 * 10); // the frame's inside is 96 wide, the stripes begin 3 further right
}

TEST_F(Scrolling, APictureBehindTheContentStaysWhereItIs)
{
    QPixmap tile(7, 5);
    tile.fill(Qt::yellow);
    QPainter(&tile).fillRect(0, 0, 3, 2, Qt::blue);
    frame->setBackgroundImage(sstring("tile.png"));
    frame->setBackgroundPicture(std::make_shared<guiPicture const>(guiPicture{tile, tile.size()}));
    stripes->m.rect.width = 40;
    window.widget->update();
    PageWindow::settle();
    frame->onScrollY(12);
    PageWindow::settle();
    EXPECT_EQ(staleArea(window.widget), "");
}

TEST_F(Scrolling, NativeWidgetsFollowAndThoseOutOfSightAreLeftAlone)
{
    stripes->m.rect.height = 10;
    std::vector<ColorControl*> controls;
    for (int i = 0; i < 50; ++i) {
        window.place(new Striped, {0, 80, 10 + i * 40, 20}, frame);
        auto* control = window.place(new ColorControl(window.widget), {10, 60, 30 + i * 40, 20}, frame);
        guiRect rect = control->m.rect;
        control->setRect(&rect);
        controls.push_back(control);
    }
    window.widget->update();
    PageWindow::settle();
    for (ColorControl* control : controls)
        control->placed = 0;
    for (int pos : {5, 45, 44, 900, 0}) {
        frame->onScrollY(pos);
        PageWindow::settle();
        EXPECT_EQ(staleArea(window.widget), "") << "at " << pos;
    }
    EXPECT_GT(controls[0]->placed, 0);
    EXPECT_GT(controls[22]->placed, 0); // seen at 900
    EXPECT_EQ(controls[40]->placed, 0);
}

TEST_F(Scrolling, NestedScrollBarsFollow)
{
    guiHtml* inner = window.add({10, 60, 40, 50}, frame);
    inner->setBackgroundColor(guiColor{1, 1, 1});
    auto* bar = new guiWidgetScrollBar(Qt::Vertical, window.widget);
    bar->owner = inner;
    inner->ensureScroll().barY = bar;
    inner->m.layout.hasBarY = true;
    inner->ensureScroll().rangeY = 30;
    window.root.updateScrollbarRanges();
    window.widget->update();
    PageWindow::settle();
    int top = bar->y();
    for (int pos : {10, 30, 60, 0}) {
        frame->onScrollY(pos);
        PageWindow::settle();
        EXPECT_EQ(bar->y(), top - pos);
        EXPECT_EQ(staleArea(window.widget), "") << "at " << pos;
    }
}
