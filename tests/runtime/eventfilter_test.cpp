// tests/runtime/eventfilter_test.cpp: tests of the application's input filter: which events it swallows at which
// counters.
#include "runtime/guiefilter.h"

#include <gtest/gtest.h>

namespace {

bool isSwallowed(guiEventFilter& filter, int type)
{
    QObject object;
    QEvent event(static_cast<QEvent::Type>(type));
    return filter.eventFilter(&object, &event);
}

TEST(EventFilter, LetsEverythingThroughAtFirst)
{
    guiEventFilter filter;
    for (int type = 1; type < 120; ++type)
        EXPECT_FALSE(isSwallowed(filter, type)) << type;
}

TEST(EventFilter, BlocksKeysAndMouseWhileActive)
{
    guiEventFilter filter;
    filter.activate();
    for (int type : {2, 3, 4, 5, 6, 7, 30, 80, 81})
        EXPECT_TRUE(isSwallowed(filter, type)) << type;
    for (QEvent::Type type : {QEvent::ShortcutOverride, QEvent::Shortcut, QEvent::Wheel, QEvent::TouchBegin})
        EXPECT_TRUE(isSwallowed(filter, type)) << type;
    for (QEvent::Type type : {QEvent::Paint, QEvent::Timer, QEvent::Resize, QEvent::Close, QEvent::Show})
        EXPECT_FALSE(isSwallowed(filter, type)) << type;
}

TEST(EventFilter, CallsNest)
{
    guiEventFilter filter;
    filter.activate();
    filter.activate();
    filter.deactivate();
    EXPECT_TRUE(isSwallowed(filter, QEvent::KeyPress));
    filter.deactivate();
    EXPECT_FALSE(isSwallowed(filter, QEvent::KeyPress));
    filter.deactivate(); // one too many does nothing
    filter.activate();
    EXPECT_TRUE(isSwallowed(filter, QEvent::KeyPress));
}

TEST(EventFilter, MoveBlockTakesMovesOnly)
{
    guiEventFilter filter;
    filter.activateMM();
    EXPECT_TRUE(isSwallowed(filter, QEvent::MouseMove));
    EXPECT_FALSE(isSwallowed(filter, QEvent::MouseButtonPress));
    EXPECT_FALSE(isSwallowed(filter, QEvent::KeyPress));
    filter.deactivateMM();
    filter.deactivateMM();
    EXPECT_FALSE(isSwallowed(filter, QEvent::MouseMove));
}

TEST(EventFilter, CountsCallsAndNeverBelowNone)
{
    guiEventFilter filter;
    EXPECT_EQ(filter.inputBlock, 0u);
    EXPECT_EQ(filter.mouseMoveBlock, 0u);
    filter.deactivate();
    filter.deactivateMM();
    EXPECT_EQ(filter.inputBlock, 0u);
    EXPECT_EQ(filter.mouseMoveBlock, 0u);
    filter.activate();
    filter.activate();
    filter.activateMM();
    EXPECT_EQ(filter.inputBlock, 2u);
    EXPECT_EQ(filter.mouseMoveBlock, 1u);
    filter.deactivate();
    filter.deactivateMM();
    EXPECT_EQ(filter.inputBlock, 1u);
    EXPECT_EQ(filter.mouseMoveBlock, 0u);
}

TEST(EventFilter, ABlockOfMovesAddsNothingToABlockOfAll)
{
    guiEventFilter filter;
    filter.activateMM();
    for (int type = 1; type < 120; ++type)
        EXPECT_EQ(isSwallowed(filter, type), type == 5) << type;
    filter.activate();
    EXPECT_TRUE(isSwallowed(filter, QEvent::KeyPress));
    filter.deactivateMM();
    EXPECT_TRUE(isSwallowed(filter, QEvent::MouseMove));
}

TEST(EventFilter, OneForcedDeactivationLetsAllThrough)
{
    guiEventFilter filter;
    filter.activate();
    filter.activate();
    filter.activateMM();
    filter.forceDeactivate();
    EXPECT_EQ(filter.inputBlock, 0u);
    EXPECT_EQ(filter.mouseMoveBlock, 0u);
    EXPECT_FALSE(isSwallowed(filter, QEvent::KeyPress));
    EXPECT_FALSE(isSwallowed(filter, QEvent::MouseMove));
}

} // namespace
