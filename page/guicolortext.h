// page/guicolortext.h: colours as pages write them: the names of CSS, and "#" with three or six hexadecimal
// digits.
#pragma once

#include "foundation/vela-string.h"
#include "page/guitypes.h"

/// "#RRGGBB" for a name, any other text unchanged.
sstring guiColorToHex(sstring const& color);

/// Whether the text is a colour; stores it in that case.
bool guiReadColor(sstring const& color, guiColor* out);
