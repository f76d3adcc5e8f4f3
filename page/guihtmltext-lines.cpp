// page/guihtmltext-lines.cpp: see guihtmltext-lines.h.
#include "page/guihtmltext-lines.h"

#include "page/guihtmltext-breaks.h"
#include "page/guilayoutcounters.h"

#include <algorithm>
#include <cassert>

namespace {

constexpr int kSmallestLine = 8;
constexpr std::int64_t kMaxLine = 1 << 30;
constexpr std::uint32_t kMostUnits = 0x7FFFFFFF;

} // namespace

/// How much of a chunk is on the line.
struct guiLineBreaker::progress
{
    guiTextPlace place;
    bool isHyphenated = false;
    std::int64_t advance = 0; // 1/64 pixel, from the first unit on the line
};

guiLineBreaker::guiLineBreaker(guiTextRun const& run, QStringView text, int width)
    : m_run(run),
      m_turns(!run.levels().empty()),
      m_hasInnerBreaks(run.hasInnerBreaks()),
      m_text(text),
      m_boxWidth(width)
{
    ++guiLayoutCounters::runsBroken;
    if (!run.chunks().empty())
        m_place.unit = run.chunks().front().start;
}

bool guiLineBreaker::next()
{
    m_pieces.clear();
    m_width = m_descent = 0;
    m_height = kSmallestLine;
    m_from = m_to = m_place.unit;
    bool const isLine = findLine();
    if (m_pieces.empty())
        return isLine;
    m_from = m_pieces.front().start;
    m_to = m_pieces.back().end();
    if (m_turns)
        setOrder();
    return true;
}

bool guiLineBreaker::findLine()
{
    while (m_place.chunk < m_run.chunks().size()) {
        if (takeBreak())
            return true;
        if (m_pieces.empty())
            skipBlanks();
        if (atChunkEnd()) {
            enterChunk();
            continue;
        }
        if (!fitChunk())
            break;
    }
    return !m_pieces.empty();
}

// Each break before a chunk ends a line, even an empty one.
bool guiLineBreaker::takeBreak()
{
    if (m_place.breaks >= m_run.chunks()[m_place.chunk].breaks)
        return false;
    ++m_place.breaks;
    return true;
}

bool guiLineBreaker::atChunkEnd() const { return m_place.word >= m_run.wordsEnd(m_place.chunk); }

void guiLineBreaker::enterChunk()
{
    ++m_place.chunk;
    m_place.breaks = 0;
    m_place.offset = 0;
    if (m_place.chunk < m_run.chunks().size())
        m_place.unit = m_run.chunks()[m_place.chunk].start;
    assert(m_place.unit <= m_text.size());
}

void guiLineBreaker::skipBlanks()
{
    while (!atChunkEnd()) {
        guiTextWord const& word = m_run.words()[m_place.word];
        if (m_place.offset < word.units)
            return;
        m_place.unit += word.units + word.blanks - m_place.offset;
        m_place.offset = 0;
        ++m_place.word;
    }
}

std::int64_t guiLineBreaker::restOfWord(guiTextPlace const& place, guiTextWord const& word) const
{
    if (place.offset >= word.units)
        return 0;
    if (place.offset == 0)
        return word.advance;
    assert(place.unit >= place.offset);
    QStringView const text = m_text.mid(place.unit - place.offset, word.units);
    std::int64_t advance = word.advance;
    std::uint32_t offset = 0;
    for (guiTextWord const& character : m_run.chunks()[place.chunk].font->characters(text)) {
        if (offset >= place.offset)
            break;
        offset += character.units;
        advance -= character.advance;
    }
    return std::max<std::int64_t>(advance, 0);
}

// Takes the characters of a word that fit into the rest of the line, none behind the unit `end`.
void guiLineBreaker::cutWord(progress& at, guiTextWord const& word, std::uint32_t end) const
{
    if (word.flags & guiTextWord::kSingle)
        return;
    QStringView const text = m_text.mid(at.place.unit - at.place.offset, word.units);
    std::uint32_t offset = 0;
    for (guiTextWord const& character : m_run.chunks()[at.place.chunk].font->characters(text)) {
        offset += character.units;
        if (offset <= at.place.offset)
            continue;
        if (at.place.unit + character.units > end || !fits(at.advance + character.advance))
            return;
        at.advance += character.advance;
        at.place.offset += character.units;
        at.place.unit += character.units;
    }
}

