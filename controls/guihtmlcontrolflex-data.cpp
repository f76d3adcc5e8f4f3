// controls/guihtmlcontrolflex-data.cpp: the list as data: all its rows, its selection, what is checked, its columns.
#include "controls/guicolumncodes.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistview.h"
#include "foundation/vela-qt.h"

#include <QHeaderView>
#include <algorithm>
#include <map>
#include <utility>

namespace {

QString packedValues(std::vector<QString> const& values)
{
    guiRowPacker packer(0, false);
    for (QString const& value : values) {
        packer.addState({});
        packer.addField(value);
    }
    return packer.packed();
}

std::vector<QString> sorted(std::vector<QString> values)
{
    std::sort(values.begin(), values.end());
    return values;
}

/// What a packed column says.
guiColumnLook lookIn(guiPackedRows const& columns, unsigned row)
{
    auto textAt = [&](unsigned at) { return at < columns.textCount() ? columns.text(row, at) : QStringView(); };
    bool isNumber = false;
    int const order = textAt(3).toInt(&isNumber);
    return {textAt(1).toString(), textAt(2).toString(), isNumber ? std::max(0, order) : -1, textAt(4) == u"1"};
}

Qt::Alignment alignmentOf(QString const& word)
{
    Qt::Alignment const across = word == "right" ? Qt::AlignRight : word == "center" ? Qt::AlignHCenter : Qt::AlignLeft;
    return across | Qt::AlignVCenter;
}

} // namespace

// ---- What stays when the rows are replaced ----

std::vector<QString> guiHtmlControlFlex::valuesOf(std::set<guiRowNumber> const& rows) const
{
    std::vector<QString> values;
    values.reserve(rows.size());
    for (guiRowNumber const row : rows)
        values.push_back(rowValue(row));
    return values;
}

guiHtmlControlFlex::keptStates guiHtmlControlFlex::keepStates() const
{
    keptStates kept;
    if (m_source)
        return kept;
    kept.selected = valuesOf(selectedRows());
    for (guiRowNumber row = 0; m_rows.isNested() && row < m_rows.size(); ++row)
        if (m_rows.has(row) && !m_rows.isExpanded(row))
            kept.collapsed.push_back(m_rows.value(row).toString());
    if (!m_listView)
        return kept;
    guiRowNumber const top = m_listView->topRow();
    guiRowNumber const current = m_listView->currentRow();
    kept.hasTop = top != kNoRow && m_listView->order().placeOf(top) > 0; // else it stays at the top
    kept.top = kept.hasTop ? m_rows.value(top).toString() : QString();
    kept.hasCurrent = current != kNoRow;
    kept.current = kept.hasCurrent ? m_rows.value(current).toString() : QString();
    return kept;
}

/// `selectsAnew`: the new rows say which are selected.
void guiHtmlControlFlex::restoreStates(keptStates const& kept, bool selectsAnew)
{
    for (QString const& value : kept.collapsed)
        if (guiRowNumber const row = m_rows.find(value); row != kNoRow && !m_rows.packed()->state(row).isExpanded)
            m_rows.setExpanded(row, false);
    std::set<guiRowNumber> selected = std::exchange(m_rows.selected, {});
    for (std::size_t i = 0; !selectsAnew && i < kept.selected.size(); ++i)
        if (guiRowNumber const row = m_rows.find(kept.selected[i]); row != kNoRow && m_rows.isEnabled(row))
            selected.insert(row);
    selectOnly(std::move(selected));
    if (!m_listView)
        return;
    m_listView->order().invalidate();
    if (guiRowNumber const row = kept.hasCurrent ? m_rows.find(kept.current) : kNoRow; row != kNoRow)
        m_listView->setCurrentRow(row);
    if (guiRowNumber const row = kept.hasTop ? m_rows.find(kept.top) : kNoRow; row != kNoRow)
        m_listView->setTopRow(row);
}

/// Tells nobody.
void guiHtmlControlFlex::selectOnly(std::set<guiRowNumber> rows)
{
    if (!m_list.multiple && rows.size() > 1)
        rows = {*rows.begin()};
    if (m_listView)
        m_listView->selectOnly(rows);
    else
        m_rows.selected = std::move(rows);
}

// ---- Rows ----

