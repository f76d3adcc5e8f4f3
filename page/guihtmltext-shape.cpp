// page/guihtmltext-shape.cpp: see guihtmltext-shape.h.
#include "page/guihtmltext-shape.h"

#include "page/guihtmltext-breaks.h"
#include "page/guihtmltext-characters.h"
#include "page/guihtmltext-codes.h"
#include "page/guihtmltext-context.h"
#include "page/guilayoutcounters.h"

#include "foundation/vela-error.h"
#include "foundation/vela-threadrole.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {

/// A buffer in which a run is built, kept for the next one. No run is built while another one is.
struct gathering
{
    std::vector<guiTextChunk> chunks;
    std::vector<guiTextWord> words;
    bool hasLinks = false;
    bool hasInnerBreaks = false;

    void start()
    {
        constexpr std::size_t kMostKept = 1 << 16;
        if (words.capacity() > kMostKept)
            *this = gathering();
        chunks.clear();
        words.clear();
        hasLinks = hasInnerBreaks = false;
    }
};

gathering& theGathering() TARN_ON(velaGuiRole)
{
    static gathering& one = *new gathering;
    return one;
}

} // namespace

void guiTextRun::release::operator()(block* at) const { std::free(at); }

/// Reads a text from front to back and keeps track of its formatting.
class guiTextRun::builder
{
public:
    builder(gathering& run, guiTextFont& font, int points, bool normalize, guiTextScale scale,
            std::span<guiTextLevel const> levels, bool mayBreakInWords)
        : m_run(run),
          m_levels(levels),
          m_mayBreakInWords(mayBreakInWords),
          m_default(font),
          m_defaultPoints(points),
          m_normalize(normalize),
          m_scale(scale),
          m_face(&font),
          m_points(points)
    {}

    void read(QStringView text);

private:
    void addText(QStringView text, qsizetype start);
    void applyCode(QStringView code, qsizetype start);
    void applyStyle(guiTextCode code);
    void openChunk(qsizetype start);
    void addBreak(qsizetype start);
    void addWord(QStringView word, qsizetype start, guiTextContext& context);
    bool addWhole(QStringView word, guiTextContext& context);
    void addPart(QStringView part, bool byCharacters, guiTextContext& context);
    void addTurningWord(QStringView word, qsizetype start, bool byCharacters, guiTextContext& context);
    void setBreaks(std::size_t first, std::vector<qsizetype> const& places);
    void addBlanks(qsizetype count, int otherBlank);
    void setFont(QStringView code);
    void resetFont();
    void startLink(qsizetype start);
    void endLink();
    void startLabel(qsizetype start);
    void endLabel();
    bool isInLink() const { return m_link != guiTextChunk::kNoLink; }
    void endColor();
    std::uint16_t indentOf(QStringView code) const;

    gathering& m_run;
    std::span<guiTextLevel const> m_levels; // of the text's units; empty where nothing turns
    bool m_mayBreakInWords;                 // in any of them
    guiTextFont& m_default;
    int m_defaultPoints;
    bool m_normalize;
    guiTextScale m_scale;
    guiTextFont* m_face; // without bold and italic
    int m_points;
    bool m_bold = false;
    bool m_italic = false;
    bool m_underline = false;
    bool m_strike = false;
    bool m_marked = false;
    bool m_explicitColor = false;
    guiTextInk m_ink = guiTextInk::kText;
    guiPackedColor m_color = guiColor::Black;
    std::uint32_t m_link = guiTextChunk::kNoLink;
    std::uint32_t m_label = guiTextChunk::kNoLink;
    std::uint16_t m_indent = 0;
    std::uint16_t m_breaks = 0;
};

guiTextRun::guiTextRun(QStringView text, guiTextFont& font, int points, bool normalize, guiTextScale scale,
                       guiDirection direction)
{
    assertOnGuiThread();
    ++guiLayoutCounters::runsShaped;
    gathering& found = theGathering();
    found.start();
    bool const isPlain = guiHasPlainLettersOnly(text);
    bool const mayTurn = !isPlain || direction == guiDirection::kRightToLeft;
    std::vector<guiTextLevel> const levels = mayTurn ? guiLevelsOf(text, direction) : std::vector<guiTextLevel>();
    builder(found, font, points, normalize, scale, levels, !isPlain).read(text);
    std::size_t const chunkBytes = found.chunks.size() * sizeof(guiTextChunk);
    std::size_t const wordBytes = found.words.size() * sizeof(guiTextWord);
    m_block.reset(static_cast<block*>(std::malloc(sizeof(block) + chunkBytes + wordBytes + levels.size())));
    if (!m_block)
        throw velaError(ENOMEM);
    m_block->chunks = static_cast<std::uint32_t>(found.chunks.size());
    m_block->words = static_cast<std::uint32_t>(found.words.size()) & 0x3FFFFFFF;
    m_block->hasLinks = found.hasLinks;
    m_block->hasInnerBreaks = found.hasInnerBreaks;
    std::copy(found.chunks.begin(), found.chunks.end(), chunksOf(m_block.get()));
    std::copy(found.words.begin(), found.words.end(), wordsOf(m_block.get()));
    m_block->levels = static_cast<std::uint32_t>(levels.size());
    std::copy(levels.begin(), levels.end(), levelsOf(m_block.get()));
}

