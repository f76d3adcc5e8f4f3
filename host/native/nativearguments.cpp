// host/native/nativearguments.cpp: see nativearguments.h.
#include "host/native/nativearguments.h"

NativeValue const& NativeArguments::operator[](size_t index) const
{
    static NativeValue const kNull;
    return index < m_values.size() ? m_values[index] : kNull;
}

void NativeArguments::append(ScriptValue* value)
{
    m_values.push_back(value ? *static_cast<NativeValue*>(value) : NativeValue());
}

ScriptValue* NativeArguments::get(int index)
{
    bool inside = index >= 0 && static_cast<size_t>(index) < m_values.size();
    return inside ? &m_values[static_cast<size_t>(index)] : nullptr;
}
