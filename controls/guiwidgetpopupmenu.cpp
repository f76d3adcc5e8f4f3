// controls/guiwidgetpopupmenu.cpp: see guiwidgetpopupmenu.h.
#include "controls/guiwidgetpopupmenu.h"

#include <QAction>

guiWidgetPopupMenu::guiWidgetPopupMenu(QWidget* parent) : QMenu(parent)
{
    connect(this, &QMenu::triggered, this, [this](QAction* action) { emit activated(action->data().toInt()); });
    connect(this, &guiWidgetPopupMenu::activated, this, &guiWidgetPopupMenu::onActivate);
}

// The menu bar reports the same choice; a second report would run the handler twice.
void guiWidgetPopupMenu::onActivate(int) {}
