// controls/guiwidgetlistview-input.cpp: keys and the mouse in a flex list, beyond what all views of the toolkit do.
#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guirangekeys.h"
#include "controls/guiwidget.h"
#include "controls/guiwidgetlistview.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

// ---- Keys ----

void guiWidgetListView::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (state() == EditingState)
        return event->accept(); // what the editor leaves over, such as the Return that ends it
    if (editByKey(event) || activateByKey(event->key()) || guiHandleKey(owner, event->key(), true) ||
        handleBranchKey(*event))
        event->accept();
    else
        guiNoticeView::keyPressEvent(event);
}

/// F2 lets the user change the text of the current cell or, if that is not to be changed, of the first in its row that
/// is.
bool guiWidgetListView::editByKey(QKeyEvent* event)
{
    if (event->key() != Qt::Key_F2 || !currentIndex().isValid())
        return false;
    QModelIndex cell = currentIndex();
    for (int visual = 0; visual < m_header->count() && !(m_model->flags(cell) & Qt::ItemIsEditable); ++visual)
        cell = m_model->indexOf(m_model->rowOf(currentIndex()), m_header->logicalIndex(visual));
    scrollTo(cell);
    return QAbstractItemView::edit(cell, AllEditTriggers, event);
}

/// The next cell of the row that may be changed, as columns stand; none when there is no further one.
QModelIndex guiWidgetListView::editableBeside(QModelIndex cell, int step) const
{
    guiRowNumber const row = m_model->rowOf(cell);
    for (int visual = m_header->visualIndex(cell.column()) + step; visual >= 0 && visual < m_header->count();
         visual += step)
        if (QModelIndex const next = m_model->indexOf(row, m_header->logicalIndex(visual));
            m_model->flags(next) & Qt::ItemIsEditable)
            return next;
    return {};
}

/// Tab and Shift+Tab in a text go on to the next one of the row. The toolkit would go to another row.
void guiWidgetListView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    int const step = hint == QAbstractItemDelegate::EditNextItem       ? 1
                     : hint == QAbstractItemDelegate::EditPreviousItem ? -1
                                                                       : 0;
    if (step == 0)
        return QAbstractItemView::closeEditor(editor, hint);
    QModelIndex const next = editableBeside(indexAt(editor->geometry().center()), step);
    QAbstractItemView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (!next.isValid())
        return;
    scrollTo(next);
    QAbstractItemView::edit(next, AllEditTriggers, nullptr);
}

/// Return is the list's own if the page wants to hear of it there.
bool guiWidgetListView::activateByKey(int key)
{
    guiRowNumber const row = m_model->rowOf(currentIndex());
    if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !owner || !owner->hearsActivation() || row == kNoRow)
        return false;
    note({userAct::kActivate, row, currentIndex().column() + 1});
    return true;
}

void guiWidgetListView::expandByUser(guiRowNumber row, bool on)
{
    if (rows().isExpanded(row) == on)
        return;
    setExpanded(row, on);
    note({userAct::kExpand, row, 0});
}

/// "+" and "-" expand and collapse the current row.
bool guiWidgetListView::handleBranchKey(QKeyEvent const& event)
{
    bool const isPlus = event.key() == Qt::Key_Plus;
    guiRowNumber const row = m_model->rowOf(currentIndex());
    if ((!isPlus && event.key() != Qt::Key_Minus) || row == kNoRow || !rows().hasRowsUnder(row))
        return false;
    expandByUser(row, isPlus);
    return true;
}

/// Rows that script has not given yet are not searched.
void guiWidgetListView::keyboardSearch(QString const& text)
{
    if (!m_model->source())
        guiNoticeView::keyboardSearch(text);
}

/// From a place on, downwards or upwards, the first row that can be used; -1 when there is none.
int guiWidgetListView::nextUsable(int place, int step)
{
    int const count = m_order.count();
    while (place >= 0 && place < count && !(m_model->flags(indexAtPlace(place)) & Qt::ItemIsEnabled))
        place += step;
    return place < count ? place : -1;
}

