// controls/guiwidgetlistview-paint.cpp: how the rows of a flex list look: what the toolkit's own trees show.
#include "controls/guiframe.h"
#include "controls/guiwidgetlistview.h"

#include <QHeaderView>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <algorithm>

/// What the cells of a row have in common.
struct guiWidgetListView::paintedRow
{
    guiRowNumber row;
    int place;
    QStyleOptionViewItem option;
};

bool guiWidgetListView::event(QEvent* event)
{
    bool const isPainted = event->type() == QEvent::Paint && guiPaintFrame(this);
    return isPainted || guiNoticeView::event(event);
}

void guiWidgetListView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    QRect const part = event->rect();
    int const first = firstInView() + part.top() / m_rowHeight;
    int const end = std::min(m_order.count(), firstInView() + part.bottom() / m_rowHeight + 1);
    for (int place = first; place < end; ++place)
        paintRow(painter, option, place);
    if (guiListSource* source = m_model->source()) {
        unsigned const top = static_cast<unsigned>(firstInView());
        source->want(top, top + static_cast<unsigned>(rowsInView()) + 1);
    }
}

void guiWidgetListView::paintRow(QPainter& painter, QStyleOptionViewItem const& common, int place)
{
    paintedRow row{m_order.at(place), place, common};
    row.option.rect = rowRect(place);
    QModelIndex const index = m_model->indexOf(row.row);
    bool const isUsable = (m_model->flags(index) & Qt::ItemIsEnabled) && isEnabled();
    row.option.state.setFlag(QStyle::State_Enabled, isUsable);
    bool const isSelected = selectionModel()->isSelected(index);
    row.option.state.setFlag(QStyle::State_Selected, isSelected);
    row.option.state.setFlag(QStyle::State_MouseOver, row.row == m_hovered);
    row.option.features.setFlag(QStyleOptionViewItem::Alternate, alternatingRowColors() && place % 2);
    if (!isUsable)
        row.option.palette.setCurrentColorGroup(QPalette::Disabled);
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &row.option, &painter, this);
    if (QColor const ground = m_model->groundOf(row.row); ground.isValid() && !isSelected)
        painter.fillRect(row.option.rect, ground);
    for (int visual = 0; visual < m_header->count(); ++visual)
        paintCell(painter, row, m_header->logicalIndex(visual));
    if (m_isRowFocused && hasFocus() && m_model->rowOf(currentIndex()) == row.row)
        paintFocus(painter, row);
}

void guiWidgetListView::paintCell(QPainter& painter, paintedRow const& row, int section)
{
    QModelIndex const index = m_model->indexOf(row.row, section);
    QStyleOptionViewItem option = row.option;
    option.rect = visualRect(index);
    if (option.rect.right() < 0 || option.rect.left() >= viewport()->width())
        return;
    int const visual = m_header->visualIndex(section);
    bool const isFirst = visual == 0;
    bool const isLast = visual == m_header->count() - 1;
    option.viewItemPosition = isFirst && isLast ? QStyleOptionViewItem::OnlyOne
                              : isFirst         ? QStyleOptionViewItem::Beginning
                              : isLast          ? QStyleOptionViewItem::End
                                                : QStyleOptionViewItem::Middle;
    option.state.setFlag(QStyle::State_HasFocus, !m_isRowFocused && hasFocus() && index == currentIndex());
    if (section == 0)
        paintBranches(painter, row, option.rect);
    itemDelegateForIndex(index)->paint(&painter, option, index);
}

/// In front of the first cell: a sign for rows under this one, and lines that lead to the others.
void guiWidgetListView::paintBranches(QPainter& painter, paintedRow const& row, QRect const& cell)
{
    int levels = m_model->source() ? 0 : indentationOf(row.row) / std::max(1, m_indentation);
    if (levels == 0)
        return;
    guiListRows const& rows = m_model->rows();
    QStyleOptionViewItem option = row.option;
    option.rect = cell;
    option.rect.setWidth(m_indentation);
    option.rect.moveLeft(isRightToLeft() ? cell.right() + 1 : cell.left() - m_indentation);
    int const step = isRightToLeft() ? m_indentation : -m_indentation;
    QStyle::State const common = option.state & ~(QStyle::State_Children | QStyle::State_Open);
    for (guiRowNumber at = row.row; levels > 0 && at != kNoRow; --levels, at = rows.above(at)) {
        bool const isSelf = at == row.row;
        bool const isLast = rows.under(rows.above(at)).back() == at;
        option.state = common;
        option.state.setFlag(QStyle::State_Item, isSelf);
        option.state.setFlag(QStyle::State_Sibling, !isLast);
        option.state.setFlag(QStyle::State_Children, isSelf && rows.hasRowsUnder(at));
        option.state.setFlag(QStyle::State_Open, isSelf && rows.isExpanded(at));
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &painter, this);
        option.rect.translate(step, 0);
    }
}

void guiWidgetListView::paintFocus(QPainter& painter, paintedRow const& row)
{
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(row.option);
    focus.state |= QStyle::State_KeyboardFocusChange;
    bool const isSelected = row.option.state & QStyle::State_Selected;
    focus.backgroundColor = row.option.palette.color(isSelected ? QPalette::Highlight : QPalette::Window);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter);
}

/// What is near the ends of a selection is painted anew with everything else in view.
QRegion guiWidgetListView::visualRegionForSelection(QItemSelection const& selection) const
{
    return selection.isEmpty() ? QRegion() : QRegion(viewport()->rect());
}
