// foundation/vela-string-search.cpp: finding, replacing and comparing inside a string.

#include "foundation/vela-string.h"

#include "foundation/vela-comtypes.h"
#include "foundation/vela-string-match.h"

#include <algorithm>
#include <cassert>

namespace {

constexpr unsigned int npos = sstring::npos;

/// The position of the first unit at or after `from` that is in `set`, or that is not, as `member` says.
unsigned int findMember(sstring const& text, sstring const& set, unsigned int from, bool member)
{
    UnitSet const units(set.getUnicode());
    unsigned short const* unit = text.getUnicode();
    for (unsigned int i = from; i < text.getLength(); ++i)
        if (units.contains(unit[i]) == member)
            return i;
    return npos;
}

/// The last accepted position at or before `limit`, or npos.
template <class Accepts>
unsigned int findBackwards(unsigned int length, unsigned int limit, Accepts accepts)
{
    for (unsigned int i = limit < length ? limit + 1 : length; i-- > 0;)
        if (accepts(i))
            return i;
    return npos;
}

unsigned int rfindMember(sstring const& text, sstring const& set, unsigned int limit, bool member)
{
    UnitSet const units(set.getUnicode());
    unsigned short const* unit = text.getUnicode();
    return findBackwards(text.getLength(), limit, [&](unsigned int i) { return units.contains(unit[i]) == member; });
}

} // namespace

unsigned int sstring::find(unsigned short unit, unsigned int from) const
{
    for (unsigned int i = from; i < m_length; ++i)
        if (m_wideBuffer[i] == unit)
            return i;
    return npos;
}

unsigned int sstring::find(sstring const& text, unsigned int from) const
{
    if (from > m_length)
        return npos;
    unsigned short const* hit = strstr16(m_wideBuffer + from, text.m_wideBuffer);
    return hit ? unitsBetween(m_wideBuffer, hit) : npos;
}

unsigned int sstring::find_any(sstring const& set, unsigned int from) const
{
    return findMember(*this, set, from, true);
}

unsigned int sstring::find_none(sstring const& set, unsigned int from) const
{
    return findMember(*this, set, from, false);
}

unsigned int sstring::rfind(unsigned short unit, unsigned int limit) const
{
    return findBackwards(m_length, limit, [&](unsigned int i) { return m_wideBuffer[i] == unit; });
}

unsigned int sstring::rfind(sstring const& text, unsigned int limit) const
{
    unsigned short const* hit = lastMatch16(m_wideBuffer, text.m_wideBuffer, limit);
    return hit ? unitsBetween(m_wideBuffer, hit) : npos;
}

unsigned int sstring::rfind_any(sstring const& set, unsigned int limit) const
{
    return rfindMember(*this, set, limit, true);
}

unsigned int sstring::rfind_none(sstring const& set, unsigned int limit) const
{
    return rfindMember(*this, set, limit, false);
}

unsigned short* sstring::strchr(unsigned short unit) const
{
    for (unsigned int i = 0; i <= m_length; ++i)
        if (m_wideBuffer[i] == unit)
            return m_wideBuffer + i;
    return nullptr;
}

unsigned short* sstring::strrchr(unsigned short unit) const
{
    for (unsigned int i = m_length + 1; i-- > 0;)
        if (m_wideBuffer[i] == unit)
            return m_wideBuffer + i;
    return nullptr;
}

unsigned short* sstring::strstr(sstring const& text, unsigned int count) const
{
    return strstr16(m_wideBuffer, text.subString(0, count).m_wideBuffer);
}

unsigned short* sstring::strstr(unsigned short const* text, unsigned int count) const
{
    return strstr(sstring(text), count);
}

unsigned short* sstring::strstr(unsigned char const* text, unsigned int count) const
{
    return strstr(inMyLocale(text), count);
}

unsigned short* sstring::strstr(char const* text, unsigned int count) const { return strstr(bytes(text), count); }

unsigned short* sstring::strrstr(sstring const& text, unsigned int count) const
{
    return strrstr16(m_wideBuffer, text.subString(0, count).m_wideBuffer);
}

unsigned short* sstring::strrstr(unsigned short const* text, unsigned int count) const
{
    return strrstr(sstring(text), count);
}

