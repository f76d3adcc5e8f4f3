// controls/guilistorder.h: the rows of a list from top to bottom, without those that lie under a collapsed one.
#pragma once

#include "controls/guilistrows.h"

/// In a list without nested rows the order is that of the rows; else it is worked out when it is asked for after a
/// change. GUI thread.
class guiListOrder
{
public:
    /// The rows, which are not owned. Null: there are `count` rows, numbered from 0.
    void show(guiListRows const* rows, int count = 0);
    /// Rows were added, removed, moved, expanded or collapsed.
    void invalidate() { m_isKnown = false; }

    int count();
    /// The row at a place from 0 to count() - 1.
    guiRowNumber at(int place);
    /// Where a row is, -1 when it lies under a collapsed one.
    int placeOf(guiRowNumber row);

private:
    bool isFlat() const { return !m_rows->isNested(); }
    void work();

    guiListRows const* m_rows = nullptr;
    int m_count = 0;
    bool m_isKnown = false;
    guiListRows::rowList m_order;
    std::vector<int> m_places; // by number
};
