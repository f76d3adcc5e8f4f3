// page/guipainting.h: how pages fill areas and draw lines. All coordinates are logical pixels of the painter, so that a
// page is sharp on a screen of any density. GUI thread.
#pragma once

#include "page/guitypes.h"

class QBrush;
class QColor;
class QPainter;
class QPixmap;
class QRegion;

/// Repeats `tile` over the clip region, with the corner of one tile at (x, y). `region` may be null: nothing is
/// painted.
void drawClippedTile(QPainter* painter, QPixmap const& tile, int x, int y, QRegion const* region);

/// Fills the clip region. `region` may be null: nothing is painted.
void fillClippedRect(QPainter* painter, QBrush const& brush, QRegion const* region);

/// A plain frame of `lineWidth` pixels along the inside of `rect`. A rectangle too small for two lines is filled.
void drawFrame(QPainter* painter, guiRect const& rect, int lineWidth, QColor const& color);

/// The straight line from (x1, y1) to (x2, y2), both ends included, one pixel thick; horizontal or vertical.
void drawEdge(QPainter* painter, int x1, int y1, int x2, int y2, QColor const& color);
