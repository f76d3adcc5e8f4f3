// foundation/vela-string-match.cpp: see vela-string-match.h.

#include "foundation/vela-string-match.h"

#include "foundation/vela-array.h"
#include "foundation/vela-string-c.h"

#include <algorithm>
#include <cassert>

UnitSet::UnitSet(unsigned short const* set)
{
    for (; *set; ++set) {
        if (*set < 256)
            m_lowBytes[*set] = true;
        else
            m_highUnits.push_back(*set);
    }
    std::sort(m_highUnits.begin(), m_highUnits.end());
}

bool UnitSet::contains(unsigned short unit) const
{
    if (unit < 256)
        return m_lowBytes[unit];
    return !m_highUnits.empty() && std::binary_search(m_highUnits.begin(), m_highUnits.end(), unit);
}

namespace {

unsigned int lengthOf(unsigned short const* text) { return strlen16(text); }
unsigned int lengthOf(unsigned char const* text) { return strlen8(text); }

/// Up to this length a pattern is compared at every position; for longer ones a table guarantees linear time.
constexpr unsigned int kLongestPlainPattern = 32;

template <class Unit>
bool matchesAt(Unit const* text, Unit const* wanted)
{
    while (*wanted && *text == *wanted) {
        ++text;
        ++wanted;
    }
    return *wanted == 0;
}

/// Calls onMatch(position) for each match of a short pattern, including overlapping ones, until it returns false.
template <class Unit, class OnMatch>
void eachShortMatch(Unit const* text, Unit const* wanted, OnMatch onMatch)
{
    for (Unit const* at = text; *at; ++at)
        if (*at == *wanted && matchesAt(at, wanted) && !onMatch(at))
            return;
}

/// Knuth, Morris and Pratt: borders[i] is the length of the longest proper border of the first i + 1 units.
template <class Unit>
velaArray<unsigned int> bordersOf(Unit const* wanted, unsigned int length)
{
    velaArray<unsigned int> borders(length, 0);
    for (unsigned int i = 1, border = 0; i < length; ++i) {
        while (border && wanted[i] != wanted[border])
            border = borders[border - 1];
        if (wanted[i] == wanted[border])
            ++border;
        assert(border <= i);
        borders[i] = border;
    }
    return borders;
}

template <class Unit, class OnMatch>
void eachLongMatch(Unit const* text, Unit const* wanted, unsigned int length, OnMatch onMatch)
{
    assert(length > 0);
    velaArray<unsigned int> const borders = bordersOf(wanted, length);
    unsigned int matched = 0;
    for (Unit const* at = text; *at; ++at) {
        while (matched && *at != wanted[matched])
            matched = borders[matched - 1];
        if (*at == wanted[matched])
            ++matched;
        if (matched < length)
            continue;
        assert(at + 1 - text >= static_cast<long>(length));
        if (!onMatch(at + 1 - length))
            return;
        matched = borders[length - 1];
    }
}

template <class Unit, class OnMatch>
void eachMatch(Unit const* text, Unit const* wanted, OnMatch onMatch)
{
    unsigned int const length = lengthOf(wanted);
    if (length <= kLongestPlainPattern)
        eachShortMatch(text, wanted, onMatch);
    else
        eachLongMatch(text, wanted, length, onMatch);
}

template <class Unit>
Unit* lastMatch(Unit const* text, Unit const* wanted, unsigned int limit)
{
    if (!*wanted)
        return const_cast<Unit*>(text) + std::min(limit, lengthOf(text));
    Unit const* last = nullptr;
    eachMatch(text, wanted, [&](Unit const* at) {
        bool const accepted = at - text <= static_cast<long>(limit);
        if (accepted)
            last = at;
        return accepted;
    });
    return const_cast<Unit*>(last);
}

} // namespace

unsigned short* lastMatch16(unsigned short const* text, unsigned short const* wanted, unsigned int limit)
{
    return lastMatch(text, wanted, limit);
}

unsigned short* strstr16(unsigned short const* text, unsigned short const* wanted)
{
    if (!*wanted)
        return const_cast<unsigned short*>(text);
    unsigned short const* first = nullptr;
    eachMatch(text, wanted, [&](unsigned short const* at) {
        first = at;
        return false;
    });
    return const_cast<unsigned short*>(first);
}

unsigned short* strrstr16(unsigned short const* text, unsigned short const* wanted)
{
    return lastMatch(text, wanted, 0xFFFFFFFF);
}

unsigned char* strrstr8(unsigned char const* text, unsigned char const* wanted)
{
    return lastMatch(text, wanted, 0xFFFFFFFF);
}
