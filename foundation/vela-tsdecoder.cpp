// foundation/vela-tsdecoder.cpp: see the header. Single-byte code sets go through a table and well-formed UTF-8 through
// a decoder of our own; everything else, and every ill-formed text, is ICU's.
#include "foundation/vela-tsdecoder.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstring>

#include <unicode/ucnv.h>
#include <unicode/utf16.h>

#include "foundation/vela-comtypes.h"
#include "foundation/vela-string.h"

namespace {

/// Bytes at a chunk's end that the search for its last whole character may look at. No character of any code set is
/// longer than 8 bytes with its shifts; a text that goes on dropping bytes beyond this decodes to nothing anyway.
constexpr unsigned int kGuardBytes = 32;

void widen(unsigned char const* bytes, unsigned int count, unsigned short* out)
{
    std::copy(bytes, bytes + count, out);
}

/// Length of the run of ASCII bytes at the start, in steps of 8.
unsigned int asciiRun(unsigned char const* bytes, unsigned int count)
{
    unsigned int i = 0;
    for (; i + 8 <= count; i += 8) {
        uint64_t eight;
        std::memcpy(&eight, bytes + i, 8);
        if (eight & 0x8080808080808080u)
            break;
    }
    return i;
}

/// Bytes of the UTF-8 character that `lead` begins; 0 when it can not begin one.
unsigned int utf8Length(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// The second byte narrows the range for some leads: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isUtf8Second(unsigned char lead, unsigned char second)
{
    unsigned char const low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned char const high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    return second >= low && second <= high;
}

bool isUtf8Trail(unsigned char byte) { return (byte & 0xC0) == 0x80; }

/// Reads one multi-byte character; returns its length, or 0 when it is ill-formed or cut off.
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

/// Where a chunk of well-formed UTF-8 ends so that no character is cut. Like the general search it gives up a last byte
/// that is a character by itself. 0: not well-formed here, or too short to tell.
unsigned int utf8GuardedEnd(unsigned char const* bytes, unsigned int count)
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

/// A converter in the same state, to be closed; null when there is no memory.
UConverter* cloneOf(UConverter* converter)
{
    UErrorCode status = U_ZERO_ERROR;
#if U_ICU_VERSION_MAJOR_NUM >= 71
    UConverter* copy = ucnv_clone(converter, &status);
#else
    UConverter* copy = ucnv_safeClone(converter, nullptr, nullptr, &status);
#endif
    return U_SUCCESS(status) ? copy : nullptr;
}

bool isCodeSetChar(unsigned char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '-';
}

bool isBlank(unsigned char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool equalsFolded(unsigned char a, char lower) { return (a | 0x20) == lower; }

} // namespace

/// What the bytes behind a fixed place of the chunk decode to, for one trial end.
struct tsDecoder::Tail
{
    unsigned short units[kGuardBytes * 8];
    unsigned int count;
    unsigned int characters; // surrogate pairs count once, so that no half of one is taken for a character lost
    uint32_t last;
};

tsDecoder::~tsDecoder() { close(); }

void tsDecoder::close()
{
    if (m_converter)
        CloseConverter(m_converter);
    m_converter = nullptr;
}

void tsDecoder::useCodeSet(char const* name)
{
    if (m_isChosen && m_codeSet == name)
        return;
    close();
    m_codeSet = name;
    m_isChosen = true;
    m_converter = OpenConverter(name);
    chooseKind();
}

void tsDecoder::chooseKind()
{
    if (!m_converter) {
        m_kind = kWiden;
        return;
    }
    UConverterType const type = ucnv_getType(m_converter);
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
    ucnv_reset(m_converter);
    return convert(m_converter, bytes, 256, true, m_table.data(), 257, units) && units == 256;
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

/// Every byte is a character, so the search for a cut one always gives up the last byte.
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
    unsigned int const end = isLast ? count : utf8GuardedEnd(bytes, count);
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
    result = {static_cast<unsigned int>(to - out), end};
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
    units = static_cast<unsigned int>(to - toUChar(out));
    assert(units <= capacity);
    return U_SUCCESS(status);
}

/// Decodes the bytes up to one trial end with a copy of the converter as it stands before them.
bool tsDecoder::tryTail(unsigned char const* bytes, unsigned int count, Tail& tail) const
{
    UConverter* copy = cloneOf(m_converter);
    if (!copy)
        return false;
    bool const ok = convert(copy, bytes, count, true, tail.units, std::size(tail.units), tail.count);
    ucnv_close(copy);
    tail.characters = codePoints(tail.units, tail.count);
    tail.last = lastCodePoint(tail.units, tail.count);
    return ok;
}

/// Drops the last byte again and again and watches what the rest decodes to. One character more, or another last
/// character: the byte belonged to a whole character, which ends the chunk. One character fewer for the second time:
/// the byte before was the last of a whole character. The bytes are the chunk's last ones; the converter stands before
/// them.
unsigned int tsDecoder::guardedEnd(unsigned char const* bytes, unsigned int count, bool& failed) const
{
    assert(count <= 2 * kGuardBytes); // what a tail has room for
    Tail before;
    Tail after;
    failed = !tryTail(bytes, count, before);
    bool hasShrunk = false;
    for (unsigned int end = count; end > 0 && count - end < kGuardBytes && !failed; --end) {
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
    ucnv_reset(m_converter);
    unsigned int const tailBytes = isLast ? 0 : std::min(count, 2 * kGuardBytes);
    unsigned int const headBytes = count - tailBytes;
    unsigned int headUnits = 0;
    bool failed = !convert(m_converter, bytes, headBytes, isLast, out, count, headUnits);
    if (isLast && !failed)
        return {headUnits, count};
    unsigned int end = 0;
    if (!failed)
        end = guardedEnd(bytes + headBytes, tailBytes, failed);
    assert(end <= tailBytes && headUnits <= count);
    unsigned int tailUnits = 0;
    if (!failed && convert(m_converter, bytes + headBytes, end, true, out + headUnits, count - headUnits, tailUnits))
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
