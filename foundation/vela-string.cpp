// foundation/vela-string.cpp: construction, buffers, 8-bit rendering and writing. Searching, replacing and comparing
// are in vela-string-search.cpp, formatting is in vela-string-format.cpp.

#include "foundation/vela-string.h"

#include "foundation/localize2.h"
#include "foundation/vela-alloc.h"
#include "foundation/vela-error.h"
#include "foundation/vela-locale.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <ostream>
#include <utility>

namespace {

constexpr uint64_t kSmallestStep = 32;
constexpr uint64_t kLargestStep = 0x100000;
/// From this many new bytes on a block comes from calloc(), which need not write zeros into fresh pages.
constexpr size_t kLargeBytes = size_t{16} << 20;

unsigned int limited(uint64_t value) { return static_cast<unsigned int>(std::min<uint64_t>(value, UINT32_MAX)); }

/// Resizes the block. New units are zero, so that an index beyond the text reads a defined value.
unsigned short* regrown(unsigned short* old, size_t oldUnits, size_t newUnits)
{
    assert(newUnits > oldUnits && (old || oldUnits == 0));
    size_t const unit = sizeof(unsigned short);
    if ((newUnits - oldUnits) * unit < kLargeBytes) {
        auto* block = static_cast<unsigned short*>(velaRealloc(old, newUnits * unit));
        if (block)
            std::memset(block + oldUnits, 0, (newUnits - oldUnits) * unit);
        return block;
    }
    auto* block = static_cast<unsigned short*>(velaCalloc(newUnits, unit));
    if (block && old) {
        std::memcpy(block, old, oldUnits * unit);
        std::free(old);
    }
    return block;
}

} // namespace

unsigned short sstring::emptyText[1] = {0};

sstring::sstring(sstring const& other, unsigned int start, unsigned int count)
    : sstring(NoBuffer{}) // from here on an exception runs the destructor
{
    m_ownLocale = velaCopyLocale(other.m_ownLocale.get());
    set(other, start, count);
}

sstring::~sstring()
{
    assert(m_length < std::max(m_wideCapacity, 1u));
    if (m_wideCapacity)
        std::free(m_wideBuffer);
    std::free(m_ansiCache);
    std::free(m_wideScratch);
    m_wideBuffer = nullptr;
    m_ansiCache = nullptr;
    m_wideScratch = nullptr;
    m_wideCapacity = m_length = m_ansiCapacity = m_scratchCapacity = m_tareFlag = 0;
}

sstring& sstring::operator=(sstring const& other)
{
    if (this == &other)
        return *this;
    m_ownLocale = velaCopyLocale(other.m_ownLocale.get());
    return set(other.m_wideBuffer);
}

void sstring::swap(sstring& other) noexcept
{
    std::swap(m_wideBuffer, other.m_wideBuffer);
    std::swap(m_wideCapacity, other.m_wideCapacity);
    std::swap(m_length, other.m_length);
    std::swap(m_ansiCache, other.m_ansiCache);
    std::swap(m_ansiCapacity, other.m_ansiCapacity);
    std::swap(m_wideScratch, other.m_wideScratch);
    std::swap(m_scratchCapacity, other.m_scratchCapacity);
    std::swap(m_tareFlag, other.m_tareFlag);
    std::swap(m_ownLocale, other.m_ownLocale);
}

// Buffers

unsigned int sstring::capacityFor(uint64_t n, unsigned int present) const
{
    if (n + kHeadroom <= present)
        return present;
    uint64_t const step = std::clamp<uint64_t>(m_length, kSmallestStep, kLargestStep);
    uint64_t const wanted = (n + kHeadroom + step - 1) / step * step;
    assert(wanted >= n + kHeadroom && wanted > present);
    if (wanted > UINT32_MAX)
        throw velaError(ENOMEM);
    return static_cast<unsigned int>(wanted);
}

void sstring::growWide(uint64_t units) const
{
    if (units > kMaxUnits)
        throw velaError(ENOMEM);
    unsigned int const wanted = capacityFor(units, m_wideCapacity);
    unsigned short* block = regrown(m_wideCapacity ? m_wideBuffer : nullptr, m_wideCapacity, wanted);
    if (!block)
        throw velaError(ENOMEM);
    m_wideBuffer = block;
    m_wideCapacity = wanted;
    assert(!emptyText[0]); // every string without a buffer shares it
}

