// foundation/vela-tsdecoder.cpp: see the header. Single-byte code sets are decoded by a table and well-formed UTF-8 by
// our own decoder; ICU decodes everything else, including ill-formed UTF-8.

#include "foundation/vela-tsdecoder.h"

#include "foundation/vela-comtypes.h"
#include "foundation/vela-string.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstring>
#include <utility>

#include <unicode/ucnv.h>
#include <unicode/utf16.h>

namespace {

/// How far back from a chunk's end to search for the end of its last whole character. With shift sequences no character
/// is longer than 8 bytes; in a text with more undecodable bytes it does not matter where the chunk ends.
constexpr unsigned int kTailBytes = 32;

void widen(unsigned char const* bytes, unsigned int count, unsigned short* out)
{
    std::copy(bytes, bytes + count, out);
}

/// The number of ASCII bytes at the start, rounded down to a multiple of 8.
unsigned int asciiRun(unsigned char const* bytes, unsigned int count)
{
    unsigned int i = 0;
    for (; i + 8 <= count; i += 8) {
        uint64_t eight = 0;
        std::memcpy(&eight, bytes + i, 8);
        if (eight & 0x8080808080808080u)
            break;
    }
    return i;
}

/// The length of the UTF-8 character that begins with `lead`; 0 if none does.
unsigned int utf8Length(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// For some lead bytes the range is smaller, which excludes overlong forms, surrogates and codes above U+10FFFF.
bool isUtf8Second(unsigned char lead, unsigned char second)
{
    unsigned char const low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned char const high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    return second >= low && second <= high;
}

bool isUtf8Trail(unsigned char byte) { return (byte & 0xC0) == 0x80; }

/// Reads a multi-byte character. Returns its length, or 0 if it is ill-formed or incomplete.
unsigned int readUtf8(unsigned char const* bytes, unsigned int count, uint32_t& code)
{
    assert(count > 0);
    unsigned int const length = utf8Length(bytes[0]);
    if (length < 2 || length > count || !isUtf8Second(bytes[0], bytes[1]))
        return 0;
    code = (bytes[0] & (0x7Fu >> length)) << 6 | (bytes[1] & 0x3Fu);
    for (unsigned int i = 2; i < length; ++i) {
        if (!isUtf8Trail(bytes[i]))
            return 0;
        code = code << 6 | (bytes[i] & 0x3Fu);
    }
    return length;
}

unsigned short* writeCode(unsigned short* out, uint32_t code)
{
    if (code < 0x10000) {
        *out++ = static_cast<unsigned short>(code);
        return out;
    }
    *out++ = U16_LEAD(code);
    *out++ = U16_TRAIL(code);
    return out;
}

/// Where to end a chunk of well-formed UTF-8 so that no character is split. Leaves a single-byte character at the end
/// to the next chunk, as wholeEnd() does. Returns 0 if the end is ill-formed or the chunk is too short.
unsigned int utf8WholeEnd(unsigned char const* bytes, unsigned int count)
{
    if (count < 8)
        return 0;
    if (bytes[count - 1] < 0x80)
        return count - 1;
    unsigned int tail = 1;
    while (tail < 4 && isUtf8Trail(bytes[count - tail]))
        ++tail;
    unsigned char const* lead = bytes + count - tail;
    unsigned int const length = utf8Length(*lead);
    if (length < tail || (tail > 1 && !isUtf8Second(lead[0], lead[1])))
        return 0;
    return length == tail ? count : count - tail;
}

unsigned int codePoints(unsigned short const* units, unsigned int count)
{
    return static_cast<unsigned int>(
        std::count_if(units, units + count, [](unsigned short u) { return !U16_IS_TRAIL(u); }));
}

uint32_t lastCodePoint(unsigned short const* units, unsigned int count)
{
    if (count == 0)
        return 0;
    unsigned short const last = units[count - 1];
    if (count > 1 && U16_IS_TRAIL(last) && U16_IS_LEAD(units[count - 2]))
        return U16_GET_SUPPLEMENTARY(units[count - 2], last);
    return last;
}

/// A converter in the same state; null when out of memory.
velaConverter cloneOf(UConverter* converter)
{
    UErrorCode status = U_ZERO_ERROR;
#if U_ICU_VERSION_MAJOR_NUM >= 71
    velaConverter copy(ucnv_clone(converter, &status));
#else
    velaConverter copy(ucnv_safeClone(converter, nullptr, nullptr, &status));
#endif
    return U_SUCCESS(status) ? std::move(copy) : nullptr;
}

bool isCodeSetChar(unsigned char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '-';
}

bool isBlank(unsigned char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool equalsFolded(unsigned char a, char lower) { return (a | 0x20) == lower; }

} // namespace

/// What the last bytes of a chunk decode to if it ends at a certain byte.
struct tsDecoder::Tail
{
    unsigned short units[kTailBytes * 8] = {};
    unsigned int count = 0;
    unsigned int characters = 0; // a surrogate pair counts once, so that half of one is not taken for a lost character
    uint32_t last = 0;
};

void tsDecoder::useCodeSet(char const* name)
{
    if (m_isChosen && m_codeSet == name)
        return;
    m_converter.reset();
    m_codeSet = name;
    m_isChosen = true;
    m_converter.reset(OpenConverter(name));
    chooseKind();
}

void tsDecoder::chooseKind()
{
    if (!m_converter) {
        m_kind = kWiden;
        return;
    }
    UConverterType const type = ucnv_getType(m_converter.get());
    bool const isTable = type == UCNV_SBCS || type == UCNV_LATIN_1 || type == UCNV_US_ASCII;
    m_kind = type == UCNV_UTF8 ? kUtf8 : isTable && buildTable() ? kSingleByte : kGeneral;
}

bool tsDecoder::buildTable()
{
    unsigned char bytes[256];
    for (unsigned int i = 0; i < 256; ++i)
        bytes[i] = static_cast<unsigned char>(i);
    m_table.resize(257);
    unsigned int units = 0;
    ucnv_reset(m_converter.get());
    return convert(m_converter.get(), bytes, 256, true, m_table.data(), 257, units) && units == 256;
}

tsDecoder::Result tsDecoder::decode(unsigned char const* bytes, unsigned int count, bool isLast, unsigned short* out)
{
    assert(m_isChosen);
    Result result{};
    if (m_kind == kUtf8 && decodeUtf8(bytes, count, isLast, out, result))
        return result;
    if (m_kind == kUtf8 || m_kind == kGeneral)
        return decodeGeneral(bytes, count, isLast, out);
    return decodeTable(bytes, count, isLast, out);
}

/// Leaves the last byte to the next chunk, as wholeEnd() does in a text where every byte is a character.
tsDecoder::Result tsDecoder::decodeTable(unsigned char const* bytes, unsigned int count, bool isLast,
                                         unsigned short* out) const
{
    assert(m_kind != kSingleByte || m_table.size() > 256);
    unsigned int const end = isLast || count < 2 ? count : count - 1;
    if (m_kind == kSingleByte)
        std::transform(bytes, bytes + end, out, [units = m_table.data()](unsigned char b) { return units[b]; });
    else
        widen(bytes, end, out);
    return {end, end};
}

bool tsDecoder::decodeUtf8(unsigned char const* bytes, unsigned int count, bool isLast, unsigned short* out,
                           Result& result)
{
    unsigned int const end = isLast ? count : utf8WholeEnd(bytes, count);
    if (end == 0)
        return count == 0;
    unsigned short* to = out;
    for (unsigned int i = 0; i < end;) {
        unsigned int const ascii = asciiRun(bytes + i, end - i);
        widen(bytes + i, ascii, to);
        i += ascii;
        to += ascii;
        while (i < end && bytes[i] < 0x80)
            *to++ = bytes[i++];
        while (i < end && bytes[i] >= 0x80) {
            uint32_t code = 0;
            unsigned int const length = readUtf8(bytes + i, end - i, code);
            if (length == 0)
                return false;
            to = writeCode(to, code);
            i += length;
        }
    }
    result = {unitsBetween(out, to), end};
    assert(result.units <= result.bytes && result.bytes <= count);
    return true;
}

bool tsDecoder::convert(UConverter* with, unsigned char const* bytes, unsigned int count, bool flush,
                        unsigned short* out, unsigned int capacity, unsigned int& units) const
{
    char const* from = reinterpret_cast<char const*>(bytes);
    UChar* to = toUChar(out);
    UErrorCode status = U_ZERO_ERROR;
    ucnv_toUnicode(with, &to, to + capacity, &from, from + count, nullptr, flush, &status);
    units = unitsBetween(toUChar(out), to);
    assert(units <= capacity);
    return U_SUCCESS(status);
}

/// Decodes the bytes with a copy of the converter, whose state is that before them.
bool tsDecoder::tryTail(unsigned char const* bytes, unsigned int count, Tail& tail) const
{
    velaConverter const copy = cloneOf(m_converter.get());
    if (!copy)
        return false;
    bool const ok = convert(copy.get(), bytes, count, true, tail.units, std::size(tail.units), tail.count);
    tail.characters = codePoints(tail.units, tail.count);
    tail.last = lastCodePoint(tail.units, tail.count);
    return ok;
}

/// Finds the end of the last whole character among a chunk's last bytes by dropping one byte after another and
/// comparing what the rest decodes to. If there is one character more, or another last character, the dropped byte
/// ended a whole character. If there is one character fewer for the second time, the byte before it did. The
/// converter's state is that before the bytes.
unsigned int tsDecoder::wholeEnd(unsigned char const* bytes, unsigned int count, bool& failed) const
{
    assert(count <= 2 * kTailBytes); // all that a Tail has room for
    Tail before;
    Tail after;
    failed = !tryTail(bytes, count, before);
    bool hasShrunk = false;
    for (unsigned int end = count; end > 0 && count - end < kTailBytes && !failed; --end) {
        failed = !tryTail(bytes, end - 1, after);
        bool const isFewer = after.characters < before.characters;
        bool const isOther = after.characters == before.characters && after.last != before.last;
        if (after.characters > before.characters || isOther || (isFewer && hasShrunk))
            return end;
        hasShrunk = hasShrunk || isFewer;
        before = after;
    }
    return count;
}

tsDecoder::Result tsDecoder::decodeGeneral(unsigned char const* bytes, unsigned int count, bool isLast,
                                           unsigned short* out)
{
    ucnv_reset(m_converter.get());
    unsigned int const tailBytes = isLast ? 0 : std::min(count, 2 * kTailBytes);
    unsigned int const headBytes = count - tailBytes;
    unsigned int headUnits = 0;
    bool failed = !convert(m_converter.get(), bytes, headBytes, isLast, out, count, headUnits);
    if (isLast && !failed)
        return {headUnits, count};
    unsigned int end = 0;
    if (!failed)
        end = wholeEnd(bytes + headBytes, tailBytes, failed);
    assert(end <= tailBytes && headUnits <= count);
    unsigned int tailUnits = 0;
    if (!failed &&
        convert(m_converter.get(), bytes + headBytes, end, true, out + headUnits, count - headUnits, tailUnits))
        return {headUnits + tailUnits, headBytes + end};
    end = isLast || count < 2 ? count : count - 1;
    widen(bytes, end, out);
    return {end, end};
}

velaBytes findDeclaredCodeSet(unsigned char const* bytes, unsigned int count)
{
    static constexpr char kEyword[] = "charset";
    constexpr unsigned int kEywordLength = sizeof kEyword - 1;
    unsigned char const* const end = bytes + count;
    unsigned char const* at = std::search(bytes, end, kEyword, kEyword + kEywordLength, equalsFolded);
    if (at == end)
        return {};
    at = std::find(at + kEywordLength, end, '=');
    if (at == end)
        return {};
    at = std::find_if_not(at + 1, end, isBlank);
    if (at != end && (*at == '"' || *at == '\''))
        ++at;
    unsigned char const* nameEnd =
        std::find_if_not(at, std::min(end, at + std::min<long>(127, end - at)), isCodeSetChar);
    return velaBytes(at, nameEnd);
}
