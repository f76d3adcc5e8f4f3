#include "host/native/nativearguments.h"

NativeValue const& NativeArguments::operator[](size_t index) const
{
    static const NativeValue kNull;
    return index < values_.size() ? values_[index] : kNull;
}

void NativeArguments::append(ScriptValue* value)
{
    values_.push_back(value ? *static_cast<NativeValue*>(value) : NativeValue());
}

ScriptValue* NativeArguments::get(int index)
{
    bool inside = index >= 0 && static_cast<size_t>(index) < values_.size();
    return inside ? &values_[static_cast<size_t>(index)] : nullptr;
}
