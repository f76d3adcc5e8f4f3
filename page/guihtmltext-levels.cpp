// page/guihtmltext-levels.cpp: see guihtmltext-levels.h.
#include "page/guihtmltext-levels.h"

#include "page/guihtmltext-codes.h"
#include "page/guihtmltext-shape.h"

#include "foundation/vela-error.h"

#include <QChar>
#include <QString>

#include <unicode/ubidi.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <numeric>

namespace {

constexpr char16_t kParagraphEnd = 0x2029;

struct closeBidi
{
    void operator()(UBiDi* bidi) const { ubidi_close(bidi); }
};
using bidiOwner = std::unique_ptr<UBiDi, closeBidi>;

// Hebrew to Thaana and beyond, the presentation forms, the supplementary scripts from the right, and the marks that
// turn text by themselves.
bool mayTurn(QChar unit)
{
    char16_t const u = unit.unicode();
    if (u < 0x590)
        return false;
    if (u <= 0x8FF || (u >= 0xFB1D && u <= 0xFDFF) || (u >= 0xFE70 && u <= 0xFEFF))
        return true;
    if (u == 0xD802 || u == 0xD803 || u == 0xD83A || u == 0xD83B)
        return true;
    return u == 0x200F || u == 0x202B || u == 0x202E || u == 0x2067;
}

/// The text of a run without its codes, a paragraph's end for each line break.
struct plainText
{
    QString text;
    std::vector<std::uint32_t> units; ///< where each unit of it stands in the run
};

void addUnit(plainText& plain, char16_t unit, qsizetype at)
{
    plain.text += QChar(unit);
    plain.units.push_back(static_cast<std::uint32_t>(at));
}

// White space of all kinds is drawn as blanks, and no character ends a paragraph by itself.
char16_t asDrawn(char16_t unit)
{
    bool const endsParagraph = unit == kParagraphEnd || unit == 0x0085 || (unit >= 0x1C && unit <= 0x1F);
    return guiIsBlank(unit) || endsParagraph ? u' ' : unit;
}

plainText plainOf(QStringView run)
{
    plainText plain;
    guiTextScanner scanner(run);
    while (scanner.next()) {
        if (scanner.isCode()) {
            if (guiReadTextCode(scanner.part()) == guiTextCode::kLineBreak)
                addUnit(plain, kParagraphEnd, scanner.start());
            continue;
        }
        qsizetype at = scanner.start();
        for (QChar unit : scanner.part())
            addUnit(plain, asDrawn(unit.unicode()), at++);
    }
    return plain;
}

UBiDiLevel startLevel(guiDirection direction)
{
    switch (direction) {
    case guiDirection::kLeftToRight:
        return 0;
    case guiDirection::kRightToLeft:
        return 1;
    default:
        return UBIDI_DEFAULT_LTR;
    }
}

bidiOwner resolve(plainText const& plain, guiDirection direction)
{
    bidiOwner bidi(ubidi_open());
    if (!bidi)
        throw velaError(ENOMEM);
    UErrorCode status = U_ZERO_ERROR;
    ubidi_setPara(bidi.get(), reinterpret_cast<UChar const*>(plain.text.utf16()),
                  static_cast<std::int32_t>(plain.text.size()), startLevel(direction), nullptr, &status);
    if (U_FAILURE(status))
        throw velaError(ENOMEM);
    return bidi;
}

/// Whether the paragraph of each unit is written from the right.
std::vector<bool> paragraphsOf(UBiDi* bidi, qsizetype length)
{
    std::vector<bool> turned(static_cast<std::size_t>(length));
    for (std::int32_t i = 0; i < ubidi_countParagraphs(bidi); ++i) {
        std::int32_t start = 0;
        std::int32_t limit = 0;
        UBiDiLevel level = 0;
        UErrorCode status = U_ZERO_ERROR;
        ubidi_getParagraphByIndex(bidi, i, &start, &limit, &level, &status);
        if (U_SUCCESS(status) && level % 2 != 0)
            std::fill(turned.begin() + start, turned.begin() + limit, true);
    }
    return turned;
}

} // namespace

namespace {

/// Turns around each sequence of parts of this level or a higher one.
void reverseFrom(unsigned level, std::span<std::uint8_t const> levels, std::vector<std::uint32_t>& order)
{
    auto const isLower = [level](std::uint8_t each) { return each < level; };
    for (auto start = levels.begin(); start != levels.end();) {
        start = std::find_if_not(start, levels.end(), isLower);
        auto const end = std::find_if(start, levels.end(), isLower);
        std::reverse(order.begin() + (start - levels.begin()), order.begin() + (end - levels.begin()));
        start = end;
    }
}

} // namespace

bool guiMayTurn(QStringView text) { return std::any_of(text.begin(), text.end(), mayTurn); }

std::vector<guiTextLevel> guiLevelsOf(QStringView run, guiDirection direction)
{
    if (direction != guiDirection::kRightToLeft && !guiMayTurn(run))
        return {};
    plainText const plain = plainOf(run);
    if (plain.text.isEmpty())
        return {};
    bidiOwner const bidi = resolve(plain, direction);
    UErrorCode status = U_ZERO_ERROR;
    UBiDiLevel const* const found = ubidi_getLevels(bidi.get(), &status);
    if (U_FAILURE(status))
        throw velaError(ENOMEM);
    std::vector<bool> const turned = paragraphsOf(bidi.get(), plain.text.size());
    std::vector<guiTextLevel> levels(static_cast<std::size_t>(run.size()));
    for (std::size_t i = 0; i < plain.units.size(); ++i)
        levels[plain.units[i]] = guiTextLevel(found[i], turned[i]);
    return levels;
}

void guiOrderByLevels(std::span<std::uint8_t const> levels, std::vector<std::uint32_t>& order)
{
    order.resize(levels.size());
    std::iota(order.begin(), order.end(), 0u);
    unsigned highest = 0;
    unsigned lowestOdd = 0xFF;
    for (unsigned level : levels) {
        highest = std::max(highest, level);
        if (level % 2 != 0)
            lowestOdd = std::min(lowestOdd, level);
    }
    for (unsigned level = highest; level >= lowestOdd; --level)
        reverseFrom(level, levels, order);
}
