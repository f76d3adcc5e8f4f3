// host/node/nodevalue.h: script values and argument lists as the component sees them: plain C++ data, so that the GUI
// thread reads arguments and writes results without touching the interpreter.
#pragma once

#include "host/hostslots.h"
#include "host/node/nodeobjectref.h"
#include "host/node/nodetext.h"

#include <deque>
#include <variant>

/// A value: null, boolean, number, string or object (functions are objects that can be called). Not shared between
/// threads without outside locking.
class NodeValue final : public ScriptValueSlots
{
public:
    using Data = std::variant<std::monostate, bool, double, std::u16string, NodeObjectHold>;

    NodeValue() = default;
    explicit NodeValue(Data data);
    NodeValue(NodeValue const&) = default;
    NodeValue(NodeValue&&) = default;
    // Not defaulted: the base class assigns through `assign`, so that a move would copy first.
    NodeValue& operator=(NodeValue const& other)
    {
        assign(other);
        return *this;
    }
    NodeValue& operator=(NodeValue&& other) noexcept
    {
        m_data = std::move(other.m_data);
        return *this;
    }
    ~NodeValue() = default;

    Data const& data() const { return m_data; }
    NodeObject* object() const;

    // What the component calls.
    bool isFunction() const override;
    bool isNumber() const override { return std::holds_alternative<double>(m_data); }
    bool isBool() const override { return std::holds_alternative<bool>(m_data); }
    bool isNull() const override { return std::holds_alternative<std::monostate>(m_data); }
    bool isString() const override { return std::holds_alternative<std::u16string>(m_data); }
    bool isObject() const override;
    bool isInt() const override;
    int toInt(int fallback) const override;
    bool toBool(int fallback) const override;
    double toNumber(double fallback) const override;
    sstring toString(int flags) const override;
    ScriptObject* toObject(int flags) const override;
    void setNull() override { m_data = std::monostate(); }
    void setInt(int value) override { m_data = static_cast<double>(value); }
    void setBool(int value) override { m_data = value != 0; }
    void setNumber(double value) override { m_data = value; }
    void setString(sstring const& value) override { m_data = toText(value); }
    void setObject(ScriptObject* value) override;
    void assign(ScriptValue const& other) override;

private:
    Data m_data;
};

/// The arguments of one call.
class NodeArgs final : public ScriptArgsSlots
{
public:
    using Values = std::deque<NodeValue>; // a deque: values that were handed out stay where they are

    NodeArgs() = default;
    explicit NodeArgs(Values values) : m_values(std::move(values)) {}
    void add(NodeValue value) { m_values.push_back(std::move(value)); }
    Values const& values() const { return m_values; }

    // What the component calls.
    void append(ScriptValue* value) override;
    int count() override { return static_cast<int>(m_values.size()); }
    ScriptValue* get(int index) override;

private:
    Values m_values;
    NodeValue m_null; // what get() answers beyond the last
};
