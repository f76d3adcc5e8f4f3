// page/guihtmltext-characters.cpp: see guihtmltext-characters.h.
#include "page/guihtmltext-characters.h"

#include "page/guilayoutcounters.h"

#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cassert>
#include <numeric>

namespace {

// Units that are shaped together: shaping is faster for more, finding each character's position for fewer.
constexpr qsizetype kSegment = 64;
// A longer word is data, not language: each of its characters is measured alone, which takes a twentieth of the time.
constexpr qsizetype kLongestShaped = 1 << 16;

/// The direction in which a unit is written; neutral ones follow their neighbours.
enum class flow
{
    kNeutral,
    kToRight,
    kToLeft,
};

flow flowOf(QChar unit)
{
    if (unit.unicode() < 0x590)
        return unit.isLetterOrNumber() ? flow::kToRight : flow::kNeutral;
    if (unit.isHighSurrogate()) // supplementary blocks written to the left: U+10800 to U+10FFF, U+1E800 to U+1EFFF
        return (unit.unicode() & ~1) == 0xD802 || (unit.unicode() & ~1) == 0xD83A ? flow::kToLeft : flow::kToRight;
    switch (unit.direction()) {
    case QChar::DirR:
    case QChar::DirAL:
        return flow::kToLeft;
    case QChar::DirL:
    case QChar::DirEN:
    case QChar::DirAN:
        return flow::kToRight;
    default:
        return flow::kNeutral;
    }
}

/// Whether the unit is a character whose width does not depend on its neighbours: kana, ideographs, Hangul syllables.
bool standsAlone(QChar unit)
{
    char16_t const u = unit.unicode();
    return (u >= 0x3041 && u <= 0x30FF) || (u >= 0x3400 && u <= 0x9FFF) || (u >= 0xAC00 && u <= 0xD7A3);
}

/// The positions of the ends of characters in a text of one direction, from its start, in 1/64 pixel.
std::vector<int> placesIn(QFont const& font, QStringView text, std::vector<qsizetype> const& ends, flow direction)
{
    ++guiLayoutCounters::wordsShaped;
    QTextLayout layout(QString::fromRawData(text.data(), text.size()), font);
    QTextOption option;
    option.setTextDirection(direction == flow::kToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout();
    qreal const start = line.cursorToX(0);
    std::vector<int> places;
    places.reserve(ends.size());
    for (qsizetype end : ends)
        places.push_back(guiToAdvance(std::abs(line.cursorToX(static_cast<int>(end)) - start)));
    return places;
}

/// Measures a word from front to back, in short segments of one direction.
class characterMeasurer
{
public:
    characterMeasurer(guiTextFont& font, QStringView word, std::vector<guiTextWord>& out)
        : m_font(font), m_word(word), m_out(out), m_first(out.size())
    {}

    void take(qsizetype start, qsizetype end);
    /// Measures the characters taken since the last segment; the next segment starts at `next`.
    void flush(qsizetype next);

private:
    bool belongs(qsizetype end, flow direction) const;
    void shape(QStringView text);
    bool repeatLast(QStringView text);
    void append(qsizetype units, int advance);

    guiTextFont& m_font;
    QStringView m_word;
    std::vector<guiTextWord>& m_out;
    std::size_t m_first; // index of the word's first entry in m_out
    qsizetype m_start = 0;
    std::vector<qsizetype> m_ends; // of the segment's characters, from its start
    flow m_flow = flow::kNeutral;
    QStringView m_last; // the segment before; its entries in m_out are the next two
    std::size_t m_lastOut = 0;
    std::size_t m_lastCount = 0;
};

void characterMeasurer::take(qsizetype start, qsizetype end)
{
    if (m_word.size() > kLongestShaped || (end - start == 1 && standsAlone(m_word[start]))) {
        flush(end);
        append(end - start, m_font.wordAdvance(m_word.mid(start, end - start)));
        return;
    }
    flow const direction = flowOf(m_word[start]);
    if (!belongs(end, direction))
        flush(start);
    if (direction != flow::kNeutral)
        m_flow = direction;
    m_ends.push_back(end - m_start);
}

bool characterMeasurer::belongs(qsizetype end, flow direction) const
{
    bool const turns = direction != flow::kNeutral && m_flow != flow::kNeutral && direction != m_flow;
    return !turns && end - m_start <= kSegment;
}

void characterMeasurer::flush(qsizetype next)
{
    assert(next >= m_start && next <= m_word.size());
    if (!m_ends.empty()) {
        QStringView const text = m_word.mid(m_start, m_ends.back());
        if (!repeatLast(text))
            shape(text);
    }
    m_ends.clear();
    m_flow = flow::kNeutral;
    m_start = next;
}

void characterMeasurer::shape(QStringView text)
{
    m_last = text;
    m_lastOut = m_out.size();
    std::vector<int> const places = placesIn(m_font.font(), text, m_ends, m_flow);
    for (std::size_t i = 0; i < places.size(); ++i) {
        int const before = i ? places[i - 1] : 0;
        append(m_ends[i] - (i ? m_ends[i - 1] : 0), places[i] - before);
    }
    m_lastCount = m_out.size() - m_lastOut;
}

// A word that repeats itself, such as a line of dashes, is shaped once.
bool characterMeasurer::repeatLast(QStringView text)
{
    if (text != m_last)
        return false;
    for (std::size_t i = 0; i < m_lastCount; ++i) {
        guiTextWord const copy = m_out[m_lastOut + i];
        m_out.push_back(copy);
        m_out.back().flags |= guiTextWord::kGlued;
    }
    return true;
}

void characterMeasurer::append(qsizetype units, int advance)
{
    guiTextWord part;
    part.advance = static_cast<std::uint16_t>(std::clamp(advance, 0, guiTextWord::kMaxAdvance));
    part.flags = guiTextWord::kSingle | (m_out.size() == m_first ? 0 : guiTextWord::kGlued);
    for (; units > 0; units -= part.units) {
        part.units = static_cast<std::uint8_t>(std::min<qsizetype>(units, guiTextWord::kMaxUnits));
        m_out.push_back(part);
        part.advance = 0;
        part.flags = guiTextWord::kSingle | guiTextWord::kGlued | guiTextWord::kSolid;
    }
}

[[maybe_unused]] qsizetype unitsFrom(std::vector<guiTextWord> const& words, std::size_t first)
{
    auto const add = [](qsizetype sum, guiTextWord const& word) { return sum + word.units; };
    return std::accumulate(words.begin() + static_cast<std::ptrdiff_t>(first), words.end(), qsizetype{0}, add);
}

} // namespace

void guiMeasureCharacters(guiTextFont& font, QStringView word, std::vector<guiTextWord>& out)
{
    [[maybe_unused]] std::size_t const first = out.size();
    characterMeasurer measurer(font, word, out);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word.data(), word.size());
    qsizetype start = 0;
    for (qsizetype end = finder.toNextBoundary(); end > start; end = finder.toNextBoundary()) {
        measurer.take(start, end);
        start = end;
    }
    if (start < word.size())
        measurer.take(start, word.size());
    measurer.flush(word.size());
    assert(unitsFrom(out, first) == word.size());
}
