// host/node/nodevalue.cpp: script values. Their way into the interpreter and back is in nodeengine-values.cpp.
#include "host/node/nodevalue.h"

#include "host/node/nodeobject.h"

#include <cassert>
#include <cmath>
#include <limits>
#include <utility>

NodeValue::NodeValue(Data data) : m_data(std::move(data))
{
    [[maybe_unused]] auto hold = std::get_if<NodeObjectHold>(&m_data);
    assert(!hold || *hold); // "no object" is null, a kind of its own
}

NodeObject* NodeValue::object() const
{
    auto hold = std::get_if<NodeObjectHold>(&m_data);
    return hold ? hold->get() : nullptr;
}

bool NodeValue::isFunction() const { return object() && object()->isFunction(); }

bool NodeValue::isObject() const { return object() && !object()->isFunction(); }

bool NodeValue::isInt() const
{
    auto number = std::get_if<double>(&m_data);
    using limits = std::numeric_limits<int>;
    return number && *number >= limits::min() && *number <= limits::max() && std::trunc(*number) == *number;
}

int NodeValue::toInt(int fallback) const
{
    auto number = std::get_if<double>(&m_data);
    if (!number)
        return fallback;
    if (std::isnan(*number))
        return 0;
    using limits = std::numeric_limits<int>;
    double clamped = std::fmin(std::fmax(*number, limits::min()), limits::max());
    return static_cast<int>(clamped);
}

bool NodeValue::toBool(int fallback) const
{
    if (auto flag = std::get_if<bool>(&m_data))
        return *flag;
    auto number = std::get_if<double>(&m_data);
    return number ? *number != 0 && !std::isnan(*number) : fallback != 0;
}

double NodeValue::toNumber(double fallback) const
{
    auto number = std::get_if<double>(&m_data);
    return number ? *number : fallback;
}

namespace {

struct ToText
{
    sstring operator()(std::monostate) const { return {}; }
    sstring operator()(bool flag) const { return flag ? "true" : "false"; }
    sstring operator()(double number) const { return toSstring(numberToText(number)); }
    sstring operator()(std::u16string const& text) const { return toSstring(text); }
    sstring operator()(NodeObjectHold const& object) const
    {
        return object && object->isFunction() ? "[function]" : "[object]";
    }
};

} // namespace

sstring NodeValue::toString(int) const { return std::visit(ToText(), m_data); }

ScriptObject* NodeValue::toObject(int) const { return object(); }

void NodeValue::setObject(ScriptObject* value)
{
    if (value)
        m_data = NodeObjectHold(static_cast<NodeObject*>(value));
    else
        setNull();
}

void NodeValue::assign(ScriptValue const& other) { m_data = Data(static_cast<NodeValue const&>(other).m_data); }

void NodeArgs::append(ScriptValue* value) { add(value ? *static_cast<NodeValue*>(value) : NodeValue()); }

ScriptValue* NodeArgs::get(int index)
{
    if (index >= 0 && index < count())
        return &m_values[static_cast<size_t>(index)];
    m_null.setNull();
    return &m_null;
}
