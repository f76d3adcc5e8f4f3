// controls/guitextmenu.h: the context menu for the text of a page, where the page itself has none.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QPoint>

class guiTextWindow;

/// Shows it for a point of the window, at a place of the screen, both in pixels. False where there is nothing to select
/// or to copy, and where an element hears of the mouse itself. GUI thread.
bool guiShowTextMenu(guiTextWindow& window, QPoint at, QPoint place) TARN_ON(velaGuiRole);
