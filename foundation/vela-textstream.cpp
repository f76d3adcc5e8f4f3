// foundation/vela-textstream.cpp: opening, positions and reading units. The caches are filled in
// vela-textstream-fill.cpp.

#include "foundation/vela-textstream.h"

#include "foundation/vela-locale.h"
#include "foundation/vela-poison.h"
#include "foundation/vela-tsdecoder.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cerrno>
#include <cstdlib>
#include <utility>

namespace {

/// Why opening failed.
int openError()
{
    int const error = FileIO_GetLastErr();
    return error != 0 ? error : EINVAL;
}

/// Fills the cache with 0xFE, so that a use after free is noticed.
void freeAndPoison(tsCache& cache)
{
    free16(cache.buffer);
    velaPoison(&cache, sizeof cache);
}

} // namespace

bookmark::bookmark(unsigned int offset, unsigned int unit) : m_offsetBytes(offset), m_unitIndex(unit), m_isSet(true) {}

bookmark::bookmark(sstring const& text)
{
    sstring copy(text);
    char* rest = nullptr;
    char const* numbers = copy.c_str();
    unsigned long const first = std::strtoul(numbers, &rest, 10);
    m_isSet = rest != numbers;
    m_offsetBytes = static_cast<unsigned int>(first);
    m_unitIndex = static_cast<unsigned int>(std::strtoul(rest, nullptr, 10));
}

sstring bookmark::toString() const
{
    if (!m_isSet)
        return sstring();
    return sformat("%lu %lu", static_cast<unsigned long>(m_offsetBytes), static_cast<unsigned long>(m_unitIndex));
}

textstream::textstream() = default;

textstream::textstream(sstring const& name) : textstream()
{
    if (!textstream::open(name))
        throw velaError(openError());
}

textstream::textstream(unsigned char* data, unsigned int dataSize, int ownsData) : textstream()
{
    if (!textstream::open(data, dataSize, ownsData))
        throw velaError(openError());
}

textstream::~textstream()
{
    if (m_file)
        FileIO_Close(m_file);
    releaseMemory();
    std::free(m_rawBuffer);
    freeAndPoison(m_current);
    freeAndPoison(m_spare);
    m_rawBuffer = nullptr;
    velaPoison(&m_unitMode, sizeof m_unitMode);
    velaPoison(&m_size, sizeof m_size);
}

void textstream::releaseMemory()
{
    if (m_ownsMemory)
        free8(m_memory);
    m_memory = nullptr;
    m_ownsMemory = 0;
}

void textstream::requireOpen() const
{
    if (!m_openFlag)
        throw velaError(EBADF);
}

int textstream::open(unsigned char const* name) { return open(sstring(name)); }

int textstream::open(unsigned short const* name) { return open(sstring(name)); }

int textstream::open(sstring const& name)
{
    if (m_openFlag)
        throw velaError(EBUSY);
    if (m_fileName.getLength() == 0)
        m_fileName = name;
    sstring path(name);
    unsigned long length = 0;
    if (!openFile(path, length))
        return 0;
    assert(m_file && length <= UINT32_MAX);
    releaseMemory();
    start(static_cast<unsigned int>(length));
    return m_openFlag;
}

/// Opens the file and gets its size in bytes. Refuses a file whose size does not fit into 32 bits.
int textstream::openFile(sstring& path, unsigned long& length)
{
    if (!FileIO_OpenW(path.getUnicode(), FILE_OPEN_READ, &m_file)) {
        m_file = nullptr;
        return 0;
    }
    if (FileIO_GetSizeA(m_file, &length) && length <= 0xFFFFFFFFu)
        return 1;
    FileIO_Close(m_file);
    m_file = nullptr;
    return 0;
}

int textstream::open(unsigned char* data, unsigned int dataSize, int ownsData)
{
    if (m_openFlag)
        throw velaError(EBUSY);
    if (!data && dataSize != 0)
        return 0;
    releaseMemory();
    m_memory = data ? data : static_cast<unsigned char*>(velaAllocate(1)); // a null pointer would mean a file
    m_ownsMemory = data ? ownsData : 1;
    start(dataSize);
    return m_openFlag;
}

