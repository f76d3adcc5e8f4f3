// tests/node/fake/fakeclasses.cpp: the classes. Some methods are those of the real component, as far as the host can
// tell; those whose names begin with "test" exist for the tests alone.
#include "tests/node/fake/fakecomponent.h"

#include <chrono>
#include <cstring>
#include <vector>

#define FAKE_METHOD(name)                                                                                              \
    void name([[maybe_unused]] LibManager& manager, [[maybe_unused]] ScriptPrivate* data,                              \
              [[maybe_unused]] ScriptObject* self, [[maybe_unused]] ScriptArgs& args,                                  \
              [[maybe_unused]] ScriptValue& result)

namespace {

void sleepMs(int milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

FakeWindow* checkedWindow(ScriptPrivate* data)
{
    auto window = windowOf(data);
    if (!window)
        failHost("a method was called on a window without its record");
    return window;
}

void openWindow(FakeWindow* window)
{
    callGui([window] {
        if (!window->isOpen.exchange(true))
            window->object->windowState(1);
    });
}

// --- GuiWindow, as the real one ---

FAKE_METHOD(windowCreate)
{
    auto window = new FakeWindow();
    window->object = self;
    fake.liveWindows.fetch_add(1);
    data->setData(kPrivateKey, window);
    auto engine = self->getEngine();
    fake.engine = engine;
    if (!fake.session) {
        fake.session = fake.platform->createObject(engine);
        fake.session->beginSession(0);
    }
    window->returnValue = engine->makeValue();
    window->form = fake.platform->createObject(engine);
    if (args.count() > 0) {
        window->hasPage = true;
        result.setBool(1);
    }
}

FAKE_METHOD(windowDestroy)
{
    auto window = checkedWindow(data);
    callGui([window] {
        fake.gui.forget(window);
        closeFakeWindow(window);
    });
    data->setData(kPrivateKey, nullptr);
    for (auto& [name, control] : window->controls)
        control->letGo();
    self->getEngine()->releaseValue(window->returnValue);
    fake.platform->destroyObject(window->form);
    fake.destroyed += " window";
    window->tag = 0xFEFEFEFE; // never freed: the tag betrays a later use
    fake.liveWindows.fetch_sub(1);
}

FAKE_METHOD(windowLoad)
{
    auto window = checkedWindow(data);
    window->hasPage = args.count() == 1 && args.get(0)->isString();
    result.setBool(window->hasPage);
}

FAKE_METHOD(windowOpen)
{
    auto window = checkedWindow(data);
    if (window->hasPage)
        openWindow(window);
    result.setBool(window->hasPage);
}

/// Opens the window and calls its ePostOpen; false without a page.
bool startShow(ScriptPrivate* data, ScriptObject* self)
{
    auto window = checkedWindow(data);
    if (!window->hasPage)
        return false;
    openWindow(window);
    auto list = fake.platform->createArgs(fake.engine);
    auto value = fake.platform->createValue(fake.engine);
    value->setObject(fake.session);
    list->append(value);
    fake.callsInFlight.fetch_add(1);
    auto ignore = [](ScriptValue&, void*) {};
    self->callHandler(self, "ePostOpen", list, window->form, nullptr, ignore, ignore, window);
    fake.callsInFlight.fetch_sub(1);
    fake.platform->destroyArgs(list);
    fake.platform->destroyValue(value);
    return true;
}

FAKE_METHOD(windowStartShow) { result.setBool(startShow(data, self)); }

FAKE_METHOD(windowGetReturnValue) { result.assign(*checkedWindow(data)->returnValue); }

FAKE_METHOD(windowGetForm) { result.setObject(checkedWindow(data)->form); }

/// The page has no controls: the form is all there is.
FAKE_METHOD(windowReadForm) {}

FAKE_METHOD(windowWriteForm)
{
    fake.forms->writeProperty(checkedWindow(data)->form, args.get(0)->toString(0), args.get(1));
    result.setBool(1);
}

FAKE_METHOD(windowShow)
{
    auto window = checkedWindow(data);
    if (!startShow(data, self))
        return;
    while (window->isOpen)
        fakePump()->step();
    result.assign(*window->returnValue);
}

FAKE_METHOD(windowClose)
{
    auto window = checkedWindow(data);
    callGui([window] { closeFakeWindow(window); });
}

FAKE_METHOD(windowIsOpen) { result.setBool(args.count() == 0 && checkedWindow(data)->isOpen); }

FAKE_METHOD(windowIsValid) { result.setBool(checkedWindow(data)->hasPage); }

FAKE_METHOD(windowSetReturnValue)
{
    if (args.count() == 1 && checkedWindow(data)->hasPage)
        checkedWindow(data)->returnValue->assign(*args.get(0));
}

FAKE_METHOD(windowSetText)
{
    callGui([&] { result.setBool(args.count() == 1 && args.get(0)->isString()); });
}

FAKE_METHOD(windowControl)
{
    auto window = checkedWindow(data);
    auto& control = window->controls[args.get(0)->toString(0).c_str()];
    if (!control) {
        auto value = fake.platform->createValue(fake.engine);
        control = self->getEngine()->createInstance("GuiControl");
        value->setObject(self);
        control->setProperty("window", value);
        control->setProperty("name", args.get(0));
        fake.platform->destroyValue(value);
    }
    result.setObject(control);
}

FAKE_METHOD(windowOnLoad)
{
    if (!self)
        failHost("a class method was called without an object");
    result.setString(sformat("%d %d", args.count(), args.get(1)->isFunction() ? 1 : 0));
}

// --- GuiWindow, for the tests ---

struct Fire
{
    ScriptObject* target;
    sstring name;
    std::vector<ScriptValue*> values; // made by the platform
    int delayMs;
};

/// The arguments of a handler; made on the GUI thread, as the real component makes them.
ScriptArgs* takeArguments(Fire* fire)
{
    auto list = fake.platform->createArgs(fake.engine);
    for (auto value : fire->values) {
        list->append(value);
        fake.platform->destroyValue(value);
    }
    return list;
}

void publish(char const* name, ScriptValue* value) { fake.session->setProperty(name, value); }

void runFire(Fire* fire)
{
    sleepMs(fire->delayMs);
    auto list = takeArguments(fire);
    auto result = fake.platform->createValue(fake.engine);
    auto value = fake.platform->createValue(fake.engine);
    value->setBool(fire->target->hasMethod(fire->name));
    publish("lastKnown", value);
    callHandler(fire->target, fire->name, list, result);
    publish("lastResult", result);
    value->setInt(fake.fires.fetch_add(1) + 1);
    publish("fires", value);
    fake.platform->destroyValue(value);
    fake.platform->destroyValue(result);
    fake.platform->destroyArgs(list);
    fire->target->letGo();
    delete fire;
}

/// testFire(delayMs, name, ...arguments): the GUI thread calls the handler `name` of this object later, and writes what
/// it saw into the session.
FAKE_METHOD(testFire)
{
    auto fire = new Fire{self, args.get(1)->toString(0), {}, args.get(0)->toInt(0)};
    for (int i = 2; i < args.count(); ++i) {
        fire->values.push_back(fake.platform->createValue(fake.engine));
        fire->values.back()->assign(*args.get(i));
    }
    self->keep();
    fake.gui.post([fire] { runFire(fire); });
}

/// testCloseLater(delayMs): the user closes the window, if it is still there.
FAKE_METHOD(testCloseLater)
{
    auto window = checkedWindow(data);
    int delay = args.get(0)->toInt(0);
    fake.gui.postLater(delay, window, [window] { closeFakeWindow(window); });
}

/// testEcho(value): the value, looked at on the GUI thread.
FAKE_METHOD(testEcho)
{
    callGui([&] { result.assign(*args.get(0)); });
}

/// testSlow(ms): a call that the GUI thread answers late.
FAKE_METHOD(testSlow)
{
    callGui([&] { sleepMs(args.get(0)->toInt(0)); });
}

/// testHas(name): what the GUI thread hears from hasMethod while script waits.
FAKE_METHOD(testHas)
{
    callGui([&] { result.setBool(self->hasMethod(args.get(0)->toString(0))); });
}

/// testRead(object, name), testWrite(object, name, value): properties, from the GUI thread.
FAKE_METHOD(testRead)
{
    callGui([&] { args.get(0)->toObject(0)->getProperty(args.get(1)->toString(0), &result); });
}

FAKE_METHOD(testWrite)
{
    callGui([&] {
        auto object = args.get(0)->toObject(0);
        object->setProperty(args.get(1)->toString(0), args.get(2));
        object->getProperty(args.get(1)->toString(0), &result);
    });
}

/// testSame(a, b): whether two arguments are the same handle.
FAKE_METHOD(testSame) { result.setBool(args.get(0)->toObject(0) == args.get(1)->toObject(0)); }

/// testForm(): the window's form object.
FAKE_METHOD(testForm) { result.setObject(checkedWindow(data)->form); }

FAKE_METHOD(testResolve)
{
    sstring path = args.get(0)->toString(0);
    fake.files->resolvePath(self, path);
    result.setString(path);
}

/// testReadFile(path): the length, -1 when there is none.
FAKE_METHOD(testReadFile)
{
    void const* bytes = nullptr;
    unsigned length = 0;
    bool good = fake.files->readFile(self, args.get(0)->toString(0), &bytes, &length);
    result.setInt(good ? static_cast<int>(length) : -1);
}

FAKE_METHOD(ownMethod) { result.setString("own"); }

/// testAddMethod(object, name): as the component gives a custom element its methods.
FAKE_METHOD(testAddMethod)
{
    callGui([&] { args.get(0)->toObject(0)->addMethod(args.get(1)->toString(0), ownMethod); });
}

/// testCreate(name): an instance of a class by name.
FAKE_METHOD(testCreate)
{
    auto made = self->getEngine()->createInstance(args.get(0)->toString(0));
    result.setObject(made);
    if (made)
        made->letGo();
}

FAKE_METHOD(testCompletions) { result.setInt(fake.completions); }
FAKE_METHOD(testLiveWindows) { result.setInt(fake.liveWindows); }

// --- GuiControl, GuiSizePolicy, the rest ---

struct FakeControl
{
    unsigned tag = 0xfeedc0de;
};

FAKE_METHOD(controlCreate) { data->setData(kPrivateKey, new FakeControl()); }

FAKE_METHOD(controlDestroy)
{
    fake.destroyed += " control";
    delete static_cast<FakeControl*>(data->getData(kPrivateKey));
    data->setData(kPrivateKey, nullptr);
}

FAKE_METHOD(controlSetText)
{
    if (!data->getData(kPrivateKey))
        failHost("a method was called on a control without its record");
    callGui([&] { result.setBool(1); });
}

FAKE_METHOD(controlGetValue) { result.setNull(); }
FAKE_METHOD(controlSetValue) { result.setBool(1); }

bool controlHasProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, bool isStatic)
{
    auto text = name.toString(0);
    return !isStatic && (text == "width" || text == "height");
}

bool controlGetProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, ScriptValue& out, bool)
{
    callGui([&] { out.setInt(name.toString(0) == "width" ? 120 : 24); });
    return true;
}

