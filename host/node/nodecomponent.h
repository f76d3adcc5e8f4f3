// host/node/nodecomponent.h: the component library in this process: found, loaded, started by the first environment
// that makes a window, and ended by it.
#pragma once

#include "script/hostinterface.h"

#include <atomic>
#include <mutex>
#include <string>

class NodeClass;
class NodeEngine;

/// One per process. Functions say their thread; "script thread" is that of the engine they name.
class NodeComponent
{
public:
    static NodeComponent& the();

    /// Loads the library, once per process. Returns "" or what the loader said. Any thread.
    std::string load(std::string const& path);

    /// Null-terminated, valid after load().
    char const* const* classNames() const { return m_getCompNames(); }
    bool configure(NodeClass& scriptClass);

    /// Starts the component for `engine`, unless it runs for it already. Returns "" or one sentence that says why the
    /// component can not serve this environment. Script thread.
    std::string ensureStarted(NodeEngine& engine);
    bool isLive() const { return m_state.load(std::memory_order_acquire) == State::kLive; }
    bool isOwnedBy(NodeEngine const& engine) const { return m_owner.load(std::memory_order_acquire) == &engine; }

    /// Ends the component that `engine` started: calls in flight are answered with null, windows are closed, objects
    /// destroyed, the GUI thread ended. When the component itself is below us on the stack and waits for a script
    /// method, this can not be done; the process then ends without it (guardProcessExit). Script thread.
    void end(NodeEngine& engine);

    /// Sees to it that the process, should it end without end(), leaves before any destructor that was registered up to
    /// now runs. Any thread.
    void guardProcessExit();

private:
    enum class State
    {
        kNone,
        kLive,
        kEnded
    };

    NodeComponent() = default;
    static void onProcessExit(int status, void* self);

    std::mutex m_mutex;
    void* m_library = nullptr; // never unloaded: its threads and statics live until the process ends
    int (*m_init)(LibManager&) = nullptr;
    int (*m_shutdown)() = nullptr;
    char const* const* (*m_getCompNames)() = nullptr;
    int (*m_configCompClass)(void*, char const*, ScriptClass&) = nullptr;
    std::atomic<State> m_state{State::kNone};
    std::atomic<NodeEngine*> m_owner{nullptr};
};
