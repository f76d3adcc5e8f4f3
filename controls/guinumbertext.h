// controls/guinumbertext.h: numbers as pages, forms and users write them, and what a page allows of them.
#pragma once

#include <QString>
#include <optional>

/// The number that is the whole text, blanks around it aside, with "." before the decimals; none for any other text.
std::optional<double> guiReadNumber(QString const& text);
/// The shortest text that is read as this number again; without an exponent unless it is very large or small.
QString guiNumberText(double number);
/// Digits behind the "." of a number's text.
int guiDecimalsOf(QString const& text);

/// What a page allows. Of limits that leave nothing the lower one counts.
struct guiNumberRange
{
    std::optional<double> least;
    std::optional<double> most;
    double step = 1; ///< above 0: how far one press of an arrow goes

    double limited(double number) const;
};
