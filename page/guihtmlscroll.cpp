// page/guihtmlscroll.cpp: repaints a node, and scrolls one: the pixels move, the strip that appears is painted, and the
// native widgets among what was or becomes visible follow. The bars themselves are layout's (guihtmlsize.cpp).
#include "controls/guiwidget.h"
#include "page/guichildspan.h"
#include "page/guihtml.h"
#include "page/guihtmlsize-scroll.h"

#include <QScrollBar>
#include <algorithm>

namespace {

QRect toQRect(guiRect const& rect) { return {rect.left, rect.top, rect.width, rect.height}; }

/// Where a node shows its content, relative to its own corner: inside border, space and scroll bars; of a window below
/// its menu.
guiRect contentArea(guiHtml* node)
{
    int inset = node->m.border + node->m.space;
    bool isRoot = node->getType() == guiHtml::kTypeBase;
    int above = isRoot ? node->m.rect.height - static_cast<int>(node->m.activeCy) : 0;
    return {inset, node->m.rect.width - 2 * inset - guiBarWidth(node), inset + above,
            node->m.rect.height - 2 * inset - above - guiBarHeight(node)};
}

/// The part of the content area that is visible, in widget coordinates.
QRect visibleArea(guiHtml* node)
{
    guiRect corner;
    guiRect clip;
    node->getRectInWidget(&corner);
    node->getClipRect(&clip);
    guiRect area = contentArea(node);
    if (area.isEmpty() || clip.isEmpty())
        return {};
    return toQRect(area).translated(corner.left, corner.top).intersected(toQRect(clip));
}

/// A picture behind the content stays where it is, so the pixels can not simply move.
bool hasFixedPicture(guiHtml const* node)
{
    for (; node; node = node->getParent()) {
        if (node->hasString(kStringBackground) && node->isBackgroundLoaded())
            return true;
        if (node->hasBackgroundColor())
            return false;
    }
    return false;
}

// Of opaque widgets the toolkit moves the pixels too, from where others lie already: what is moved here is painted
// anew.

void placeControl(guiHtml* node)
{
    guiRect rect = node->m.rect;
    node->setRect(&rect);
    if (QWidget* widget = node->getChildWidget())
        widget->update();
}

void placeBars(guiHtml* node)
{
    node->updateScrollbarRanges();
    guiHtml::scroll_t const& scroll = node->getScroll();
    if (scroll.barX)
        scroll.barX->update();
    if (scroll.barY)
        scroll.barY->update();
}

/// Puts the native widgets of all nodes that meet the area (in the coordinates of `parent`'s content) in their places.
void placeWidgets(guiHtml* parent, guiRect const& area)
{
    guiChildSpan span(parent, area);
    while (guiHtml* child = span.next()) {
        guiHtml::scroll_t const& scroll = child->getScroll();
        if (child->getType() == guiHtml::kTypeControl) {
            placeControl(child);
            continue;
        }
        if (scroll.barX || scroll.barY)
            placeBars(child);
        guiRect inside = area;
        inside.left += static_cast<int>(scroll.posX) - child->m.rect.left;
        inside.top += static_cast<int>(scroll.posY) - child->m.rect.top;
        placeWidgets(child, inside);
    }
}

/// Scrolls to (x, y), which must be within the ranges.
void scrollTo(guiHtml* node, unsigned x, unsigned y)
{
    guiHtml::scroll_t& scroll = node->ensureScroll();
    int dx = static_cast<int>(scroll.posX) - static_cast<int>(x);
    int dy = static_cast<int>(scroll.posY) - static_cast<int>(y);
    if (dx == 0 && dy == 0)
        return;
    guiRect shown = contentArea(node);
    guiRect before = shown;
    before.left += static_cast<int>(scroll.posX);
    before.top += static_cast<int>(scroll.posY);
    shown.left += static_cast<int>(x);
    shown.top += static_cast<int>(y);
    scroll.posX = x;
    scroll.posY = y;

    auto* widget = static_cast<guiWidget*>(node->getTopLevelWidget());
    if (!widget)
        return;
    QRect area = visibleArea(node);
    if (hasFixedPicture(node))
        widget->update(area);
    else
        widget->scrollPixels(area, dx, dy);
    placeWidgets(node, before);
    placeWidgets(node, shown);
}

unsigned limited(int pos, unsigned range) { return std::min(static_cast<unsigned>(std::max(pos, 0)), range); }

} // namespace

void guiHtml::update()
{
    QWidget* widget = getTopLevelWidget();
    if (!widget)
        return;
    guiRect clip;
    getClipRect(&clip);
    if (!clip.isEmpty())
        widget->update(toQRect(clip));
}

void guiHtml::onScrollX(int pos) { scrollTo(this, limited(pos, getScroll().rangeX), getScroll().posY); }
void guiHtml::onScrollY(int pos) { scrollTo(this, getScroll().posX, limited(pos, getScroll().rangeY)); }
