// host/node/nodecall.cpp: the engine's calls: from script into the component, from the component into script, and the
// wait and the event loop between them.
#include "host/node/nodeclass.h"
#include "host/node/nodecomponent.h"
#include "host/node/nodeengine.h"
#include "host/node/reentry.h"

#include <algorithm>
#include <set>
#include <string>

namespace {

/// What a method of a window or control that is gone gives, by its name: script may go on after the component's end.
Napi::Value neutralResult(Napi::Env env, std::string const& name)
{
    static std::set<std::string, std::less<>> const tests = {
        "open",      "isOpen",    "isValid",       "load",           "loadFile",      "setText",       "loadBackground",
        "isEnabled", "isChecked", "isItemChecked", "isItemSelected", "isItemEnabled", "isItemExpanded"};
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

class Depth
{
public:
    explicit Depth(int& depth) : m_depth(depth) { ++m_depth; }
    ~Depth() { --m_depth; }
    Depth(Depth const&) = delete;
    Depth& operator=(Depth const&) = delete;

private:
    int& m_depth;
};

} // namespace

void NodeCall::complete(NodeValue value)
{
    if (m_isTaken.exchange(true))
        return;
    m_done(value);
    m_isDone.store(true, std::memory_order_release);
}

// --- the engine's start ---

void NodeEngine::start(Napi::Object helpers)
{
    auto names = helpers.GetPropertyNames();
    for (uint32_t i = 0; i < names.Length(); ++i) {
        auto name = names.Get(i).As<Napi::String>().Utf8Value();
        auto& kept = m_helpers[name];
        kept = Napi::Persistent(helpers.Get(name).As<Napi::Function>());
        kept.SuppressDestruct();
    }
    auto weakMap = m_env.Global().Get("WeakMap").As<Napi::Function>().New({});
    m_handles = Napi::Persistent(weakMap);
    m_getHandle = Napi::Persistent(weakMap.Get("get").As<Napi::Function>());
    m_setHandle = Napi::Persistent(weakMap.Get("set").As<Napi::Function>());
    m_asyncContext = std::make_unique<Napi::AsyncContext>(m_env, "tarn");
    auto native = [&](void (NodeEngine::*work)()) {
        return Napi::Persistent(
            Napi::Function::New(m_env, [this, work](Napi::CallbackInfo const&) { (this->*work)(); }));
    };
    m_dispatch = native(&NodeEngine::runOneTask);
    m_publish = native(&NodeEngine::publishMethods);
    m_turn = native(&NodeEngine::runLoopOnce);
    uv_loop_t* loop = nullptr;
    napi_get_uv_event_loop(m_env, &loop);
    pump().start(loop);
}

// --- helpers of index.js ---

Napi::Value NodeEngine::callHelper(char const* name, std::initializer_list<napi_value> args)
{
    if (m_isAbandoned)
        return {};
    auto result = m_helpers.find(name)->second.Call(args);
    reportPending();
    return result;
}

void NodeEngine::reportPending()
{
    if (m_env.IsExceptionPending())
        report(m_env.GetAndClearPendingException().Value());
}

void NodeEngine::report(Napi::Value error) { napi_fatal_exception(m_env, error); }

bool NodeEngine::isScriptAlive()
{
    if (m_isAbandoned)
        return false;
    Napi::HandleScope scope(m_env);
    auto answer = m_helpers.find("isAlive")->second.Call({});
    if (m_env.IsExceptionPending())
        m_env.GetAndClearPendingException();
    return !answer.IsEmpty();
}

// --- from script into the component ---

void NodeEngine::enter(std::function<void()> const& work)
{
    {
        NodePump::Wait wait(pump());
        work();
    }
    pump().runBookKeeping(); // what the component wrote during the call is there when the call returns
    updateAlive();
}

void NodeEngine::invoke(ScriptMethod method, NodeObject* self, NodeArgs& args, NodeValue& result)
{
    ObjectHold hold(self);
    enter([&] { method(m_services, self->getPrivate(), self, args, result); });
}

Napi::Value NodeEngine::invoke(ScriptMethod method, NodeObject* self, std::string const& name,
                               Napi::CallbackInfo const& info)
{
    if (!NodeComponent::the().isLive())
        return neutralResult(m_env, name);
    publishFresh(self);
    NodeArgs args;
    for (size_t i = 0; i < info.Length(); ++i)
        args.add(fromScript(info[i]));
    NodeValue result;
    invoke(method, self, args, result);
    return toScript(result);
}

// --- from the component into script ---

std::shared_ptr<NodeCall> NodeEngine::addCall(NodeCall::Done done)
{
    std::unique_lock lock(m_callMutex);
    auto call = std::make_shared<NodeCall>(m_nextCall++, std::move(done));
    if (!m_isClosed) {
        m_calls[call->id()] = call;
        return call;
    }
    lock.unlock();
    call->complete(NodeValue());
    return call;
}

void NodeEngine::completeCall(unsigned id, NodeValue value)
{
    std::shared_ptr<NodeCall> call;
    {
        std::lock_guard lock(m_callMutex);
        auto found = m_calls.find(id);
        if (found == m_calls.end())
            return;
        call = std::move(found->second);
        m_calls.erase(found);
    }
    call->complete(std::move(value));
}

/// A method that the component gave to an object of its own, which no script has seen: calls it without a detour.
bool NodeEngine::callOwnTable(NodeCall const& call, NodeObject& target, NodeObject& self, std::u16string const& name,
                              std::deque<NodeValue> const& args)
{
    auto method = target.kind() == NodeObject::Kind::Table ? target.ownMethod(name) : nullptr;
    if (!method)
        return false;
    NodeArgs list;
    for (auto& value : args)
        list.add(value);
    NodeValue result;
    invoke(method, &self, list, result);
    completeCall(call.id(), std::move(result));
    return true;
}

void NodeEngine::callScript(std::shared_ptr<NodeCall> call, NodeObject& target, NodeObject& self,
                            std::u16string const& name, std::deque<NodeValue> const& args)
{
    if (callOwnTable(*call, target, self, name, args))
        return;
    Napi::HandleScope scope(m_env);
    auto list = Napi::Array::New(m_env, args.size());
    for (size_t i = 0; i < args.size(); ++i)
        list.Set(static_cast<uint32_t>(i), toScript(args[i]));
    auto id = Napi::Number::New(m_env, call->id());
    auto done = callHelper("runCall", {id, toScript(&target), toScript(&self), Napi::String::New(m_env, name), list});
    if (done.IsEmpty())
        completeCall(call->id(), NodeValue());
    if (pump().isWaiting())
        runMicrotasks();
    publishMethods();
}

NodeValue NodeEngine::callAndWait(NodeObject& target, NodeObject& self, std::u16string const& name,
                                  std::deque<NodeValue> const& args)
{
    Depth depth(m_callDepth);
    NodeValue result;
    auto call = addCall([&result](NodeValue& value) { result = value; });
    if (call->isDone())
        return result;
    NodePump::Wait wait(pump());
    callScript(call, target, self, name, args);
    waitFor(*call, self);
    return result;
}

/// Until the promise of an async handler settles. A handler that never ends, such as a clock in an opened window, is
/// left alone once its window is closed.
void NodeEngine::waitFor(NodeCall& call, NodeObject& receiver)
{
    bool wasOpen = m_openWindows.contains(&receiver);
    while (!call.isDone()) {
        pump().step();
        if (wasOpen && !m_openWindows.contains(&receiver))
            completeCall(call.id(), NodeValue());
    }
}

// --- threads ---

void NodeEngine::post(std::function<void()> run, std::function<void()> cancel)
{
    pump().post({std::move(run), std::move(cancel), false});
}

void NodeEngine::runOrPost(std::function<void()> run, std::function<void()> cancel)
{
    if (isScriptThread() && !pump().isClosed())
        run();
    else
        post(std::move(run), std::move(cancel));
}

bool NodeEngine::runAndWait(std::function<void()> run)
{
    if (isScriptThread()) {
        run();
        return true;
    }
    std::mutex mutex;
    std::condition_variable signal;
    std::optional<bool> outcome;
    auto finish = [&](bool good) {
        std::lock_guard lock(mutex);
        outcome = good;
        signal.notify_one(); // under the lock: the waiter destroys the signal as soon as it gets it
    };
    post([&] { run(), finish(true); }, [&] { finish(false); });
    std::unique_lock lock(mutex);
    signal.wait(lock, [&] { return outcome.has_value(); });
    return *outcome;
}

// --- what the pump asks for ---

void NodeEngine::runOneTask() { pump().runOne(); }

bool NodeEngine::dispatchOne()
{
    Napi::HandleScope scope(m_env);
    auto result = m_dispatch.MakeCallback(m_env.Global(), std::initializer_list<napi_value>{}, *m_asyncContext);
    reportPending();
    return !result.IsEmpty();
}

void NodeEngine::onLoopTurn()
{
    if (m_tracked.empty() || !hasOpenWindow())
        return;
    Napi::HandleScope scope(m_env);
    m_publish.MakeCallback(m_env.Global(), std::initializer_list<napi_value>{}, *m_asyncContext);
    reportPending();
}

void NodeEngine::startTimers()
{
    Napi::HandleScope scope(m_env);
    callHelper("startWait", {});
}

void NodeEngine::runLoopOnce()
{
    reentry::ErrorBarrier barrier;
    uv_run(pump().loop(), UV_RUN_NOWAIT);
}

/// Through the interpreter, so that an error which a callback of the loop lets through stops here and not in the script
/// that waits.
void NodeEngine::turnLoop()
{
    Napi::HandleScope scope(m_env);
    m_turn.Call({});
    reportPending();
    runMicrotasks();
    publishMethods();
}

void NodeEngine::runMicrotasks()
{
    Napi::HandleScope scope(m_env);
    auto done = callHelper("runTicks", {});
    if (reentry::canRunMicrotasks()) {
        reentry::runMicrotasks();
        done = callHelper("runTicks", {});
    } else {
        done = callHelper("checkPromises", {});
    }
    if (done.IsEmpty() && !m_isAbandoned && !isScriptAlive())
        abandon();
}

/// The environment was terminated while it waits inside the component. Nothing of script runs any more; what waits for
/// a window to close must return.
void NodeEngine::abandon()
{
    m_isAbandoned = true;
    close();
    closeWindows();
}

void NodeEngine::updateAlive() { pump().setAlive(hasOpenWindow() || pump().hasWork()); }

// --- method names for other threads ---

void NodeEngine::track(NodeObject& object)
{
    m_tracked.insert(&object);
    m_fresh.insert(&object);
}

void NodeEngine::untrack(NodeObject& object)
{
    m_tracked.erase(&object);
    m_fresh.erase(&object);
}

/// Looking at an object may run script, of a proxy: objects may come and go meanwhile.
void NodeEngine::publishAll(std::unordered_set<NodeObject*> const& objects)
{
    for (auto object : objects)
        object->reference();
    for (auto object : objects)
        publish(*object);
    for (auto object : objects)
        object->unreference();
}

void NodeEngine::publishMethods()
{
    m_fresh.clear();
    publishAll(std::unordered_set(m_tracked));
}

/// A method of a control may lead to a handler of its window.
void NodeEngine::publishFresh(NodeObject* self)
{
    auto fresh = std::exchange(m_fresh, {});
    for (auto object = self; object; object = object->owner())
        fresh.insert(object);
    publishAll(fresh);
}

void NodeEngine::publish(NodeObject& object)
{
    Napi::HandleScope scope(m_env);
    auto script = object.script();
    if (script.IsEmpty())
        return;
    auto changed = callHelper("scanMethods", {script});
    if (changed.IsEmpty() || !changed.IsArray())
        return;
    auto list = changed.As<Napi::Array>();
    auto names = std::make_shared<NodeObject::MethodNames>();
    for (uint32_t i = 0; i < list.Length(); ++i)
        names->insert(list.Get(i).ToString().Utf16Value());
    object.publishMethods(std::move(names));
}

// --- windows ---

void NodeEngine::windowChanged(NodeObject& window, bool isOpen)
{
    m_openCount.fetch_add(isOpen ? 1 : -1, std::memory_order_acq_rel);
    post(
        [this, hold = ObjectHold(&window), isOpen] { isOpen ? windowOpened(*hold.get()) : windowClosed(*hold.get()); });
}

void NodeEngine::windowOpened(NodeObject& window)
{
    if (!m_openWindows.insert(&window).second)
        return;
    window.hold();
    if (!std::exchange(m_hasOpened, true))
        NodeComponent::the().guardProcessExit();
}

void NodeEngine::windowClosed(NodeObject& window)
{
    if (m_openWindows.erase(&window) == 0)
        return;
    Napi::HandleScope scope(m_env);
    auto script = window.script();
    if (!script.IsEmpty())
        callHelper("windowClosed", {script});
    window.release();
}

// --- the end ---

void NodeEngine::close()
{
    std::map<unsigned, std::shared_ptr<NodeCall>> calls;
    {
        std::lock_guard lock(m_callMutex);
        m_isClosed = true;
        calls.swap(m_calls);
    }
    pump().close();
    for (auto& [id, call] : calls)
        call->complete(NodeValue());
}

void NodeEngine::closeWindows()
{
    auto instances = m_instances;
    for (auto object : instances)
        object->scriptClass()->callByName(*object, "close");
}

void NodeEngine::destroyInstances()
{
    auto instances = m_instances;
    for (auto object : instances)
        object->reference();
    for (auto object : instances)
        object->destroyInstance();
    for (auto object : instances)
        object->unreference();
}
