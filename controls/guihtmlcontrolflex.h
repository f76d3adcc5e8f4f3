// controls/guihtmlcontrolflex.h: lists with columns, check boxes and nested rows: `object` elements of the classes
// "flexlist", "checklist", "listview" and "treeview". guihtmlcontrolflex.cpp makes, copies and measures the node and
// makes its widget, -rows.cpp does what concerns single rows, -columns.cpp what concerns columns and their texts,
// -script.cpp connects the list with script and -read.cpp with the parser.
#pragma once

#include "controls/guicolumncodes.h"
#include "controls/guihtmlcontrol.h"
#include "controls/guilistrows.h"
#include "controls/guilistsort.h"
#include "controls/guilistsource.h"
#include "foundation/vela-threadrole.h"
#include "page/guipicture.h"
#include "page/guiuserevent.h"

#include <functional>
#include <memory>
#include <set>
#include <unordered_map>
#include <vector>

class guiCheckListItem;
class guiWidgetListView;

enum guiHtmlControlFlexEntryType : int
{
    kFlexPlain = 0,
    kFlexCheckBox = 1,
    kFlexRadio = 2,
};

/// Style bits that follow from the class of the list.
enum guiFlexStyle : unsigned
{
    kFlexNoHeader = 1,      ///< check lists and tree views show no column headings
    kFlexCheckByDefault = 2 ///< a row without `type` is a check box row
};

/// One row, as it is when somebody asks for it.
struct guiHtmlControlFlexEntry
{
    sstring value;  ///< the row's key
    sstring text;   ///< column codes: the first column's text, then "|N|" and the text of column N
    sstring icon;   ///< name of a picture file
    QString look;   ///< see guilistlook.h
    sstring parent; ///< key of the row that this one is nested under, "" for the top level
    guiHtmlControlFlexEntryType entryType = kFlexPlain;
    int checked = 0;
    int selected = 0;
    int enabled = 1;
    int expanded = 1;
    guiUncodedTexts uncoded;          ///< texts that `text` cannot express
    guiCheckListItem* item = nullptr; ///< the row in the widget, null without one. Not owned
};

/// What page and script say about a column besides its heading and width.
struct guiColumnLook
{
    QString align = {};      ///< how texts stand: "right", "center", else left
    QString sort = {};       ///< how rows are sorted by it: see guiSortKindOf()
    int order = -1;          ///< its place from the left, from 0; -1: where its number puts it
    bool isEditable = false; ///< the user may change its texts
};

/// Rows nest kMaxNesting levels deep; deeper ones lie beside the last that still nests, since the toolkit walks over
/// nested rows by recursion. Rows exist independently of the widget: what is done to the list while its page is hidden
/// is kept in them. A removed row leaves a hole that the next added one fills. Columns count from 1; rows are found by
/// value without regard to case. GUI thread.
class guiHtmlControlFlex : public guiHtmlControl
{
public:
    static constexpr int kDefaultRows = 5;
    /// Pixels by which a row is indented under its parent: few, since lists in pages are narrow.
    static constexpr int kIndentation = 14;