void textstream::start(unsigned int sourceSize)
{
    m_openFlag = 1;
    m_size = sourceSize;
    forgetDecoded();
    detectByteOrder();
    rewind();
}

/// Discards everything decoded from or declared in the previous source.
void textstream::forgetDecoded()
{
    m_current.valid = m_current.consumed = 0;
    m_spare.valid = m_spare.consumed = 0;
    m_reopenPlace = bookmark();
    if (m_localeDeclared)
        setLocale(nullptr);
    m_codeSet.clear();
    m_decoder.reset();
}

int textstream::isOpen() { return m_openFlag; }

int textstream::reopen()
{
    if (m_openFlag)
        return 1;
    unsigned long length = 0;
    if (!m_memory && !openFile(m_fileName, length))
        return 0;
    m_openFlag = 1;
    setPos(m_reopenPlace);
    return 1;
}

void textstream::close()
{
    if (!m_openFlag)
        return;
    m_reopenPlace = bookmark(m_current.start, m_current.position);
    assert(!m_file != !m_memory); // exactly one source
    if (m_file)
        FileIO_Close(m_file);
    m_file = nullptr;
    m_openFlag = 0;
    m_positions.clear();
}

bookmark textstream::getPos() const
{
    requireOpen();
    return bookmark(m_current.start, m_current.position);
}

void textstream::setPos(bookmark const& place)
{
    if (place.isEmpty())
        setPos(m_dataStart, 0);
    else
        setPos(place.offset(), place.unit());
}

void textstream::setPos(unsigned int offsetBytes, unsigned int unitIndex)
{
    requireOpen();
    if (m_spare.start == offsetBytes && m_spare.consumed != 0)
        std::swap(m_current, m_spare);
    if (m_current.start != offsetBytes)
        m_current.valid = m_current.consumed = 0;
    m_current.start = offsetBytes;
    m_current.position = unitIndex;
}

void textstream::pushPos() { m_positions.push_back(getPos()); }

void textstream::popPos()
{
    requireOpen();
    if (m_positions.empty())
        throw velaError(EINVAL);
    bookmark const place = m_positions.back();
    m_positions.pop_back();
    setPos(place);
}

void textstream::rewind() { setPos(m_dataStart, 0); }

unsigned int textstream::advance(unsigned int n) { return popData(nullptr, n, true); }

unsigned short textstream::peek() { return popUnit(false); }
unsigned short textstream::pop() { return popUnit(true); }
unsigned int textstream::peek(unsigned short* out, unsigned int n) { return popData(out, n, false); }
unsigned int textstream::pop(unsigned short* out, unsigned int n) { return popData(out, n, true); }
unsigned int textstream::peek(sstring& out, unsigned int n) { return popString(out, n, false); }
unsigned int textstream::pop(sstring& out, unsigned int n) { return popString(out, n, true); }
unsigned int textstream::peek(unsigned char* out, unsigned int n) { return popText(out, n, false); }
unsigned int textstream::pop(unsigned char* out, unsigned int n) { return popText(out, n, true); }

unsigned short textstream::popUnit(bool consume)
{
    unsigned int count = 0;
    unsigned short const* next = peekRun(count);
    if (count == 0)
        return 0;
    unsigned short const unit = *next;
    if (consume)
        skipRun(1);
    return unit;
}

unsigned int textstream::popString(sstring& out, unsigned int n, bool consume)
{
    // A large request must not allocate more than the rest of the source.
    unsigned int const wanted = std::min(n, unitsLeftAtMost());
    velaArray<unsigned short> units(wanted + 1u);
    unsigned int const count = popData(units.data(), wanted, consume);
    out.setSize(count + 1);
    out = units.data();
    return count;
}

