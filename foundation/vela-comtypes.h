// foundation/vela-comtypes.h: the few types and constants that every file of the foundation library shares.
#pragma once

#include "foundation/vela-error.h"

#include <cstdint>

#include <unicode/umachine.h>

/// ICU's text unit is char16_t, the library's is unsigned short: same size and representation. These two functions are
/// the only place where one pointer becomes the other.
inline UChar const* toUChar(unsigned short const* text) { return reinterpret_cast<UChar const*>(text); }
inline UChar* toUChar(unsigned short* text) { return reinterpret_cast<UChar*>(text); }
