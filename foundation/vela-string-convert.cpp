// foundation/vela-string-convert.cpp: see vela-string-convert.h.

#include "foundation/vela-string-convert.h"

#include "foundation/localize2.h"
#include "foundation/vela-alloc.h"
#include "foundation/vela-comtypes.h"
#include "foundation/vela-error.h"
#include "foundation/vela-string-c.h"
#include "foundation/vela-string-converters.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <cstring>

#include <langinfo.h>
#include <unicode/ucnv.h>

namespace {

/// The name of a locale's code set.
struct CodesetName
{
    char text[kMaxCodesetName] = {};
    explicit CodesetName(LOCALE* locale)
    {
        Locale_GetDefaultCodeset(locale, text);
        assert(text[0] && !text[kMaxCodesetName - 1]);
    }
};

CodesetConverter const& namedOrDefault(char const* charset)
{
    if (charset && *charset)
        return converterFor(charset);
    return converterFor(CodesetName(Locale_GetDefault()).text);
}

/// Some code sets permute 0x1A, 0x1C and 0x7F; the terminator does not count.
constexpr bool isPlain(unsigned int unit) { return unit - 1 < 0x7E && unit != 0x1A && unit != 0x1C; }

/// Copies plain ASCII and fills the rest of the output with zeros. Returns false, with undefined output, if the text
/// has other characters or does not fit.
template <class Out, class In>
bool copyPlainAscii(Out* out, In const* in, unsigned int capacity)
{
    unsigned int i = 0;
    for (; i < capacity && isPlain(in[i]); ++i)
        out[i] = static_cast<Out>(in[i]);
    if (in[i])
        return false;
    std::fill(out + i, out + capacity, Out{});
    return true;
}

/// Widens or narrows each character where there is no converter.
template <class Out, class In>
void copyEach(Out* out, In const* in, unsigned int capacity)
{
    unsigned int i = 0;
    for (; i < capacity && in[i]; ++i)
        out[i] = static_cast<Out>(in[i]);
    std::fill(out + i, out + capacity, Out{});
}

bool convert(CodesetConverter const& codeset, unsigned short* out, unsigned char const* in, unsigned int capacity)
{
    if (codeset.keepsAscii && copyPlainAscii(out, in, capacity))
        return true;
    if (!codeset.converter)
        return false;
    UErrorCode error = U_ZERO_ERROR;
    UChar* to = toUChar(out);
    char const* from = reinterpret_cast<char const*>(in);
    ucnv_reset(codeset.converter.get());
    ucnv_toUnicode(codeset.converter.get(), &to, to + capacity, &from, from + std::strlen(from), nullptr, true, &error);
    assert(to >= toUChar(out) && to <= toUChar(out) + capacity);
    std::fill(to, toUChar(out) + capacity, UChar{});
    return U_SUCCESS(error);
}

bool convert(CodesetConverter const& codeset, unsigned char* out, unsigned short const* in, unsigned int capacity)
{
    if (codeset.keepsAscii && copyPlainAscii(out, in, capacity))
        return true;
    if (!codeset.converter)
        return false;
    UErrorCode error = U_ZERO_ERROR;
    char* to = reinterpret_cast<char*>(out);
    UChar const* from = toUChar(in);
    ucnv_reset(codeset.converter.get());
    ucnv_fromUnicode(codeset.converter.get(), &to, to + capacity, &from, from + strlen16(in), nullptr, true, &error);
    assert(to >= reinterpret_cast<char*>(out) && to <= reinterpret_cast<char*>(out) + capacity);
    std::fill(to, reinterpret_cast<char*>(out) + capacity, '\0');
    return U_SUCCESS(error);
}

} // namespace

int ConvertToUnicode(char const* charset, unsigned short* out, unsigned char const* in, unsigned int capacity)
{
    return out && in && convert(namedOrDefault(charset), out, in, capacity);
}

int ConvertToOEM(char const* charset, unsigned char* out, unsigned short const* in, unsigned int capacity)
{
    return out && in && convert(namedOrDefault(charset), out, in, capacity);
}

