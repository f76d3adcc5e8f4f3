// host/node/nodeengine.h: one environment of the interpreter: its objects, its calls in flight, its open windows. The
// main program is one environment, each worker thread another.
//
// An engine is made when the addon is loaded and never freed: handles of script objects may outlive their environment.
#pragma once

#include "host/hostslots.h"
#include "host/node/nodeobject.h"
#include "host/node/nodepump.h"
#include "host/node/nodeservices.h"

#include <napi.h>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <thread>
#include <unordered_set>
#include <utility>
#include <vector>

class NodeClass;
class NodeComponent;

/// The pump's owner, as the component asks for it.
class NodeRuntime final : public ScriptRuntimeSlots
{
public:
    explicit NodeRuntime(NodeEngine& engine) : m_pump(engine) {}
    NodePump& pump() { return m_pump; }

    ScriptPump* getPump(int) override { return &m_pump; }

private:
    NodePump m_pump;
};

/// A call of a script method that has not ended. Completed exactly once, on any thread.
class NodeCall
{
public:
    using Done = std::function<void(NodeValue&)>;
    NodeCall(unsigned id, Done done) : m_id(id), m_done(std::move(done)) {}
    unsigned id() const { return m_id; }
    void complete(NodeValue value);
    bool isDone() const { return m_isDone.load(std::memory_order_acquire); }

private:
    unsigned const m_id;
    std::atomic<bool> m_isTaken{false};
    std::atomic<bool> m_isDone{false};
    Done m_done;
};

class NodeEngine final : public ScriptEngineSlots
{
public:
    explicit NodeEngine(Napi::Env env);
    NodeEngine(NodeEngine const&) = delete;
    NodeEngine& operator=(NodeEngine const&) = delete;

    static NodeEngine& of(Napi::Env env);
    Napi::Env env() const { return m_env; }
    bool isScriptThread() const { return std::this_thread::get_id() == m_thread; }
    NodePump& pump() { return m_runtime.pump(); }
    NodeServices& services() { return m_services; }

    /// Takes over the functions of index.js that the engine calls (see there) and starts listening for work.
    void start(Napi::Object helpers);

    // Values. Script thread.
    Napi::Value toScript(NodeValue const& value);
    Napi::Value toScript(NodeObject* object);
    NodeValue fromScript(Napi::Value value);
    /// The handle of `object`: the same one as long as anybody keeps it.
    ObjectHold handleOf(Napi::Object object);
    /// The handle of an object of one of the component's classes, null for any other.
    NodeObject* instanceOf(Napi::Value value);
    /// Makes `script` the JavaScript object of `object`, an Instance.
    void wrap(Napi::Object script, NodeObject& object);

    // Classes. Script thread.
    NodeClass& addClass(std::unique_ptr<NodeClass> scriptClass);
    NodeClass* findClass(std::u16string const& name);
    /// Set while an object is made for a handle that exists already; the constructor takes it.
    NodeObject* takeAdopted();
    /// Objects with a destroy handler to run; each is referenced until it has run.
    void addInstance(NodeObject& object);
    void removeInstance(NodeObject& object);
    /// Its methods are published to the other threads from now on.
    void track(NodeObject& object);
    void untrack(NodeObject& object);

    // Calls. Script thread.
    /// Runs the component's method `name` for script. When the component has ended: what the method gives for a window
    /// or control that is gone.
    Napi::Value invoke(ScriptMethod method, NodeObject* self, std::string const& name, Napi::CallbackInfo const& info);
    /// The same for handlers that script does not see.
    void invoke(ScriptMethod method, NodeObject* self, NodeArgs& args, NodeValue& result);
    /// Runs `work`, which calls into the component and may wait there.
    void enter(std::function<void()> const& work);
    /// Starts a call of a script method. `call` is completed when it has ended.
    bool callOwnTable(NodeCall const& call, NodeObject& target, NodeObject& self, std::u16string const& name,
                      std::deque<NodeValue> const& args);
    void callScript(std::shared_ptr<NodeCall> call, NodeObject& target, NodeObject& self, std::u16string const& name,
                    std::deque<NodeValue> const& args);
    /// Calls a script method and waits until it has ended; the pump runs meanwhile.
    NodeValue callAndWait(NodeObject& target, NodeObject& self, std::u16string const& name,
                          std::deque<NodeValue> const& args);
    void completeCall(unsigned id, NodeValue value);
    /// An error that nobody caught: what the interpreter does with those, it does (it may end the process).
    void report(Napi::Value error);
    /// Whether a synchronous call from the component is on the stack, or what it does around one. Script thread.
    bool isInsideCall() const { return m_callDepth > 0 || NodePlatform::listsInUse() > 0; }

    // Threads. Any thread.
    void post(std::function<void()> run, std::function<void()> cancel = {});
    /// Runs `work` on the script thread: at once when this is it, else later.
    void runOrPost(std::function<void()> run, std::function<void()> cancel = {});
    /// Runs `work` on the script thread and waits for it. False when the engine is closing; nothing was run then.
    bool runAndWait(std::function<void()> run);
    std::shared_ptr<NodeCall> addCall(NodeCall::Done done);

