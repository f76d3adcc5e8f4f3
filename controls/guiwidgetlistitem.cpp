// controls/guiwidgetlistitem.cpp: see guiwidgetlistitem.h.
#include "controls/guiwidgetlistitem.h"

#include "controls/guieventscope.h"
#include "controls/guihtmlcontrolflex.h"
#include "controls/guiwidgetlistview.h"

#include <QTreeWidget>
#include <cassert>

guiCheckListItem::guiCheckListItem(guiHtmlControlFlex* list, QTreeWidget* parent, QString const& text,
                                   indicatorKind indicator)
    : QTreeWidgetItem(parent, UserType), owner(list), m_indicator(indicator)
{
    initialize(text);
}

guiCheckListItem::guiCheckListItem(guiHtmlControlFlex* list, QTreeWidgetItem* parent, QString const& text,
                                   indicatorKind indicator)
    : QTreeWidgetItem(parent, UserType), owner(list), m_indicator(indicator)
{
    initialize(text);
}

guiCheckListItem::guiCheckListItem(guiHtmlControlFlex* list, QTreeWidget* parent, QTreeWidgetItem* after,
                                   QString const& text, indicatorKind indicator)
    : QTreeWidgetItem(parent, after, UserType), owner(list), m_indicator(indicator)
{
    initialize(text);
}

guiCheckListItem::guiCheckListItem(guiHtmlControlFlex* list, QTreeWidgetItem* parent, QTreeWidgetItem* after,
                                   QString const& text, indicatorKind indicator)
    : QTreeWidgetItem(parent, after, UserType), owner(list), m_indicator(indicator)
{
    initialize(text);
}

guiCheckListItem::~guiCheckListItem()
{
    if (m_isGone)
        *m_isGone = true;
}

void guiCheckListItem::initialize(QString const& text)
{
    assertOnGuiThread();
    assert(m_indicator == kNoIndicator || m_indicator == kCheckBox || m_indicator == kRadioButton);
    setText(0, text);
    if (m_indicator != kNoIndicator)
        QTreeWidgetItem::setData(0, Qt::CheckStateRole, Qt::Unchecked);
}

bool guiCheckListItem::isOn() const { return data(0, Qt::CheckStateRole).toInt() == Qt::Checked; }

void guiCheckListItem::setOn(bool on) { setData(0, Qt::CheckStateRole, on ? Qt::Checked : Qt::Unchecked); }

void guiCheckListItem::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
    setDisabled(!enabled);
}

void guiCheckListItem::setData(int column, int role, QVariant const& value)
{
    if (role != Qt::CheckStateRole) {
        QTreeWidgetItem::setData(column, role, value);
        return;
    }
    if (column != 0 || m_indicator == kNoIndicator)
        return;
    bool wasOn = isOn();
    QTreeWidgetItem::setData(column, role, value);
    if (isOn() != wasOn)
        stateChange(!wasOn);
}

/// Another radio row of this group that is on, null when there is none.
guiCheckListItem* guiCheckListItem::otherOn() const
{
    QTreeWidgetItem* group = parent() ? parent() : treeWidget() ? treeWidget()->invisibleRootItem() : nullptr;
    for (int i = 0; group && i < group->childCount(); ++i) {
        auto* row = dynamic_cast<guiCheckListItem*>(group->child(i));
        if (row && row != this && row->m_indicator == kRadioButton && row->isOn())
            return row;
    }
    return nullptr;
}

void guiCheckListItem::notifyOwner()
{
    auto* list = dynamic_cast<guiWidgetListView*>(treeWidget());
    if (!owner)
        return;
    if (list && list->pendingNotices.holds)
        ++list->pendingNotices.changes;
    else
        owner->onChange();
}

void guiCheckListItem::stateChange(bool on)
{
    assert(m_indicator != kNoIndicator);
    guiEventScope scope;
    bool isGone = false;
    bool* outer = m_isGone; // of an outer call: a handler may change the row once more
    m_isGone = &isGone;
    if (guiCheckListItem* other = on && m_indicator == kRadioButton ? otherOn() : nullptr)
        other->setOn(false);
    if (!isGone)
        notifyOwner();
    if (outer)
        *outer = *outer || isGone;
    if (!isGone)
        m_isGone = outer;
}