void guiTextRun::builder::read(QStringView text)
{
    guiTextScanner scanner(text);
    while (scanner.next()) {
        if (scanner.isCode())
            applyCode(scanner.part(), scanner.start());
        else
            addText(scanner.part(), scanner.start());
    }
    if (m_breaks)
        openChunk(m_run.chunks.empty() ? 0 : m_run.chunks.back().start);
    assert(m_run.words.empty() || !m_run.chunks.empty());
}

void guiTextRun::builder::openChunk(qsizetype start)
{
    assert(m_run.chunks.empty() || m_run.chunks.back().start <= start);
    assert(m_run.chunks.empty() || m_run.chunks.back().firstWord <= m_run.words.size());
    guiTextChunk chunk;
    chunk.start = static_cast<std::uint32_t>(start);
    chunk.firstWord = static_cast<std::uint32_t>(m_run.words.size());
    chunk.link = isInLink() ? m_link : m_label;
    chunk.indent = m_indent;
    chunk.breaks = m_breaks;
    chunk.font = &guiTextFonts::styled(*m_face, m_bold, m_italic);
    chunk.color = m_color;
    chunk.ink = m_ink;
    chunk.underline = m_underline || isInLink();
    chunk.strike = m_strike;
    chunk.marked = m_marked;
    chunk.isLabel = !isInLink() && m_label != guiTextChunk::kNoLink;
    m_run.chunks.push_back(chunk);
    m_breaks = 0;
}

void guiTextRun::builder::addText(QStringView text, qsizetype start)
{
    openChunk(start);
    guiTextContext context(*m_run.chunks.back().font, text);
    for (qsizetype at = 0; at < text.size();) {
        qsizetype const wordStart = at;
        while (at < text.size() && !guiIsBlank(text[at].unicode()))
            ++at;
        addWord(text.mid(wordStart, at - wordStart), start + wordStart, context);
        qsizetype const blankStart = at;
        while (at < text.size() && guiIsBlank(text[at].unicode()))
            ++at;
        addBlanks(at - blankStart, context.otherBlank());
    }
}

/// Adds a word as one entry; false for one that is too long for that.
inline bool guiTextRun::builder::addWhole(QStringView word, guiTextContext& context)
{
    int const advance = word.size() <= guiTextFont::kMaxWord ? context.wordAdvance(word) : guiTextWord::kMaxAdvance + 1;
    if (advance > guiTextWord::kMaxAdvance)
        return false;
    guiTextWord entry;
    entry.advance = static_cast<std::uint16_t>(advance);
    entry.units = static_cast<std::uint8_t>(word.size());
    m_run.words.push_back(entry);
    return true;
}

void guiTextRun::builder::addWord(QStringView word, qsizetype start, guiTextContext& context)
{
    if (!m_mayBreakInWords && m_levels.empty() && addWhole(word, context))
        return;
    std::size_t const first = m_run.words.size();
    bool const hasBreaks = m_mayBreakInWords && guiHasInnerBreaks(word);
    if (m_levels.empty())
        addPart(word, hasBreaks, context);
    else
        addTurningWord(word, start, hasBreaks, context);
    if (!hasBreaks)
        return;
    m_run.hasInnerBreaks = true;
    setBreaks(first, guiInnerBreaks(word));
}

/// A word or a part of one that has one direction. `byCharacters`: an entry for each.
void guiTextRun::builder::addPart(QStringView part, bool byCharacters, guiTextContext& context)
{
    assert(!m_run.chunks.empty());
    if (!byCharacters && addWhole(part, context))
        return;
    context.pass(part);
    guiMeasureCharacters(*m_run.chunks.back().font, part, m_run.words);
}

/// Part by part where its direction changes, so that each entry has one.
void guiTextRun::builder::addTurningWord(QStringView word, qsizetype start, bool byCharacters, guiTextContext& context)
{
    std::size_t const first = m_run.words.size();
    auto const levelAt = [&](qsizetype at) { return m_levels[static_cast<std::size_t>(start + at)]; };
    qsizetype from = 0;
    do {
        qsizetype to = from;
        while (to < word.size() && levelAt(to) == levelAt(from))
            ++to;
        std::size_t const next = m_run.words.size();
        addPart(word.mid(from, to - from), byCharacters, context);
        if (next != first)
            m_run.words[next].flags |= guiTextWord::kGlued;
        from = to;
    } while (from < word.size());
}

