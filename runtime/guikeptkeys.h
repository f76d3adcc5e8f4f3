// runtime/guikeptkeys.h: what the user types into a text field while input is blocked. It is kept in order and given to
// the field when the block ends, so that nothing is lost while a handler works.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>
#include <atomic>
#include <deque>
#include <functional>
#include <memory>

class QKeyEvent;

/// Keys and text of input methods for widgets that take text. A key that does not edit (Escape, function keys, Enter in
/// a field of one line) is not kept. GUI thread, unless stated otherwise.
class guiKeptKeys
{
public:
    guiKeptKeys() = default;
    guiKeptKeys(guiKeptKeys const&) = delete;
    guiKeptKeys& operator=(guiKeptKeys const&) = delete;

    /// Keeps a copy of the event that comes to `watched`, if it is typing and either input is blocked or something that
    /// was typed into the same widget before still waits. False: the event is nothing to keep.
    bool take(QObject* watched, QEvent const& event, bool isBlocked) TARN_ON(velaGuiRole);
    /// Whether a key that might be a shortcut is one that take() will keep while input is blocked: then it is none.
    static bool wants(QObject* watched, QEvent const& event) TARN_ON(velaGuiRole);
    /// Gives the kept events to their widgets, as long as `isFree` says so: each may call a handler. Those for a widget
    /// that has lost the focus of its window are dropped; those for a window behind a modal one wait on.
    void deliver(std::function<bool()> const& isFree) TARN_ON(velaGuiRole);
    /// Whether anything is kept. Any thread.
    bool any() const { return m_isAny.load(std::memory_order_acquire); }

private:
    struct kept
    {
        QPointer<QWidget> target;
        std::unique_ptr<QEvent> event;
    };

    bool isWaitingFor(QWidget const* target) const TARN_ON(velaGuiRole);
    bool takeNext(kept& next) TARN_ON(velaGuiRole);
    void send(kept& next) TARN_ON(velaGuiRole);
    void follow(QWidget const* from, QWidget* to) TARN_ON(velaGuiRole);

    std::deque<kept> m_events TARN_GUARDED_BY(velaGuiRole);
    QEvent const* m_sent TARN_GUARDED_BY(velaGuiRole) = nullptr; // the event that is being delivered
    std::atomic<bool> m_isAny{false};
};