void guiHtmlControlFlex::replaceRows(std::function<void(guiListRows&)> const& work)
{
    m_entries.clear();
    m_knowsLongest = false;
    if (!m_listView) {
        m_source.reset();
        return work(m_rows);
    }
    m_listView->listModel().replaceRows([&](guiListRows& rows) {
        m_source.reset();
        m_listView->listModel().dropSource();
        work(rows);
    });
}

// ---- Rows on demand ----

void guiHtmlControlFlex::setSource(std::shared_ptr<guiListSource> source)
{
    assertOnGuiThread();
    clear();
    m_source = std::move(source);
    if (!m_listView)
        return;
    m_listView->setRootIsDecorated(false);
    m_listView->listModel().showSource(m_source);
}

void guiHtmlControlFlex::giveRows(unsigned first, std::shared_ptr<guiPackedRows const> rows)
{
    assertOnGuiThread();
    if (!m_source)
        return;
    bool const isFirst = m_source->textCount() == 0;
    unsigned const end = std::min(m_source->count(), first + (rows ? rows->count() : 0));
    m_source->give(first, std::move(rows));
    if (!m_listView)
        return;
    addColumns(std::max(1, static_cast<int>(m_source->textCount())));
    if (isFirst)
        fitColumns();
    for (guiRowNumber row = first; row < end; ++row)
        growColumns(row);
    m_listView->listModel().noteGiven();
}

void guiHtmlControlFlex::setRows(std::shared_ptr<guiPackedRows const> const& packed)
{
    assertOnGuiThread();
    keptStates const kept = keepStates();
    bool const wasEmpty = m_rows.count() == 0;
    guiRowIndicator const usual = m_list.styleBits & kFlexCheckByDefault ? kRowCheckBox : kRowPlain;
    replaceRows([&](guiListRows& rows) {
        if (rows.assign(packed, usual, kMaxNesting))
            warnOfDepth();
    });
    if (m_sortColumn && m_list.sortAction.getLength() == 0)
        guiSortRows(m_rows, static_cast<unsigned>(m_sortColumn) - 1, sortKindOf(m_sortColumn), m_isDescending);
    restoreStates(kept, !m_rows.selected.empty());
    if (m_listView) {
        addRowColumns();
        m_listView->setRootIsDecorated(m_listView->rootIsDecorated() || m_rows.isNested());
        if (wasEmpty)
            fitColumns();
        growAllColumns();
    }
    if (sorted(valuesOf(selectedRows())) != sorted(kept.selected))
        onSelect();
}

void guiHtmlControlFlex::clear()
{
    assertOnGuiThread();
    bool const wasSelected = firstSelected() != kNoRow;
    replaceRows([](guiListRows& rows) { rows.clear(); });
    if (wasSelected)
        onSelect();
}

void guiHtmlControlFlex::packRow(guiRowPacker& packer, guiRowNumber row) const
{
    bool const isExpanded = m_rows.isExpanded(row);
    packer.addState({m_rows.indicator(row), m_rows.isChecked(row), isRowSelected(row), !m_rows.isEnabled(row),
                     !isExpanded, isExpanded});
    guiRowNumber const above = m_rows.above(row);
    packer.addField(m_rows.value(row));
    for (unsigned column = 0; column < m_longest.size(); ++column)
        packer.addField(m_rows.text(row, column));
    packer.addField(above == kNoRow ? QStringView() : m_rows.value(above));
    packer.addField(m_rows.icon(row));
    packer.addField(m_rows.look(row));
}

QString guiHtmlControlFlex::packedRows()
{
    assertOnGuiThread();
    findLongest();
    guiRowPacker packer(static_cast<unsigned>(m_longest.size()));
    guiListRows::rowList open(m_rows.under(kNoRow).rbegin(), m_rows.under(kNoRow).rend());
    while (!open.empty()) {
        guiRowNumber const row = open.back();
        open.pop_back();
        packRow(packer, row);
        guiListRows::rowList const& under = m_rows.under(row);
        open.insert(open.end(), under.rbegin(), under.rend());
    }
    return packer.packed();
}

// ---- Selection and check boxes ----

std::set<guiRowNumber> guiHtmlControlFlex::rowsOf(guiPackedRows const& values) const
{
    std::set<guiRowNumber> rows;
    for (unsigned i = 0; i < values.count(); ++i)
        if (guiRowNumber const row = m_source ? m_source->find(values.value(i)) : m_rows.find(values.value(i));
            row != kNoRow)
            rows.insert(row);
    return rows;
}

