// foundation/vela-string-match.h: the two search tools that the string class and the C-string functions share: sets of
// units, and substring matches in linear time. Not part of the public interface.
#pragma once

#include "foundation/vela-array.h"

/// A zero-terminated set of units, asked in constant time for almost every unit. The text must outlive the set.
class UnitSet
{
public:
    explicit UnitSet(unsigned short const* set);
    /// The terminator is never a member.
    bool contains(unsigned short unit) const;

private:
    bool m_lowBytes[256] = {};             ///< whether some member has this low byte
    velaArray<unsigned short> m_highUnits; ///< members above 0xFF, sorted
};

/// Last match of `wanted` in `text` that starts at or below `limit`; null when there is none. An empty text matches at
/// every position, the terminator's included.
unsigned short* lastMatch16(unsigned short const* text, unsigned short const* wanted, unsigned int limit);
