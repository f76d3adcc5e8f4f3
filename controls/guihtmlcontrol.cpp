// controls/guihtmlcontrol.cpp: see guihtmlcontrol.h.
#include "controls/guihtmlcontrol.h"

guiHtml& guiHtmlControl::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (other.getType() == kTypeControl) {
        auto& control = static_cast<guiHtmlControl&>(other);
        m_text = control.m_text;
        m_action = control.m_action;
    }
    return *this;
}

guiHtml* guiHtmlControl::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }
