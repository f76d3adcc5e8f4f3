// controls/guilistsource.cpp: see guilistsource.h.
#include "controls/guilistsource.h"

#include <algorithm>
#include <utility>

guiListSource::guiListSource(unsigned count, std::function<void(unsigned, unsigned)> ask)
    : m_count(std::min(count, kMaxRows)), m_ask(std::move(ask))
{}

void guiListSource::ask(unsigned pageNumber)
{
    if (m_pages.contains(pageNumber) || m_asked.contains(pageNumber))
        return;
    if (m_asked.size() >= kMaxAsked)
        m_asked.clear(); // what comes of them later is taken all the same
    m_asked.insert(pageNumber);
    unsigned const first = pageNumber * kPageRows;
    m_ask(first, std::min(kPageRows, m_count - first));
}

void guiListSource::want(unsigned first, unsigned end)
{
    if (m_count == 0 || first >= end)
        return;
    unsigned const last = std::min(end, m_count) - 1;
    ++m_uses;
    for (unsigned number = first / kPageRows; number <= last / kPageRows; ++number) {
        ask(number);
        if (auto const found = m_pages.find(number); found != m_pages.end())
            found->second.lastUse = m_uses;
    }
}

void guiListSource::dropOldest()
{
    auto isOlder = [](auto const& a, auto const& b) { return a.second.lastUse < b.second.lastUse; };
    while (m_pages.size() > kMaxPages)
        m_pages.erase(std::min_element(m_pages.begin(), m_pages.end(), isOlder));
}

void guiListSource::give(unsigned first, std::shared_ptr<guiPackedRows const> rows)
{
    if (first >= m_count || first % kPageRows != 0)
        return;
    m_asked.erase(first / kPageRows);
    m_texts = std::max(m_texts, rows ? rows->textCount() : 0);
    m_pages[first / kPageRows] = {std::move(rows), m_uses};
    dropOldest();
}

guiPackedRows const* guiListSource::pageOf(guiRowNumber row) const
{
    auto const found = m_pages.find(row / kPageRows);
    guiPackedRows const* const rows = found == m_pages.end() ? nullptr : found->second.rows.get();
    return rows && row % kPageRows < rows->count() ? rows : nullptr;
}

QStringView guiListSource::text(guiRowNumber row, unsigned column) const
{
    guiPackedRows const* const rows = pageOf(row);
    return rows && column < rows->textCount() ? rows->text(row % kPageRows, column) : QStringView();
}

QStringView guiListSource::icon(guiRowNumber row) const
{
    guiPackedRows const* const rows = pageOf(row);
    return rows ? rows->icon(row % kPageRows) : QStringView();
}

QStringView guiListSource::look(guiRowNumber row) const
{
    guiPackedRows const* const rows = pageOf(row);
    return rows ? rows->look(row % kPageRows) : QStringView();
}

bool guiListSource::isEnabled(guiRowNumber row) const
{
    guiPackedRows const* const rows = pageOf(row);
    return !rows || !rows->state(row % kPageRows).isDisabled;
}

QString guiListSource::value(guiRowNumber row) const
{
    guiPackedRows const* const rows = pageOf(row);
    QStringView const value = rows ? rows->value(row % kPageRows) : QStringView();
    return value.isEmpty() ? QString::number(row) : value.toString();
}

guiRowNumber guiListSource::find(QStringView value) const
{
    guiRowNumber found = kNoRow;
    for (auto const& [number, kept] : m_pages)
        for (unsigned i = 0; kept.rows && i < kept.rows->count() && i < kPageRows; ++i)
            if (guiRowNumber const row = number * kPageRows + i;
                row < found && guiIsSameValue(kept.rows->value(i), value))
                found = row;
    return found;
}
