// host/node/nodeengine.h: one environment of the interpreter, as the component knows it. The main program is one
// environment, each worker thread another.
//
// Its parts: nodeengine-values.cpp (values and objects between the two languages), nodeengine-objects.cpp (objects that
// the component makes or looks into), nodeengine-calls.cpp (calls in both directions), nodeengine-loop.cpp (what the
// pump asks for) and nodeengine.cpp (start, threads, end).
#pragma once

#include "host/hostslots.h"
#include "host/hostthread.h"
#include "host/node/nodecall.h"
#include "host/node/nodehelpers.h"
#include "host/node/nodemethodnames.h"
#include "host/node/nodeobject.h"
#include "host/node/nodeopenwindows.h"
#include "host/node/noderuntime.h"
#include "host/node/nodeservices.h"

#include <napi.h>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class NodeClass;

/// Made when the addon is loaded and never freed: handles of script objects may outlive their environment. Script
/// thread, unless a function says otherwise.
class NodeEngine final : public ScriptEngineSlots
{
public:
    /// The calling thread is the script thread.
    explicit NodeEngine(Napi::Env env);
    NodeEngine(NodeEngine const&) = delete;
    NodeEngine& operator=(NodeEngine const&) = delete;

    static NodeEngine& of(Napi::Env env);
    Napi::Env env() const { return m_env; }
    NodePump& pump() { return m_runtime.pump(); }
    NodeServices& services() { return m_services; }
    NodeHelpers& helpers() { return m_helpers; }
    NodeMethodNames& methodNames() { return m_methodNames; }
    NodeOpenWindows& windows() { return m_windows; }
    NodeCallTable& calls() { return m_calls; }

    /// Takes the functions that index.js passes to the addon, and starts to listen for work.
    void start(Napi::Object helpers);

    // Threads. Any thread.
    bool isScriptThread() const { return m_thread.isCurrent(); }
    void post(std::function<void()> run, std::function<void()> cancel = {});
    /// Runs `work` on the script thread: at once when this is it, else later.
    void runOrPost(std::function<void()> work);
    /// Runs `work` on the script thread and waits for it. False when the engine is closing; nothing was run then.
    bool runAndWait(std::function<void()> work);

    // Values.
    Napi::Value toScript(NodeValue const& value);
    Napi::Value toScript(NodeObject* object);
    NodeValue fromScript(Napi::Value value);
    /// The handle of `object`: the same one as long as anybody keeps it.
    NodeObjectHold handleOf(Napi::Object object);
    /// The handle of an object of one of the component's classes, null for any other.
    NodeObject* instanceOf(Napi::Value value);
    /// Makes `script` the JavaScript object of `object`, an Instance.
    void wrap(Napi::Object script, NodeObject& object);

    // Classes and objects.
    NodeClass& addClass(std::unique_ptr<NodeClass> scriptClass);
    NodeClass* findClass(std::u16string const& name);
    /// While toScript makes a JavaScript object for a handle, that handle; the constructor takes it. Null when script
    /// says `new`.
    NodeObject* takeAdopted() { return std::exchange(m_adopted, nullptr); }
    /// Objects whose destroy handler is still to run; each is kept until it has.
    void addInstance(NodeObject& object);
    void removeInstance(NodeObject& object);
    /// Any thread.
    unsigned long long nextObjectNumber() { return m_nextNumber.fetch_add(1, std::memory_order_relaxed); }
    /// The session object, which the component keeps; null until the first window has been made. Any thread.
    NodeObject* session() const { return m_session.load(std::memory_order_acquire); }
    void setSession(NodeObject* session) { m_session.store(session, std::memory_order_release); }
    /// The folder of the script that makes the next object.
    void setNextFolder(std::string folder) { m_nextFolder = std::move(folder); }
    std::string takeNextFolder() { return std::exchange(m_nextFolder, {}); }