unsigned int textstream::popText(unsigned char* out, unsigned int n, bool consume)
{
    unsigned int const count = popString(m_scratch, n, consume);
    strcpy8(out, m_scratch.getAnsi());
    return count;
}

/// An upper bound of the units that remain: each takes at least one byte.
unsigned int textstream::unitsLeftAtMost() const
{
    requireOpen();
    unsigned int const behind = m_current.start < m_size ? m_size - m_current.start : 0;
    return std::max(behind, m_current.valid);
}

unsigned int textstream::popData(unsigned short* out, unsigned int n, bool consume)
{
    requireOpen();
    unsigned int const startBefore = m_current.start;
    unsigned int const positionBefore = m_current.position;
    unsigned int done = 0;
    while (done < n && ensureUnits()) {
        unsigned int const count = std::min(m_current.valid - m_current.position, n - done);
        if (out)
            std::copy_n(m_current.buffer + m_current.position, count, out + done);
        done += count;
        skipRun(count);
    }
    if (!consume)
        setPos(startBefore, positionBefore);
    if (out)
        out[done] = 0;
    return done;
}

unsigned short const* textstream::peekRun(unsigned int& count)
{
    requireOpen();
    count = ensureUnits() ? m_current.valid - m_current.position : 0;
    return count ? m_current.buffer + m_current.position : nullptr;
}

void textstream::skipRun(unsigned int count)
{
    assert(m_current.position <= m_current.valid && count <= m_current.valid - m_current.position);
    m_current.position += count;
    if (m_current.position >= m_current.valid)
        leaveExhaustedCache();
}

/// Makes sure that the current cache has a unit at the position. Returns false at the end of the text.
bool textstream::ensureUnits()
{
    for (;;) {
        if (m_current.valid == 0)
            fill();
        if (m_current.position < m_current.valid)
            return true;
        if (!leaveExhaustedCache())
            return false;
    }
}

/// Moves to the next chunk. The current cache becomes the spare, so that going back decodes nothing again. Returns
/// false, without moving, if the source ends here.
bool textstream::leaveExhaustedCache()
{
    unsigned int const next = m_current.start + m_current.consumed;
    if (m_current.consumed == 0 || next >= m_size)
        return false;
    assert(next > m_current.start); // otherwise the same text would repeat forever
    std::swap(m_current, m_spare);
    setPos(next, 0);
    return true;
}

sstring textstream::toString()
{
    velaArray<unsigned short> rest;
    unsigned int count = 0;
    for (unsigned short const* run = peekRun(count); count != 0; run = peekRun(count)) {
        rest.insert(rest.end(), run, run + count);
        skipRun(count);
    }
    sstring result;
    if (m_locale)
        result.setLocale(m_locale.get());
    result.set(rest.data(), 0, static_cast<unsigned int>(rest.size()));
    return result;
}

LOCALE* textstream::getLocale() { return m_locale.get(); }

void textstream::setLocale(LOCALE* locale)
{
    m_locale = velaCopyLocale(locale);
    m_localeDeclared = false;
}

datastream::datastream(sstring& text)
{
    unsigned int const length = text.getLength();
    unsigned short* copy = malloc16(length + 1);
    if (!copy)
        throw velaError(ENOMEM);
    std::copy_n(text.getUnicode(), length, copy);
    adopt(copy, length);
}

datastream::~datastream() = default;

void textstream::adopt(unsigned short* data, unsigned int lengthUnits)
{
    assert(!m_openFlag && !m_memory && lengthUnits <= UINT32_MAX / 2);
    m_memory = reinterpret_cast<unsigned char*>(data);
    m_ownsMemory = 1;
    m_openFlag = 1;
    m_unitMode = IsBigEndian() ? kUtf16Big : kUtf16Little;
    m_size = lengthUnits * 2;
    rewind();
}

bool IsBigEndian()
{
    static bool const isBig = std::endian::native == std::endian::big;
    return isBig;
}

void SwapEndian(unsigned short* unit) { *unit = static_cast<unsigned short>(*unit << 8 | *unit >> 8); }
