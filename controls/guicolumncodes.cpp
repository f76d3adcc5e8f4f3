// controls/guicolumncodes.cpp: see guicolumncodes.h.
#include "controls/guicolumncodes.h"

#include "page/guinumbers.h"

namespace {

constexpr char kWidth[] = "WIDTH=";

bool isDigit(unsigned short unit) { return unit >= '0' && unit <= '9'; }

/// Where the next "|" in front of a digit is, the length when there is none.
unsigned nextCode(sstring const& text, unsigned from)
{
    unsigned short const* units = text.getUnicode(); // ends in a 0, so that the unit behind another may be read
    while (from < text.getLength() && !(units[from] == '|' && isDigit(units[from + 1])))
        ++from;
    return from;
}

/// Whether the codes end with a number without its second bar. A bar behind a number belongs to it, and the next bar in
/// front of a digit begins another: of the numbers at the end, every other one is a text.
bool endsInOpenCode(sstring const& codes)
{
    unsigned short const* units = codes.getUnicode();
    bool isOpen = false;
    for (unsigned end = codes.getLength();;) {
        unsigned begin = end;
        while (begin > 0 && isDigit(units[begin - 1]))
            --begin;
        if (begin == end || begin == 0 || units[begin - 1] != '|')
            return isOpen;
        isOpen = !isOpen;
        end = begin - 1;
    }
}

} // namespace

guiColumnCode guiReadColumnCode(sstring const& codes, unsigned at)
{
    assert(at <= codes.getLength());
    unsigned short const* units = codes.getUnicode();
    guiColumnCode part{0, at, at};
    if (units[at] == '|' && isDigit(units[at + 1])) {
        unsigned end = at + 1;
        while (isDigit(units[end]))
            ++end;
        part.column = guiToNumber(codes.subString(at + 1, end - at - 1));
        part.begin = units[end] == '|' ? end + 1 : end;
    }
    part.end = nextCode(codes, part.begin);
    assert(part.begin <= part.end && part.end <= codes.getLength());
    return part;
}

bool guiContainsColumnCode(sstring const& text) { return nextCode(text, 0) < text.getLength(); }

void guiAddColumnText(sstring& codes, int column, sstring const& text)
{
    assert(column >= 1);
    if (endsInOpenCode(codes))
        codes += "|";
    codes += sformat("|%ld|", long{column}) + text;
}

void guiSetColumnText(sstring& codes, guiUncodedTexts& uncoded, int column, sstring const& text, bool cannotExpress)
{
    std::erase_if(uncoded.texts, [column](auto const& older) { return older.column == column; });
    if (!cannotExpress) {
        guiAddColumnText(codes, column, text);
        return;
    }
    uncoded.add(column, text);
    uncoded.at = codes.getLength();
}

int guiColumnWidthOf(sstring const& segment)
{
    return segment.find(kWidth) == 0 ? guiToPixels(segment.subString(sizeof kWidth - 1)) : -1;
}

void guiAddColumnWidth(sstring& codes, int column, int width)
{
    guiAddColumnText(codes, column, sformat("%s%ld", kWidth, long{width}));
}

int guiColumnWidthIn(sstring const& codes, int column)
{
    int width = -1;
    guiForEachColumn(codes, {}, [&](int each, sstring const& text, bool) {
        if (int const set = each == column ? guiColumnWidthOf(text) : -1; set >= 0)
            width = set;
    });
    return width;
}
