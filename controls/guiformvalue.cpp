// controls/guiformvalue.cpp: see guiformvalue.h.
#include "controls/guiformvalue.h"

#include "runtime/gui.h"

guiFormValue::guiFormValue(ScriptObject* form, sstring const& name)
    : m_form(pGUI && name.getLength() ? form : nullptr), m_name(name)
{
    if (m_form)
        m_value = pGUI->getPlatform()->createValue(m_form->getEngine());
}

guiFormValue::~guiFormValue()
{
    if (m_value)
        pGUI->getPlatform()->destroyValue(m_value);
}

bool guiFormValue::read() { return m_form && pGUI->getFormProp()->readProperty(m_form, m_name, m_value); }
bool guiFormValue::isString() const { return m_value && m_value->isString(); }
bool guiFormValue::isNull() const { return m_value && m_value->isNull(); }
sstring guiFormValue::text() const { return m_value ? m_value->toString(0) : sstring(); }

void guiFormValue::write(sstring const& text)
{
    if (!m_form)
        return;
    m_value->setString(text);
    pGUI->getFormProp()->writeProperty(m_form, m_name, m_value);
}

void guiFormValue::writeNull()
{
    if (!m_form)
        return;
    m_value->setNull();
    pGUI->getFormProp()->writeProperty(m_form, m_name, m_value);
}

void guiFormValue::erase()
{
    if (m_form)
        pGUI->getFormProp()->eraseProperty(m_form, m_name);
}
