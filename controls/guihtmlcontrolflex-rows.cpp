// controls/guihtmlcontrolflex-rows.cpp: the rows of a flex list, as entries of the node and as rows of its widget.
// While there is a widget, each entry has a row of it, and that row has the entry's states.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "foundation/vela-log.h"
#include "foundation/vela-qt.h"

#include <algorithm>
#include <cassert>
#include <map>
#include <utility>

namespace {

static_assert(int{kFlexPlain} == guiCheckListItem::kNoIndicator && int{kFlexCheckBox} == guiCheckListItem::kCheckBox &&
                  int{kFlexRadio} == guiCheckListItem::kRadioButton,
              "an entry's type is the indicator of its row");

} // namespace

/// Whether the entry has a row of the widget, or none when there is no widget.
bool guiHtmlControlFlex::isBound(guiHtmlControlFlexEntry const& entry) const
{
    return entry.item ? m_listView && entry.item->treeWidget() == m_listView : !m_listView;
}

void guiHtmlControlFlex::appendEntry(guiHtmlControlFlexEntry const& entry)
{
    assert(!m_listView && !entry.item);
    m_items.push_back(std::make_unique<guiHtmlControlFlexEntry>(entry));
    if (m_items.back()->text.getLength() == 0)
        m_items.back()->text = entry.value;
    m_items.back()->uncoded.at = m_items.back()->text.getLength();
}

// ---- In the widget ----

void guiHtmlControlFlex::createRows()
{
    auto before = [](sstring const& a, sstring const& b) { return a.comparei(b.getUnicode(), sstring::npos) < 0; };
    std::map<sstring, guiCheckListItem*, decltype(before)> rows(before); // the first of each value
    for (auto const& entry : m_items) {
        if (!entry)
            continue;
        auto const above = rows.find(entry->parent);
        createRow(*entry, entry->parent.getLength() && above != rows.end() ? above->second : nullptr);
        rows.emplace(entry->value, entry->item);
    }
    for (auto const& entry : m_items)
        if (entry && entry->expanded)
            entry->item->setExpanded(true);
    for (auto const& entry : m_items)
        if (entry && entry->selected)
            selectRow(entry->item, true);
}

/// The row that one under `above` lies under, which is higher up when that is nested too deeply. Null: the top level.
guiCheckListItem* guiHtmlControlFlex::liftToLimit(guiCheckListItem* above)
{
    unsigned levels = 1;
    for (QTreeWidgetItem const* row = above; row; row = row->parent())
        ++levels;
    if (levels <= kMaxNesting)
        return above;
    if (!std::exchange(m_warnedOfDepth, true))
        velaLog("guiHtmlControlFlex::createRow() - rows nested deeper than %u levels are flattened (warning)\n",
                kMaxNesting);
    for (; levels > kMaxNesting; --levels)
        above = static_cast<guiCheckListItem*>(above->parent());
    return above;
}

/// `above` null: at the top level.
void guiHtmlControlFlex::createRow(guiHtmlControlFlexEntry& entry, guiCheckListItem* above)
{
    assert(m_listView && !entry.item);
    assert(!above || above->treeWidget() == m_listView);
    above = liftToLimit(above);
    auto const indicator = static_cast<guiCheckListItem::indicatorKind>(entry.entryType);
    entry.item = above ? new guiCheckListItem(nullptr, above, QString(), indicator)
                       : new guiCheckListItem(nullptr, m_listView, QString(), indicator);
    if (above && !m_listView->rootIsDecorated()) {
        m_listView->setRootIsDecorated(true);
        if (m_listView->owner)
            fitColumns(); // all rows move to the right
    }
    guiForEachColumn(entry.text, entry.uncoded,
                     [&](int column, sstring const& text, bool) { setCellText(entry.item, column, text); });
    entry.item->setOn(entry.checked > 0);
    entry.item->setEnabled(entry.enabled > 0);
}

void guiHtmlControlFlex::bindRows()
{
    m_listView->owner = this;
    for (auto const& entry : m_items) {
        if (!entry)
            continue;
        assert(isBound(*entry) && !entry->item->owner);
        entry->item->owner = this;
    }
}

