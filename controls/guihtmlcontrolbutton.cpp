// controls/guihtmlcontrolbutton.cpp: see guihtmlcontrolbutton.h.
#include "controls/guihtmlcontrolbutton.h"

guiHtml& guiHtmlControlButton::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto* button = dynamic_cast<guiHtmlControlButton*>(&other))
        init(button->m_buttonType, button->m_checked);
    return *this;
}

guiHtml* guiHtmlControlButton::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlButton::init(guiButtonType type, bool checked)
{
    m_buttonType = type;
    m_checked = checked;
}
