// controls/guiwidgetradiobutton.cpp: see guiwidgetradiobutton.h.
#include "controls/guiwidgetradiobutton.h"

#include "controls/guidispatch.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>

guiWidgetRadioButton::guiWidgetRadioButton(QWidget* parent) : QRadioButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QRadioButton::clicked, this, &guiWidgetRadioButton::onClick);
}

void guiWidgetRadioButton::onClick()
{
    guiDispatch dispatch;
    if (owner)
        owner->onClick();
}

void guiWidgetRadioButton::keyPressEvent(QKeyEvent* event)
{
    guiDispatch dispatch;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QRadioButton::keyPressEvent(event);
}
