// controls/guiwidgetcombobox.cpp: see guiwidgetcombobox.h.
#include "controls/guiwidgetcombobox.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <cassert>

guiWidgetComboBox::guiWidgetComboBox(QWidget* parent) : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    connect(this, &QComboBox::activated, this, &guiWidgetComboBox::onChange);
}

void guiWidgetComboBox::setCurrentItem(int index)
{
    if (index >= 0 && index < count())
        setCurrentIndex(index);
}

void guiWidgetComboBox::reportTyping()
{
    assert(lineEdit());
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { onChange(currentIndex()); });
}

QString guiWidgetComboBox::text(int index) const { return index >= 0 && index < count() ? itemText(index) : QString(); }

void guiWidgetComboBox::onChange(int)
{
    guiEventScope scope;
    if (owner)
        owner->onChange();
}

void guiWidgetComboBox::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QComboBox::keyPressEvent(event);
}
