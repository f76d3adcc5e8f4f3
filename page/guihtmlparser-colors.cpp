// page/guihtmlparser-colors.cpp: colours and font sizes as pages write them.
#include "page/guihtmlparser.h"

#include "page/guicolortext.h"

#include <algorithm>

sstring guiHtmlParser::convColorToHex(sstring const& color) { return guiColorToHex(color); }

bool guiHtmlParser::readColor(sstring const& color, guiColor* out) { return guiReadColor(color, out); }

guiColor guiHtmlParser::convColorToStruct(sstring const& color)
{
    guiColor value = guiColor::Black;
    readColor(color, &value);
    return value;
}

int guiHtmlParser::toPointSize(int size)
{
    constexpr int kPoints[] = {8, 10, 12, 14, 18, 24, 36};
    return kPoints[std::clamp(size, 1, 7) - 1];
}
