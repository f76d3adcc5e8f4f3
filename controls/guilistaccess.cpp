// controls/guilistaccess.cpp: see guilistaccess.h. The list's own interface knows those of its cells and headings by
// number and deletes them when their row goes; each of them answers for itself whether there still is such a cell,
// since a screen reader may keep it. What runs script is posted: a call that comes from a screen reader returns at
// once.
#include "controls/guilistaccess.h"

#include "controls/guilistcellaccess.h"
#include "controls/guiwidgetlistview.h"
#include "foundation/vela-threadrole.h"

#include <QAccessibleWidget>
#include <QHeaderView>
#include <QPointer>
#include <algorithm>
#include <limits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

/// The children of a list are its headings, if they are shown, and then its cells, row after row as they are seen.
class listAccess : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit listAccess(guiWidgetListView* view) : QAccessibleWidget(view, QAccessible::Table), m_view(view)
    {
        listen();
    }
    ~listAccess() override
    {
        for (QMetaObject::Connection const& each : m_connections)
            QObject::disconnect(each);
        dropAll();
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QAccessible::Role role() const override
    {
        bool const isTree = m_view && !m_view->listModel().source() && m_view->rows().isNested();
        return isTree ? QAccessible::Tree : QAccessible::Table;
    }

    // ---- Children ----

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(QAccessibleInterface const* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    // ---- The table ----

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override
    {
        return static_cast<int>(std::min<qint64>(qint64{selectedRowCount()} * columnCount(), kMost));
    }
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override
    {
        return isColumn(column) ? m_view->heading(column) : QString();
    }
    QString rowDescription(int) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override { return m_view ? m_view->columnCount() : 0; }
    int rowCount() const override { return m_view ? m_view->order().count() : 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override { return isRow(row) && m_view->isSelected(m_view->order().at(row)); }
    bool selectRow(int row) override { return postSelect(row, true); }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int row) override { return postSelect(row, false); }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {} // the model itself is heard

private:
    static constexpr int kMost = std::numeric_limits<int>::max();
    /// So many selected rows are named; their number is told in any case.
    static constexpr int kMostNamed = 1000;
    /// So many cells are kept.
    static constexpr std::size_t kMostCells = 20000;

    bool isRow(int row) const { return row >= 0 && row < rowCount(); }
    bool isColumn(int column) const { return column >= 0 && column < columnCount(); }
    int headings() const { return m_view && !m_view->isHeaderHidden() ? columnCount() : 0; }
    QAccessibleInterface* cell(guiRowNumber row, int column) const;
    bool postSelect(int place, bool on);
    void listen();
    void dropRows(QModelIndex const& parent, int first, int last);
    void dropAll();

    QPointer<guiWidgetListView> const m_view; // goes a little earlier than this
    mutable std::unordered_map<std::uint64_t, QAccessible::Id> m_cells;
    std::vector<QMetaObject::Connection> m_connections;
};

std::uint64_t keyOf(guiRowNumber row, int column)
{
    return (std::uint64_t{row} << 32) | static_cast<std::uint32_t>(column);
}

// ---- Children ----

int listAccess::childCount() const
{
    qint64 const all = qint64{rowCount()} * columnCount() + headings();
    return static_cast<int>(std::min<qint64>(all, kMost));
}

QAccessibleInterface* listAccess::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (index < headings())
        return cell(kNoRow, index);
    int const at = index - headings();
    return cellAt(at / columnCount(), at % columnCount());
}

int listAccess::indexOfChild(QAccessibleInterface const* child) const
{
    auto const* of = dynamic_cast<guiListCellAccess const*>(child);
    if (!m_view || !of || of->view() != m_view || !of->isValid())
        return -1;
    if (of->row() == kNoRow)
        return headings() > 0 ? of->column() : -1;
    int const place = m_view->order().placeOf(of->row());
    qint64 const index = qint64{place} * columnCount() + of->column() + headings();
    return place < 0 || index >= childCount() ? -1 : static_cast<int>(index);
}

QAccessibleInterface* listAccess::childAt(int x, int y) const
{
    if (!m_view)
        return nullptr;
    QHeaderView const* header = m_view->header();
    QPoint const inHeader = header->mapFromGlobal(QPoint(x, y));
    if (headings() > 0 && header->rect().contains(inHeader)) {
        int const column = header->logicalIndexAt(inHeader.x());
        return isColumn(column) ? cell(kNoRow, column) : nullptr;
    }
    QPoint const inView = m_view->viewport()->mapFromGlobal(QPoint(x, y));
    if (!m_view->viewport()->rect().contains(inView))
        return nullptr;
    QModelIndex const index = m_view->indexAt(inView);
    return index.isValid() ? cell(m_view->listModel().rowOf(index), index.column()) : nullptr;
}

QAccessibleInterface* listAccess::focusChild() const
{
    guiRowNumber const row = m_view && m_view->hasFocus() ? m_view->currentRow() : kNoRow;
    return row == kNoRow ? nullptr : cell(row, m_view->currentIndex().column());
}

