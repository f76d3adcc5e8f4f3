// controls/guiclipper.h: the clip widgets of a window's controls. The visible ones are children of the window. The
// toolkit visits every child of the window whenever it paints or moves one of them, so the others, of which a long page
// has thousands, are children of one hidden widget. GUI thread.
#pragma once

class QRect;
class QWidget;
class guiWidget;

/// A new clip widget of the window, which owns it; hidden. `isInView`: whether part of it will be visible.
QWidget* guiCreateClipper(guiWidget* window, bool isInView);

/// Whether the widget is one of these.
bool guiIsClipper(QWidget const* widget);

/// Moves the clip widget to `place`, in coordinates of its window, and shows it; an empty place hides it. The widget in
/// it keeps the keyboard focus, as far as the toolkit lets a hidden widget keep it.
void guiPlaceClipper(QWidget* clipper, guiWidget* window, QRect const& place);