    // The JavaScript side of one object.
    bool readScript(NodeObject& object, std::u16string const& name, NodeValue& out);
    int readNumbers(NodeObject& object, double* out, int capacity);
    void writeScript(NodeObject& object, std::u16string const& name, NodeValue const& value);
    void eraseScript(NodeObject& object, std::u16string const& name);
    bool hasScriptMethod(NodeObject& object, std::u16string const& name);
    void defineAccessor(NodeObject& object, std::u16string const& name);
    void defineMethod(NodeObject& object, std::u16string const& name, ScriptMethod method);
    /// From now on the two JavaScript objects keep each other alive.
    void tie(NodeObject& owner, NodeObject& object);
    /// From now on `owner` no longer keeps the other one.
    void untie(NodeObject& owner, NodeObject& object);

    // Calls.
    /// Runs the component's method `name` for script. After the end of the component, returns what the method returns
    /// for a window or control that no longer exists.
    Napi::Value invoke(ScriptMethod method, NodeObject* self, std::string const& name, Napi::CallbackInfo const& info);
    /// The same with the arguments in an array.
    Napi::Value invoke(ScriptMethod method, NodeObject* self, std::string const& name, Napi::Array arguments);
    /// Calls `start` with the number of a new call, and returns when that call is completed: its value. Script goes on
    /// meanwhile as it does in a call into the component that waits.
    Napi::Value waitFor(Napi::Function start);
    /// The same for handlers that script cannot call.
    void invoke(ScriptMethod method, NodeObject* self, NodeArgs& args, NodeValue& result);
    /// Runs `work`, which calls into the component and may wait there.
    void enter(std::function<void()> const& work);
    /// Runs a script method; `call` is completed when it has ended, which may be later.
    void callScript(NodeCall const& call, NodeObject& target, NodeObject& self, std::u16string const& name,
                    NodeArgs::Values const& args);
    /// What a handler of a page finds while it runs: the page's values, and what the user has done; each may be null.
    struct HandlerContext
    {
        NodeObject* form;
        NodeObject* event;
    };
    /// The same for a handler of a page; its promise is not waited for.
    void callHandler(NodeCall const& call, NodeObject& target, NodeObject& self, HandlerContext context,
                     std::u16string const& name, NodeArgs::Values const& args);
    /// Runs `work` for a synchronous call of the component, which is on the stack.
    void runInsideCall(std::function<void()> const& work);
    /// The form of the page whose handler is running; null outside of handlers, in timers and promises too.
    NodeObject* runningForm() const { return m_running.form; }
    /// Calls a script method and waits until it has ended; the pump runs meanwhile.
    NodeValue callAndWait(NodeObject& target, NodeObject& self, std::u16string const& name,
                          NodeArgs::Values const& args);
    /// Whether a synchronous call from the component is on the stack, or its preparation.
    bool isInsideCall() const { return m_callDepth > 0 || NodePlatform::argumentListsInUse() > 0; }

    // What the pump needs.
    /// Runs one queued piece of work as a callback of its own for the interpreter; false when it threw.
    bool dispatchOne();
    /// Called when the loop, idle, starts a turn.
    void onLoopTurn();
    /// Called when a wait starts to turn the loop.
    void startWait();
    /// Turns the event loop once, then runs promises.
    void turnLoop();
    /// Runs the pending immediates. False when Node must not run any in this turn.
    bool runImmediates();
    /// Runs ticks and promises.
    void runMicrotasks();
    /// Keeps the loop alive while there is an open window or work, and only then.
    void updateAlive();
    /// From now on the process ends although windows are open, when there is nothing else for it to do.
    void dropHold();

    // The end.
    /// No more calls into script: those in flight are completed with null, later ones at once.
    void close();
    /// The display is gone, and with it the component: ends the program.
    void displayLost();
    /// Closes every open window.
    void closeWindows();
    /// The same from inside a wait for one of them, after close().
    void closeWindowsAgain();
    /// Runs the destroy handlers of all objects that are left, oldest first.
    void destroyInstances();

