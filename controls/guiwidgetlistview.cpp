// controls/guiwidgetlistview.cpp: the rows of a flex list's widget, and who hears of them. See guiwidgetlistview.h.
#include "controls/guiwidgetlistview.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guilistaccess.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetradiorow.h"

#include <QHeaderView>
#include <QPointer>
#include <QScopedValueRollback>
#include <algorithm>
#include <cassert>
#include <limits>
#include <utility>

guiWidgetListView::guiWidgetListView(QWidget* parent)
    : guiNoticeView(parent), m_model(new guiListModel), m_header(new QHeaderView(Qt::Horizontal))
{
    assertOnGuiThread();
    guiOfferListAccess();
    m_model->setParent(this); // only now: the list hears of its children, with all that it has
    m_header->setParent(this);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    setItemDelegate(new guiWidgetRadioRow(this));
    setSelectionBehavior(SelectRows);
    setHorizontalScrollMode(ScrollPerPixel);
    setEditTriggers(SelectedClicked); // F2 is seen to by editByKey()
    connectModel();
    setModel(m_model);
    connectHeader();
    m_order.show(&m_model->rows());
    m_rowHeight = measureRowHeight();
    connect(this, SIGNAL(selectionChanged()), this, SLOT(onSelect()));
}

// The heading and the model still tell of changes while the toolkit takes apart the widget that this is then.
guiWidgetListView::~guiWidgetListView()
{
    disconnect(m_header, nullptr, this, nullptr);
    disconnect(m_model, nullptr, this, nullptr);
    dropItems();
}

void guiWidgetListView::connectModel()
{
    connect(m_model, &guiListModel::checkAsked, this, &guiWidgetListView::setChecked);
    // Later: the toolkit goes on with the editor, which ends with the row that a handler replaces.
    connect(m_model, &guiListModel::textGiven, this, &guiWidgetListView::noteText, Qt::QueuedConnection);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &guiWidgetListView::noteRows);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &guiWidgetListView::noteRows);
    connect(m_model, &QAbstractItemModel::rowsMoved, this, &guiWidgetListView::noteRows);
    connect(m_model, &QAbstractItemModel::layoutChanged, this, &guiWidgetListView::noteRows);
}

void guiWidgetListView::connectHeader()
{
    m_header->setModel(m_model);
    m_header->setSectionsMovable(true);
    m_header->setStretchLastSection(true);
    m_header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(m_header, &QHeaderView::sectionResized, this, &guiWidgetListView::refreshSoon);
    connect(m_header, &QHeaderView::sectionMoved, this, &guiWidgetListView::refreshSoon);
    connect(m_header, &QHeaderView::sectionCountChanged, this, &guiWidgetListView::refreshSoon);
    connect(m_header, &QHeaderView::sectionHandleDoubleClicked, this, &guiWidgetListView::fitColumn);
    connect(m_header, &QHeaderView::geometriesChanged, this, &guiWidgetListView::updateGeometries);
}

// ---- Handles of rows ----

guiCheckListItem* guiWidgetListView::itemOf(guiRowNumber row)
{
    if (row == kNoRow)
        return nullptr;
    auto const found = m_items.find(row);
    return found != m_items.end() ? found->second : new guiCheckListItem(owner, this, row);
}

void guiWidgetListView::forgetItem(guiRowNumber row)
{
    auto const item = m_items.extract(row);
    if (!item.empty())
        delete item.mapped();
}

void guiWidgetListView::dropItems()
{
    for (auto const& [row, item] : std::exchange(m_items, {}))
        delete item;
}

void guiWidgetListView::unbind()
{
    assertOnGuiThread();
    owner = nullptr;
    for (auto const& [row, item] : m_items)
        item->owner = nullptr;
    m_model->showOwn();
}

void guiWidgetListView::reset()
{
    dropItems();
    guiNoticeView::reset();
    if (guiListSource const* source = m_model->source())
        m_order.show(nullptr, static_cast<int>(source->count()));
    else
        m_order.show(&m_model->rows());
    noteRows();
}

void guiWidgetListView::clear()
{
    m_model->replaceRows([](guiListRows& rows) { rows.clear(); });
}

