// controls/guilistcellaccess.h: what a screen reader sees of one cell of a flex list, or of a heading.
#pragma once

#include "controls/guilistrows.h"

#include <QAccessible>
#include <QPointer>
#include <functional>

class guiWidgetListView;

/// Invalid, and without answers, once the row is gone. The row's states are those of its first cell. GUI thread.
class guiListCellAccess : public QAccessibleInterface,
                          public QAccessibleTableCellInterface,
                          public QAccessibleActionInterface
{
public:
    /// Row kNoRow: the heading of the column, which counts from 0.
    guiListCellAccess(guiWidgetListView* view, guiRowNumber row, int column);
    ~guiListCellAccess() override;

    guiWidgetListView* view() const { return m_view; }
    guiRowNumber row() const { return m_row; }
    int column() const { return m_column; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(QAccessibleInterface const*) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, QString const&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    // ---- In the table ----

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_column; }
    int rowIndex() const override;
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    // ---- What can be done ----

    QStringList actionNames() const override;
    void doAction(QString const& name) override;
    QStringList keyBindingsForAction(QString const&) const override { return {}; }

private:
    bool isHeading() const { return m_row == kNoRow; }
    bool hasIndicator() const;
    bool hasRowsUnder() const;

    QPointer<guiWidgetListView> const m_view;
    guiRowNumber const m_row;
    int const m_column;
};

/// Does `work` with the row soon, if it is still there then. Script may run.
void guiPostToRow(guiWidgetListView& view, guiRowNumber row,
                  std::function<void(guiWidgetListView& view, guiRowNumber row)> const& work);
