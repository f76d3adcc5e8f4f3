// foundation/vela-textstream.cpp: opening, positions and handing out units. Filling the caches from the source is in
// vela-textstream-fill.cpp.
#include "foundation/vela-textstream.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstdlib>
#include <utility>

#include "foundation/vela-locale.h"
#include "foundation/vela-poison.h"
#include "foundation/vela-tsdecoder.h"

namespace {

constexpr int noMemory = 12;
constexpr int notOpen = 9;
constexpr int alreadyOpen = 16;
constexpr int noPosition = 22;

/// Why an open failed, where the operating system had nothing against it.
constexpr int invalidArgument = 22;

int openError()
{
    int const error = FileIO_GetLastErr();
    return error != 0 ? error : invalidArgument;
}

/// Fills what is given up with 0xFE, so that a late use is seen at once.
void spoil(tsCache& cache)
{
    free16(cache.buffer);
    velaPoison(&cache, sizeof cache);
}

} // namespace

bookmark::bookmark(unsigned int offset, unsigned int unit) : offsetBytes(offset), unitIndex(unit), isSet(true) {}

bookmark::bookmark(sstring const& text)
{
    sstring copy(text);
    char* rest = nullptr;
    char const* numbers = copy.c_str();
    unsigned long const first = std::strtoul(numbers, &rest, 10);
    isSet = rest != numbers;
    offsetBytes = static_cast<unsigned int>(first);
    unitIndex = static_cast<unsigned int>(std::strtoul(rest, nullptr, 10));
}

sstring bookmark::toString() const
{
    if (!isSet)
        return sstring();
    return sformat("%lu %lu", static_cast<unsigned long>(offsetBytes), static_cast<unsigned long>(unitIndex));
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
    if (file)
        FileIO_Close(file);
    releaseMemory();
    std::free(rawBuffer);
    if (locale)
        Locale_Destroy(locale);
    free8(codeSet);
    spoil(current);
    spoil(spare);
    rawBuffer = nullptr;
    locale = nullptr;
    codeSet = nullptr;
    velaPoison(&unitMode, sizeof unitMode);
    velaPoison(&size, sizeof size);
}

void textstream::releaseMemory()
{
    if (ownsMemory)
        free8(memory);
    memory = nullptr;
    ownsMemory = 0;
}

void textstream::requireOpen() const
{
    if (!openFlag)
        throw velaError(notOpen);
}

int textstream::open(unsigned char const* name) { return open(sstring(name)); }

int textstream::open(unsigned short const* name) { return open(sstring(name)); }

int textstream::open(sstring const& name)
{
    if (openFlag)
        throw velaError(alreadyOpen);
    if (fileName.getLength() == 0)
        fileName = name;
    sstring path(name);
    unsigned long length = 0;
    if (!openFile(path, length))
        return 0;
    assert(file && length <= UINT32_MAX);
    releaseMemory();
    start(static_cast<unsigned int>(length));
    return openFlag;
}

/// Opens the file alone; `length` receives its size in bytes. A file whose offsets do not fit into 32 bits is refused.
int textstream::openFile(sstring& path, unsigned long& length)
{
    if (!FileIO_OpenW(path.getUnicode(), FILE_OPEN_READ, &file)) {
        file = nullptr;
        return 0;
    }
    if (FileIO_GetSizeA(file, &length) && length <= 0xFFFFFFFFu)
        return 1;
    FileIO_Close(file);
    file = nullptr;
    return 0;
}

int textstream::open(unsigned char* data, unsigned int dataSize, int ownsData)
{
    if (openFlag)
        throw velaError(alreadyOpen);
    if (!data && dataSize != 0)
        return 0;
    releaseMemory();
    memory = data ? data : static_cast<unsigned char*>(velaAllocate(1)); // a memory stream is told by its pointer
    ownsMemory = data ? ownsData : 1;
    start(dataSize);
    return openFlag;
}

void textstream::start(unsigned int sourceSize)
{
    openFlag = 1;
    size = sourceSize;
    forgetDecoded();
    detectByteOrder();
    rewind();
}

/// Another source follows: nothing decoded or declared by the last one may show.
void textstream::forgetDecoded()
{
    current.valid = current.consumed = 0;
    spare.valid = spare.consumed = 0;
    reopenPlace = bookmark();
    if (localeDeclared)
        setLocale(nullptr);
    free8(codeSet);
    codeSet = nullptr;
    decoder.reset();
}

int textstream::isOpen() { return openFlag; }

int textstream::reopen()
{
    if (openFlag)
        return 1;
    unsigned long length = 0;
    if (!memory && !openFile(fileName, length))
        return 0;
    openFlag = 1;
    setPos(reopenPlace);
    return 1;
}

