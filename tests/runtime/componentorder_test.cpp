// Tests of the order in which the component asks its host for things when it starts and ends, and of how it lets script
// work go on while a window is waited for.
#include "controls/guiwidget.h"
#include "host/hostslots.h"
#include "page/guihtml.h"
#include "runtime/guihtmlbase.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <atomic>
#include <thread>

namespace {

using namespace std::chrono_literals;
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

int presses(guiThread* thread)
{
    struct Receiver : QObject
    {
        bool event(QEvent* event) override
        {
            return count += event->type() == QEvent::MouseButtonPress, QObject::event(event);
        }
        int count = 0;
    };
    int count = 0;
    EXPECT_EQ(thread, pGUI->getThread());
    onGuiThread([&] {
        Receiver receiver;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(), QPointF(), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&receiver, &press);
        count = receiver.count;
    });
    return count;
}

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

TEST(CurrentWindow, IsNullForAWindowWithoutScript)
{
    NativeHost host;
    NativeWindow window = host.window();
    onGuiThread([&] {
        guiHtmlBase root(nullptr, nullptr, nullptr, sstring());
        pGUI->getSession()->deleteProperty("currentWindow");
        pGUI->setCurrentWindow(root.createWidget(0));
        NativeValue published(1);
        EXPECT_TRUE(pGUI->getSession()->getProperty("currentWindow", &published));
        EXPECT_TRUE(published.isNull());
        root.destroyWidget();
    });
}

TEST(CurrentWindow, IsTheActiveOneThatPaintsItself)
{
    NativeHost host;
    NativeWindow window = host.window();
    onGuiThread([&] {
        guiHtmlBase root(window.object().get(), nullptr, nullptr, sstring());
        guiWidget* widget = root.createWidget(0);
        widget->show();
        widget->activateWindow();
        QCoreApplication::processEvents();
        ASSERT_TRUE(widget->isActiveWindow());
        pGUI->setCurrentWindow(nullptr);
        widget->repaint();
        NativeValue published;
        pGUI->getSession()->getProperty("currentWindow", &published);
        EXPECT_EQ(published.object(), window.object());
        root.destroyWidget();
    });
}

TEST(RunPump, WithoutAWindowRunsWhatIsReadyOnceAndLetsInputThrough)
{
    int runs = 0; // outlives the host, which runs what is left
    NativeHost host;
    NativeWindow window = host.window(); // brings the engine
    pGUI->getThread()->disable();
    pGUI->getThread()->disable();
    pGUI->getThread()->disableMM();
    EXPECT_EQ(presses(pGUI->getThread()), 0);
    host.post([&] {
        ++runs;
        host.post([&] { ++runs; }); // not ready when the pump was asked
    });
    host.post([&] { ++runs; });
    pGUI->runPump(nullptr);
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(presses(pGUI->getThread()), 1);
}

TEST(RunPump, GoesOnUntilTheWindowIsGone)
{
    NativeHost host;
    NativeWindow window = host.window();
    std::unique_ptr<guiHtmlBase> root;
    onGuiThread([&] { root = std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, sstring()); });
    pGUI->getThread()->callPageOpen(root.get(), 0);
    guiWidget* widget = root->getWidget();
    int runs = 0;
    std::thread closer([&] {
        for (int i = 0; i < 3; ++i)
            host.post([&] { ++runs; });
        std::this_thread::sleep_for(100ms);
        pGUI->getThread()->postClose(root.get());
    });
    auto start = std::chrono::steady_clock::now();
    pGUI->runPump(widget);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 90ms);
    EXPECT_EQ(runs, 3) << "script work goes on meanwhile";
    EXPECT_FALSE(root->isOpen());
    closer.join();
    pGUI->runPump(widget); // gone already: returns
    onGuiThread([&] { root.reset(); });
}

namespace {

/// Takes its time when the pointer leaves it.
struct SlowNode : guiHtml
{
    using guiHtml::operator=;
    void onMouseOff() override
    {
        std::this_thread::sleep_for(200ms);
        isOver = true;
    }
    std::atomic<bool> isOver{false};
};

} // namespace

TEST(RunPump, GoesOnUntilAWindowThatTheUserClosedHasEnded)
{
    NativeHost host;
    NativeWindow window = host.window();
    std::unique_ptr<guiHtmlBase> root;
    auto* node = new SlowNode;
    guiWidget* widget = nullptr;
    onGuiThread([&] {
        root = std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, sstring());
        root->append(node);
        widget = root->createWidget(0);
        widget->show();
        widget->hoverNode = node;
        QMetaObject::invokeMethod(widget, &QWidget::close, Qt::QueuedConnection);
    });
    pGUI->runPump(widget);
    EXPECT_TRUE(node->isOver) << "it was hidden long before";
    EXPECT_FALSE(root->isOpen());
    onGuiThread([&] { root.reset(); });
}

TEST(RunPump, DoesNotWaitForAWindowThatIsNotShown)
{
    NativeHost host;
    NativeWindow window = host.window();
    onGuiThread([] {});
    std::unique_ptr<guiHtmlBase> root;
    onGuiThread([&] {
        root = std::make_unique<guiHtmlBase>(nullptr, nullptr, nullptr, sstring());
        root->createWidget(0);
    });
    pGUI->runPump(root->getWidget());
    onGuiThread([&] { root->getWidget()->show(); });
    std::thread hider([&] {
        std::this_thread::sleep_for(50ms);
        onGuiThread([&] { root->getWidget()->hide(); });
    });
    pGUI->runPump(root->getWidget());
    hider.join();
    EXPECT_TRUE(root->isOpen());
    onGuiThread([&] {
        root->destroyWidget();
        root.reset();
    });
}

TEST(ComponentWindows, AWindowDeletedWithItsPageStillBoundIsNoOpenOneAnyMore)
{
    NativeHost host;
    onGuiThread([] {
        guiHtmlBase root(nullptr, nullptr, nullptr, sstring());
        auto* widget = new guiWidget(nullptr, "other", 0, Qt::Window);
        widget->htmlBase = &root;
        pGUI->onOpen(widget, &root);
        EXPECT_TRUE(pGUI->isWindowOpen(widget));
        delete widget;
        EXPECT_FALSE(pGUI->hasOpenWindow());
        auto* again = new guiWidget(nullptr, "again", 0, Qt::Window);
        pGUI->onOpen(again, &root);
        pGUI->onClose(again, &root);
        EXPECT_FALSE(pGUI->hasOpenWindow());
        pGUI->onClose(again, &root); // told twice
        delete again;
    });
}
