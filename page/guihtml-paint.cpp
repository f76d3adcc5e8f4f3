// page/guihtml-paint.cpp: paints a plain node: border or group box, background, children, and the corner between two
// scroll bars. Text runs, images and custom elements override this.
#include "page/guichildspan.h"
#include "page/guicolor.h"
#include "page/guihtml.h"
#include "page/guiinks.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guipainting.h"
#include "page/guiqrect.h"
#include "page/guisavedpainter.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"

#include <QBrush>
#include <QFont>
#include <QPainter>
#include <QPixmap>
#include <QRegion>
#include <QScrollBar>
#include <QTransform>
#include <QWidget>
#include <algorithm>
#include <cassert>

namespace {

/// The gap that a group box leaves in its top line for the caption.
constexpr int kCaptionIndent = 10;
constexpr int kCaptionMargin = 3;

guiRect moved(guiRect rect, int x, int y)
{
    rect.left += x;
    rect.top += y;
    return rect;
}

guiRect shrunk(guiRect rect, int by)
{
    rect.left += by;
    rect.top += by;
    rect.width -= 2 * by;
    rect.height -= 2 * by;
    return rect;
}

/// `inner` less what lies outside the bounding rectangle of the region; without a region all of it.
QRect clippedTo(guiRect const& inner, QRegion const* region)
{
    if (inner.isEmpty())
        return {};
    return region ? guiToQRect(inner).intersected(region->boundingRect()) : guiToQRect(inner);
}

/// The colour behind a node: its own, or else the background of the window; light gray when the page is not painted
/// into a window (`window` is null).
QColor backgroundOf(guiHtml* node, guiWidget const* window)
{
    if (guiEdge const edge = node->getBackgroundEdge(); edge != guiEdge::kNone) {
        guiEdges const edges = guiEdgesOf(node);
        return toQColor(edge == guiEdge::kLight ? edges.light : edges.dark);
    }
    if (node->hasBackgroundColor())
        return toQColor(node->getBackgroundColor());
    QWidget const* widget = window ? node->getTopLevelWidget() : nullptr;
    return widget ? widget->palette().color(QPalette::Window) : toQColor(guiColor::LightGray);
}

void drawBackgroundTile(guiHtml const* node, QPainter* painter, guiRect const& rect, QRegion const& clip)
{
    QPixmap const& tile = *node->getBackgroundPixmap();
    if (node->m.zoom == kUnzoomed) {
        drawClippedTile(painter, tile, rect.left, rect.top, &clip);
        return;
    }
    double const factor = node->m.zoom / double{kUnzoomed};
    QBrush brush(tile);
    brush.setTransform(QTransform::fromTranslate(rect.left, rect.top).scale(factor, factor));
    fillClippedRect(painter, brush, &clip);
}

void paintBackground(guiHtml* node, QPainter* painter, guiRect const& rect, guiWidget* widget, QRegion const& clip)
{
    bool isNamed = node->hasString(kStringBackground);
    if (isNamed && node->isBackgroundLoaded())
        drawBackgroundTile(node, painter, rect, clip);
    else if (isNamed || node->hasBackgroundColor())
        fillClippedRect(painter, backgroundOf(node, widget), &clip);
}

/// The colours of the node's own border, those that the page does not give as they show.
guiEdges borderOf(guiHtml* node)
{
    unsigned const given = node->getGivenBorders();
    guiEdges edges = (given & kGivenMiddle) && (given & kGivenDark) ? guiEdges() : guiEdgesOf(node);
    if (given & kGivenMiddle)
        edges.middle = node->getBorderColor();
    if (given & kGivenDark)
        edges.dark = node->getBorderDark();
    return edges;
}

guiColor dimmed(guiColor color) { return {color.red * 2 / 3, color.green * 2 / 3, color.blue * 2 / 3}; }

/// The frame of a group box, open at the top between gapLeft and gapRight for the caption.
void drawOpenFrame(QPainter* painter, int gapLeft, int gapRight, QRect const& corners, guiColor color)
{
    QColor pen = toQColor(color);
    int left = corners.left();
    int top = corners.top();
    int right = left + corners.width();
    int bottom = top + corners.height();
    drawEdge(painter, gapLeft, top, left, top, pen);
    drawEdge(painter, left, top, left, bottom, pen);
    drawEdge(painter, left, bottom, right, bottom, pen);
    drawEdge(painter, right, bottom, right, top, pen);
    drawEdge(painter, right, top, gapRight, top, pen);
}

void drawCaption(guiHtml* node, QPainter* painter, QRect const& box)
{
    if (box.width() < 1 || box.height() < 1)
        return;
    guiSavedPainter const saved(*painter);
    int points = 0;
    painter->setFont(node->getDefaultFont(&points));
    painter->setPen(toQColor(guiPlainInkOf(node)));
    painter->drawText(box, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, sstoq(node->getString(kStringCaption)));
}

void paintGroupBox(guiHtml* node, QPainter* painter, guiRect const& rect)
{
    int captionWidth = static_cast<int>(node->getCaptionWidth());
    int captionHeight = static_cast<int>(node->getCaptionHeight());
    int const indent = node->scaled(kCaptionIndent);
    int const margin = node->scaled(kCaptionMargin);
    int gapLeft = rect.left + indent;
    int gap = std::max(0, std::min(rect.width - 2 * indent, captionWidth + 2 * margin));

    if (node->m.border > 1 && rect.width > 3 && rect.height > 3) {
        int top = rect.top + captionHeight / 2;
        QRect inner(rect.left + 1, top + 1, rect.width - 2, rect.bottom() - top - 2);
        QRect outer(rect.left, top, rect.width - 2, rect.bottom() - top - 2);
        guiEdges const edges = guiEdgesOf(node);
        drawOpenFrame(painter, gapLeft, gapLeft + gap, inner, edges.light);
        drawOpenFrame(painter, gapLeft, gapLeft + gap, outer, edges.dark);
    }
    if (!node->isString(kStringCaption, sstring(kEmptyGroupBox)))
        drawCaption(node, painter, QRect(gapLeft + margin, rect.top, gap - 2 * margin, captionHeight + node->m.border));
}

} // namespace

