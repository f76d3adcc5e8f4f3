// page/guinumbers.cpp: see guinumbers.h.
#include "page/guinumbers.h"

#include <algorithm>
#include <cstdint>

namespace {

bool isBlank(unsigned short unit) { return unit == ' ' || (unit >= '\t' && unit <= '\r'); }

unsigned short folded(unsigned short unit)
{
    return unit >= 'A' && unit <= 'Z' ? static_cast<unsigned short>(unit + ('a' - 'A')) : unit;
}

} // namespace

int guiToNumber(sstring const& text)
{
    unsigned short const* at = text.getUnicode();
    while (isBlank(*at))
        ++at;
    bool negative = *at == '-';
    if (*at == '-' || *at == '+')
        ++at;
    std::int64_t number = 0;
    for (; *at >= '0' && *at <= '9'; ++at)
        number = std::min<std::int64_t>(number * 10 + (*at - '0'), INT32_MAX);
    return static_cast<int>(negative ? -number : number);
}

int guiToPixels(sstring const& text) { return std::clamp(guiToNumber(text), 0, kMaxPixels); }

guiLength guiToLength(sstring const& text)
{
    int number = guiToNumber(text);
    if (text.find('%') == sstring::npos)
        return {kUnitPixels, static_cast<unsigned>(std::clamp(number, 0, kMaxPixels))};
    return {kUnitPercent, static_cast<unsigned>(std::clamp(number, 0, kMaxPercent))};
}

bool guiIsWord(sstring const& text, char const* word)
{
    unsigned short const* at = text.getUnicode();
    for (; *word; ++at, ++word)
        if (folded(*at) != folded(static_cast<unsigned char>(*word)))
            return false;
    return *at == 0;
}
