// controls/guiwidgetlistview.cpp: see guiwidgetlistview.h.
#include "controls/guiwidgetlistview.h"

#include "controls/guieventscope.h"
#include "controls/guiframe.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidget.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetradiorow.h"

#include <QKeyEvent>
#include <QTreeWidgetItemIterator>
#include <utility>

guiWidgetListView::guiWidgetListView(QWidget* parent) : guiNoticeView(parent)
{
    assertOnGuiThread();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    setItemDelegate(new guiWidgetRadioRow(this));
    connect(this, &QTreeWidget::itemSelectionChanged, this, [this] {
        if (!holdsSelection())
            emit selectionChanged();
    });
    connect(this, SIGNAL(selectionChanged()), this, SLOT(onSelect()));
}

void guiWidgetListView::unbind()
{
    assertOnGuiThread();
    owner = nullptr;
    for (QTreeWidgetItemIterator at(this); *at; ++at)
        if (auto* row = dynamic_cast<guiCheckListItem*>(*at))
            row->owner = nullptr;
}

void guiWidgetListView::deliverNotices()
{
    assert(pendingNotices.holds == 0);
    guiEventScope scope;
    guiPendingNotices const due = std::exchange(pendingNotices, {});
    for (unsigned i = 0; i < due.changes && owner; ++i)
        owner->onChange();
    if (due.hasNewSelection)
        emit selectionChanged();
}

void guiWidgetListView::onSelect()
{
    guiEventScope scope;
    if (owner)
        owner->onSelect();
}

bool guiWidgetListView::event(QEvent* event)
{
    bool const isPainted = event->type() == QEvent::Paint && guiPaintFrame(this);
    return isPainted || guiNoticeView::event(event);
}

void guiWidgetListView::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QTreeWidget::keyPressEvent(event);
}
