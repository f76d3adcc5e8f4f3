// controls/guiwidgetcontextmenu.h: the native menu that is shown at the pointer.
#pragma once

#include <QMenu>

class guiHtmlContextMenu;

/// The data of each action is the id of its item. It reports what is chosen in it and in the menus below it. GUI
/// thread.
class guiWidgetContextMenu : public QMenu
{
    Q_OBJECT

public:
    explicit guiWidgetContextMenu(QWidget* parent);

    guiHtmlContextMenu* owner = nullptr; ///< not owned; null until the node binds it

private:
    void onTriggered(QAction const& action);
};
