// controls/guiwidgetlistbox.h: the native widget of a `select` element that shows several rows.
#pragma once

#include "controls/guinotices.h"

#include <QListWidget>

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

public slots:
    void onChange();

signals:
    /// The selection has changed.
    void selectionChanged();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    using QListWidget::selectionChanged; // the base has a protected function of this name

private:
    void showTip(QHelpEvent const& event);
};
