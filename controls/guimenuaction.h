// controls/guimenuaction.h: the native side of a menu's item that has no sub-menu.
#pragma once

#include <QAction>

class guiHtmlControlMenu;

/// The menu bar hears what is chosen in an open menu. Of an item that its keys have chosen it hears only when the item
/// is its own, so this tells the node of the others. GUI thread.
class guiMenuAction : public QAction
{
    Q_OBJECT

public:
    guiMenuAction(QObject* parent, guiHtmlControlMenu* node) : QAction(parent), owner(node) {}

    guiHtmlControlMenu* owner; ///< outlives the action, or takes it out of its menu before; not owned

protected:
    bool event(QEvent* event) override;
};
