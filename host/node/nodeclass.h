// host/node/nodeclass.h: one of the component's classes as an ordinary JavaScript class.
#pragma once

#include "script/hostinterface.h"

#include <napi.h>

#include <deque>
#include <string>
#include <vector>

class NodeEngine;
class NodeObject;

/// Collects what the component declares (ScriptClass), then makes a JavaScript class of it. Script thread.
class NodeClass final : public ScriptClass
{
public:
    NodeClass(NodeEngine& engine, std::string name) : m_engine(engine), m_name(std::move(name)) {}
    NodeClass(NodeClass const&) = delete;
    NodeClass& operator=(NodeClass const&) = delete;

    std::string const& name() const { return m_name; }

    /// Makes the JavaScript class; empty, with an exception pending, when the interpreter refuses.
    Napi::Function build();
    /// The class whose instances stand for objects that the component makes: the built one, or a subclass of it.
    void setPublicClass(Napi::Function scriptClass);
    Napi::Function publicClass() const { return m_publicClass.Value(); }

    /// Runs the create handler for an object that was made without arguments. Any thread.
    void create(NodeObject& object);
    /// Runs the destroy handler.
    void destroy(NodeObject& object);
    /// Whether the component has declared an instance method of this name. Any thread, once the class is built.
    bool hasMethod(std::u16string const& name) const;
    /// Runs an instance method without arguments, if the class has it.
    void callByName(NodeObject& object, std::string const& name);

    void setCreateHandler(ScriptMethod handler) override { m_onCreate = handler; }
    void setDestroyHandler(ScriptMethod handler) override { m_onDestroy = handler; }
    void setPropertyHandlers(ScriptAddProp onAddProp, ScriptDelProp onDelProp, ScriptGetProp onGetProp,
                             ScriptSetProp onSetProp) override;
    void addMethod(sstring const& name, ScriptMethod method) override;
    void addClassMethod(sstring const& name, ScriptMethod method) override;

private:
    struct Member
    {
        NodeClass* owner;
        std::string name;
        ScriptMethod method; // null for a property
        bool isStatic;
    };

    static napi_value onConstruct(napi_env env, napi_callback_info info);
    static napi_value onMethod(napi_env env, napi_callback_info info);
    static napi_value onClassMethod(napi_env env, napi_callback_info info);
    static napi_value onGet(napi_env env, napi_callback_info info);
    static napi_value onSet(napi_env env, napi_callback_info info);

    Napi::Value construct(Napi::CallbackInfo const& info);
    void findProperties();
    void addProperty(char const* name, bool isStatic);
    std::vector<napi_property_descriptor> describe();
    /// Finds the receiver of a property access, null for the class itself. False when `this` is no object of the
    /// component.
    bool findReceiver(Napi::CallbackInfo const& info, Member const& member, NodeObject*& receiver);

    NodeEngine& m_engine;
    std::string const m_name;
    ScriptMethod m_onCreate = nullptr;
    ScriptMethod m_onDestroy = nullptr;
    ScriptAddProp m_onAddProp = nullptr;
    ScriptDelProp m_onDelProp = nullptr;
    ScriptGetProp m_onGetProp = nullptr;
    ScriptSetProp m_onSetProp = nullptr;
    std::deque<Member> m_members; // a deque: the interpreter keeps pointers to them
    Napi::FunctionReference m_class;
    Napi::FunctionReference m_publicClass;
};
