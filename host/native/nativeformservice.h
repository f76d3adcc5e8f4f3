// host/native/nativeformservice.h: the form-property service, on the form object's own table of properties.
#pragma once

#include "script/hostinterface.h"

/// Any thread; never waits. A null form has no properties.
class NativeFormService final : public HostFormProp
{
public:
    bool readProperty(ScriptObject* form, sstring const& name, ScriptValue* out) override;
    void writeProperty(ScriptObject* form, sstring const& name, ScriptValue* value) override;
    void eraseProperty(ScriptObject* form, sstring const& name) override;
    void setPageText(ScriptObject* form, sstring const& text) override;
};
