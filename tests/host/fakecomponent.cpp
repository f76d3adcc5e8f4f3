// tests/host/fakecomponent.cpp: see fakecomponent.h.
#include "tests/host/fakecomponent.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace {

/// The component's own thread: runs functions in order. A function may run further ones while it waits.
class Worker
{
public:
    Worker() : m_thread([this] { runUntil(m_stopped); }) {}
    ~Worker()
    {
        post([this] { m_stopped = true; });
        m_thread.join();
    }
    void post(std::function<void()> work)
    {
        std::lock_guard lock(m_mutex);
        m_queue.push_back(std::move(work));
        m_ready.notify_one();
    }
    /// On the component's thread only; `done` is set by a function.
    void runUntil(bool const& done)
    {
        while (!done)
            takeFront()();
    }

private:
    std::function<void()> takeFront()
    {
        std::unique_lock lock(m_mutex);
        m_ready.wait(lock, [this] { return !m_queue.empty(); });
        auto work = std::move(m_queue.front());
        m_queue.pop_front();
        return work;
    }

    bool m_stopped = false;
    std::mutex m_mutex;
    std::condition_variable m_ready;
    std::deque<std::function<void()>> m_queue;
    std::thread m_thread; // last: it uses the rest
};

struct State
{
    std::mutex mutex;
    std::string log;
    std::vector<ScriptObject*> open;
    std::unique_ptr<Worker> worker;
    LibManager* manager = nullptr;
    HostPlatform* platform = nullptr;
    HostLoadFile* files = nullptr;
    ScriptObject* session = nullptr;
    ScriptEngine* engine = nullptr;
    std::atomic<int> pendingClicks{0};
    std::atomic<bool> failInit{false};
    std::atomic<bool> failConfigure{false};
} state;

void note(std::string const& word)
{
    std::lock_guard lock(state.mutex);
    state.log += (state.log.empty() ? "" : " ") + word;
}

ScriptPump* pump() { return state.engine->getRuntime()->getPump(0); }

bool isOpen(ScriptObject* window)
{
    std::lock_guard lock(state.mutex);
    return std::find(state.open.begin(), state.open.end(), window) != state.open.end();
}

void setOpen(ScriptObject* window, bool open)
{
    {
        std::lock_guard lock(state.mutex);
        std::erase(state.open, window);
        if (open)
            state.open.push_back(window);
    }
    window->windowState(open);
    pump()->wake();
}

/// Runs `work` on the component's thread and pumps until it is done.
void blocking(std::function<void()> work)
{
    std::atomic<bool> done{false};
    state.worker->post([&] {
        work();
        done = true;
        pump()->wake();
    });
    while (!done)
        pump()->step();
}

void windowCreate(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs& args, ScriptValue&)
{
    note("create/" + std::to_string(args.count()));
    state.engine = self->getEngine();
    if (!state.session) {
        state.session = state.platform->createObject(state.engine);
        state.session->beginSession(0);
    }
    ScriptValue* value = state.platform->createValue(state.engine);
    value->setObject(self);
    state.session->setProperty("currentWindow", value);
    state.platform->destroyValue(value);
}

void windowDestroy(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue&)
{
    note("destroy");
    if (isOpen(self))
        blocking([self] { setOpen(self, false); });
}

void windowOpen(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    blocking([self] { setOpen(self, true); });
    result.setBool(1);
}

void windowClose(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue&)
{
    blocking([self] { setOpen(self, false); });
}

void windowIsOpen(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    result.setBool(isOpen(self));
}

void windowSetReturnValue(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs& args, ScriptValue&)
{
    self->setProperty("fake return value", args.get(0));
}

void windowShow(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    blocking([self] { setOpen(self, true); });
    while (isOpen(self))
        pump()->step();
    self->getProperty("fake return value", &result);
}

struct Waiter
{
    ScriptValue* result = nullptr;
    bool done = false;

    static void complete(ScriptValue& value, void* context)
    {
        auto* self = static_cast<Waiter*>(context);
        *self->result = value;
        state.worker->post([self] { self->done = true; });
    }
};

void windowWork(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    blocking([&] {
        Waiter waiter{&result};
        self->callMethodAsync(self, "onWork", nullptr, Waiter::complete, &waiter);
        state.worker->runUntil(waiter.done);
    });
}

bool policyHas(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, bool isStatic)
{
    return isStatic && name.toString(0) == "FIXED";
}

bool policyGet(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, ScriptValue& out, bool)
{
    out.setString(name.toString(0));
    return true;
}

void windowOnLoad(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setBool(self && self->getEngine() && args.count() == 2 && args.get(1)->isFunction());
}

void configureWindow(ScriptClass& window)
{
    window.setCreateHandler(windowCreate);
    window.setDestroyHandler(windowDestroy);
    window.addMethod("open", windowOpen);
    window.addMethod("close", windowClose);
    window.addMethod("isOpen", windowIsOpen);
    window.addMethod("setReturnValue", windowSetReturnValue);
    window.addMethod("show", windowShow);
    window.addMethod("work", windowWork);
    window.addClassMethod("onLoad", windowOnLoad);
}

template <typename Interface>
Interface* service(char const* guid)
{
    return static_cast<Interface*>(state.manager->getInterface(&guid));
}

int init(LibManager& manager)
{
    note("init");
    if (state.failInit)
        return 0;
    state.manager = &manager;
    state.files = service<HostLoadFile>(kHostLoadFileGuid);
    state.platform = service<HostPlatform>(kHostPlatformGuid);
    state.files->attach();
    state.worker = std::make_unique<Worker>();
    return 1;
}

char const* const* getCompNames()
{
    static char const* const names[] = {"GuiWindow", "GuiSizePolicy", nullptr};
    return names;
}

int configCompClass(void*, char const* name, ScriptClass& scriptClass)
{
    note(std::string("configure/") + name);
    if (std::string_view(name) == "GuiWindow")
        configureWindow(scriptClass);
    else
        scriptClass.setPropertyHandlers(policyHas, nullptr, policyGet, nullptr);
    return !state.failConfigure;
}

int shutdown()
{
    note("shutdown");
    if (!state.worker)
        return 1;
    state.worker.reset();
    if (state.session) {
        state.session->endSession();
        state.platform->destroyObject(state.session);
        state.session = nullptr;
    }
    state.files->release();
    state.engine = nullptr;
    return 1;
}

void endClick(ScriptValue&, void*) { --state.pendingClicks; }

ScriptObject* lastOpened()
{
    std::lock_guard lock(state.mutex);
    return state.open.empty() ? nullptr : state.open.back();
}

} // namespace

NativeEntryPoints FakeComponent::entryPoints() { return {init, getCompNames, configCompClass, shutdown}; }

std::string FakeComponent::takeLog()
{
    std::lock_guard lock(state.mutex);
    return std::exchange(state.log, "");
}

void FakeComponent::failConfigure(bool fails) { state.failConfigure = fails; }
void FakeComponent::failInit(bool fails) { state.failInit = fails; }

void FakeComponent::closeAllByUser()
{
    state.worker->post([] {
        while (ScriptObject* window = lastOpened())
            setOpen(window, false);
    });
}

void FakeComponent::click(std::string const& name)
{
    state.worker->post([name] {
        if (ScriptObject* window = lastOpened()) {
            ++state.pendingClicks;
            window->callMethodAsync(window, name.c_str(), nullptr, endClick, nullptr);
        }
    });
}

int FakeComponent::pendingClicks() { return state.pendingClicks; }
