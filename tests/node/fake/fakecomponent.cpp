// tests/node/fake/fakecomponent.cpp: entry points, and the two directions of calls.
#include "tests/node/fake/fakecomponent.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include <strings.h>

Fake fake;

namespace {

/// Its destructor is one of the library's static destructors. They must never run beneath a live GUI thread.
struct Sentinel
{
    ~Sentinel()
    {
        if (fake.gui.isRunning())
            failHost("static destructors run beneath the GUI thread");
    }
} sentinel;

char const* const kNames[] = {"GuiWindow", "GuiControl", "GuiSizePolicy", "GuiToolkit", "GuiImage", nullptr};

struct Pending
{
    ScriptValue* result;
    std::atomic<int> completions{0};
};

void onComplete(ScriptValue& value, void* context)
{
    auto pending = static_cast<Pending*>(context);
    if (pending->completions > 0)
        failHost("a call was completed twice");
    pending->result->assign(value);
    pending->completions.fetch_add(1);
    fake.completions.fetch_add(1);
    fake.gui.nudge();
}

} // namespace

void failHost(char const* what)
{
    std::fprintf(stderr, "fake: %s\n", what);
    std::_Exit(99);
}

ScriptPump* fakePump()
{
    ScriptEngine* engine = fake.engine;
    return engine ? engine->getRuntime()->getPump(0) : nullptr;
}

void callGui(FakeGuiThread::Job const& job)
{
    if (fake.gui.isCurrent()) {
        job();
        return;
    }
    auto pump = fakePump();
    std::atomic<bool> done{false};
    fake.gui.post([&, pump] {
        job();
        done = true;
        if (pump)
            pump->wake();
    });
    while (!done)
        pump ? pump->step() : std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void callHandler(ScriptObject* target, sstring const& name, ScriptArgs* args, ScriptValue* result)
{
    // Never freed: the host may complete late, and a second completion must be noticed, not crash.
    auto pending = new Pending{result};
    fake.callsInFlight.fetch_add(1);
    target->callMethodAsync(target, name, args, onComplete, pending);
    fake.gui.runUntil([pending] { return pending->completions > 0; });
    fake.callsInFlight.fetch_sub(1);
}

extern "C" {

__attribute__((visibility("default"))) int Init(LibManager& manager)
{
    fake.manager = &manager;
    auto get = [&](char const* guid) { return manager.getInterface(&guid); };
    fake.files = static_cast<HostLoadFile*>(get(kHostLoadFileGuid));
    fake.forms = static_cast<HostFormProp*>(get(kHostFormPropGuid));
    fake.platform = static_cast<HostPlatform*>(get(kHostPlatformGuid));
    fake.gui.start();
    return 1;
}

__attribute__((visibility("default"))) int Shutdown()
{
    for (int waited = 0; fake.callsInFlight > 0; ++waited) {
        if (waited > 5000)
            failHost("a call was never completed before Shutdown");
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    if (fake.session) {
        fake.session->endSession();
        fake.platform->destroyObject(fake.session);
    }
    fake.gui.stop();
    if (std::getenv("FAKE_REPORT"))
        std::fprintf(stderr, "fake: ended with %d windows, destroyed%s\n", fake.liveWindows.load(),
                     fake.destroyed.c_str());
    return 1;
}

__attribute__((visibility("default"))) char const* const* GetCompNames() { return kNames; }

__attribute__((visibility("default"))) int ConfigCompClass(void*, char const* name, ScriptClass& scriptClass)
{
    if (strcasecmp(name, "GuiWindow") == 0)
        return configureWindow(scriptClass);
    if (strcasecmp(name, "GuiControl") == 0)
        return configureControl(scriptClass);
    if (strcasecmp(name, "GuiSizePolicy") == 0)
        return configureSizePolicy(scriptClass);
    return strcasecmp(name, "GuiToolkit") == 0 || strcasecmp(name, "GuiImage") == 0 ? configureToolkit(scriptClass) : 0;
}
}
