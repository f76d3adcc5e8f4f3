// controls/guititle.h: the attribute `title`, the tip that is shown where the pointer rests.
#pragma once

#include "foundation/vela-string.h"

#include <QPoint>
#include <QString>

class guiHtml;

/// A tip as the toolkit shows it: plain text, broken into lines.
QString guiTipOf(sstring const& text);

/// The title of the innermost element at a point of the page that has one, "" without one. GUI thread.
sstring guiTitleAt(guiHtml* page, QPoint at);
