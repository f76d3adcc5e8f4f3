// controls/guiwidgetlistitem.cpp: see guiwidgetlistitem.h.
#include "controls/guiwidgetlistitem.h"

#include "controls/guiwidgetlistview.h"

namespace {

guiRowTexts oneText(QString const& text)
{
    guiRowTexts texts;
    texts.cells.push_back(text);
    return texts;
}

guiRowNumber addedRow(guiWidgetListView& view, guiRowNumber above, QString const& text, int indicator)
{
    return view.listModel().addRow(oneText(text), static_cast<guiRowIndicator>(indicator), above);
}

guiRowNumber rowBehind(guiCheckListItem const& other, QString const& text, int indicator)
{
    return other.view()->listModel().addRowBehind(other.row(), oneText(text), static_cast<guiRowIndicator>(indicator));
}

} // namespace

guiCheckListItem::guiCheckListItem(guiHtmlControlFlex* list, guiWidgetListView* parent, QString const& text,
                                   indicatorKind indicator)
    : guiCheckListItem(list, parent, addedRow(*parent, kNoRow, text, indicator))
{}

guiCheckListItem::guiCheckListItem(guiHtmlControlFlex* list, guiCheckListItem* parent, QString const& text,
                                   indicatorKind indicator)
    : guiCheckListItem(list, parent->view(), addedRow(*parent->view(), parent->row(), text, indicator))
{}

guiCheckListItem::guiCheckListItem(guiHtmlControlFlex* list, guiWidgetListView* parent, guiCheckListItem* after,
                                   QString const& text, indicatorKind indicator)
    : guiCheckListItem(list, parent, rowBehind(*after, text, indicator))
{}

guiCheckListItem::guiCheckListItem(guiHtmlControlFlex* list, guiCheckListItem* parent, guiCheckListItem* after,
                                   QString const& text, indicatorKind indicator)
    : guiCheckListItem(list, parent->view(), rowBehind(*after, text, indicator))
{}

guiCheckListItem::guiCheckListItem(guiHtmlControlFlex* list, guiWidgetListView* view, guiRowNumber row)
    : owner(list), m_view(view), m_row(row)
{
    view->adoptItem(row, this);
}

guiListRows& guiCheckListItem::rows() const { return m_view->rows(); }

guiCheckListItem::indicatorKind guiCheckListItem::getIndicator() const
{
    return static_cast<indicatorKind>(rows().indicator(m_row));
}

void guiCheckListItem::setOn(bool on) { m_view->setChecked(m_row, on); }
bool guiCheckListItem::isOn() const { return rows().isChecked(m_row); }
bool guiCheckListItem::isEnabled() const { return rows().isEnabled(m_row); }
void guiCheckListItem::setEnabled(bool enabled) { m_view->setEnabledRow(m_row, enabled); }
bool guiCheckListItem::isDisabled() const { return !rows().isUsable(m_row); }
bool guiCheckListItem::isSelected() const { return m_view->isSelected(m_row); }
void guiCheckListItem::setSelected(bool on) { m_view->select(m_row, on); }
bool guiCheckListItem::isExpanded() const { return rows().isExpanded(m_row); }
void guiCheckListItem::setExpanded(bool on) { m_view->setExpanded(m_row, on); }

QString guiCheckListItem::text(int column) const
{
    return rows().text(m_row, static_cast<unsigned>(column)).toString();
}

void guiCheckListItem::setText(int column, QString const& text)
{
    m_view->listModel().addColumns(column + 1);
    m_view->listModel().setText(m_row, static_cast<unsigned>(column), text);
}

QVariant guiCheckListItem::data(int column, int role) const
{
    return m_view->listModel().data(m_view->listModel().indexOf(m_row, column), role);
}

guiCheckListItem* guiCheckListItem::parent() const { return m_view->itemOf(rows().above(m_row)); }
int guiCheckListItem::childCount() const { return static_cast<int>(rows().under(m_row).size()); }

guiCheckListItem* guiCheckListItem::child(int place) const
{
    guiListRows::rowList const& under = rows().under(m_row);
    auto const at = static_cast<std::size_t>(place);
    return place >= 0 && at < under.size() ? m_view->itemOf(under[at]) : nullptr;
}

int guiCheckListItem::indexOfChild(guiCheckListItem const* item) const
{
    return rows().above(item->row()) == m_row ? rows().placeOf(item->row()) : -1;
}
