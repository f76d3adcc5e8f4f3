// page/guihtml-scroll.cpp: repaints a node, and scrolls one: the pixels move, the strip that appears is painted, and
// the native widgets among what was or becomes visible follow. The bars themselves are layout's (guihtmlsize.cpp).
#include "page/guichildspan.h"
#include "page/guihtml.h"
#include "page/guihtmlsize-scroll.h"
#include "page/guipagesurface.h"

#include <QScrollBar>
#include <QWidget>
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

/// One step of scrolling: the pixels of `area`, in widget coordinates, moved by `by`; or they could not be moved, and
/// the area is painted anew.
struct scrolling
{
    QWidget* window;
    QRect area;
    QPoint by;
    bool movesPixels;
};

/// What the toolkit would paint anew of a widget that moves, and of its window, it does not while this exists.
class quietMove
{
public:
    quietMove(QWidget* window, QWidget* widget) : m_window(window), m_widget(widget) { setQuiet(true); }
    ~quietMove() { setQuiet(false); }
    quietMove(quietMove const&) = delete;
    quietMove& operator=(quietMove const&) = delete;

private:
    // Not setUpdatesEnabled(), which paints everything when it is switched on again.
    void setQuiet(bool quiet)
    {
        m_window->setAttribute(Qt::WA_UpdatesDisabled, quiet);
        m_widget->setAttribute(Qt::WA_UpdatesDisabled, quiet);
    }

    QWidget* m_window; // not owned
    QWidget* m_widget; // not owned
};

/// Moves the clip widget of a control that lies whole in the area before and after: its pixels are there already. False
/// when it is another case. What was moved before stays.
bool moveWithPixels(scrolling const& step, guiHtml* node)
{
    QWidget const* control = node->getChildWidget();
    QWidget* clipper = step.movesPixels && control ? control->parentWidget() : nullptr;
    if (!clipper || clipper->parentWidget() != step.window || !clipper->isVisible())
        return false;
    guiRect rect;
    node->getRectInWidget(&rect);
    QRect const before = clipper->geometry();
    QRect const place = toQRect(rect);
    bool const isWhole = clipper->rect() == control->geometry() && step.area.contains(place);
    if (before == place)
        return isWhole;
    if (!isWhole || !step.area.contains(before) || before.translated(step.by) != place)
        return false;
    quietMove quiet(step.window, clipper);
    clipper->move(place.topLeft());
    return true;
}

// Of opaque widgets the toolkit moves the pixels too, from where others lie already: what is moved here is painted
// anew.

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

/// Puts the native widgets of all nodes that meet the area (in the coordinates of `parent`'s content) in their places.
void placeWidgets(scrolling const& step, guiHtml* parent, guiRect const& area)
{
    guiChildSpan span(parent, area);
    while (guiHtml* child = span.next()) {
        guiHtml::scroll_t const& scroll = child->getScroll();
        if (child->getType() == guiHtml::kTypeControl) {
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

bool meet(guiRect const& a, guiRect const& b) { return toQRect(a).intersects(toQRect(b)); }

guiRect around(guiRect const& a, guiRect const& b)
{
    QRect const both = toQRect(a) | toQRect(b);
    return {both.left(), both.width(), both.top(), both.height()};
}

/// Puts all native widgets in their places that were or are in one of the two parts of the node's content.
void placeWidgetsIn(scrolling const& step, guiHtml* node, guiRect const& before, guiRect const& after)
{
    if (meet(before, after)) {
        placeWidgets(step, node, around(before, after));
        return;
    }
    placeWidgets(step, node, before);
    placeWidgets(step, node, after);
}

/// Scrolls to (x, y), which must be within the ranges.
void scrollTo(guiHtml* node, unsigned x, unsigned y)
{
    guiHtml::scroll_t& scroll = node->ensureScroll();
    int dx = static_cast<int>(scroll.posX) - static_cast<int>(x);
    int dy = static_cast<int>(scroll.posY) - static_cast<int>(y);
    if (dx == 0 && dy == 0)
        return;
    guiRect after = contentArea(node);
    guiRect before = after;
    before.left += static_cast<int>(scroll.posX);
    before.top += static_cast<int>(scroll.posY);
    after.left += static_cast<int>(x);
    after.top += static_cast<int>(y);
    scroll.posX = x;
    scroll.posY = y;

    QWidget* widget = node->getTopLevelWidget();
    if (!widget)
        return;
    scrolling step{widget, visibleArea(node), QPoint(dx, dy), false};
    guiPageSurface* surface = hasFixedPicture(node) ? nullptr : guiPageSurface::of(node);
    if (surface)
        step.movesPixels = surface->scrollPixels(step.area, dx, dy);
    else
        widget->update(step.area);
    placeWidgetsIn(step, node, before, after);
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
