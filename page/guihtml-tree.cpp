// page/guihtml-tree.cpp: walks the tree: look-up by name, a node's position in its window, the keyboard focus order,
// and the Enter and Escape keys.
#include "page/guihtml.h"
#include "page/guinodewatch.h"

#include "foundation/vela-threadrole.h"
#include "page/guipagehost.h"
#include "page/guipageroot.h"
#include "page/guipagesurface.h"
#include "page/guitaborder.h"

#include <QScrollBar>
#include <QWidget>
#include <algorithm>
#include <cassert>
#include <vector>

guiHtml* guiHtml::getLastChild() const
{
    for (unsigned i = getChildCount(); i-- > 0;)
        if (guiChildList::isNode(getChild(i)))
            return getChild(i);
    return nullptr;
}

unsigned guiHtml::getDepth() const
{
    unsigned depth = 0;
    for (guiHtml const* node = m.parent; node; node = node->m.parent) {
        assert(node != this);
        ++depth;
    }
    return depth;
}

guiHtml* guiHtml::getNamed(sstring& name)
{
    if (isString(kStringName, name, true))
        return this;
    for (guiHtml* child : guiNodesOf(this))
        if (guiHtml* found = child->getNamed(name))
            return found;
    return nullptr;
}

guiHtml* guiHtml::getBookmarked(sstring& bookmark)
{
    if (isString(kStringBookmark, bookmark, true))
        return this;
    for (guiHtml* child : guiNodesOf(this))
        if (guiHtml* found = child->getBookmarked(bookmark))
            return found;
    return nullptr;
}

guiHtml* guiHtml::getNamed(sstring const& name)
{
    sstring copy = name;
    return getNamed(copy);
}

guiHtml* guiHtml::getBookmarked(sstring const& bookmark)
{
    sstring copy = bookmark;
    return getBookmarked(copy);
}

namespace {

guiHtml* topOf(guiHtml* node)
{
    while (node->getParent())
        node = node->getParent();
    return node;
}

/// The common part of two rectangles; width and height are never negative.
guiRect intersect(guiRect const& a, guiRect const& b)
{
    guiRect both;
    both.left = std::max(a.left, b.left);
    both.top = std::max(a.top, b.top);
    both.width = std::max(0, std::min(a.right(), b.right()) - both.left);
    both.height = std::max(0, std::min(a.bottom(), b.bottom()) - both.top);
    return both;
}

/// Moves a rectangle that is relative to the content of `parent` into the coordinates of `parent`'s own parent.
void moveOut(guiRect& rect, guiHtml* parent)
{
    guiHtml::scroll_t const& scroll = parent->getScroll();
    rect.left += parent->m.rect.left - static_cast<int>(scroll.posX);
    rect.top += parent->m.rect.top - static_cast<int>(scroll.posY);
}

} // namespace

QWidget* guiHtml::getTopLevelWidget()
{
    guiHtml* top = topOf(this);
    return top == this ? nullptr : top->getTopLevelWidget();
}

guiPageRoot* guiHtml::getBaseHtml()
{
    guiHtml* top = topOf(this);
    return top == this ? nullptr : top->getBaseHtml();
}

void guiHtml::getClientRect(guiRect* out)
{
    int const above = guiBarAbove(this);
    *out = m.rect;
    out->left += m.border;
    out->top += m.border + above;
    out->width = std::max(0, out->width - 2 * m.border);
    out->height = std::max(0, out->height - 2 * m.border - above - guiBarBelow(this));
}

void guiHtml::getRectInWidget(guiRect* out)
{
    *out = m.rect;
    for (guiHtml* above = m.parent; above; above = above->m.parent)
        moveOut(*out, above);
}

void guiHtml::getClipRect(guiRect* out)
{
    *out = m.rect;
    for (guiHtml* above = m.parent; above; above = above->m.parent) {
        guiRect client;
        above->getClientRect(&client);
        moveOut(*out, above);
        *out = intersect(*out, client);
    }
}

guiHtml* guiHtml::findWidget(QWidget* widget)
{
    if (widget && getChildWidget() == widget)
        return this;
    for (guiHtml* child : guiNodesOf(this))
        if (guiHtml* found = child->findWidget(widget))
            return found;
    return nullptr;
}