bool policyHasProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, bool isStatic)
{
    auto text = name.toString(0);
    return isStatic && (text == "SCROLL" || text == "RESIZE" || text == "FIXED");
}

bool policyGetProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, ScriptValue& out, bool)
{
    out.assign(name);
    return true;
}

bool refuseDel(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, bool) { return false; }
bool refuseSet(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, ScriptValue const&, bool)
{
    return false;
}

struct Entry
{
    char const* name;
    ScriptMethod method;
};

constexpr Entry kWindowMethods[] = {
    {"open", windowOpen},
    {"show", windowShow},
    {"close", windowClose},
    {"isOpen", windowIsOpen},
    {"load", windowLoad},
    {"setReturnValue", windowSetReturnValue},
    {"isValid", windowIsValid},
    {"setText", windowSetText},
    {"control", windowControl},
    {"getForm", windowGetForm},
    {"readForm", windowReadForm},
    {"writeForm", windowWriteForm},
    {"startShow", windowStartShow},
    {"getReturnValue", windowGetReturnValue},
    {"testFire", testFire},
    {"testCloseLater", testCloseLater},
    {"testEcho", testEcho},
    {"testSlow", testSlow},
    {"testHas", testHas},
    {"testRead", testRead},
    {"testWrite", testWrite},
    {"testSame", testSame},
    {"testForm", testForm},
    {"testResolve", testResolve},
    {"testReadFile", testReadFile},
    {"testAddMethod", testAddMethod},
    {"testCreate", testCreate},
    {"testCompletions", testCompletions},
    {"testLiveWindows", testLiveWindows},
};

} // namespace

