// page/guinumbers.h: reads numbers and lengths from attributes, limited to what a layout can add up.
#pragma once

#include "foundation/vela-string.h"
#include "page/guitypes.h"

/// The number at the start of the text, after blanks; 0 when there is none. A number out of range becomes INT32_MAX or
/// -INT32_MAX.
int guiToNumber(sstring const& text);
/// The same as a length: 0 to kMaxPixels.
int guiToPixels(sstring const& text);

/// A request as "120" (pixels) or "50%".
struct guiLength
{
    guiSizeUnit unit;
    unsigned value;
};
guiLength guiToLength(sstring const& text);

/// Whether two texts are equal without regard to case; `word` is ASCII.
bool guiIsWord(sstring const& text, char const* word);