// Takes a word without its blanks, if it fits.
bool guiLineBreaker::takeWord(progress& at, guiTextWord const& word) const
{
    assert(at.place.offset <= static_cast<unsigned>(word.units) + word.blanks);
    std::int64_t const advance = restOfWord(at.place, word);
    if (!fits(at.advance + advance))
        return false;
    at.advance += advance;
    if (at.place.offset < word.units) {
        at.place.unit += word.units - at.place.offset;
        at.place.offset = word.units;
    }
    return true;
}

inline int guiLineBreaker::blankAdvance(std::uint32_t chunk, guiTextWord const& word) const
{
    bool const isOther = word.units == 0 && word.advance;
    return isOther ? word.advance : m_run.chunks()[chunk].font->blankAdvance();
}

// Takes blanks up to the next word; false at the first one that does not fit. `last` is the position before the last
// blank.
bool guiLineBreaker::takeBlanks(progress& at, guiTextWord const& word, std::optional<progress>& last) const
{
    int const blank = blankAdvance(at.place.chunk, word);
    for (unsigned left = word.units + word.blanks - at.place.offset; left > 0; --left) {
        last = at;
        at.advance += blank;
        if (!fits(at.advance))
            return false;
        ++at.place.offset;
        ++at.place.unit;
    }
    return true;
}

/// Whether a line may end before a word that no blank stands before.
bool guiLineBreaker::mayEndBefore(guiTextPlace const& at, guiTextPlace const& from) const
{
    guiTextWord const& word = m_run.words()[at.word];
    if (at.word == from.word || word.units == 0 || (word.flags & guiTextWord::kGlued))
        return false;
    guiTextWord const& before = m_run.words()[at.word - 1];
    return before.units != 0 && before.blanks == 0;
}

// A soft hyphen is seen only where the line ends at it, and needs its room there.
void guiLineBreaker::keepPlace(progress const& at, std::optional<progress>& last) const
{
    progress place = at;
    assert(at.place.unit > 0);
    if (m_text[at.place.unit - 1] == kSoftHyphen) {
        place.isHyphenated = true;
        place.advance += m_run.chunks()[at.place.chunk].font->wordAdvance(kShownHyphen);
        if (!fits(place.advance))
            return;
    }
    last = place;
}

bool guiLineBreaker::fitChunk()
{
    guiTextChunk const& chunk = m_run.chunks()[m_place.chunk];
    int const indent = m_pieces.empty() ? chunk.indent : 0;
    m_room = static_cast<int>(std::max<std::int64_t>(std::int64_t{m_boxWidth} - m_width - indent, -1));
    std::uint32_t const end = m_run.wordsEnd(m_place.chunk);
    progress const from{m_place};
    progress at = from;
    std::optional<progress> last; // where the line may end
    for (; at.place.word < end; ++at.place.word, at.place.offset = 0) {
        guiTextWord const& word = m_run.words()[at.place.word];
        if (m_hasInnerBreaks && mayEndBefore(at.place, from.place))
            keepPlace(at, last);
        if (takeWord(at, word) && takeBlanks(at, word, last))
            continue;
        if (last) {
            endAt(from, *last);
        } else if (m_pieces.empty()) {
            cutWord(at, word, static_cast<std::uint32_t>(m_text.size()));
            endInWord(from, at);
        }
        return false;
    }
    endAt(from, at);
    return true;
}

// A word that is wider than the line is divided where it reads best, else behind the last character that fits.
void guiLineBreaker::endInWord(progress const& from, progress const& at)
{
    std::uint32_t const start = from.place.unit;
    qsizetype const fitting = at.place.unit - start;
    constexpr qsizetype kNextCharacter = 2;
    qsizetype const division = guiLastDivision(m_text.mid(start, fitting + kNextCharacter), fitting);
    progress end = at;
    if (division > 0 && division < fitting) {
        end = from;
        skipTo(end, start + static_cast<std::uint32_t>(division));
    }
    endAt(from, end);
}

/// Takes text without blanks, all of which fits: word by word as it was found to fit. The characters of a word may fit
/// where the word does not, since fonts bring some letters closer together and others apart.
void guiLineBreaker::skipTo(progress& at, std::uint32_t end) const
{
    for (;; ++at.place.word, at.place.offset = 0) {
        guiTextWord const& word = m_run.words()[at.place.word];
        if (at.place.unit + word.units - at.place.offset > end || !takeWord(at, word))
            return cutWord(at, word, end);
        if (at.place.unit >= end)
            return;
    }
}

