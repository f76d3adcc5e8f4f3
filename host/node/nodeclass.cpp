// host/node/nodeclass.cpp: see the header.
#include "host/node/nodeclass.h"

#include "host/node/nodecomponent.h"
#include "host/node/nodeengine.h"

#include <algorithm>
#include <cassert>

namespace {

/// The component cannot list its dynamic properties; it only says whether it accepts a name. It is asked for these, and
/// each one that it accepts becomes an accessor, of the instances or of the class.
constexpr char const* kDynamicNames[] = {"width", "height", "SCROLL", "RESIZE", "FIXED"};

} // namespace

void NodeClass::setPropertyHandlers(ScriptAddProp onAddProp, ScriptDelProp onDelProp, ScriptGetProp onGetProp,
                                    ScriptSetProp onSetProp)
{
    m_onAddProp = onAddProp;
    m_onDelProp = onDelProp;
    m_onGetProp = onGetProp;
    m_onSetProp = onSetProp;
}

void NodeClass::addMethod(sstring const& name, ScriptMethod method)
{
    assert(method && m_class.IsEmpty());
    m_members.push_back({this, toUtf8(toText(name)), method, false});
}

void NodeClass::addClassMethod(sstring const& name, ScriptMethod method)
{
    assert(method && m_class.IsEmpty());
    m_members.push_back({this, toUtf8(toText(name)), method, true});
}

void NodeClass::addProperty(char const* name, bool isStatic)
{
    NodeValue text(fromUtf8(name));
    NodePrivate none;
    if (m_onAddProp(m_engine.services(), &none, nullptr, text, isStatic))
        m_members.push_back({this, name, nullptr, isStatic});
}

void NodeClass::findProperties()
{
    if (!m_onAddProp || !m_onGetProp)
        return;
    for (auto name : kDynamicNames)
        for (bool isStatic : {false, true})
            addProperty(name, isStatic);
}

std::vector<napi_property_descriptor> NodeClass::describe()
{
    std::vector<napi_property_descriptor> list;
    for (auto& member : m_members) {
        napi_property_descriptor entry{};
        entry.utf8name = member.name.c_str();
        if (member.method) {
            entry.method = member.isStatic ? onClassMethod : onMethod;
            entry.attributes = napi_default_method;
        } else {
            entry.getter = onGet;
            entry.setter = onSet;
            entry.attributes = member.isStatic ? napi_enumerable : napi_default;
        }
        if (member.isStatic)
            entry.attributes = static_cast<napi_property_attributes>(entry.attributes | napi_static);
        entry.data = &member;
        list.push_back(entry);
    }
    return list;
}

Napi::Function NodeClass::build()
{
    assert(m_engine.isScriptThread() && m_class.IsEmpty());
    findProperties();
    auto members = describe();
    Napi::Env env = m_engine.env();
    napi_value result = nullptr;
    if (napi_define_class(env, m_name.c_str(), m_name.size(), onConstruct, this, members.size(), members.data(),
                          &result) != napi_ok)
        return {};
    Napi::Function made(env, result);
    m_class = Napi::Persistent(made);
    m_class.SuppressDestruct();
    setPublicClass(made);
    return made;
}

void NodeClass::setPublicClass(Napi::Function scriptClass)
{
    m_publicClass = Napi::Persistent(scriptClass);
    m_publicClass.SuppressDestruct();
}

napi_value NodeClass::onConstruct(napi_env env, napi_callback_info rawInfo)
{
    Napi::CallbackInfo info(env, rawInfo);
    auto self = static_cast<NodeClass*>(info.Data());
    if (info.NewTarget().IsEmpty()) {
        Napi::TypeError::New(env, "Class constructor " + self->m_name + " cannot be invoked without 'new'")
            .ThrowAsJavaScriptException();
        return nullptr;
    }
    return self->construct(info);
}

Napi::Value NodeClass::construct(Napi::CallbackInfo const& info)
{
    auto script = info.This().As<Napi::Object>();
    if (auto adopted = m_engine.takeAdopted()) {
        assert(adopted->scriptClass() == this);
        m_engine.wrap(script, *adopted);
        return script;
    }
    auto error = NodeComponent::the().ensureStarted(m_engine);
    if (!error.empty()) {
        Napi::Error::New(info.Env(), "new " + m_name + "(): " + error).ThrowAsJavaScriptException();
        return {};
    }
    auto object = NodeObject::make(m_engine, NodeObject::Kind::kInstance, this);
    object->setFolder(m_engine.takeNextFolder());
    m_engine.wrap(script, *object);
    if (m_onCreate)
        m_engine.invoke(m_onCreate, object.get(), m_name, info);
    return script;
}

