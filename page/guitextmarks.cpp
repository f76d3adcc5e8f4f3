// page/guitextmarks.cpp: see guitextmarks.h.
#include "page/guitextmarks.h"

#include "foundation/vela-threadrole.h"
#include "page/guihtmltext-piece.h"
#include "page/guihtmltext.h"
#include "page/guipageroot.h"
#include "page/guipagetext.h"

#include <algorithm>
#include <cmath>

namespace {

unsigned theMarkings TARN_GUARDED_BY(velaGuiRole) = 0;

} // namespace

void guiMarking::set(bool on)
{
    assertOnGuiThread();
    if (on == m_on)
        return;
    m_on = on;
    theMarkings += on ? 1u : -1u;
}

unsigned guiMarking::count()
{
    assertOnGuiThread();
    return theMarkings;
}

guiTextMarks guiTextMarksOf(guiHtmlText& run)
{
    guiPageRoot* root = guiMarking::count() != 0 ? run.getBaseHtml() : nullptr;
    guiPageText* text = root ? root->pageText() : nullptr;
    return text ? text->marksOf(run) : guiTextMarks();
}

guiTextMarks guiMarksBetween(guiTextMarks const& marks, unsigned from, unsigned to)
{
    guiTextMarks inside;
    for (guiTextMark mark : marks) {
        mark.from = std::max(mark.from, from);
        mark.to = std::min(mark.to, to);
        if (mark.from < mark.to)
            inside.push_back(mark);
    }
    return inside;
}

QRegion guiAreaOfMark(guiTextMark const& mark, guiTextPiece const& piece, guiTextChunk const& chunk, QStringView text,
                      QRect const& place)
{
    if (mark.from <= piece.start && mark.to >= piece.start + piece.length)
        return place;
    QRegion area;
    guiPieceRuler const ruler(chunk, text, piece.width);
    qsizetype const from = std::max(mark.from, piece.start) - piece.start;
    for (auto const& [left, right] : ruler.spansOf(from, mark.to - piece.start)) {
        int const start = place.left() + static_cast<int>(std::lround(left));
        int const end = place.left() + static_cast<int>(std::lround(right));
        area += QRect(start, place.top(), end - start, place.height());
    }
    return area;
}
