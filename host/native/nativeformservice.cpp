// host/native/nativeformservice.cpp: see nativeformservice.h.
#include "host/native/nativeformservice.h"

#include "host/native/nativeobject.h"
#include "host/native/nativetext.h"

bool NativeFormService::readProperty(ScriptObject* form, sstring const& name, ScriptValue* out)
{
    if (form)
        return form->getProperty(name, out);
    out->setNull();
    return false;
}

void NativeFormService::writeProperty(ScriptObject* form, sstring const& name, ScriptValue* value)
{
    if (form)
        form->setProperty(name, value);
}

void NativeFormService::eraseProperty(ScriptObject* form, sstring const& name)
{
    if (form)
        form->deleteProperty(name);
}

void NativeFormService::setPageText(ScriptObject* form, sstring const& text)
{
    if (form)
        static_cast<NativeObject*>(form)->setPageText(nativeFromSString(text));
}