void NodeClass::create(NodeObject& object)
{
    assert(object.scriptClass() == this);
    NodeArgs args;
    NodeValue result;
    if (!m_onCreate)
        return;
    if (m_engine.isScriptThread())
        m_engine.invoke(m_onCreate, &object, args, result);
    else
        m_onCreate(m_engine.services(), object.getPrivate(), &object, args, result);
}

void NodeClass::destroy(NodeObject& object)
{
    assert(object.scriptClass() == this);
    NodeArgs args;
    NodeValue result;
    if (m_onDestroy && NodeComponent::the().isLive())
        m_engine.invoke(m_onDestroy, &object, args, result);
}

bool NodeClass::hasMethod(std::u16string const& name) const
{
    auto const wanted = toUtf8(name);
    return std::any_of(m_members.begin(), m_members.end(), [&](Member const& member) {
        return member.method && !member.isStatic && member.name == wanted;
    });
}

void NodeClass::callByName(NodeObject& object, std::string const& name)
{
    NodeArgs args;
    NodeValue result;
    for (auto& member : m_members)
        if (member.method && !member.isStatic && member.name == name)
            m_engine.invoke(member.method, &object, args, result);
}

napi_value NodeClass::onMethod(napi_env env, napi_callback_info rawInfo)
{
    Napi::CallbackInfo info(env, rawInfo);
    auto& member = *static_cast<Member*>(info.Data());
    auto& engine = member.owner->m_engine;
    auto self = engine.instanceOf(info.This());
    if (!self || self->scriptClass() != member.owner) {
        auto& name = member.owner->m_name;
        Napi::TypeError::New(env, name + "." + member.name + "() was called on an object that is no " + name)
            .ThrowAsJavaScriptException();
        return nullptr;
    }
    return engine.invoke(member.method, self, member.name, info);
}

napi_value NodeClass::onClassMethod(napi_env env, napi_callback_info rawInfo)
{
    Napi::CallbackInfo info(env, rawInfo);
    auto& member = *static_cast<Member*>(info.Data());
    auto& engine = member.owner->m_engine;
    auto error = NodeComponent::the().ensureStarted(engine);
    if (!error.empty()) {
        Napi::Error::New(env, member.owner->m_name + "." + member.name + "(): " + error).ThrowAsJavaScriptException();
        return nullptr;
    }
    auto self = engine.handleOf(info.This().IsFunction() ? info.This().As<Napi::Object>()
                                                         : member.owner->publicClass().As<Napi::Object>());
    return engine.invoke(member.method, self.get(), member.name, info);
}

bool NodeClass::findReceiver(Napi::CallbackInfo const& info, Member const& member, NodeObject*& receiver)
{
    receiver = member.isStatic ? nullptr : m_engine.instanceOf(info.This());
    return member.isStatic || receiver;
}

napi_value NodeClass::onGet(napi_env env, napi_callback_info rawInfo)
{
    Napi::CallbackInfo info(env, rawInfo);
    auto& member = *static_cast<Member*>(info.Data());
    auto self = member.owner;
    NodeObject* receiver = nullptr;
    if (!self->findReceiver(info, member, receiver))
        return info.Env().Undefined();
    NodeValue name(fromUtf8(member.name));
    NodeValue value;
    NodePrivate none;
    if (receiver && !NodeComponent::the().isLive())
        return info.Env().Undefined();
    auto data = receiver ? receiver->getPrivate() : &none;
    self->m_engine.enter([&] {
        if (!self->m_onGetProp(self->m_engine.services(), data, receiver, name, value, member.isStatic))
            value.setNull();
    });
    return self->m_engine.toScript(value);
}

napi_value NodeClass::onSet(napi_env env, napi_callback_info rawInfo)
{
    Napi::CallbackInfo info(env, rawInfo);
    auto& member = *static_cast<Member*>(info.Data());
    auto self = member.owner;
    NodeObject* receiver = nullptr;
    bool accepted = false;
    NodePrivate none;
    if (self->m_onSetProp && self->findReceiver(info, member, receiver)) {
        NodeValue name(fromUtf8(member.name));
        NodeValue value = self->m_engine.fromScript(info[0]);
        auto data = receiver ? receiver->getPrivate() : &none;
        self->m_engine.enter([&] {
            accepted = self->m_onSetProp(self->m_engine.services(), data, receiver, name, value, member.isStatic);
        });
    }
    if (!accepted)
        Napi::TypeError::New(env, "Cannot assign to read only property '" + member.name + "' of " + self->m_name)
            .ThrowAsJavaScriptException();
    return nullptr;
}
