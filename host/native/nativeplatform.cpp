#include "host/native/nativeplatform.h"

#include "host/native/nativeengine.h"

namespace {

thread_local int theListsInUse = 0;

} // namespace

ScriptObject* NativePlatform::createObject(ScriptEngine*)
{
    ++m_objects;
    return m_engine.makeObject().release();
}

ScriptArgs* NativePlatform::createArgs(ScriptEngine*)
{
    ++m_args;
    ++theListsInUse;
    return new NativeArguments;
}

int NativePlatform::listsInUse() { return theListsInUse; }

ScriptValue* NativePlatform::createValue(ScriptEngine*)
{
    ++m_values;
    return new NativeValue;
}

void NativePlatform::destroyObject(ScriptObject* object)
{
    if (!object)
        return;
    --m_objects;
    object->letGo();
}

void NativePlatform::destroyArgs(ScriptArgs* args)
{
    if (!args)
        return;
    --m_args;
    --theListsInUse;
    delete static_cast<NativeArguments*>(args);
}

void NativePlatform::destroyValue(ScriptValue* value)
{
    if (!value)
        return;
    --m_values;
    delete static_cast<NativeValue*>(value);
}
