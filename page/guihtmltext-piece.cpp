// page/guihtmltext-piece.cpp: see guihtmltext-piece.h.
#include "page/guihtmltext-piece.h"

#include "page/guihtmltext-breaks.h"
#include "page/guihtmltext-context.h"

#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

/// The text as it is drawn: tabs and line ends are drawn as blanks.
QString drawnText(QStringView text)
{
    bool const isPlain = std::none_of(text.begin(), text.end(), [](QChar c) { return c < u' '; });
    if (isPlain)
        return QString::fromRawData(text.data(), text.size());
    QString copy = text.toString();
    std::replace_if(
        copy.begin(), copy.end(), [](QChar c) { return guiIsBlank(c.unicode()); }, QChar(u' '));
    return copy;
}

// Whether all letters are written from left to right, by scripts whose blanks are the font's own.
bool hasPlainLetters(QString const& text)
{
    constexpr char16_t kFirstOther = 0x530; // behind Latin, Greek and Cyrillic
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < kFirstOther; });
}

bool isDrawnByWords(guiTextChunk const& chunk, QString const& text)
{
    return chunk.font->kernsBlanks() && !chunk.underline && hasPlainLetters(text);
}

/// Gives each word of the text to `use(word, first unit, left end)`.
template <typename Use>
void forEachWord(guiTextFont& font, QString const& text, Use const& use)
{
    double const blank = font.blankAdvance() / 64.0;
    double left = 0;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = text.indexOf(u' ', start);
        if (end < 0)
            end = text.size();
        QStringView const word = QStringView(text).mid(start, end - start);
        if (!word.isEmpty()) {
            use(word, start, left);
            left += font.wordAdvance(word) / 64.0;
        }
        left += blank;
        start = end + 1;
    }
}

} // namespace

namespace {

bool hasLettersFromTheRight(QString const& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar unit) {
        QChar::Direction const direction = unit.direction();
        return direction == QChar::DirR || direction == QChar::DirAL;
    });
}

bool hasLettersFromTheLeft(QString const& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar unit) {
        QChar::Direction const direction = unit.direction();
        return direction == QChar::DirL || direction == QChar::DirEN;
    });
}

double hyphenWidth(guiTextChunk const& chunk) { return chunk.font->wordAdvance(kShownHyphen) / 64.0; }

/// The text with what the toolkit has to know to write it in the piece's direction.
QString directedText(guiTextPiece const& piece, QString const& text)
{
    constexpr char16_t kOverrideToRight = 0x202D;
    constexpr char16_t kOverrideToLeft = 0x202E;
    QString directed = text;
    if (piece.isHyphenated)
        directed += kShownHyphen;
    // As inside of an override: standing alone, the letters would be written in the other direction.
    if (piece.isFromTheRight ? hasLettersFromTheLeft(text) : hasLettersFromTheRight(text))
        directed.prepend(QChar(piece.isFromTheRight ? kOverrideToLeft : kOverrideToRight));
    return directed;
}

/// The letter that decides on the font of a piece without letters of its own; empty where there is none.
QStringView letterInForce(guiTextChunk const& chunk, guiTextPiece const& piece, QStringView run)
{
    constexpr qsizetype kBehind = 256;
    qsizetype const start = qsizetype{piece.start} - chunk.start;
    QStringView const text = run.mid(chunk.start, start + qsizetype{piece.length} + kBehind);
    qsizetype const nextCode = text.indexOf(QStringView(u"[["), start);
    QStringView const own = text.left(nextCode < 0 ? text.size() : nextCode);
    return guiLetterInForce(*chunk.font, own, start, start + qsizetype{piece.length});
}

/// Draws text as it looks behind a letter and a blank.
void drawBehind(QStringView letter, bool isFromTheRight, QPainter& painter, QPointF at, QString const& text)
{
    QString const before = letter.toString() + u' ';
    QTextLayout layout(before + text, painter.font());
    QTextOption option;
    option.setTextDirection(isFromTheRight ? Qt::RightToLeft : Qt::LeftToRight);
    layout.setTextOption(option);
    layout.beginLayout();
    layout.createLine().setPosition({0, 0});
    layout.endLayout();
    double left = HUGE_VAL;
    auto const runs = layout.glyphRuns(static_cast<int>(before.size()), static_cast<int>(text.size()));
    for (QGlyphRun const& glyphs : runs)
        for (QPointF const& place : glyphs.positions())
            left = std::min(left, place.x());
    for (QGlyphRun const& glyphs : runs)
        painter.drawGlyphRun(at - QPointF(left, layout.lineAt(0).ascent()), glyphs);
}

} // namespace

// In a font that kerns blanks, a line drawn in one go would not be as wide as its measured words.
void guiDrawPiece(QPainter& painter, guiTextChunk const& chunk, guiTextPiece const& piece, QPointF at, QStringView run)
{
    painter.setFont(chunk.underline ? chunk.font->underlined() : chunk.font->font());
    QString const drawn = drawnText(run.mid(piece.start, piece.length));
    if (piece.isPartOfTurn)
        if (QStringView const letter = letterInForce(chunk, piece, run); !letter.isEmpty())
            return drawBehind(letter, piece.isFromTheRight, painter, at, drawn);
    if (piece.isHyphenated || !isDrawnByWords(chunk, drawn)) {
        painter.setLayoutDirection(piece.isFromTheRight ? Qt::RightToLeft : Qt::LeftToRight);
        painter.drawText(at, directedText(piece, drawn));
        return;
    }
    forEachWord(*chunk.font, drawn, [&](QStringView word, qsizetype, double left) {
        painter.drawText(at + QPointF(left, 0), word.toString());
    });
}

