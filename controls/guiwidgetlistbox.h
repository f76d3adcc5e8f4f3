// controls/guiwidgetlistbox.h: the native widget of a `select` element that shows several rows.
#pragma once

#include "controls/guinotices.h"

#include <QListWidget>

class guiHtmlControlList;

/// Escape and Enter go to the node. GUI thread.
class guiWidgetListBox : public guiNoticeView<QListWidget>
{
    Q_OBJECT

public:
    explicit guiWidgetListBox(QWidget* parent = nullptr);

    guiHtmlControlList* owner = nullptr; ///< not owned; null until the node binds it

    void deliverNotices() override;

public slots:
    void onChange();

signals:
    /// The selection has changed.
    void selectionChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    using QListWidget::selectionChanged; // the base has a protected function of this name
};