QString guiHtmlControlFlex::selection() { return packedValues(valuesOf(selectedRows())); }

void guiHtmlControlFlex::setSelection(guiPackedRows const& values)
{
    assertOnGuiThread();
    std::set<guiRowNumber> const before = selectedRows();
    std::set<guiRowNumber> wanted = rowsOf(values);
    std::erase_if(wanted, [this](guiRowNumber row) { return !isRowEnabled(row); });
    if (m_listView && wanted.size() == 1)
        m_listView->setCurrentRow(*wanted.begin()); // keys go on from there
    selectOnly(std::move(wanted));
    if (selectedRows() != before)
        onSelect();
}

QString guiHtmlControlFlex::checkedRows()
{
    std::vector<QString> values;
    for (guiRowNumber row = 0; row < m_rows.size(); ++row)
        if (m_rows.has(row) && m_rows.isChecked(row))
            values.push_back(m_rows.value(row).toString());
    return packedValues(values);
}

QString guiHtmlControlFlex::foldedRows() const { return packedValues(keepStates().collapsed); }

void guiHtmlControlFlex::setCheckedRows(guiPackedRows const& values)
{
    assertOnGuiThread();
    std::set<guiRowNumber> const wanted = rowsOf(values);
    bool isChanged = false;
    for (guiRowNumber row = 0; row < m_rows.size(); ++row) {
        bool const on = wanted.contains(row);
        if (!m_rows.has(row) || m_rows.indicator(row) == kRowPlain || m_rows.isChecked(row) == on)
            continue;
        m_rows.setChecked(row, on);
        isChanged = true;
    }
    if (!isChanged || !m_listView)
        return;
    m_listView->viewport()->update();
    onChange();
}

// ---- Columns ----

/// How many pixels wide the column is shown, or was to be shown; -1 when nobody has said.
int guiHtmlControlFlex::columnWidthSet(int column) const
{
    return m_listView ? guiUnzoomedLength(m_listView->columnWidth(column - 1), m_shownZoom)
                      : guiColumnWidthIn(m_list.columnCodes, column);
}

QString guiHtmlControlFlex::columns()
{
    assertOnGuiThread();
    if (m_listView)
        saveColumns();
    std::map<int, sstring> headings;
    guiForEachColumn(m_list.columnCodes, m_list.uncodedHeadings, [&](int column, sstring const& text, bool isUncoded) {
        if (isUncoded || guiColumnWidthOf(text) < 0)
            headings[column] = text;
    });
    findLongest();
    int const count = std::max({headings.empty() ? 0 : headings.rbegin()->first, static_cast<int>(m_longest.size()),
                                m_listView ? m_listView->columnCount() : 0});
    guiRowPacker packer(5, false);
    for (int column = 1; column <= count; ++column) {
        guiColumnLook const look = lookOf(column);
        int const width = columnWidthSet(column);
        packer.addState({});
        packer.addField(sstoq(headings[column]));
        packer.addField(width < 0 ? QString() : QString::number(width));
        packer.addField(look.align);
        packer.addField(look.sort);
        packer.addField(QString::number(look.order < 0 ? column - 1 : look.order));
        packer.addField(look.isEditable ? QString("1") : QString());
    }
    return packer.packed();
}

guiColumnLook guiHtmlControlFlex::lookOf(int column) const
{
    auto const at = static_cast<std::size_t>(column) - 1;
    guiColumnLook look = at < m_list.columnLooks.size() ? m_list.columnLooks[at] : guiColumnLook();
    look.isEditable |= m_list.isEditable;
    return look;
}

void guiHtmlControlFlex::setColumnLook(int column, guiColumnLook const& look)
{
    if (column < 1 || column > kColumnLimit)
        return;
    auto const at = static_cast<std::size_t>(column) - 1;
    if (at >= m_list.columnLooks.size())
        m_list.columnLooks.resize(at + 1);
    m_list.columnLooks[at] = look;
    if (m_listView)
        showColumnLook(column);
}

void guiHtmlControlFlex::showColumnLook(int column)
{
    guiColumnLook const look = lookOf(column);
    m_listView->listModel().setAlignment(column - 1, alignmentOf(look.align));
    m_listView->listModel().setEditable(column - 1, look.isEditable);
}

void guiHtmlControlFlex::showColumnLooks()
{
    for (int column = 1; column <= m_listView->columnCount(); ++column)
        showColumnLook(column);
    showColumnPlaces();
}

