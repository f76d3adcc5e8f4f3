// controls/guiwidgetlistbox.h: the native widget of a `select` element that shows several rows.
#pragma once

#include "controls/guinotices.h"

#include <QListWidget>

class guiHtmlControlList;

/// Escape and Enter go to the node. GUI thread.
class guiWidgetListBox : public QListWidget
{
    Q_OBJECT

public:
    explicit guiWidgetListBox(QWidget* parent = nullptr);

    guiHtmlControlList* owner = nullptr; ///< not owned; null until the node binds it
    guiPendingNotices pendingNotices;

    /// Tells the node what was held back; the list may be unbound when it returns.
    void deliverNotices();

public slots:
    void onChange();

signals:
    /// Which rows are selected has changed.
    void selectionChanged();

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    using QListWidget::selectionChanged; // the base has a protected function of this name
};
