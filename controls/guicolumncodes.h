// controls/guicolumncodes.h: the texts of several columns in one string: the first column's, then "|N|" and the text of
// column N, and so on. Such a string can not say a text that holds a "|" in front of a digit itself; texts that were
// set in a list that stands may hold anything, so those are kept beside the codes.
#pragma once

#include "foundation/vela-string.h"

#include <algorithm>
#include <vector>

/// Columns beyond this are left out: a page's list has a handful.
inline constexpr int kColumnLimit = 1000;

/// One segment of column codes: the text from unit `begin` to `end`, for a column from 1.
struct guiColumnCode
{
    int column; ///< 0 for a text in front of all numbers, as for the number 0
    unsigned begin;
    unsigned end;
};

/// The segment that begins at unit `at`, which is the start or the end of another segment.
guiColumnCode guiReadColumnCode(sstring const& codes, unsigned at);

/// Whether codes can not say the text, since it would be read as several segments.
bool guiContainsColumnCode(sstring const& text);

/// "|N|" and the text.
sstring guiColumnCodeOf(int column, sstring const& text);

/// Texts that stand for themselves, among the codes.
struct guiUncodedTexts
{
    struct columnText
    {
        int column;
        sstring text;
    };
    std::vector<columnText> texts;
    unsigned at = 0; ///< they come behind this many units of the codes

    void clear() { *this = {}; }
    void add(int column, sstring const& text) { texts.push_back({column, text}); }
};

/// Calls `visit(column, text, isPlain)` for each text in the order in which they were set, columns counted from 1. What
/// no list has a column for is left out.
template <typename Visit>
void guiForEachColumn(sstring const& codes, guiUncodedTexts const& plain, Visit visit)
{
    auto next = plain.texts.begin();
    auto visitPlain = [&] {
        for (; next != plain.texts.end(); ++next)
            visit(next->column, next->text, true);
    };
    for (unsigned at = 0; at < codes.getLength();) {
        if (at >= plain.at)
            visitPlain();
        guiColumnCode const part = guiReadColumnCode(codes, at);
        int const column = part.begin == at ? 1 : part.column;
        at = part.end;
        if (column >= 1 && column <= kColumnLimit)
            visit(column, codes.subString(part.begin, part.end - part.begin), false);
    }
    visitPlain();
}
