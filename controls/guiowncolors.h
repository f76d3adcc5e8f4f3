// controls/guiowncolors.h: colours of a widget that are made of those around it, and follow them.
#pragma once

#include <functional>

class guiHtml;
class QPalette;
class QWidget;

/// Sets in `own` the colours that the widget is to have in place of those that it has from `around`.
using guiColorChooser = std::function<void(QPalette const& around, QPalette& own)>;

/// Has the colours chosen now and whenever the palette changes, as long as the widget lives. A widget may have several
/// of these. GUI thread.
void guiChooseColors(QWidget* widget, guiColorChooser choose);

/// For a widget that writes on the page behind it: on a ground that the page gives, where the desktop's colours do not
/// read, it gets those that do. The node must outlive the widget. GUI thread.
void guiReadOnPage(QWidget* widget, guiHtml* node);
