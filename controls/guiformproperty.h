// controls/guiformproperty.h: one property of a window's form object, through which a control and script exchange a
// value.
#pragma once

#include "foundation/vela-string.h"

class HostFormProp;
class ScriptObject;
class ScriptValue;

/// Makes a number its text. Whether the value is a text then.
bool guiTakesText(ScriptValue& value);

/// A control without a name has no property: nothing is found, and nothing is written. GUI thread.
class guiFormProperty
{
public:
    guiFormProperty(ScriptObject* form, sstring const& name);
    ~guiFormProperty();
    guiFormProperty(guiFormProperty const&) = delete;
    guiFormProperty& operator=(guiFormProperty const&) = delete;

    /// Whether this form holds booleans for check boxes without a value, and numbers for controls of numbers.
    bool hasTypes() const;
    /// Reads the property; false when the form has none of this name.
    bool read();
    /// What was read.
    bool isString() const;
    bool isNull() const;
    bool isNumber() const;
    double number() const;
    bool isTrue() const; // the boolean
    sstring text() const;

    void write(sstring const& text);
    void writeNull();
    void writeBool(bool on);
    void writeNumber(double number);
    void erase();

private:
    HostFormProp* m_service; // not owned; null without a component
    ScriptObject* m_form;    // not owned; null: there is no property
    sstring m_name;
    ScriptValue* m_value = nullptr; // what is read or written; owned, null without a property
};
