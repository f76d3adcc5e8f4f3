// controls/guihtmlcontrolflex-rows.cpp: the rows of a flex list. They are the node's, and its widget shows them; only
// the selection is the widget's own as long as there is one.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "foundation/vela-log.h"
#include "foundation/vela-qt.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace {

static_assert(int{kFlexPlain} == kRowPlain && int{kFlexCheckBox} == kRowCheckBox && int{kFlexRadio} == kRowRadio,
              "an entry's type is the indicator of its row");

void setCell(std::vector<QString>& cells, int column, sstring const& text)
{
    auto const at = static_cast<std::size_t>(column);
    if (at > cells.size())
        cells.resize(at);
    cells[at - 1] = sstoq(text);
}

guiRowTexts textsOf(guiHtmlControlFlexEntry const& entry)
{
    guiRowTexts texts;
    texts.value = sstoq(entry.value);
    texts.parent = sstoq(entry.parent);
    texts.icon = sstoq(entry.icon);
    texts.look = entry.look;
    guiForEachColumn(entry.text, entry.uncoded,
                     [&](int column, sstring const& text, bool) { setCell(texts.cells, column, text); });
    return texts;
}

} // namespace

// ---- Rows as entries ----

guiRowNumber guiHtmlControlFlex::rowOf(sstring const& value) const { return m_rows.find(sstoview(value)); }

void guiHtmlControlFlex::readEntryTexts(guiHtmlControlFlexEntry& entry, guiRowNumber row) const
{
    entry.text = sstring();
    entry.uncoded.clear();
    for (unsigned i = 0; i < m_rows.textCount(row); ++i) {
        int const column = static_cast<int>(i) + 1;
        sstring const cell = qtoss(m_rows.text(row, i).toString());
        if (guiContainsColumnCode(cell))
            entry.uncoded.add(column, cell);
        else if (column == 1)
            entry.text = cell;
        else if (cell.getLength())
            guiAddColumnText(entry.text, column, cell);
    }
    entry.uncoded.at = entry.text.getLength();
}

guiHtmlControlFlexEntry* guiHtmlControlFlex::entryOf(guiRowNumber row)
{
    if (row == kNoRow)
        return nullptr;
    auto& entry = m_entries[row];
    if (!entry)
        entry = std::make_unique<guiHtmlControlFlexEntry>();
    entry->value = qtoss(m_rows.value(row).toString());
    entry->parent = qtoss(m_rows.parent(row).toString());
    entry->icon = qtoss(m_rows.icon(row).toString());
    entry->look = m_rows.look(row).toString();
    entry->entryType = static_cast<guiHtmlControlFlexEntryType>(m_rows.indicator(row));
    readEntryTexts(*entry, row);
    entry->checked = m_rows.isChecked(row);
    entry->selected = isRowSelected(row);
    entry->enabled = m_rows.isEnabled(row);
    entry->expanded = m_rows.isExpanded(row);
    entry->item = m_listView ? m_listView->itemOf(row) : nullptr;
    return entry.get();
}

guiHtmlControlFlexEntry* guiHtmlControlFlex::findItem(istring const& value) { return entryOf(rowOf(value)); }

guiHtmlControlFlexEntry const* guiHtmlControlFlex::getItem(unsigned i) { return m_rows.has(i) ? entryOf(i) : nullptr; }

// ---- The widget ----

void guiHtmlControlFlex::showRows()
{
    assert(m_listView && !m_listView->owner);
    m_listView->listModel().show(m_rows);
    if (m_source)
        m_listView->listModel().showSource(m_source);
    if (m_rows.isNested())
        m_listView->setRootIsDecorated(true);
    for (guiRowNumber const row : m_rows.selected)
        m_listView->select(row, true);
    m_rows.selected.clear();
}

/// What the user and script have done to the widget is kept for the next one.
void guiHtmlControlFlex::saveStates()
{
    saveColumns();
    m_rows.selected = m_listView->selectedRows();
    for (auto const& [row, entry] : m_entries)
        entry->item = nullptr;
}

bool guiHtmlControlFlex::isRowSelected(guiRowNumber row) const
{
    return m_listView ? m_listView->isSelected(row) : m_rows.selected.contains(row);
}

std::set<guiRowNumber> guiHtmlControlFlex::selectedRows() const
{
    return m_listView ? m_listView->selectedRows() : m_rows.selected;
}

bool guiHtmlControlFlex::isRowEnabled(guiRowNumber row) const
{
    return m_source ? m_source->isEnabled(row) : m_rows.isEnabled(row);
}

QString guiHtmlControlFlex::rowValue(guiRowNumber row) const
{
    return m_source ? m_source->value(row) : m_rows.value(row).toString();
}

guiRowNumber guiHtmlControlFlex::firstSelected() const
{
    if (m_source && m_listView)
        return m_listView->firstSelected();
    std::set<guiRowNumber> const selected = selectedRows();
    return selected.empty() ? kNoRow : *selected.begin();
}

// ---- What script asks and sets ----

int guiHtmlControlFlex::isItemChecked(sstring const& value)
{
    guiRowNumber const row = rowOf(value);
    return row != kNoRow && m_rows.isChecked(row);
}

int guiHtmlControlFlex::isItemSelected(sstring const& value)
{
    guiRowNumber const row = m_source ? m_source->find(sstoview(value)) : rowOf(value);
    return row != kNoRow && isRowSelected(row);
}

int guiHtmlControlFlex::isItemEnabled(sstring const& value)
{
    guiRowNumber const row = rowOf(value);
    return row != kNoRow && m_rows.isEnabled(row);
}

