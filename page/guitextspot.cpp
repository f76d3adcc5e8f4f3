// page/guitextspot.cpp: see guitextspot.h.
#include "page/guitextspot.h"

#include "foundation/vela-threadrole.h"
#include "page/guichildspan.h"
#include "page/guihtmltext-lines.h"
#include "page/guihtmltext-piece.h"
#include "page/guihtmltext.h"
#include "page/guitextflow.h"
#include "page/guivisibletext.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>
#include <vector>

namespace {

// ---- Inside one run ----

QStringView textOf(guiHtmlText& run, guiTextPiece const& piece)
{
    return run.editText().view().mid(piece.start, piece.length);
}

guiPieceRuler rulerOf(guiHtmlText& run, guiTextRun const& words, guiTextPiece const& piece)
{
    return {words.chunks()[piece.chunk], piece, textOf(run, piece)};
}

/// The unit of the line at `x` pixels from its left end.
unsigned unitAt(guiHtmlText& run, guiTextRun const& words, guiLineBreaker const& line, int x)
{
    std::vector<guiTextPiece> const& pieces = line.pieces();
    guiTextPiece const* nearest = &pieces.front();
    for (guiTextPiece const& piece : pieces)
        if (piece.left <= x)
            nearest = &piece;
    return nearest->start + static_cast<unsigned>(rulerOf(run, words, *nearest).toUnit(x - nearest->left));
}

/// `at` is relative to the run.
guiTextSpot spotIn(guiHtmlText& run, QPoint at)
{
    if (at.y() < 0)
        return guiStartOf(&run);
    guiTextSpot spot = guiEndOf(&run);
    run.forEachLine([&](guiLineBreaker const& line, guiTextRun const& words, QRect const& place) {
        if (at.y() > place.bottom() || line.pieces().empty())
            return false;
        spot.unit = unitAt(run, words, line, at.x() - place.left());
        return true;
    });
    return spot;
}

/// The first piece in the order of the text that ends at or behind the unit; null when the line ends before it.
guiTextPiece const* pieceAt(guiLineBreaker const& line, unsigned unit)
{
    guiTextPiece const* found = nullptr;
    for (guiTextPiece const& piece : line.pieces())
        if (unit <= piece.end() && (!found || piece.start < found->start))
            found = &piece;
    return found;
}

bool isOn(guiLineBreaker const& line, unsigned unit) { return !line.pieces().empty() && unit <= line.to(); }

// ---- Among the runs ----

struct candidate
{
    guiHtml* node;
    int beside; // pixels from the point to the node
    int above;
};

int outside(int at, int from, int to)
{
    if (at < from)
        return from - at;
    return at >= to ? at - to + 1 : 0;
}

guiTextSpot nearestIn(guiHtml* node, QPoint at);

guiTextSpot spotOf(guiHtml* child, QPoint at)
{
    guiRect const& place = child->m.rect;
    QPoint const inside(at.x() - place.left, at.y() - place.top);
    if (child->getType() == guiHtml::kTypeText)
        return spotIn(*static_cast<guiHtmlText*>(child), inside);
    return nearestIn(child, inside);
}

/// The children whose distance above or below the point is more than `from` and no more than `to` pixels, the nearest
/// first.
std::vector<candidate> childrenBetween(guiHtml* node, QPoint at, int from, int to)
{
    guiRect area = guiWholePlane();
    if (to < area.height / 2) {
        area.top = at.y() - to;
        area.height = 2 * to + 1;
    }
    std::vector<candidate> found;
    guiChildSpan span(node, area);
    while (guiHtml* child = span.next()) {
        guiRect const& rect = child->m.rect;
        int const above = outside(at.y(), rect.top, rect.bottom());
        if (above > from && above <= to)
            found.push_back({child, outside(at.x(), rect.left, rect.right()), above});
    }
    std::stable_sort(found.begin(), found.end(), [](candidate const& a, candidate const& b) {
        return std::pair(a.above, a.beside) < std::pair(b.above, b.beside);
    });
    return found;
}

/// `at` is relative to the node. Each child is looked at once, and of a long list only those around the point.
guiTextSpot nearestIn(guiHtml* node, QPoint at)
{
    constexpr int kFar = 1 << 29;
    if (!guiMaySelectIn(node))
        return {};
    guiHtml::scroll_t const& scroll = node->getScroll();
    QPoint const inside = at + QPoint(static_cast<int>(scroll.posX), static_cast<int>(scroll.posY));
    int from = -1;
    for (int to : {0, 32, 512, kFar}) {
        for (candidate const& each : childrenBetween(node, inside, from, to))
            if (guiTextSpot const spot = spotOf(each.node, inside); spot && guiShowsText(*spot.run))
                return spot;
        from = to;
    }
    return {};
}

} // namespace

guiTextSpot guiTextSpotAt(guiHtml* page, QPoint at)
{
    assertOnGuiThread();
    return nearestIn(page, at - QPoint(page->m.rect.left, page->m.rect.top));
}

guiTextSpot guiStartOf(guiHtmlText* run) { return {run, guiVisibleText(run->editText().view()).toUnit(0)}; }

guiTextSpot guiEndOf(guiHtmlText* run)
{
    guiVisibleText const visible(run->editText().view());
    return {run, visible.toUnit(visible.text().size())};
}

QRect guiCaretOf(guiTextSpot const& spot)
{
    guiRect corner;
    spot.run->getRectInWidget(&corner);
    QRect caret(0, 0, 0, corner.height);
    spot.run->forEachLine([&](guiLineBreaker const& line, guiTextRun const& words, QRect const& place) {
        caret = QRect(place.left() + line.width(), place.top(), 0, place.height());
        guiTextPiece const* const piece = pieceAt(line, spot.unit);
        if (!piece)
            return false;
        unsigned const inside = std::max(spot.unit, piece->start) - piece->start;
        double const x = rulerOf(*spot.run, words, *piece).toX(static_cast<qsizetype>(inside));
        caret.moveLeft(place.left() + piece->left + static_cast<int>(std::lround(x)));
        return true;
    });
    return caret.translated(corner.left, corner.top);
}

guiLineUnits guiLineAround(guiTextSpot const& spot)
{
    guiLineUnits units{spot.unit, spot.unit};
    spot.run->forEachLine([&](guiLineBreaker const& line, guiTextRun const&, QRect const&) {
        if (!line.pieces().empty())
            units = {line.from(), line.to()};
        return isOn(line, spot.unit);
    });
    return units;
}
