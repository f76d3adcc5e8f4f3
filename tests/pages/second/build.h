// tests/pages/second/build.h: from markup to nodes.
#pragma once

#include "tests/pages/second/node.h"

namespace second {

/// The tree of a page file, not laid out yet. Null when the file can not be read or holds no page.
std::unique_ptr<node> buildPage(QString const& name);

} // namespace second
