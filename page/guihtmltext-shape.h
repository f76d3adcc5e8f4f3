// page/guihtmltext-shape.h: a run of text made ready for breaking: cut into stretches of one formatting and these into
// measured words. Made once for a text and a font; guihtmltext-lines.h breaks it at any width without asking a font
// again.
#pragma once

#include "page/guihtmltext-fonts.h"
#include "page/guitypes.h"

#include <QStringView>

#include <cstdint>
#include <memory>
#include <span>

/// Where the colour of a stretch comes from; all but an explicit one are known only when it is drawn.
enum class guiTextInk : std::uint8_t
{
    Text,
    Link,
    Explicit,
};

/// Text of one formatting between two codes.
struct guiTextChunk
{
    static constexpr std::uint32_t kNoLink = 0xFFFFFFFF;

    std::uint32_t start = 0;                ///< first unit in the run's text
    std::uint32_t firstWord = 0;            ///< its words reach up to the next chunk's first
    std::uint32_t link = kNoLink;           ///< position of the "[[a" code that it belongs to
    std::uint16_t indent = 0;               ///< pixels, for lines that start here
    std::uint16_t breaks = 0;               ///< lines that end before the chunk because of codes
    guiTextFont* font = nullptr;            ///< not owned
    guiPackedColor color = guiColor::Black; ///< of Explicit ink
    guiTextInk ink = guiTextInk::Text;
    bool underline = false;
};

/// Whether a unit is white space at which a line may end. No-break spaces are none.
constexpr bool guiIsBlank(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }

/// The stretches and words of one text, in one piece of memory. Valid for that text only, and until the fonts are
/// forgotten.
class guiTextRun
{
public:
    /// Of no text.
    guiTextRun() = default;
    /// `font` and `points` are the run's default font and its size; `normalize` sizes faces that codes name by the
    /// table of findFontHeight().
    guiTextRun(QStringView text, guiTextFont& font, int points, bool normalize);

    std::span<guiTextChunk const> chunks() const
    {
        return m_block ? std::span(chunksOf(m_block.get()), m_block->chunks) : std::span<guiTextChunk const>();
    }
    std::span<guiTextWord const> words() const
    {
        return m_block ? std::span(wordsOf(m_block.get()), m_block->words) : std::span<guiTextWord const>();
    }
    /// First word behind a chunk.
    std::uint32_t wordsEnd(std::size_t chunk) const
    {
        return chunk + 1 < m_block->chunks ? chunksOf(m_block.get())[chunk + 1].firstWord : m_block->words;
    }
    bool hasLinks() const { return m_block && m_block->hasLinks; }

private:
    class builder;

    /// What stands before the chunks, which stand before the words.
    struct block
    {
        std::uint32_t chunks;
        std::uint32_t words : 31;
        std::uint32_t hasLinks : 1;
    };
    struct release
    {
        void operator()(block* at) const;
    };

    static guiTextChunk* chunksOf(block* at) { return reinterpret_cast<guiTextChunk*>(at + 1); }
    static guiTextWord* wordsOf(block* at) { return reinterpret_cast<guiTextWord*>(chunksOf(at) + at->chunks); }

    std::unique_ptr<block, release> m_block;
};
