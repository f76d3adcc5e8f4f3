// tests/pages/second/measure.h: what texts and controls measure, asked from the toolkit's own font metrics.
#pragma once

#include "tests/pages/second/node.h"

#include <QFont>

namespace second {

struct font
{
    QFont face;
    int points;
};

/// The font that a node has from its override, its parents or the application.
font fontOf(node const& node);
/// The unbroken width of a leaf.
int leafWidth(node const& leaf);
/// The least width of a bar of tabs.
int leastBarWidth(node const& bar);
/// The height of a leaf that is `width` wide.
int leafHeight(node const& leaf, int width);
/// The width of a vertical scroll bar, which is the height of a horizontal one.
int barWidth();
/// The height of a menu bar.
int menuHeight();
/// Line spacing of a node's font.
int lineSpacing(node const& node);

} // namespace second
