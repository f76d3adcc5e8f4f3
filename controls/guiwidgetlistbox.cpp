// controls/guiwidgetlistbox.cpp: see guiwidgetlistbox.h.
#include "controls/guiwidgetlistbox.h"

#include "controls/guidispatch.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>
#include <utility>

guiWidgetListBox::guiWidgetListBox(QWidget* parent) : QListWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (news.holds)
            news.hasNewSelection = true;
        else
            emit selectionChanged();
    });
    connect(this, SIGNAL(selectionChanged()), this, SLOT(onChange()));
}

void guiWidgetListBox::tellNews()
{
    guiDispatch dispatch;
    guiNews const told = std::exchange(news, {});
    if (told.hasNewSelection)
        emit selectionChanged();
}

bool guiWidgetListBox::event(QEvent* event)
{
    guiHoldNews hold(this);
    return QListWidget::event(event);
}

bool guiWidgetListBox::viewportEvent(QEvent* event)
{
    guiHoldNews hold(this);
    return QListWidget::viewportEvent(event);
}

void guiWidgetListBox::onChange()
{
    guiDispatch dispatch;
    if (owner)
        owner->onChange();
}

void guiWidgetListBox::keyPressEvent(QKeyEvent* event)
{
    guiDispatch dispatch;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QListWidget::keyPressEvent(event);
}
