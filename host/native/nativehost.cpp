// host/native/nativehost.cpp: see nativehost.h.
#include "host/native/nativehost.h"

#include "host/native/nativetext.h"

#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <unistd.h>

namespace {

/// The host of this process, for exit().
NativeHost* current = nullptr;

void leaveAtOnce(int status, void*)
{
    std::fflush(nullptr);
    _exit(status);
}

} // namespace

/// Ends the component when its thread ends, by exit() too: that destroys the thread_local objects of its thread before
/// anything static. A function registered with atexit would run too late, because the toolkit creates static objects as
/// it is used; they would be destroyed first, while the GUI thread still paints with them.
class NativeAtExit
{
public:
    NativeAtExit() = default;
    NativeAtExit(NativeAtExit const&) = delete;
    NativeAtExit& operator=(NativeAtExit const&) = delete;
    ~NativeAtExit()
    {
        if (!current || !current->engine().onScriptThread())
            return;
        // The component does not end before its calls into script have. If one of them is on this stack, that would be
        // never: the process leaves at once. Exit functions are called newest first, so this one precedes all others.
        if (NativePlatform::argumentListsInUse() > 0)
            on_exit(leaveAtOnce, nullptr);
        else
            current->end();
    }
};

NativeHost::NativeHost(NativeHostOptions options) : m_component(options.component), m_engine(NativeEngine::make())
{
    if (current)
        throw std::runtime_error("NativeHost: there is a host in this process already");
    files().setFolder(std::move(options.folder));
    files().addFolder("GuiWindow", TARN_PACKAGE_FILES);
    m_engine->manager().platform().setPictureMemory(options.pictureMemory);
    current = this;
    try {
        start();
    } catch (...) {
        end();
        throw;
    }
}

NativeHost::~NativeHost() { end(); }

void NativeHost::start()
{
    assert(m_engine->onScriptThread() && !m_engine->hasComponent());
    m_engine->setComponent(true);
    if (!m_component.init(m_engine->manager()))
        throw std::runtime_error("NativeHost: the component's Init failed");
    thread_local NativeAtExit atExit; // after Init: destroyed before what the thread has created until now
    for (char const* const* name = m_component.getCompNames(); *name; ++name) {
        m_classNames.emplace_back(*name);
        if (!m_component.configCompClass(nullptr, *name, m_engine->addClass(*name)))
            throw std::runtime_error("NativeHost: the component's ConfigCompClass failed for " + m_classNames.back());
    }
}

void NativeHost::shutdown()
{
    if (m_engine->insideComponent())
        nativeReport("NativeHost::shutdown() is refused inside a call of the component");
    else
        end();
}

void NativeHost::end()
{
    if (current != this)
        return;
    assert(m_engine->onScriptThread());
    current = nullptr;
    m_engine->stopCalls();
    m_engine->destroyObjects();
    m_engine->setComponent(false);
    m_component.shutdown();
    m_engine->clear();
}

NativeObjectRef NativeHost::create(std::string const& className, NativeArguments args)
{
    return m_engine->construct(className, std::move(args));
}

NativeValue NativeHost::callClass(std::string const& className, std::string_view method, NativeArguments args)
{
    NativeObjectRef object = m_engine->classObject(className);
    return object ? object->call(method, std::move(args)) : NativeValue();
}

NativeValue NativeHost::classProperty(std::string const& className, std::string_view name)
{
    NativeValue out;
    NativeEngine::ComponentCall running(*m_engine);
    NativeClass const* scriptClass = m_engine->findClass(className);
    if (scriptClass && m_engine->hasComponent() && scriptClass->hasDynamic(m_engine->manager(), nullptr, name))
        scriptClass->getDynamic(m_engine->manager(), nullptr, name, out);
    return out;
}

NativeValue NativeHost::session(std::string_view property)
{
    NativeObjectRef session = m_engine->session();
    return session ? session->get(property) : NativeValue();
}

void NativeHost::run()
{
    assert(m_engine->onScriptThread());
    while (!m_quit.exchange(false) && m_engine->windows().any())
        m_engine->pump().turn(std::chrono::nanoseconds::max());
}

void NativeHost::quit()
{
    m_quit = true;
    m_engine->pump().wake();
}

void NativeHost::post(std::function<void()> work)
{
    m_engine->pump().post([work = std::move(work)] {
        try {
            work();
        } catch (std::exception const& error) {
            nativeReport(std::string("posted work threw an exception: ") + error.what());
        } catch (...) {
            nativeReport("posted work threw an exception: of an unknown type");
        }
    });
}

bool NativeHost::serveUntil(std::function<bool()> const& done, std::chrono::milliseconds limit)
{
    assert(done);
    auto end = std::chrono::steady_clock::now() + limit;
    while (!done()) {
        auto left = end - std::chrono::steady_clock::now();
        if (left <= std::chrono::nanoseconds::zero())
            return false;
        m_engine->pump().turn(std::min<std::chrono::nanoseconds>(left, NativePump::kStepLimit));
    }
    return true;
}
