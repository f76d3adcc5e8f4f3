#include "host/native/nativeclass.h"

#include "host/native/nativeobject.h"
#include "host/native/nativetext.h"

namespace {

ScriptPrivate* slotOf(NativeObject* self) { return self ? self->getPrivate() : nullptr; }

} // namespace

void NativeClass::setPropertyHandlers(ScriptAddProp onAddProp, ScriptDelProp onDelProp, ScriptGetProp onGetProp,
                                      ScriptSetProp onSetProp)
{
    addProp_ = onAddProp;
    delProp_ = onDelProp;
    getProp_ = onGetProp;
    setProp_ = onSetProp;
}

void NativeClass::addMethod(sstring const& name, ScriptMethod method)
{
    std::u16string key = nativeFromSString(name);
    methodNames_.push_back(nativeToUtf8(key));
    methods_.insert_or_assign(std::move(key), method);
}

void NativeClass::addClassMethod(sstring const& name, ScriptMethod method)
{
    std::u16string key = nativeFromSString(name);
    classMethodNames_.push_back(nativeToUtf8(key));
    classMethods_.insert_or_assign(std::move(key), method);
}

ScriptMethod NativeClass::find(Table const& table, std::u16string const& name)
{
    auto found = table.find(name);
    return found == table.end() ? nullptr : found->second;
}

bool NativeClass::hasDynamic(LibManager& manager, NativeObject* self, NativeValue const& name) const
{
    return addProp_ && addProp_(manager, slotOf(self), self, name, self == nullptr);
}

bool NativeClass::getDynamic(LibManager& manager, NativeObject* self, NativeValue const& name, NativeValue& out) const
{
    return getProp_ && getProp_(manager, slotOf(self), self, name, out, self == nullptr);
}

bool NativeClass::setDynamic(LibManager& manager, NativeObject* self, NativeValue const& name,
                             NativeValue const& value) const
{
    return setProp_ && setProp_(manager, slotOf(self), self, name, value, self == nullptr);
}

bool NativeClass::removeDynamic(LibManager& manager, NativeObject* self, NativeValue const& name) const
{
    return delProp_ && delProp_(manager, slotOf(self), self, name, self == nullptr);
}
