// foundation/vela-string-converters.cpp: see vela-string-converters.h.

#include "foundation/vela-string-converters.h"

#include "foundation/vela-array.h"
#include "foundation/vela-string-convert.h"

#include <cassert>
#include <cstring>

#include <strings.h>
#include <unicode/ucnv.h>

namespace {

/// Whether one byte becomes the same unit, and the unit the byte again.
bool keepsByte(UConverter* converter, char byte)
{
    UChar unit[8] = {};
    char back[8] = {};
    UErrorCode error = U_ZERO_ERROR;
    const int32_t units = ucnv_toUChars(converter, unit, 8, &byte, 1, &error);
    const int32_t bytes = ucnv_fromUChars(converter, back, 8, unit, units, &error);
    return U_SUCCESS(error) && units == 1 && unit[0] == static_cast<UChar>(byte) && bytes == 1 && back[0] == byte;
}

/// Asked byte by byte instead of by name: ICU knows hundreds of names. Types that carry a state from character to
/// character (escape sequences) are out whatever single bytes do.
bool keepsAsciiBytes(UConverter* converter)
{
    const UConverterType type = ucnv_getType(converter);
    if (type != UCNV_SBCS && type != UCNV_MBCS && type != UCNV_LATIN_1 && type != UCNV_UTF8 && type != UCNV_US_ASCII)
        return false;
    for (unsigned char byte = 1; byte < 0x80; ++byte)
        if (isPlainAscii(&byte, 1) && !keepsByte(converter, static_cast<char>(byte)))
            return false;
    return true;
}

class ThreadConverters : public velaAllocated
{
public:
    ThreadConverters() = default;
    ThreadConverters(ThreadConverters const&) = delete;
    ThreadConverters& operator=(ThreadConverters const&) = delete;
    ~ThreadConverters()
    {
        for (CodesetConverter& kept : m_entries)
            CloseConverter(kept.converter);
    }

    CodesetConverter const& find(char const* charset)
    {
        for (unsigned int i = 0; i < m_used; ++i)
            if (std::strcmp(m_entries[i].name, charset) == 0)
                return m_entries[i];
        return open(charset);
    }

private:
    static constexpr unsigned int kMostKept = 8;

    CodesetConverter const& open(char const* charset)
    {
        CodesetConverter& entry = m_entries[m_used < kMostKept ? m_used++ : m_next++ % kMostKept];
        assert(m_used <= kMostKept);
        CloseConverter(entry.converter);
        entry.converter = nullptr;
        entry.keepsAscii = false;
        std::strncpy(entry.name, charset, sizeof entry.name - 1);
        if (std::strlen(charset) >= sizeof entry.name) {
            entry.name[0] = 0;
            return entry;
        }
        assert(!entry.name[sizeof entry.name - 1]); // never written
        entry.converter = OpenConverter(charset);
        entry.keepsAscii = entry.converter && keepsAsciiBytes(entry.converter);
        return entry;
    }

    CodesetConverter m_entries[kMostKept] = {};
    unsigned int m_used = 0; ///< entries filled from the front
    unsigned int m_next = 0; ///< the entry that goes when all are filled
};

/// Made on a thread's first conversion. A conversion after the thread's own destructors ran makes a new one, which
/// stays until the process ends: strings in static storage may still be read then.
thread_local ThreadConverters* current = nullptr;

struct AtThreadEnd
{
    ~AtThreadEnd()
    {
        delete current;
        current = nullptr;
    }
    void touch() {}
};

thread_local AtThreadEnd atThreadEnd;

} // namespace

CodesetConverter const& converterFor(char const* charset)
{
    assert(charset);
    if (!current) {
        atThreadEnd.touch();
        current = new ThreadConverters;
    }
    return current->find(charset);
}

UConverter* OpenConverter(char const* charset)
{
    if (!charset || !*charset)
        return nullptr;
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(charset, &error);
    if (converter && U_SUCCESS(error))
        return converter;
    ucnv_close(converter);
    return strcasecmp(charset, "IBM-1381") == 0 ? OpenConverter("GBK") : nullptr;
}

void CloseConverter(UConverter* converter)
{
    if (converter)
        ucnv_close(converter);
}
