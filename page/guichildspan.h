// page/guichildspan.h: finds the children of a node that intersect an area without looking at all of them, so that
// painting, hit testing and scrolling take as long in the middle of a long page as at its top.
#pragma once

#include "page/guitypes.h"

class guiHtml;

/// Visits, in child order, the child nodes that are not put away and whose rectangles intersect `area` (in coordinates
/// of the parent's content). Layout stacks layers from top to bottom, so the first one is found by bisection and the
/// walk ends below the area; in lists of up to `kSmallList` entries every child is tested. Children may be removed
/// during the walk (then some are skipped), the parent may not. GUI thread.
class guiChildSpan
{
public:
    static constexpr unsigned kSmallList = 32;

    guiChildSpan(guiHtml const* parent, guiRect const& area);
    /// The next child, null at the end.
    guiHtml* next();

private:
    bool isPast(guiHtml const* child) const;

    guiHtml const* m_parent; // not owned
    guiRect m_area;
    unsigned m_at = 0;
    bool m_isSorted;
};

/// An area that intersects every node.
guiRect guiWholePlane();
