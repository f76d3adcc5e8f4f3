// page/guicolortext.cpp: see guicolortext.h.
#include "page/guicolortext.h"

#include "foundation/vela-qt.h"
#include "page/guinumbers.h"

#include <QColor>

#include <algorithm>

namespace {

struct namedColor
{
    char const* name;
    char const* hex;
};

constexpr namedColor kColors[] = {
    {"aqua", "#00FFFF"},   {"black", "#000000"}, {"blue", "#0000FF"},   {"fuchsia", "#FF00FF"},
    {"gray", "#808080"},   {"green", "#008000"}, {"lime", "#00FF00"},   {"maroon", "#800000"},
    {"navy", "#000080"},   {"olive", "#808000"}, {"purple", "#800080"}, {"red", "#FF0000"},
    {"silver", "#C0C0C0"}, {"teal", "#008080"},  {"white", "#FFFFFF"},  {"yellow", "#FFFF00"},
};

/// The value of a hexadecimal digit, -1 for any other unit.
int digitValue(unsigned short unit)
{
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    if (unit >= 'a' && unit <= 'f')
        return unit - 'a' + 10;
    if (unit >= 'A' && unit <= 'F')
        return unit - 'A' + 10;
    return -1;
}

/// The colours of CSS by their names.
sstring namedHex(sstring const& color)
{
    QString const name = sstoq(color);
    bool const mayBeName = !name.isEmpty() && name.at(0).isLetter();
    QColor const known = mayBeName && QColor::isValidColor(name) ? QColor(name) : QColor();
    return known.alpha() == 255 && known.isValid() ? qtoss(known.name().toUpper()) : color;
}

/// "#RRGGBB" for "#RGB".
sstring sixDigits(sstring const& color)
{
    sstring hex("#");
    for (unsigned i = 1; i <= 3; ++i)
        for (int twice = 0; twice < 2; ++twice)
            hex += color.getUnicode()[i];
    return hex;
}

} // namespace

sstring guiColorToHex(sstring const& color)
{
    for (namedColor const& known : kColors)
        if (guiIsWord(color, known.name))
            return known.hex;
    return namedHex(color);
}

bool guiReadColor(sstring const& color, guiColor* out)
{
    sstring hex = guiColorToHex(color);
    if (hex.getLength() == 4 && hex.getUnicode()[0] == '#')
        hex = sixDigits(hex);
    unsigned short const* units = hex.getUnicode();
    if (hex.getLength() != 7 || units[0] != '#')
        return false;
    int digits[6];
    for (int i = 0; i < 6; ++i)
        digits[i] = digitValue(units[i + 1]);
    if (std::any_of(digits, digits + 6, [](int digit) { return digit < 0; }))
        return false;
    *out = {digits[0] * 16 + digits[1], digits[2] * 16 + digits[3], digits[4] * 16 + digits[5]};
    return true;
}
