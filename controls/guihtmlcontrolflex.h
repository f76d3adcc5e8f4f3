// controls/guihtmlcontrolflex.h: lists with columns, check boxes and nested rows: `object` elements of the classes
// "flexlist", "checklist", "listview" and "treeview".
#pragma once

#include "controls/guihtmlcontrol.h"

#include <memory>
#include <vector>

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

/// One row.
struct guiHtmlControlFlexEntry
{
    sstring value;  ///< the row's key
    sstring text;   ///< the columns: the first one's text, then "|N|" and the text of column N
    sstring parent; ///< key of the row that this one lies under, "" for the top level
    guiHtmlControlFlexEntryType entryType = kFlexPlain;
    int checked = 0;
    int selected = 0;
    int enabled = 1;
    int expanded = 1;
};

class guiHtmlControlFlex : public guiHtmlControl
{
public:
    static constexpr int kDefaultRows = 5;

    explicit guiHtmlControlFlex(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}

    int getControlType() override { return kControlFlex; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    void init(unsigned styleBits, int visibleRows, bool multiple);
    unsigned getStyleBits() const { return m_styleBits; }
    int getVisibleRows() const { return m_visibleRows; }
    int isMultiple() const { return m_multiple; }
    sstring getSelectAction() const { return m_selectAction; }
    sstring getChangeAction() const { return m_changeAction; }
    void setSelectAction(sstring const& link) { m_selectAction = link; }
    void setChangeAction(sstring const& link) { m_changeAction = link; }

    /// Other rows are selected, or a row's state changed: follows the link for that.
    virtual void onSelect();
    virtual void onChange();

    /// Adds a row at the end; an empty text shows the value.
    void appendEntry(guiHtmlControlFlexEntry const& entry);
    unsigned getItemCount() const { return static_cast<unsigned>(m_items.size()); }
    /// Null for a hole that a removed row left.
    guiHtmlControlFlexEntry const* getItem(unsigned i) const { return m_items[i].get(); }

private:
    std::vector<std::unique_ptr<guiHtmlControlFlexEntry>> m_items;
    sstring m_columnCodes;
    sstring m_selectAction = "event://eSelect";
    sstring m_changeAction = "event://eChange";
    unsigned m_styleBits = 0;
    int m_visibleRows = kDefaultRows;
    int m_multiple = 0;
    int m_headerEnabled = 1;
};
