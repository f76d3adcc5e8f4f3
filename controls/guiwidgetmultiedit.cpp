// controls/guiwidgetmultiedit.cpp: see guiwidgetmultiedit.h.
#include "controls/guiwidgetmultiedit.h"

#include "controls/guidispatch.h"
#include "controls/guihtmlcontroledit.h"
#include "foundation/vela-qt.h"

guiWidgetMultiEdit::guiWidgetMultiEdit(QWidget* parent) : QPlainTextEdit(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setWordWrapMode(QTextOption::WordWrap);
    connect(this, &QPlainTextEdit::textChanged, this, &guiWidgetMultiEdit::onChange);
}

void guiWidgetMultiEdit::onChange()
{
    guiDispatch dispatch;
    if (owner)
        owner->onChange(qtoss(toPlainText()));
}
