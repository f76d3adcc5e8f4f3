// page/guihtmltext-places.cpp: see guihtmltext-places.h.
#include "page/guihtmltext-places.h"

#include "page/guihtmltext-codes.h"
#include "page/guihtmltext-lines.h"
#include "page/guihtmltext.h"

#include <algorithm>
#include <cmath>

namespace {

/// Where text between two codes is, in the run and among its words.
struct textPart
{
    qsizetype inRun = 0;
    qsizetype inWords = 0;
    qsizetype count = 0;
};

struct plainRun
{
    QString words;
    std::vector<textPart> parts;
};

qsizetype blanksBefore(QStringView text)
{
    auto const end = std::find_if(text.begin(), text.end(), [](QChar unit) { return !guiIsBlank(unit.unicode()); });
    return end - text.begin();
}

plainRun plainOf(QStringView text)
{
    plainRun plain;
    guiTextScanner scanner(text);
    while (scanner.next()) {
        if (!scanner.isCode()) {
            bool const isLineStart = plain.words.isEmpty() || plain.words.endsWith(u'\n');
            qsizetype const left = isLineStart ? blanksBefore(scanner.part()) : 0; // they are not drawn
            QStringView const words = scanner.part().mid(left);
            plain.parts.push_back({scanner.start() + left, plain.words.size(), words.size()});
            plain.words += words;
        } else if (guiReadTextCode(scanner.part()) == guiTextCode::kLineBreak) {
            plain.words += u'\n';
        }
    }
    return plain;
}

/// The offset among the words of a unit of the run that is in no code.
int toWords(plainRun const& plain, qsizetype unit)
{
    auto const isBehind = [](qsizetype at, textPart const& part) { return at < part.inRun; };
    auto const next = std::upper_bound(plain.parts.begin(), plain.parts.end(), unit, isBehind);
    if (next == plain.parts.begin())
        return 0;
    textPart const& part = *std::prev(next);
    return static_cast<int>(part.inWords + std::clamp<qsizetype>(unit - part.inRun, 0, part.count));
}

} // namespace

QString guiPlainText(guiHtmlText const& run) { return plainOf(run.mx.text.view()).words; }

guiTextPlaces::guiTextPlaces(guiHtmlText& run)
{
    QStringView const text = run.mx.text.view();
    plainRun const plain = plainOf(text);
    m_text = plain.words;
    run.forEachLine([&](guiLineBreaker const& line, guiTextRun const& words, QRect const& place) {
        if (!line.pieces().empty())
            m_lines.push_back(toWords(plain, line.from()));
        for (guiTextPiece const& drawn : line.pieces())
            m_pieces.push_back({toWords(plain, drawn.start),
                                static_cast<int>(drawn.length),
                                {place.left() + drawn.left, place.top(), drawn.width, place.height()},
                                words.chunks()[drawn.chunk],
                                drawn});
        return false;
    });
}

guiTextPlaces::piece const* guiTextPlaces::pieceAt(int offset) const
{
    auto const holds = [offset](piece const& each) { return offset >= each.first && offset - each.first < each.count; };
    auto const found = std::find_if(m_pieces.begin(), m_pieces.end(), holds);
    return found != m_pieces.end() ? &*found : nullptr;
}

guiPieceRuler guiTextPlaces::rulerOf(piece const& at) const
{
    return {at.chunk, at.drawn, QStringView(m_text).mid(at.first, at.count)};
}

QRect guiTextPlaces::rectAt(int offset) const
{
    piece const* const at = pieceAt(offset);
    if (!at)
        return {};
    std::vector<guiPieceRuler::span> const spans = rulerOf(*at).spansOf(offset - at->first, offset - at->first + 1);
    if (spans.empty())
        return {};
    int const left = static_cast<int>(std::lround(spans.front().first));
    int const right = static_cast<int>(std::lround(spans.back().second));
    return {at->place.left() + left, at->place.top(), right - left, at->place.height()};
}

int guiTextPlaces::offsetAt(QPoint at) const
{
    for (piece const& each : m_pieces)
        if (each.place.contains(at))
            return each.first + static_cast<int>(rulerOf(each).unitAt(at.x() + 0.5 - each.place.left()));
    return -1;
}

std::pair<int, int> guiTextPlaces::lineAt(int offset) const
{
    auto const next = std::upper_bound(m_lines.begin(), m_lines.end(), offset);
    int const first = next == m_lines.begin() ? 0 : *std::prev(next);
    return {first, next == m_lines.end() ? length() : *next};
}
