// controls/guilistorder.cpp: see guilistorder.h. Nested rows are walked without recursion.
#include "controls/guilistorder.h"

#include <cassert>

void guiListOrder::show(guiListRows const* rows, int count)
{
    m_rows = rows;
    m_count = count;
    invalidate();
}

void guiListOrder::work()
{
    if (m_isKnown)
        return;
    m_isKnown = true;
    m_order.clear();
    m_places.assign(m_rows->size(), -1);
    guiListRows::rowList open(m_rows->under(kNoRow).rbegin(), m_rows->under(kNoRow).rend());
    while (!open.empty()) {
        guiRowNumber const row = open.back();
        open.pop_back();
        m_places[row] = static_cast<int>(m_order.size());
        m_order.push_back(row);
        if (!m_rows->isExpanded(row) || !m_rows->hasRowsUnder(row))
            continue;
        guiListRows::rowList const& under = m_rows->under(row);
        open.insert(open.end(), under.rbegin(), under.rend());
    }
}

int guiListOrder::count()
{
    if (!m_rows)
        return m_count;
    if (isFlat())
        return static_cast<int>(m_rows->under(kNoRow).size());
    work();
    return static_cast<int>(m_order.size());
}

guiRowNumber guiListOrder::at(int place)
{
    assert(place >= 0 && place < count());
    auto const at = static_cast<std::size_t>(place);
    if (!m_rows)
        return static_cast<guiRowNumber>(place);
    if (isFlat())
        return m_rows->under(kNoRow)[at];
    work();
    return m_order[at];
}

int guiListOrder::placeOf(guiRowNumber row)
{
    if (!m_rows)
        return static_cast<int>(row);
    if (isFlat())
        return m_rows->placeOf(row);
    work();
    return m_places[row];
}
