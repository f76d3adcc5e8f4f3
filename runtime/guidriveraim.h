// runtime/guidriveraim.h: where a thing on a window can be clicked, or why it can not.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QPoint>
#include <QString>

struct guiDriverThing;
class QWidget;

/// A place in the window, in its own pixels, or a problem, in words for the user.
struct guiDriverPlace
{
    QPoint at;
    QString problem; ///< "": the place is good
};

/// Scrolls the thing into view, makes its widget if that waits to be needed, and finds the place in its middle that a
/// click would reach. May run script. GUI thread.
guiDriverPlace guiDriver_aim(QWidget* window, guiDriverThing const& thing) TARN_ON(velaGuiRole);