namespace {

/// The bar that stands for a pane whose content is larger than the pane; null for all other nodes, and for the page,
/// which the keys scroll in any case.
QScrollBar* paneBar(guiHtml* node)
{
    guiHtml::scroll_t const& scroll = node->getScroll();
    if (!node->getParent())
        return nullptr;
    return scroll.barY ? scroll.barY.data() : scroll.barX.data();
}

bool takesKeyboard(guiTabStop const& stop)
{
    if (!stop.widget)
        return stop.node->isEnabled() != 0;
    return stop.widget->isEnabled() && (stop.widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

void addLinks(guiHtml* node, std::vector<guiTabStop>& stops)
{
    std::vector<unsigned> places;
    node->findLinks(places);
    for (unsigned place : places)
        stops.push_back({node, nullptr, node->getTabIndex(), place});
}

/// In document order.
void findStops(guiHtml* node, bool withLinks, std::vector<guiTabStop>& stops)
{
    auto const first = static_cast<std::ptrdiff_t>(stops.size());
    QWidget* const widget = node->getChildWidget();
    if (widget || node->awaitsWidget())
        stops.push_back({node, widget, node->getTabIndex()});
    if (withLinks && node->isEnabled())
        addLinks(node, stops);
    for (guiHtml* child : guiNodesOf(node))
        if (child->m.visible)
            findStops(child, withLinks, stops);
    QScrollBar* const bar = node->isScrolled() ? paneBar(node) : nullptr;
    if (bar && std::none_of(stops.begin() + first, stops.end(), takesKeyboard))
        stops.push_back({node, bar, node->getTabIndex()});
}

} // namespace

std::vector<guiTabStop> guiTabStopsOf(guiHtml* page, bool withLinks)
{
    std::vector<guiTabStop> stops;
    findStops(page, withLinks, stops);
    auto const isBefore = [](guiTabStop const& a, guiTabStop const& b) { return a.tabIndex < b.tabIndex; };
    if (!std::is_sorted(stops.begin(), stops.end(), isBefore)) // it is, on most pages
        std::stable_sort(stops.begin(), stops.end(), isBefore);
    return stops;
}

namespace {

void giveFocus(guiHtml* control)
{
    if (control->awaitsWidget())
        control->createChildWidget();
    control->getChildWidget()->setFocus();
}

/// The order in which the toolkit goes through the widgets that there are.
void chain(std::vector<guiTabStop> const& stops)
{
    QWidget* before = nullptr;
    for (guiTabStop const& stop : stops) {
        if (before && stop.widget)
            QWidget::setTabOrder(before, stop.widget);
        before = stop.widget ? stop.widget : before;
    }
}

} // namespace

void guiHtml::updateTabOrder()
{
    assertOnGuiThread();
    if (!m.tabOrderDirty)
        return;
    m.tabOrderDirty = 0;
    std::vector<guiTabStop> const stops = guiTabStopsOf(this);
    if (stops.empty())
        return;
    QWidget* own = getTopLevelWidget();
    guiPageSurface const* const surface = own ? guiPageSurface::of(this) : nullptr;
    bool const isAtLink = surface && surface->isAtLink();
    auto const isControl = [](guiTabStop const& stop) { return stop.node->getChildWidget() == stop.widget; };
    auto const first = std::find_if(stops.begin(), stops.end(), isControl);
    if (own && own->hasFocus() && !isAtLink && first != stops.end())
        giveFocus(first->node);
    chain(stops);
}

int guiHtml::onEscape()
{
    guiPageRoot* base = getBaseHtml();
    if (!base || !hasString(kStringName) || !isString(kStringName, base->getEscapeControl()))
        return 0;
    guiPageHost::current().postTrigger(this);
    return 1;
}

int guiHtml::onEnter()
{
    guiPageRoot* base = getBaseHtml();
    if (!base || base == this)
        return 0;
    if (!hasString(kStringName) || !isString(kStringName, base->getEnterControl()))
        return base->onEnter();
    guiPageHost::current().postTrigger(this);
    return 1;
}

namespace {

guiHtml* outermostAway(guiHtml* node)
{
    guiHtml* found = nullptr;
    for (guiHtml* at = node; at; at = at->getParent())
        if (!at->m.visible)
            found = at;
    return found;
}

} // namespace

// Of several, the outer one first, so that each is laid out when it is seen. One that does not come is asked once.
void guiReveal(guiHtml* node)
{
    guiNodeWatch const self(node);
    guiHtml const* last = nullptr;
    while (guiHtml* part = self.alive() ? outermostAway(node) : nullptr) {
        if (part == last)
            return;
        last = part;
        part->bringToFront();
    }
}
