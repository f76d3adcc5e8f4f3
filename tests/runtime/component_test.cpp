// tests/runtime/component_test.cpp: tests of the component's registries, its lock and its end.
#include "controls/guiwidget.h"
#include "page/guihtml.h"
#include "runtime/guihtmlbase.h"
#include "tests/runtime/onguithread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace {

TEST(Component, FindsTheNodeOfAnObjectWhileAnotherThreadBindsOthers)
{
    NativeHost host;
    guiHtml node;
    char keys[8]; // the component compares objects and never looks into them
    auto object = [&keys](int i) { return reinterpret_cast<ScriptObject*>(&keys[i]); };
    pGUI->bindObject(object(0), &node);
    std::thread other([&] {
        for (int i = 0; i < 5000; ++i) {
            pGUI->bindObject(object(1 + i % 7), &node);
            pGUI->unbindObject(object(1 + (i + 3) % 7));
        }
    });
    int found = 0;
    for (int i = 0; i < 5000; ++i)
        found += pGUI->findNode(object(0)) == &node;
    other.join();
    EXPECT_EQ(found, 5000);
    for (int i = 0; i < 8; ++i)
        pGUI->unbindObject(object(i));
}

TEST(Component, RegistryHasItsBucketsAndKnowsLiveNodes)
{
    NativeHost host;
    EXPECT_EQ(pGUI->bucketCount(), 1027u);
    auto* node = new guiHtml;
    EXPECT_TRUE(pGUI->contains(node));
    delete node;
    EXPECT_FALSE(pGUI->contains(node));
}

TEST(Component, SessionObjectIsMadeOnce)
{
    NativeHost host;
    EXPECT_EQ(pGUI->getSession(), nullptr);
    NativeWindow first = host.window();
    ScriptObject* session = pGUI->getSession();
    EXPECT_NE(session, nullptr);
    NativeWindow second = host.window();
    EXPECT_EQ(pGUI->getSession(), session);
}

TEST(Component, SameCurrentWindowIsPublishedOnce)
{
    NativeHost host;
    NativeWindow window = host.window();
    onGuiThread([&] {
        guiHtmlBase root(window.object().get(), nullptr, nullptr, sstring());
        guiWidget* widget = root.createWidget(0);
        pGUI->setCurrentWindow(widget);
        NativeValue published;
        EXPECT_TRUE(pGUI->getSession()->getProperty("currentWindow", &published));
        EXPECT_EQ(published.object(), window.object());

        pGUI->getSession()->deleteProperty("currentWindow");
        pGUI->setCurrentWindow(widget);
        EXPECT_FALSE(pGUI->getSession()->hasProperty("currentWindow")); // nothing changed, so nothing is said
        pGUI->setCurrentWindow(nullptr);
        EXPECT_TRUE(pGUI->getSession()->getProperty("currentWindow", &published));
        EXPECT_TRUE(published.isNull());
        root.destroyWidget();
    });
}

TEST(Component, OpenWindowsAreKnownUntilTheyClose)
{
    NativeHost host;
    onGuiThread([] {
        guiHtmlBase root(nullptr, nullptr, nullptr, sstring());
        guiWidget* widget = root.createWidget(0);
        EXPECT_TRUE(pGUI->isWindowOpen(widget));
        EXPECT_EQ(root.createWidget(0), widget);
        root.destroyWidget();
        EXPECT_FALSE(pGUI->hasOpenWindow());
        EXPECT_FALSE(root.isOpen());
    });
}

TEST(Component, ScriptObjectsAreMappedToNodes)
{
    NativeHost host;
    NativeObjectRef object = host.object();
    guiHtml node;
    pGUI->bindObject(object.get(), &node);
    EXPECT_EQ(pGUI->findNode(object.get()), &node);
    pGUI->unbindObject(object.get());
    EXPECT_EQ(pGUI->findNode(object.get()), nullptr);
}

TEST(Component, ShutdownWaitsForTheCallInFlight)
{
    NativeHost host;
    pGUI->shutdownEnter();
    auto start = std::chrono::steady_clock::now();
    std::thread call([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        pGUI->shutdownLeave();
    });
    pGUI->shutdownWait();
    auto waited = std::chrono::steady_clock::now() - start;
    pGUI->leave(); // the wait returns with the lock held
    call.join();
    EXPECT_GE(waited, std::chrono::milliseconds(140));
}

TEST(Component, ShutdownCounterNeverGoesBelowZero)
{
    NativeHost host;
    pGUI->shutdownLeave(); // nothing is in flight
    pGUI->shutdownEnter();
    auto start = std::chrono::steady_clock::now();
    std::thread call([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        pGUI->shutdownLeave();
    });
    pGUI->shutdownWait(); // a counter below zero would have let this through at once
    pGUI->leave();
    call.join();
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(90));
}

TEST(Component, ItsLockIsTheThreadsThatTookItAsOftenAsItTookIt)
{
    NativeHost host;
    std::atomic<bool> isIn{false};
    pGUI->enter();
    pGUI->enter();
    std::thread other([&] {
        pGUI->enter();
        isIn = true;
        pGUI->leave();
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(isIn);
    pGUI->leave();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(isIn) << "taken twice";
    pGUI->leave();
    other.join();
    EXPECT_TRUE(isIn);
}

TEST(Component, LogAddsNothingToAMessage)
{
    testing::internal::CaptureStderr();
    guiComponent::logError("a %d", 7);
    guiComponent::logError("%s\n", "b");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a 7b\n");
}

} // namespace
