// page/guihtml-mouse.cpp: finds the node under the pointer, and fires the events of a node when the pointer enters,
// leaves, moves and clicks. guihtml-link.cpp turns an event into a call of a handler; text runs override these
// handlers.
#include "foundation/vela-threadrole.h"
#include "page/guichildspan.h"
#include "page/guihtml.h"
#include "page/guilaterevents.h"
#include "page/guiuserevent.h"

namespace {

/// Fires the link of a mouse attribute, or `defaultLink` for a node without the attribute, as an event of this type.
/// The node may be gone afterwards.
void fire(guiHtml* node, sstring link, char const* type, char const* defaultLink)
{
    assertOnGuiThread();
    guiEventNote const note(type);
    if (link.getLength() == 0)
        link = sstring(defaultLink);
    if (!guiLaterEvents::take(node, link))
        node->onEvent(link, node->getCustomObject());
}

bool contains(guiRect const& rect, int x, int y)
{
    return x >= rect.left && x < rect.right() && y >= rect.top && y < rect.bottom();
}

/// Whether a point, relative to the node's own corner, lies inside its border and space, where its children show.
bool isInside(guiHtml const* node, int x, int y)
{
    int inset = node->m.border + node->m.space;
    return contains({inset, node->m.rect.width - 2 * inset, inset, node->m.rect.height - 2 * inset}, x, y);
}

/// The child under the point, the one painted last when several overlap.
guiHtml* hitChild(guiHtml* node, int* x, int* y)
{
    int fromX = *x + static_cast<int>(node->getScroll().posX);
    int fromY = *y + static_cast<int>(node->getScroll().posY);
    guiChildSpan span(node, {fromX, 1, fromY, 1});
    guiHtml* hit = nullptr;
    while (guiHtml* child = span.next()) {
        int childX = fromX;
        int childY = fromY;
        if (guiHtml* found = child->hitTest(&childX, &childY)) {
            hit = found;
            *x = childX;
            *y = childY;
        }
    }
    return hit;
}

} // namespace

guiHtml* guiHtml::hitTest(int* x, int* y)
{
    assertOnGuiThread();
    if (!contains(m.rect, *x, *y))
        return nullptr;
    int ownX = *x - m.rect.left;
    int ownY = *y - m.rect.top;
    int hitX = ownX;
    int hitY = ownY;
    guiHtml* hit = isInside(this, ownX, ownY) ? hitChild(this, &hitX, &hitY) : nullptr;
    if (!hit && !canHitTest())
        return nullptr;
    *x = hitX;
    *y = hitY;
    return hit ? hit : this;
}

// A plain node receives the pointer only if it has a mouse attribute; otherwise the node behind it does.
int guiHtml::canHitTest()
{
    return hasString(kStringMouseOver) || hasString(kStringMouseOut) || hasString(kStringMouseDown) ||
           hasString(kStringMouseUp);
}

void guiHtml::onMouseOn() { fire(this, getString(kStringMouseOver), "mouseover", "event://eMouseOver"); }
void guiHtml::onMouseOff() { fire(this, getString(kStringMouseOut), "mouseout", "event://eMouseOut"); }
void guiHtml::onMouseMove(int, int) { fire(this, sstring(), "mousemove", "event://eMouseMove"); }
void guiHtml::onMouseUp() { fire(this, getString(kStringMouseUp), "mouseup", "event://eMouseUp"); }
void guiHtml::onMouseDown(int, int) { fire(this, getString(kStringMouseDown), "mousedown", "event://eMouseDown"); }
