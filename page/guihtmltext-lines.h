// page/guihtmltext-lines.h: breaks a prepared run (guihtmltext-shape.h) into lines of a given width. Measuring,
// painting and recording links all use these lines, so that drawn text fits the measured size.
#pragma once

#include "page/guihtmltext-shape.h"

#include <cstdint>
#include <optional>
#include <vector>

/// A part of a chunk on one line, all of it written in one direction. A run may have millions of pieces.
struct guiTextPiece
{
    std::uint32_t chunk = 0;
    std::uint32_t start : 31 = 0; ///< first unit in the run's text
    std::uint32_t isFromTheRight : 1 = 0;
    std::uint32_t length : 30 = 0;
    std::uint32_t isHyphenated : 1 = 0; ///< ends in a soft hyphen that is shown
    std::uint32_t isPartOfTurn : 1 = 0; ///< its run is not written from left to right as a whole
    int left = 0;                       ///< pixels from the line's left end
    int width = 0;

    std::uint32_t end() const { return start + length; }
};

/// A position in a run: `offset` units from the start of a word, which the blanks after it belong to.
struct guiTextPlace
{
    std::uint32_t chunk = 0;
    std::uint32_t word = 0;
    std::uint32_t offset = 0;
    std::uint32_t unit = 0;   ///< the same position in the run's text
    std::uint32_t breaks = 0; ///< how many of the breaks before the chunk have ended a line
};

/// Finds the lines of a run one by one. The run and its text (not owned) must outlive it. GUI thread.
class guiLineBreaker
{
public:
    /// `width`: pixels; 0 or less leaves no room for anything.
    guiLineBreaker(guiTextRun const& run, QStringView text, int width);

    /// Finds the next line. False at the end of the run, and when not even one character fits.
    bool next();

    /// The present line: its pieces from left to right, its size in pixels, and its largest descent.
    std::vector<guiTextPiece> const& pieces() const { return m_pieces; }
    /// Its first unit and the one behind its last, wherever these stand. A line without pieces has none.
    std::uint32_t from() const { return m_from; }
    std::uint32_t to() const { return m_to; }
    int width() const { return m_width; }
    int height() const { return m_height; }
    int descent() const { return m_descent; }

private:
    struct progress;

    /// Gathers the pieces of the next line in the order of the text.
    bool findLine();
    void setOrder();
    bool takeBreak();
    void skipBlanks();
    bool atChunkEnd() const;
    void enterChunk();
    /// Puts as much of the rest of the chunk on the line as fits; whether that is all of it.
    bool fitChunk();
    void endAt(progress const& from, progress const& to);
    void endInWord(progress const& from, progress const& at);
    void addPiece(progress const& from, progress const& to, int left);
    void addPiecesByLevel(progress const& from, progress const& to, int left);
    bool splitsAt(guiTextPlace const& start, guiTextPlace const& at) const;
    bool isBlank(guiTextPiece const& piece) const;
    std::vector<std::uint8_t> levelsOfPieces() const;
    void skipTo(progress& at, std::uint32_t end) const;
    bool mayEndBefore(guiTextPlace const& at, guiTextPlace const& from) const;
    void keepPlace(progress const& at, std::optional<progress>& last) const;
    bool takeWord(progress& at, guiTextWord const& word) const;
    bool takeBlanks(progress& at, guiTextWord const& word, std::optional<progress>& last) const;
    void cutWord(progress& at, guiTextWord const& word, std::uint32_t end) const;
    int blankAdvance(std::uint32_t chunk, guiTextWord const& word) const;
    std::int64_t restOfWord(guiTextPlace const& place, guiTextWord const& word) const;
    bool fits(std::int64_t advance) const { return guiTextPixels(advance) <= m_room; }

    guiTextRun const& m_run;
    bool m_turns;          // it has levels
    bool m_hasInnerBreaks; // of its words
    QStringView m_text;
    int m_boxWidth;
    guiTextPlace m_place;
    int m_room = 0; // pixels left on the line
    std::vector<guiTextPiece> m_pieces;
    int m_width = 0;
    int m_height = 0;
    int m_descent = 0;
    std::uint32_t m_from = 0;
    std::uint32_t m_to = 0;
};
