// controls/guizoomstyle.h: the parts of native widgets that have a size of their own, such as the square of a check
// box, on a page that is zoomed.
#pragma once

class QWidget;

/// Has the widget's style draw them at this zoom, in percent. At 100 the widget keeps the style that it has. GUI
/// thread.
void guiZoomWidget(QWidget* widget, unsigned percent);