void sstring::growAnsi(uint64_t bytes) const
{
    unsigned int const wanted = capacityFor(bytes, m_ansiCapacity);
    if (wanted == m_ansiCapacity)
        return;
    auto* block = static_cast<unsigned char*>(velaRealloc(m_ansiCache, wanted));
    if (!block)
        throw velaError(ENOMEM);
    if (!m_ansiCache)
        block[0] = 0;
    m_ansiCache = block;
    m_ansiCapacity = wanted;
}

void sstring::growScratch(uint64_t units) const
{
    if (units > kMaxUnits)
        throw velaError(ENOMEM);
    unsigned int const wanted = capacityFor(units, m_scratchCapacity);
    if (wanted == m_scratchCapacity)
        return;
    void* block = velaRealloc(m_wideScratch, size_t{wanted} * sizeof(unsigned short));
    if (!block)
        throw velaError(ENOMEM);
    bool const first = !m_wideScratch;
    m_wideScratch = static_cast<unsigned short*>(block);
    if (first)
        m_wideScratch[0] = 0;
    m_scratchCapacity = wanted;
}

void sstring::setSizeA(unsigned int bytes) const { growAnsi(bytes); }
void sstring::setSizeW(unsigned int units) const { growScratch(units); }

// Locale and 8-bit rendering

LOCALE* sstring::getLocale() const { return m_ownLocale ? m_ownLocale.get() : Locale_GetDefault(); }

LOCALE* sstring::setLocale(LOCALE* locale)
{
    m_ownLocale = velaCopyLocale(locale == Locale_GetDefault() ? nullptr : locale);
    return getLocale();
}

unsigned char* sstring::getAnsiAt(unsigned int index) const
{
    unsigned short const* text = index > m_length ? emptyText : m_wideBuffer + index;
    unsigned int const count = strlen16(text);
    uint64_t const room = uint64_t{count} * 4 + 4;
    growAnsi(room);
    assert(room < m_ansiCapacity);
    if (keepsPlainAscii(m_ownLocale.get()) && isPlainAscii(text, count)) {
        std::copy_n(text, count, m_ansiCache);
        m_ansiCache[count] = 0;
        return m_ansiCache;
    }
    if (!UnicodeToAnsi(m_ansiCache, text, limited(room), m_ownLocale.get()))
        m_ansiCache[0] = 0;
    m_ansiCache[room] = 0;
    return m_ansiCache;
}

std::ostream& operator<<(std::ostream& stream, sstring const& text) { return stream << text.c_str(); }

unsigned short const* sstring::widened(unsigned char const* text) const
{
    if (!text)
        return emptyText;
    uint64_t const room = uint64_t{strlen8(text)} * 4 + 4;
    growScratch(room);
    assert(room < m_scratchCapacity);
    if (!AnsiToUnicode(m_wideScratch, text, limited(room), m_ownLocale.get()))
        m_wideScratch[0] = 0;
    m_wideScratch[room] = 0;
    return m_wideScratch;
}

sstring sstring::inMyLocale(unsigned char const* text) const
{
    sstring result;
    result.setLocale(m_ownLocale.get());
    result.set(text);
    return result;
}

// Writing

bool sstring::isInBuffer(unsigned short const* unit) const
{
    std::less<unsigned short const*> const before;
    return !before(unit, m_wideBuffer) && before(unit, m_wideBuffer + m_wideCapacity);
}

/// Makes room for `count` units at `pos` and a terminator. A gap between the text and `pos` is filled with spaces.
unsigned short* sstring::makeRoomAt(unsigned int pos, unsigned int count)
{
    uint64_t const end = uint64_t{pos} + count;
    if (end + 1 + kHeadroom > m_wideCapacity)
        growWide(end + 1);
    assert(m_length < m_wideCapacity && end < m_wideCapacity);
    if (m_length < pos)
        std::fill(m_wideBuffer + m_length, m_wideBuffer + pos, static_cast<unsigned short>(' '));
    return m_wideBuffer + pos;
}

/// Sets the length and the terminator, unless units inside the text have been overwritten.
void sstring::endWriteAt(uint64_t end, bool endsText)
{
    assert(end < m_wideCapacity);
    if (!endsText && end < m_length)
        return;
    m_length = static_cast<unsigned int>(end);
    m_wideBuffer[m_length] = 0;
}

void sstring::writeUnits(unsigned int pos, unsigned short const* source, unsigned int count, bool endsText)
{
    bool const own = isInBuffer(source);
    ptrdiff_t const ownOffset = own ? source - m_wideBuffer : 0;
    unsigned short* target = makeRoomAt(pos, count);
    assert(!own || uint64_t{count} + static_cast<uint64_t>(ownOffset) <= m_wideCapacity);
    std::memmove(target, own ? m_wideBuffer + ownOffset : source, size_t{count} * sizeof(unsigned short));
    endWriteAt(uint64_t{pos} + count, endsText);
}

