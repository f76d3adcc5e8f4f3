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
        kNoIndicator = 0,
        kCheckBox = 1,
        kRadioButton = 2,
    };

    /// At the end of the list, or of the rows under `parent`.
    guiCheckListItem(guiHtmlControlFlex* list, QTreeWidget* parent, QString const& text, indicatorKind indicator);
    guiCheckListItem(guiHtmlControlFlex* list, QTreeWidgetItem* parent, QString const& text, indicatorKind indicator);
    /// Directly after the row `after`.
    guiCheckListItem(guiHtmlControlFlex* list, QTreeWidget* parent, QTreeWidgetItem* after, QString const& text,
                     indicatorKind indicator);
    guiCheckListItem(guiHtmlControlFlex* list, QTreeWidgetItem* parent, QTreeWidgetItem* after, QString const& text,
                     indicatorKind indicator);
    ~guiCheckListItem() override;

    indicatorKind getIndicator() const { return m_indicator; }
    bool isOn() const;
    /// Does nothing for a row without an indicator.
    void setOn(bool on);
    /// What was set for the row itself. The toolkit also shows the rows nested under a disabled one as disabled; those
    /// still count as enabled here.
    bool isEnabled() const { return m_isEnabled; }
    void setEnabled(bool enabled);

    void setData(int column, int role, QVariant const& value) override;
    /// Called once for each change of the state, by the user or by script: unchecks the other radio row of the group,
    /// then notifies the owner, or leaves that to the list if it holds back notices. The row may be gone when this
    /// returns.
    virtual void stateChange(bool on);

    guiHtmlControlFlex* owner = nullptr; ///< not owned; may be null

private:
    void initialize(QString const& text);
    guiCheckListItem* otherOn() const;
    void notifyOwner();

    indicatorKind m_indicator;
    bool m_isEnabled = true;
    bool* m_isGone = nullptr; // not owned; the destructor sets what it points to
};
