// controls/guinumbertext.cpp: see guinumbertext.h.
#include "controls/guinumbertext.h"

#include <QLocale>
#include <algorithm>
#include <cmath>

std::optional<double> guiReadNumber(QString const& text)
{
    bool isNumber = false;
    double const number = QLocale::c().toDouble(text.trimmed(), &isNumber);
    if (!isNumber || !std::isfinite(number) || text.contains(u','))
        return std::nullopt;
    return number;
}

QString guiNumberText(double number)
{
    constexpr double kPlainBelow = 1e15;
    constexpr double kPlainAbove = 1e-6;
    double const size = std::abs(number);
    bool const isPlain = size == 0 || (size < kPlainBelow && size > kPlainAbove);
    return QString::number(number, isPlain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

int guiDecimalsOf(QString const& text)
{
    qsizetype const point = text.indexOf(u'.');
    if (point < 0)
        return 0;
    qsizetype end = point + 1;
    while (end < text.size() && text[end].isDigit())
        ++end;
    constexpr qsizetype kMostDecimals = 15;
    return static_cast<int>(std::min(end - point - 1, kMostDecimals));
}

double guiNumberRange::limited(double number) const
{
    if (most)
        number = std::min(number, *most);
    return least ? std::max(number, *least) : number;
}
