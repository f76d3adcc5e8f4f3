// page/guiuserevent.cpp: see guiuserevent.h.
#include "page/guiuserevent.h"

#include "foundation/vela-qt.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeySequence>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QWheelEvent>
#include <cassert>
#include <utility>

namespace {

guiInputScope* theScope TARN_GUARDED_BY(velaGuiRole) = nullptr; // the innermost one

guiUserInput pointerInput(char const* type, QSinglePointEvent const& event)
{
    bool const isPress = event.button() != Qt::NoButton;
    return {sstring(type), sstring(isPress ? guiButtonName(event.button()) : ""), sstring(),
            guiModifierNames(event.modifiers()), event.globalPosition().toPoint()};
}

guiUserInput keyInput(int key, Qt::KeyboardModifiers modifiers)
{
    return {sstring("key"), sstring(), guiKeyName(key), guiModifierNames(modifiers), {}};
}

std::optional<guiUserInput> shortcutInput(QShortcutEvent const& event)
{
    if (event.key().isEmpty())
        return guiUserInput{sstring("key"), sstring(), sstring(), sstring(), {}};
    QKeyCombination const last = event.key()[static_cast<unsigned>(event.key().count() - 1)];
    return keyInput(last.key(), last.keyboardModifiers());
}

guiUserInput contextInput(QContextMenuEvent const& event)
{
    bool const isPointer = event.reason() == QContextMenuEvent::Mouse;
    return {sstring("context"), sstring(isPointer ? "right" : ""), sstring(isPointer ? "" : "Menu"),
            guiModifierNames(event.modifiers()), event.globalPos()};
}

} // namespace

char const* guiButtonName(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return "left";
    case Qt::MiddleButton:
        return "middle";
    case Qt::RightButton:
        return "right";
    default:
        return "";
    }
}

sstring guiKeyName(int key)
{
    return qtoss(QKeySequence(key == Qt::Key_Enter ? Qt::Key_Return : key).toString(QKeySequence::PortableText));
}

sstring guiModifierNames(Qt::KeyboardModifiers modifiers)
{
    constexpr std::pair<Qt::KeyboardModifier, char const*> kNames[] = {{Qt::ControlModifier, "ctrl"},
                                                                       {Qt::AltModifier, "alt"},
                                                                       {Qt::ShiftModifier, "shift"},
                                                                       {Qt::MetaModifier, "meta"}};
    sstring names;
    for (auto const& [modifier, name] : kNames) {
        if (!modifiers.testFlag(modifier))
            continue;
        if (names.getLength() != 0)
            names += sstring("+");
        names += sstring(name);
    }
    return names;
}

std::optional<guiUserInput> guiInputIn(QEvent const& event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return pointerInput("mousedown", static_cast<QMouseEvent const&>(event));
    case QEvent::MouseButtonRelease:
        return pointerInput("mouseup", static_cast<QMouseEvent const&>(event));
    case QEvent::MouseMove:
    case QEvent::Enter:
    case QEvent::Wheel:
        return pointerInput("mousemove", static_cast<QSinglePointEvent const&>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        auto const& key = static_cast<QKeyEvent const&>(event);
        return keyInput(key.key(), key.modifiers());
    }
    case QEvent::InputMethod:
        return guiUserInput{sstring("key"), sstring(), sstring(), sstring(), {}};
    case QEvent::Leave: // else a window was hidden under the pointer
        return event.spontaneous() ? std::optional(guiUserInput{sstring("mousemove"),
                                                                sstring(),
                                                                sstring(),
                                                                guiModifierNames(QGuiApplication::keyboardModifiers()),
                                                                {}})
                                   : std::nullopt;
    case QEvent::Shortcut:
        return shortcutInput(static_cast<QShortcutEvent const&>(event));
    case QEvent::ContextMenu:
        return contextInput(static_cast<QContextMenuEvent const&>(event));
    default:
        return std::nullopt;
    }
}

guiInputScope::guiInputScope(std::optional<guiUserInput> input) : m_input(std::move(input)), m_outer(theScope)
{
    assertOnGuiThread();
    theScope = this;
}

guiInputScope::~guiInputScope()
{
    assertOnGuiThread();
    assert(theScope == this);
    theScope = m_outer;
}

std::optional<guiUserInput> guiInputScope::current()
{
    assertOnGuiThread();
    return theScope ? theScope->m_input : std::nullopt;
}

guiEventNote::guiEventNote(char const* type, guiEventDetail detail)
    : m_type(type), m_detail(std::move(detail)), m_scope(theScope && !theScope->m_note ? theScope : nullptr)
{
    assertOnGuiThread();
    if (m_scope)
        m_scope->m_note = this;
}

guiEventNote::~guiEventNote()
{
    assertOnGuiThread();
    if (m_scope)
        m_scope->m_note = nullptr;
}

std::optional<guiUserEvent> guiCurrentEvent()
{
    assertOnGuiThread();
    if (!theScope || !theScope->m_input)
        return std::nullopt;
    guiUserEvent event{*theScope->m_input};
    if (guiEventNote const* note = theScope->m_note) {
        event.input.type = sstring(note->m_type);
        event.detail = note->m_detail;
    }
    return event;
}
