// controls/guicolumncodes.h: the texts of several columns in one string: the first column's, then "|N|" and the text of
// column N, and so on. Such codes cannot express a text that itself holds a "|" in front of a digit. Script may set any
// text while a list is shown, so texts of that kind are kept beside the codes.
#pragma once

#include "foundation/vela-string.h"

#include <algorithm>
#include <cassert>
#include <vector>

/// Texts for columns beyond this one are ignored: a page's list has a handful.
inline constexpr int kColumnLimit = 1000;

/// One segment of column codes: its text are the units from `begin` to `end`.
struct guiColumnCode
{
    int column; ///< counted from 1; 0 for a text in front of all numbers, as for the number 0
    unsigned begin;
    unsigned end;
};

/// The segment that begins at unit `at`: the start of the codes or the end of another segment.
guiColumnCode guiReadColumnCode(sstring const& codes, unsigned at);

/// Whether codes cannot express the text, because it would be read as several segments.
bool guiContainsColumnCode(sstring const& text);

/// Appends "|N|" and the text, which is one that codes can express. A number that the codes leave open at their end
/// ("x|2") ends there.
void guiAddColumnText(sstring& codes, int column, sstring const& text);

/// Pixels that a segment "WIDTH=70" in the codes of columns sets, -1 for one that is a heading.
int guiColumnWidthOf(sstring const& segment);
void guiAddColumnWidth(sstring& codes, int column, int width);
/// The width that the codes set for a column, -1 for none.
int guiColumnWidthIn(sstring const& codes, int column);

/// Texts that stand beside the codes and are taken literally.
struct guiUncodedTexts
{
    struct columnText
    {
        int column;
        sstring text;
    };
    std::vector<columnText> texts;
    unsigned at = 0; ///< they were set when the codes had this many units

    void clear() { *this = {}; }
    void add(int column, sstring const& text) { texts.push_back({column, text}); }
};

/// Sets the text of a column, literally: in the codes, or beside them if it is one that they `cannotExpress`.
void guiSetColumnText(sstring& codes, guiUncodedTexts& uncoded, int column, sstring const& text, bool cannotExpress);

/// Calls `visit(column, text, isUncoded)` for each text in the order in which they were set, columns counted from 1.
/// Columns that no list has are left out.
template <typename Visit>
void guiForEachColumn(sstring const& codes, guiUncodedTexts const& uncoded, Visit visit)
{
    assert(uncoded.at <= codes.getLength());
    auto next = uncoded.texts.begin();
    auto visitUncoded = [&] {
        for (; next != uncoded.texts.end(); ++next)
            visit(next->column, next->text, true);
    };
    for (unsigned at = 0; at < codes.getLength();) {
        if (at >= uncoded.at)
            visitUncoded();
        guiColumnCode const part = guiReadColumnCode(codes, at);
        assert(part.end > at); // or this would never end
        int const column = part.begin == at ? 1 : part.column;
        at = part.end;
        if (column >= 1 && column <= kColumnLimit)
            visit(column, codes.subString(part.begin, part.end - part.begin), false);
    }
    visitUncoded();
}
