// controls/guiclipper.h: the clip widgets of a window's controls. The visible ones are children of the window. The
// toolkit visits every child of the window whenever it paints or moves one of them, so the others, of which a long page
// has thousands, are children of one hidden widget. GUI thread.
#pragma once

#include <QWidget>

class QRect;
class guiHtml;
class guiWidget;

/// Holds the widget of one control.
class guiClipper : public QWidget
{
public:
    guiClipper(QWidget* parent, guiHtml* control) : QWidget(parent), owner(control) {}

    guiHtml* owner; ///< the control; null once it has let go of this. Not owned.
};

/// A new clip widget for a control of the window, which owns it; hidden. `isInView`: whether part of it will be
/// visible.
guiClipper* guiCreateClipper(guiWidget* window, guiHtml* control, bool isInView);

/// The clip widget that this one is, or is in; null for none.
guiClipper* guiClipperOf(QWidget* widget);

/// Moves the clip widget to `place`, in coordinates of its window, and shows it; an empty place hides it. The widget in
/// it keeps the keyboard focus, as far as the toolkit lets a hidden widget keep it.
void guiPlaceClipper(guiClipper* clipper, guiWidget* window, QRect const& place);
