// tests/support/valuenode.h: a control that is nothing but a value.
#pragma once

#include "controls/guihtmlcontrol.h"
#include "runtime/gui.h"

#include <functional>
#include <string>

/// A control that takes part in its form as real ones do, and counts how often it is asked. It ends with the page.
class ValueNode : public guiHtmlControl
{
public:
    ValueNode(char const* name, char const* value) : text(value) { setString(kStringName, sstring(name)); }
    using guiHtmlControl::operator=;

    void readFormProperty(ScriptObject* form) override
    {
        ++reads;
        ScriptValue* value = guiComponent::NewScriptValue();
        if (pGUI->getFormProp()->readProperty(form, getName(), value) && value->isString())
            text = value->toString(0).c_str();
        guiComponent::DeleteScriptValue(value);
        if (whileReading)
            whileReading();
    }

    void writeFormProperty(ScriptObject* form) override
    {
        ++writes;
        if (isSilent)
            return;
        ScriptValue* value = guiComponent::NewScriptValue();
        value->setString(sstring(text.c_str()));
        pGUI->getFormProp()->writeProperty(form, getName(), value);
        guiComponent::DeleteScriptValue(value);
    }

    void eraseFormProperty(ScriptObject* form) override { pGUI->getFormProp()->eraseProperty(form, getName()); }

    int setText(sstring const& page, sstring const&) override
    {
        text = page.c_str();
        return 1;
    }

    std::string text;
    bool isSilent = false; // an unchecked radio button
    int reads = 0;
    int writes = 0;
    std::function<void()> whileReading;
};
