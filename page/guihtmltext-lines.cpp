// page/guihtmltext-lines.cpp: see guihtmltext-lines.h.
#include "page/guihtmltext-lines.h"

#include "page/guilayoutcounters.h"

#include <algorithm>
#include <cassert>

namespace {

constexpr int kSmallestLine = 8;
constexpr std::int64_t kMaxLine = 1 << 30;

} // namespace

/// How much of a chunk is on the line.
struct guiLineBreaker::progress
{
    guiTextPlace place;
    std::int64_t advance = 0; // 1/64 pixel, from the first unit on the line
};

guiLineBreaker::guiLineBreaker(guiTextRun const& run, QStringView text, int width)
    : m_run(run), m_text(text), m_boxWidth(width)
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

// Takes the characters of a word that fit into the rest of the line.
void guiLineBreaker::cutWord(progress& at, guiTextWord const& word) const
{
    if (word.flags & guiTextWord::kSingle)
        return;
    QStringView const text = m_text.mid(at.place.unit - at.place.offset, word.units);
    std::uint32_t offset = 0;
    for (guiTextWord const& character : m_run.chunks()[at.place.chunk].font->characters(text)) {
        offset += character.units;
        if (offset <= at.place.offset)
            continue;
        if (!fits(at.advance + character.advance))
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

// Takes blanks up to the next word; false at the first one that does not fit. `lastBlank` is the position before the
// last blank.
bool guiLineBreaker::takeBlanks(progress& at, guiTextWord const& word, std::optional<progress>& lastBlank) const
{
    bool const isOther = word.units == 0 && word.advance;
    int const blank = isOther ? word.advance : m_run.chunks()[at.place.chunk].font->blankAdvance();
    for (unsigned left = word.units + word.blanks - at.place.offset; left > 0; --left) {
        lastBlank = at;
        at.advance += blank;
        if (!fits(at.advance))
            return false;
        ++at.place.offset;
        ++at.place.unit;
    }
    return true;
}

bool guiLineBreaker::fitChunk()
{
    guiTextChunk const& chunk = m_run.chunks()[m_place.chunk];
    int const indent = m_pieces.empty() ? chunk.indent : 0;
    m_room = static_cast<int>(std::max<std::int64_t>(std::int64_t{m_boxWidth} - m_width - indent, -1));
    std::uint32_t const end = m_run.wordsEnd(m_place.chunk);
    progress const from{m_place, 0};
    progress at = from;
    std::optional<progress> lastBlank;
    for (; at.place.word < end; ++at.place.word, at.place.offset = 0) {
        guiTextWord const& word = m_run.words()[at.place.word];
        if (takeWord(at, word) && takeBlanks(at, word, lastBlank))
            continue;
        if (lastBlank) {
            endAt(from, *lastBlank);
        } else if (m_pieces.empty()) {
            cutWord(at, word);
            endAt(from, at);
        }
        return false;
    }
    endAt(from, at);
    return true;
}

// Adds the text between the two positions to the line; no text leaves the line as it is.
void guiLineBreaker::endAt(progress const& from, progress const& to)
{
    assert(to.place.unit >= from.place.unit && to.place.unit <= m_text.size());
    if (to.place.unit == from.place.unit)
        return;
    guiTextChunk const& chunk = m_run.chunks()[from.place.chunk];
    guiTextPiece piece;
    piece.chunk = from.place.chunk;
    piece.start = from.place.unit;
    piece.length = to.place.unit - from.place.unit;
    piece.left = m_width + (m_pieces.empty() ? chunk.indent : 0);
    piece.width = static_cast<int>(std::min(guiTextPixels(to.advance), kMaxLine - piece.left));
    assert(piece.left >= m_width && piece.width >= 0);
    m_pieces.push_back(piece);
    m_width = piece.left + piece.width;
    m_height = std::max(m_height, chunk.font->lineSpacing());
    m_descent = std::max(m_descent, chunk.font->descent());
    m_place = to.place;
}
