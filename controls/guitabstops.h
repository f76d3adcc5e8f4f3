// controls/guitabstops.h: the way of the Tab key through the controls and links of a page. It reaches all of them, also
// those that are scrolled out of view, which the toolkit passes over.
#pragma once

#include "foundation/vela-threadrole.h"

class QRect;
class QWidget;
class guiCurrentLink;
class guiHtml;

/// Gives the keyboard to the control behind `from`, or before it, by tab index and in document order, and scrolls the
/// page to it. `from` is null or what has the keyboard now. Behind the last comes the first. Disabled controls are left
/// out; a group of radio buttons is one stop, at its checked button. With `links` the links of the page are stops, too,
/// and the current one of them has the keyboard. False when the page has no other stop. GUI thread; may run script.
bool guiFocusNext(guiHtml* page, QWidget* from, bool forward, guiCurrentLink* links = nullptr) TARN_ON(velaGuiRole);

/// Whether what has the keyboard in the window is at or below the node.
bool guiHoldsFocus(guiHtml* node);

/// Scrolls all panes around the node so far that it can be seen; does nothing when it can.
void guiScrollIntoView(guiHtml* node) TARN_ON(velaGuiRole);
/// The same for a part of it, relative to its corner.
void guiScrollIntoView(guiHtml* node, QRect const& part) TARN_ON(velaGuiRole);
