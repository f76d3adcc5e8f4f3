// foundation/vela-textstream-fill.cpp: how a stream's caches are filled from its source, and how the source's encoding
// is found.
#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "foundation/vela-alloc.h"
#include "foundation/vela-locale.h"
#include "foundation/vela-textstream.h"
#include "foundation/vela-tsdecoder.h"

namespace {

constexpr unsigned int rawBufferBytes = 49153;
constexpr unsigned int nameBytes = 128;

/// Leaves out the zero units; returns how many units stay. Nearly every text has none, so that is looked at first.
unsigned int dropZeros(unsigned short* units, unsigned int count)
{
    unsigned int zeros = 0;
    for (unsigned int i = 0; i < count; ++i)
        zeros += units[i] == 0;
    if (zeros != 0)
        std::remove(units, units + count, 0);
    return count - zeros;
}

template <class T>
void ensureBuffer(T*& buffer, unsigned int count)
{
    if (!buffer)
        buffer = static_cast<T*>(velaMalloc(count * sizeof(T)));
    if (!buffer)
        throw velaError(12);
}

} // namespace

/// FF FE and FE FF are UTF-16; EF BB BF is only skipped: a text that is UTF-8 declares it.
void textstream::detectByteOrder()
{
    unsigned char mark[3] = {};
    unsigned int const count = std::min(size, 3u);
    unsigned int const got = readSource(mark, 0, count);
    unitMode = CodeSet;
    dataStart = 0;
    if (got >= 2 && mark[0] == 0xFF && mark[1] == 0xFE)
        unitMode = Utf16Little;
    else if (got >= 2 && mark[0] == 0xFE && mark[1] == 0xFF)
        unitMode = Utf16Big;
    else if (got == 3 && mark[0] == 0xEF && mark[1] == 0xBB && mark[2] == 0xBF)
        dataStart = 3;
    if (unitMode != CodeSet)
        dataStart = 2;
}

/// Reads `count` bytes of the source from `offset` on; fewer when the source became shorter meanwhile.
unsigned int textstream::readSource(void* out, unsigned int offset, unsigned int count)
{
    assert(offset <= size && count <= size - offset);
    if (memory) {
        std::memcpy(out, memory + offset, count);
        memoryPosition = offset + count;
        return count;
    }
    if (!FileIO_Seek(file, FILE_SEEK_START, static_cast<unsigned long>(offset)))
        return 0;
    unsigned int done = 0;
    while (done < count) {
        unsigned long got = 0;
        int atEnd = 0;
        if (!FileIO_Read(file, static_cast<unsigned char*>(out) + done, count - done, &got, &atEnd) || got == 0)
            break;
        done += static_cast<unsigned int>(got);
    }
    return done;
}

void textstream::fill()
{
    current.consumed = 0;
    if (current.start >= size)
        return;
    ensureBuffer(current.buffer, tsCache::bufferUnits);
    if (unitMode == CodeSet)
        fillCodeSet();
    else
        fillUtf16();
    assert(current.valid < tsCache::bufferUnits && current.consumed <= size - current.start);
    current.valid = dropZeros(current.buffer, current.valid);
    current.buffer[current.valid] = 0;
}

void textstream::fillUtf16()
{
    unsigned int const wanted = std::min(size - current.start, 2 * current.readSize);
    current.consumed = readSource(current.buffer, current.start, wanted);
    current.valid = current.consumed / 2;
    if ((unitMode == Utf16Big) != IsBigEndian())
        std::for_each(current.buffer, current.buffer + current.valid, [](unsigned short& unit) { SwapEndian(&unit); });
}

/// A memory stream is decoded where it lies; a file's bytes pass through the raw buffer.
void textstream::fillCodeSet()
{
    unsigned int const wanted = std::min(size - current.start, current.readSize);
    unsigned char const* chunk = memory ? memory + current.start : nullptr;
    unsigned int got = wanted;
    if (!chunk) {
        ensureBuffer(rawBuffer, rawBufferBytes);
        got = readSource(rawBuffer, current.start, wanted);
        assert(got <= wanted && got < rawBufferBytes);
        rawBuffer[got] = 0;
        chunk = rawBuffer;
    }
    chooseCodeSet(chunk, got);
    bool const isLast = got < wanted || current.start + got >= size;
    tsDecoder::Result const result = decoder->decode(chunk, got, isLast, current.buffer);
    current.valid = result.units;
    current.consumed = result.bytes;
}

/// The locale that a page's declaration stands for; the process's when it declares none.
void textstream::chooseLocale(velaBytes const& declared)
{
    if (declared.empty()) {
        locale = velaCopyLocale(Locale_GetDefault());
        return;
    }
    free8(std::exchange(codeSet, nullptr));
    codeSet = strdup8(reinterpret_cast<unsigned char const*>(declared.c_str()));
    locale = codeSet ? Locale_Create(declared.c_str()) : nullptr;
    if (!locale)
        throw velaError(12); // in another code set it would be another text
    localeDeclared = true;
}

/// A stream without a locale takes it from what its first chunk declares, or from the process. In a later chunk, which
/// finds none when it was cleared meanwhile, the same word is only text.
void textstream::chooseCodeSet(unsigned char const* chunk, unsigned int count)
{
    bool const isFirst = !decoder;
    if (!locale)
        chooseLocale(isFirst ? findDeclaredCodeSet(chunk, count) : velaBytes());
    if (isFirst)
        decoder = std::unique_ptr<tsDecoder>(new tsDecoder);
    if (codeSet)
        return decoder->useCodeSet(reinterpret_cast<char const*>(codeSet));
    char name[nameBytes] = {};
    Locale_GetDefaultCodeset(locale, name);
    decoder->useCodeSet(name);
}
