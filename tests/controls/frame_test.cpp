// tests/controls/frame_test.cpp: the frames of lists and text areas at fractional scales.
#include "controls/guiwidgetlistbox.h"
#include "controls/guiwidgetlistview.h"
#include "controls/guiwidgetmultiedit.h"

#include <QImage>
#include <QPalette>
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// A list in a clip widget in a white window.
template <typename List>
struct FramedList
{
    FramedList()
    {
        QPalette white;
        white.setColor(QPalette::Window, Qt::white);
        window.setPalette(white);
        window.resize(120, 100);
    }

    /// The window as a screen of this scale shows it, with the list at this place.
    QImage shown(qreal scale, QRect const& place)
    {
        clipper.setGeometry(place);
        list.setGeometry(0, 0, place.width(), place.height());
        QSizeF const size(window.size());
        QImage seen((size * scale).toSize(), QImage::Format_RGB32);
        seen.setDevicePixelRatio(scale);
        window.render(&seen);
        return seen;
    }

    QWidget window;
    QWidget clipper{&window};
    List list{&clipper};
};

bool isDark(QImage const& seen, QPoint at) { return qGray(seen.pixel(at)) < 220; }

bool isLine(QImage const& seen, QPoint at, QPoint step, int length)
{
    for (int i = 0; i < length; ++i)
        if (!isDark(seen, at + i * step))
            return false;
    return true;
}

/// Whether one of the first `depth` lines of pixels from `at` inwards is dark, but for its ends.
bool isSide(QImage const& seen, QPoint at, QPoint inwards, int depth, int length)
{
    QPoint const along(std::abs(inwards.y()), std::abs(inwards.x()));
    for (int i = 0; i < depth; ++i)
        if (isLine(seen, at + i * inwards + 3 * along, along, length - 6))
            return true;
    return false;
}

/// How many of the four sides of a place on the screen are a line in one page pixel.
int sidesOf(QImage const& seen, QRect const& place)
{
    int const depth = static_cast<int>(seen.devicePixelRatio());
    return isSide(seen, place.topLeft(), {0, 1}, depth, place.width()) +
           isSide(seen, place.topLeft(), {1, 0}, depth, place.height()) +
           isSide(seen, place.bottomLeft(), {0, -1}, depth, place.width()) +
           isSide(seen, place.topRight(), {-1, 0}, depth, place.height());
}

QRect onScreen(QRect const& place, qreal scale)
{
    auto round = [scale](int at) { return qRound(at * scale); };
    return QRect(QPoint(round(place.left()), round(place.top())),
                 QPoint(round(place.right() + 1) - 1, round(place.bottom() + 1) - 1));
}

template <typename List>
void expectWholeFrames(qreal scale)
{
    FramedList<List> framed;
    for (int at = 10; at < 14; ++at)
        for (int size = 50; size < 54; ++size) {
            QRect const place(at, at + 1, size, size - 1);
            EXPECT_EQ(sidesOf(framed.shown(scale, place), onScreen(place, scale)), 4)
                << "at " << at << ", size " << size << ", scale " << scale;
        }
}

} // namespace

TEST(Frames, OfListsAndTextAreasAreWholeAtAnyScale)
{
    for (qreal const scale : {1.0, 1.25, 1.5, 1.75, 2.0, 2.5}) {
        expectWholeFrames<guiWidgetListBox>(scale);
        expectWholeFrames<guiWidgetListView>(scale);
        expectWholeFrames<guiWidgetMultiEdit>(scale);
    }
}