/// `left`: where the chunk's first piece on the line is.
inline void guiLineBreaker::addPiece(progress const& from, progress const& to, int left)
{
    guiTextPiece& piece = m_pieces.emplace_back();
    piece.chunk = from.place.chunk;
    piece.start = from.place.unit & kMostUnits;
    piece.length = (to.place.unit - from.place.unit) & (kMostUnits >> 1);
    piece.left = static_cast<int>(std::min(left + guiTextPixels(from.advance), kMaxLine));
    piece.width = static_cast<int>(std::min(left + guiTextPixels(to.advance), kMaxLine)) - piece.left;
    assert(piece.left >= m_width && piece.width >= 0);
    if (!m_turns)
        return;
    piece.isPartOfTurn = 1;
    piece.isFromTheRight = m_run.levels()[from.place.unit].isFromTheRight() ? 1 : 0;
}

// Adds the text between the two positions to the line; no text leaves the line as it is.
void guiLineBreaker::endAt(progress const& from, progress const& to)
{
    assert(to.place.unit >= from.place.unit && to.place.unit <= m_text.size());
    if (to.place.unit == from.place.unit)
        return;
    guiTextChunk const& chunk = m_run.chunks()[from.place.chunk];
    int const left = m_width + (m_pieces.empty() ? chunk.indent : 0);
    if (!m_turns)
        addPiece(from, to, left);
    else
        addPiecesByLevel(from, to, left);
    m_pieces.back().isHyphenated = to.isHyphenated ? 1 : 0;
    m_width = m_pieces.back().left + m_pieces.back().width;
    m_height = std::max(m_height, chunk.font->lineSpacing());
    m_descent = std::max(m_descent, chunk.font->descent());
    m_place = to.place;
}

// ---- Order ----

/// Whether two neighbouring places are in different pieces: of another level, or, where a level begins, a blank of
/// another font and a letter, whose own font the toolkit would take for both.
bool guiLineBreaker::splitsAt(guiTextPlace const& start, guiTextPlace const& at) const
{
    if (m_run.levels()[start.unit].level() != m_run.levels()[at.unit].level())
        return true;
    auto const isOtherBlank = [this](guiTextPlace const& place) {
        guiTextWord const& word = m_run.words()[place.word];
        return word.units == 0 && word.advance != 0;
    };
    return isOtherBlank(start) && !isOtherBlank(at);
}

void guiLineBreaker::addPiecesByLevel(progress const& from, progress const& to, int left)
{
    progress start = from;
    progress at = from;
    progress ink = from; // behind the last letter
    while (at.place.unit < to.place.unit) {
        guiTextWord const& word = m_run.words()[at.place.word];
        if (at.place.offset >= static_cast<unsigned>(word.units) + word.blanks) {
            ++at.place.word;
            at.place.offset = 0;
            continue;
        }
        if (splitsAt(start.place, at.place)) {
            addPiece(start, at, left);
            start = at;
        }
        if (at.place.offset < word.units) {
            skipTo(at, std::min(to.place.unit, at.place.unit + word.units - at.place.offset));
            ink = at;
        } else {
            at.advance += blankAdvance(at.place.chunk, word);
            ++at.place.offset;
            ++at.place.unit;
        }
    }
    if (start.place.unit < ink.place.unit && ink.place.unit < to.place.unit) {
        addPiece(start, ink, left);
        start = ink;
    }
    addPiece(start, to, left);
}

/// Whether nothing but blanks is in the piece.
bool guiLineBreaker::isBlank(guiTextPiece const& piece) const
{
    QStringView const text = m_text.mid(piece.start, piece.length);
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return guiIsBlank(unit.unicode()); });
}

// Blanks at the end of a line have the level of the paragraph (rule L1).
std::vector<std::uint8_t> guiLineBreaker::levelsOfPieces() const
{
    auto const levels = m_run.levels();
    std::vector<std::uint8_t> found;
    found.reserve(m_pieces.size());
    for (guiTextPiece const& piece : m_pieces)
        found.push_back(levels[piece.start].level() & 0x7F);
    for (std::size_t i = m_pieces.size(); i > 0 && isBlank(m_pieces[i - 1]); --i)
        found[i - 1] = levels[m_from].paragraphLevel() & 1;
    return found;
}

// The indentation is where reading starts.
void guiLineBreaker::setOrder()
{
    std::vector<std::uint32_t> order;
    guiOrderByLevels(levelsOfPieces(), order);
    int left = m_run.levels()[m_from].isParagraphFromTheRight() ? 0 : m_pieces.front().left;
    std::vector<guiTextPiece> ordered;
    ordered.reserve(m_pieces.size());
    for (std::uint32_t index : order) {
        ordered.push_back(m_pieces[index]);
        ordered.back().left = left;
        left += ordered.back().width;
    }
    m_pieces.swap(ordered);
}
