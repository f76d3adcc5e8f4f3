// page/guihtmlsize-scrollto.cpp: repaints and scrolls a node. Scrolling moves the pixels, paints the strip that
// appears, and moves the native widgets that were or become visible. Layout makes the scroll bars
// (guihtmlsize-scroll.cpp).
#include "foundation/vela-threadrole.h"
#include "page/guichildspan.h"
#include "page/guihtml.h"
#include "page/guihtmlsize-scroll.h"
#include "page/guihtmlsize.h"
#include "page/guipageroot.h"
#include "page/guipagesurface.h"
#include "page/guiqrect.h"

#include <QScrollBar>
#include <QWidget>
#include <algorithm>
#include <cassert>

namespace {

/// Where a node shows its content, relative to its own corner: inside border, space and scroll bars; in a root, below
/// the menu bar.
guiRect contentArea(guiHtml* node)
{
    int inset = node->m.border + node->m.space;
    int above = guiBarAbove(node);
    return {inset, node->m.rect.width - 2 * inset - guiBarWidth(node), inset + above,
            node->m.rect.height - 2 * inset - above - guiBarBelow(node) - guiBarHeight(node)};
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
    return guiToQRect(area).translated(corner.left, corner.top).intersected(guiToQRect(clip));
}

/// A background picture does not scroll with the content, so the pixels can not simply be moved.
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

/// One scroll step: the pixels of `area`, in widget coordinates, were moved by `by`, or, if that was not possible, the
/// area is repainted.
struct scrolling
{
    QWidget* window;
    QRect area;
    QPoint by;
    bool movesPixels;
};

/// While this exists, the toolkit does not repaint the widget and its window when the widget moves.
class quietMove
{
public:
    quietMove(QWidget* window, QWidget* widget) : m_window(window), m_widget(widget) { setQuiet(true); }
    ~quietMove() { setQuiet(false); }
    quietMove(quietMove const&) = delete;
    quietMove& operator=(quietMove const&) = delete;

private:
    // Not setUpdatesEnabled(), which repaints everything when updates are enabled again.
    void setQuiet(bool quiet)
    {
        m_window->setAttribute(Qt::WA_UpdatesDisabled, quiet);
        m_widget->setAttribute(Qt::WA_UpdatesDisabled, quiet);
    }

    QWidget* m_window; // not owned
    QWidget* m_widget; // not owned
};

/// Moves the clip widget of a control that is wholly inside the area before and after the step: its pixels have been
/// moved already. False in all other cases. A control that is already in its place stays there.
bool moveWithPixels(scrolling const& step, guiHtml* node)
{
    QWidget const* control = node->getChildWidget();
    QWidget* clipper = step.movesPixels && control ? control->parentWidget() : nullptr;
    if (!clipper || clipper->parentWidget() != step.window || !clipper->isVisible())
        return false;
    guiRect rect;
    node->getRectInWidget(&rect);
    QRect const before = clipper->geometry();
    QRect const place = guiToQRect(rect);
    bool const isWhole = clipper->rect() == control->geometry() && step.area.contains(place);
    if (before == place)
        return isWhole;
    if (!isWhole || !step.area.contains(before) || before.translated(step.by) != place)
        return false;
    quietMove quiet(step.window, clipper);
    clipper->move(place.topLeft());
    return true;
}

// The toolkit moves the pixels of opaque widgets too, although scrolling has already overwritten them, so the widget is
// repainted.
void placeControl(scrolling const& step, guiHtml* node)
{
    if (moveWithPixels(step, node))
        return;
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

/// Moves the native widgets of all nodes that intersect the area (in coordinates of `parent`'s content) into place.
void placeWidgets(scrolling const& step, guiHtml* parent, guiRect const& area)
{
    guiChildSpan span(parent, area);
    while (guiHtml* child = span.next()) {
        guiHtml::scroll_t const& scroll = child->getScroll();
        if (child->getType() == guiHtml::kTypeControl && child->getChildCount() == 0) {
            placeControl(step, child);
            continue;
        }
        if (scroll.barX || scroll.barY)
            placeBars(child);
        guiRect inside = area;
        inside.left += static_cast<int>(scroll.posX) - child->m.rect.left;
        inside.top += static_cast<int>(scroll.posY) - child->m.rect.top;
        placeWidgets(step, child, inside);
    }
}

guiRect moved(guiRect rect, QPoint by)
{
    rect.left += by.x();
    rect.top += by.y();
    return rect;
}

bool intersect(guiRect const& a, guiRect const& b) { return guiToQRect(a).intersects(guiToQRect(b)); }

guiRect around(guiRect const& a, guiRect const& b)
{
    QRect const both = guiToQRect(a) | guiToQRect(b);
    return {both.left(), both.width(), both.top(), both.height()};
}

/// Moves all native widgets into place that are in the part of the content shown before or in the one shown after.
void placeWidgetsIn(scrolling const& step, guiHtml* node, guiRect const& before, guiRect const& after)
{
    if (intersect(before, after)) {
        placeWidgets(step, node, around(before, after));
        return;
    }
    placeWidgets(step, node, before);
    placeWidgets(step, node, after);
}

QPoint positionOf(guiHtml::scroll_t const& scroll)
{
    return {static_cast<int>(scroll.posX), static_cast<int>(scroll.posY)};
}

/// Moves or repaints what the window shows of the node's content.
scrolling showStep(guiHtml* node, QWidget* window, QPoint by)
{
    scrolling step{window, visibleArea(node), by, false};
    guiPageSurface* surface = hasFixedPicture(node) ? nullptr : guiPageSurface::of(node);
    if (surface)
        step.movesPixels = surface->scrollPixels(step.area, by.x(), by.y());
    else
        window->update(step.area);
    return step;
}

/// Scrolls to (x, y), of which each is within its range or the present position.
void scrollTo(guiHtml* node, unsigned x, unsigned y)
{
    guiHtml::scroll_t& scroll = node->ensureScroll();
    assert(x <= scroll.rangeX || x == scroll.posX);
    assert(y <= scroll.rangeY || y == scroll.posY);
    QPoint const from = positionOf(scroll);
    scroll.posX = x;
    scroll.posY = y;
    QPoint const to = positionOf(scroll);
    QWidget* window = node->getTopLevelWidget();
    if (from == to || !window)
        return;
    scrolling const step = showStep(node, window, from - to);
    guiRect const area = contentArea(node);
    placeWidgetsIn(step, node, moved(area, from), moved(area, to));
}

unsigned limited(int pos, unsigned range) { return std::min(static_cast<unsigned>(std::max(pos, 0)), range); }

} // namespace

void guiHtml::update()
{
    assertOnGuiThread();
    QWidget* widget = getTopLevelWidget();
    if (!widget)
        return;
    guiRect clip;
    getClipRect(&clip);
    if (!clip.isEmpty())
        widget->update(guiToQRect(clip));
}

void guiHtml::onScrollX(int pos)
{
    assertOnGuiThread();
    scrollTo(this, limited(pos, getScroll().rangeX), getScroll().posY);
}

void guiHtml::onScrollY(int pos)
{
    assertOnGuiThread();
    scrollTo(this, getScroll().posX, limited(pos, getScroll().rangeY));
}
