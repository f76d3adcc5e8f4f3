// host/node/nodetext.cpp: conversions of text. Any thread.
#include "host/node/nodetext.h"

#include <cassert>
#include <charconv>
#include <cmath>

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr double kFirstWithExponent = 1e21; // ECMA-262, Number::toString: from here on with an exponent
constexpr double kLastWithoutExponent = 1e-6;

bool isHigh(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool isLow(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

char32_t nextOf(std::u16string_view text, size_t& at)
{
    assert(at < text.size());
    char16_t unit = text[at++];
    if (isHigh(unit) && at < text.size() && isLow(text[at]))
        return 0x10000 + ((unit - 0xD800u) << 10) + (text[at++] - 0xDC00u);
    return isHigh(unit) || isLow(unit) ? kReplacement : unit;
}

void appendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
        return;
    }
    int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    static constexpr unsigned char kLead[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(kLead[more] | (c >> (6 * more)));
    while (more-- > 0)
        out += static_cast<char>(0x80 | ((c >> (6 * more)) & 0x3F));
}

void appendUtf16(std::u16string& out, char32_t c)
{
    if (c < 0x10000) {
        out += static_cast<char16_t>(c);
        return;
    }
    out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
    out += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
}

/// Number of bytes behind a lead byte, -1 for a byte that is no lead byte.
int trailCount(unsigned char lead)
{
    if (lead < 0x80)
        return 0;
    if (lead >= 0xC2 && lead < 0xE0)
        return 1;
    if (lead >= 0xE0 && lead < 0xF0)
        return 2;
    return lead >= 0xF0 && lead < 0xF5 ? 3 : -1;
}

bool isScalar(char32_t c, int trail)
{
    static constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
    return c >= kSmallest[trail] && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

char32_t nextOf(std::string_view bytes, size_t& at)
{
    assert(at < bytes.size());
    auto lead = static_cast<unsigned char>(bytes[at]);
    int trail = trailCount(lead);
    if (trail < 0 || at + static_cast<size_t>(trail) >= bytes.size()) {
        ++at;
        return kReplacement;
    }
    char32_t c = trail == 0 ? lead : lead & (0x3Fu >> trail);
    for (int i = 1; i <= trail; ++i) {
        auto byte = static_cast<unsigned char>(bytes[at + static_cast<size_t>(i)]);
        c = (byte & 0xC0) == 0x80 ? (c << 6) | (byte & 0x3F) : 0x110000;
        if (c >= 0x110000)
            break;
    }
    bool good = isScalar(c, trail);
    at += good ? static_cast<size_t>(trail) + 1 : 1;
    return good ? c : kReplacement;
}

} // namespace

std::u16string toText(sstring const& text)
{
    auto units = reinterpret_cast<char16_t const*>(text.getUnicode());
    return {units, text.getLength()};
}

sstring toSstring(std::u16string_view text) { return toSstring(std::u16string(text)); }

// An explicit count of the whole length keeps zeros inside, if there is a terminator behind it.
sstring toSstring(std::u16string const& text)
{
    return sstring(reinterpret_cast<unsigned short const*>(text.c_str()), 0, static_cast<unsigned>(text.size()));
}

std::string toUtf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();)
        appendUtf8(out, nextOf(text, at));
    return out;
}

std::u16string fromUtf8(std::string_view bytes)
{
    std::u16string out;
    out.reserve(bytes.size());
    for (size_t at = 0; at < bytes.size();)
        appendUtf16(out, nextOf(bytes, at));
    return out;
}

std::u16string numberToText(double number)
{
    if (std::isnan(number))
        return u"NaN";
    if (std::isinf(number))
        return number < 0 ? u"-Infinity" : u"Infinity";
    if (number == 0)
        return u"0";
    double size = std::fabs(number);
    bool plain = size < kFirstWithExponent && size >= kLastWithoutExponent;
    char buffer[64];
    auto end = std::to_chars(buffer, buffer + sizeof buffer, number,
                             plain ? std::chars_format::fixed : std::chars_format::scientific)
                   .ptr;
    std::string text(buffer, end);
    if (auto zero = text.find("e-0"); zero != std::string::npos)
        text.erase(zero + 2, 1); // C writes at least two digits of the exponent, script as few as possible
    return fromUtf8(text);
}
