// controls/guihtmlcontrollist.h: the `select` element: a combo box or a list box.
#pragma once

#include "controls/guihtmlcontrol.h"

#include <memory>
#include <vector>

class QString;

/// One `option`.
struct guiHtmlControlListEntry
{
    sstring value;   ///< what forms and scripts see
    sstring text;    ///< what is shown
    int selected;    ///< the page's initial choice
    int chosen = -1; ///< while there is no widget: 1 or 0 as was chosen since, -1 as the page says
};

class guiWidgetComboBox;
class guiWidgetListBox;

/// Entries exist independently of the widget: what is done to the list while its page is hidden is kept in them. A
/// removed entry leaves a hole that the next added one fills.
class guiHtmlControlList : public guiHtmlControl
{
public:
    explicit guiHtmlControlList(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlControlList() override;

    int getControlType() override { return kControlList; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// `visibleRows`: 1 a combo box, more a list box, less no widget.
    void init(int visibleRows, bool multiple, bool editable);
    int getVisibleRows() const { return m_visibleRows; }
    int isMultiple() const { return m_multiple; }
    int isEditable() const { return m_editable; }

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    QWidget* getChildWidget() override;
    void createChildWidget() override;
    void destroyChildWidget() override;

    /// Value of the first entry that the page selects, "" without one.
    sstring getDefaultSelection() const;
    /// Value of the chosen entry, or what the user typed; "" when nothing is chosen.
    sstring getSelected();
    /// Selects the entries of this value, compared without regard to case; `on` 0 deselects them in a list box.
    void setSelected(sstring const& value, int on);
    /// Adds an entry, an empty text shows the value, and selects it.
    void addItem(sstring const& value, sstring const& text);
    /// Removes the entries of this value, compared without regard to case. The rows of a widget close up while the
    /// entries keep holes, so that rows and entries do not line up any more.
    void removeItem(sstring const& value);

    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;

    /// The user chose: follows the node's link, if it has one.
    virtual void onChange();

    /// Adds an entry at the end; an empty text shows the value.
    void appendEntry(sstring const& value, sstring const& text, bool selected);
    unsigned getEntryCount() const { return static_cast<unsigned>(m_entries.size()); }
    /// Null for a hole that a removed entry left.
    guiHtmlControlListEntry const* getEntry(unsigned i) const { return m_entries[i].get(); }

protected:
    void addScriptMethods(ScriptObject* object) override;

private:
    int currentRow() const;
    bool isRowSelected(int row) const;
    void setChosen(guiHtmlControlListEntry& entry, bool on);
    guiHtmlControlListEntry const* selectedEntry() const;
    void saveSelection();
    void restoreSelection();
    void selectRow(int row, bool on);
    void insertRow(int row, QString const& text);
    void removeRow(int row);
    void removeListRow(int row);
    void createComboBox();
    void createListBox();
    void insertEntries();
    void destroyWidgets();

    std::vector<std::unique_ptr<guiHtmlControlListEntry>> m_entries; // may have holes
    int m_visibleRows = 1;
    int m_multiple = 0;
    int m_editable = 0;
    guiWidgetComboBox* m_comboBox = nullptr; // owned, for one visible row
    guiWidgetListBox* m_listBox = nullptr;   // owned, for several
};
