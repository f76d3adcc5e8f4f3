// host/node/nodecomponent.h: the component library in this process: loaded once, started by the first environment
// that makes a window, and ended by that one.
#pragma once

#include "script/hostinterface.h"

#include <atomic>
#include <mutex>
#include <string>

class NodeClass;
class NodeEngine;

/// One per process. "Script thread" means that of the engine which is passed.
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
    /// component cannot serve this environment, which may be another one the next time. Script thread.
    std::string ensureStarted(NodeEngine& engine);
    bool isLive() const { return m_state.load(std::memory_order_acquire) == State::kLive; }
    bool isOwnedBy(NodeEngine const& engine) const { return m_owner.load(std::memory_order_acquire) == &engine; }

    /// Ends the component that `engine` started: calls in flight are answered with null, windows are closed, objects
    /// destroyed, the GUI thread ended. When a call from the component into script is on the stack, that is
    /// impossible; the process then leaves without it (guardProcessExit). Script thread.
    void end(NodeEngine& engine);

    /// The connection to the display is lost: script is told, which ends the program. False when it cannot be told any
    /// more. GUI thread.
    bool loseDisplay();

    /// Makes sure that a process which ends without end() leaves before any destructor runs that was registered until
    /// now. Any thread.
    void guardProcessExit();

private:
    enum class State
    {
        kNone,
        kLive,
        kFailed, // the toolkit did not start, and cannot be started twice
        kLost,   // the GUI thread stands still
        kEnded
    };

    NodeComponent() = default;
    std::string start(NodeEngine& engine);
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
