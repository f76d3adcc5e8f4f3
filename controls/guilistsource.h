// controls/guilistsource.h: the rows of a list that script gives on demand: pages of them near what is in view are
// kept, the others are asked for when they come into view.
#pragma once

#include "controls/guilistrows.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>

/// Rows are numbered from 0 and lie at the top level. GUI thread.
class guiListSource
{
public:
    static constexpr unsigned kPageRows = 200;
    /// How many pages are kept: some of each side of what is in view, and what was in view lately.
    static constexpr std::size_t kMaxPages = 64;
    /// How many pages may be on their way; who scrolls on does not wait for those that were passed.
    static constexpr std::size_t kMaxAsked = 16;
    /// The page language's lists have no more rows than that, so that places in pixels are numbers of 32 bits.
    static constexpr unsigned kMaxRows = 100000000;

    /// `ask` has script give rows, without waiting for it; give() is then to be called.
    guiListSource(unsigned count, std::function<void(unsigned first, unsigned count)> ask);

    unsigned count() const { return m_count; }
    /// Rows from `first` on have come: fewer than were asked for, or none, leave the others empty.
    void give(unsigned first, std::shared_ptr<guiPackedRows const> rows);
    /// These rows are in view: asks for those that are not known.
    void want(unsigned first, unsigned end);

    bool isKnown(guiRowNumber row) const { return m_pages.contains(row / kPageRows); }
    /// "" for a row that is not known. Valid until the next page comes.
    QStringView text(guiRowNumber row, unsigned column) const;
    QStringView icon(guiRowNumber row) const;
    QStringView look(guiRowNumber row) const;
    bool isEnabled(guiRowNumber row) const;
    /// A row that is not known, or has no value, has its number as such.
    QString value(guiRowNumber row) const;
    /// Among the rows that are known; kNoRow when none has this value.
    guiRowNumber find(QStringView value) const;
    /// How many texts a row has, of those that have come.
    unsigned textCount() const { return m_texts; }

private:
    struct page
    {
        std::shared_ptr<guiPackedRows const> rows; // null: script could not give them
        unsigned long long lastUse = 0;
    };

    guiPackedRows const* pageOf(guiRowNumber row) const;
    void ask(unsigned pageNumber);
    void dropOldest();

    unsigned m_count;
    std::function<void(unsigned, unsigned)> m_ask;
    std::unordered_map<unsigned, page> m_pages;
    std::unordered_set<unsigned> m_asked;
    unsigned long long m_uses = 0;
    unsigned m_texts = 0;
};
