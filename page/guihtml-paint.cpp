// page/guihtml-paint.cpp: paints a plain node: border or group box, background, children, and the corner between two
// scroll bars. Text runs, images and custom elements override this.
#include "page/guichildspan.h"
#include "page/guicolor.h"
#include "page/guihtml.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guipainting.h"
#include "page/guiqrect.h"
#include "page/guisavedpainter.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"

#include <QFont>
#include <QPainter>
#include <QPixmap>
#include <QRegion>
#include <QScrollBar>
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
    if (node->hasBackgroundColor())
        return toQColor(node->getBackgroundColor());
    QWidget const* widget = window ? node->getTopLevelWidget() : nullptr;
    return widget ? widget->palette().color(QPalette::Window) : toQColor(guiColor::LightGray);
}

void paintBackground(guiHtml* node, QPainter* painter, guiRect const& rect, guiWidget* widget, QRegion const& clip)
{
    bool isNamed = node->hasString(kStringBackground);
    if (isNamed && node->isBackgroundLoaded())
        drawClippedTile(painter, *node->getBackgroundPixmap(), rect.left, rect.top, &clip);
    else if (isNamed || node->hasBackgroundColor())
        fillClippedRect(painter, backgroundOf(node, widget), &clip);
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
    painter->setPen(toQColor(guiColor::Black));
    painter->drawText(box, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, sstoq(node->getString(kStringCaption)));
}

void paintGroupBox(guiHtml* node, QPainter* painter, guiRect const& rect)
{
    int captionWidth = static_cast<int>(node->getCaptionWidth());
    int captionHeight = static_cast<int>(node->getCaptionHeight());
    int gapLeft = rect.left + kCaptionIndent;
    int gap = std::max(0, std::min(rect.width - 2 * kCaptionIndent, captionWidth + 2 * kCaptionMargin));

    if (node->m.border > 1 && rect.width > 3 && rect.height > 3) {
        int top = rect.top + captionHeight / 2;
        QRect inner(rect.left + 1, top + 1, rect.width - 2, rect.bottom() - top - 2);
        QRect outer(rect.left, top, rect.width - 2, rect.bottom() - top - 2);
        drawOpenFrame(painter, gapLeft, gapLeft + gap, inner, guiColor::White);
        drawOpenFrame(painter, gapLeft, gapLeft + gap, outer, guiColor::DarkGray);
    }
    if (!node->isString(kStringCaption, sstring(kEmptyGroupBox)))
        drawCaption(
            node, painter,
            QRect(gapLeft + kCaptionMargin, rect.top, gap - 2 * kCaptionMargin, captionHeight + node->m.border));
}

} // namespace

void guiHtml::paintBorder(QPainter* painter, guiRect* rect, int highlight)
{
    if (hasString(kStringCaption)) {
        paintGroupBox(this, painter, *rect);
        return;
    }
    guiColor outer = highlight ? static_cast<guiColor>(m.activeLinkColor) : getBorderColor();
    guiColor inner = highlight ? dimmed(m.activeLinkColor) : getBorderDark();
    if (m.border > 1 && rect->width > 1 && rect->height > 1)
        drawFrame(painter, shrunk(*rect, 1), m.border - 1, toQColor(inner));
    if (m.border != 0)
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
