// controls/guidispatch.cpp: see guidispatch.h.
#include "controls/guidispatch.h"

#include <QWidget>

namespace {

unsigned theDepth = 0; // GUI thread

} // namespace

guiDispatch::guiDispatch() { ++theDepth; }
guiDispatch::~guiDispatch() { --theDepth; }

bool guiDispatch::isActive() { return theDepth != 0; }

void guiDeleteWidget(QWidget* widget)
{
    if (!widget)
        return;
    if (!guiDispatch::isActive()) {
        delete widget;
        return;
    }
    widget->hide();
    widget->deleteLater();
}
