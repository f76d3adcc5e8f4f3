// controls/guihtmlcontroledit.cpp: see guihtmlcontroledit.h.
#include "controls/guihtmlcontroledit.h"

guiHtml& guiHtmlControlEdit::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto* edit = dynamic_cast<guiHtmlControlEdit*>(&other))
        m_shape = edit->m_shape;
    return *this;
}

guiHtml* guiHtmlControlEdit::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlEdit::onChange(sstring const& text)
{
    if (m_action.getLength() == 0)
        return;
    m_text = text;
    onHyperlink(m_action, getCustomObject());
}
