#include "host/native/nativehost.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

#include "host/native/nativetext.h"

namespace {

/// The one host, for exit().
NativeHost* current = nullptr;

void leaveAtOnce(int status, void*)
{
    std::fflush(nullptr);
    _exit(status);
}

} // namespace

/// One for each script thread. exit() destroys the objects of its thread first of all, before any of static storage:
/// the toolkit makes statics as it goes, so an exit handler of ours would come after theirs are gone, while the GUI
/// thread still paints with them. Calls of the component that are under way never return here.
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
        // The end of the component waits for the calls that it makes of script. While one of them is on this stack, the
        // process goes without it, before the exit handlers: the newest one is called first.
        if (NativePlatform::listsInUse() > 0)
            on_exit(leaveAtOnce, nullptr);
        else
            current->end();
    }
};

NativeHost::NativeHost(NativeHostOptions options) : component_(options.component), engine_(NativeEngine::make())
{
    if (current)
        throw std::runtime_error("NativeHost: there is a host in this process already");
    files().setFolder(std::move(options.folder));
    files().addFolder("GuiWindow", TARN_PACKAGE_FILES);
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
    engine_->setComponent(true);
    if (!component_.init(engine_->manager()))
        throw std::runtime_error("NativeHost: the component's Init failed");
    thread_local NativeAtExit atExit; // after Init: what the thread has made until now outlives the component
    for (const char* const* name = component_.getCompNames(); *name; ++name) {
        classNames_.push_back(*name);
        if (!component_.configCompClass(nullptr, *name, engine_->addClass(*name)))
            throw std::runtime_error("NativeHost: the component's ConfigCompClass failed for " + classNames_.back());
    }
}

void NativeHost::shutdown()
{
    if (engine_->insideComponent())
        nativeReport("NativeHost::shutdown() is refused inside a call of the component");
    else
        end();
}

void NativeHost::end()
{
    if (current != this)
        return;
    current = nullptr;
    engine_->stopCalls();
    engine_->destroyObjects();
    engine_->setComponent(false);
    component_.shutdown();
    engine_->clear();
}

NativeObjectRef NativeHost::create(std::string const& className, NativeArguments args)
{
    return engine_->construct(className, std::move(args));
}

NativeValue NativeHost::callClass(std::string const& className, std::string_view method, NativeArguments args)
{
    NativeObjectRef object = engine_->classObject(className);
    return object ? object->call(method, std::move(args)) : NativeValue();
}

NativeValue NativeHost::classProperty(std::string const& className, std::string_view name)
{
    NativeValue out;
    NativeEngine::ComponentCall running(*engine_);
    NativeClass const* scriptClass = engine_->findClass(className);
    if (scriptClass && engine_->hasComponent() && scriptClass->hasDynamic(engine_->manager(), nullptr, name))
        scriptClass->getDynamic(engine_->manager(), nullptr, name, out);
    return out;
}

NativeValue NativeHost::session(std::string_view property)
{
    NativeObjectRef session = engine_->session();
    return session ? session->get(property) : NativeValue();
}

void NativeHost::run()
{
    while (!quit_.exchange(false) && engine_->windows().any())
        engine_->pump().turn(std::chrono::nanoseconds::max());
}

void NativeHost::quit()
{
    quit_ = true;
    engine_->pump().wake();
}

void NativeHost::post(std::function<void()> work)
{
    engine_->pump().post([work = std::move(work)] {
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
    auto end = std::chrono::steady_clock::now() + limit;
    while (!done()) {
        auto left = end - std::chrono::steady_clock::now();
        if (left <= left.zero())
            return false;
        engine_->pump().turn(std::min<std::chrono::nanoseconds>(left, NativePump::kStepLimit));
    }
    return true;
}
