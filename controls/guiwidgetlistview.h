// controls/guiwidgetlistview.h: the native widget of a flex list: rows with columns, indicators and nested rows.
#pragma once

#include "controls/guinotices.h"

#include <QTreeWidget>

class guiHtmlControlFlex;

/// Its rows are guiCheckListItems. Escape and Enter go to the node. GUI thread.
class guiWidgetListView : public guiNoticeView<QTreeWidget>
{
    Q_OBJECT

public:
    explicit guiWidgetListView(QWidget* parent = nullptr);

    /// The node is about to be destroyed: from now on neither the list nor any of its rows calls it.
    void unbind();

    guiHtmlControlFlex* owner = nullptr; ///< not owned; null until the node binds it

    void deliverNotices() override;

public slots:
    void onSelect();

signals:
    /// The selection has changed.
    void selectionChanged();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    using QTreeWidget::selectionChanged; // the base has a protected function of this name
};
