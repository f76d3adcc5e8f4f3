// page/guihtmltext-shape.h: prepares a run of text for line breaking: splits it into chunks of one formatting, and
// these into measured words. Done once for a text and a font; guihtmltext-lines.h breaks the result at any width
// without measuring again.
#pragma once

#include "page/guihtmltext-fonts.h"
#include "page/guihtmltext-levels.h"
#include "page/guitypes.h"

#include <QStringView>

#include <cassert>
#include <cstdint>
#include <memory>
#include <span>

/// Where the colour of a chunk comes from. Text and link colours are known only when it is drawn.
enum class guiTextInk : std::uint8_t
{
    kText,
    kLink,
    kExplicit,
};

/// Text of one formatting between two codes.
struct guiTextChunk
{
    static constexpr std::uint32_t kNoLink = 0xFFFFFFFF;

    std::uint32_t start = 0;                ///< first unit in the run's text
    std::uint32_t firstWord = 0;            ///< its words end at the first word of the next chunk
    std::uint32_t link = kNoLink;           ///< position of the "[[a" or "[[l" code that it belongs to
    std::uint16_t indent = 0;               ///< of lines that start in it, pixels
    std::uint16_t breaks = 0;               ///< number of line break codes before it
    guiTextFont* font = nullptr;            ///< not owned
    guiPackedColor color = guiColor::Black; ///< when `ink` is kExplicit
    guiTextInk ink = guiTextInk::kText;
    bool underline = false;
    bool strike = false;
    bool marked = false;
    bool isLabel = false; ///< `link` is a label's, which looks like other text
};

/// Whether a unit is white space at which a line may end. A no-break space is not.
constexpr bool guiIsBlank(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

/// The chunks and words of one text, in one block of memory. Valid for that text only, and until guiTextFonts::clear().
/// GUI thread.
class guiTextRun
{
public:
    /// A run without text.
    guiTextRun() = default;
    /// `font` (not owned) and `points` are the default font and its size. With `normalize`, faces named by codes get
    /// the size of findFontHeight(). `scale` has been applied to the default font.
    /// `direction`: in which its paragraphs are read.
    guiTextRun(QStringView text, guiTextFont& font, int points, bool normalize, guiTextScale scale = {},
               guiDirection direction = guiDirection::kByText);

    std::span<guiTextChunk const> chunks() const
    {
        return m_block ? std::span(chunksOf(m_block.get()), m_block->chunks) : std::span<guiTextChunk const>();
    }
    std::span<guiTextWord const> words() const
    {
        return m_block ? std::span(wordsOf(m_block.get()), m_block->words) : std::span<guiTextWord const>();
    }
    /// One past the last word of a chunk.
    std::uint32_t wordsEnd(std::size_t chunk) const
    {
        assert(m_block && chunk < m_block->chunks);
        return chunk + 1 < m_block->chunks ? chunksOf(m_block.get())[chunk + 1].firstWord : m_block->words;
    }
    bool hasLinks() const { return m_block && m_block->hasLinks; }
    /// Whether lines may end inside of words: before each entry that is not glued, also where no blank stands.
    bool hasInnerBreaks() const { return m_block && m_block->hasInnerBreaks; }
    /// For each unit of the text how it is written; empty when all of it is written from left to right. The letters of
    /// a word have one level.
    std::span<guiTextLevel const> levels() const
    {
        return m_block ? std::span(levelsOf(m_block.get()), m_block->levels) : std::span<guiTextLevel const>();
    }

private:
    class builder;

    /// The header of the memory block; the chunks follow it, then the words, then the levels.
    struct block
    {
        std::uint32_t chunks;
        std::uint32_t words : 30;
        std::uint32_t hasLinks : 1;
        std::uint32_t hasInnerBreaks : 1;
        std::uint32_t levels;
        std::uint32_t unused; // what follows is aligned to eight bytes
    };
    struct release
    {
        void operator()(block* at) const;
    };

    static guiTextChunk* chunksOf(block* at) { return reinterpret_cast<guiTextChunk*>(at + 1); }
    static guiTextWord* wordsOf(block* at) { return reinterpret_cast<guiTextWord*>(chunksOf(at) + at->chunks); }
    static guiTextLevel* levelsOf(block* at) { return reinterpret_cast<guiTextLevel*>(wordsOf(at) + at->words); }

    std::unique_ptr<block, release> m_block;
};
