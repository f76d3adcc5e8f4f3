// host/native/nativeclass.cpp: see nativeclass.h.
#include "host/native/nativeclass.h"

#include "host/native/nativeobject.h"
#include "host/native/nativetext.h"

#include <cassert>

namespace {

ScriptPrivate* slotOf(NativeObject* self) { return self ? self->getPrivate() : nullptr; }

} // namespace

void NativeClass::setPropertyHandlers(ScriptAddProp onAddProp, ScriptDelProp onDelProp, ScriptGetProp onGetProp,
                                      ScriptSetProp onSetProp)
{
    m_addProp = onAddProp;
    m_delProp = onDelProp;
    m_getProp = onGetProp;
    m_setProp = onSetProp;
}

void NativeClass::addMethod(sstring const& name, ScriptMethod method)
{
    assert(method);
    std::u16string key = nativeFromSString(name);
    m_methodNames.push_back(nativeToUtf8(key));
    m_methods.insert_or_assign(std::move(key), method);
}

void NativeClass::addClassMethod(sstring const& name, ScriptMethod method)
{
    assert(method);
    std::u16string key = nativeFromSString(name);
    m_classMethodNames.push_back(nativeToUtf8(key));
    m_classMethods.insert_or_assign(std::move(key), method);
}

ScriptMethod NativeClass::find(Table const& table, std::u16string const& name)
{
    auto found = table.find(name);
    return found == table.end() ? nullptr : found->second;
}

bool NativeClass::hasDynamic(LibManager& manager, NativeObject* self, NativeValue const& name) const
{
    return m_addProp && m_addProp(manager, slotOf(self), self, name, !self);
}

bool NativeClass::getDynamic(LibManager& manager, NativeObject* self, NativeValue const& name, NativeValue& out) const
{
    return m_getProp && m_getProp(manager, slotOf(self), self, name, out, !self);
}

bool NativeClass::setDynamic(LibManager& manager, NativeObject* self, NativeValue const& name,
                             NativeValue const& value) const
{
    return m_setProp && m_setProp(manager, slotOf(self), self, name, value, !self);
}

bool NativeClass::removeDynamic(LibManager& manager, NativeObject* self, NativeValue const& name) const
{
    return m_delProp && m_delProp(manager, slotOf(self), self, name, !self);
}
