// controls/guiframe.h: the frame of a widget on a screen of a fractional scale, such as 1.5 screen pixels per page
// pixel.
#pragma once

class QAbstractScrollArea;

/// Paints the widget's frame on whole pixels of the screen; call it for the widget's paint event. There the toolkit
/// draws lines where the widget's clip region or its viewport, which are rounded otherwise, hide them. False, and
/// nothing is painted, at a scale at which page pixels are whole ones. GUI thread.
bool guiPaintFrame(QAbstractScrollArea* area);
