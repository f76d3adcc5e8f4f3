// page/guihtmltext-breaks.cpp: see guihtmltext-breaks.h.
#include "page/guihtmltext-breaks.h"

#include "foundation/vela-threadrole.h"

#include <QTextBoundaryFinder>

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

constexpr char16_t kFirstThai = 0x0E00; // below, all scripts are written with blanks

bool mayBreakBesideUnit(QChar unit) { return unit.unicode() == kSoftHyphen || unit.unicode() >= kFirstThai; }

int breakingOf(UChar32 character) { return u_getIntPropertyValue(character, UCHAR_LINE_BREAK); }

/// Whether words end only where a dictionary says so.
bool isOfDictionary(UChar32 character) { return breakingOf(character) == U_LB_COMPLEX_CONTEXT; }

/// Hangul is written with blanks, between which its words hold together.
bool isHangul(UChar32 character) { return u_getIntPropertyValue(character, UCHAR_SCRIPT) == USCRIPT_HANGUL; }

/// Wide ones: ideographs, kana, their punctuation, pictures.
bool isWide(UChar32 character)
{
    if (isHangul(character))
        return false;
    int const width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

/// Whether the breaks beside the character are like those at blanks. Hyphens, dashes and quotation marks are not among
/// them: in text with blanks lines end at these.
bool mayBreakBeside(UChar32 character)
{
    constexpr UChar32 kFirstDash = 0x2010;
    constexpr UChar32 kLastPunctuation = 0x205E;
    if (character < kFirstThai || (character >= kFirstDash && character <= kLastPunctuation)) // most of most texts
        return character == kSoftHyphen;
    switch (breakingOf(character)) {
    case U_LB_COMPLEX_CONTEXT:
    case U_LB_IDEOGRAPHIC:
    case U_LB_CONDITIONAL_JAPANESE_STARTER:
    case U_LB_E_BASE:
    case U_LB_E_MODIFIER:
    case U_LB_ZWSPACE:
        return true;
    case U_LB_BREAK_AFTER:
        return u_isUWhiteSpace(character) || u_getIntPropertyValue(character, UCHAR_SCRIPT) != USCRIPT_COMMON;
    default:
        return isWide(character);
    }
}

template <typename Test>
bool hasCharacter(QStringView text, Test const& test)
{
    for (qsizetype at = 0; at < text.size();) {
        UChar32 character = 0;
        U16_NEXT(text.utf16(), at, text.size(), character);
        if (test(character))
            return true;
    }
    return false;
}

UChar32 characterBefore(QStringView text, qsizetype at)
{
    UChar32 character = 0;
    U16_PREV(text.utf16(), 0, at, character);
    return character;
}

UChar32 characterAt(QStringView text, qsizetype at)
{
    UChar32 character = 0;
    U16_GET(text.utf16(), 0, at, text.size(), character);
    return character;
}

/// Whether a break at the place is like one at a blank.
bool isLikeBlank(QStringView word, qsizetype at)
{
    return mayBreakBeside(characterBefore(word, at)) || mayBreakBeside(characterAt(word, at));
}

/// The rules of lines for scripts that need a dictionary, which the toolkit has not; null when it can not be made.
/// Opened once, since that takes milliseconds.
UBreakIterator* dictionaryRules() TARN_ON(velaGuiRole)
{
    static UBreakIterator* const rules = [] {
        UErrorCode status = U_ZERO_ERROR;
        UBreakIterator* made = ubrk_open(UBRK_LINE, "", nullptr, 0, &status);
        return U_SUCCESS(status) ? made : nullptr;
    }();
    return rules;
}

std::vector<qsizetype> placesByDictionary(QStringView word)
{
    assertOnGuiThread();
    std::vector<qsizetype> places;
    UBreakIterator* const rules = dictionaryRules();
    UErrorCode status = U_ZERO_ERROR;
    if (!rules || word.size() > std::numeric_limits<std::int32_t>::max())
        return places;
    ubrk_setText(rules, reinterpret_cast<UChar const*>(word.utf16()), static_cast<std::int32_t>(word.size()), &status);
    if (U_FAILURE(status))
        return places;
    for (std::int32_t at = ubrk_next(rules); at != UBRK_DONE && at < word.size(); at = ubrk_next(rules))
        places.push_back(at);
    return places;
}

std::vector<qsizetype> placesByToolkit(QStringView word)
{
    std::vector<qsizetype> places;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, word.data(), word.size());
    for (qsizetype at = finder.toNextBoundary(); at > 0 && at < word.size(); at = finder.toNextBoundary())
        places.push_back(at);
    return places;
}

} // namespace

// Four units at a time as long as they are ASCII.
bool guiHasPlainLettersOnly(QStringView text)
{
    constexpr char16_t kFirstOther = 0x590; // behind Latin, Greek, Cyrillic and Armenian
    constexpr std::uint64_t kNoAscii = 0xFF80FF80FF80FF80;
    auto const isOther = [](char16_t unit) { return unit >= kFirstOther || unit == kSoftHyphen; };
    char16_t const* const units = text.utf16();
    qsizetype at = 0;
    for (; at + 4 <= text.size(); at += 4) {
        std::uint64_t four = 0;
        std::memcpy(&four, units + at, sizeof four);
        if ((four & kNoAscii) != 0 && std::any_of(units + at, units + at + 4, isOther))
            return false;
    }
    return std::none_of(units + at, units + text.size(), isOther);
}

bool guiHasInnerBreaks(QStringView text)
{
    return std::any_of(text.begin(), text.end(), mayBreakBesideUnit) && hasCharacter(text, mayBreakBeside);
}

std::vector<qsizetype> guiInnerBreaks(QStringView word)
{
    std::vector<qsizetype> places =
        hasCharacter(word, isOfDictionary) ? placesByDictionary(word) : placesByToolkit(word);
    std::erase_if(places, [word](qsizetype at) { return !isLikeBlank(word, at); });
    return places;
}

namespace {

/// Behind the last fixed blank up to `end` with something but blanks before it; 0 for none.
qsizetype lastFixedBlank(QStringView word, qsizetype end)
{
    constexpr QChar kFixedBlank(char16_t{0xA0});
    QStringView const before = word.left(end);
    qsizetype const place = before.lastIndexOf(kFixedBlank) + 1;
    auto const isInk = [kFixedBlank](QChar unit) { return unit != kFixedBlank; };
    return std::any_of(before.begin(), before.begin() + place, isInk) ? place : 0;
}

} // namespace

qsizetype guiLastDivision(QStringView word, qsizetype end)
{
    if (qsizetype const blank = lastFixedBlank(word, end); blank > 0)
        return blank;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, word.data(), word.size());
    finder.setPosition(end);
    qsizetype place = finder.isAtBoundary() ? end : finder.toPreviousBoundary();
    auto const isBetweenSyllables = [word](qsizetype at) {
        bool const isBeside = isHangul(characterBefore(word, at)) || isHangul(characterAt(word, at));
        return isBeside && !isLikeBlank(word, at);
    };
    while (place > 0 && place < word.size() && isBetweenSyllables(place))
        place = finder.toPreviousBoundary();
    return std::max<qsizetype>(place, 0);
}
