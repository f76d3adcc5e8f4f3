// page/guibookmark.h: jumps to the place that "#name" behind a file's name means.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"

class guiHtml;

/// Scrolls the page, and what scrolls within it, so that the node with the bookmark is at the top. One in `within`
/// comes before others of that name in the page. False when there is none. GUI thread.
bool guiJumpTo(guiHtml* within, sstring const& bookmark) TARN_ON(velaGuiRole);
/// Does the same as soon as the page is laid out in a window that is shown. A later call for the same node counts.
void guiJumpLater(guiHtml* within, sstring const& bookmark) TARN_ON(velaGuiRole);
/// The page of this root has been laid out, or shown.
void guiDoJumps(guiHtml* root) TARN_ON(velaGuiRole);
