// controls/guiwidgetpushbutton.cpp: see guiwidgetpushbutton.h.
#include "controls/guiwidgetpushbutton.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolbutton.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>
#include <QStyleOptionButton>

// Not a dialog's default button: which control Enter triggers is up to the page, whichever widget has the focus.
guiWidgetPushButton::guiWidgetPushButton(QWidget* parent) : QPushButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, &guiWidgetPushButton::onClick);
}

void guiWidgetPushButton::onClick()
{
    guiEventScope scope;
    if (owner)
        owner->onClick();
}

// The control that Enter triggers looks as such wherever the keyboard is.
void guiWidgetPushButton::initStyleOption(QStyleOptionButton* option) const
{
    QPushButton::initStyleOption(option);
    if (owner && owner->isEnterControl())
        option->features |= QStyleOptionButton::DefaultButton;
}

// The toolkit presses a focused button on Return only if the button may become a dialog's default button.
void guiWidgetPushButton::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (guiHandleKey(owner, event->key(), false))
        event->accept();
    else if (isEnter)
        click();
    else
        QPushButton::keyPressEvent(event);
}
