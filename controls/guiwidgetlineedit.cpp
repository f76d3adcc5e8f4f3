// controls/guiwidgetlineedit.cpp: see guiwidgetlineedit.h.
#include "controls/guiwidgetlineedit.h"

#include "controls/guidispatch.h"
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

void guiWidgetLineEdit::onChange(QString const& text)
{
    guiDispatch dispatch;
    if (owner)
        owner->onChange(qtoss(text));
}

void guiWidgetLineEdit::keyPressEvent(QKeyEvent* event)
{
    guiDispatch dispatch;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}
