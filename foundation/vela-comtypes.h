// foundation/vela-comtypes.h: small helpers for pointers to text.
#pragma once

#include <cassert>
#include <cstdint>

#include <unicode/umachine.h>

/// ICU uses char16_t, this library unsigned short, of the same size and representation. Only these functions convert
/// the pointers.
inline UChar const* toUChar(unsigned short const* text) { return reinterpret_cast<UChar const*>(text); }
inline UChar* toUChar(unsigned short* text) { return reinterpret_cast<UChar*>(text); }

/// The distance of two pointers into one text. No text has 2^32 units.
template <class Unit>
unsigned int unitsBetween(Unit const* from, Unit const* to)
{
    assert(from <= to && to - from <= UINT32_MAX);
    return static_cast<unsigned int>(to - from);
}