FakeWindow* windowOf(ScriptPrivate* data)
{
    auto window = static_cast<FakeWindow*>(data->getData(kPrivateKey));
    return window && window->tag == 0xfeedc0de ? window : nullptr;
}

void closeFakeWindow(FakeWindow* window)
{
    if (!window->isOpen.exchange(false))
        return;
    window->object->windowState(0);
    if (auto pump = fakePump())
        pump->wake();
}

int configureWindow(ScriptClass& scriptClass)
{
    scriptClass.setCreateHandler(windowCreate);
    scriptClass.setDestroyHandler(windowDestroy);
    for (auto& entry : kWindowMethods)
        scriptClass.addMethod(entry.name, entry.method);
    scriptClass.addClassMethod("onLoad", windowOnLoad);
    return 1;
}

int configureControl(ScriptClass& scriptClass)
{
    scriptClass.setCreateHandler(controlCreate);
    scriptClass.setDestroyHandler(controlDestroy);
    scriptClass.setPropertyHandlers(controlHasProp, refuseDel, controlGetProp, refuseSet);
    scriptClass.addMethod("setText", controlSetText);
    scriptClass.addMethod("getValue", controlGetValue);
    scriptClass.addMethod("setValue", controlSetValue);
    return 1;
}

int configureSizePolicy(ScriptClass& scriptClass)
{
    scriptClass.setPropertyHandlers(policyHasProp, refuseDel, policyGetProp, refuseSet);
    return 1;
}

int configureToolkit(ScriptClass& scriptClass)
{
    scriptClass.setCreateHandler(controlCreate);
    scriptClass.setDestroyHandler(controlDestroy);
    return 1;
}
