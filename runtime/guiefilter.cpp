// runtime/guiefilter.cpp: see guiefilter.h.
#include "runtime/guiefilter.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <cassert>

namespace {

void increment(std::atomic<unsigned>& counter)
{
    // One stack holds fewer nested handlers than this, so a larger count means that somebody never decrements.
    [[maybe_unused]] constexpr unsigned kMostBlocks = 10'000;
    [[maybe_unused]] unsigned const before = counter.fetch_add(1);
    assert(before < kMostBlocks);
}

void decrementAboveZero(std::atomic<unsigned>& counter)
{
    unsigned value = counter.load();
    while (value != 0 && !counter.compare_exchange_weak(value, value - 1)) {}
}

bool isMouseInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return true;
    default:
        return false;
    }
}

bool isKeyInput(QEvent::Type type)
{
    constexpr int kAccelerator = 30; // unused in this version of the toolkit
    constexpr int kActivateControl = 80;
    constexpr int kDeactivateControl = 81;
    switch (static_cast<int>(type)) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case kAccelerator:
    case kActivateControl:
    case kDeactivateControl:
        return true;
    default:
        return false;
    }
}

} // namespace

void guiEventFilter::activate() { increment(inputBlock); }
void guiEventFilter::activateMM() { increment(mouseMoveBlock); }
void guiEventFilter::deactivateMM() { decrementAboveZero(mouseMoveBlock); }

void guiEventFilter::deactivate()
{
    decrementAboveZero(inputBlock);
    catchUpLater();
}

void guiEventFilter::forceDeactivate()
{
    mouseMoveBlock = 0;
    inputBlock = 0;
    catchUpLater();
}

void guiEventFilter::catchUpLater()
{
    if (inputBlock != 0 || (!m_missedMove && !m_keys.any()))
        return;
    guiThreadPost::post(this, new guiEvent(guiEventIdCatchUp));
}

bool guiEventFilter::event(QEvent* event)
{
    assertOnGuiThread();
    if (event->type() != static_cast<QEvent::Type>(guiEventIdCatchUp))
        return QObject::event(event);
    catchUp();
    return true;
}

void guiEventFilter::catchUp()
{
    m_keys.deliver([this] { return inputBlock == 0; });
    catchUpMove();
}

void guiEventFilter::catchUpMove()
{
    if (inputBlock != 0 || !m_missedMove.exchange(false) || !m_pointerWindow)
        return;
    QPoint global = QCursor::pos();
    QPoint local = m_pointerWindow->mapFromGlobal(global);
    if (!QRect(QPoint(), m_pointerWindow->size()).contains(local))
        return;
    QMouseEvent move(QEvent::MouseMove, local, global, Qt::NoButton, QGuiApplication::mouseButtons(),
                     QGuiApplication::keyboardModifiers());
    QCoreApplication::sendEvent(m_pointerWindow, &move);
}

/// Whether a blocked event is dropped. A mouse event reaches the window first and then one of its widgets. The window
/// must see every button release: until then it sends all moves to the widget where the button was pressed, even those
/// over other windows.
bool guiEventFilter::holdBack(QObject* watched, QEvent::Type type)
{
    if (type == QEvent::MouseMove && watched->isWindowType()) {
        m_pointerWindow = static_cast<QWindow*>(watched);
        m_missedMove = true;
    }
    return type != QEvent::MouseButtonRelease || !watched->isWindowType();
}

/// What is typed while input is blocked is for the field and no shortcut, though it comes to it later.
bool guiEventFilter::isTypedLater(QObject* watched, QEvent const& event)
{
    return inputBlock != 0 && event.type() == QEvent::ShortcutOverride && guiKeptKeys::wants(watched, event);
}

bool guiEventFilter::eventFilter(QObject* watched, QEvent* event)
{
    assertOnGuiThread();
    guiThreadPost::take();
    if (isTypedLater(watched, *event)) {
        event->accept();
        return true;
    }
    if (m_keys.take(watched, *event, inputBlock != 0))
        return true;
    if (inputBlock != 0 && (isMouseInput(event->type()) || isKeyInput(event->type())))
        return holdBack(watched, event->type());
    if (mouseMoveBlock != 0 && event->type() == QEvent::MouseMove)
        return true;
    return QObject::eventFilter(watched, event);
}
