// controls/guieventscope.cpp: see guieventscope.h.
#include "controls/guieventscope.h"

#include <QPointer>
#include <QWidget>
#include <vector>

namespace {

// GUI thread.
unsigned theDepth = 0;
std::vector<QPointer<QWidget>> theWidgetsToDelete; // to be deleted when theDepth is 0 again

void deleteWidgets()
{
    std::vector<QPointer<QWidget>> widgets;
    widgets.swap(theWidgetsToDelete);
    for (QPointer<QWidget> const& widget : widgets) {
        if (widget)
            widget->deleteLater(); // the toolkit looks at it once more when our handler has returned
    }
}

} // namespace

guiEventScope::guiEventScope() { ++theDepth; }

guiEventScope::~guiEventScope()
{
    if (--theDepth == 0)
        deleteWidgets();
}

bool guiEventScope::isActive() { return theDepth != 0; }

void guiEventScope::deleteAfterwards(QWidget* widget)
{
    if (isActive())
        theWidgetsToDelete.emplace_back(widget);
    else
        widget->deleteLater();
}

void guiDeleteWidget(QWidget* widget)
{
    if (!widget)
        return;
    if (!guiEventScope::isActive()) {
        delete widget;
        return;
    }
    widget->hide();
    guiEventScope::deleteAfterwards(widget);
}
