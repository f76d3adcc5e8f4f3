// runtime/guikeptkeys.cpp: see guikeptkeys.h.
#include "runtime/guikeptkeys.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <algorithm>
#include <cassert>
#include <utility>

namespace {

constexpr std::size_t kMostKept = 10'000; // minutes of typing; more comes from a key that something lies on

bool takesText(QWidget const* widget)
{
    return widget && widget->testAttribute(Qt::WA_InputMethodEnabled) && widget->isEnabled() &&
           widget->inputMethodQuery(Qt::ImEnabled).toBool();
}

bool editsText(QKeyEvent const& key)
{
    constexpr QKeySequence::StandardKey kEditing[] = {QKeySequence::Copy,      QKeySequence::Cut,
                                                      QKeySequence::Paste,     QKeySequence::Undo,
                                                      QKeySequence::Redo,      QKeySequence::SelectAll,
                                                      QKeySequence::Backspace, QKeySequence::DeleteEndOfWord,
                                                      QKeySequence::Delete,    QKeySequence::DeleteStartOfWord};
    return std::any_of(std::begin(kEditing), std::end(kEditing),
                       [&](auto each) { return const_cast<QKeyEvent&>(key).matches(each); });
}

/// Keys that move the cursor, and those that go on to the next field.
bool movesCursor(QKeyEvent const& key, bool hasLines)
{
    switch (key.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return hasLines;
    default:
        return false;
    }
}

/// Whether the key edits the text of the widget, which takes text. Enter presses a button of the window, except in an
/// editor of several lines.
bool isTyping(QKeyEvent const& key, QWidget const* widget)
{
    bool const hasLines = qobject_cast<QPlainTextEdit const*>(widget) != nullptr;
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return hasLines;
    if (editsText(key) || movesCursor(key, hasLines))
        return true;
    bool const isShortcut = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return !isShortcut && !key.text().isEmpty() && key.text().at(0).isPrint();
}

/// The widget that a key or a text of an input method is for, when that is to be kept; null otherwise. A key comes to
/// the window first, or to the list in which a field offers what completes its text.
QWidget* targetOf(QObject* watched, QEvent const& event)
{
    bool const isPress = event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride;
    bool const isKey = isPress && watched->isWindowType();
    bool const isText = event.type() == QEvent::InputMethod && watched->isWidgetType();
    QWidget* const popup = QApplication::activePopupWidget();
    if (!isKey && (!isText || popup))
        return nullptr;
    QWidget* const typed = popup ? popup->focusProxy() : QApplication::focusWidget();
    QWidget* const widget = isText ? static_cast<QWidget*>(watched) : typed;
    if (!takesText(widget))
        return nullptr;
    return isText || isTyping(static_cast<QKeyEvent const&>(event), widget) ? widget : nullptr;
}

bool isBehindModal(QWidget const* widget)
{
    QWidget const* modal = QApplication::activeModalWidget();
    return modal && modal != widget->window() && !modal->isAncestorOf(widget);
}

bool hasFocus(QWidget const* widget) { return widget->isVisible() && widget->window()->focusWidget() == widget; }

bool isTab(QEvent const& event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    int const key = static_cast<QKeyEvent const&>(event).key();
    return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

} // namespace

bool guiKeptKeys::isWaitingFor(QWidget const* target) const
{
    return std::any_of(m_events.begin(), m_events.end(), [&](kept const& each) { return each.target == target; });
}

bool guiKeptKeys::wants(QObject* watched, QEvent const& event) { return targetOf(watched, event) != nullptr; }

bool guiKeptKeys::take(QObject* watched, QEvent const& event, bool isBlocked)
{
    if (event.type() == QEvent::ShortcutOverride)
        return false; // the key itself comes later
    if (&event == m_sent || (!isBlocked && m_events.empty()))
        return false;
    QWidget* const target = targetOf(watched, event);
    if (!target || (!isBlocked && !isWaitingFor(target)))
        return false;
    if (m_events.size() < kMostKept)
        m_events.push_back({target, std::unique_ptr<QEvent>(event.clone())});
    m_isAny = true;
    return true;
}

/// Takes the next event that can be delivered or dropped now out of the list.
bool guiKeptKeys::takeNext(kept& next)
{
    auto const isDue = [](kept const& each) { return !each.target || !isBehindModal(each.target); };
    auto const found = std::find_if(m_events.begin(), m_events.end(), isDue);
    if (found == m_events.end())
        return false;
    next = std::move(*found);
    m_events.erase(found);
    m_isAny = !m_events.empty();
    return true;
}

/// What the user typed behind a Tab is for the field that Tab goes to.
void guiKeptKeys::follow(QWidget const* from, QWidget* to)
{
    for (kept& each : m_events)
        if (each.target == from)
            each.target = takesText(to) ? to : nullptr;
}

void guiKeptKeys::send(kept& next)
{
    QPointer<QWidget> const window = next.target->window();
    QWidget const* const target = next.target;
    QEvent const* const outer = std::exchange(m_sent, next.event.get());
    QCoreApplication::sendEvent(next.target, next.event.get());
    m_sent = outer;
    if (isTab(*next.event) && window && next.target && window->focusWidget() != target)
        follow(target, window->focusWidget());
}

void guiKeptKeys::deliver(std::function<bool()> const& isFree)
{
    kept next;
    while (isFree() && takeNext(next))
        if (next.target && hasFocus(next.target))
            send(next);
}
