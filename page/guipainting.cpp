// page/guipainting.cpp: see guipainting.h. Lines are filled rectangles, not pen strokes: on a screen with a scale
// factor a pen stroke covers parts of pixels.
#include "page/guipainting.h"

#include <QBrush>
#include <QPainter>
#include <QPixmap>
#include <QRegion>
#include <algorithm>
#include <cassert>

void drawClippedTile(QPainter* painter, QPixmap const& tile, int x, int y, QRegion const* region)
{
    if (!region || tile.isNull())
        return;
    QSize size = tile.deviceIndependentSize().toSize().expandedTo(QSize(1, 1));
    for (QRect const& part : *region) {
        // The offset is taken modulo the tile, never negative.
        auto offset = [](int distance, int length) { return ((distance % length) + length) % length; };
        QPoint start(offset(part.left() - x, size.width()), offset(part.top() - y, size.height()));
        assert(QRect(QPoint(0, 0), size).contains(start));
        painter->drawTiledPixmap(part, tile, start);
    }
}

void fillClippedRect(QPainter* painter, QBrush const& brush, QRegion const* region)
{
    if (!region)
        return;
    for (QRect const& part : *region)
        painter->fillRect(part, brush);
}

void drawFrame(QPainter* painter, guiRect const& rect, int lineWidth, QColor const& color)
{
    if (rect.isEmpty() || lineWidth < 1)
        return;
    int across = std::min(lineWidth, rect.width);
    int down = std::min(lineWidth, rect.height);
    int inner = std::max(0, rect.height - 2 * down);
    assert(across > 0 && down > 0);
    painter->fillRect(rect.left, rect.top, rect.width, down, color);
    painter->fillRect(rect.left, rect.bottom() - down, rect.width, down, color);
    painter->fillRect(rect.left, rect.top + down, across, inner, color);
    painter->fillRect(rect.right() - across, rect.top + down, across, inner, color);
}

void drawEdge(QPainter* painter, int x1, int y1, int x2, int y2, QColor const& color)
{
    assert(x1 == x2 || y1 == y2);
    painter->fillRect(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1, color);
}
