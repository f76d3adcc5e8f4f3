// tests/foundation/strings.h: short names for 8-bit and 16-bit text in tests.
#pragma once

#include "foundation/vela-string.h"

#include <gtest/gtest.h>

inline unsigned char const* u8(char const* text) { return reinterpret_cast<unsigned char const*>(text); }
inline unsigned short const* u16(char16_t const* text) { return reinterpret_cast<unsigned short const*>(text); }
