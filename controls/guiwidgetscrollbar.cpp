// controls/guiwidgetscrollbar.cpp: see guiwidgetscrollbar.h.
#include "controls/guiwidgetscrollbar.h"

#include "controls/guidispatch.h"
#include "page/guihtml.h"

guiWidgetScrollBar::guiWidgetScrollBar(Qt::Orientation orientation, QWidget* parent, char const* name)
    : QScrollBar(orientation, parent)
{
    setObjectName(QString::fromUtf8(name));
    setTracking(true);
    setFocusPolicy(orientation == Qt::Vertical ? Qt::StrongFocus : Qt::NoFocus);
    connect(this, &QScrollBar::valueChanged, this, &guiWidgetScrollBar::onChange);
}

void guiWidgetScrollBar::onChange(int value)
{
    if (!owner)
        return;
    guiDispatch dispatch;
    if (owner->getScroll().barY == this)
        owner->onScrollY(value);
    else if (owner->getScroll().barX == this)
        owner->onScrollX(value);
}
