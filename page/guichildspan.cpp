// page/guichildspan.cpp: see guichildspan.h.
#include "page/guichildspan.h"

#include "page/guihtml.h"

#include <cassert>

namespace {

bool intersects(guiRect const& a, guiRect const& b)
{
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

/// The first node at or after entry `i`, null when only markers follow.
guiHtml const* nodeFrom(guiHtml const* parent, unsigned i)
{
    for (; i < parent->getChildCount(); ++i)
        if (guiChildList::isNode(parent->getChild(i)))
            return parent->getChild(i);
    return nullptr;
}

guiHtml const* nodeBefore(guiHtml const* parent, unsigned i)
{
    while (i-- > 0)
        if (guiChildList::isNode(parent->getChild(i)))
            return parent->getChild(i);
    return nullptr;
}

/// The first entry from which on all nodes lie at `top` or lower.
unsigned firstAtOrBelow(guiHtml const* parent, int top)
{
    unsigned low = 0;
    unsigned high = parent->getChildCount();
    while (low < high) {
        unsigned middle = low + (high - low) / 2;
        guiHtml const* node = nodeFrom(parent, middle);
        if (node && node->m.rect.top < top)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

/// The first entry of the layer at `top`, or of the layer above when `top` lies between two.
unsigned firstOfLayer(guiHtml const* parent, int top)
{
    guiHtml const* last = nodeBefore(parent, firstAtOrBelow(parent, top + 1));
    return last ? firstAtOrBelow(parent, last->m.rect.top) : 0;
}

} // namespace

guiRect guiWholePlane()
{
    constexpr int kFar = 1 << 29;
    return {-kFar, 2 * kFar, -kFar, 2 * kFar};
}

guiChildSpan::guiChildSpan(guiHtml const* parent, guiRect const& area)
    : m_parent(parent), m_area(area), m_isSorted(parent->getChildCount() > kSmallList)
{
    if (m_isSorted)
        m_at = firstOfLayer(parent, area.top);
    assert(m_at <= parent->getChildCount());
}

bool guiChildSpan::isPast(guiHtml const* child) const { return m_isSorted && child->m.rect.top >= m_area.bottom(); }

guiHtml* guiChildSpan::next()
{
    while (m_at < m_parent->getChildCount()) {
        guiHtml* child = m_parent->getChild(m_at++);
        if (!guiChildList::isNode(child))
            continue;
        if (isPast(child))
            return nullptr;
        if (child->m.visible && intersects(child->m.rect, m_area))
            return child;
    }
    return nullptr;
}