void guiHtml::paintBorder(QPainter* painter, guiRect* rect, int highlight)
{
    if (hasString(kStringCaption)) {
        paintGroupBox(this, painter, *rect);
        return;
    }
    if (m.border == 0)
        return;
    guiEdges const edges = borderOf(this);
    guiColor outer = highlight ? static_cast<guiColor>(m.activeLinkColor) : edges.middle;
    guiColor inner = highlight ? dimmed(m.activeLinkColor) : edges.dark;
    if (m.border > 1 && rect->width > 1 && rect->height > 1)
        drawFrame(painter, shrunk(*rect, 1), m.border - 1, toQColor(inner));
    drawFrame(painter, *rect, 1, toQColor(outer));
}

void guiHtml::paintTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region)
{
    assertOnGuiThread();
    assert(painter);
    if (region)
        painter->setClipRegion(*region);
    if (!getTopLevelWidget())
        return;
    guiRect rect = moved(m.rect, x, y);
    int const above = guiBarAbove(this);
    rect.top += above;
    rect.height -= above + guiBarBelow(this);
    paintBorder(painter, &rect, 0);
    rect = shrunk(rect, m.border);
    QRect const ground = clippedTo(shrunk(rect, m.space - m.padding), region);
    if (!rect.isEmpty() && !ground.isEmpty())
        paintBackground(this, painter, rect, widget, QRegion(ground));
    QRect visible = clippedTo(shrunk(rect, m.space), region);
    if (visible.isEmpty())
        return;
    QRegion clip(visible);

    guiNodeWatch self(this);
    scroll_t const& scroll = getScroll();
    if (!region)
        painter->save(); // the children clip the painter to themselves
    paintChildrenTo(painter, x + m.rect.left - static_cast<int>(scroll.posX),
                    y + m.rect.top - static_cast<int>(scroll.posY), widget, &clip);
    if (!region)
        painter->restore();
    if (self.alive())
        paintCornerTo(painter, x, y, widget, region);
}

// A custom element paints by script, which may replace this node's content or the whole page.
void guiHtml::paintChildrenTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region)
{
    guiNodeWatch self(this);
    guiRect damage = guiWholePlane();
    if (region) {
        QRect bounds = region->boundingRect();
        damage = {bounds.left() - x, bounds.width(), bounds.top() - y, bounds.height()};
    }
    guiChildSpan span(this, damage);
    for (guiHtml* child = span.next(); child; child = self.alive() ? span.next() : nullptr)
        child->paintTo(painter, x, y, widget, region);
}

void guiHtml::paintCornerTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region)
{
    scroll_t const& scroll = getScroll();
    if (!scroll.barX || !scroll.barY)
        return;
    if (region)
        painter->setClipRegion(*region);
    int width = scroll.barY->sizeHint().width();
    int height = scroll.barX->sizeHint().height();
    guiRect rect = moved(m.rect, x, y);
    int inset = m.border + m.space;
    painter->fillRect(rect.right() - width - inset, rect.bottom() - height - inset, width, height,
                      backgroundOf(this, widget));
}
