// foundation/vela-string.cpp: a string's life, its buffers, its 8-bit rendering and every way of writing into it.
// Searching, replacing and comparing are in vela-string-search.cpp, printf-style formatting is in
// vela-string-format.cpp.

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

constexpr uint64_t smallestStep = 32;
constexpr uint64_t largestStep = 0x100000;
/// Beyond this many fresh bytes a block comes from calloc, which takes untouched pages instead of writing zeros.
constexpr size_t largeBytes = size_t{16} << 20;

unsigned int limited(uint64_t value) { return static_cast<unsigned int>(std::min<uint64_t>(value, UINT32_MAX)); }

/// The block at the new size, its fresh units zero, so that an index beyond the text reads a defined unit.
unsigned short* regrown(unsigned short* old, size_t oldUnits, size_t newUnits)
{
    assert(newUnits > oldUnits && (old || oldUnits == 0));
    const size_t unit = sizeof(unsigned short);
    if ((newUnits - oldUnits) * unit < largeBytes) {
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
    : sstring(NoBuffer{}) // from here on the destructor runs, whatever is thrown
{
    ownLocale = velaCopyLocale(other.ownLocale);
    set(other, start, count);
}

sstring::~sstring()
{
    assert(length < std::max(wideCapacity, 1u));
    if (ownLocale)
        Locale_Destroy(ownLocale);
    if (wideCapacity)
        std::free(wideBuffer);
    std::free(ansiCache);
    std::free(wideScratch);
    wideBuffer = nullptr;
    ansiCache = nullptr;
    wideScratch = nullptr;
    ownLocale = nullptr;
    wideCapacity = length = ansiCapacity = scratchCapacity = tareFlag = 0;
}

sstring& sstring::operator=(sstring const& other)
{
    if (this == &other)
        return *this;
    LOCALE* const copy = velaCopyLocale(other.ownLocale);
    if (ownLocale)
        Locale_Destroy(ownLocale);
    ownLocale = copy;
    return set(other.wideBuffer);
}

void sstring::swap(sstring& other) noexcept
{
    std::swap(wideBuffer, other.wideBuffer);
    std::swap(wideCapacity, other.wideCapacity);
    std::swap(length, other.length);
    std::swap(ansiCache, other.ansiCache);
    std::swap(ansiCapacity, other.ansiCapacity);
    std::swap(wideScratch, other.wideScratch);
    std::swap(scratchCapacity, other.scratchCapacity);
    std::swap(tareFlag, other.tareFlag);
    std::swap(ownLocale, other.ownLocale);
}

// Buffers

unsigned int sstring::capacityFor(uint64_t n, unsigned int present) const
{
    if (n + headroom <= present)
        return present;
    const uint64_t step = std::clamp<uint64_t>(length, smallestStep, largestStep);
    const uint64_t wanted = (n + headroom + step - 1) / step * step;
    assert(wanted >= n + headroom && wanted > present);
    if (wanted > UINT32_MAX)
        throw velaError(ENOMEM);
    return static_cast<unsigned int>(wanted);
}

void sstring::growWide(uint64_t units) const
{
    if (units > maxUnits)
        throw velaError(ENOMEM);
    unsigned int const wanted = capacityFor(units, wideCapacity);
    unsigned short* block = regrown(wideCapacity ? wideBuffer : nullptr, wideCapacity, wanted);
    if (!block)
        throw velaError(ENOMEM);
    wideBuffer = block;
    wideCapacity = wanted;
    assert(!emptyText[0]); // every string without a buffer reads it
}

void sstring::growAnsi(uint64_t bytes) const
{
    unsigned int const wanted = capacityFor(bytes, ansiCapacity);
    if (wanted == ansiCapacity)
        return;
    auto* block = static_cast<unsigned char*>(velaRealloc(ansiCache, wanted));
    if (!block)
        throw velaError(ENOMEM);
    if (!ansiCache)
        block[0] = 0;
    ansiCache = block;
    ansiCapacity = wanted;
}

void sstring::growScratch(uint64_t units) const
{
    if (units > maxUnits)
        throw velaError(ENOMEM);
    unsigned int const wanted = capacityFor(units, scratchCapacity);
    if (wanted == scratchCapacity)
        return;
    void* block = velaRealloc(wideScratch, size_t{wanted} * sizeof(unsigned short));
    if (!block)
        throw velaError(ENOMEM);
    bool const first = !wideScratch;
    wideScratch = static_cast<unsigned short*>(block);
    if (first)
        wideScratch[0] = 0;
    scratchCapacity = wanted;
}

void sstring::setSizeA(unsigned int bytes) const { growAnsi(bytes); }
void sstring::setSizeW(unsigned int units) const { growScratch(units); }

// Locale and 8-bit rendering

LOCALE* sstring::getLocale() const { return ownLocale ? ownLocale : Locale_GetDefault(); }

LOCALE* sstring::setLocale(LOCALE* locale)
{
    LOCALE* copy = !locale || locale == Locale_GetDefault() ? nullptr : velaCopyLocale(locale);
    if (ownLocale && ownLocale != copy)
        Locale_Destroy(ownLocale);
    ownLocale = copy;
    return getLocale();
}

unsigned char* sstring::getAnsiAt(unsigned int index) const
{
    unsigned short const* text = index > length ? emptyText : wideBuffer + index;
    unsigned int const count = strlen16(text);
    const uint64_t room = uint64_t{count} * 4 + 4;
    growAnsi(room);
    assert(room < ansiCapacity);
    if (keepsPlainAscii(ownLocale) && isPlainAscii(text, count)) {
        std::copy_n(text, count, ansiCache);
        ansiCache[count] = 0;
        return ansiCache;
    }
    if (!UnicodeToAnsi(ansiCache, text, limited(room), ownLocale))
        ansiCache[0] = 0;
    ansiCache[room] = 0;
    return ansiCache;
}

std::ostream& operator<<(std::ostream& stream, sstring const& text) { return stream << text.c_str(); }

unsigned short const* sstring::widened(unsigned char const* text) const
{
    if (!text)
        return emptyText;
    const uint64_t room = uint64_t{strlen8(text)} * 4 + 4;
    growScratch(room);
    assert(room < scratchCapacity);
    if (!AnsiToUnicode(wideScratch, text, limited(room), ownLocale))
        wideScratch[0] = 0;
    wideScratch[room] = 0;
    return wideScratch;
}

sstring sstring::inMyLocale(unsigned char const* text) const
{
    sstring result;
    result.setLocale(ownLocale);
    result.set(text);
    return result;
}

// Writing

bool sstring::ownsUnit(unsigned short const* unit) const
{
    const std::less<unsigned short const*> before;
    return !before(unit, wideBuffer) && before(unit, wideBuffer + wideCapacity);
}

/// Makes room for `count` units at `pos` and the terminator, and fills a gap before them with spaces.
unsigned short* sstring::openRange(unsigned int pos, unsigned int count)
{
    const uint64_t end = uint64_t{pos} + count;
    if (end + 1 + headroom > wideCapacity)
        growWide(end + 1);
    assert(length < wideCapacity && end < wideCapacity);
    if (length < pos)
        std::fill(wideBuffer + length, wideBuffer + pos, static_cast<unsigned short>(' '));
    return wideBuffer + pos;
}

/// An explicit count that ends inside the text overwrites in place; everything else ends the text.
void sstring::closeRange(uint64_t end, bool endsText)
{
    assert(end < wideCapacity);
    if (!endsText && end < length)
        return;
    length = static_cast<unsigned int>(end);
    wideBuffer[length] = 0;
}

void sstring::writeUnits(unsigned int pos, unsigned short const* source, unsigned int count, bool endsText)
{
    bool const own = ownsUnit(source);
    const ptrdiff_t ownOffset = own ? source - wideBuffer : 0;
    unsigned short* target = openRange(pos, count);
    assert(!own || uint64_t{count} + static_cast<uint64_t>(ownOffset) <= wideCapacity);
    std::memmove(target, own ? wideBuffer + ownOffset : source, size_t{count} * sizeof(unsigned short));
    closeRange(uint64_t{pos} + count, endsText);
}

void sstring::writePlainAscii(unsigned int pos, unsigned char const* source, unsigned int count, bool endsText)
{
    std::copy_n(source, count, openRange(pos, count));
    closeRange(uint64_t{pos} + count, endsText);
}

void sstring::setAt(unsigned int pos, unsigned short const* text, unsigned int start, unsigned int count)
{
    if (!text)
        return writeUnits(pos, emptyText, 0, count == npos);
    if (count != npos)
        return writeUnits(pos, text + start, count, false);
    // Such a text ends at its terminator, which may stand before the start.
    bool const beginsInside = std::find(text, text + start, 0) == text + start;
    unsigned short const* source = beginsInside ? text + start : emptyText;
    writeUnits(pos, source, strlen16(source), true);
}

void sstring::setAt(unsigned int pos, unsigned char const* text, unsigned int start, unsigned int count)
{
    bool const endsText = count == npos;
    unsigned int const bytesGiven = text ? strlen8(text) : 0;
    bool const plain = keepsPlainAscii(ownLocale) && isPlainAscii(text, bytesGiven);
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
    start = std::min(start, text.length);
    unsigned short const* source = text.wideBuffer + start;
    bool const endsText = count == npos;
    writeUnits(pos, source, endsText ? strlen16(source) : std::min(count, text.length - start), endsText);
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
    setAt(length, text);
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
    unsigned int const once = length;
    for (; copies > 0; --copies)
        writeUnits(length, wideBuffer, once, true);
    return *this;
}

// Numbers and addresses

namespace {

struct NumberText
{
    char text[32];
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
