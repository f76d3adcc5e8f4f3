// controls/guiwidgetradiorow.h: draws and handles the indicator of radio rows; the toolkit does so for all other rows.
#pragma once

#include <QStyledItemDelegate>

/// For views of a guiListModel. A click checks a radio row and never unchecks it. GUI thread.
class guiWidgetRadioRow : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, QStyleOptionViewItem const& option,
                     QModelIndex const& index) override;
    /// Shows the whole text of a cell that has no room for it.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, QStyleOptionViewItem const& option,
                   QModelIndex const& index) override;
    /// The place of a row's indicator, in the view's coordinates.
    QRect indicatorRect(QStyleOptionViewItem const& option, QModelIndex const& index) const;

protected:
    void initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const override;
};
