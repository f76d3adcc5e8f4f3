// tests/pages/second/layout.h: sizes and places of all nodes, computed a second time in the plainest way.
#pragma once

#include "tests/pages/second/node.h"

namespace second {

/// Lays a page out in a window of that size.
void layOut(node& root, int width, int height);

/// The width that a node prefers, negative: percent.
int preferredWidth(node const& node);

} // namespace second
