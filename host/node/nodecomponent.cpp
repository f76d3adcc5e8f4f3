// host/node/nodecomponent.cpp: loading, starting and ending the component.
#include "host/node/nodecomponent.h"

#include "host/node/display.h"
#include "host/node/nodeclass.h"
#include "host/node/nodeengine.h"

#include <cassert>
#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <unistd.h>

NodeComponent& NodeComponent::the()
{
    static NodeComponent& component = *new NodeComponent(); // never destroyed: used until the process ends
    return component;
}

namespace {

template <class Function>
bool find(void* library, char const* name, Function& out)
{
    out = reinterpret_cast<Function>(dlsym(library, name));
    return out != nullptr;
}

/// exit() destroys the thread_local objects of its thread before it calls the first exit function. By then the toolkit
/// has registered all its destructors, and what is registered now is called before them.
struct GuardAtThreadEnd
{
    ~GuardAtThreadEnd() { NodeComponent::the().guardProcessExit(); }
};

} // namespace

std::string NodeComponent::load(std::string const& path)
{
    std::lock_guard lock(m_mutex);
    if (m_library)
        return {};
    // Lazily: to look up every function of the toolkit at once would take a sixth of the time to load it.
    void* library = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (!library)
        return dlerror();
    bool complete = find(library, "Init", m_init) && find(library, "Shutdown", m_shutdown) &&
                    find(library, "GetCompNames", m_getCompNames) &&
                    find(library, "ConfigCompClass", m_configCompClass);
    if (!complete)
        return path + " is not the component library: " + dlerror();
    m_library = library;
    return {};
}

bool NodeComponent::configure(NodeClass& scriptClass)
{
    assert(m_library);
    auto declare = [&](std::string const& name) { return m_configCompClass(nullptr, name.c_str(), scriptClass) != 0; };
    if (!declare(scriptClass.name()))
        return false;
    declare(scriptClass.name() + "Extension"); // most classes have none
    return true;
}

std::string NodeComponent::ensureStarted(NodeEngine& engine)
{
    assert(engine.isScriptThread());
    std::lock_guard lock(m_mutex);
    assert(m_library);
    if (isLive() && isOwnedBy(engine))
        return {};
    if (isLive())
        return "another thread of this process has windows; only the thread that made the first one can make more";
    if (m_state == State::kEnded || m_state == State::kLost)
        return "the window system of this process has ended";
    return start(engine);
}

std::string NodeComponent::start(NodeEngine& engine)
{
    if (m_state != State::kFailed) {
        DisplayCheck const display; // until the toolkit has its own connection
        if (!display.problem().empty())
            return display.problem();
        assert(m_state == State::kNone && !m_owner);
        m_owner = &engine;
        m_state = m_init(engine.services()) != 0 ? State::kLive : State::kFailed;
        guardProcessExit();
        thread_local GuardAtThreadEnd guardAtThreadEnd;
    }
    return isLive() ? std::string() : "the window system cannot start with " + displaySettings();
}

bool NodeComponent::loseDisplay()
{
    NodeEngine& engine = *m_owner.load();
    if (engine.pump().isClosed())
        return false;
    m_state = State::kLost;
    auto leave = [] { onProcessExit(EXIT_FAILURE, &the()); }; // the program was about to end anyway
    engine.post([&engine] { engine.displayLost(); }, leave);
    return true;
}

void NodeComponent::end(NodeEngine& engine)
{
    if (!isLive() || !isOwnedBy(engine))
        return;
    assert(engine.isScriptThread());
    engine.close();
    engine.closeWindows(); // a GUI thread that paints nothing registers no more destructors
    if (engine.isInsideCall()) {
        guardProcessExit();
        return;
    }
    engine.destroyInstances();
    NodePump::Wait wait(engine.pump());
    m_shutdown();
    m_state = State::kEnded;
}

/// Exit functions are called newest first. The toolkit's libraries register destructors as they are used, so this is
/// called again whenever more of them may be in use.
void NodeComponent::guardProcessExit() { on_exit(onProcessExit, this); }

/// The process ends while there is a GUI thread. The destructors of its libraries must not run beside it: the process
/// leaves here, after flushing its output.
void NodeComponent::onProcessExit(int status, void* self)
{
    State const state = static_cast<NodeComponent*>(self)->m_state;
    if (state == State::kNone || state == State::kEnded)
        return;
    std::fflush(nullptr);
    _exit(status);
}