guiPieceRuler::guiPieceRuler(guiTextChunk const& chunk, guiTextPiece const& piece, QStringView text)
    : m_isFromTheRight(piece.isFromTheRight)
{
    QString const drawn = drawnText(text);
    m_characters.reserve(static_cast<std::size_t>(drawn.size()));
    if (isDrawnByWords(chunk, drawn))
        addWords(chunk, drawn);
    else
        addLaidOut(chunk, drawn, 0, 0, piece.width - (piece.isHyphenated ? hyphenWidth(chunk) : 0));
}

void guiPieceRuler::addWords(guiTextChunk const& chunk, QString const& text)
{
    double const blank = chunk.font->blankAdvance() / 64.0;
    qsizetype done = 0;
    double end = 0;
    auto const addBlanks = [&](qsizetype upTo) {
        for (; done < upTo; ++done, end += blank)
            m_characters.push_back({done, done + 1, end, end + blank});
    };
    forEachWord(*chunk.font, text, [&](QStringView word, qsizetype first, double left) {
        addBlanks(first);
        double const width = chunk.font->wordAdvance(word) / 64.0;
        addLaidOut(chunk, word.toString(), first, left, width);
        done = first + word.size();
        end = left + width;
    });
    addBlanks(text.size());
}

namespace {

using span = guiPieceRuler::span;

/// Where reading enters the character and where it leaves it, by the places of its glyphs: at a change of direction the
/// toolkit's own cursor stands at one of two places. `before`: where the character before it ends, for one that is a
/// part of a ligature.
span spanOfGlyphs(QTextLine const& line, qsizetype from, qsizetype to, double before)
{
    double left = HUGE_VAL;
    double right = -HUGE_VAL;
    bool isFromTheRight = false;
    for (QGlyphRun const& run : line.glyphRuns(static_cast<int>(from), static_cast<int>(to - from))) {
        QList<QPointF> const places = run.positions();
        QList<QPointF> const advances = run.rawFont().advancesForGlyphIndexes(run.glyphIndexes());
        isFromTheRight = run.isRightToLeft();
        for (qsizetype i = 0; i < places.size(); ++i) {
            left = std::min(left, places[i].x());
            right = std::max(right, places[i].x() + advances.value(i).x());
        }
    }
    if (left > right)
        return {before, before};
    return isFromTheRight ? span(right, left) : span(left, right);
}

span spanOfCursor(QTextLine const& line, qsizetype from, qsizetype to)
{
    return {line.cursorToX(static_cast<int>(from), QTextLine::Leading),
            line.cursorToX(static_cast<int>(to) - 1, QTextLine::Trailing)};
}

} // namespace

/// The toolkit's own layout may be some part of a pixel wider or narrower than what was measured word by word.
void guiPieceRuler::addLaidOut(guiTextChunk const& chunk, QString const& text, qsizetype first, double left,
                               double width)
{
    QTextLayout layout(text, chunk.font->font());
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(m_isFromTheRight ? Qt::RightToLeft : Qt::LeftToRight);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine const line = layout.createLine();
    layout.endLayout();
    if (!line.isValid())
        return;
    double const scale = line.horizontalAdvance() > 0 ? width / line.horizontalAdvance() : 1;
    bool const turns = hasLettersFromTheRight(text);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    double before = 0;
    for (qsizetype end = finder.toNextBoundary(); end > start; end = finder.toNextBoundary()) {
        span const place = turns ? spanOfGlyphs(line, start, end, before) : spanOfCursor(line, start, end);
        before = place.second;
        m_characters.push_back({first + start, first + end, left + scale * place.first, left + scale * place.second});
        start = end;
    }
}

double guiPieceRuler::toX(qsizetype unit) const
{
    if (m_characters.empty())
        return 0;
    for (character const& each : m_characters)
        if (unit <= each.from || unit < each.to)
            return each.start;
    return m_characters.back().end;
}

qsizetype guiPieceRuler::toUnit(double x) const
{
    qsizetype nearest = 0;
    double least = HUGE_VAL;
    auto const offer = [&](qsizetype unit, double at) {
        if (double const distance = std::abs(x - at); distance < least) {
            least = distance;
            nearest = unit;
        }
    };
    for (character const& each : m_characters) {
        offer(each.from, each.start);
        offer(each.to, each.end);
    }
    return nearest;
}

qsizetype guiPieceRuler::unitAt(double x) const
{
    qsizetype found = 0;
    double least = HUGE_VAL;
    for (character const& each : m_characters) {
        auto const [left, right] = std::minmax(each.start, each.end);
        double const outside = std::max({left - x, x - right, 0.0});
        if (outside < least) {
            least = outside;
            found = each.from;
        }
    }
    return found;
}

std::vector<guiPieceRuler::span> guiPieceRuler::spansOf(qsizetype from, qsizetype to) const
{
    constexpr double kTouching = 0.1;
    std::vector<span> spans;
    for (character const& each : m_characters)
        if (each.from < to && each.to > from)
            spans.emplace_back(std::min(each.start, each.end), std::max(each.start, each.end));
    std::sort(spans.begin(), spans.end());
    std::vector<span> merged;
    for (span const& each : spans) {
        if (!merged.empty() && each.first <= merged.back().second + kTouching)
            merged.back().second = std::max(merged.back().second, each.second);
        else
            merged.push_back(each);
    }
    return merged;
}