void sstring::writePlainAscii(unsigned int pos, unsigned char const* source, unsigned int count, bool endsText)
{
    std::copy_n(source, count, makeRoomAt(pos, count));
    endWriteAt(uint64_t{pos} + count, endsText);
}

void sstring::setAt(unsigned int pos, unsigned short const* text, unsigned int start, unsigned int count)
{
    if (!text)
        return writeUnits(pos, emptyText, 0, count == npos);
    if (count != npos)
        return writeUnits(pos, text + start, count, false);
    // The text ends at its terminator, which may come before `start`.
    bool const beginsInside = std::find(text, text + start, 0) == text + start;
    unsigned short const* source = beginsInside ? text + start : emptyText;
    writeUnits(pos, source, strlen16(source), true);
}

void sstring::setAt(unsigned int pos, unsigned char const* text, unsigned int start, unsigned int count)
{
    bool const endsText = count == npos;
    unsigned int const bytesGiven = text ? strlen8(text) : 0;
    bool const plain = keepsPlainAscii(m_ownLocale.get()) && isPlainAscii(text, bytesGiven);
    unsigned short const* wide = plain ? nullptr : widened(text);
    unsigned int const units = plain ? bytesGiven : strlen16(wide);
    start = std::min(start, units);
    count = std::min(count, units - start);
    if (plain)
        writePlainAscii(pos, text + start, count, endsText);
    else
        writeUnits(pos, wide + start, count, endsText);
}

void sstring::setAt(unsigned int pos, char const* text, unsigned int start, unsigned int count)
{
    setAt(pos, bytes(text), start, count);
}

void sstring::setAt(unsigned int pos, sstring const& text, unsigned int start, unsigned int count)
{
    start = std::min(start, text.m_length);
    unsigned short const* source = text.m_wideBuffer + start;
    bool const endsText = count == npos;
    writeUnits(pos, source, endsText ? strlen16(source) : std::min(count, text.m_length - start), endsText);
}

sstring& sstring::set(char const* text, unsigned int start, unsigned int count)
{
    setAt(0, bytes(text), start, count);
    return *this;
}

sstring& sstring::set(unsigned char const* text, unsigned int start, unsigned int count)
{
    setAt(0, text, start, count);
    return *this;
}

sstring& sstring::set(unsigned short const* text, unsigned int start, unsigned int count)
{
    setAt(0, text, start, count);
    return *this;
}

sstring& sstring::set(sstring const& text, unsigned int start, unsigned int count)
{
    setAt(0, text, start, count);
    return *this;
}

sstring& sstring::append(unsigned char const* text)
{
    setAt(m_length, text);
    return *this;
}

sstring& sstring::append(char const* text) { return append(bytes(text)); }

sstring& sstring::operator+=(unsigned char character)
{
    unsigned char const text[] = {character, 0};
    return append(text);
}

sstring& sstring::operator*(int copies)
{
    unsigned int const once = m_length;
    for (; copies > 0; --copies)
        writeUnits(m_length, m_wideBuffer, once, true);
    return *this;
}

// Numbers and addresses

namespace {

struct NumberText
{
    char text[32] = {};
    explicit NumberText(int number) { std::snprintf(text, sizeof text, "%ld", static_cast<long>(number)); }
    explicit NumberText(void const* address)
    {
        std::snprintf(text, sizeof text, "0x%08lX", reinterpret_cast<unsigned long>(address));
    }
};

} // namespace

sstring& sstring::operator=(int number) { return set(NumberText(number).text); }
sstring& sstring::operator=(void const* address) { return set(NumberText(address).text); }
sstring& sstring::append(int number) { return append(NumberText(number).text); }
sstring& sstring::append(void const* address) { return append(NumberText(address).text); }

namespace {

template <class Left>
sstring joinedFront(Left const* left, sstring const& right)
{
    sstring result(left);
    result += right;
    return result;
}

} // namespace

sstring operator+(char const* left, sstring const& right) { return joinedFront(left, right); }
sstring operator+(unsigned char const* left, sstring const& right) { return joinedFront(left, right); }
sstring operator+(unsigned short const* left, sstring const& right) { return joinedFront(left, right); }
sstring operator+(char* left, sstring const& right) { return joinedFront(left, right); }
sstring operator+(unsigned char* left, sstring const& right) { return joinedFront(left, right); }
sstring operator+(unsigned short* left, sstring const& right) { return joinedFront(left, right); }
