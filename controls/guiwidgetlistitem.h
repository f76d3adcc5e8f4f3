// controls/guiwidgetlistitem.h: a row of a check list, which tells its list node when its state changes.
#pragma once

#include <QTreeWidgetItem>

class guiHtmlControlFlex;

/// A row of a QTreeWidget with a check box, a radio indicator or neither in its first column. Radio rows under one
/// parent exclude each other. Owned by the tree. GUI thread.
class guiCheckListItem : public QTreeWidgetItem
{
public:
    enum indicatorKind
    {
        kNoIndicator = 0, ///< none
        kCheckBox = 1,
        kRadioButton = 2,
    };

    /// At the end of the list, or of the rows under `parent`.
    guiCheckListItem(guiHtmlControlFlex* owner, QTreeWidget* parent, QString const& text, indicatorKind indicator);
    guiCheckListItem(guiHtmlControlFlex* owner, QTreeWidgetItem* parent, QString const& text, indicatorKind indicator);
    /// Right behind the row `after`.
    guiCheckListItem(guiHtmlControlFlex* owner, QTreeWidget* parent, QTreeWidgetItem* after, QString const& text,
                     indicatorKind indicator);
    guiCheckListItem(guiHtmlControlFlex* owner, QTreeWidgetItem* parent, QTreeWidgetItem* after, QString const& text,
                     indicatorKind indicator);
    ~guiCheckListItem() override;

    indicatorKind getIndicator() const { return m_indicator; }
    bool isOn() const;
    /// Nothing for a row without an indicator.
    void setOn(bool on);
    /// What was set for the row itself. The toolkit also greys the rows under a disabled one; they are still enabled.
    bool isEnabled() const { return m_isEnabled; }
    void setEnabled(bool enabled);

    void setData(int column, int role, QVariant const& value) override;
    /// Called once for each change of the state, whoever made it: unchecks the other radio row of the group, then tells
    /// the owner, unless its list holds news. The row may be gone when it returns.
    virtual void stateChange(bool on);

    guiHtmlControlFlex* owner = nullptr; ///< not owned; may be null

private:
    void initialize(QString const& text);
    guiCheckListItem* otherOn() const;
    void notifyOwner();

    indicatorKind m_indicator;
    bool m_isEnabled = true;
    bool* m_isGone = nullptr; // set to true by the destructor
};
