// page/guihtmltext-characters.cpp: see guihtmltext-characters.h.
#include "page/guihtmltext-characters.h"

#include "page/guilayoutcounters.h"

#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace {

// Long enough to shape fast, short enough that asking for each character's place stays cheap.
constexpr qsizetype kSegment = 64;
// What is longer without a blank is data, not language: each of its characters is measured alone, which takes a
// twentieth of the time.
constexpr qsizetype kLongestShaped = 1 << 16;

/// Which way a unit runs; neutral ones run with their neighbours.
enum class Flow
{
    Neutral,
    Right, ///< from left to right
    Left,
};

Flow flowOf(QChar unit)
{
    if (unit.unicode() < 0x590)
        return unit.isLetterOrNumber() ? Flow::Right : Flow::Neutral;
    if (unit.isHighSurrogate()) // the supplementary blocks that run to the left: U+10800 to U+10FFF, U+1E800 to U+1EFFF
        return (unit.unicode() & ~1) == 0xD802 || (unit.unicode() & ~1) == 0xD83A ? Flow::Left : Flow::Right;
    switch (unit.direction()) {
    case QChar::DirR:
    case QChar::DirAL:
        return Flow::Left;
    case QChar::DirL:
    case QChar::DirEN:
    case QChar::DirAN:
        return Flow::Right;
    default:
        return Flow::Neutral;
    }
}

/// Whether a unit is a character whose width no neighbour changes: kana, ideographs, Hangul syllables.
bool standsAlone(QChar unit)
{
    char16_t const u = unit.unicode();
    return (u >= 0x3041 && u <= 0x30FF) || (u >= 0x3400 && u <= 0x9FFF) || (u >= 0xAC00 && u <= 0xD7A3);
}

/// Places of the ends of characters in a text that runs one way, from where it starts, in 1/64 pixel.
std::vector<int> placesIn(QFont const& font, QStringView text, std::vector<qsizetype> const& ends, Flow flow)
{
    ++guiLayoutCounters::wordsShaped;
    QTextLayout layout(QString::fromRawData(text.data(), text.size()), font);
    QTextOption option;
    option.setTextDirection(flow == Flow::Left ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout();
    qreal const start = line.cursorToX(0);
    std::vector<int> places;
    for (qsizetype end : ends)
        places.push_back(guiToAdvance(std::abs(line.cursorToX(static_cast<int>(end)) - start)));
    return places;
}

/// Measures a word from front to back, in short segments that run one way.
class characterMeasurer
{
public:
    characterMeasurer(guiTextFont& font, QStringView word, std::vector<guiTextWord>& out)
        : m_font(font), m_word(word), m_out(out), m_first(out.size())
    {}

    void take(qsizetype start, qsizetype end);
    /// Measures what was taken since the last segment.
    void flush(qsizetype next);

private:
    bool belongs(qsizetype end, Flow flow) const;
    bool repeatLast(QStringView text);
    void append(qsizetype units, int advance);

    guiTextFont& m_font;
    QStringView m_word;
    std::vector<guiTextWord>& m_out;
    std::size_t m_first; // where the word starts in m_out
    qsizetype m_start = 0;
    std::vector<qsizetype> m_ends; // of the segment's characters, from its start
    Flow m_flow = Flow::Neutral;
    QStringView m_last; // the segment before, and its entries in m_out
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
    Flow const flow = flowOf(m_word[start]);
    if (!belongs(end, flow))
        flush(start);
    if (flow != Flow::Neutral)
        m_flow = flow;
    m_ends.push_back(end - m_start);
}

bool characterMeasurer::belongs(qsizetype end, Flow flow) const
{
    bool const turns = flow != Flow::Neutral && m_flow != Flow::Neutral && flow != m_flow;
    return !turns && end - m_start <= kSegment;
}

void characterMeasurer::flush(qsizetype next)
{
    if (!m_ends.empty()) {
        QStringView const text = m_word.mid(m_start, m_ends.back());
        if (!repeatLast(text)) {
            m_last = text;
            m_lastOut = m_out.size();
            std::vector<int> const places = placesIn(m_font.font(), text, m_ends, m_flow);
            for (std::size_t i = 0; i < places.size(); ++i) {
                int const before = i ? places[i - 1] : 0;
                append(m_ends[i] - (i ? m_ends[i - 1] : 0), places[i] - before);
            }
            m_lastCount = m_out.size() - m_lastOut;
        }
    }
    m_ends.clear();
    m_flow = Flow::Neutral;
    m_start = next;
}

// A text that repeats itself, such as a ruler of dashes, is shaped once.
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

} // namespace

void guiMeasureCharacters(guiTextFont& font, QStringView word, std::vector<guiTextWord>& out)
{
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
}
