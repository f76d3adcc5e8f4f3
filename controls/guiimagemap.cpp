// controls/guiimagemap.cpp: see guiimagemap.h.
#include "controls/guiimagemap.h"

#include <algorithm>
#include <cassert>

namespace {

QPolygon polygon(int const* xs, int const* ys, int count)
{
    assert(count >= 0);
    QPolygon points(count);
    for (int i = 0; i < count; ++i)
        points.setPoint(i, xs[i], ys[i]);
    return points;
}

/// A circle as the toolkit fills it. It has a point for every few pixels, so it is only made when it is needed.
QPolygon circleIn(QRect const& box)
{
    assert(!box.isEmpty()); // there is no polygon of it
    QPainterPath path;
    path.addEllipse(box);
    return path.toSubpathPolygons().at(0).toPolygon();
}

/// Whether a line from the point to the left crosses an edge. The lower end of an edge does not belong to it.
bool isCrossed(QPoint from, QPoint to, int x, int y)
{
    if (from.y() > to.y())
        std::swap(from, to);
    if (y < from.y() || y >= to.y())
        return false;
    qint64 const height = qint64{to.y()} - from.y();
    qint64 const width = qint64{to.x()} - from.x();
    return (qint64{x} - from.x()) * height >= (qint64{y} - from.y()) * width;
}

/// The odd-even rule, with the same result for each pixel as the toolkit's regions. A region itself would not do: it is
/// a list of rectangles, which takes seconds to compute for a large circle and practically for ever for a polygon whose
/// edges cross many times.
bool isInside(QPolygon const& shape, int x, int y)
{
    bool inside = false;
    for (qsizetype i = 0, before = shape.size() - 1; i < shape.size(); before = i++)
        inside ^= isCrossed(shape[before], shape[i], x, y);
    return inside;
}

} // namespace

guiImageMapRegion::guiImageMapRegion(sstring const& link, int x, int y, int width, int height)
    : m_box(x, y, width, height), m_link(link)
{}

guiImageMapRegion::guiImageMapRegion(sstring const& link, int cx, int cy, int radius)
    : m_kind(kCircle), m_box(cx - radius, cy - radius, 2 * radius, 2 * radius), m_link(link)
{}

guiImageMapRegion::guiImageMapRegion(sstring const& link, int const* xs, int const* ys, int count)
    : m_kind(kPolygon), m_points(polygon(xs, ys, count)), m_box(m_points.boundingRect()), m_link(link)
{}

sstring guiImageMapRegion::hitTest(int x, int y) const { return contains(x, y) ? m_link : sstring(); }

bool guiImageMapRegion::contains(int x, int y) const
{
    if (m_box.isEmpty() || !m_box.contains(x, y))
        return false;
    if (m_kind == kRectangle)
        return true;
    return isInside(m_kind == kCircle ? circleIn(m_box) : m_points, x, y);
}

QPainterPath guiImageMapRegion::outline() const
{
    QPainterPath path;
    if (m_kind == kCircle)
        path.addEllipse(m_box);
    else if (m_kind == kRectangle)
        path.addRect(m_box);
    else
        path.addPolygon(m_points);
    path.closeSubpath();
    return path;
}

unsigned guiImageMap::findRegion(int x, int y) const
{
    auto const holds = [x, y](guiImageMapRegion const& region) { return region.hitTest(x, y).getLength() != 0; };
    return static_cast<unsigned>(std::find_if(m_regions.begin(), m_regions.end(), holds) - m_regions.begin());
}

sstring guiImageMap::hitTest(int x, int y) const
{
    unsigned const found = findRegion(x, y);
    return found < getRegionCount() ? m_regions[found].getLink() : sstring();
}
