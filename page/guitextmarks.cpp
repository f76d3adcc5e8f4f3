// page/guitextmarks.cpp: see guitextmarks.h.
#include "page/guitextmarks.h"

#include "foundation/vela-threadrole.h"
#include "page/guihtmltext-piece.h"
#include "page/guihtmltext.h"
#include "page/guionpaper.h"
#include "page/guipageroot.h"
#include "page/guipagetext.h"

#include <algorithm>
#include <cassert>
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

guiTextMarker::guiTextMarker(guiHtmlText& run) : m_run(run)
{
    bool const areMarks = guiMarking::count() != 0 && !guiOnPaper::isActive();
    guiPageRoot* root = areMarks ? run.getBaseHtml() : nullptr;
    m_text = root ? root->pageText() : nullptr;
}

guiTextMarks guiTextMarker::between(unsigned from, unsigned to) const
{
    assert(m_text);
    guiTextMarks marks;
    m_text->search.addMarks(m_run, from, to, marks);
    m_text->selection.addMarks(m_run, from, to, marks);
    return marks;
}

QRegion guiAreaOfMark(guiTextMark const& mark, guiTextPiece const& piece, guiTextChunk const& chunk, QStringView text,
                      QRect const& place)
{
    if (mark.from <= std::uint32_t{piece.start} && mark.to >= piece.end())
        return place;
    QRegion area;
    guiPieceRuler const ruler(chunk, piece, text);
    qsizetype const from = std::max(mark.from, piece.start) - piece.start;
    for (auto const& [left, right] : ruler.spansOf(from, mark.to - piece.start)) {
        int const start = place.left() + static_cast<int>(std::lround(left));
        int const end = place.left() + static_cast<int>(std::lround(right));
        area += QRect(start, place.top(), end - start, place.height());
    }
    return area;
}