int AnsiToUnicodeIn(char const* charset, unsigned short* out, unsigned char const* in, unsigned int capacity)
{
    if (!out || !in)
        return 0;
    if (!ConvertToUnicode(charset, out, in, capacity))
        copyEach(out, in, capacity);
    return 1;
}

int AnsiToUnicode(unsigned short* out, unsigned char const* in, unsigned int capacity, LOCALE* locale)
{
    locale = locale ? locale : Locale_GetDefault();
    return locale && AnsiToUnicodeIn(CodesetName(locale).text, out, in, capacity);
}

int UnicodeToAnsi(unsigned char* out, unsigned short const* in, unsigned int capacity, LOCALE* locale)
{
    locale = locale ? locale : Locale_GetDefault();
    if (!locale || !out || !in)
        return 0;
    if (!ConvertToOEM(CodesetName(locale).text, out, in, capacity))
        copyEach(out, in, capacity);
    return 1;
}

namespace {

/// A cache of keepsPlainAscii(): its last result on this thread and what that depends on, the locale's name and the C
/// library's code set. Every conversion of a string asks, nearly always for the same locale, and finding the code set
/// takes longer than copying a word.
struct LastAnswer
{
    LOCALE locale{};
    char libraryCodeset[kMaxCodesetName] = {};
    bool keepsAscii = false;

    bool isAbout(LOCALE const& asked, char const* library) const
    {
        return std::memcmp(&locale, &asked, sizeof locale) == 0 && std::strcmp(libraryCodeset, library) == 0;
    }
};

constinit thread_local LastAnswer lastAnswer;

} // namespace

bool keepsPlainAscii(LOCALE* locale)
{
    locale = locale ? locale : Locale_GetDefault();
    if (!locale)
        return false;
    char const* library = nl_langinfo(CODESET);
    if (library && lastAnswer.isAbout(*locale, library))
        return lastAnswer.keepsAscii;
    bool const keeps = converterFor(CodesetName(locale).text).keepsAscii;
    // A nameless locale is not cached: it stands for ICU's default, which may change.
    if (locale->name[0] && library && std::strlen(library) < kMaxCodesetName) {
        lastAnswer = {*locale, {}, keeps};
        std::strcpy(lastAnswer.libraryCodeset, library);
    }
    return keeps;
}

bool isPlainAscii(unsigned char const* text, unsigned int length)
{
    return std::all_of(text, text + length, [](unsigned char byte) { return isPlain(byte); });
}

bool isPlainAscii(unsigned short const* text, unsigned int length)
{
    return std::all_of(text, text + length, [](unsigned short unit) { return isPlain(unit); });
}

namespace {

/// A buffer that grows as needed, never shrinks and lives as long as the process.
template <class Unit>
struct StaticBuffer
{
    Unit* units = nullptr;
    unsigned int capacity = 0;

    void holdAtLeast(unsigned int wanted)
    {
        if (wanted <= capacity)
            return;
        void* block = velaRealloc(units, size_t{wanted} * sizeof(Unit));
        if (!block)
            throw velaError(ENOMEM);
        units = static_cast<Unit*>(block);
        capacity = wanted;
    }
};

} // namespace

unsigned char* ToAnsi16(unsigned short const* text)
{
    static StaticBuffer<unsigned char> buffer;
    if (!text)
        return nullptr;
    unsigned int const length = strlen16(text);
    buffer.holdAtLeast(isPlainAscii(text, length) ? length + 1 : length * 4 + 4);
    assert(buffer.capacity > length);
    UnicodeToAnsi(buffer.units, text, buffer.capacity);
    buffer.units[buffer.capacity - 1] = 0;
    return buffer.units;
}

unsigned short* ToUnicode8(unsigned char const* text)
{
    static StaticBuffer<unsigned short> buffer;
    if (!text)
        return nullptr;
    buffer.holdAtLeast(strlen8(text) + 1);
    assert(buffer.capacity > 0);
    AnsiToUnicode(buffer.units, text, buffer.capacity);
    buffer.units[buffer.capacity - 1] = 0;
    return buffer.units;
}
