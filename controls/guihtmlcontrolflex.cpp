// controls/guihtmlcontrolflex.cpp: see guihtmlcontrolflex.h.
#include "controls/guihtmlcontrolflex.h"

guiHtml& guiHtmlControlFlex::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    auto* flex = dynamic_cast<guiHtmlControlFlex*>(&other);
    if (!flex || flex == this)
        return *this;
    init(flex->m_styleBits, flex->m_visibleRows, flex->m_multiple);
    m_columnCodes = flex->m_columnCodes;
    m_selectAction = flex->m_selectAction;
    m_changeAction = flex->m_changeAction;
    m_headerEnabled = flex->m_headerEnabled;
    m_items.clear();
    for (auto const& item : flex->m_items)
        m_items.push_back(item ? std::make_unique<guiHtmlControlFlexEntry>(*item) : nullptr);
    return *this;
}

guiHtml* guiHtmlControlFlex::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlFlex::init(unsigned styleBits, int visibleRows, bool multiple)
{
    m_styleBits = styleBits;
    m_visibleRows = visibleRows;
    m_multiple = multiple;
}

void guiHtmlControlFlex::appendEntry(guiHtmlControlFlexEntry const& entry)
{
    m_items.push_back(std::make_unique<guiHtmlControlFlexEntry>(entry));
    if (m_items.back()->text.getLength() == 0)
        m_items.back()->text = entry.value;
}

void guiHtmlControlFlex::onSelect()
{
    if (m_selectAction.getLength() != 0)
        onHyperlink(m_selectAction, getCustomObject());
}

void guiHtmlControlFlex::onChange()
{
    if (m_changeAction.getLength() != 0)
        onHyperlink(m_changeAction, getCustomObject());
}
