// controls/guihtmlcontrollist.h: the `select` element: a combo box or a list box.
#pragma once

#include "controls/guihtmlcontrol.h"

#include <memory>
#include <vector>

/// One `option`.
struct guiHtmlControlListEntry
{
    sstring value; ///< what forms and scripts see
    sstring text;  ///< what is shown
    int selected;  ///< selected before the user chose
};

class guiHtmlControlList : public guiHtmlControl
{
public:
    explicit guiHtmlControlList(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}

    int getControlType() override { return kControlList; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// `visibleRows`: 1 a combo box, more a list box, less no widget.
    void init(int visibleRows, bool multiple, bool editable);
    int getVisibleRows() const { return m_visibleRows; }
    int isMultiple() const { return m_multiple; }
    int isEditable() const { return m_editable; }

    /// The user chose: follows the node's link, if it has one.
    virtual void onChange();

    /// Adds an entry at the end; an empty text shows the value.
    void appendEntry(sstring const& value, sstring const& text, bool selected);
    unsigned getEntryCount() const { return static_cast<unsigned>(m_entries.size()); }
    /// Null for a hole that a removed entry left.
    guiHtmlControlListEntry const* getEntry(unsigned i) const { return m_entries[i].get(); }

private:
    std::vector<std::unique_ptr<guiHtmlControlListEntry>> m_entries;
    int m_visibleRows = 1;
    int m_multiple = 0;
    int m_editable = 0;
};
