// controls/guiwidgetlistview.h: the native widget of a flex list: rows with columns, indicators and rows under them.
#pragma once

#include "controls/guinotices.h"

#include <QTreeWidget>

class guiHtmlControlFlex;

/// Its rows are guiCheckListItems. Escape and Enter go to the node. GUI thread.
class guiWidgetListView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit guiWidgetListView(QWidget* parent = nullptr);

    /// The node is going: neither the list nor any of its rows tells it anything any more.
    void unbind();

    guiHtmlControlFlex* owner = nullptr; ///< not owned; null until the node binds it
    guiPendingNotices pendingNotices;

    /// Tells the node what was held back; the list may be unbound when it returns.
    void deliverNotices();

public slots:
    void onSelect();

signals:
    /// Which rows are selected has changed.
    void selectionChanged();

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    using QTreeWidget::selectionChanged; // the base has a protected function of this name
};
