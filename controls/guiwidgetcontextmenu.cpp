// controls/guiwidgetcontextmenu.cpp: see guiwidgetcontextmenu.h.
#include "controls/guiwidgetcontextmenu.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontextmenu.h"

#include <QAction>

guiWidgetContextMenu::guiWidgetContextMenu(QWidget* parent) : QMenu(parent)
{
    connect(this, &QMenu::triggered, this, [this](QAction* action) { onTriggered(*action); });
}

void guiWidgetContextMenu::onTriggered(QAction const& action)
{
    guiEventScope scope;
    if (owner)
        owner->activateItem(action.data().toInt());
}