void textstream::close()
{
    if (!openFlag)
        return;
    reopenPlace = bookmark(current.start, current.position);
    assert(!file != !memory); // one source, not two
    if (file)
        FileIO_Close(file);
    file = nullptr;
    openFlag = 0;
    positions.clear();
}

bookmark textstream::getPos() const
{
    requireOpen();
    return bookmark(current.start, current.position);
}

void textstream::setPos(bookmark const& place)
{
    if (place.isEmpty())
        setPos(dataStart, 0);
    else
        setPos(place.offset(), place.unit());
}

void textstream::setPos(unsigned int offsetBytes, unsigned int unitIndex)
{
    requireOpen();
    if (spare.start == offsetBytes && spare.consumed != 0)
        std::swap(current, spare);
    if (current.start != offsetBytes)
        current.valid = current.consumed = 0;
    current.start = offsetBytes;
    current.position = unitIndex;
}

void textstream::pushPos() { positions.push_back(getPos()); }

void textstream::popPos()
{
    requireOpen();
    if (positions.empty())
        throw velaError(noPosition);
    bookmark const place = positions.back();
    positions.pop_back();
    setPos(place);
}

void textstream::rewind() { setPos(dataStart, 0); }

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
    // No more than the rest of the source can come, whatever was asked for.
    unsigned int const wanted = std::min(n, unitsLeftAtMost());
    velaArray<unsigned short> units(wanted + 1u);
    unsigned int const count = popData(units.data(), wanted, consume);
    out.setSize(count + 1);
    out = units.data();
    return count;
}

unsigned int textstream::popText(unsigned char* out, unsigned int n, bool consume)
{
    unsigned int const count = popString(scratch, n, consume);
    strcpy8(out, scratch.getAnsi());
    return count;
}

/// An upper bound of the units that can still come: none is made of less than one byte.
unsigned int textstream::unitsLeftAtMost() const
{
    requireOpen();
    unsigned int const behind = current.start < size ? size - current.start : 0;
    return std::max(behind, current.valid);
}

unsigned int textstream::popData(unsigned short* out, unsigned int n, bool consume)
{
    requireOpen();
    unsigned int const startBefore = current.start;
    unsigned int const positionBefore = current.position;
    unsigned int done = 0;
    while (done < n && ensureUnits()) {
        unsigned int const count = std::min(current.valid - current.position, n - done);
        if (out)
            std::copy_n(current.buffer + current.position, count, out + done);
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
    count = ensureUnits() ? current.valid - current.position : 0;
    return count ? current.buffer + current.position : nullptr;
}

void textstream::skipRun(unsigned int count)
{
    assert(current.position <= current.valid && count <= current.valid - current.position);
    current.position += count;
    if (current.position >= current.valid)
        leaveExhaustedCache();
}

/// Makes the current cache hold at least one unit at the position. False at the end of the text.
bool textstream::ensureUnits()
{
    for (;;) {
        if (current.valid == 0)
            fill();
        if (current.position < current.valid)
            return true;
        if (!leaveExhaustedCache())
            return false;
    }
}

/// Goes on to the chunk behind the current one, which becomes the spare, so that a return to it decodes nothing again.
/// False, and nothing happens, when the source ends here.
bool textstream::leaveExhaustedCache()
{
    unsigned int const next = current.start + current.consumed;
    if (current.consumed == 0 || next >= size)
        return false;
    assert(next > current.start); // or the same text would come for ever
    std::swap(current, spare);
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
    if (locale)
        result.setLocale(locale);
    result.set(rest.data(), 0, static_cast<unsigned int>(rest.size()));
    return result;
}

LOCALE* textstream::getLocale() { return locale; }

void textstream::setLocale(LOCALE* wanted)
{
    LOCALE* const copy = velaCopyLocale(wanted);
    if (locale)
        Locale_Destroy(locale);
    locale = copy;
    localeDeclared = false;
}

datastream::datastream(sstring& text)
{
    unsigned int const length = text.getLength();
    unsigned short* copy = malloc16(length + 1);
    if (!copy)
        throw velaError(noMemory);
    std::copy_n(text.getUnicode(), length, copy);
    adopt(copy, length);
}

datastream::~datastream() = default;

void textstream::adopt(unsigned short* data, unsigned int lengthUnits)
{
    assert(!openFlag && !memory && lengthUnits <= UINT32_MAX / 2);
    memory = reinterpret_cast<unsigned char*>(data);
    ownsMemory = 1;
    openFlag = 1;
    unitMode = IsBigEndian() ? Utf16Big : Utf16Little;
    size = lengthUnits * 2;
    rewind();
}

bool IsBigEndian()
{
    static bool const isBig = std::endian::native == std::endian::big;
    return isBig;
}

void SwapEndian(unsigned short* unit) { *unit = static_cast<unsigned short>(*unit << 8 | *unit >> 8); }
