// page/guitextsearch.h: finds a text on a page, all the places where it stands, and goes from one to the next.
#pragma once

#include "page/guitextflow.h"
#include "page/guitextmarks.h"
#include "page/guitextspot.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

class guiPageRoot;

/// Formatting does not matter, and neither does the case of letters unless it is asked for; a text is found inside of
/// one paragraph. What is put away on the page is found, too. Searching takes time in proportion to the page. GUI
/// thread.
class guiTextSearch
{
public:
    /// A place where the text was found.
    struct hit
    {
        guiTextSpot from;
        guiTextSpot to;
    };

    /// The page, not owned, outlives it.
    explicit guiTextSearch(guiPageRoot& page) : m_page(page) {}

    /// Looks for the text and marks all places where it stands; how many there are. None is the current one. An empty
    /// text is nowhere.
    std::size_t find(QString const& text, bool matchCase);
    /// The first one at or behind the place becomes the current one, or the first of all.
    void startAt(guiTextSpot const& spot);
    /// The next or previous one becomes the current one; behind the last comes the first.
    void goOn(bool forward);
    /// Nothing is marked any more.
    void clear();

    QString const& text() const { return m_text; }
    bool matchesCase() const { return m_matchCase; }
    /// Looks again, if the page has changed.
    std::size_t count();
    std::optional<std::size_t> current() const { return m_current; }
    /// The current one. Valid while no node is made or destroyed.
    std::optional<hit> currentHit();

    /// What is to be seen of it in a part of a run.
    void addMarks(guiHtmlText& run, unsigned from, unsigned to, guiTextMarks& marks);

private:
    struct place
    {
        std::uint32_t run = 0; // in the flow
        unsigned from = 0;
        unsigned to = 0;
    };

    void look();
    void refresh();
    void update();

    guiPageRoot& m_page;
    QString m_text;
    bool m_matchCase = false;
    std::optional<guiTextFlow> m_flow;
    std::vector<place> m_places; // in order
    std::optional<std::size_t> m_current;
    guiMarking m_marking;
};
