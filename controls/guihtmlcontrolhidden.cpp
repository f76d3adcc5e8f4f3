// controls/guihtmlcontrolhidden.cpp: see guihtmlcontrolhidden.h.
#include "controls/guihtmlcontrolhidden.h"

#include "controls/guiformproperty.h"

guiHtml* guiHtmlControlHidden::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

bool guiHtmlControlHidden::takesFormValue(ScriptValue& value) const { return guiTakesText(value); }

void guiHtmlControlHidden::readFormProperty(ScriptObject* form)
{
    guiFormProperty value(form, getName());
    if (value.read() && value.isString())
        setText(value.text(), sstring());
}

void guiHtmlControlHidden::writeFormProperty(ScriptObject* form)
{
    guiFormProperty(form, getName()).write(m_content.text);
}
void guiHtmlControlHidden::eraseFormProperty(ScriptObject* form) { guiFormProperty(form, getName()).erase(); }