/// kNoRow: the heading of the column.
QAccessibleInterface* listAccess::cell(guiRowNumber row, int column) const
{
    QAccessible::Id& id = m_cells[keyOf(row, column)];
    if (QAccessibleInterface* known = id ? QAccessible::accessibleInterface(id) : nullptr)
        return known;
    auto* made = new guiListCellAccess(m_view, row, column);
    id = QAccessible::registerAccessibleInterface(made); // owned by the toolkit from now on
    if (m_cells.size() == kMostCells) // those who hold one now may go on with it until the event loop runs
        QMetaObject::invokeMethod(
            m_view,
            [view = m_view.data()] {
                if (auto* self = dynamic_cast<listAccess*>(QAccessible::queryAccessibleInterface(view)))
                    self->dropAll();
            },
            Qt::QueuedConnection);
    return made;
}

void listAccess::dropAll()
{
    for (auto const& [key, id] : std::exchange(m_cells, {}))
        QAccessible::deleteAccessibleInterface(id);
}

void listAccess::dropRows(QModelIndex const& parent, int first, int last)
{
    for (int at = first; at <= last; ++at)
        for (int column = 0; column < columnCount(); ++column) {
            QModelIndex const index = m_view->listModel().index(at, column, parent);
            auto const found = m_cells.extract(keyOf(m_view->listModel().rowOf(index), column));
            if (found)
                QAccessible::deleteAccessibleInterface(found.mapped());
        }
}

void listAccess::listen()
{
    guiListModel& model = m_view->listModel();
    auto const drop = [this] { dropAll(); };
    m_connections = {
        QObject::connect(&model, &QAbstractItemModel::modelReset, m_view, drop),
        QObject::connect(&model, &QAbstractItemModel::columnsRemoved, m_view, drop),
        QObject::connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, m_view,
                         [this](QModelIndex const& parent, int first, int last) { dropRows(parent, first, last); }),
    };
}

// ---- The table ----

QAccessibleInterface* listAccess::cellAt(int row, int column) const
{
    return isRow(row) && isColumn(column) ? cell(m_view->order().at(row), column) : nullptr;
}

int listAccess::selectedRowCount() const
{
    qint64 count = 0;
    QItemSelection const selection = m_view ? m_view->selectionModel()->selection() : QItemSelection();
    for (QItemSelectionRange const& range : selection)
        count += range.height();
    return static_cast<int>(std::min<qint64>(count, kMost));
}

QList<int> listAccess::selectedRows() const
{
    QList<int> places;
    QItemSelection const selection = m_view ? m_view->selectionModel()->selection() : QItemSelection();
    for (QItemSelectionRange const& range : selection)
        for (int at = range.top(); at <= range.bottom() && places.size() < kMostNamed; ++at) {
            guiRowNumber const row = m_view->listModel().rowOf(m_view->listModel().index(at, 0, range.parent()));
            if (int const place = row == kNoRow ? -1 : m_view->order().placeOf(row); place >= 0)
                places.append(place);
        }
    std::sort(places.begin(), places.end());
    return places;
}

QList<QAccessibleInterface*> listAccess::selectedCells() const
{
    QList<QAccessibleInterface*> cells;
    for (int const place : selectedRows())
        for (int column = 0; column < columnCount(); ++column)
            cells.append(cellAt(place, column));
    return cells;
}

/// Script hears of a new selection, so this is done later.
bool listAccess::postSelect(int place, bool on)
{
    if (!isRow(place))
        return false;
    guiRowNumber const row = m_view->order().at(place);
    if (!(m_view->listModel().flags(m_view->listModel().indexOf(row)) & Qt::ItemIsEnabled))
        return false;
    guiPostToRow(*m_view, row, [on](guiWidgetListView& view, guiRowNumber each) { view.select(each, on); });
    return true;
}

QAccessibleInterface* makeAccess(QString const&, QObject* object)
{
    auto* view = qobject_cast<guiWidgetListView*>(object);
    return view ? new listAccess(view) : nullptr;
}

int childOf(guiWidgetListView& view, guiRowNumber row)
{
    int const place = view.listModel().hasRow(row) ? view.order().placeOf(row) : -1;
    qint64 const columns = view.columnCount();
    qint64 const index = place * columns + (view.isHeaderHidden() ? 0 : columns);
    return place < 0 || index > std::numeric_limits<int>::max() ? -1 : static_cast<int>(index);
}

std::function<void(QAccessibleEvent const& event)> theListener;

bool isAnyoneListening() { return theListener || QAccessible::isActive(); }

/// About the first cell of the row, if that can be seen.
void tell(guiWidgetListView& view, QAccessibleEvent& event, guiRowNumber row)
{
    assertOnGuiThread();
    int const child = row == kNoRow ? -1 : childOf(view, row);
    if (child < 0)
        return;
    event.setChild(child);
    if (theListener)
        theListener(event);
    else
        QAccessible::updateAccessibility(&event);
}

} // namespace

void guiOfferListAccess()
{
    assertOnGuiThread();
    QAccessible::installFactory(makeAccess); // which knows it only once
}

void guiListenToListAccess(std::function<void(QAccessibleEvent const& event)> listener)
{
    assertOnGuiThread();
    theListener = std::move(listener);
}

void guiTellListAccess(guiWidgetListView& view, QAccessible::Event what, guiRowNumber row)
{
    if (!isAnyoneListening())
        return;
    QAccessibleEvent event(&view, what);
    tell(view, event, row);
}

void guiTellListState(guiWidgetListView& view, QAccessible::State what, guiRowNumber row)
{
    if (!isAnyoneListening())
        return;
    QAccessibleStateChangeEvent event(&view, what);
    tell(view, event, row);
}
