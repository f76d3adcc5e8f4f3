// controls/guitabkeys.h: the keys that turn tabs wherever in the page the keyboard is.
#pragma once

#include "foundation/vela-threadrole.h"

class QKeyEvent;
class guiHtml;

/// Ctrl+Tab and Ctrl+PageDown turn to the next tab, with Shift and Ctrl+PageUp to the one before: of the tabs around
/// `focused`, which may be null, or else of the first that the page shows. False for all other keys, and without tabs.
/// GUI thread; may run script.
bool guiTurnTabs(guiHtml* page, guiHtml* focused, QKeyEvent const& event) TARN_ON(velaGuiRole);
