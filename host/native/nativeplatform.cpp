#include "host/native/nativeplatform.h"

#include "host/native/nativeengine.h"

namespace {

thread_local int theListsInUse = 0;

} // namespace

ScriptObject* NativePlatform::createObject(ScriptEngine*)
{
    ++objects_;
    return engine_.makeObject().release();
}

ScriptArgs* NativePlatform::createArgs(ScriptEngine*)
{
    ++args_;
    ++theListsInUse;
    return new NativeArguments;
}

int NativePlatform::listsInUse() { return theListsInUse; }

ScriptValue* NativePlatform::createValue(ScriptEngine*)
{
    ++values_;
    return new NativeValue;
}

void NativePlatform::destroyObject(ScriptObject* object)
{
    if (!object)
        return;
    --objects_;
    object->letGo();
}

void NativePlatform::destroyArgs(ScriptArgs* args)
{
    if (!args)
        return;
    --args_;
    --theListsInUse;
    delete static_cast<NativeArguments*>(args);
}

void NativePlatform::destroyValue(ScriptValue* value)
{
    if (!value)
        return;
    --values_;
    delete static_cast<NativeValue*>(value);
}
