// page/guiuserevent.h: what the user has just done, for the handlers that are called because of it: script finds it as
// `session.event`.
//
// The event loop says what the user does (guiInputScope), and whoever calls a handler says what that is about
// (guiEventNote). A list, say, whose row the user has double-clicked needs one line around what it did before:
//
//     guiEventNote const note("activate", {.row = row->value, .column = column});
//     followLink(link);
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"

#include <QPoint>
#include <QString>
#include <Qt>
#include <optional>

class QEvent;

/// A key that went down or up, or something that the pointer did.
struct guiUserInput
{
    sstring type;                ///< what a handler is told without a note: "mousedown", "mouseup", "mousemove", "key"
    sstring button;              ///< "left", "middle" or "right", "" when it is about none
    sstring key;                 ///< as guiKeyName() says, "" when it is about none
    sstring modifiers;           ///< as guiModifierNames() says
    std::optional<QPoint> place; ///< of the pointer, in pixels of the screen
};

/// What a handler is told in addition, where it makes sense.
struct guiEventDetail
{
    std::optional<sstring> row = {};  ///< the value of a list's row
    std::optional<int> column = {};   ///< of a list, counted from 1
    std::optional<sstring> text = {}; ///< that the user has given
    std::optional<QPoint> place = {}; ///< in pixels of the screen, instead of the pointer's
};

/// What a handler is told.
struct guiUserEvent
{
    guiUserInput input;
    guiEventDetail detail = {};
};

/// The input in an event of the toolkit, none in an event of another kind. Wheels and touches count as the pointer.
std::optional<guiUserInput> guiInputIn(QEvent const& event);

/// "left", "middle", "right", "" for any other.
char const* guiButtonName(Qt::MouseButton button);
/// "A", "Left", "Return", "Space", "F1".
sstring guiKeyName(int key);
/// The names of the modifier keys, as "ctrl+shift", in the order ctrl, alt, shift, meta.
sstring guiModifierNames(Qt::KeyboardModifiers modifiers);

class guiEventNote;

/// While it exists, the GUI thread is busy with this input of the user, or, without one, with something that the user
/// has not done. Scopes nest. GUI thread.
class guiInputScope
{
public:
    explicit guiInputScope(std::optional<guiUserInput> input);
    ~guiInputScope();
    guiInputScope(guiInputScope const&) = delete;
    guiInputScope& operator=(guiInputScope const&) = delete;

    /// The input of the innermost scope.
    static std::optional<guiUserInput> current();

private:
    friend class guiEventNote;
    friend std::optional<guiUserEvent> guiCurrentEvent();

    std::optional<guiUserInput> const m_input;
    guiEventNote const* m_note = nullptr; // the outermost one; not owned
    guiInputScope* const m_outer;
};

/// While it exists, handlers that are called because of the present input are told that it is an event of this type,
/// with these details. Of several the outermost counts, which knows most about it. Without an input it does nothing:
/// a handler that script makes run hears of no event. GUI thread.
class guiEventNote
{
public:
    /// `type`: a literal, such as "click", "change" or "select".
    explicit guiEventNote(char const* type, guiEventDetail detail = {});
    ~guiEventNote();
    guiEventNote(guiEventNote const&) = delete;
    guiEventNote& operator=(guiEventNote const&) = delete;

private:
    friend std::optional<guiUserEvent> guiCurrentEvent();

    char const* const m_type;
    guiEventDetail const m_detail;
    guiInputScope* const m_scope; // where it is the outermost note, else null; not owned
};

/// What the user has done, as a handler is told that is called now; none when it was not the user. GUI thread.
std::optional<guiUserEvent> guiCurrentEvent();
