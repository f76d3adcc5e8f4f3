// page/guitextselection.h: the text that the user has selected on a page, from one place to another in the order of
// reading.
#pragma once

#include "page/guinodewatch.h"
#include "page/guitextflow.h"
#include "page/guitextmarks.h"
#include "page/guitextspot.h"

#include <QString>

#include <optional>

class guiPageRoot;

/// Nothing is kept in the nodes: when one of the two runs in which the selection ends is gone, so is the selection. GUI
/// thread.
class guiTextSelection
{
public:
    /// By what the selection grows.
    enum class step
    {
        kCharacter,
        kWord,
        kParagraph,
    };

    /// The page, not owned, outlives it.
    explicit guiTextSelection(guiPageRoot& page) : m_page(page) {}

    /// Whether no character is selected.
    bool isEmpty();
    /// Forgets the place where it starts, too.
    void clear();
    /// A click: what was selected is not any more, and the selection starts here, with the word or the paragraph around
    /// the place.
    void start(guiTextSpot spot, step by = step::kCharacter);
    /// Whether there is a place where it starts.
    bool hasStart();
    /// The other end goes there. Without a start it starts there.
    void extendTo(guiTextSpot spot);
    /// Where it starts, and the end that extendTo() moves; no places without a start.
    guiTextSpot starting();
    guiTextSpot moving();
    void select(guiTextSpot from, guiTextSpot to);
    void selectAll();

    /// Where the end would be after a step of one character or word. No place beyond the first or last.
    guiTextSpot stepped(bool forward, step by);

    /// The same for a line up or down: above or below in the paragraph, or in the nearest one above or below.
    guiTextSpot lineStepped(bool down);

    /// Lines, paragraphs with an empty line between them, cells with a tab between them.
    QString text();
    /// The same as markup with the bold, italic, underlined, struck and marked parts and the links.
    QString html();

    /// What is to be seen of it in a part of a run.
    void addMarks(guiHtmlText& run, unsigned from, unsigned to, guiTextMarks& marks);

private:
    /// A place that knows whether its run still lives.
    struct end
    {
        explicit end(guiTextSpot spot);
        guiNodeWatch run;
        unsigned unit;
    };
    /// In the flow: which run, and which unit of it.
    struct position
    {
        std::size_t run;
        unsigned unit;
        bool operator==(position const&) const = default;
        bool operator<(position const& other) const
        {
            return run < other.run || (run == other.run && unit < other.unit);
        }
    };
    struct range
    {
        position from;
        position to;
    };

    bool isAlive() const;
    guiTextFlow const& flow();
    std::optional<position> positionOf(guiTextSpot spot);
    std::optional<position> positionOf(std::optional<end> const& which);
    std::optional<range> selected();
    int nextLine(std::size_t run, QRect const& caret, bool down);
    void learnRange();
    void repaint(std::optional<range> const& before);
    void repaintRuns(std::size_t first, std::size_t last);

    guiPageRoot& m_page;
    std::optional<guiTextFlow> m_flow;
    step m_step = step::kCharacter;
    std::optional<end> m_first; // where the start begins: of a word its first character
    std::optional<end> m_last;  // where the start ends
    std::optional<end> m_moving;
    guiMarking m_marking;
};

/// The units around a place that belong to one word; those of a blank or a mark between words.
guiLineUnits guiWordAround(guiTextSpot const& spot);
