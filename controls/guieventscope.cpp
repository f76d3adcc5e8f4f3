// controls/guieventscope.cpp: see guieventscope.h.
#include "controls/guieventscope.h"

#include <QPointer>
#include <QWidget>
#include <vector>

namespace {

unsigned theDepth TARN_GUARDED_BY(velaGuiRole) = 0;
/// Deleted when theDepth is 0 again; the toolkit may have deleted them before.
std::vector<QPointer<QObject>> theObjectsToDelete TARN_GUARDED_BY(velaGuiRole);

void deleteObjects() TARN_ON(velaGuiRole)
{
    assert(theDepth == 0);
    std::vector<QPointer<QObject>> objects;
    objects.swap(theObjectsToDelete);
    for (QPointer<QObject> const& object : objects) {
        if (object)
            object->deleteLater(); // the toolkit still uses it when our handler returns
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
        deleteObjects();
}

bool guiEventScope::isActive()
{
    assertOnGuiThread();
    return theDepth != 0;
}

void guiEventScope::deleteAfterwards(QObject* object)
{
    assertOnGuiThread();
    assert(object);
    if (isActive())
        theObjectsToDelete.emplace_back(object);
    else
        object->deleteLater();
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