int guiHtmlControlFlex::isItemExpanded(sstring const& value)
{
    guiRowNumber const row = rowOf(value);
    return row != kNoRow && m_rows.isExpanded(row);
}

void guiHtmlControlFlex::setItemChecked(sstring const& value, int on)
{
    assertOnGuiThread();
    guiRowNumber const row = rowOf(value);
    if (row == kNoRow || m_rows.indicator(row) == kRowPlain)
        return;
    if (!m_listView)
        return m_rows.setChecked(row, on > 0);
    guiNoticeHold hold(m_listView);
    m_listView->setChecked(row, on > 0);
}

void guiHtmlControlFlex::setItemSelected(sstring const& value, int on)
{
    assertOnGuiThread();
    guiRowNumber const row = m_source ? m_source->find(sstoview(value)) : rowOf(value);
    if (row == kNoRow || (on > 0 && !isRowEnabled(row)))
        return;
    if (m_listView)
        return m_listView->select(row, on > 0);
    if (on > 0 && !m_list.multiple)
        clearSelection();
    if (on > 0)
        m_rows.selected.insert(row);
    else
        m_rows.selected.erase(row);
}

void guiHtmlControlFlex::clearSelection()
{
    if (m_listView)
        m_listView->clearSelection();
    else
        m_rows.selected.clear();
}

void guiHtmlControlFlex::setItemEnabled(sstring const& value, int on)
{
    assertOnGuiThread();
    guiRowNumber const row = rowOf(value);
    if (row == kNoRow)
        return;
    if (m_listView)
        m_listView->setEnabledRow(row, on > 0);
    else
        m_rows.setEnabled(row, on > 0);
}

void guiHtmlControlFlex::setItemExpanded(sstring const& value, int on)
{
    assertOnGuiThread();
    guiRowNumber const row = rowOf(value);
    if (row == kNoRow)
        return;
    if (m_listView)
        m_listView->setExpanded(row, on > 0);
    else
        m_rows.setExpanded(row, on > 0);
}

// ---- Adding and removing ----

/// The row that one under `above` lies under, which is higher up when that is nested too deeply. kNoRow: the top level.
guiRowNumber guiHtmlControlFlex::liftToLimit(guiRowNumber above)
{
    guiRowNumber const possible = m_rows.lifted(above, kMaxNesting);
    if (possible != above)
        warnOfDepth();
    return possible;
}

void guiHtmlControlFlex::warnOfDepth()
{
    if (!std::exchange(m_warnedOfDepth, true))
        velaLog("guiHtmlControlFlex::createRow() - rows nested deeper than %u levels are flattened (warning)\n",
                kMaxNesting);
}

guiRowNumber guiHtmlControlFlex::addRow(guiHtmlControlFlexEntry const& entry)
{
    guiRowNumber const above = liftToLimit(entry.parent.getLength() ? rowOf(entry.parent) : kNoRow);
    auto const indicator = static_cast<guiRowIndicator>(entry.entryType);
    guiRowTexts texts = textsOf(entry);
    guiRowNumber const row = m_listView ? m_listView->listModel().addRow(std::move(texts), indicator, above)
                                        : m_rows.add(std::move(texts), indicator, above);
    noteLongest(row);
    return row;
}

void guiHtmlControlFlex::appendEntry(guiHtmlControlFlexEntry const& entry)
{
    assert(!m_listView && !entry.item);
    guiHtmlControlFlexEntry added = entry;
    if (added.text.getLength() == 0)
        added.text = added.value;
    added.uncoded.at = added.text.getLength();
    guiRowNumber const row = addRow(added);
    m_rows.setChecked(row, added.checked > 0 && added.entryType != kFlexPlain);
    m_rows.setEnabled(row, added.enabled > 0);
    m_rows.setExpanded(row, added.expanded > 0);
    if (added.selected > 0)
        m_rows.selected.insert(row);
}

void guiHtmlControlFlex::addItem(sstring const& value, sstring const& text, sstring const& parent,
                                 guiHtmlControlFlexEntryType entryType)
{
    assertOnGuiThread();
    if (m_source)
        return;
    guiHtmlControlFlexEntry entry;
    entry.value = value;
    entry.text = text.getLength() ? text : value;
    entry.parent = parent;
    entry.entryType = entryType;
    guiRowNumber const row = addRow(entry);
    if (!m_listView)
        return;
    addColumns(std::max(1, static_cast<int>(m_rows.textCount(row)))); // codes may name no column at all
    if (m_rows.above(row) != kNoRow && !m_listView->rootIsDecorated()) {
        m_listView->setRootIsDecorated(true);
        fitColumns(); // all rows move to the right
    }
    growColumns(row);
}

void guiHtmlControlFlex::removeItem(sstring const& value)
{
    assertOnGuiThread();
    guiRowNumber const row = rowOf(value);
    if (row == kNoRow)
        return;
    m_knowsLongest = false;
    m_entries.erase(row);
    if (m_listView)
        return deleteRow(row);
    guiListRows::rowList const under = m_rows.under(row);
    for (guiRowNumber const each : under)
        m_rows.move(each, kNoRow);
    m_rows.remove(row);
}

/// The rest of the selection stays. If the row was selected, script is told once the list is consistent again, because
/// its handler may change the list once more.
void guiHtmlControlFlex::deleteRow(guiRowNumber row)
{
    bool const wasSelected = m_listView->isSelected(row);
    m_listView->owner = nullptr;
    m_listView->removeRow(row);
    m_listView->owner = this;
    if (wasSelected)
        onSelect();
}