    // Script objects of the application. Script thread.
    bool readScript(NodeObject& object, std::u16string const& name, NodeValue& out);
    void writeScript(NodeObject& object, std::u16string const& name, NodeValue const& value);
    void eraseScript(NodeObject& object, std::u16string const& name);
    bool hasScriptMethod(NodeObject& object, std::u16string const& name);
    void defineAccessor(NodeObject& object, std::u16string const& name);
    void defineMethod(NodeObject& object, std::u16string const& name, ScriptMethod method);
    /// From now on the owner's JavaScript object keeps the other's, and the other way round.
    void tie(NodeObject& owner, NodeObject& object);

    // The pump's needs. Script thread.
    bool dispatchOne();
    void onLoopTurn();
    void publishMethods();
    void startTimers();
    /// Turns the event loop once, then runs promises.
    void turnLoop();
    void runMicrotasks();
    void updateAlive();

    // Windows.
    /// Any thread.
    void windowChanged(NodeObject& window, bool isOpen);
    bool hasOpenWindow() const { return m_openCount.load(std::memory_order_acquire) > 0; }

    void setSession(NodeObject* session) { m_session.store(session, std::memory_order_release); }
    NodeObject* session() const { return m_session.load(std::memory_order_acquire); }
    /// The folder of the script that makes the next object.
    void setNextFolder(std::string folder) { m_nextFolder = std::move(folder); }
    std::string takeNextFolder() { return std::exchange(m_nextFolder, {}); }

    // The end.
    /// No more calls into script: those in flight are completed with null, later ones at once. Any thread.
    void close();
    /// Closes every open window. Script thread.
    void closeWindows();
    /// Runs the destroy handlers of all objects that are left. Script thread.
    void destroyInstances();
    /// Whether the environment still runs script.
    bool isScriptAlive();

    ScriptRuntime* getRuntime() override { return &m_runtime; }
    ScriptObject* createInstance(sstring const& className) override;
    ScriptValue* makeValue() override { return new NodeValue(); }
    void releaseValue(ScriptValue* value) override { delete static_cast<NodeValue*>(value); }

private:
    ~NodeEngine() = default;

    static void onCollected(napi_env env, void* object, void* hint);
    static void onScriptObjectCollected(Napi::Env env, NodeObject* object);
    static napi_value onOwnMethod(napi_env env, napi_callback_info info);

    /// What the helper returned; empty when it threw, which is reported.
    Napi::Value callHelper(char const* name, std::initializer_list<napi_value> args);
    void reportPending();
    Napi::Value project(NodeObject& object);
    Napi::Value projectTable(NodeObject& object);
    Napi::Value projectInstance(NodeObject& object);
    void publish(NodeObject& object);
    void publishAll(std::unordered_set<NodeObject*> const& objects);
    void publishFresh(NodeObject* self);
    void runOneTask();
    void runLoopOnce();
    void windowOpened(NodeObject& window);
    void windowClosed(NodeObject& window);
    ObjectHold makeInstance(NodeClass& scriptClass); // any thread
    ObjectHold makeApplicationObject(std::u16string const& name);
    void waitFor(NodeCall& call, NodeObject& receiver);
    void abandon();

    Napi::Env m_env;
    std::thread::id const m_thread;
    NodeRuntime m_runtime;
    NodeServices m_services;

    // Script thread.
    std::map<std::string, Napi::FunctionReference, std::less<>> m_helpers;
    Napi::ObjectReference m_handles; // a WeakMap from objects to their handles
    Napi::FunctionReference m_getHandle;
    Napi::FunctionReference m_setHandle;
    Napi::FunctionReference m_dispatch;
    Napi::FunctionReference m_publish;
    Napi::FunctionReference m_turn;
    std::unique_ptr<Napi::AsyncContext> m_asyncContext;
    std::vector<std::unique_ptr<NodeClass>> m_classes;
    std::unordered_set<NodeObject*> m_instances; // each referenced
    std::unordered_set<NodeObject*> m_tracked;
    std::unordered_set<NodeObject*> m_fresh; // tracked, never published
    std::set<NodeObject*> m_openWindows;     // each held
    NodeObject* m_adopted = nullptr;
    std::string m_nextFolder;
    int m_callDepth = 0;
    bool m_hasOpened = false;   // a window, ever
    bool m_isAbandoned = false; // the environment was terminated; no call into it succeeds
    struct OwnMethod
    {
        ScriptMethod method;
        std::string name;
    };
    std::map<std::pair<ScriptMethod, std::u16string>, std::unique_ptr<OwnMethod>> m_ownMethods; // by what they hold

    std::atomic<int> m_openCount{0};
    std::atomic<NodeObject*> m_session{nullptr};
    std::mutex m_callMutex; // guards what follows
    bool m_isClosed = false;
    unsigned m_nextCall = 1;
    std::map<unsigned, std::shared_ptr<NodeCall>> m_calls;
};
