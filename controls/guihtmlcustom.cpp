// controls/guihtmlcustom.cpp: see guihtmlcustom.h.
#include "controls/guihtmlcustom.h"

#include "controls/guicontrolhost.h"

guiHtml& guiHtmlCustom::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (other.getType() != kTypeCustom)
        return *this;
    m_component = static_cast<guiHtmlCustom&>(other).m_component;
    return *this;
}

guiHtml* guiHtmlCustom::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlCustom::onCallback()
{
    if (!mx.mouse)
        return;
    guiControlHost& host = guiControlHost::current();
    ScriptValue* value = host.newValue();
    value->setInt(mx.mouseX);
    mx.mouse->setProperty("x", value);
    value->setInt(mx.mouseY);
    mx.mouse->setProperty("y", value);
    host.deleteValue(value);
}
