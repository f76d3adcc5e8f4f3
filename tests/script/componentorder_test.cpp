// tests/script/componentorder_test.cpp: tests of the order in which the component asks its host for things when it
// starts and ends.
#include "host/hostslots.h"
#include "host/native/nativehost.h"
#include "runtime/gui.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <utility>

namespace {

using List = std::vector<std::string>;

/// Whether the GUI thread has its application object.
bool hasApplication() { return QCoreApplication::instance() != nullptr; }

/// The services of the C++ host, with a note of each call that the component makes when it starts and ends.
class LoggingManager final : public LibManager, public HostLoadFileSlots, public HostPlatformSlots
{
public:
    void* getInterface(char const** guid) override
    {
        note(std::string("get ") + *guid);
        if (std::string(*guid) == kHostLoadFileGuid)
            return static_cast<HostLoadFile*>(this);
        if (std::string(*guid) == kHostPlatformGuid)
            return static_cast<HostPlatform*>(this);
        return m_engine->manager().getInterface(guid);
    }

    void resolvePath(ScriptObject*, sstring&) override {}
    bool readFile(ScriptObject*, sstring, void const**, unsigned*) override { return false; }
    void attach() override { note("attach"); }
    void release() override { note("release"); }

    ScriptObject* createObject(ScriptEngine* engine) override
    {
        note(engine == m_engine.get() ? "create an object of the engine" : "create an object");
        return platform().createObject(engine);
    }
    ScriptArgs* createArgs(ScriptEngine* engine) override { return platform().createArgs(engine); }
    ScriptValue* createValue(ScriptEngine* engine) override { return platform().createValue(engine); }
    void destroyObject(ScriptObject* object) override
    {
        note(m_engine->session() ? "destroy a session that has not ended" : "destroy an object");
        platform().destroyObject(object);
    }
    void destroyArgs(ScriptArgs* args) override { platform().destroyArgs(args); }
    void destroyValue(ScriptValue* value) override { platform().destroyValue(value); }

    NativeEngine& engine() { return *m_engine; }
    /// What was called since the last time, "!" in front of what came without a GUI thread.
    List takeLog() { return std::exchange(m_log, {}); }

private:
    NativePlatform& platform() { return m_engine->manager().platform(); }
    void note(std::string const& what) { m_log.push_back((hasApplication() ? "" : "!") + what); }

    std::shared_ptr<NativeEngine> m_engine = NativeEngine::make();
    List m_log; // script thread
};

} // namespace

TEST(ComponentOrder, StartsItsThreadThenAsksForTheServicesAndEndsTheOtherWayRound)
{
    LoggingManager manager;
    EXPECT_FALSE(hasApplication());
    EXPECT_EQ(Init(manager), 1);
    EXPECT_EQ(manager.takeLog(),
              (List{"get FE74031B-EB9E-4F60-9BDE-7CE53078484D", "get 8DCD1EE9-5B56-41AE-A9C6-84C0013D4932",
                    "get 385251A2-815A-419c-8C94-19CD16E03983", "attach"}));
    EXPECT_EQ(pGUI->getLoadFile(), static_cast<HostLoadFile*>(&manager));
    EXPECT_EQ(pGUI->getPlatform(), static_cast<HostPlatform*>(&manager));
    EXPECT_EQ(pGUI->getFormProp(), static_cast<HostFormProp*>(&manager.engine().manager().forms()));
    EXPECT_EQ(pGUI->getSession(), nullptr);
    EXPECT_EQ(pGUI->getEngine(), nullptr);

    EXPECT_EQ(Init(manager), 1);
    EXPECT_TRUE(manager.takeLog().empty()) << "it is there already";
    pGUI->setEngine(&manager.engine());
    EXPECT_EQ(manager.takeLog(), List{"create an object of the engine"});
    EXPECT_EQ(pGUI->getEngine(), &manager.engine());
    EXPECT_EQ(pGUI->getSession(), manager.engine().session().get()) << "told that it is the session";
    pGUI->setEngine(&manager.engine());
    EXPECT_TRUE(manager.takeLog().empty()) << "one session is enough";

    EXPECT_EQ(Shutdown(), 1);
    EXPECT_EQ(manager.takeLog(), (List{"destroy an object", "release"})) << "the session ends before it is destroyed";
    EXPECT_FALSE(hasApplication());
    EXPECT_EQ(pGUI, nullptr);
}

TEST(ComponentOrder, WithoutASessionThereIsNoneToEnd)
{
    LoggingManager manager;
    Init(manager);
    manager.takeLog();
    onGuiThread([] { pGUI->setCurrentWindow(nullptr); }); // nobody to tell
    pGUI->runPump(nullptr);                               // no engine: nothing
    Shutdown();
    EXPECT_EQ(manager.takeLog(), List{"release"});
}

TEST(ComponentOrder, ObjectsAreMadeWithTheCurrentEngineAndGoBackToTheFactory)
{
    LoggingManager manager;
    Init(manager);
    pGUI->setEngine(&manager.engine());
    manager.takeLog();
    ScriptObject* object = guiComponent::NewScriptObject();
    EXPECT_EQ(manager.takeLog(), List{"create an object of the engine"});
    guiComponent::DeleteScriptObject(object);
    EXPECT_EQ(manager.takeLog().size(), 1u);
    ScriptValue* value = guiComponent::NewScriptValue();
    EXPECT_TRUE(value->isNull());
    guiComponent::DeleteScriptValue(value);
    ScriptArgs* args = guiComponent::NewScriptArgs();
    EXPECT_EQ(args->count(), 0);
    guiComponent::DeleteScriptArgs(args);
    Shutdown();
}