guiCheckListItem* guiWidgetListView::topLevelItem(int place)
{
    guiListRows::rowList const& top = rows().under(kNoRow);
    auto const at = static_cast<std::size_t>(place);
    return place >= 0 && at < top.size() ? itemOf(top[at]) : nullptr;
}

int guiWidgetListView::indexOfTopLevelItem(guiCheckListItem const* item) const
{
    guiListRows const& rows = m_model->rows();
    return rows.above(item->row()) == kNoRow ? rows.placeOf(item->row()) : -1;
}

guiCheckListItem* guiWidgetListView::currentItem() { return itemOf(m_model->rowOf(currentIndex())); }

void guiWidgetListView::setCurrentItem(guiCheckListItem* item) { setCurrentIndex(indexFromItem(item)); }

std::vector<guiCheckListItem*> guiWidgetListView::selectedItems()
{
    std::vector<guiCheckListItem*> items;
    for (QModelIndex const& index : selectionModel()->selectedRows())
        items.push_back(itemOf(m_model->rowOf(index)));
    return items;
}

QModelIndex guiWidgetListView::indexFromItem(guiCheckListItem const* item, int column) const
{
    return item ? m_model->indexOf(item->row(), column) : QModelIndex();
}

QRect guiWidgetListView::visualItemRect(guiCheckListItem const* item) const { return visualRect(indexFromItem(item)); }

// ---- States of rows ----

/// A row with a handle has an owner of its own.
void guiWidgetListView::tellChange(guiRowNumber row)
{
    auto const item = m_items.find(row);
    guiHtmlControlFlex* const hears = item == m_items.end() ? owner : item->second->owner;
    if (!hears)
        return;
    if (pendingNotices.holds)
        ++pendingNotices.changes;
    else
        hears->onChange();
}

void guiWidgetListView::setChecked(guiRowNumber row, bool on)
{
    guiRowIndicator const indicator = rows().indicator(row);
    if (indicator == kRowPlain || rows().isChecked(row) == on)
        return;
    guiEventScope scope;
    guiRowNumber const other = on && indicator == kRowRadio ? rows().otherRadioOn(row) : kNoRow;
    rows().setChecked(row, on);
    m_model->noteChange(row);
    QAccessible::State checked;
    checked.checked = true;
    guiTellListState(*this, checked, row);
    QPointer<guiWidgetListView> const self(this);
    if (other != kNoRow) {
        rows().setChecked(other, false);
        m_model->noteChange(other);
        tellChange(other);
    }
    if (self && rows().has(row)) // a handler may have done anything
        tellChange(row);
}

void guiWidgetListView::setEnabledRow(guiRowNumber row, bool on)
{
    rows().setEnabled(row, on);
    m_model->noteChange(row);
}

void guiWidgetListView::setExpanded(guiRowNumber row, bool on)
{
    if (rows().isExpanded(row) == on)
        return;
    rows().setExpanded(row, on);
    if (!rows().hasRowsUnder(row))
        return;
    noteRows();
    QAccessible::State expanded;
    expanded.expanded = true;
    guiTellListState(*this, expanded, row);
}

bool guiWidgetListView::isSelected(guiRowNumber row) const
{
    return selectionModel()->isSelected(m_model->indexOf(row));
}

std::set<guiRowNumber> guiWidgetListView::selectedRows() const
{
    std::set<guiRowNumber> selected;
    for (QItemSelectionRange const& range : selectionModel()->selection())
        for (int at = range.top(); at <= range.bottom(); ++at)
            selected.insert(m_model->rowOf(m_model->index(at, 0, range.parent())));
    return selected;
}

guiRowNumber guiWidgetListView::firstSelected() const
{
    int first = std::numeric_limits<int>::max();
    for (QItemSelectionRange const& range : selectionModel()->selection())
        first = std::min(first, range.top());
    return m_model->rowOf(m_model->index(first, 0));
}

