// controls/guititle.h: the attribute `title`, the tip that is shown where the pointer rests.
#pragma once

#include "foundation/vela-string.h"

#include <QPoint>
#include <QString>

class guiHtml;

/// A tip as the toolkit shows it: plain text, broken into lines.
QString guiTipOf(sstring const& text);

/// The title of the innermost element at a point that has one, "" without one. The point is relative to the content of
/// the node's parent. GUI thread.
sstring guiTitleAt(guiHtml* node, QPoint at);