void guiHtmlControlFlex::selectRow(guiCheckListItem* row, bool on)
{
    assert(row && row->treeWidget() == m_listView);
    guiNoticeHold hold(m_listView);
    if (on && !m_list.multiple)
        m_listView->setCurrentItem(row, 0, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    else
        row->setSelected(on);
}

/// What the user and script have done to the widget is kept for the next one.
void guiHtmlControlFlex::saveStates()
{
    saveColumns();
    for (auto const& entry : m_items) {
        if (!entry)
            continue;
        assert(isBound(*entry));
        saveTexts(*entry);
        guiCheckListItem const* row = std::exchange(entry->item, nullptr);
        entry->checked = row->isOn();
        entry->selected = row->isSelected();
        entry->enabled = row->isEnabled();
        entry->expanded = row->isExpanded();
    }
}

// ---- What script asks and sets ----

guiHtmlControlFlexEntry* guiHtmlControlFlex::findItem(istring const& value)
{
    for (auto const& entry : m_items) {
        if (!entry || value != entry->value)
            continue;
        assert(isBound(*entry));
        return entry.get();
    }
    return nullptr;
}

int guiHtmlControlFlex::isItemChecked(sstring const& value)
{
    guiHtmlControlFlexEntry const* entry = findItem(value);
    if (!entry || entry->entryType == kFlexPlain)
        return 0;
    return entry->item ? entry->item->isOn() : entry->checked;
}

int guiHtmlControlFlex::isItemSelected(sstring const& value)
{
    guiHtmlControlFlexEntry const* entry = findItem(value);
    if (!entry)
        return 0;
    return entry->item ? entry->item->isSelected() : entry->selected;
}

int guiHtmlControlFlex::isItemEnabled(sstring const& value)
{
    guiHtmlControlFlexEntry const* entry = findItem(value);
    if (!entry)
        return 0;
    return entry->item ? entry->item->isEnabled() : entry->enabled;
}

int guiHtmlControlFlex::isItemExpanded(sstring const& value)
{
    guiHtmlControlFlexEntry const* entry = findItem(value);
    if (!entry)
        return 0;
    return entry->item ? entry->item->isExpanded() : entry->expanded;
}

void guiHtmlControlFlex::setItemChecked(sstring const& value, int on)
{
    assertOnGuiThread();
    guiHtmlControlFlexEntry* entry = findItem(value);
    if (!entry || entry->entryType == kFlexPlain)
        return;
    if (!entry->item) {
        entry->checked = on > 0;
        return;
    }
    guiNoticeHold hold(m_listView);
    entry->item->setOn(on > 0);
}

void guiHtmlControlFlex::setItemSelected(sstring const& value, int on)
{
    assertOnGuiThread();
    guiHtmlControlFlexEntry* entry = findItem(value);
    if (!entry || (on > 0 && !isItemEnabled(value)))
        return;
    if (entry->item) {
        selectRow(entry->item, on > 0);
        return;
    }
    if (on > 0 && !m_list.multiple)
        clearSelection();
    entry->selected = on > 0;
}

void guiHtmlControlFlex::clearSelection()
{
    if (m_listView)
        return m_listView->clearSelection();
    for (auto const& entry : m_items)
        if (entry)
            entry->selected = 0;
}

void guiHtmlControlFlex::setItemEnabled(sstring const& value, int on)
{
    assertOnGuiThread();
    guiHtmlControlFlexEntry* entry = findItem(value);
    if (entry && entry->item)
        entry->item->setEnabled(on > 0);
    else if (entry)
        entry->enabled = on > 0;
}

void guiHtmlControlFlex::setItemExpanded(sstring const& value, int on)
{
    assertOnGuiThread();
    guiHtmlControlFlexEntry* entry = findItem(value);
    if (entry && entry->item)
        entry->item->setExpanded(on > 0);
    else if (entry)
        entry->expanded = on > 0;
}

// ---- Adding and removing ----

void guiHtmlControlFlex::addItem(sstring const& value, sstring const& text, sstring const& parent,
                                 guiHtmlControlFlexEntryType entryType)
{
    assertOnGuiThread();
    auto hole = std::find(m_items.begin(), m_items.end(), nullptr);
    if (hole == m_items.end())
        hole = m_items.emplace(m_items.end());
    guiHtmlControlFlexEntry* above = parent.getLength() ? findItem(parent) : nullptr;
    *hole = std::make_unique<guiHtmlControlFlexEntry>();
    guiHtmlControlFlexEntry& entry = **hole;
    entry.value = value;
    entry.text = text.getLength() ? text : value;
    entry.parent = parent;
    entry.entryType = entryType;
    if (!m_listView)
        return;
    createRow(entry, above ? above->item : nullptr);
    entry.item->setExpanded(true);
    growColumns(entry.item);
    entry.item->owner = this;
}

void guiHtmlControlFlex::removeItem(sstring const& value)
{
    assertOnGuiThread();
    istring const wanted(value);
    auto const found = std::find_if(m_items.begin(), m_items.end(),
                                    [&](auto const& entry) { return entry && wanted == entry->value; });
    if (found == m_items.end())
        return;
    std::unique_ptr<guiHtmlControlFlexEntry> const removed = std::move(*found);
    assert(isBound(*removed));
    if (removed->item)
        deleteRow(std::unique_ptr<guiCheckListItem>(removed->item));
}

/// The rest of the selection stays. If the row was selected, script is told once the list is consistent again, because
/// its handler may change the list once more.
void guiHtmlControlFlex::deleteRow(std::unique_ptr<guiCheckListItem> row)
{
    bool const wasSelected = row->isSelected();
    QList<QTreeWidgetItem*> const selected = m_listView->selectedItems();
    auto const mode = m_listView->selectionMode();
    m_listView->owner = nullptr;
    m_listView->setSelectionMode(QAbstractItemView::MultiSelection); // else the toolkit would select a neighbour
    moveChildrenToTop(row.get());
    for (QTreeWidgetItem* each : selected)
        each->setSelected(each != row.get());
    row.reset();
    m_listView->setSelectionMode(mode);
    m_listView->owner = this;
    if (wasSelected)
        onSelect();
}

/// Rows that were nested under one that is removed have no parent any more.
void guiHtmlControlFlex::moveChildrenToTop(guiCheckListItem* row)
{
    std::vector<std::pair<QTreeWidgetItem*, bool>> rows;
    rows.reserve(static_cast<std::size_t>(row->childCount()));
    for (int i = 0; i < row->childCount(); ++i)
        rows.emplace_back(row->child(i), row->child(i)->isExpanded());
    m_listView->addTopLevelItems(row->takeChildren());
    for (auto const& [moved, isExpanded] : rows)
        moved->setExpanded(isExpanded);
}
