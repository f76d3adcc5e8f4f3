// controls/guieventscope.cpp: see guieventscope.h.
#include "controls/guieventscope.h"

#include <QPointer>
#include <QWidget>
#include <vector>

namespace {

unsigned theDepth TARN_GUARDED_BY(velaGuiRole) = 0;
/// Deleted when theDepth is 0 again; the toolkit may have deleted them before.
std::vector<QPointer<QWidget>> theWidgetsToDelete TARN_GUARDED_BY(velaGuiRole);

void deleteWidgets() TARN_ON(velaGuiRole)
{
    assert(theDepth == 0);
    std::vector<QPointer<QWidget>> widgets;
    widgets.swap(theWidgetsToDelete);
    for (QPointer<QWidget> const& widget : widgets) {
        if (widget)
            widget->deleteLater(); // the toolkit still uses it when our handler returns
    }
}

} // namespace

guiEventScope::guiEventScope()
{
    assertOnGuiThread();
    ++theDepth;
}

guiEventScope::~guiEventScope()
{
    assertOnGuiThread();
    assert(theDepth > 0);
    if (--theDepth == 0)
        deleteWidgets();
}

bool guiEventScope::isActive()
{
    assertOnGuiThread();
    return theDepth != 0;
}

void guiEventScope::deleteAfterwards(QWidget* widget)
{
    assertOnGuiThread();
    assert(widget);
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