void guiWidgetListView::selectOnly(std::set<guiRowNumber> const& wanted)
{
    QSignalBlocker const silence(selectionModel());
    QItemSelection selection;
    for (guiRowNumber const row : wanted) {
        QModelIndex const index = m_model->indexOf(row);
        bool const goesOn = !selection.isEmpty() && selection.back().bottom() + 1 == index.row() &&
                            selection.back().parent() == index.parent();
        QModelIndex from = index;
        if (goesOn) {
            from = selection.back().topLeft();
            selection.removeLast();
        }
        selection.append({from, index.siblingAtColumn(columnCount() - 1)});
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    refreshSoon();
}

void guiWidgetListView::setCurrentRow(guiRowNumber row)
{
    QScopedValueRollback const quiet(m_isQuiet, true);
    selectionModel()->setCurrentIndex(m_model->indexOf(row), QItemSelectionModel::NoUpdate);
}

void guiWidgetListView::removeRow(guiRowNumber row)
{
    QScopedValueRollback const quiet(m_isQuiet, true);
    forgetItem(row);
    m_model->removeRow(row);
}

void guiWidgetListView::select(guiRowNumber row, bool on)
{
    guiNoticeHold hold(this);
    QScopedValueRollback const quiet(m_isQuiet, true);
    QModelIndex const index = m_model->indexOf(row);
    m_comesIntoView |= on && selectionMode() == SingleSelection;
    if (on && selectionMode() == SingleSelection)
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    else
        selectionModel()->select(index, (on ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) |
                                            QItemSelectionModel::Rows);
}

// ---- What the toolkit and the node are told ----

void guiWidgetListView::deliverNotices()
{
    assert(pendingNotices.holds == 0);
    guiEventScope scope;
    guiPendingNotices const due = std::exchange(pendingNotices, {});
    for (unsigned i = 0; i < due.changes && owner; ++i)
        owner->onChange();
    std::optional<userAct> const act = std::exchange(m_act, {});
    QPointer<guiWidgetListView> const self(this);
    if (due.hasNewSelection)
        emit selectionChanged();
    if (act && self)
        tellAct(*act);
}

void guiWidgetListView::note(userAct const& act)
{
    guiNoticeHold hold(this);
    m_act = act;
}

void guiWidgetListView::noteText(guiRowNumber row, int column, QString const& text)
{
    note({userAct::kRename, row, column + 1, {}, text});
}

void guiWidgetListView::tellAct(userAct const& act)
{
    if (!owner || (act.row != kNoRow && !m_model->hasRow(act.row)))
        return;
    if (act.what == userAct::kActivate)
        owner->onActivate(act.row, act.column);
    else if (act.what == userAct::kContext)
        owner->onContext(act.row, act.column, act.place);
    else if (act.what == userAct::kExpand)
        owner->onExpand(act.row);
    else
        owner->onRename(act.row, act.column, act.text);
}

void guiWidgetListView::onSelect()
{
    guiEventScope scope;
    if (owner)
        owner->onSelect();
}

void guiWidgetListView::selectionChanged(QItemSelection const& selected, QItemSelection const& deselected)
{
    refreshSoon();
    for (QItemSelectionRange const& range : deselected)
        guiTellListAccess(*this, QAccessible::SelectionRemove, m_model->rowOf(range.topLeft()));
    for (QItemSelectionRange const& range : selected)
        guiTellListAccess(*this, QAccessible::SelectionAdd, m_model->rowOf(range.topLeft()));
    if (!holdsSelection())
        emit selectionChanged();
}

void guiWidgetListView::currentChanged(QModelIndex const& current, QModelIndex const& previous)
{
    if (hasFocus())
        guiTellListAccess(*this, QAccessible::Focus, m_model->rowOf(current));
    if (!m_isQuiet)
        return guiNoticeView::currentChanged(current, previous);
    refreshSoon();
}

void guiWidgetListView::dataChanged(QModelIndex const&, QModelIndex const&, QList<int> const&) { refreshSoon(); }
void guiWidgetListView::rowsInserted(QModelIndex const&, int, int) {} // noteRows() hears of it
// The base would select a neighbour.
void guiWidgetListView::rowsAboutToBeRemoved(QModelIndex const&, int, int) {}
