// controls/guiwidgetmenubar.cpp: see guiwidgetmenubar.h.
#include "controls/guiwidgetmenubar.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolmenu.h"

#include <QAction>

guiWidgetMenuBar::guiWidgetMenuBar(QWidget* parent) : QMenuBar(parent)
{
    connect(this, &QMenuBar::triggered, this, [this](QAction* action) { emit activated(action->data().toInt()); });
    connect(this, &guiWidgetMenuBar::activated, this, &guiWidgetMenuBar::onActivate);
}

void guiWidgetMenuBar::onActivate(int id)
{
    guiEventScope scope;
    if (owner)
        owner->activateItem(id);
}
