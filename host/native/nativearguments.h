// host/native/nativearguments.h: the arguments of one call.
#pragma once

#include "host/hostslots.h"
#include "host/native/nativevalue.h"

#include <deque>
#include <initializer_list>

/// A list of values. Used by one thread at a time. A value's address stays the same while more are added.
class NativeArguments final : public ScriptArgsSlots
{
public:
    NativeArguments() = default;
    NativeArguments(std::initializer_list<NativeValue> values) : m_values(values) {}

    /// Number of arguments.
    size_t size() const { return m_values.size(); }
    /// The argument at `index`, from 0; null beyond the last.
    NativeValue const& operator[](size_t index) const;
    void add(NativeValue value) { m_values.push_back(std::move(value)); }

    // What the component calls.
    void append(ScriptValue* value) override;
    int count() override { return static_cast<int>(m_values.size()); }
    ScriptValue* get(int index) override;

private:
    std::deque<NativeValue> m_values;
};