int guiWidgetListView::pageFrom(int place, int step)
{
    int const last = m_order.count() - 1;
    int const wanted = std::clamp(place + step * std::max(1, rowsInView() - 1), 0, last);
    int const found = nextUsable(wanted, step);
    return found >= 0 ? found : nextUsable(wanted, -step);
}

/// Left and right: collapses or expands, goes to the row above or below in the tree, or scrolls.
QModelIndex guiWidgetListView::moveAcross(bool forward)
{
    QModelIndex const current = currentIndex();
    guiRowNumber const row = m_model->rowOf(current);
    bool const hasMore = rows().hasRowsUnder(row);
    if (hasMore && rows().isExpanded(row) != forward) {
        expandByUser(row, forward);
        return current;
    }
    if (forward && hasMore)
        return indexAtPlace(nextUsable(placeOf(current) + 1, 1));
    if (!forward && current.parent().isValid())
        return current.parent();
    QScrollBar* bar = horizontalScrollBar();
    bar->setValue(bar->value() + (forward ? bar->singleStep() : -bar->singleStep()));
    return current;
}

QModelIndex guiWidgetListView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    int const count = m_order.count();
    if (count == 0)
        return {};
    int const place = placeOf(currentIndex());
    if (place < 0 && action != MoveEnd)
        return indexAtPlace(nextUsable(0, 1));
    auto const inColumn = [this, column = std::max(0, currentIndex().column())](int at) {
        return indexAtPlace(at, column);
    };
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return inColumn(nextUsable(place - 1, -1));
    case MoveDown:
    case MoveNext:
        return inColumn(nextUsable(place + 1, 1));
    case MovePageUp:
        return inColumn(pageFrom(place, -1));
    case MovePageDown:
        return inColumn(pageFrom(place, 1));
    case MoveHome:
        return inColumn(nextUsable(0, 1));
    case MoveEnd:
        return inColumn(nextUsable(count - 1, -1));
    case MoveLeft:
        return moveAcross(isRightToLeft());
    case MoveRight:
        return moveAcross(!isRightToLeft());
    }
    return {};
}

// ---- The mouse ----

bool guiWidgetListView::isOnBranch(QPoint const& point) const
{
    QModelIndex const index = indexAt(point);
    if (!index.isValid() || index.column() != 0 || !m_model->hasChildren(index))
        return false;
    QRect const cell = visualRect(index);
    int const before = isRightToLeft() ? point.x() - cell.right() : cell.left() - point.x();
    return before > 0 && before <= m_indentation;
}

bool guiWidgetListView::toggleBranchAt(QPoint const& point)
{
    if (!isOnBranch(point))
        return false;
    guiRowNumber const row = m_model->rowOf(indexAt(point));
    expandByUser(row, !rows().isExpanded(row));
    return true;
}

/// A press on an indicator, which the toolkit gives to the delegate alone, makes the row current too.
void guiWidgetListView::mousePressEvent(QMouseEvent* event)
{
    QPoint const point = event->position().toPoint();
    if (event->button() == Qt::LeftButton && toggleBranchAt(point))
        return;
    guiNoticeView::mousePressEvent(event);
    QModelIndex const pressed = indexAt(point);
    if (pressed != currentIndex() && (m_model->flags(pressed) & Qt::ItemIsEnabled))
        selectionModel()->setCurrentIndex(pressed, QItemSelectionModel::NoUpdate);
}

void guiWidgetListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QPoint const point = event->position().toPoint();
    if (event->button() != Qt::LeftButton || toggleBranchAt(point))
        return;
    QModelIndex const index = indexAt(point);
    guiRowNumber const row = m_model->rowOf(index);
    bool const isUsable = m_model->flags(index) & Qt::ItemIsEnabled;
    int const column = index.column() + 1;
    guiNoticeView::mouseDoubleClickEvent(event);
    if (row == kNoRow || !m_model->hasRow(row) || !isUsable)
        return;
    if (rows().hasRowsUnder(row))
        expandByUser(row, !rows().isExpanded(row));
    else
        note({userAct::kActivate, row, column});
}

/// By key it is about the current row, below which the menu then belongs.
void guiWidgetListView::contextMenuEvent(QContextMenuEvent* event)
{
    if (!owner || !owner->hearsContext())
        return guiNoticeView::contextMenuEvent(event);
    bool const isByKey = event->reason() == QContextMenuEvent::Keyboard;
    QModelIndex const index = isByKey ? currentIndex() : indexAt(event->pos());
    QPoint const below = visualRect(index).bottomLeft();
    QPoint const place = isByKey ? viewport()->mapToGlobal(below) : event->globalPos();
    note({userAct::kContext, m_model->rowOf(index), index.column() + 1, place});
    event->accept();
}

/// The whole row under the pointer looks different.
void guiWidgetListView::hover(guiRowNumber row)
{
    if (row == m_hovered)
        return;
    for (guiRowNumber const changed : {std::exchange(m_hovered, row), row})
        if (changed != kNoRow && m_model->hasRow(changed))
            viewport()->update(rowRect(m_order.placeOf(changed)));
}

bool guiWidgetListView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove)
        hover(m_model->rowOf(indexAt(static_cast<QHoverEvent*>(event)->position().toPoint())));
    else if (event->type() == QEvent::HoverLeave)
        hover(kNoRow);
    return guiNoticeView::viewportEvent(event);
}

// ---- Selecting ----

/// The rows from one place to another; runs of rows that lie one behind the other under the same row.
QItemSelection guiWidgetListView::selectionOf(int from, int to)
{
    QItemSelection selection;
    if (m_model->source() || (!rows().isNested() && !rows().hasDisabled()))
        return {indexAtPlace(from), indexAtPlace(to, columnCount() - 1)};
    QModelIndex first;
    QModelIndex last;
    auto finishRun = [&] {
        if (first.isValid())
            selection.append({first, last.siblingAtColumn(columnCount() - 1)});
        first = {};
    };
    for (int place = from; place <= to; ++place) {
        QModelIndex const index = indexAtPlace(place);
        bool const isUsable = m_model->flags(index) & Qt::ItemIsEnabled;
        bool const goesOn = first.isValid() && index.row() == last.row() + 1 && index.parent() == first.parent();
        if (!isUsable || !goesOn)
            finishRun();
        if (isUsable && !first.isValid())
            first = index;
        last = index;
    }
    finishRun();
    return selection;
}

void guiWidgetListView::setSelection(QRect const& rect, QItemSelectionModel::SelectionFlags command)
{
    QRect const area = rect.normalized();
    int const from =
        std::max(0, firstInView() + (area.top() >= 0 ? area.top() / m_rowHeight : -1 - (-area.top() / m_rowHeight)));
    int const to = std::min(m_order.count() - 1, firstInView() + area.bottom() / m_rowHeight);
    selectionModel()->select(from <= to ? selectionOf(from, to) : QItemSelection(), command);
}

QItemSelectionModel::SelectionFlags guiWidgetListView::selectionCommand(QModelIndex const& row,
                                                                        QEvent const* event) const
{
    constexpr QItemSelectionModel::SelectionFlags kRange = QItemSelectionModel::SelectCurrent;
    return guiSelectsRange(selectionMode(), event) ? kRange | QItemSelectionModel::Rows
                                                   : guiNoticeView::selectionCommand(row, event);
}

void guiWidgetListView::selectAll()
{
    if (selectionMode() == MultiSelection || selectionMode() == ExtendedSelection)
        selectionModel()->select(selectionOf(0, m_order.count() - 1),
                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}
