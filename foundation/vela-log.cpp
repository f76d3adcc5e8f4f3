// foundation/vela-log.cpp: see vela-log.h.
#include "foundation/vela-log.h"

#include "foundation/vela-comtypes.h"
#include "foundation/vela-string.h"

#include <cstdarg>
#include <cstdio>

#include <unicode/ustring.h>

void velaLog(char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
}

std::string velaPrintable(sstring const& text)
{
    constexpr std::size_t kMostBytesPerUnit = 3; // UTF-8: units above U+07FF; a pair of surrogates takes 4 for two
    std::string utf8(kMostBytesPerUnit * text.getLength(), '\0');
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(utf8.data(), static_cast<int32_t>(utf8.size()), &length, toUChar(text.getUnicode()),
                       static_cast<int32_t>(text.getLength()), '?', nullptr, &status);
    utf8.resize(static_cast<std::size_t>(length));
    return utf8;
}
