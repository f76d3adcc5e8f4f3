// controls/guihtmlcontrolflex.cpp: see guihtmlcontrolflex.h.
#include "controls/guihtmlcontrolflex.h"

#include "controls/guieventscope.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetlistview.h"
#include "foundation/vela-qt.h"
#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"
#include "page/guinumbers.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <map>

namespace {

// Pixels by which a row stands right of its parent: small, since lists in pages are narrow.
constexpr int kIndentation = 14;

constexpr char kWidth[] = "WIDTH=";

/// Pixels of a "WIDTH=" segment, -1 for a heading.
int widthIn(sstring const& segment)
{
    return segment.find(kWidth) == 0 ? guiToPixels(segment.subString(sizeof kWidth - 1)) : -1;
}

} // namespace

guiHtmlControlFlex::~guiHtmlControlFlex() { destroyWidgets(); }

sstring guiHtmlControlFlex::popColumnText(int* column, sstring text, sstring& rest)
{
    guiColumnCode const part = guiReadColumnCode(text, 0);
    *column = part.column;
    rest = text.subString(part.end);
    return text.subString(part.begin, part.end - part.begin);
}

bool guiHtmlControlFlex::showsHeader() const { return m_headerEnabled && !(m_styleBits & kFlexNoHeader); }

// Wide enough for the longest text of each column, or what is set for it.
int guiHtmlControlFlex::getPreferredWidth()
{
    constexpr int kAroundText = 28;
    constexpr int kBetweenColumns = 12;
    if (!hasWindow())
        return 0;
    std::map<int, sstring> longest;
    std::map<int, int> widths;
    auto note = [&](int column, sstring const& text, bool) {
        if (text.getLength() > longest[column].getLength())
            longest[column] = text;
    };
    guiForEachColumn(m_columnCodes, m_uncodedHeadings, [&](int column, sstring const& text, bool isPlain) {
        if (int const width = isPlain ? -1 : widthIn(text); width >= 0)
            widths[column] = width;
        else
            note(column, text, isPlain);
    });
    for (auto const& item : m_items)
        if (item)
            guiForEachColumn(item->text, item->uncoded, note);
    for (auto const& [column, text] : longest)
        widths.try_emplace(column, textWidth(text) + kBetweenColumns);
    std::int64_t sum = kAroundText;
    for (auto const& [column, width] : widths)
        sum += width;
    return clampLength(sum);
}

int guiHtmlControlFlex::getHeightEstimate(unsigned long)
{
    constexpr int kAroundRows = 6;
    constexpr int kAroundHeading = 8;
    if (!hasWindow())
        return 0;
    std::int64_t rows = std::int64_t{m_visibleRows} * lineSpacing() + kAroundRows;
    return clampLength(rows + (showsHeader() ? lineSpacing() + kAroundHeading : 0));
}

QWidget* guiHtmlControlFlex::getChildWidget() { return m_listView; }

guiHtml& guiHtmlControlFlex::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    auto* flex = dynamic_cast<guiHtmlControlFlex*>(&other);
    if (!flex || flex == this)
        return *this;
    destroyWidgets(); // of the rows that go
    init(flex->m_styleBits, flex->m_visibleRows, flex->m_multiple);
    m_columnCodes = flex->m_columnCodes;
    m_uncodedHeadings = flex->m_uncodedHeadings;
    m_selectAction = flex->m_selectAction;
    m_changeAction = flex->m_changeAction;
    m_headerEnabled = flex->m_headerEnabled;
    m_items.clear();
    for (auto const& item : flex->m_items)
        m_items.push_back(item ? std::make_unique<guiHtmlControlFlexEntry>(*item) : nullptr);
    for (auto const& item : m_items)
        if (item)
            item->item = nullptr; // the row is the other's
    return *this;
}

guiHtml* guiHtmlControlFlex::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlFlex::init(unsigned styleBits, int visibleRows, bool multiple)
{
    m_styleBits = styleBits;
    m_visibleRows = visibleRows;
    m_multiple = multiple;
}

void guiHtmlControlFlex::appendEntry(guiHtmlControlFlexEntry const& entry)
{
    m_items.push_back(std::make_unique<guiHtmlControlFlexEntry>(entry));
    if (m_items.back()->text.getLength() == 0)
        m_items.back()->text = entry.value;
}

void guiHtmlControlFlex::onSelect() { followLink(m_selectAction); }
void guiHtmlControlFlex::onChange() { followLink(m_changeAction); }

void guiHtmlControlFlex::createChildWidget()
{
    if (m_listView || !hasWindow())
        return;
    dirtyTabOrder();
    m_listView = new guiWidgetListView(getClipWidget());
    m_widths.clear();
    m_listView->setSelectionMode(m_multiple ? QAbstractItemView::MultiSelection : QAbstractItemView::SingleSelection);
    m_listView->setAllColumnsShowFocus(true);
    m_listView->setRootIsDecorated(false);
    m_listView->setIndentation(kIndentation);
    createColumns();
    m_listView->setHeaderHidden(!showsHeader());
    createRows();
    fitColumns();
    bindRows(); // only now: what the page says about its rows is nobody's choice
    finishWidget(m_listView);
}

