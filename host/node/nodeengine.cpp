// host/node/nodeengine.cpp: objects and values between the component and the interpreter. Calls are in nodecall.cpp.
#include "host/node/nodeengine.h"

#include "host/node/nodeclass.h"
#include "host/node/nodecomponent.h"

namespace {

// Marks JavaScript objects that carry a handle of ours, so that another addon's object is never taken for one.
constexpr napi_type_tag kInstanceTag = {0x7461726e2d677569, 0x68616e646c653031};

/// The nearest number among those that a 64-bit integer can hold.
double fromBigInt(Napi::BigInt value)
{
    bool isExact = false;
    return static_cast<double>(value.Int64Value(&isExact));
}

} // namespace

NodeEngine::NodeEngine(Napi::Env env) : m_env(env), m_thread(std::this_thread::get_id()), m_runtime(*this) {}

NodeEngine& NodeEngine::of(Napi::Env env) { return *env.GetInstanceData<NodeEngine>(); }

Napi::Value NodeEngine::toScript(NodeObject* object) { return object ? project(*object) : m_env.Null(); }

Napi::Value NodeEngine::toScript(NodeValue const& value)
{
    struct Convert
    {
        NodeEngine& engine;
        Napi::Value operator()(std::monostate) const { return engine.m_env.Null(); }
        Napi::Value operator()(bool flag) const { return Napi::Boolean::New(engine.m_env, flag); }
        Napi::Value operator()(double number) const { return Napi::Number::New(engine.m_env, number); }
        Napi::Value operator()(std::u16string const& text) const { return Napi::String::New(engine.m_env, text); }
        Napi::Value operator()(ObjectHold const& object) const { return engine.toScript(object.get()); }
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
    case napi_function:
        return NodeValue(NodeValue::Data(handleOf(value.As<Napi::Object>())));
    default:
        return NodeValue();
    }
}

NodeObject* NodeEngine::instanceOf(Napi::Value value)
{
    bool isOurs = false;
    void* object = nullptr;
    if (value.IsObject() && napi_check_object_type_tag(m_env, value, &kInstanceTag, &isOurs) == napi_ok && isOurs)
        napi_unwrap(m_env, value, &object);
    return static_cast<NodeObject*>(object);
}

ObjectHold NodeEngine::handleOf(Napi::Object object)
{
    if (auto instance = instanceOf(object))
        return ObjectHold(instance);
    auto known = m_getHandle.Call(m_handles.Value(), {object});
    if (known.IsExternal())
        return ObjectHold(known.As<Napi::External<NodeObject>>().Data());
    auto made = new NodeObject(*this, NodeObject::Kind::Script);
    auto external = Napi::External<NodeObject>::New(m_env, made, onScriptObjectCollected);
    m_setHandle.Call(m_handles.Value(), {object, external});
    made->bind(object);
    return ObjectHold(made);
}

void NodeEngine::wrap(Napi::Object script, NodeObject& object)
{
    object.reference();
    napi_wrap(m_env, script, &object, onCollected, nullptr, nullptr);
    napi_type_tag_object(m_env, script, &kInstanceTag);
    object.bind(script);
    addInstance(object);
    track(object);
}

void NodeEngine::onCollected(napi_env env, void* object, void*)
{
    onScriptObjectCollected(env, static_cast<NodeObject*>(object));
}

/// What follows may run script and wait: not inside the collector.
void NodeEngine::onScriptObjectCollected(Napi::Env, NodeObject* object)
{
    object->engine().post([object] { object->unbind(), object->unreference(); }, [object] { object->unreference(); });
}

Napi::Value NodeEngine::project(NodeObject& object)
{
    auto script = object.script();
    if (!script.IsEmpty())
        return script;
    switch (object.kind()) {
    case NodeObject::Kind::Table:
        return projectTable(object);
    case NodeObject::Kind::Instance:
        return projectInstance(object);
    default:
        return m_env.Null();
    }
}

Napi::Value NodeEngine::projectTable(NodeObject& object)
{
    object.reference();
    auto external = Napi::External<NodeObject>::New(m_env, &object, onScriptObjectCollected);
    auto proxy = callHelper("projectTable", {external});
    if (proxy.IsEmpty())
        return m_env.Null();
    m_setHandle.Call(m_handles.Value(), {proxy, external});
    object.bind(proxy.As<Napi::Object>());
    return proxy;
}

