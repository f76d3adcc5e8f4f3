// runtime/guiefilter.cpp: the application's input filter, and how a blocking event tells its poster that it is done.
#include "runtime/guiefilter.h"

#include "runtime/guicallback.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>

namespace {

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
    constexpr int kAccelerator = 30; // a number that this version of the toolkit uses for nothing
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

void guiThreadPost::post(QObject* receiver, QEvent* event)
{
    s_posts.fetch_add(1, std::memory_order_release);
    QCoreApplication::postEvent(receiver, event);
}

void guiEventFilter::activate() { ++inputBlock; }
void guiEventFilter::activateMM() { ++mouseMoveBlock; }
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
    if (inputBlock != 0 || !m_missedMove)
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

/// A mouse event reaches the window first and then one of its widgets. The window must hear of a button that comes up:
/// until then it hands the pointer's moves to the widget that the button went down on, in other windows too.
bool guiEventFilter::holdBack(QObject* watched, QEvent::Type type)
{
    if (type == QEvent::MouseMove && watched->isWindowType()) {
        m_pointerWindow = static_cast<QWindow*>(watched);
        m_missedMove = true;
    }
    return type != QEvent::MouseButtonRelease || !watched->isWindowType();
}

bool guiEventFilter::eventFilter(QObject* watched, QEvent* event)
{
    assertOnGuiThread();
    guiThreadPost::take();
    if (inputBlock != 0 && (isMouseInput(event->type()) || isKeyInput(event->type())))
        return holdBack(watched, event->type());
    if (mouseMoveBlock != 0 && event->type() == QEvent::MouseMove)
        return true;
    return QObject::eventFilter(watched, event);
}

void guiBlockingEvent::setWaiter(std::atomic<int>* done, pevent* waiter)
{
    m_done = done;
    m_waiter = waiter;
}

void guiBlockingEvent::Finished()
{
    pevent* waiter = m_waiter; // the poster may return, and its frame be gone, as soon as the flag is set
    if (m_done)
        m_done->store(1, std::memory_order_release);
    if (waiter)
        pevent_set(waiter);
    else
        guiCallback_postNullEvent();
}
