// host/native/nativeplatform.cpp: see nativeplatform.h.
#include "host/native/nativeplatform.h"

#include "host/native/nativeengine.h"

#include <cassert>

namespace {

thread_local int listsOfThisThread = 0;

} // namespace

ScriptObject* NativePlatform::createObject(ScriptEngine*)
{
    ++m_objects;
    return m_engine.makeObject().release();
}

ScriptArgs* NativePlatform::createArgs(ScriptEngine*)
{
    ++m_args;
    ++listsOfThisThread;
    return new NativeArguments;
}

int NativePlatform::argumentListsInUse() { return listsOfThisThread; }

ScriptValue* NativePlatform::createValue(ScriptEngine*)
{
    ++m_values;
    return new NativeValue;
}

void NativePlatform::destroyObject(ScriptObject* object)
{
    if (!object)
        return;
    [[maybe_unused]] int left = --m_objects;
    assert(left >= 0);
    object->letGo();
}

void NativePlatform::destroyArgs(ScriptArgs* args)
{
    if (!args)
        return;
    [[maybe_unused]] int left = --m_args;
    assert(left >= 0 && listsOfThisThread > 0); // a list ends on the thread that made it
    --listsOfThisThread;
    delete static_cast<NativeArguments*>(args);
}

void NativePlatform::destroyValue(ScriptValue* value)
{
    if (!value)
        return;
    [[maybe_unused]] int left = --m_values;
    assert(left >= 0);
    delete static_cast<NativeValue*>(value);
}
