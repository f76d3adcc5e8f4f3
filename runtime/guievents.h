// runtime/guievents.h: what travels to the GUI thread: the events 1000 to 1012, and four of our own.
#pragma once

#include "foundation/pmutex.h"
#include "foundation/vela-string.h"
#include "page/guiuserevent.h"
#include "script/hostinterface.h"

#include <QCoreApplication>
#include <QEvent>
#include <atomic>
#include <cassert>
#include <functional>
#include <optional>
#include <utility>

class guiHtml;
class guiHtmlBase;

/// Numbers of the component's own events. QEvent::User is 1000.
enum guiEventID : int
{
    guiEventIdShutdown = 1000,
    guiEventIdPageOpen = 1001,
    guiEventIdPageClose = 1002,
    guiEventIdLoadFile = 1003,
    guiEventIdLoadBackground = 1004,
    guiEventIdSetText = 1005,
    guiEventIdSetCaption = 1006,
    guiEventIdUpdateLayout = 1007,
    guiEventIdRepaint = 1008,
    guiEventIdFunction = 1009,
    guiEventIdTrigger = 1010,
    guiEventIdClose = 1011,
    guiEventIdUpdate = 1012,
    // For internal use only, far from the numbers above.
    guiEventIdRelease = 10001,
    guiEventIdCatchUp = 10002, // for the filter, not for the thread
    guiEventIdCarryForm = 10003,
    guiEventIdWork = 10004,
};

/// Orders what a thread wrote before it posted an event ahead of what the GUI thread reads when the event arrives. Qt's
/// queue gives the same order, but neither a reader nor a race detector can tell that from our code.
class guiThreadPost
{
public:
    /// Posts `event` to a `receiver` of the GUI thread. Other threads post only this way: QMetaObject::invokeMethod()
    /// would write the functor inside Qt, where this order does not cover it. Any thread.
    static void post(QObject* receiver, QEvent* event)
    {
        assert(receiver);
        assert(event);
        s_posts.fetch_add(1, std::memory_order_release);
        QCoreApplication::postEvent(receiver, event);
    }
    /// When an event arrives, before it is looked at. GUI thread.
    static void take() { static_cast<void>(s_posts.load(std::memory_order_acquire)); }

private:
    static inline std::atomic<unsigned> s_posts{0};
};

/// An event for the GUI thread. Allocated by its poster, deleted by Qt after its dispatch.
class guiEvent : public QEvent
{
public:
    explicit guiEvent(guiEventID id) : QEvent(static_cast<QEvent::Type>(id)) {}
    /// Called on the GUI thread when the event has been handled.
    virtual void Finished() {}
};

/// An event whose poster waits. The poster's flag and result live in the poster's stack frame, so nothing is read from
/// the event after it has finished.
class guiBlockingEvent : public guiEvent
{
public:
    using guiEvent::guiEvent;
    /// `done` (may be null) is set to 1 at the end; then `waiter` is signalled, or without one whoever pumps is woken.
    /// Neither is owned. Before the event is posted.
    void setWaiter(std::atomic<int>* done, pevent* waiter);
    void Finished() override;

private:
    std::atomic<int>* m_done = nullptr;
    pevent* m_waiter = nullptr;
    bool m_isFinished = false;
};

/// A plain event about one node, which may be gone when the event arrives.
template <int id, class Node>
struct guiNodeEvent : guiEvent
{
    explicit guiNodeEvent(Node* n) : guiEvent(static_cast<guiEventID>(id)), node(n) {}
    Node* node; // not owned, checked against the registry
};

/// A blocking event about one node, without a result.
template <int id, class Node>
struct guiBlockingNodeEvent : guiBlockingEvent
{
    explicit guiBlockingNodeEvent(Node* n) : guiBlockingEvent(static_cast<guiEventID>(id)), node(n) {}
    Node* node; // not owned, checked against the registry
};

/// A blocking event about one node with an integer argument and a result.
template <int id, class Node>
struct guiIntEvent : guiBlockingEvent
{
    guiIntEvent(Node* n, int v, int* r) : guiBlockingEvent(static_cast<guiEventID>(id)), node(n), value(v), result(r) {}
    Node* node; // not owned, checked against the registry
    int value;
    int* result; // the poster's
};

/// A blocking event about one node with a text argument and a result.
template <int id>
struct guiTextEvent : guiBlockingEvent
{
    guiTextEvent(guiHtml* n, sstring const& content, int* r)
        : guiBlockingEvent(static_cast<guiEventID>(id)), node(n), text(content), result(r)
    {}
    guiHtml* node; // not owned, checked against the registry
    sstring text;
    int* result; // the poster's
};

/// Work for the GUI thread; dropped unrun when that thread ends before.
struct guiEventWork : guiEvent
{
    explicit guiEventWork(std::function<void()> w) : guiEvent(guiEventIdWork), work(std::move(w)) {}
    std::function<void()> work;
};

struct guiEventShutdown : guiEvent
{
    guiEventShutdown() : guiEvent(guiEventIdShutdown) {}
};

using guiEventPageOpen = guiIntEvent<guiEventIdPageOpen, guiHtmlBase>;
using guiEventPageClose = guiBlockingNodeEvent<guiEventIdPageClose, guiHtmlBase>;
using guiEventLoadFile = guiTextEvent<guiEventIdLoadFile>;
using guiEventLoadBackground = guiTextEvent<guiEventIdLoadBackground>;
using guiEventSetText = guiTextEvent<guiEventIdSetText>;
using guiEventSetCaption = guiTextEvent<guiEventIdSetCaption>;
using guiEventUpdateLayout = guiIntEvent<guiEventIdUpdateLayout, guiHtml>;
using guiEventRepaint = guiBlockingNodeEvent<guiEventIdRepaint, guiHtml>;
using guiEventClose = guiNodeEvent<guiEventIdClose, guiHtmlBase>;
using guiEventUpdate = guiNodeEvent<guiEventIdUpdate, guiHtml>;
using guiEventRelease = guiNodeEvent<guiEventIdRelease, guiHtmlBase>;

/// Triggers a control, later than the key that asks for it.
struct guiEventTrigger : guiNodeEvent<guiEventIdTrigger, guiHtml>
{
    guiEventTrigger(guiHtml* n, std::optional<guiUserInput> i) : guiNodeEvent(n), input(std::move(i)) {}
    std::optional<guiUserInput> input; ///< that key, if it is the user who asks
};

/// Which way the values of a form travel around a call of a handler.
enum class guiFormCarry
{
    kToScript,   ///< before the call
    kToControls, ///< after it
    kPromised    ///< after it, when it has left a promise
};

/// Carries the values of a page's controls to script, or script's changes back. An event, because the widgets that hold
/// the values belong to the GUI thread.
struct guiEventCarryForm : guiBlockingNodeEvent<guiEventIdCarryForm, guiHtmlBase>
{
    guiEventCarryForm(guiHtmlBase* root, guiFormCarry way) : guiBlockingNodeEvent(root), carry(way) {}
    guiFormCarry carry;
};

/// Runs a ScriptMethod on the GUI thread with the arguments that script gave.
struct guiEventFunction : guiBlockingEvent
{
    guiEventFunction(ScriptMethod m, LibManager& l, ScriptPrivate* d, ScriptObject* s, ScriptArgs& a, ScriptValue& r)
        : guiBlockingEvent(guiEventIdFunction), method(m), manager(l), data(d), self(s), args(a), result(r)
    {}
    ScriptMethod method;
    LibManager& manager;
    ScriptPrivate* data;
    ScriptObject* self;
    ScriptArgs& args;
    ScriptValue& result;
};