/// A list has one column at least, or its rows could not be seen.
void guiHtmlControlFlex::createColumns()
{
    m_listView->setColumnCount(0);
    guiForEachColumn(m_columnCodes, m_uncodedHeadings, [this](int column, sstring const& text, bool isPlain) {
        int const width = isPlain ? -1 : widthIn(text);
        if (width >= 0)
            setColumnWidth(column, width);
        else
            setColumnText(column, text);
    });
    if (m_listView->columnCount() == 0)
        setColumnText(1, sstring());
}

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

/// `above` null: at the top level.
void guiHtmlControlFlex::createRow(guiHtmlControlFlexEntry& entry, guiCheckListItem* above)
{
    auto const indicator = static_cast<guiCheckListItem::indicatorKind>(entry.entryType);
    entry.item = above ? new guiCheckListItem(nullptr, above, QString(), indicator)
                       : new guiCheckListItem(nullptr, m_listView, QString(), indicator);
    if (above)
        m_listView->setRootIsDecorated(true);
    guiForEachColumn(entry.text, entry.uncoded,
                     [&](int column, sstring const& text, bool) { setCellText(entry.item, column, text); });
    entry.item->setOn(entry.checked > 0);
    entry.item->setEnabled(entry.enabled > 0);
}

void guiHtmlControlFlex::bindRows()
{
    m_listView->owner = this;
    for (auto const& entry : m_items)
        if (entry)
            entry->item->owner = this;
}

/// Columns that only rows have get no heading.
void guiHtmlControlFlex::setCellText(guiCheckListItem* row, int column, sstring const& text)
{
    addColumns(column);
    row->setText(column - 1, sstoq(text));
}

/// Adds empty columns until there are `count`.
void guiHtmlControlFlex::addColumns(int count)
{
    int const present = m_listView->columnCount();
    if (count <= present)
        return;
    m_listView->setColumnCount(count);
    for (int i = present; i < count; ++i)
        m_listView->headerItem()->setText(i, QString());
    m_listView->header()->setStretchLastSection(true);
    if (m_listView->owner)
        fitColumns();
}

/// Columns are as wide as what is in them unless that was set; the last one fills the list.
void guiHtmlControlFlex::fitColumns()
{
    int const last = m_listView->columnCount() - 1;
    for (int i = 0; i < last; ++i)
        if (!m_widths.contains(i + 1))
            m_listView->resizeColumnToContents(i);
    if (m_listView->header()->stretchLastSection())
        m_listView->header()->resizeSection(last, m_listView->header()->minimumSectionSize());
}

void guiHtmlControlFlex::selectRow(guiCheckListItem* row, bool on)
{
    guiNoticeHold hold(m_listView);
    if (on && !m_multiple)
        m_listView->setCurrentItem(row, 0, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    else
        row->setSelected(on);
}

void guiHtmlControlFlex::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidgets();
}

void guiHtmlControlFlex::destroyWidgets()
{
    if (m_listView) {
        dirtyTabOrder();
        saveStates();
    }
    guiDestroyWrapper(m_listView);
    onDestroyChildWidget();
}

/// What the user and script did to the widget is there again when it is made anew.
void guiHtmlControlFlex::saveStates()
{
    saveColumns();
    for (auto const& entry : m_items) {
        if (!entry || !entry->item)
            continue;
        saveTexts(*entry);
        entry->checked = entry->item->isOn();
        entry->selected = entry->item->isSelected();
        entry->enabled = entry->item->isEnabled();
        entry->expanded = entry->item->isExpanded();
        entry->item = nullptr;
    }
}

/// The headings, and the widths of all columns but one that fills the list.
void guiHtmlControlFlex::saveColumns()
{
    m_columnCodes = sstring();
    m_uncodedHeadings.clear();
    int const count = m_listView->columnCount();
    for (int column = 1; column <= count; ++column) {
        sstring const heading = qtoss(m_listView->headerItem()->text(column - 1));
        if (guiContainsColumnCode(heading) || heading.find(kWidth) == 0)
            m_uncodedHeadings.add(column, heading);
        else
            m_columnCodes += guiColumnCodeOf(column, heading);
        if (column < count || !m_listView->header()->stretchLastSection())
            m_columnCodes += sformat("|%ld|%s%ld", long{column}, kWidth, long{m_listView->columnWidth(column - 1)});
    }
    m_uncodedHeadings.at = m_columnCodes.getLength();
}

