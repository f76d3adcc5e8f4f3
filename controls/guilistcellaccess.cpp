// controls/guilistcellaccess.cpp: see guilistcellaccess.h.
#include "controls/guilistcellaccess.h"

#include "controls/guieventscope.h"
#include "controls/guiwidgetlistview.h"

#include <QHeaderView>
#include <QWindow>

guiListCellAccess::guiListCellAccess(guiWidgetListView* view, guiRowNumber row, int column)
    : m_view(view), m_row(row), m_column(column)
{}

guiListCellAccess::~guiListCellAccess() = default;

bool guiListCellAccess::isValid() const
{
    if (!m_view || m_column >= m_view->columnCount())
        return false;
    return isHeading() || m_view->listModel().hasRow(m_row);
}

QWindow* guiListCellAccess::window() const { return m_view ? m_view->window()->windowHandle() : nullptr; }

QAccessibleInterface* guiListCellAccess::parent() const
{
    return m_view ? QAccessible::queryAccessibleInterface(m_view) : nullptr;
}

bool guiListCellAccess::hasIndicator() const
{
    return m_column == 0 && !isHeading() && !m_view->listModel().source() &&
           m_view->rows().indicator(m_row) != kRowPlain;
}

bool guiListCellAccess::hasRowsUnder() const
{
    return m_column == 0 && !isHeading() && !m_view->listModel().source() && m_view->rows().hasRowsUnder(m_row);
}

/// How deep a row of a tree lies is said with its first cell.
QString guiListCellAccess::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    if (kind == QAccessible::Name)
        return isHeading() ? m_view->heading(m_column) : m_view->listModel().textAt(m_row, m_column);
    bool const isNested = !isHeading() && !m_view->listModel().source() && m_view->rows().isNested();
    if (kind != QAccessible::Description || !isNested || m_column != 0)
        return {};
    return QString("level %1").arg(m_view->rows().levelOf(m_row) + 1);
}

QRect guiListCellAccess::rect() const
{
    if (!isValid())
        return {};
    QHeaderView const* header = m_view->header();
    if (isHeading()) {
        QRect const inHeader(header->sectionViewportPosition(m_column), 0, header->sectionSize(m_column),
                             header->height());
        return {header->mapToGlobal(inHeader.topLeft()), inHeader.size()};
    }
    QRect const inView = m_view->visualRect(m_view->listModel().indexOf(m_row, m_column));
    return inView.isEmpty() ? QRect() : QRect(m_view->viewport()->mapToGlobal(inView.topLeft()), inView.size());
}

QAccessible::Role guiListCellAccess::role() const
{
    if (isHeading())
        return QAccessible::ColumnHeader;
    bool const isTree = isValid() && !m_view->listModel().source() && m_view->rows().isNested();
    return isTree ? QAccessible::TreeItem : QAccessible::Cell;
}

QAccessible::State guiListCellAccess::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    if (isHeading())
        return state;
    QModelIndex const index = m_view->listModel().indexOf(m_row, m_column);
    Qt::ItemFlags const flags = m_view->listModel().flags(index);
    state.disabled = !(flags & Qt::ItemIsEnabled) || !m_view->isEnabled();
    state.selectable = state.focusable = !state.disabled;
    state.multiSelectable = m_view->selectionMode() != QAbstractItemView::SingleSelection;
    state.selected = isSelected();
    state.focused = m_view->hasFocus() && m_view->currentIndex() == index;
    state.editable = (flags & Qt::ItemIsEditable) != 0;
    state.checkable = hasIndicator();
    state.checked = hasIndicator() && m_view->rows().isChecked(m_row);
    state.expandable = hasRowsUnder();
    state.expanded = hasRowsUnder() && m_view->rows().isExpanded(m_row);
    state.collapsed = hasRowsUnder() && !state.expanded;
    QRect const place = m_view->visualRect(index);
    state.invisible = place.isEmpty();
    state.offscreen = !m_view->viewport()->rect().intersects(place);
    return state;
}

void* guiListCellAccess::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return isHeading() ? nullptr : static_cast<QAccessibleTableCellInterface*>(this);
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

// ---- In the table ----

bool guiListCellAccess::isSelected() const { return isValid() && !isHeading() && m_view->isSelected(m_row); }

QList<QAccessibleInterface*> guiListCellAccess::columnHeaderCells() const
{
    QAccessibleInterface* const list = isValid() && !m_view->isHeaderHidden() ? parent() : nullptr;
    QAccessibleInterface* const heading = list ? list->child(m_column) : nullptr;
    return heading ? QList{heading} : QList<QAccessibleInterface*>();
}

/// -1 for a row under a collapsed one.
int guiListCellAccess::rowIndex() const { return isValid() && !isHeading() ? m_view->order().placeOf(m_row) : -1; }

// ---- What can be done ----

QStringList guiListCellAccess::actionNames() const
{
    if (!isValid() || isHeading())
        return {};
    QStringList names{setFocusAction()};
    if (hasIndicator() || hasRowsUnder())
        names.append(toggleAction());
    return names;
}

void guiListCellAccess::doAction(QString const& name)
{
    if (!actionNames().contains(name))
        return;
    bool const isCheck = hasIndicator();
    if (name == setFocusAction())
        return guiPostToRow(*m_view, m_row, [](guiWidgetListView& view, guiRowNumber row) {
            view.setFocus(Qt::OtherFocusReason);
            view.setCurrentRow(row);
        });
    guiPostToRow(*m_view, m_row, [isCheck](guiWidgetListView& view, guiRowNumber row) {
        if (isCheck)
            view.setChecked(row, !view.rows().isChecked(row));
        else
            view.setExpanded(row, !view.rows().isExpanded(row));
    });
}

void guiPostToRow(guiWidgetListView& view, guiRowNumber row,
                  std::function<void(guiWidgetListView& view, guiRowNumber row)> const& work)
{
    QMetaObject::invokeMethod(
        &view,
        [&view, row, work] {
            guiEventScope scope;
            if (!view.listModel().hasRow(row))
                return;
            guiNoticeHold hold(&view);
            work(view, row);
        },
        Qt::QueuedConnection);
}
