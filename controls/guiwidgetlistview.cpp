// controls/guiwidgetlistview.cpp: see guiwidgetlistview.h.
#include "controls/guiwidgetlistview.h"

#include "controls/guidispatch.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidget.h"
#include "controls/guiwidgetlistitem.h"
#include "controls/guiwidgetradiorow.h"

#include <QKeyEvent>
#include <QTreeWidgetItemIterator>
#include <utility>

guiWidgetListView::guiWidgetListView(QWidget* parent) : QTreeWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    setItemDelegate(new guiWidgetRadioRow(this));
    connect(this, &QTreeWidget::itemSelectionChanged, this, [this] {
        if (news.holds)
            news.hasNewSelection = true;
        else
            emit selectionChanged();
    });
    connect(this, SIGNAL(selectionChanged()), this, SLOT(onSelect()));
}

void guiWidgetListView::unbind()
{
    owner = nullptr;
    for (QTreeWidgetItemIterator at(this); *at; ++at)
        if (auto* row = dynamic_cast<guiCheckListItem*>(*at))
            row->owner = nullptr;
}

void guiWidgetListView::tellNews()
{
    guiDispatch dispatch;
    guiNews const told = std::exchange(news, {});
    for (unsigned i = 0; i < told.changes && owner; ++i)
        owner->onChange();
    if (told.hasNewSelection)
        emit selectionChanged();
}

bool guiWidgetListView::event(QEvent* event)
{
    guiHoldNews hold(this);
    return QTreeWidget::event(event);
}

bool guiWidgetListView::viewportEvent(QEvent* event)
{
    guiHoldNews hold(this);
    return QTreeWidget::viewportEvent(event);
}

void guiWidgetListView::onSelect()
{
    guiDispatch dispatch;
    if (owner)
        owner->onSelect();
}

void guiWidgetListView::keyPressEvent(QKeyEvent* event)
{
    guiDispatch dispatch;
    if (guiHandleKey(owner, event->key(), true))
        event->accept();
    else
        QTreeWidget::keyPressEvent(event);
}
