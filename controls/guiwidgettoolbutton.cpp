// controls/guiwidgettoolbutton.cpp: see guiwidgettoolbutton.h.
#include "controls/guiwidgettoolbutton.h"

#include "controls/guieventscope.h"
#include "controls/guihtmltoolbutton.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>

guiWidgetToolButton::guiWidgetToolButton(QWidget* parent) : QToolButton(parent)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QToolButton::clicked, this, &guiWidgetToolButton::onClick);
}

void guiWidgetToolButton::onClick()
{
    guiEventScope scope;
    if (owner)
        owner->onClick();
}

void guiWidgetToolButton::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    int const key = event->key();
    bool const isForward = key == Qt::Key_Right || key == Qt::Key_Down;
    bool const isArrow = isForward || key == Qt::Key_Left || key == Qt::Key_Up;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        click();
    else if (isArrow && owner)
        owner->moveFocus(isForward ? 1 : -1);
    else if (!guiHandleKey(owner, key, false))
        return QToolButton::keyPressEvent(event);
    event->accept();
}
