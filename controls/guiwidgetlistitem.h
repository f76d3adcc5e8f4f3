// controls/guiwidgetlistitem.h: the handle of a row in the widget of a flex list, by which the row is asked and
// changed.
#pragma once

#include "controls/guilistrows.h"

#include <QVariant>

class guiHtmlControlFlex;
class guiWidgetListView;

/// A row may have a check box, a radio indicator or neither in its first column. Radio rows under one parent exclude
/// each other. Columns count from 0. The handle is made when somebody asks for it, is owned by the list, and goes with
/// the row. GUI thread.
class guiCheckListItem
{
public:
    enum indicatorKind
    {
        kNoIndicator = kRowPlain,
        kCheckBox = kRowCheckBox,
        kRadioButton = kRowRadio,
    };

    /// Adds a row at the end of the list, or of the rows under `parent`.
    guiCheckListItem(guiHtmlControlFlex* list, guiWidgetListView* parent, QString const& text, indicatorKind indicator);
    guiCheckListItem(guiHtmlControlFlex* list, guiCheckListItem* parent, QString const& text, indicatorKind indicator);
    /// Adds it directly behind the row `after`, which lies at the top level or under `parent`.
    guiCheckListItem(guiHtmlControlFlex* list, guiWidgetListView* parent, guiCheckListItem* after, QString const& text,
                     indicatorKind indicator);
    guiCheckListItem(guiHtmlControlFlex* list, guiCheckListItem* parent, guiCheckListItem* after, QString const& text,
                     indicatorKind indicator);
    /// The handle of a row that is there and has none.
    guiCheckListItem(guiHtmlControlFlex* list, guiWidgetListView* view, guiRowNumber row);
    guiCheckListItem(guiCheckListItem const&) = delete;
    guiCheckListItem& operator=(guiCheckListItem const&) = delete;

    guiRowNumber row() const { return m_row; }
    guiWidgetListView* view() const { return m_view; }
    indicatorKind getIndicator() const;
    /// Checking a row tells the owner once for each row whose state changes, unless the list holds back notices. The
    /// row may be gone when this returns. Does nothing for a row without an indicator.
    void setOn(bool on);
    bool isOn() const;
    /// What was set for the row itself. Rows nested under a disabled one are shown as disabled too; those still count
    /// as enabled here.
    bool isEnabled() const;
    void setEnabled(bool enabled);
    /// Whether the row is shown as disabled.
    bool isDisabled() const;
    bool isSelected() const;
    void setSelected(bool on);
    bool isExpanded() const;
    void setExpanded(bool on);
    QString text(int column) const;
    void setText(int column, QString const& text);
    QVariant data(int column, int role) const;

    /// The row above this one, null at the top level; and those under it.
    guiCheckListItem* parent() const;
    int childCount() const;
    guiCheckListItem* child(int place) const;
    int indexOfChild(guiCheckListItem const* item) const;

    guiHtmlControlFlex* owner = nullptr; ///< hears of the row's state; not owned; may be null

private:
    guiListRows& rows() const;

    guiWidgetListView* m_view; // not owned
    guiRowNumber m_row;
};
