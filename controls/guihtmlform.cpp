// controls/guihtmlform.cpp: see guihtmlform.h.
#include "controls/guihtmlform.h"

guiHtml& guiHtmlForm::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (other.getType() == kTypeForm)
        m_action = static_cast<guiHtmlForm&>(other).m_action;
    return *this;
}

guiHtml* guiHtmlForm::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }
