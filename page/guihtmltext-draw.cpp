// page/guihtmltext-draw.cpp: one routine measures text, paints it and records its links, so that the three agree.
#include "page/guihtmltext.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guifontepoch.h"
#include "page/guihtmlsize.h"
#include "page/guihtmltext-lines.h"
#include "page/guihtmltext-measure.h"
#include "page/guihtmltext-piece.h"
#include "page/guilayoutcounters.h"
#include "page/guionpaper.h"
#include "page/guisavedpainter.h"
#include "page/guitextmarks.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <cassert>
#include <limits>

namespace {

constexpr int kSmallestHeight = 8;

int marginOf(textParams const& params) { return guiZoomedLength(kTextMargin, params.scale.length); }

/// One call of drawText().
struct drawing
{
    QPainter* painter = nullptr;
    guiRect box; ///< the text's own, without the margins
    QStringView text;
    textParams const& params;
    guiTextRun const& run;
    guiHtmlText::mx_t* cache = nullptr;
    bool records = false;                  ///< whether links are recorded in the cache's hotspots
    guiTextMarker const* marker = nullptr; ///< knows what stands out; null: nothing
    int clipTop = std::numeric_limits<int>::min();
    int clipBottom = std::numeric_limits<int>::max();
};

bool isShown(drawing const& job, int top, int height)
{
    return job.painter && top < job.clipBottom && top + height > job.clipTop;
}

guiColor inkOf(drawing const& job, guiTextChunk const& chunk)
{
    textParams const& params = job.params;
    guiInks const plain{params.textColor, params.linkColor, params.activeLinkColor};
    guiInks const& inks = chunk.marked ? params.onMark : plain;
    bool const isLink = chunk.link != guiTextChunk::kNoLink && !chunk.isLabel;
    if (isLink && job.cache && chunk.link == job.cache->hoveredLink && !guiOnPaper::isActive())
        return inks.activeLink;
    switch (chunk.ink) {
    case guiTextInk::kLink:
        return inks.link;
    case guiTextInk::kExplicit:
        return chunk.color;
    default:
        return inks.text;
    }
}

void paintPiece(drawing const& job, guiTextPiece const& piece, int left, int baseline)
{
    guiTextChunk const& chunk = job.run.chunks()[piece.chunk];
    guiColor const ink = inkOf(job, chunk);
    job.painter->setPen(QColor(ink.red, ink.green, ink.blue));
    guiDrawPiece(*job.painter, chunk, piece, QPointF(left, baseline), job.text);
}

void paintMark(drawing const& job, guiTextPiece const& piece, QRect const& place)
{
    static constexpr QRgb kMarkingPen = qRgb(255, 241, 118);
    if (job.run.chunks()[piece.chunk].marked)
        job.painter->fillRect(place, QColor(kMarkingPen));
}

/// Through the middle of small letters.
void paintStrikeIn(drawing const& job, guiTextChunk const& chunk, QRect const& place, int baseline, QColor const& ink)
{
    int const above = std::max((place.height() - chunk.font->descent()) / 3, 1);
    job.painter->fillRect(place.left(), baseline - above, place.width(), 1, ink);
}

void paintStrike(drawing const& job, guiTextPiece const& piece, QRect const& place, int baseline)
{
    guiTextChunk const& chunk = job.run.chunks()[piece.chunk];
    guiColor const ink = inkOf(job, chunk);
    if (chunk.strike)
        paintStrikeIn(job, chunk, place, baseline, QColor(ink.red, ink.green, ink.blue));
}

/// The piece once more where it stands out, in other colours and cut off at the characters' edges.
void paintMarked(drawing const& job, guiTextPiece const& piece, QRect const& place, int baseline)
{
    if (!job.marker)
        return;
    guiTextChunk const& chunk = job.run.chunks()[piece.chunk];
    QStringView const text = job.text.mid(piece.start, piece.length);
    for (guiTextMark const& mark : job.marker->between(piece.start, piece.start + piece.length)) {
        QRegion const area = guiAreaOfMark(mark, piece, chunk, text, place);
        guiSavedPainter const saved(*job.painter);
        job.painter->setClipRegion(area, Qt::IntersectClip);
        job.painter->fillRect(place, mark.ground);
        job.painter->setPen(mark.ink);
        guiDrawPiece(*job.painter, chunk, piece, QPointF(place.left(), baseline), job.text);
        if (chunk.strike)
            paintStrikeIn(job, chunk, place, baseline, mark.ink);
    }
}

int alignedOffset(drawing const& job, int lineWidth)
{
    std::int64_t const spare = std::int64_t{job.box.width} - lineWidth;
    if (job.params.align == kAlignLeft)
        return 0;
    return guiClampPixels(job.params.align == kAlignCenter ? spare / 2 : spare);
}

void useLine(drawing const& job, guiLineBreaker const& line, int top)
{
    assert(!job.records || job.cache);
    int const left = job.box.left + alignedOffset(job, line.width());
    bool const isPainted = isShown(job, top, line.height());
    if (!isPainted && !job.records)
        return;
    for (guiTextPiece const& piece : line.pieces()) {
        if (isPainted) {
            int const baseline = top + line.height() - line.descent();
            QRect const place(left + piece.left, top, piece.width, line.height());
            paintMark(job, piece, place);
            paintPiece(job, piece, place.left(), baseline);
            paintStrike(job, piece, place, baseline);
            paintMarked(job, piece, place, baseline);
        }
        unsigned const link = job.run.chunks()[piece.chunk].link;
        if (job.records && link != guiTextChunk::kNoLink) {
            assert(job.text.mid(link).startsWith(QStringView(u"[[a")) || job.run.chunks()[piece.chunk].isLabel);
            job.cache->hotspots.push_back({left + piece.left, piece.width, top, line.height(), link});
        }
    }
}

guiTextMeasures::extent layOut(drawing const& job)
{
    guiLineBreaker line(job.run, job.text, job.box.width);
    std::int64_t height = 0;
    int longest = 0;
    while (line.next()) {
        useLine(job, line, guiClampPixels(job.box.top + height));
        height += line.height();
        longest = std::max(longest, line.width());
    }
    return {guiClampPixels(std::int64_t{longest} + 2 * marginOf(job.params)),
            std::max(guiClampPixels(height), kSmallestHeight)};
}

void clipToPainter(drawing& job)
{
    if (!job.painter->hasClipping())
        return;
    QRectF const clip = job.painter->clipBoundingRect();
    job.clipTop = static_cast<int>(std::clamp(clip.top(), -1e9, 1e9)) - 1;
    job.clipBottom = static_cast<int>(std::clamp(clip.bottom(), -1e9, 1e9)) + 1;
}

int paint(drawing& job, int* widthOut)
{
    clipToPainter(job);
    guiTextMeasures::extent const size = layOut(job);
    if (widthOut)
        *widthOut = size.width;
    return size.height;
}

int measureWidth(drawing const& job, int* widthOut)
{
    guiTextMeasures* measures = job.cache ? &job.cache->measures : nullptr;
    std::optional<guiTextMeasures::extent> size;
    bool const isUnbroken = job.box.width == std::numeric_limits<int>::max() - 2 * marginOf(job.params);
    if (measures && isUnbroken)
        size = measures->preferred();
    if (!size) {
        size = layOut(job);
        if (measures && isUnbroken)
            measures->rememberPreferred(*size);
    }
    *widthOut = size->width;
    return size->height;
}

int measureHeight(drawing& job)
{
    guiTextMeasures* measures = job.cache ? &job.cache->measures : nullptr;
    if (!measures)
        return layOut(job).height;
    int const nodeWidth = job.box.width + 2 * marginOf(job.params);
    job.records = job.run.hasLinks() && measures->hotspotWidth != nodeWidth;
    std::optional<int> height = measures->heightFor(job.box.width);
    if (height && !job.records)
        return *height;
    ++guiLayoutCounters::heightsComputed;
    job.cache->hotspots.clear();
    bool const isNew = !height;
    height = layOut(job).height;
    if (isNew)
        measures->rememberHeight(job.box.width, *height);
    measures->hotspotWidth = nodeWidth;
    return *height;
}

int measure(drawing& job, int* widthOut)
{
    if (job.painter)
        return paint(job, widthOut);
    return widthOut ? measureWidth(job, widthOut) : measureHeight(job);
}

/// Hotspots that were recorded for another text or font are no longer valid.
void dropOldHotspots(guiHtmlText::mx_t& cache)
{
    if (cache.measures.hotspotWidth == guiTextMeasures::kNoWidth)
        cache.hotspots.clear();
}

/// A text without visible characters has a fixed height and no width.
int drawNothing(int* widthOut, guiHtmlText::mx_t* cache, bool isHeight)
{
    if (widthOut)
        *widthOut = 0;
    if (cache && isHeight)
        cache->hotspots.clear();
    return kSmallestHeight;
}

bool showsNothing(QStringView text) { return text.isEmpty() || (text.size() == 1 && text.front() == u' '); }

/// The text's own box, without the margins.
guiRect innerBox(guiRect const& box, textParams const& params)
{
    int const margin = marginOf(params);
    return {box.left + margin, box.width - 2 * margin, box.top, box.height};
}

} // namespace

int guiHtmlText::drawText(QPainter* painter, guiRect* box, sstring const& text, textParams const* params, int* widthOut,
                          mx_t* cache)
{
    assertOnGuiThread();
    assert(box && params);
    QStringView const view = sstoview(text);
    if (showsNothing(view))
        return drawNothing(widthOut, cache, !painter && !widthOut);
    guiTextFont& font = guiTextFonts::of(params->font);
    if (!cache) {
        guiTextRun const run(view, font, params->points, false, params->scale, params->direction);
        drawing job{painter, innerBox(*box, *params), view, *params, run, nullptr, false};
        return measure(job, widthOut);
    }
    cache->measures.fontEpoch = 0;
    cache->text.setMeasured(false); // `text` may differ from the node's own
    guiTextRun const& run = cache->measures.run(view, false, font, params->points, params->scale, params->direction);
    dropOldHotspots(*cache);
    drawing job{painter, innerBox(*box, *params), view, *params, run, cache, false};
    return measure(job, widthOut);
}

/// drawText() of the node's own text, whose changes are noticed without comparing it.
int guiHtmlText::layOut(QPainter* painter, guiRect const& box, int* widthOut, guiTextMarker const* marker)
{
    assertOnGuiThread();
    QStringView const view = mx.text.view();
    if (showsNothing(view))
        return drawNothing(widthOut, &mx, !painter && !widthOut);
    textParams const params = ownParams(painter != nullptr);
    guiTextRun const& run = ownRun(params);
    drawing job{painter, innerBox(box, params), view, params, run, &mx, false};
    job.marker = marker;
    return measure(job, widthOut);
}

