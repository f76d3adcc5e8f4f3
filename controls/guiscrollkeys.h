// controls/guiscrollkeys.h: the keys that scroll a page when the control that has the keyboard has no use for them.
#pragma once

#include "foundation/vela-threadrole.h"

class QKeyEvent;
class QScrollBar;
class guiHtml;

/// Page Up and Down, Home, End, the arrows and the space bar scroll the pane around `focused`, or the page when there
/// is nothing to scroll around it. `focused` (may be null) is the control that has the keyboard, `pane` (the same) the
/// vertical bar of the pane that was clicked last, which comes first. False for any other key, and where there is
/// nothing to scroll. GUI thread; may run script.
bool guiScrollByKey(guiHtml* page, guiHtml* focused, QScrollBar* pane, QKeyEvent const& event) TARN_ON(velaGuiRole);
