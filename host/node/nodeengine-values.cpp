// host/node/nodeengine-values.cpp: values and objects from one language to the other.
#include "host/node/nodeengine.h"

#include "host/node/nodeclass.h"

#include <cassert>
#include <optional>
#include <string>
#include <utility>

namespace {

// Marks JavaScript objects that carry a handle of ours, so that another addon's object is never taken for one.
constexpr napi_type_tag kInstanceTag = {0x7461726e2d677569, 0x68616e646c653031};

/// The nearest number among those that a 64-bit integer can hold.
double fromBigInt(Napi::BigInt value)
{
    bool isExact = false;
    return static_cast<double>(value.Int64Value(&isExact));
}

/// A Uint16Array is a text: a long one that script puts together is not copied into a string first.
std::optional<std::u16string> unitsIn(Napi::Value value)
{
    if (!value.IsTypedArray() || value.As<Napi::TypedArray>().TypedArrayType() != napi_uint16_array)
        return std::nullopt;
    auto const array = value.As<Napi::Uint16Array>();
    return std::u16string(reinterpret_cast<char16_t const*>(array.Data()), array.ElementLength());
}

} // namespace

Napi::Value NodeEngine::toScript(NodeObject* object) { return object ? scriptOf(*object) : m_env.Null(); }

Napi::Value NodeEngine::toScript(NodeValue const& value)
{
    struct Convert
    {
        NodeEngine& engine;
        Napi::Value operator()(std::monostate) const { return engine.m_env.Null(); }
        Napi::Value operator()(bool flag) const { return Napi::Boolean::New(engine.m_env, flag); }
        Napi::Value operator()(double number) const { return Napi::Number::New(engine.m_env, number); }
        Napi::Value operator()(std::u16string const& text) const { return Napi::String::New(engine.m_env, text); }
        Napi::Value operator()(NodeObjectHold const& object) const { return engine.toScript(object.get()); }
    };
    return std::visit(Convert{*this}, value.data());
}

NodeValue NodeEngine::fromScript(Napi::Value value)
{
    switch (value.IsEmpty() ? napi_undefined : value.Type()) {
    case napi_boolean:
        return NodeValue(NodeValue::Data(value.As<Napi::Boolean>().Value()));
    case napi_number:
        return NodeValue(NodeValue::Data(value.As<Napi::Number>().DoubleValue()));
    case napi_bigint:
        return NodeValue(NodeValue::Data(fromBigInt(value.As<Napi::BigInt>())));
    case napi_string:
        return NodeValue(NodeValue::Data(value.As<Napi::String>().Utf16Value()));
    case napi_object:
        if (std::optional<std::u16string> units = unitsIn(value))
            return NodeValue(NodeValue::Data(std::move(*units)));
        [[fallthrough]];
    case napi_function:
        return NodeValue(NodeValue::Data(handleOf(value.As<Napi::Object>())));
    default:
        return NodeValue();
    }
}

// --- from an object to its handle ---

NodeObject* NodeEngine::instanceOf(Napi::Value value)
{
    bool isOurs = false;
    void* object = nullptr;
    if (value.IsObject() && napi_check_object_type_tag(m_env, value, &kInstanceTag, &isOurs) == napi_ok && isOurs)
        napi_unwrap(m_env, value, &object);
    return static_cast<NodeObject*>(object);
}

NodeObjectHold NodeEngine::handleOf(Napi::Object object)
{
    assert(isScriptThread());
    if (auto instance = instanceOf(object))
        return NodeObjectHold(instance);
    auto known = m_getHandle.Call(m_handles.Value(), {object});
    if (known.IsExternal())
        return NodeObjectHold(known.As<Napi::External<NodeObject>>().Data());
    auto made = NodeObject::make(*this, NodeObject::Kind::kScript);
    m_setHandle.Call(m_handles.Value(), {object, makeExternal(*made)});
    made->bind(object);
    return NodeObjectHold(made.get());
}

/// The handle as a value of the interpreter; it keeps a reference until it is collected.
Napi::External<NodeObject> NodeEngine::makeExternal(NodeObject& object)
{
    return Napi::External<NodeObject>::New(m_env, NodeObjectRef(&object).release(), onExternalCollected);
}

void NodeEngine::wrap(Napi::Object script, NodeObject& object)
{
    assert(object.kind() == NodeObject::Kind::kInstance && !instanceOf(script));
    napi_wrap(m_env, script, NodeObjectRef(&object).release(), onCollected, nullptr, nullptr);
    napi_type_tag_object(m_env, script, &kInstanceTag);
    object.bind(script);
    addInstance(object);
    m_methodNames.track(object);
}

void NodeEngine::onCollected(napi_env env, void* object, void*)
{
    onExternalCollected(env, static_cast<NodeObject*>(object));
}

/// The collector calls this. What has to follow may run script and wait, so it is posted.
void NodeEngine::onExternalCollected(Napi::Env, NodeObject* object)
{
    object->engine().post([object = NodeObjectRef::adopt(object)] { object->unbind(); });
}

// --- from a handle to its object ---

Napi::Value NodeEngine::scriptOf(NodeObject& object)
{
    auto script = object.script();
    if (!script.IsEmpty())
        return script;
    switch (object.kind()) {
    case NodeObject::Kind::kTable:
        return makeTableProxy(object);
    case NodeObject::Kind::kInstance:
        return makeScriptInstance(object);
    case NodeObject::Kind::kScript:
        break; // its JavaScript object was collected
    }
    return m_env.Null();
}

Napi::Value NodeEngine::makeTableProxy(NodeObject& object)
{
    auto external = makeExternal(object);
    auto proxy = m_helpers.call("makeTableProxy", {external, Napi::Boolean::New(m_env, &object == session())});
    if (proxy.IsEmpty())
        return m_env.Null();
    m_setHandle.Call(m_handles.Value(), {proxy, external});
    object.bind(proxy.As<Napi::Object>());
    return proxy;
}

Napi::Value NodeEngine::makeScriptInstance(NodeObject& object)
{
    assert(!m_adopted);
    m_adopted = &object;
    auto made = object.scriptClass()->publicClass().New({});
    assert(made.IsEmpty() || !m_adopted); // the constructor has taken it
    m_adopted = nullptr;
    if (made.IsEmpty()) {
        m_helpers.reportPending();
        return m_env.Null();
    }
    for (auto& name : object.tableNames())
        defineAccessor(object, name);
    for (auto& [name, method] : object.ownMethods())
        defineMethod(object, name, method);
    if (object.owner())
        tie(*object.owner(), object);
    return made;
}
