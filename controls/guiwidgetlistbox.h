// controls/guiwidgetlistbox.h: the native widget of a `select` element that shows several rows.
#pragma once

#include "controls/guinotices.h"

#include <QListWidget>
#include <QPersistentModelIndex>

class QHelpEvent;
class guiHtmlControlList;

/// Escape and Enter go to the node. There is no horizontal scroll bar: a text that is too wide ends in dots, and a tip
/// shows all of it. GUI thread.
class guiWidgetListBox : public guiNoticeView<QListWidget>
{
    Q_OBJECT

public:
    explicit guiWidgetListBox(QWidget* parent = nullptr);

    guiHtmlControlList* owner = nullptr; ///< not owned; null until the node binds it

    void deliverNotices() override;
    /// Selects a row that was just added and gives it the keyboard. It comes to the middle of the box once the GUI
    /// thread has nothing else to do: of many rows that are added one after the other only the last is worth it.
    void selectNew(QListWidgetItem* row);

public slots:
    void onChange();

signals:
    /// The selection has changed.
    void selectionChanged();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    /// Where several rows may be selected, a click with Shift, or Shift and an arrow, selects all from the last one on.
    QItemSelectionModel::SelectionFlags selectionCommand(QModelIndex const& row, QEvent const* event) const override;
    using QListWidget::selectionChanged; // the base has a protected function of this name

private:
    void center();
    void showTip(QHelpEvent const& event);

    QPersistentModelIndex m_toCenter; // invalid when nothing is due
};
