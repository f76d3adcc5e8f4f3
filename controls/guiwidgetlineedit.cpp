// controls/guiwidgetlineedit.cpp: see guiwidgetlineedit.h.
#include "controls/guiwidgetlineedit.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontroledit.h"
#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"

#include <QKeyEvent>

guiWidgetLineEdit::guiWidgetLineEdit(QWidget* parent) : QLineEdit(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    connect(this, &QLineEdit::textChanged, this, &guiWidgetLineEdit::onChange);
}

void guiWidgetLineEdit::replaceText(QString const& text)
{
    int const cursor = cursorPosition();
    selectAll();
    insert(text);
    setCursorPosition(cursor); // which the toolkit limits
}

void guiWidgetLineEdit::onChange(QString const& text)
{
    guiEventScope scope;
    if (owner)
        owner->onChange(qtoss(text));
}

void guiWidgetLineEdit::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}
