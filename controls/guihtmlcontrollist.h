// controls/guihtmlcontrollist.h: the `select` element: a combo box or a list box. guihtmlcontrollist-data.cpp does what
// concerns all entries at once.
#pragma once

#include "controls/guihtmlcontrol.h"

#include <memory>
#include <optional>
#include <vector>

class QString;
class guiPackedRows;

/// One `option`.
struct guiHtmlControlListEntry
{
    sstring value; ///< what forms and scripts see
    sstring text;  ///< what is shown
    int selected;  ///< whether the page selects it
    int chosen =
        -1; ///< without a widget: 1 or 0 if that was set since the page was read or the widget is awaited, else -1
};

class guiWidgetComboBox;
class guiWidgetListBox;

/// Entries exist independently of the widget: what is done to the list while its page is hidden is kept in them. A
/// removed entry leaves a hole that the next added one fills. GUI thread.
class guiHtmlControlList : public guiHtmlControl
{
public:
    explicit guiHtmlControlList(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlControlList() override;

    int getControlType() override { return kControlList; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// `visibleRows`: 1 for a combo box, more for a list box; with less there is no widget.
    void init(int visibleRows, bool multiple, bool editable);
    int getVisibleRows() const { return m_list.visibleRows; }
    int isMultiple() const { return m_list.multiple; }
    int isEditable() const { return m_list.editable; }

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    bool keepsHeight() const override { return m_list.visibleRows <= 1; }
    QWidget* getChildWidget() override;
    void createChildWidget() override;
    void destroyChildWidget() override;

    /// Value of the first entry that the page selects, "" without one.
    sstring getDefaultSelection() const;
    /// Value of the chosen entry, or what the user typed; "" when nothing is chosen. Of several selected entries the
    /// current one counts, or the first.
    sstring getSelected();
    /// Whether an entry of this value, compared without regard to case, is selected.
    int isItemSelected(sstring const& value);
    /// Selects the entries of this value, compared without regard to case; `on` 0 deselects them in a list box. Runs
    /// script.
    void setSelected(sstring const& value, int on);
    /// What stands in an editable combo box, as if the user had typed it. Nobody is told.
    void setTyped(sstring const& text);
    /// Adds an entry, an empty text shows the value, and selects it.
    void addItem(sstring const& value, sstring const& text);
    /// Removes the entries of this value, compared without regard to case. The rows of a widget move up, while a
    /// removed entry leaves a hole, so from then on rows and entries have different indices.
    void removeItem(sstring const& value);

    /// All entries as packed rows of a value and a text, and which of them are selected.
    QString items() const;
    /// Shows these entries in place of all others. Unless a row says that it is selected, what was selected stays so by
    /// its value. Runs script when the selection of a list box changes.
    void setItems(guiPackedRows const& packed);
    /// Removes all entries; as setItems().
    void clear();
    /// The values of the selected entries, as packed rows.
    QString selection() const;
    /// Selects the entries of these values, compared without regard to case, and no others; of a list that has one
    /// selected entry, the first. Runs script.
    void setSelection(guiPackedRows const& packed);

    bool takesFormValue(ScriptValue& value) const override;
    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;

    /// The user changed the selection: follows the node's link, if it has one.
    virtual void onChange();

    /// Adds an entry at the end; an empty text shows the value.
    void appendEntry(sstring const& value, sstring const& text, bool selected);
    unsigned getEntryCount() const { return static_cast<unsigned>(m_entries.size()); }
    /// Null for a hole that a removed entry left.
    guiHtmlControlListEntry const* getEntry(unsigned i) const { return m_entries[i].get(); }

protected:
    void addScriptMethods(ScriptObject* object) override;
    /// A chosen entry of the value "" asks to choose another one.
    bool isBlank() override;
    sstring findMistake() override;
    /// A combo box, unless what is typed into it counts or rows and entries have different indices.
    bool isOfFrequentKind() const override;
    void onAwait() override;
    /// Deleting the widget keeps the selection.
    void keepState() override {}

private:
    /// What the page says about the list as a whole.
    struct listSettings
    {
        int visibleRows = 1;
        int multiple = 0;
        int editable = 0;
    };

    template <typename Work>
    void forEachEntry(Work work) const;
    void refillWidget();
    bool hasEntry(sstring const& value) const;
    bool isOneOfMany() const { return m_list.multiple && m_list.visibleRows > 1; }
    guiHtmlControlListEntry const* entryAt(int row) const;
    int currentRow() const;
    bool isRowSelected(int row) const;
    bool isChosen(guiHtmlControlListEntry const& entry) const;
    void setChosen(guiHtmlControlListEntry& chosen, bool on);
    guiHtmlControlListEntry const* selectedEntry() const;
    void clearSelection();
    void saveSelection();
    void restoreSelection();
    void settleSelection();
    void selectRow(int row, bool on);
    void selectNewRow(int row);
    void insertRow(int row, QString const& text);
    void removeRow(int row);
    void removeListRow(int row);
    void createComboBox();
    void createListBox();
    template <typename Widget>
    auto makeRecheck(Widget* shown);
    void insertEntries();
    void destroyWidgets();

    std::vector<std::unique_ptr<guiHtmlControlListEntry>> m_entries; // null for a hole
    listSettings m_list;
    std::optional<sstring> m_typed;          // text of an editable combo box, while it has no widget
    guiWidgetComboBox* m_comboBox = nullptr; // owned, for one visible row
    guiWidgetListBox* m_listBox = nullptr;   // owned, for several
};
