// page/guifindat.h: what of a page lies under a point.
#pragma once

#include "page/guichildspan.h"
#include "page/guihtml.h"

#include <QPoint>

/// Asks the nodes that cover a point, the innermost first, until `ask(node, inside)` finds something: a pointer or an
/// optional, which is returned; empty when none does. `at` is relative to the content of the node's parent, `inside` to
/// that of the node that is asked. GUI thread.
template <typename Ask>
auto guiFindAt(guiHtml* node, QPoint at, Ask const& ask) -> decltype(ask(node, at))
{
    guiRect const rect = node->m.rect;
    if (at.x() < rect.left || at.x() >= rect.right() || at.y() < rect.top || at.y() >= rect.bottom())
        return {};
    guiHtml::scroll_t const& scroll = node->getScroll();
    QPoint const inside(at.x() - rect.left + static_cast<int>(scroll.posX),
                        at.y() - rect.top + static_cast<int>(scroll.posY));
    guiChildSpan span(node, {inside.x(), 1, inside.y(), 1});
    while (guiHtml* child = span.next())
        if (auto found = guiFindAt(child, inside, ask))
            return found;
    return ask(node, inside);
}