/// The words of the node's own text.
guiTextRun const& guiHtmlText::ownRun(textParams const& params)
{
    guiTextFont& font = guiTextFonts::of(params.font);
    guiTextRun const& run =
        mx.measures.run(mx.text.view(), mx.text.isMeasured(), font, params.points, params.scale, params.direction);
    dropOldHotspots(mx);
    mx.text.setMeasured();
    mx.measures.fontEpoch = guiLayoutRun::fontsAreChecked() ? guiFontEpoch::number() : 0;
    return run;
}

bool guiHtmlText::forEachLine(guiLineVisitor const& visit)
{
    assertOnGuiThread();
    QStringView const view = mx.text.view();
    if (showsNothing(view))
        return false;
    textParams const params = ownParams(false);
    guiTextRun const& run = ownRun(params);
    int const border = guiClampPixels(m.border);
    drawing const job{nullptr, innerBox({border, m.rect.width - 2 * border, border, 0}, params), view, params, run, &mx,
                      false};
    guiLineBreaker line(run, view, job.box.width);
    for (std::int64_t top = job.box.top; line.next(); top += line.height()) {
        int const left = job.box.left + alignedOffset(job, line.width());
        if (visit(line, run, QRect(left, guiClampPixels(top), line.width(), line.height())))
            return true;
    }
    return false;
}

int fitTextInBox(QString const& text, QFontMetrics const& metrics, int width)
{
    int fits = static_cast<int>(text.size());
    if (metrics.horizontalAdvance(text) <= width)
        return fits;
    int tooMany = fits;
    fits = 0;
    while (tooMany - fits > 1) {
        int const middle = fits + (tooMany - fits) / 2;
        (metrics.horizontalAdvance(text, middle) <= width ? fits : tooMany) = middle;
    }
    return fits;
}
