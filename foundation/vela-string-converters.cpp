// foundation/vela-string-converters.cpp: see vela-string-converters.h.

#include "foundation/vela-string-converters.h"

#include "foundation/vela-array.h"
#include "foundation/vela-string-convert.h"

#include <cassert>
#include <cstring>

#include <strings.h>
#include <unicode/ucnv.h>

namespace {

/// Whether the byte converts to the unit of the same value and back.
bool keepsByte(UConverter* converter, char byte)
{
    UChar unit[8] = {};
    char back[8] = {};
    UErrorCode error = U_ZERO_ERROR;
    int32_t const units = ucnv_toUChars(converter, unit, 8, &byte, 1, &error);
    int32_t const bytes = ucnv_fromUChars(converter, back, 8, unit, units, &error);
    return U_SUCCESS(error) && units == 1 && unit[0] == static_cast<UChar>(byte) && bytes == 1 && back[0] == byte;
}

/// Tested byte by byte, because ICU knows hundreds of code sets. Stateful types, which use escape sequences, are
/// excluded whatever single bytes convert to.
bool keepsAsciiBytes(UConverter* converter)
{
    UConverterType const type = ucnv_getType(converter);
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
        entry.converter.reset();
        entry.keepsAscii = false;
        std::strncpy(entry.name, charset, sizeof entry.name - 1);
        if (std::strlen(charset) >= sizeof entry.name) {
            entry.name[0] = 0;
            return entry;
        }
        assert(!entry.name[sizeof entry.name - 1]); // never written
        entry.converter.reset(OpenConverter(charset));
        entry.keepsAscii = entry.converter && keepsAsciiBytes(entry.converter.get());
        return entry;
    }

    CodesetConverter m_entries[kMostKept] = {};
    unsigned int m_used = 0; ///< entries in use, from the front
    unsigned int m_next = 0; ///< counts replacements; the entry to replace, modulo their number
};

/// Made by a thread's first conversion. A conversion after the thread's destructors have run makes another, which is
/// never freed: strings in static storage may still be read then.
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
