// host/native/nativeengine.h: the heart of the host: it holds the script thread's queue, the services, the classes, the
// objects and the calls that are under way. Objects keep it, so a handle may outlive the NativeHost.
#pragma once

#include "host/hostslots.h"
#include "host/hostthread.h"
#include "host/native/nativecall.h"
#include "host/native/nativeclass.h"
#include "host/native/nativelibmanager.h"
#include "host/native/nativeobject.h"
#include "host/native/nativeobjecttable.h"
#include "host/native/nativeopenwindows.h"
#include "host/native/nativeruntime.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <unordered_set>

/// Makes the parts of an object of a class that the application registered: adds its handlers and properties.
using NativeFactory = std::function<void(NativeObject& object, NativeArguments const& args)>;

class NativeEngine final : public ScriptEngineSlots, public std::enable_shared_from_this<NativeEngine>
{
public:
    /// The calling thread is the script thread.
    static std::shared_ptr<NativeEngine> make() { return std::shared_ptr<NativeEngine>(new NativeEngine); }
    NativeEngine(NativeEngine const&) = delete;
    NativeEngine& operator=(NativeEngine const&) = delete;

    NativeLibManager& manager() { return m_manager; }
    NativePump& pump() { return m_runtime.pump(); }
    NativeObjectTable& objects() { return m_objects; }
    NativeCallTable& calls() { return m_calls; }
    NativeOpenWindows& windows() { return m_windows; }
    bool onScriptThread() const { return m_scriptThread.isCurrent(); }

    /// Whether the component is there to be called: from `setComponent(true)` before Init to `setComponent(false)`
    /// before Shutdown.
    bool hasComponent() const { return m_hasComponent; }
    void setComponent(bool present) { m_hasComponent = present; }

    /// Whether a function of the component is running on the script thread, below the one that asks. Script thread.
    bool insideComponent() const { return m_componentDepth > 0; }
    /// Marks that a function of the component is running, while it lives. Counts on the script thread, and does nothing
    /// on another one.
    class ComponentCall
    {
    public:
        explicit ComponentCall(NativeEngine& engine);
        ~ComponentCall();
        ComponentCall(ComponentCall const&) = delete;
        ComponentCall& operator=(ComponentCall const&) = delete;

    private:
        NativeEngine& m_engine;
        int const m_depth; // of this call, from 1; 0 on another thread
    };

    /// Takes a class of the component. Script thread, before any object of it is made.
    NativeClass& addClass(std::string const& name);
    /// The component's class of this name, or null.
    NativeClass const* findClass(std::string_view name) const;
    /// Registers a class of the application. Script thread.
    void addFactory(std::string const& name, NativeFactory factory);
    /// A new plain object. Any thread.
    NativeObjectRef makeObject();
    /// A new object of a class; empty when there is no such class or its constructor throws. Any thread for a class of
    /// the component, else script thread.
    NativeObjectRef construct(std::string const& className, NativeArguments args);
    /// The object that stands for a class of the component itself, empty when there is none of this name. Script
    /// thread.
    NativeObjectRef classObject(std::string const& className);

    /// The session object, empty until the first window was made. Any thread.
    NativeObjectRef session() const;
    void setSession(NativeObjectRef session);

    /// The value of a result, once it is there; other work of the script thread goes on meanwhile. Null when the host
    /// stops before. Script thread.
    NativeValue wait(NativeResult result);
    /// Runs a method on the script thread soon and then calls `done`. Any thread.
    void startCall(NativeCallTarget target, ScriptCompletion done, void* context);

    /// Ends every pending call with null; later ones end at once.
    void stopCalls();
    /// Runs the destroy handlers of all objects, oldest first: windows go before the controls they made. Script thread.
    void destroyObjects();
    /// Breaks all cycles of objects and handlers. Script thread, after the component's end.
    void clear();

    // What the component calls.
    ScriptRuntime* getRuntime() override { return &m_runtime; }
    ScriptObject* createInstance(sstring const& className) override;
    ScriptValue* makeValue() override;
    void releaseValue(ScriptValue* value) override;

    /// Number of values made by makeValue and not released.
    size_t ownedValues() const;

private:
    NativeEngine() : m_manager(*this) {}

    void dropValues();
    void runCall(NativeCallTarget& target, std::shared_ptr<NativeCall> const& call);
    NativeObjectRef constructOfComponent(NativeClass const& scriptClass, NativeArguments& args);
    NativeObjectRef constructOfApplication(std::string const& className, NativeFactory const& factory,
                                           NativeArguments& args);

    HostThread const m_scriptThread;
    std::atomic<bool> m_hasComponent{false};
    std::atomic<bool> m_stopped{false};
    int m_componentDepth = 0; // script thread
    NativeRuntime m_runtime;
    NativeLibManager m_manager;
    NativeObjectTable m_objects;
    NativeCallTable m_calls;
    NativeOpenWindows m_windows{m_runtime.pump()};
    std::map<std::string, std::unique_ptr<NativeClass>, std::less<>> m_classes; // script thread
    std::map<std::string, NativeObjectRef> m_classObjects;                      // script thread
    std::map<std::string, NativeFactory> m_factories;                           // script thread
    mutable std::mutex m_mutex;                                                 // guards everything below
    NativeObjectRef m_session;
    std::map<ScriptValue*, std::unique_ptr<NativeValue>> m_values;
};
