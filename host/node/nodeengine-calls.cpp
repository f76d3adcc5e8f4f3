// host/node/nodeengine-calls.cpp: calls from script into the component, and from the component into script.
#include "host/node/nodeengine.h"

#include "host/node/nodecomponent.h"

#include <cassert>
#include <set>
#include <string>

namespace {

/// What a method returns for a window or control that no longer exists, by its name: script may go on after the end of
/// the component.
Napi::Value neutralResult(Napi::Env env, std::string const& name)
{
    static std::set<std::string, std::less<>> const tests = {
        "open",          "popup",          "isOpen",         "isValid",       "load",
        "loadFile",      "setText",        "loadBackground", "isEnabled",     "isChecked",
        "isItemChecked", "isItemSelected", "isItemEnabled",  "isItemExpanded"};
    static std::set<std::string, std::less<>> const texts = {"getTitle", "getFocus", "getEnterControl",
                                                             "getEscapeControl"};
    if (tests.contains(name))
        return Napi::Boolean::New(env, false);
    if (texts.contains(name))
        return Napi::String::New(env, "");
    if (name == "getSizePolicy")
        return Napi::String::New(env, "RESIZE");
    return env.Null();
}

class DepthCounter
{
public:
    explicit DepthCounter(int& depth) : m_depth(depth) { ++m_depth; }
    ~DepthCounter()
    {
        assert(m_depth > 0);
        --m_depth;
    }
    DepthCounter(DepthCounter const&) = delete;
    DepthCounter& operator=(DepthCounter const&) = delete;

private:
    int& m_depth;
};

} // namespace

// --- from script into the component ---

void NodeEngine::enter(std::function<void()> const& work)
{
    {
        NodePump::Wait wait(pump());
        work();
    }
    pump().runBookKeeping(); // script finds what the component wrote during the call
    updateAlive();
}

void NodeEngine::invoke(ScriptMethod method, NodeObject* self, NodeArgs& args, NodeValue& result)
{
    assert(isScriptThread() && self && method);
    NodeObjectHold hold(self);
    enter([&] { method(m_services, self->getPrivate(), self, args, result); });
}

Napi::Value NodeEngine::invoke(ScriptMethod method, NodeObject* self, std::string const& name,
                               Napi::CallbackInfo const& info)
{
    if (!NodeComponent::the().isLive())
        return neutralResult(m_env, name);
    m_methodNames.publishFresh(self);
    NodeArgs args;
    for (size_t i = 0; i < info.Length(); ++i)
        args.add(fromScript(info[i]));
    NodeValue result;
    invoke(method, self, args, result);
    return toScript(result);
}

Napi::Value NodeEngine::invoke(ScriptMethod method, NodeObject* self, std::string const& name, Napi::Array arguments)
{
    if (!NodeComponent::the().isLive())
        return neutralResult(m_env, name);
    NodeArgs args;
    for (uint32_t i = 0; i < arguments.Length(); ++i)
        args.add(fromScript(arguments.Get(i)));
    NodeValue result;
    invoke(method, self, args, result);
    return toScript(result);
}

Napi::Value NodeEngine::waitFor(Napi::Function start)
{
    NodeValue result;
    auto call = m_calls.add([&result](NodeValue& value) { result = value; });
    start.Call({Napi::Number::New(m_env, call->id())});
    if (m_env.IsExceptionPending()) {
        m_calls.complete(call->id(), NodeValue());
        return {};
    }
    enter([&] {
        while (!call->isDone())
            pump().step();
    });
    return toScript(result);
}

// --- from the component into script ---

/// Calls a method that the component added to an object of its own, which script need not have seen.
bool NodeEngine::callOwnTable(NodeCall const& call, NodeObject& target, NodeObject& self, std::u16string const& name,
                              NodeArgs::Values const& args)
{
    auto method = target.kind() == NodeObject::Kind::kTable ? target.ownMethod(name) : nullptr;
    if (!method)
        return false;
    NodeArgs list(args);
    NodeValue result;
    invoke(method, &self, list, result);
    m_calls.complete(call.id(), std::move(result));
    return true;
}

/// The event of the context is the session's property "event" while it lasts.
NodeEngine::HandlerContext NodeEngine::exchangeContext(HandlerContext context)
{
    static std::u16string const kEvent(u"event");
    NodeObject* const published = session();
    if (published && context.event)
        published->writeTable(kEvent, NodeValue(NodeObjectHold(context.event)));
    else if (published && m_running.event)
        published->eraseTable(kEvent);
    return std::exchange(m_running, context);
}

void NodeEngine::callScript(NodeCall const& call, NodeObject& target, NodeObject& self, std::u16string const& name,
                            NodeArgs::Values const& args)
{
    HandlerScope const none(*this);
    callInScript("runCall", call, target, self, name, args);
}

void NodeEngine::callHandler(NodeCall const& call, NodeObject& target, NodeObject& self, HandlerContext context,
                             std::u16string const& name, NodeArgs::Values const& args)
{
    HandlerScope const running(*this, context);
    callInScript("runHandler", call, target, self, name, args);
}

void NodeEngine::callInScript(char const* helper, NodeCall const& call, NodeObject& target, NodeObject& self,
                              std::u16string const& name, NodeArgs::Values const& args)
{
    assert(isScriptThread());
    if (callOwnTable(call, target, self, name, args))
        return;
    Napi::HandleScope scope(m_env);
    auto list = Napi::Array::New(m_env, args.size());
    for (size_t i = 0; i < args.size(); ++i)
        list.Set(static_cast<uint32_t>(i), toScript(args[i]));
    auto id = Napi::Number::New(m_env, call.id());
    auto done = m_helpers.call(helper, {id, toScript(&target), toScript(&self), Napi::String::New(m_env, name), list});
    if (done.IsEmpty())
        m_calls.complete(call.id(), NodeValue());
    if (pump().isWaiting())
        runMicrotasks();
    m_methodNames.publish();
}

void NodeEngine::runInsideCall(std::function<void()> const& work)
{
    assert(isScriptThread());
    DepthCounter inside(m_callDepth);
    work();
}

NodeValue NodeEngine::callAndWait(NodeObject& target, NodeObject& self, std::u16string const& name,
                                  NodeArgs::Values const& args)
{
    assert(isScriptThread()); // other threads cannot wait: callMethodAsync
    DepthCounter inside(m_callDepth);
    NodeValue result;
    auto call = m_calls.add([&result](NodeValue& value) { result = value; });
    if (call->isDone())
        return result;
    // An async handler that never ends, such as a clock in an open window, is not waited for once its window is closed.
    bool const isOpenWindow = m_windows.contains(self);
    NodePump::Wait wait(pump());
    callScript(*call, target, self, name, args);
    while (!call->isDone()) {
        if (isOpenWindow && !m_windows.contains(self))
            m_calls.complete(call->id(), NodeValue());
        else
            pump().step();
    }
    return result;
}
