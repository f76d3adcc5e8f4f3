// controls/guiformproperty.cpp: see guiformproperty.h.
#include "controls/guiformproperty.h"

#include "controls/guicontrolhost.h"
#include "foundation/vela-threadrole.h"

#include <cassert>

bool guiTakesText(ScriptValue& value)
{
    if (value.isNumber())
        value.setString(value.toString(0));
    return value.isString();
}

guiFormProperty::guiFormProperty(ScriptObject* form, sstring const& name)
    : m_service(guiControlHost::current().formProp()),
      m_form(m_service && name.getLength() ? form : nullptr),
      m_name(name)
{
    assertOnGuiThread();
    if (m_form)
        m_value = guiControlHost::current().platform()->createValue(m_form->getEngine());
}

guiFormProperty::~guiFormProperty()
{
    if (m_value)
        guiControlHost::current().platform()->destroyValue(m_value);
}

bool guiFormProperty::read() { return m_form && m_service->readProperty(m_form, m_name, m_value); }
bool guiFormProperty::isString() const { return m_value && m_value->isString(); }
bool guiFormProperty::isNull() const { return m_value && m_value->isNull(); }
bool guiFormProperty::isTrue() const { return m_value && m_value->isBool() && m_value->toBool(0); }
bool guiFormProperty::hasTypes() const { return m_form && m_form->getEngine()->hasFormBooleans() != 0; }
bool guiFormProperty::isNumber() const { return m_value && m_value->isNumber(); }
double guiFormProperty::number() const { return m_value ? m_value->toNumber(0) : 0; }
sstring guiFormProperty::text() const { return m_value ? m_value->toString(0) : sstring(); }

void guiFormProperty::write(sstring const& text)
{
    assert(!m_form == !m_value);
    if (!m_form)
        return;
    m_value->setString(text);
    m_service->writeProperty(m_form, m_name, m_value);
}

void guiFormProperty::writeNull()
{
    assert(!m_form == !m_value);
    if (!m_form)
        return;
    m_value->setNull();
    m_service->writeProperty(m_form, m_name, m_value);
}

void guiFormProperty::writeBool(bool on)
{
    assert(!m_form == !m_value);
    if (!m_form)
        return;
    m_value->setBool(on);
    m_service->writeProperty(m_form, m_name, m_value);
}

void guiFormProperty::writeNumber(double number)
{
    assert(!m_form == !m_value);
    if (!m_form)
        return;
    m_value->setNumber(number);
    m_service->writeProperty(m_form, m_name, m_value);
}

void guiFormProperty::erase()
{
    if (m_form)
        m_service->eraseProperty(m_form, m_name);
}