/// Of two columns that are to be at one place, the one of the lower number stands further left.
void guiHtmlControlFlex::showColumnPlaces()
{
    std::vector<std::pair<int, int>> places; // and the columns, from 0
    for (int column = 1; column <= m_listView->columnCount(); ++column) {
        int const order = lookOf(column).order;
        places.emplace_back(order < 0 ? column - 1 : order, column - 1);
    }
    std::sort(places.begin(), places.end());
    QHeaderView* const header = m_listView->header();
    for (std::size_t place = 0; place < places.size(); ++place)
        header->moveSection(header->visualIndex(places[place].second), static_cast<int>(place));
}

/// Where the user has dragged columns to.
void guiHtmlControlFlex::saveColumnPlaces()
{
    QHeaderView const* header = m_listView->header();
    if (!header->sectionsMoved())
        return;
    m_list.columnLooks.resize(std::max(m_list.columnLooks.size(), static_cast<std::size_t>(m_listView->columnCount())));
    for (int column = 0; column < m_listView->columnCount(); ++column)
        m_list.columnLooks[static_cast<std::size_t>(column)].order = header->visualIndex(column);
}

void guiHtmlControlFlex::setColumns(guiPackedRows const& columns)
{
    assertOnGuiThread();
    int const count = std::min(static_cast<int>(columns.count()), kColumnLimit);
    findLongest();
    m_list.columnCodes = sstring();
    m_list.uncodedHeadings.clear();
    m_list.columnLooks.clear();
    m_widths.clear();
    m_sortColumn = 0;
    if (m_listView) {
        m_listView->header()->setStretchLastSection(true);
        m_listView->listModel().limitColumns(std::max({1, count, static_cast<int>(m_longest.size())}));
    }
    for (int column = 1; column <= count; ++column) {
        auto const row = static_cast<unsigned>(column) - 1;
        setColumnText(column, qtoss(columns.value(row).toString()));
        setColumnLook(column, lookIn(columns, row));
    }
    if (m_listView) {
        showColumnLooks();
        fitColumns();
        growAllColumns();
        showOrder();
    }
    for (int column = 1; column <= count; ++column)
        if (QStringView const width = columns.text(static_cast<unsigned>(column) - 1, 0); !width.isEmpty())
            setColumnWidth(column, width.toInt());
}

// ---- Order ----

guiSortKind guiHtmlControlFlex::sortKindOf(int column) const
{
    auto const at = static_cast<std::size_t>(column) - 1;
    return at < m_list.columnLooks.size() ? guiSortKindOf(m_list.columnLooks[at].sort) : kSortNone;
}

/// An arrow in the heading.
void guiHtmlControlFlex::showOrder()
{
    QHeaderView* header = m_listView->header();
    header->setSortIndicator(m_sortColumn - 1, m_isDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
    header->setSortIndicatorShown(m_sortColumn > 0);
    bool isSortable = false;
    for (guiColumnLook const& look : m_list.columnLooks)
        isSortable |= guiSortKindOf(look.sort) != kSortNone;
    header->setSectionsClickable(isSortable || m_list.headerAction.getLength() > 0);
}

void guiHtmlControlFlex::sortBy(int column, bool isDescending)
{
    assertOnGuiThread();
    m_sortColumn = column;
    m_isDescending = isDescending;
    if (m_listView)
        showOrder();
    if (!m_source && column > 0)
        sortRows();
}

void guiHtmlControlFlex::sortRows()
{
    auto const work = [this](guiListRows& rows) {
        guiSortRows(rows, static_cast<unsigned>(m_sortColumn) - 1, sortKindOf(m_sortColumn), m_isDescending);
    };
    if (m_listView)
        m_listView->listModel().reorder(work);
    else
        work(m_rows);
}

void guiHtmlControlFlex::onSort(int column)
{
    if (sortKindOf(column) == kSortNone)
        return;
    bool const isDescending = m_sortColumn == column && !m_isDescending;
    if (m_list.sortAction.getLength() == 0)
        return sortBy(column, isDescending);
    m_sortColumn = column;
    m_isDescending = isDescending;
    showOrder();
    guiEventNote const note("sort", {.column = column});
    followLink(m_list.sortAction + sformat("/%ld/%s", long{column}, isDescending ? "descending" : "ascending"));
}