unsigned short* sstring::strrstr(unsigned char const* text, unsigned int count) const
{
    return strrstr(inMyLocale(text), count);
}

unsigned short* sstring::strrstr(char const* text, unsigned int count) const { return strrstr(bytes(text), count); }

sstring sstring::tailFrom(unsigned int pos) const { return pos == npos ? sstring() : subString(pos); }

namespace {

struct OneCharacter
{
    char text[2];
    explicit OneCharacter(char character) : text{character, 0} {}
};

} // namespace

sstring sstring::operator%(char character) const { return *this % OneCharacter(character).text; }
sstring sstring::operator^(char character) const { return *this ^ OneCharacter(character).text; }

// Replacing

unsigned int sstring::replace(unsigned int pos, unsigned int count, sstring const& with)
{
    if (&with == this)
        return replace(pos, count, sstring(with));
    pos = std::min(pos, m_length);
    count = std::min(count, m_length - pos);
    growWideFor(with.m_length);
    assert(uint64_t{m_length} - count + with.m_length < m_wideCapacity);
    size_t const unit = sizeof(unsigned short);
    unsigned short* gap = m_wideBuffer + pos;
    if (with.m_length != count)
        std::memmove(gap + with.m_length, gap + count, (size_t{m_length} - pos - count + 1) * unit);
    std::memcpy(gap, with.m_wideBuffer, with.m_length * unit);
    m_length = strlen16(m_wideBuffer);
    return m_length;
}

void sstring::growWideFor(unsigned int more)
{
    if (uint64_t{m_length} + more + kHeadroom > m_wideCapacity)
        growWide(uint64_t{m_length} + more);
}

/// Builds a new text piece by piece, so that any number of hits costs only one copy of the text.
void sstring::replaceHits(sstring const& from, sstring const& to, unsigned short const* hit)
{
    unsigned int const fromLength = strlen16(from.m_wideBuffer);
    assert(fromLength > 0); // an empty text would be found forever
    sstring result;
    unsigned short const* rest = m_wideBuffer;
    for (; hit; hit = strstr16(rest, from.m_wideBuffer)) {
        result.writeUnits(result.m_length, rest, unitsBetween(rest, hit), true);
        result.writeUnits(result.m_length, to.m_wideBuffer, to.m_length, true);
        rest = hit + fromLength;
    }
    result.append(rest);
    std::swap(m_wideBuffer, result.m_wideBuffer);
    std::swap(m_wideCapacity, result.m_wideCapacity);
    std::swap(m_length, result.m_length);
    m_length = strlen16(m_wideBuffer);
}

unsigned int sstring::replace(sstring const& from, sstring const& to, ReplaceHowMany howMany)
{
    // A search text ends at its first terminator, even if the string is longer.
    unsigned int const fromLength = strlen16(from.m_wideBuffer);
    unsigned short const* hit = fromLength ? strstr16(m_wideBuffer, from.m_wideBuffer) : nullptr;
    if (!hit)
        return m_length;
    if (howMany != kReplaceAll)
        return replace(unitsBetween(m_wideBuffer, hit), fromLength, to);
    replaceHits(from, to, hit);
    return m_length;
}

unsigned int sstring::replace(unsigned char const* from, unsigned char const* to, ReplaceHowMany howMany)
{
    return replace(inMyLocale(from), inMyLocale(to), howMany);
}

unsigned int sstring::replace(unsigned short const* from, unsigned short const* to, ReplaceHowMany howMany)
{
    return replace(sstring(from), sstring(to), howMany);
}

// Comparing

int sstring::compare(unsigned short const* text, unsigned int count) const
{
    text = text ? text : emptyText;
    return count == npos ? strcmp16(m_wideBuffer, text) : strncmp16(m_wideBuffer, text, count);
}

int sstring::compare(unsigned char const* text, unsigned int count) const
{
    return sstring::compare(widened(text), count);
}

int sstring::comparei(unsigned short const* text, unsigned int count) const
{
    text = text ? text : emptyText;
    return count == npos ? stricmp16(m_wideBuffer, text) : strnicmp16(m_wideBuffer, text, count);
}

int sstring::comparei(unsigned char const* text, unsigned int count) const
{
    return sstring::comparei(widened(text), count);
}