    explicit guiHtmlControlFlex(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlControlFlex() override;

    int getControlType() override { return kControlFlex; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    void init(unsigned styleBits, int visibleRows, bool multiple);
    unsigned getStyleBits() const { return m_list.styleBits; }
    int getVisibleRows() const { return m_list.visibleRows; }
    int isMultiple() const { return m_list.multiple; }
    int isHeaderEnabled() const { return m_list.headerEnabled; }
    sstring getColumnCodes() const { return m_list.columnCodes; }
    sstring getSelectAction() const { return m_list.selectAction; }
    sstring getChangeAction() const { return m_list.changeAction; }
    void setSelectAction(sstring const& link) { m_list.selectAction = link; }
    void setChangeAction(sstring const& link) { m_list.changeAction = link; }
    void setSortAction(sstring const& link) { m_list.sortAction = link; }
    void setActivateAction(sstring const& link) { m_list.activateAction = link; }
    void setContextAction(sstring const& link) { m_list.contextAction = link; }
    void setExpandAction(sstring const& link) { m_list.expandAction = link; }
    void setHeaderAction(sstring const& link) { m_list.headerAction = link; }
    void setRenameAction(sstring const& link) { m_list.renameAction = link; }
    /// The user may change the texts of all columns.
    void setEditable(bool on) { m_list.isEditable = on; }
    /// Every other row has another ground.
    void setZebra(bool on) { m_list.isZebra = on; }
    void setColumnLook(int column, guiColumnLook const& look);

    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    bool keepsHeight() const override { return false; }
    QWidget* getChildWidget() override;
    void createChildWidget() override;
    void destroyChildWidget() override;
    void onLookChange() override;

    /// Splits the first segment off column codes: `column` becomes its number (0 for a text in front of all numbers),
    /// `rest` what follows. Returns its text.
    static sstring popColumnText(int* column, sstring text, sstring& rest);

    /// The first row of this value, null when there is none. It is up to date until the list changes, and valid until
    /// the row is removed.
    guiHtmlControlFlexEntry* findItem(istring const& value);
    /// States of the row of this value; 0 when there is none. A row without an indicator is never checked.
    int isItemChecked(sstring const& value);
    int isItemSelected(sstring const& value);
    int isItemEnabled(sstring const& value);
    int isItemExpanded(sstring const& value);
    void setItemChecked(sstring const& value, int on);
    /// A disabled row is not selected.
    void setItemSelected(sstring const& value, int on);
    void setItemEnabled(sstring const& value, int on);
    void setItemExpanded(sstring const& value, int on);
    void scrollToTop();
    /// Adds a row; an empty text shows the value. It goes to the top level when there is no row of value `parent`.
    void addItem(sstring const& value, sstring const& text, sstring const& parent,
                 guiHtmlControlFlexEntryType entryType);
    void removeItem(sstring const& value);
    void setHeaderEnabled(int enabled);
    /// Width in pixels and heading of a column. A heading adds the columns up to its own.
    void setColumnWidth(int column, int width);
    void setColumnText(int column, sstring const& text);
    void setItemText(sstring const& value, int column, sstring const& text);

    // ---- The list as data ----

    /// Replaces all rows. Selection, what is expanded and the place of the scroll bar stay with the values of the rows,
    /// unless the new rows say otherwise. If the selection changes, the link for that is followed.
    void setRows(std::shared_ptr<guiPackedRows const> const& packed);
    /// From now on rows come on demand, until setRows() or clear(). Such rows have texts, a value and an icon, and can
    /// be selected; what changes single rows does nothing.
    void setSource(std::shared_ptr<guiListSource> source);
    /// Rows that the source has asked for have come; null: script could not give them.
    void giveRows(unsigned first, std::shared_ptr<guiPackedRows const> rows);
    /// Where rows come from on demand; null unless they do.
    std::shared_ptr<guiListSource> const& getSource() const { return m_source; }
    /// All rows as packed text, each behind the one that it lies under.
    QString packedRows();
    void clear();
    /// The values of rows, as packed rows without texts: those that are selected, and those that are checked.
    QString selection();
    QString checkedRows();
    /// The same of the rows whose nested rows are not shown.
    QString foldedRows() const;
    /// Selects or checks the rows of these values and no others. The link for each change is followed.
    void setSelection(guiPackedRows const& values);
    void setCheckedRows(guiPackedRows const& values);
    /// The columns as packed rows: the value is the heading, the texts are the width in pixels or "", how texts stand,
    /// how rows are sorted by the column, its place from the left, and "1" if the user may change its texts.
    QString columns();
    void setColumns(guiPackedRows const& columns);

    // ---- Order ----

    /// The user asks for the list to be sorted by a column, counted from 1: once more turns the order round. Follows
    /// the link for that, or else sorts. Nothing for a column that does not say how.
    void onSort(int column);
    /// Sorts the rows as the column says; they are kept so when setRows() replaces them.
    void sortBy(int column, bool isDescending);
    /// By which column, counted from 1, rows are sorted; 0: they are in the order in which they came.
    int getSortColumn() const { return m_sortColumn; }
    bool isSortedDescending() const { return m_isDescending; }

    bool takesFormValue(ScriptValue& value) const override;
    void readFormProperty(ScriptObject* form) override;
    void writeFormProperty(ScriptObject* form) override;
    void eraseFormProperty(ScriptObject* form) override;

    /// The selection or a row's state has changed: follows the link for that.
    virtual void onSelect();
    virtual void onChange();

    /// What the user may do with a row besides, and whether the page has a link for it.
    bool hearsActivation() const { return m_list.activateAction.getLength() > 0; }
    bool hearsContext() const;
    /// The user has double-clicked the row or pressed Return in it; has asked for a menu, by the right button or by
    /// key, at a place on the screen (row kNoRow: beside the rows); has expanded or collapsed it; has clicked a
    /// heading. Columns count from 1. Each follows its link; script finds row and column in the session's event.
    virtual void onActivate(guiRowNumber row, int column);
    virtual void onContext(guiRowNumber row, int column, QPoint place);
    virtual void onExpand(guiRowNumber row);
    virtual void onHeader(int column);
    /// The user has given a text of a row another wording, which is shown from now on, unless the handler returns
    /// false.
    virtual void onRename(guiRowNumber row, int column, QString const& text);

    /// Adds a row at the end, before there is a widget; an empty text shows the value.
    void appendEntry(guiHtmlControlFlexEntry const& entry);
    unsigned getItemCount() const { return m_rows.size(); }
    /// Null for a hole that a removed row left; else as from findItem().
    guiHtmlControlFlexEntry const* getItem(unsigned i);

protected:
    void addScriptMethods(ScriptObject* object) override;

private:
    /// What page and script have said about the list as a whole.
    struct listSettings
    {
        sstring columnCodes;             // the headings, and widths as "WIDTH=" and pixels
        guiUncodedTexts uncodedHeadings; // headings that columnCodes cannot express
        sstring selectAction = "event://eSelect";
        sstring changeAction = "event://eChange";
        sstring sortAction; // "": the list sorts itself
        sstring activateAction;
        sstring contextAction;
        sstring expandAction;
        sstring headerAction;
        sstring renameAction;
        bool isZebra = false;
        bool isEditable = false;
        unsigned styleBits = 0; // of guiFlexStyle
        int visibleRows = kDefaultRows;
        int multiple = 0;
        int headerEnabled = 1;
        std::vector<guiColumnLook> columnLooks; // of the first columns
    };

    /// What stays when the rows are replaced, by value.
    struct keptStates
    {
        std::vector<QString> selected;
        std::vector<QString> collapsed;
        QString top;     // the first row in view
        QString current; // the row that keys start from
        bool hasTop = false;
        bool hasCurrent = false;
    };

    bool showsHeader() const;
    void destroyWidgets();

    // Rows
    guiRowNumber rowOf(sstring const& value) const;
    guiHtmlControlFlexEntry* entryOf(guiRowNumber row);
    void readEntryTexts(guiHtmlControlFlexEntry& entry, guiRowNumber row) const;
    guiRowNumber liftToLimit(guiRowNumber above);
    guiRowNumber addRow(guiHtmlControlFlexEntry const& entry);
    void showRows();
    bool isRowSelected(guiRowNumber row) const;
    bool isRowEnabled(guiRowNumber row) const;
    QString rowValue(guiRowNumber row) const;
    guiRowNumber firstSelected() const;
    void clearSelection();
    void deleteRow(guiRowNumber row) TARN_ON(velaGuiRole);
    void replaceRows(std::function<void(guiListRows&)> const& work) TARN_ON(velaGuiRole);
    keptStates keepStates() const;
    void restoreStates(keptStates const& kept, bool selectsAnew) TARN_ON(velaGuiRole);
    std::set<guiRowNumber> selectedRows() const;
    std::vector<QString> valuesOf(std::set<guiRowNumber> const& rows) const;
    std::set<guiRowNumber> rowsOf(guiPackedRows const& values) const;
    void selectOnly(std::set<guiRowNumber> rows) TARN_ON(velaGuiRole);
    void packRow(guiRowPacker& packer, guiRowNumber row) const;
    void warnOfDepth();
    void saveStates() TARN_ON(velaGuiRole);

    // Columns
    void createColumns();
    void addColumns(int count);
    void addRowColumns();
    guiColumnLook lookOf(int column) const;
    void showColumnLook(int column);
    void showColumnLooks();
    void showColumnPlaces();
    void saveColumnPlaces();
    bool fillsList(int column) const;
    void showText(guiRowNumber row, int column, sstring const& text) TARN_ON(velaGuiRole);
    guiSortKind sortKindOf(int column) const;
    void showOrder();
    void sortRows();
    QPixmap iconOf(QString const& name);
    void tell(char const* type, guiRowNumber row, guiEventDetail detail, sstring const& link);
    void takeBack(sstring const& value, int column, sstring const& before, sstring const& after);
    void growAllColumns();
    int columnWidthSet(int column) const;
    void fitColumns();
    bool followsContent(int column) const;
    void growColumn(int column, int width);
    void growColumns(guiRowNumber row);
    void connectHeader();
    void saveColumns() TARN_ON(velaGuiRole);
    void noteLongest(guiRowNumber row);
    void findLongest();

    /// The longest text of a column.
    struct longestText
    {
        guiRowNumber row = kNoRow;
        qsizetype length = 0;
    };

    guiListRows m_rows;
    std::shared_ptr<guiListSource> m_source; // null unless rows come on demand; m_rows is empty then
    listSettings m_list;
    guiWidgetListView* m_listView = nullptr;                                              // owned; shows m_rows
    std::unordered_map<guiRowNumber, std::unique_ptr<guiHtmlControlFlexEntry>> m_entries; // those asked for
    std::unordered_map<QString, guiPictureRef> m_icons;                                   // by name
    std::set<int> m_widths;             // columns of the widget whose width was set
    unsigned m_shownZoom = kUnzoomed;   // at which they have their widths
    std::vector<longestText> m_longest; // by column, from 0
    int m_sortColumn = 0;               // counted from 1; 0: the rows are in the order in which they came
    bool m_isDescending = false;
    bool m_knowsLongest = true;
    bool m_warnedOfDepth = false;
};
