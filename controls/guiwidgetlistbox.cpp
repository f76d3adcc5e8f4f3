// controls/guiwidgetlistbox.cpp: see guiwidgetlistbox.h.
#include "controls/guiwidgetlistbox.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>
#include <utility>

guiWidgetListBox::guiWidgetListBox(QWidget* parent) : guiNoticeView(parent)
{
    assertOnGuiThread();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (!holdsSelection())
            emit selectionChanged();
    });
    connect(this, SIGNAL(selectionChanged()), this, SLOT(onChange()));
}

void guiWidgetListBox::deliverNotices()
{
    assert(pendingNotices.holds == 0);
    guiEventScope scope;
    guiPendingNotices const due = std::exchange(pendingNotices, {});
    if (due.hasNewSelection)
        emit selectionChanged();
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
