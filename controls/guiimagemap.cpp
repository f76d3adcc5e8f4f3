// controls/guiimagemap.cpp: see guiimagemap.h.
#include "controls/guiimagemap.h"

#include <QPolygon>

namespace {

QRegion polygon(int const* xs, int const* ys, int count)
{
    QPolygon points(count);
    for (int i = 0; i < count; ++i)
        points.setPoint(i, xs[i], ys[i]);
    return QRegion(points, Qt::OddEvenFill);
}

} // namespace

guiImageMapRegion::guiImageMapRegion(sstring const& link, int x, int y, int width, int height)
    : m_shape(x, y, width, height), m_link(link)
{}

guiImageMapRegion::guiImageMapRegion(sstring const& link, int cx, int cy, int radius)
    : m_shape(cx - radius, cy - radius, 2 * radius, 2 * radius, QRegion::Ellipse), m_link(link)
{}

guiImageMapRegion::guiImageMapRegion(sstring const& link, int const* xs, int const* ys, int count)
    : m_shape(polygon(xs, ys, count)), m_link(link)
{}

sstring guiImageMap::hitTest(int x, int y) const
{
    for (guiImageMapRegion const& region : m_regions) {
        sstring link = region.hitTest(x, y);
        if (link.getLength())
            return link;
    }
    return sstring();
}