void guiHtmlControlFlex::saveTexts(guiHtmlControlFlexEntry& entry)
{
    entry.text = sstring();
    entry.uncoded.clear();
    for (int column = 1; column <= m_listView->columnCount(); ++column) {
        sstring const cell = qtoss(entry.item->text(column - 1));
        if (guiContainsColumnCode(cell))
            entry.uncoded.add(column, cell);
        else if (column == 1)
            entry.text = cell;
        else if (cell.getLength())
            entry.text += guiColumnCodeOf(column, cell);
    }
    entry.uncoded.at = entry.text.getLength();
}

guiHtmlControlFlexEntry* guiHtmlControlFlex::findItem(istring const& value)
{
    for (auto const& entry : m_items)
        if (entry && value == entry->value)
            return entry.get();
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
    guiHtmlControlFlexEntry* entry = findItem(value);
    if (!entry)
        return;
    if (entry->item) {
        selectRow(entry->item, on > 0);
        return;
    }
    if (on > 0 && !m_multiple)
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
    guiHtmlControlFlexEntry* entry = findItem(value);
    if (entry && entry->item)
        entry->item->setEnabled(on > 0);
    else if (entry)
        entry->enabled = on > 0;
}

void guiHtmlControlFlex::setItemExpanded(sstring const& value, int on)
{
    guiHtmlControlFlexEntry* entry = findItem(value);
    if (entry && entry->item)
        entry->item->setExpanded(on > 0);
    else if (entry)
        entry->expanded = on > 0;
}

void guiHtmlControlFlex::scrollToTop()
{
    if (!m_listView)
        return;
    m_listView->scrollToTop();
    m_listView->horizontalScrollBar()->setValue(m_listView->horizontalScrollBar()->minimum());
}

void guiHtmlControlFlex::addItem(sstring const& value, sstring const& text, sstring const& parent,
                                 guiHtmlControlFlexEntryType entryType)
{
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
    entry.item->owner = this;
}

void guiHtmlControlFlex::removeItem(sstring const& value)
{
    istring const wanted(value);
    auto const found = std::find_if(m_items.begin(), m_items.end(),
                                    [&](auto const& entry) { return entry && wanted == entry->value; });
    if (found == m_items.end())
        return;
    std::unique_ptr<guiHtmlControlFlexEntry> const gone = std::move(*found);
    if (gone->item)
        deleteRow(gone->item);
}

/// What else is selected stays so. Script hears of a row that was selected when the list is whole again: its handler
/// may change the list once more.
void guiHtmlControlFlex::deleteRow(guiCheckListItem* row)
{
    bool const wasSelected = row->isSelected();
    QList<QTreeWidgetItem*> const selected = m_listView->selectedItems();
    auto const mode = m_listView->selectionMode();
    m_listView->owner = nullptr;
    m_listView->setSelectionMode(QAbstractItemView::MultiSelection); // else the row's neighbour would be selected
    moveChildrenToTop(row);
    for (QTreeWidgetItem* each : selected)
        each->setSelected(each != row);
    delete row;
    m_listView->setSelectionMode(mode);
    m_listView->owner = this;
    if (wasSelected)
        onSelect();
}

/// The rows under one that goes belong to no row then, so that they lie at the top level.
void guiHtmlControlFlex::moveChildrenToTop(guiCheckListItem* row)
{
    std::vector<std::pair<QTreeWidgetItem*, bool>> rows;
    for (int i = 0; i < row->childCount(); ++i)
        rows.emplace_back(row->child(i), row->child(i)->isExpanded());
    m_listView->addTopLevelItems(row->takeChildren());
    for (auto const& [moved, isExpanded] : rows)
        moved->setExpanded(isExpanded);
}

void guiHtmlControlFlex::setHeaderEnabled(int enabled)
{
    m_headerEnabled = enabled != 0;
    guiLayoutRun::startAnew(); // the heading counts in the height
    if (m_listView)
        m_listView->setHeaderHidden(!m_headerEnabled);
}

void guiHtmlControlFlex::setColumnWidth(int column, int width)
{
    if (column < 1)
        return;
    if (!m_listView) {
        m_columnCodes += sformat("|%ld|%s%ld", long{column}, kWidth, long{width});
        return;
    }
    int const count = m_listView->columnCount();
    if (column > count)
        return;
    m_widths.insert(column);
    if (column == count)
        m_listView->header()->setStretchLastSection(false);
    m_listView->header()->resizeSection(column - 1, std::clamp(width, 0, kMaxPixels));
}

void guiHtmlControlFlex::setColumnText(int column, sstring const& text)
{
    if (column < 1 || column > kColumnLimit)
        return;
    if (!m_listView) {
        m_columnCodes += guiColumnCodeOf(column, text);
        return;
    }
    addColumns(column);
    m_listView->headerItem()->setText(column - 1, sstoq(text));
}

void guiHtmlControlFlex::setItemText(sstring const& value, int column, sstring const& text)
{
    guiHtmlControlFlexEntry* entry = findItem(value);
    if (!entry || column < 1 || column > kColumnLimit)
        return;
    if (entry->item)
        setCellText(entry->item, column, text);
    else
        entry->text += guiColumnCodeOf(column, text);
}
