// page/guicolor.h: colours between pages and the toolkit, component by component.
#pragma once

#include "page/guitypes.h"

#include <QColor>

inline QColor toQColor(guiColor color) { return QColor(color.red, color.green, color.blue); }
inline QColor guitoq(guiColor const& color) { return toQColor(color); }
inline guiColor qtogui(QColor const& color) { return {color.red(), color.green(), color.blue()}; }
