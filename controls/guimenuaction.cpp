// controls/guimenuaction.cpp: see guimenuaction.h.
#include "controls/guimenuaction.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolmenu.h"
#include "controls/guiwidgetmenubar.h"
#include "page/guinodewatch.h"

#include <QShortcutEvent>
#include <algorithm>

namespace {

bool isInBar(QAction const& action)
{
    QList<QObject*> const holders = action.associatedObjects();
    return std::any_of(holders.begin(), holders.end(),
                       [](QObject* holder) { return qobject_cast<guiWidgetMenuBar*>(holder) != nullptr; });
}

} // namespace

bool guiMenuAction::event(QEvent* event)
{
    bool const isChoice =
        event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent*>(event)->isAmbiguous() && !isInBar(*this);
    if (!isChoice)
        return QAction::event(event);
    guiEventScope scope;
    guiNodeWatch const node(owner);
    int const id = data().toInt();
    QAction::event(event);
    if (node.alive())
        owner->activateItem(id);
    return true;
}
