// host/node/nodeengine.cpp: the start, work for the script thread, and the end.
#include "host/node/nodeengine.h"

#include "host/node/nodeclass.h"

#include <cassert>
#include <condition_variable>
#include <mutex>
#include <optional>

NodeEngine::NodeEngine(Napi::Env env)
    : m_env(env), m_runtime(*this), m_helpers(env), m_methodNames(env, m_helpers), m_windows(*this)
{}

NodeEngine& NodeEngine::of(Napi::Env env) { return *env.GetInstanceData<NodeEngine>(); }

void NodeEngine::start(Napi::Object helpers)
{
    assert(isScriptThread() && !m_asyncContext);
    m_helpers.start(helpers);
    auto weakMap = m_env.Global().Get("WeakMap").As<Napi::Function>().New({});
    m_handles = Napi::Persistent(weakMap);
    m_getHandle = Napi::Persistent(weakMap.Get("get").As<Napi::Function>());
    m_setHandle = Napi::Persistent(weakMap.Get("set").As<Napi::Function>());
    m_asyncContext = std::make_unique<Napi::AsyncContext>(m_env, "tarn");
    m_runOneTask = wrapFunction(&NodeEngine::runOneTask);
    m_publishMethodNames = wrapFunction(&NodeEngine::publishMethodNames);
    m_runLoopOnce = wrapFunction(&NodeEngine::runLoopOnce);
    uv_loop_t* loop = nullptr;
    napi_get_uv_event_loop(m_env, &loop);
    pump().start(loop);
}

/// A function of the interpreter that calls a member function of the engine.
Napi::FunctionReference NodeEngine::wrapFunction(void (NodeEngine::*work)())
{
    return Napi::Persistent(Napi::Function::New(m_env, [this, work](Napi::CallbackInfo const&) { (this->*work)(); }));
}

// --- threads ---

void NodeEngine::post(std::function<void()> run, std::function<void()> cancel)
{
    pump().post({std::move(run), std::move(cancel), false});
}

void NodeEngine::runOrPost(std::function<void()> work)
{
    if (isScriptThread() && !pump().isClosed())
        work();
    else
        post(std::move(work));
}

bool NodeEngine::runAndWait(std::function<void()> work)
{
    if (isScriptThread()) {
        work();
        return true;
    }
    std::mutex mutex;
    std::condition_variable signal;
    std::optional<bool> outcome;
    auto finish = [&](bool good) {
        std::lock_guard lock(mutex);
        assert(!outcome);
        outcome = good;
        signal.notify_one(); // under the lock: the waiter destroys the signal as soon as it can
    };
    post([&] { work(), finish(true); }, [&] { finish(false); });
    std::unique_lock lock(mutex);
    signal.wait(lock, [&] { return outcome.has_value(); });
    return *outcome;
}

// --- the end ---

void NodeEngine::close()
{
    assert(isScriptThread());
    auto left = m_calls.close();
    pump().close();
    for (auto& call : left)
        call->complete(NodeValue());
}

/// A copy, since objects may end while they are gone through.
std::vector<NodeObjectRef> NodeEngine::instances() const
{
    std::vector<NodeObjectRef> objects;
    for (auto& [number, object] : m_instances)
        objects.push_back(object);
    return objects;
}

void NodeEngine::displayLost()
{
    Napi::HandleScope scope(m_env);
    m_helpers.call("displayLost", {});
}

void NodeEngine::closeWindows()
{
    for (auto& object : instances())
        object->scriptClass()->callByName(*object, "close");
}

// A window that was about to open when the environment ended may have opened since.
void NodeEngine::closeWindowsAgain()
{
    if (m_isClosingAgain)
        return;
    m_isClosingAgain = true;
    closeWindows();
    m_isClosingAgain = false;
}

void NodeEngine::destroyInstances()
{
    for (auto& object : instances())
        object->destroyInstance();
}