/// Lets lines end at places inside of the word whose entries begin at `first`. All its entries are glued.
void guiTextRun::builder::setBreaks(std::size_t first, std::vector<qsizetype> const& places)
{
    auto& words = m_run.words;
    std::size_t at = first;
    qsizetype unit = 0;
    for (qsizetype place : places) {
        while (unit < place && at < words.size())
            unit += words[at++].units;
        if (unit == place && at < words.size() && !(words[at].flags & guiTextWord::kSolid))
            words[at].flags = words[at].flags & ~guiTextWord::kGlued & guiTextWord::kAllFlags;
    }
}

/// The blanks after the last word, which are stored with it; more than it can hold go to further entries, and so do
/// blanks that are not the font's own.
void guiTextRun::builder::addBlanks(qsizetype count, int otherBlank)
{
    auto const other = static_cast<std::uint16_t>(std::min(otherBlank, guiTextWord::kMaxAdvance));
    if (other && count > 0)
        m_run.words.emplace_back().advance = other;
    while (count > 0) {
        assert(m_run.words.size() > m_run.chunks.back().firstWord);
        guiTextWord& last = m_run.words.back();
        unsigned const room = guiTextWord::kMaxBlanks - last.blanks;
        unsigned const taken = static_cast<unsigned>(std::min<qsizetype>(count, room));
        last.blanks = static_cast<std::uint8_t>(last.blanks + taken) & guiTextWord::kMaxBlanks;
        count -= taken;
        if (count > 0)
            m_run.words.emplace_back().advance = other;
    }
}

void guiTextRun::builder::addBreak(qsizetype start)
{
    if (m_breaks == std::numeric_limits<std::uint16_t>::max())
        openChunk(start);
    ++m_breaks;
}

void guiTextRun::builder::setFont(QStringView code)
{
    guiFontRequest const request = guiReadFontRequest(code);
    if (request.points)
        m_points = request.points;
    QString const family = request.face.isEmpty() ? m_face->font().family() : request.face;
    m_face = &guiTextFonts::face(family, m_points, m_normalize, m_scale.font);
}

void guiTextRun::builder::resetFont()
{
    m_face = &m_default;
    m_points = m_defaultPoints;
}

void guiTextRun::builder::startLink(qsizetype start)
{
    m_link = static_cast<std::uint32_t>(start);
    m_run.hasLinks = true;
    if (!m_explicitColor)
        m_ink = guiTextInk::kLink;
}

void guiTextRun::builder::endLink()
{
    m_link = guiTextChunk::kNoLink;
    if (!m_explicitColor)
        m_ink = guiTextInk::kText;
}

void guiTextRun::builder::startLabel(qsizetype start)
{
    m_label = static_cast<std::uint32_t>(start);
    m_run.hasLinks = true;
}

void guiTextRun::builder::endLabel() { m_label = guiTextChunk::kNoLink; }

void guiTextRun::builder::endColor()
{
    m_explicitColor = false;
    m_ink = guiTextInk::kText;
}

std::uint16_t guiTextRun::builder::indentOf(QStringView code) const
{
    constexpr int kMost = std::numeric_limits<std::uint16_t>::max();
    return static_cast<std::uint16_t>(std::min(guiZoomedLength(guiReadIndent(code), m_scale.length), kMost));
}

void guiTextRun::builder::applyCode(QStringView code, qsizetype start)
{
    guiTextCode const kind = guiReadTextCode(code);
    switch (kind) {
    case guiTextCode::kIndent:
        m_indent = indentOf(code);
        break;
    case guiTextCode::kLineBreak:
        addBreak(start);
        break;
    case guiTextCode::kColor:
        m_explicitColor = true;
        m_ink = guiTextInk::kExplicit;
        m_color = guiReadColorCode(code);
        break;
    case guiTextCode::kEndColor:
        endColor();
        break;
    case guiTextCode::kLink:
        startLink(start);
        break;
    case guiTextCode::kEndLink:
        endLink();
        break;
    case guiTextCode::kLabel:
        startLabel(start);
        break;
    case guiTextCode::kEndLabel:
        endLabel();
        break;
    case guiTextCode::kFont:
        setFont(code);
        break;
    case guiTextCode::kEndFont:
        resetFont();
        break;
    default:
        applyStyle(kind);
        break;
    }
}

void guiTextRun::builder::applyStyle(guiTextCode code)
{
    switch (code) {
    case guiTextCode::kBold:
    case guiTextCode::kEndBold:
        m_bold = code == guiTextCode::kBold;
        break;
    case guiTextCode::kItalic:
    case guiTextCode::kEndItalic:
        m_italic = code == guiTextCode::kItalic;
        break;
    case guiTextCode::kUnderline:
    case guiTextCode::kEndUnderline:
        m_underline = code == guiTextCode::kUnderline;
        break;
    case guiTextCode::kStrike:
    case guiTextCode::kEndStrike:
        m_strike = code == guiTextCode::kStrike;
        break;
    case guiTextCode::kMark:
    case guiTextCode::kEndMark:
        m_marked = code == guiTextCode::kMark;
        break;
    default:
        assert(!"a code that switches no style");
    }
}