Napi::Value NodeEngine::projectInstance(NodeObject& object)
{
    m_adopted = &object;
    auto made = object.scriptClass()->publicClass().New({});
    m_adopted = nullptr;
    if (made.IsEmpty()) {
        reportPending();
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

NodeObject* NodeEngine::takeAdopted() { return std::exchange(m_adopted, nullptr); }

NodeClass& NodeEngine::addClass(std::unique_ptr<NodeClass> scriptClass)
{
    return *m_classes.emplace_back(std::move(scriptClass));
}

NodeClass* NodeEngine::findClass(std::u16string const& name)
{
    istring wanted(toSstring(name));
    for (auto& known : m_classes)
        if (wanted == toSstring(fromUtf8(known->name())))
            return known.get();
    return nullptr;
}

void NodeEngine::addInstance(NodeObject& object)
{
    if (m_instances.insert(&object).second)
        object.reference();
}

void NodeEngine::removeInstance(NodeObject& object)
{
    untrack(object);
    if (m_instances.erase(&object) > 0)
        object.unreference();
}

ObjectHold NodeEngine::makeInstance(NodeClass& scriptClass)
{
    auto object = new NodeObject(*this, NodeObject::Kind::Instance, &scriptClass);
    ObjectHold hold(object);
    object->unreference();
    runOrPost([this, hold] { addInstance(*hold.get()); });
    scriptClass.create(*object);
    return hold;
}

ObjectHold NodeEngine::makeApplicationObject(std::u16string const& name)
{
    auto made = callHelper("construct", {Napi::String::New(m_env, name)});
    if (made.IsEmpty() || !made.IsObject())
        return {};
    auto hold = handleOf(made.As<Napi::Object>());
    track(*hold.get());
    publishFresh(nullptr);
    return hold;
}

ScriptObject* NodeEngine::createInstance(sstring const& className)
{
    auto name = toText(className);
    ObjectHold made;
    if (auto known = findClass(name))
        made = makeInstance(*known);
    else
        runAndWait([&] {
            Napi::HandleScope scope(m_env);
            made = makeApplicationObject(name);
        });
    if (made)
        made->keep();
    return made.get();
}

bool NodeEngine::readScript(NodeObject& object, std::u16string const& name, NodeValue& out)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    auto key = Napi::String::New(m_env, name);
    if (script.IsEmpty() || !script.Has(key))
        return false;
    auto value = script.Get(key);
    reportPending();
    out = fromScript(value);
    return true;
}

void NodeEngine::writeScript(NodeObject& object, std::u16string const& name, NodeValue const& value)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    if (script.IsEmpty())
        return;
    script.Set(Napi::String::New(m_env, name), toScript(value));
    reportPending();
}

void NodeEngine::eraseScript(NodeObject& object, std::u16string const& name)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    if (script.IsEmpty())
        return;
    script.Delete(Napi::String::New(m_env, name));
    reportPending();
}

bool NodeEngine::hasScriptMethod(NodeObject& object, std::u16string const& name)
{
    Napi::HandleScope scope(m_env);
    auto answer = callHelper("hasMethod", {object.script(), Napi::String::New(m_env, name)});
    return !answer.IsEmpty() && answer.ToBoolean();
}

void NodeEngine::defineAccessor(NodeObject& object, std::u16string const& name)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    if (!script.IsEmpty())
        callHelper("defineAccessor", {script, Napi::String::New(m_env, name)});
}

void NodeEngine::defineMethod(NodeObject& object, std::u16string const& name, ScriptMethod method)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    if (script.IsEmpty())
        return;
    auto& stored = m_ownMethods[{method, name}];
    if (!stored)
        stored.reset(new OwnMethod{method, toUtf8(name)});
    napi_value function = nullptr;
    napi_create_function(m_env, stored->name.c_str(), stored->name.size(), onOwnMethod, stored.get(), &function);
    callHelper("defineMethod", {script, Napi::String::New(m_env, name), function});
}

napi_value NodeEngine::onOwnMethod(napi_env env, napi_callback_info rawInfo)
{
    Napi::CallbackInfo info(env, rawInfo);
    auto& engine = of(env);
    if (!info.This().IsObject())
        return info.Env().Null();
    auto& own = *static_cast<OwnMethod*>(info.Data());
    auto self = engine.handleOf(info.This().As<Napi::Object>());
    return engine.invoke(own.method, self.get(), own.name, info);
}

void NodeEngine::tie(NodeObject& owner, NodeObject& object)
{
    Napi::HandleScope scope(m_env);
    callHelper("tie", {toScript(&owner), object.script()});
}
