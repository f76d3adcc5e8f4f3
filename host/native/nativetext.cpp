// host/native/nativetext.cpp: see nativetext.h.
#include "host/native/nativetext.h"

#include <unicode/ustring.h>

#include <cstdio>

namespace {

constexpr UChar32 kReplacement = 0xFFFD;

UChar const* unitsOf(std::u16string_view text) { return text.data(); }

} // namespace

std::u16string nativeFromUtf8(std::string_view text)
{
    std::u16string units(text.size(), u'\0'); // UTF-8 never has fewer bytes than UTF-16 has units
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(units.data(), static_cast<int32_t>(units.size()), &length, text.data(),
                         static_cast<int32_t>(text.size()), kReplacement, nullptr, &status);
    units.resize(U_FAILURE(status) ? 0 : static_cast<size_t>(length));
    return units;
}

std::string nativeToUtf8(std::u16string_view text)
{
    std::string bytes(text.size() * 3, '\0'); // a unit needs three bytes at most, a pair four
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(bytes.data(), static_cast<int32_t>(bytes.size()), &length, unitsOf(text),
                       static_cast<int32_t>(text.size()), kReplacement, nullptr, &status);
    bytes.resize(U_FAILURE(status) ? 0 : static_cast<size_t>(length));
    return bytes;
}

std::u16string nativeFromSString(sstring const& text)
{
    if (text.getLength() == 0)
        return {}; // a string that was moved from has no buffer
    return std::u16string(reinterpret_cast<char16_t const*>(text.getUnicode()), text.getLength());
}

sstring nativeToSString(std::u16string_view text)
{
    if (text.empty())
        return sstring();
    return sstring(reinterpret_cast<unsigned short const*>(text.data()), 0, static_cast<unsigned>(text.size()));
}

void nativeReport(std::string const& line) { std::fprintf(stderr, "%s\n", line.c_str()); }