    // What the component calls.
    ScriptRuntime* getRuntime() override { return &m_runtime; }
    ScriptObject* createInstance(sstring const& className) override;
    ScriptValue* makeValue() override { return new NodeValue(); }
    void releaseValue(ScriptValue* value) override { delete static_cast<NodeValue*>(value); }
    int hasFormBooleans() override { return 1; }

private:
    /// A method that the component added to single objects; functions of the interpreter refer to it.
    struct OwnMethod
    {
        ScriptMethod method;
        std::string name;
    };

    /// For the length of a block, script runs in a handler of a page with this context, or, without one, in none.
    class HandlerScope
    {
    public:
        explicit HandlerScope(NodeEngine& engine, HandlerContext context = {})
            : m_engine(engine), m_outer(engine.exchangeContext(context))
        {}
        ~HandlerScope() { m_engine.exchangeContext(m_outer); }
        HandlerScope(HandlerScope const&) = delete;
        HandlerScope& operator=(HandlerScope const&) = delete;

    private:
        NodeEngine& m_engine;
        HandlerContext const m_outer;
    };

    ~NodeEngine() = default;

    static void onCollected(napi_env env, void* object, void* hint);
    static void onExternalCollected(Napi::Env env, NodeObject* object);
    static napi_value onOwnMethod(napi_env env, napi_callback_info info);

    HandlerContext exchangeContext(HandlerContext context);
    Napi::External<NodeObject> makeExternal(NodeObject& object);
    Napi::Value scriptOf(NodeObject& object);
    Napi::Value makeTableProxy(NodeObject& object);
    Napi::Value makeScriptInstance(NodeObject& object);
    NodeObjectHold makeInstance(NodeClass& scriptClass); // any thread
    NodeObjectHold makeApplicationObject(std::u16string const& name);
    std::vector<NodeObjectRef> instances() const;

    void callInScript(char const* helper, NodeCall const& call, NodeObject& target, NodeObject& self,
                      std::u16string const& name, NodeArgs::Values const& args);
    bool callOwnTable(NodeCall const& call, NodeObject& target, NodeObject& self, std::u16string const& name,
                      NodeArgs::Values const& args);

    Napi::FunctionReference wrapFunction(void (NodeEngine::*work)());
    void runOneTask();
    void publishMethodNames() { m_methodNames.publish(); }
    void runLoopOnce();
    void abandon();

    Napi::Env m_env;
    HostThread const m_thread;
    NodeRuntime m_runtime;
    NodeServices m_services;

    // Script thread.
    NodeHelpers m_helpers;
    NodeMethodNames m_methodNames;
    Napi::ObjectReference m_handles; // a WeakMap from objects to their handles
    Napi::FunctionReference m_getHandle;
    Napi::FunctionReference m_setHandle;
    Napi::FunctionReference m_runOneTask;
    Napi::FunctionReference m_publishMethodNames;
    Napi::FunctionReference m_runLoopOnce;
    std::unique_ptr<Napi::AsyncContext> m_asyncContext;
    std::vector<std::unique_ptr<NodeClass>> m_classes;
    std::map<unsigned long long, NodeObjectRef> m_instances; // by number
    NodeObject* m_adopted = nullptr;                         // not owned
    std::string m_nextFolder;
    int m_callDepth = 0;
    HandlerContext m_running{};    // not owned; kept by the call
    std::vector<double> m_numbers; // of the array that the component reads
    bool m_hasNumbers = false;     // it was one of numbers
    bool m_isClosingAgain = false;
    std::map<std::pair<ScriptMethod, std::u16string>, std::unique_ptr<OwnMethod>> m_ownMethods; // by their content

    // Any thread.
    NodeOpenWindows m_windows;
    bool m_doWindowsHold = true; // an open window keeps the process alive
    NodeCallTable m_calls;
    std::atomic<unsigned long long> m_nextNumber{1};
    std::atomic<NodeObject*> m_session{nullptr}; // not owned
};
