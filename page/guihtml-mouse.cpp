// page/guihtml-mouse.cpp: which node lies under the pointer, and the events that a node fires when the pointer comes,
// goes, moves and clicks. guihtml-link.cpp turns an event into a call of a handler; text runs have handlers of their
// own.
#include "page/guichildspan.h"
#include "page/guihtml.h"
#include "page/guilaterevents.h"

namespace {

/// Fires the link of a mouse attribute, or the default one of a node without the attribute. The node may be gone
/// afterwards.
void fire(guiHtml* node, sstring link, char const* defaultLink)
{
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

// A plain node takes the pointer when its page asks for it: text and cells without handlers let it through to the node
// behind.
int guiHtml::canHitTest()
{
    return hasString(kStringMouseOver) || hasString(kStringMouseOut) || hasString(kStringMouseDown) ||
           hasString(kStringMouseUp);
}

void guiHtml::onMouseOn() { fire(this, getString(kStringMouseOver), "event://eMouseOver"); }
void guiHtml::onMouseOff() { fire(this, getString(kStringMouseOut), "event://eMouseOut"); }
void guiHtml::onMouseMove(int, int) { fire(this, sstring(), "event://eMouseMove"); }
void guiHtml::onMouseUp() { fire(this, getString(kStringMouseUp), "event://eMouseUp"); }
void guiHtml::onMouseDown(int, int) { fire(this, getString(kStringMouseDown), "event://eMouseDown"); }
