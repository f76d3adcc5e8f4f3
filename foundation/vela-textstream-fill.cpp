// foundation/vela-textstream-fill.cpp: reading the source, detecting its encoding and filling the caches.

#include "foundation/vela-textstream.h"

#include "foundation/vela-alloc.h"
#include "foundation/vela-locale.h"
#include "foundation/vela-tsdecoder.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace {

constexpr unsigned int kRawBufferBytes = 49153;
constexpr unsigned int kNameBytes = 128;

/// Removes zero units and returns the number that remain. Counts them first, because nearly every text has none.
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
        throw velaError(ENOMEM);
}

} // namespace

/// FF FE and FE FF mark UTF-16. EF BB BF is only skipped: UTF-8 has to be declared in the text.
void textstream::detectByteOrder()
{
    unsigned char mark[3] = {};
    unsigned int const count = std::min(m_size, 3u);
    unsigned int const got = readSource(mark, 0, count);
    m_unitMode = kCodeSet;
    m_dataStart = 0;
    if (got >= 2 && mark[0] == 0xFF && mark[1] == 0xFE)
        m_unitMode = kUtf16Little;
    else if (got >= 2 && mark[0] == 0xFE && mark[1] == 0xFF)
        m_unitMode = kUtf16Big;
    else if (got == 3 && mark[0] == 0xEF && mark[1] == 0xBB && mark[2] == 0xBF)
        m_dataStart = 3;
    if (m_unitMode != kCodeSet)
        m_dataStart = 2;
}

/// Reads `count` bytes of the source from `offset` on; fewer if the file has become shorter.
unsigned int textstream::readSource(void* out, unsigned int offset, unsigned int count)
{
    assert(offset <= m_size && count <= m_size - offset);
    if (m_memory) {
        std::memcpy(out, m_memory + offset, count);
        m_memoryPosition = offset + count;
        return count;
    }
    if (!FileIO_Seek(m_file, FILE_SEEK_START, static_cast<unsigned long>(offset)))
        return 0;
    unsigned int done = 0;
    while (done < count) {
        unsigned long got = 0;
        int atEnd = 0;
        if (!FileIO_Read(m_file, static_cast<unsigned char*>(out) + done, count - done, &got, &atEnd) || got == 0)
            break;
        done += static_cast<unsigned int>(got);
    }
    return done;
}

void textstream::fill()
{
    m_current.consumed = 0;
    if (m_current.start >= m_size)
        return;
    ensureBuffer(m_current.buffer, tsCache::kBufferUnits);
    if (m_unitMode == kCodeSet)
        fillCodeSet();
    else
        fillUtf16();
    assert(m_current.valid < tsCache::kBufferUnits && m_current.consumed <= m_size - m_current.start);
    m_current.valid = dropZeros(m_current.buffer, m_current.valid);
    m_current.buffer[m_current.valid] = 0;
}

void textstream::fillUtf16()
{
    unsigned int const wanted = std::min(m_size - m_current.start, 2 * m_current.readSize);
    m_current.consumed = readSource(m_current.buffer, m_current.start, wanted);
    m_current.valid = m_current.consumed / 2;
    if ((m_unitMode == kUtf16Big) != IsBigEndian())
        std::for_each(m_current.buffer, m_current.buffer + m_current.valid,
                      [](unsigned short& unit) { SwapEndian(&unit); });
}

/// Memory is decoded in place; a file is read into the raw buffer first.
void textstream::fillCodeSet()
{
    unsigned int const wanted = std::min(m_size - m_current.start, m_current.readSize);
    unsigned char const* chunk = m_memory ? m_memory + m_current.start : nullptr;
    unsigned int got = wanted;
    if (!chunk) {
        ensureBuffer(m_rawBuffer, kRawBufferBytes);
        got = readSource(m_rawBuffer, m_current.start, wanted);
        assert(got <= wanted && got < kRawBufferBytes);
        m_rawBuffer[got] = 0;
        chunk = m_rawBuffer;
    }
    chooseCodeSet(chunk, got);
    bool const isLast = got < wanted || m_current.start + got >= m_size;
    tsDecoder::Result const result = m_decoder->decode(chunk, got, isLast, m_current.buffer);
    m_current.valid = result.units;
    m_current.consumed = result.bytes;
}

/// Sets the locale of the declared code set, or the default one if none is declared.
void textstream::chooseLocale(velaBytes const& declared)
{
    if (declared.empty()) {
        m_locale = velaCopyLocale(Locale_GetDefault());
        return;
    }
    m_codeSet = declared;
    m_locale.reset(Locale_Create(declared.c_str()));
    if (!m_locale)
        throw velaError(ENOMEM); // with another code set the text would be different
    m_localeDeclared = true;
}

/// A stream without a locale takes it from a declaration in its first chunk, or from the process. If the locale is
/// cleared later, a declaration in a later chunk is only text.
void textstream::chooseCodeSet(unsigned char const* chunk, unsigned int count)
{
    bool const isFirst = !m_decoder;
    if (!m_locale)
        chooseLocale(isFirst ? findDeclaredCodeSet(chunk, count) : velaBytes());
    if (isFirst)
        m_decoder = std::make_unique<tsDecoder>();
    if (!m_codeSet.empty())
        return m_decoder->useCodeSet(m_codeSet.c_str());
    char name[kNameBytes] = {};
    Locale_GetDefaultCodeset(m_locale.get(), name);
    m_decoder->useCodeSet(name);
}
