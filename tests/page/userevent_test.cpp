// tests/page/userevent_test.cpp: what handlers are told of the user's doing: what is read out of the toolkit's events,
// and which note counts.
#include "page/guiuserevent.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QTimerEvent>
#include <gtest/gtest.h>

namespace {

QMouseEvent press(Qt::MouseButton button, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return {QEvent::MouseButtonPress, QPointF(3, 4), QPointF(103, 204), button, button, modifiers};
}

guiUserInput key(char const* name) { return {sstring("key"), sstring(), sstring(name), sstring(), {}}; }

std::string typeNow()
{
    std::optional<guiUserEvent> const event = guiCurrentEvent();
    return event ? event->input.type.c_str() : "none";
}

} // namespace

TEST(UserEvent, AButtonOfTheMouseHasANameAPlaceOnTheScreenAndItsModifierKeys)
{
    guiUserInput const input = guiInputIn(press(Qt::RightButton, Qt::ShiftModifier | Qt::ControlModifier)).value();
    EXPECT_EQ(input.type, "mousedown");
    EXPECT_EQ(input.button, "right");
    EXPECT_EQ(input.key, "");
    EXPECT_EQ(input.modifiers, "ctrl+shift");
    EXPECT_EQ(input.place, QPoint(103, 204));
}

TEST(UserEvent, AKeyHasItsNameAndNoPlace)
{
    guiUserInput const input = guiInputIn(QKeyEvent(QEvent::KeyPress, Qt::Key_Enter, Qt::AltModifier)).value();
    EXPECT_EQ(input.type, "key");
    EXPECT_EQ(input.key, "Return");
    EXPECT_EQ(input.modifiers, "alt");
    EXPECT_FALSE(input.place);
}

TEST(UserEvent, AShortcutIsItsLastKey)
{
    guiUserInput const input = guiInputIn(QShortcutEvent(QKeySequence(u"Ctrl+K, Ctrl+S"_qs), 1)).value();
    EXPECT_EQ(input.key, "S");
    EXPECT_EQ(input.modifiers, "ctrl");
}

TEST(UserEvent, OtherEventsAreNoInput) { EXPECT_FALSE(guiInputIn(QTimerEvent(1))); }

TEST(UserEvent, OutsideOfInputThereIsNoneAndANoteMakesNone)
{
    EXPECT_EQ(typeNow(), "none");
    guiEventNote const note("click");
    EXPECT_EQ(typeNow(), "none");
}

TEST(UserEvent, WithoutANoteItIsWhatTheInputIs)
{
    guiInputScope const scope(key("A"));
    EXPECT_EQ(typeNow(), "key");
}

TEST(UserEvent, OfSeveralNotesTheOutermostCountsUntilItEnds)
{
    guiInputScope const scope(key("A"));
    {
        guiEventNote const outer("activate", {.row = sstring("b"), .column = 2});
        guiEventNote const inner("change");
        EXPECT_EQ(typeNow(), "activate");
        EXPECT_EQ(guiCurrentEvent()->detail.row, sstring("b"));
        EXPECT_EQ(guiCurrentEvent()->detail.column, 2);
        EXPECT_EQ(guiCurrentEvent()->input.key, "A");
    }
    guiEventNote const next("select");
    EXPECT_EQ(typeNow(), "select");
    EXPECT_FALSE(guiCurrentEvent()->detail.row);
}

TEST(UserEvent, AScopeWithoutInputHidesTheOneAroundItWithItsNote)
{
    guiInputScope const outer(key("A"));
    guiEventNote const note("click");
    {
        guiInputScope const nothing(std::nullopt);
        EXPECT_EQ(typeNow(), "none");
        guiInputScope const nested(key("B"));
        EXPECT_EQ(typeNow(), "key");
    }
    EXPECT_EQ(typeNow(), "click");
}
