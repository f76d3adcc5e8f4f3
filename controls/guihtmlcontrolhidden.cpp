// controls/guihtmlcontrolhidden.cpp: see guihtmlcontrolhidden.h.
#include "controls/guihtmlcontrolhidden.h"

#include "controls/guiformvalue.h"

guiHtml* guiHtmlControlHidden::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlHidden::readFormProperty(ScriptObject* form)
{
    guiFormValue value(form, getName());
    if (value.read() && value.isString())
        setText(value.text(), sstring());
}

void guiHtmlControlHidden::writeFormProperty(ScriptObject* form) { guiFormValue(form, getName()).write(m_text); }
void guiHtmlControlHidden::eraseFormProperty(ScriptObject* form) { guiFormValue(form, getName()).erase(); }
