// host/node/nodeengine-objects.cpp: the classes and their objects, and what the component does with the JavaScript side
// of an object.
#include "host/node/nodeengine.h"

#include "host/node/nodeclass.h"
#include "host/node/nodenumbers.h"

#include <algorithm>
#include <cassert>

// --- classes ---

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

// --- objects ---

void NodeEngine::addInstance(NodeObject& object)
{
    assert(isScriptThread() && object.kind() == NodeObject::Kind::kInstance);
    m_instances.try_emplace(object.number(), &object);
}

void NodeEngine::removeInstance(NodeObject& object)
{
    assert(isScriptThread());
    m_methodNames.untrack(object);
    m_instances.erase(object.number());
}

NodeObjectHold NodeEngine::makeInstance(NodeClass& scriptClass)
{
    NodeObjectHold made(NodeObject::make(*this, NodeObject::Kind::kInstance, &scriptClass).get());
    runOrPost([this, made] { addInstance(*made); });
    scriptClass.create(*made);
    return made;
}

NodeObjectHold NodeEngine::makeApplicationObject(std::u16string const& name)
{
    auto made = m_helpers.call("construct", {Napi::String::New(m_env, name)});
    if (made.IsEmpty() || !made.IsObject())
        return {};
    auto hold = handleOf(made.As<Napi::Object>());
    m_methodNames.track(*hold);
    m_methodNames.publishFresh(nullptr);
    return hold;
}

ScriptObject* NodeEngine::createInstance(sstring const& className)
{
    auto name = toText(className);
    NodeObjectHold made;
    if (auto known = findClass(name))
        made = makeInstance(*known);
    else
        runAndWait([&] {
            Napi::HandleScope scope(m_env);
            made = makeApplicationObject(name);
        });
    return made.release(); // the component calls letGo()
}

// --- the JavaScript side of one object ---

bool NodeEngine::readScript(NodeObject& object, std::u16string const& name, NodeValue& out)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    auto key = Napi::String::New(m_env, name);
    if (script.IsEmpty() || !script.Has(key))
        return false;
    auto value = script.Get(key);
    m_helpers.reportPending();
    out = fromScript(value);
    return true;
}

/// The component asks twice, for the number and for the numbers, so what was read is kept in between.
int NodeEngine::readNumbers(NodeObject& object, double* out, int capacity)
{
    if (!out) {
        Napi::HandleScope scope(m_env);
        m_hasNumbers = nodeReadNumbers(object.script(), m_numbers);
    }
    if (!m_hasNumbers)
        return -1;
    auto const count = std::min(m_numbers.size(), static_cast<size_t>(std::max(capacity, 0)));
    if (out)
        std::copy_n(m_numbers.begin(), count, out);
    return static_cast<int>(m_numbers.size());
}

void NodeEngine::writeScript(NodeObject& object, std::u16string const& name, NodeValue const& value)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    if (script.IsEmpty())
        return;
    script.Set(Napi::String::New(m_env, name), toScript(value));
    m_helpers.reportPending();
}

void NodeEngine::eraseScript(NodeObject& object, std::u16string const& name)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    if (script.IsEmpty())
        return;
    script.Delete(Napi::String::New(m_env, name));
    m_helpers.reportPending();
}

bool NodeEngine::hasScriptMethod(NodeObject& object, std::u16string const& name)
{
    Napi::HandleScope scope(m_env);
    return m_helpers.ask("hasMethod", {object.script(), Napi::String::New(m_env, name)}, false);
}

void NodeEngine::defineAccessor(NodeObject& object, std::u16string const& name)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    if (!script.IsEmpty())
        m_helpers.call("defineAccessor", {script, Napi::String::New(m_env, name)});
}

void NodeEngine::defineMethod(NodeObject& object, std::u16string const& name, ScriptMethod method)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    if (script.IsEmpty())
        return;
    assert(method);
    auto& stored = m_ownMethods[{method, name}];
    if (!stored)
        stored = std::make_unique<OwnMethod>(OwnMethod{method, toUtf8(name)});
    napi_value function = nullptr;
    napi_create_function(m_env, stored->name.c_str(), stored->name.size(), onOwnMethod, stored.get(), &function);
    m_helpers.call("defineMethod", {script, Napi::String::New(m_env, name), function});
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
    assert(&owner != &object && object.owner() == &owner);
    Napi::HandleScope scope(m_env);
    m_helpers.call("tie", {toScript(&owner), object.script()});
}

void NodeEngine::untie(NodeObject& owner, NodeObject& object)
{
    Napi::HandleScope scope(m_env);
    auto window = owner.script();
    auto element = object.script();
    if (!window.IsEmpty() && !element.IsEmpty())
        m_helpers.call("untie", {window, element});
}
