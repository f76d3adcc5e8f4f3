// controls/guiwidgetpopupmenu.h: a pop-up of a window's menu bar.
#pragma once

#include <QMenu>

class guiHtmlControlMenu;

/// The menu bar reports what is chosen here, so the pop-up's own slot does nothing. GUI thread.
class guiWidgetPopupMenu : public QMenu
{
    Q_OBJECT

public:
    explicit guiWidgetPopupMenu(QWidget* parent = nullptr);

    guiHtmlControlMenu* owner = nullptr; ///< not owned; null until the node binds it

public slots:
    void onActivate(int id);

signals:
    /// The user chose the item with this id.
    void activated(int id);
};
