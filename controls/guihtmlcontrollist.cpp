// controls/guihtmlcontrollist.cpp: see guihtmlcontrollist.h.
#include "controls/guihtmlcontrollist.h"

guiHtml& guiHtmlControlList::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    auto* list = dynamic_cast<guiHtmlControlList*>(&other);
    if (!list || list == this)
        return *this;
    init(list->m_visibleRows, list->m_multiple, list->m_editable);
    m_entries.clear();
    for (auto const& entry : list->m_entries)
        m_entries.push_back(entry ? std::make_unique<guiHtmlControlListEntry>(*entry) : nullptr);
    return *this;
}

guiHtml* guiHtmlControlList::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlList::init(int visibleRows, bool multiple, bool editable)
{
    m_visibleRows = visibleRows;
    m_multiple = multiple;
    m_editable = editable;
}

void guiHtmlControlList::appendEntry(sstring const& value, sstring const& text, bool selected)
{
    m_entries.push_back(std::make_unique<guiHtmlControlListEntry>(
        guiHtmlControlListEntry{value, text.getLength() ? text : value, selected}));
}

void guiHtmlControlList::onChange()
{
    if (m_action.getLength() != 0)
        onHyperlink(m_action, getCustomObject());
}
