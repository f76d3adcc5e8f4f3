// controls/guihtmlcontrolbutton.cpp: see guihtmlcontrolbutton.h.
#include "controls/guihtmlcontrolbutton.h"

#include "controls/guihtmlform.h"

namespace {

guiHtmlForm* formAround(guiHtml* node)
{
    while (node && node->getType() != guiHtml::kTypeForm)
        node = node->getParent();
    return static_cast<guiHtmlForm*>(node);
}

} // namespace

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

// A reset button without a link does nothing: there is no built-in reset.
void guiHtmlControlButton::onClick()
{
    sstring link = m_action;
    if (link.getLength() == 0 && m_buttonType == kButtonSubmit)
        if (guiHtmlForm* form = formAround(getParent()))
            link = form->getAction();
    if (link.getLength() != 0)
        onHyperlink(link, getCustomObject());
}
