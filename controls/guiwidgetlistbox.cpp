// controls/guiwidgetlistbox.cpp: see guiwidgetlistbox.h.
#include "controls/guiwidgetlistbox.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>
#include <utility>

guiWidgetListBox::guiWidgetListBox(QWidget* parent) : QListWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (pendingNotices.holds)
            pendingNotices.hasNewSelection = true;
        else
            emit selectionChanged();
    });
    connect(this, SIGNAL(selectionChanged()), this, SLOT(onChange()));
}

void guiWidgetListBox::deliverNotices()
{
    guiEventScope scope;
    guiPendingNotices const due = std::exchange(pendingNotices, {});
    if (due.hasNewSelection)
        emit selectionChanged();
}

bool guiWidgetListBox::event(QEvent* event)
{
    guiNoticeHold hold(this);
    return QListWidget::event(event);
}

bool guiWidgetListBox::viewportEvent(QEvent* event)
{
    guiNoticeHold hold(this);
    return QListWidget::viewportEvent(event);
}

void guiWidgetListBox::onChange()
{
    guiEventScope scope;
    if (owner)
        owner->onChange();
}

void guiWidgetListBox::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QListWidget::keyPressEvent(event);
}
