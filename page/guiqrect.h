// page/guiqrect.h: a rectangle of a page as the toolkit's.
#pragma once

#include "page/guitypes.h"

#include <QRect>

inline QRect guiToQRect(guiRect const& rect) { return {rect.left, rect.top, rect.width, rect.height}; }
