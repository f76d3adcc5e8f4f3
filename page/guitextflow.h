// page/guitextflow.h: the runs of text of a page in the order in which they are read, and what stands between them.
#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

class guiHtml;
class guiHtmlText;

/// What separates a run from the one before it.
struct guiFlowGap
{
    bool hasParagraph = false; ///< a paragraph ends there
    bool hasLine = false;      ///< a line ends there, or the row of a table
    bool hasObject = false;    ///< a picture or a control stands there
    unsigned cells = 0;        ///< how many cells further to the right, in the same row
};

/// Valid while no node is made or destroyed anywhere: see isCurrent(). GUI thread.
class guiTextFlow
{
public:
    enum class scope
    {
        kSelectable, ///< what is seen now, without what is in an element with `noselect`
        kAll,        ///< what is put away, too
    };

    struct entry
    {
        guiHtmlText* node = nullptr; ///< not owned
        guiFlowGap gap;
    };

    /// Runs that show nothing are left out.
    guiTextFlow(guiHtml* page, scope which);

    bool isCurrent() const;
    std::size_t size() const { return m_entries.size(); }
    entry const& operator[](std::size_t i) const { return m_entries[i]; }
    /// None for a run that is not in it.
    std::optional<std::size_t> indexOf(guiHtmlText const* node) const;

private:
    void add(guiHtml* parent, scope which, guiFlowGap& gap);

    std::vector<entry> m_entries;
    std::unordered_map<guiHtmlText const*, std::size_t> m_index;
    unsigned long m_generation;
};

/// Whether the user may select what the element itself holds: it has no `noselect`.
bool guiMaySelectIn(guiHtml const* node);
/// Whether the run shows anything but blanks.
bool guiShowsText(guiHtmlText& run);
