// controls/guicontrolpicture.h: paints controls elsewhere than in their window.
#pragma once

#include "foundation/vela-threadrole.h"

class guiHtml;
class QPainter;
class QRect;

/// Paints the widget of a control as it looks now, but in the size of `place` and where that is. A control that awaits
/// its widget has one for this moment. What is not a control, or has no widget, is not painted. Runs no script. GUI
/// thread, while the page is laid out for paper (guiOnPaper).
void guiPaintControl(QPainter& painter, guiHtml* node, QRect const& place) TARN_ON(velaGuiRole);
