// controls/guidispatch.cpp: see guidispatch.h.
#include "controls/guidispatch.h"

#include <QPointer>
#include <QWidget>
#include <vector>

namespace {

// GUI thread.
unsigned theDepth = 0;
std::vector<QPointer<QWidget>> theDoomed; // to be deleted when theDepth is 0 again

void deleteDoomed()
{
    std::vector<QPointer<QWidget>> doomed;
    doomed.swap(theDoomed);
    for (QPointer<QWidget> const& widget : doomed) {
        if (widget)
            widget->deleteLater(); // the toolkit looks at it once more when our handler has returned
    }
}

} // namespace

guiDispatch::guiDispatch() { ++theDepth; }

guiDispatch::~guiDispatch()
{
    if (--theDepth == 0)
        deleteDoomed();
}

bool guiDispatch::isActive() { return theDepth != 0; }

void guiDispatch::deleteAfterwards(QWidget* widget)
{
    if (isActive())
        theDoomed.emplace_back(widget);
    else
        widget->deleteLater();
}

void guiDeleteWidget(QWidget* widget)
{
    if (!widget)
        return;
    if (!guiDispatch::isActive()) {
        delete widget;
        return;
    }
    widget->hide();
    guiDispatch::deleteAfterwards(widget);
}
