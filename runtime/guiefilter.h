// runtime/guiefilter.h: what travels to the GUI thread (the events 1000 to 1012, and two of our own), and the filter in
// front of the application that keeps user input back while script code runs.
#pragma once

#include "foundation/pmutex.h"
#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "script/hostinterface.h"

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWindow>
#include <atomic>

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
    // What nobody outside knows, far from the numbers above.
    guiEventIdRelease = 10001,
    guiEventIdCatchUp = 10002, // for the filter, not for the thread
    guiEventIdCarryForm = 10003,
};

/// Orders what a thread wrote before it posted something to the GUI thread before what the GUI thread reads when it
/// arrives. Qt's queue does so too, but neither a reader nor a race detector can tell that from our code.
class guiThreadPost
{
public:
    /// Hands `event` over to Qt, for a `receiver` of the GUI thread. What another thread posts goes this way: a functor
    /// given to QMetaObject::invokeMethod() would be written behind our back. Any thread.
    static void post(QObject* receiver, QEvent* event);
    /// When an event arrives, before it is looked at. GUI thread.
    static void take() { static_cast<void>(s_posts.load(std::memory_order_acquire)); }

private:
    static inline std::atomic<unsigned> s_posts{0};
};

/// Swallows user input while its counters say so. The counters change on any thread; the filter itself runs on the GUI
/// thread.
class guiEventFilter : public QObject
{
    Q_OBJECT

public:
    /// Blocks all key and mouse input until the matching deactivate(). Calls nest; a surplus deactivate() does nothing.
    /// If the pointer has moved meanwhile, the window under it hears of its last place afterwards.
    void activate();
    void deactivate();
    /// The same for mouse moves only.
    void activateMM();
    void deactivateMM();
    /// Lets everything through at once, whatever the counters said.
    void forceDeactivate();

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::atomic<unsigned> inputBlock{0};     ///< calls of activate() that are not taken back yet
    std::atomic<unsigned> mouseMoveBlock{0}; ///< the same of activateMM()

private:
    bool holdBack(QObject* watched, QEvent::Type type) TARN_ON(velaGuiRole);
    void catchUpLater();
    void catchUp() TARN_ON(velaGuiRole);

    std::atomic<bool> m_missedMove{false};
    QPointer<QWindow> m_pointerWindow TARN_GUARDED_BY(velaGuiRole); // where the missed move went
};

/// An event for the GUI thread. Allocated by whoever posts it, deleted by Qt after its dispatch.
class guiEvent : public QEvent
{
public:
    explicit guiEvent(guiEventID id) : QEvent(static_cast<QEvent::Type>(id)) {}
    /// Called on the GUI thread when the event has been handled.
    virtual void Finished() {}
};

/// An event whose poster waits. The poster's flag and result live in its stack frame: nothing is read from the event
/// later.
class guiBlockingEvent : public guiEvent
{
public:
    using guiEvent::guiEvent;
    /// `done` (may be null) is set to 1 at the end; then `waiter` (may be null) is signalled. Neither is owned.
    void setWaiter(std::atomic<int>* done, pevent* waiter);
    void Finished() override;

private:
    std::atomic<int>* m_done = nullptr;
    pevent* m_waiter = nullptr;
};

/// A plain event about one node; the node may be gone when it arrives.
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
    Node* node; // not owned
};

/// A blocking event about one node with an integer argument and a result.
template <int id, class Node>
struct guiIntEvent : guiBlockingEvent
{
    guiIntEvent(Node* n, int v, int* r) : guiBlockingEvent(static_cast<guiEventID>(id)), node(n), value(v), result(r) {}
    Node* node; // not owned
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
    guiHtml* node; // not owned
    sstring text;
    int* result; // the poster's
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
using guiEventTrigger = guiNodeEvent<guiEventIdTrigger, guiHtml>;
using guiEventClose = guiNodeEvent<guiEventIdClose, guiHtmlBase>;
using guiEventUpdate = guiNodeEvent<guiEventIdUpdate, guiHtml>;
using guiEventRelease = guiNodeEvent<guiEventIdRelease, guiHtmlBase>;

/// Which way the values of a form travel around a call of a handler.
enum class guiFormCarry
{
    ToScript,  ///< before the call
    ToControls ///< after it
};

/// Carries the values of a page's controls to script, or what script changed back: they are where their widgets live.
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
