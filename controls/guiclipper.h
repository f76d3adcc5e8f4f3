// controls/guiclipper.h: the clip widgets of a window's controls. Those of which something is to be seen are children
// of the window. The toolkit looks at every child of the window whenever it paints or moves one of them, so the others,
// of which a long page has thousands, wait as children of one hidden widget.
#pragma once

class QRect;
class QWidget;
class guiWidget;

/// A new clip widget of the window, which owns it; hidden. `isInView`: whether something of it is going to be seen.
QWidget* guiCreateClipper(guiWidget* window, bool isInView);

/// Puts the clip widget there, in coordinates of its window, and shows it; an empty place hides it. The widget in it
/// keeps the keyboard focus, as far as the toolkit leaves it to a widget that is hidden.
void guiPlaceClipper(QWidget* clipper, guiWidget* window, QRect const& place);
