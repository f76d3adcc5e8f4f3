// page/guicontrast.cpp: see guicontrast.h.
#include "page/guicontrast.h"

#include <algorithm>
#include <cmath>

namespace {

/// One part of a colour as light, 0 to 1 (WCAG 2, relative luminance; the curve of sRGB).
double lightOf(int part)
{
    double const value = std::clamp(part, 0, 255) / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

double guiLuminance(guiColor color)
{
    return 0.2126 * lightOf(color.red) + 0.7152 * lightOf(color.green) + 0.0722 * lightOf(color.blue);
}

double guiContrast(guiColor first, guiColor second)
{
    double const one = guiLuminance(first);
    double const other = guiLuminance(second);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

bool guiIsDark(guiColor ground) { return guiContrast(guiColor::White, ground) > guiContrast(guiColor::Black, ground); }

guiColor guiMixed(guiColor first, guiColor second, double part)
{
    auto const between = [part](int from, int to) { return static_cast<int>(std::lround(from + (to - from) * part)); };
    return {between(first.red, second.red), between(first.green, second.green), between(first.blue, second.blue)};
}

guiColor guiReadable(guiColor color, guiColor ground, double least)
{
    constexpr int kSteps = 16;
    guiColor const end = guiIsDark(ground) ? guiColor::White : guiColor::Black;
    guiColor found = color;
    for (int step = 1; step <= kSteps && guiContrast(found, ground) < least; ++step)
        found = guiMixed(color, end, step / static_cast<double>(kSteps));
    return found;
}
