// foundation/vela-string-match.h: sets of units, and substring search in linear time, for the string class and the
// C-string functions. Internal.
#pragma once

#include "foundation/vela-array.h"

/// A set of units, from a zero-terminated text. Lookup takes constant time for units up to 0xFF.
class UnitSet
{
public:
    explicit UnitSet(unsigned short const* set);
    /// The terminator is never a member.
    bool contains(unsigned short unit) const;

private:
    bool m_lowBytes[256] = {};             ///< members up to 0xFF
    velaArray<unsigned short> m_highUnits; ///< members above 0xFF, sorted
};

/// The last match of `wanted` in `text` that starts at or before `limit`; null if there is none. An empty text matches
/// at every position, including the terminator's.
unsigned short* lastMatch16(unsigned short const* text, unsigned short const* wanted, unsigned int limit);
