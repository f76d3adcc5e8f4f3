// runtime/guithread.cpp: how the GUI thread starts and ends, what each event does there, and how posters wait for it.
#include "runtime/guithread.h"

#include "controls/guiowntexts.h"
#include "controls/guipageaccess.h"
#include "controls/guiwidget.h"
#include "foundation/threading.h"
#include "foundation/vela-error.h"
#include "foundation/vela-poison.h"
#include "foundation/vela-qt.h"
#include "runtime/gui.h"
#include "runtime/guiapplication.h"
#include "runtime/guicallback.h"
#include "runtime/guicloserequest.h"
#include "runtime/guielements.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guitoolkitmessages.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <cassert>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

namespace {

/// The repaint requests. One repaint event for the whole component is on its way at a time; the nodes that ask
/// meanwhile wait for it here.
class updateRequests
{
public:
    /// True when no event is on its way: the caller posts one.
    bool add(guiHtml* node)
    {
        assert(node);
        std::lock_guard<std::mutex> guard(m_lock);
        if (m_isPending)
            m_others.insert(node);
        return !std::exchange(m_isPending, true);
    }

    /// The nodes that asked since the event was posted; further requests take a new event.
    std::set<guiHtml*> take()
    {
        std::lock_guard<std::mutex> guard(m_lock);
        assert(m_isPending || m_others.empty());
        m_isPending = false;
        return std::exchange(m_others, {});
    }

private:
    std::mutex m_lock;
    bool m_isPending = false;    // guarded by m_lock
    std::set<guiHtml*> m_others; // guarded by m_lock; not owned, may be gone
};

updateRequests theUpdates;

/// Receives events for the guiThread object, which can not be a QObject itself: it is constructed on the script thread,
/// before Qt may be used.
class guiThreadReceiver : public QObject
{
public:
    explicit guiThreadReceiver(guiThread& thread) : m_thread(thread) {}

    bool event(QEvent* event) override
    {
        assertOnGuiThread();
        return event->type() >= QEvent::User ? m_thread.event(event) : QObject::event(event);
    }

private:
    guiThread& m_thread;
};

/// Qt counts the references to its record of a thread that it has not started itself, and when the process ends it
/// gives back one more than it took: the record would be freed while objects of its plugins still refer to it. An
/// object of this thread that is never deleted holds the reference that is missing then.
void keepThreadRecord()
{
    static auto& kept = *new std::vector<QObject*>; // one for each GUI thread that the process has had
    kept.push_back(new QObject);
}

template <class Node>
bool isRegistered(Node* node)
{
    return node && pGUI && pGUI->contains(node);
}

// ---- What each event does, for a node that still lives ----

/// While it lives, a page is being opened. What is done for that runs script, which may close the window before it is
/// there.
class pageOpening
{
public:
    explicit pageOpening(guiHtmlBase& root) : m_root(&root), m_outer(std::exchange(s_innermost, this)) {}
    ~pageOpening() { s_innermost = m_outer; }
    pageOpening(pageOpening const&) = delete;
    pageOpening& operator=(pageOpening const&) = delete;

    bool isClosed() const { return m_isClosed; }
    static void noteClose(guiHtmlBase const* root)
    {
        for (pageOpening* each = s_innermost; each; each = each->m_outer)
            if (each->m_root == root)
                each->m_isClosed = true;
    }

private:
    static inline pageOpening* s_innermost = nullptr; // GUI thread

    guiHtmlBase const* m_root; // only compared
    pageOpening* m_outer;
    bool m_isClosed = false;
};

/// Opening a window that is open already asks for it to be seen: in front of the others, and not as an icon.
void bringToFront(QWidget* widget) TARN_ON(velaGuiRole)
{
    widget->setWindowState(widget->windowState() & ~Qt::WindowMinimized);
    widget->raise();
    widget->activateWindow();
}

void handle(guiEventPageOpen& event) TARN_ON(velaGuiRole)
{
    guiHtmlBase& root = *event.node;
    guiWidget const* before = root.getWidget();
    bool const wasShown = before && before->isVisible();
    *event.result = 1;
    pageOpening const opening(root);
    if (!guiElements_prepare(root) || opening.isClosed())
        return;
    guiWidget* widget = root.createWidget(event.value);
    widget->setWindowTitle(sstoq(root.getTitle()));
    pGUI->setCurrentWindow(widget); // a window manager may activate it late, or never
    if (!guiElements_draw(root))
        return;
    widget->show();
    if (wasShown)
        bringToFront(widget);
}

void close(guiHtmlBase* root) TARN_ON(velaGuiRole)
{
    pageOpening::noteClose(root);
    root->destroyWidget();
}

void handle(guiEventPageClose& event) TARN_ON(velaGuiRole) { close(event.node); }
void handle(guiEventClose& event) TARN_ON(velaGuiRole) { close(event.node); }
void handle(guiEventRelease& event) TARN_ON(velaGuiRole) { guiHtmlBase::release(event.node); }

void handle(guiEventTrigger& event) TARN_ON(velaGuiRole)
{
    guiInputScope const scope(event.input);
    event.node->triggerNow();
}

void handle(guiEventSetCaption& event) TARN_ON(velaGuiRole) { event.node->setCaption(event.text); }
void handle(guiEventUpdateLayout& event) TARN_ON(velaGuiRole) { event.node->updateLayout(event.value); }

void handle(guiEventLoadFile& event) TARN_ON(velaGuiRole) { *event.result = event.node->loadFile(event.text); }

void handle(guiEventLoadBackground& event) TARN_ON(velaGuiRole)
{
    *event.result = event.node->loadBackground(event.text);
}

void handle(guiEventSetText& event) TARN_ON(velaGuiRole) { *event.result = event.node->setText(event.text, sstring()); }

void handle(guiEventRepaint& event) TARN_ON(velaGuiRole)
{
    event.node->update();
    if (QWidget* widget = event.node->getTopLevelWidget())
        widget->repaint();
}

void handle(guiEventCarryForm& event) TARN_ON(velaGuiRole)
{
    guiInputScope const nothing(std::nullopt); // what the new values make the controls do is not the user's doing
    guiFormValues& values = event.node->formValues();
    if (event.carry == guiFormCarry::kToScript)
        return values.beginCall();
    if (event.carry == guiFormCarry::kPromised)
        values.beginPromise();
    values.endCall();
}

// ---- Handlers by the number of their event ----

template <class Event>
Event& as(QEvent& event)
{
    assert(dynamic_cast<Event*>(&event)); // the number of an event says its class
    return static_cast<Event&>(event);
}

template <class Event>
void handleForNode(QEvent& event) TARN_ON(velaGuiRole)
{
    if (auto& own = as<Event>(event); isRegistered(own.node))
        handle(own);
}

void runWork(QEvent& event) { as<guiEventWork>(event).work(); }

void shutDown(QEvent&) { QApplication::exit(0); }

void callFunctionOf(QEvent& event)
{
    auto& own = as<guiEventFunction>(event);
    own.method(own.manager, own.data, own.self, own.args, own.result);
}

/// The repaint event of one node has come. The others that asked meanwhile get no pass of their own: their places only
/// join what this one damages.
void serveUpdates(QEvent& event) TARN_ON(velaGuiRole)
{
    if (guiHtml* first = as<guiEventUpdate>(event).node; isRegistered(first))
        first->update();
    for (guiHtml* node : theUpdates.take())
        if (isRegistered(node))
            node->guiHtml::update();
}

struct eventHandler
{
    int id;
    void (*handle)(QEvent& event);
};

constexpr eventHandler kHandlers[] = {
    {guiEventIdShutdown, shutDown},
    {guiEventIdPageOpen, handleForNode<guiEventPageOpen>},
    {guiEventIdPageClose, handleForNode<guiEventPageClose>},
    {guiEventIdLoadFile, handleForNode<guiEventLoadFile>},
    {guiEventIdLoadBackground, handleForNode<guiEventLoadBackground>},
    {guiEventIdSetText, handleForNode<guiEventSetText>},
    {guiEventIdSetCaption, handleForNode<guiEventSetCaption>},
    {guiEventIdUpdateLayout, handleForNode<guiEventUpdateLayout>},
    {guiEventIdRepaint, handleForNode<guiEventRepaint>},
    {guiEventIdFunction, callFunctionOf},
    {guiEventIdTrigger, handleForNode<guiEventTrigger>},
    {guiEventIdClose, handleForNode<guiEventClose>},
    {guiEventIdUpdate, serveUpdates},
    {guiEventIdRelease, handleForNode<guiEventRelease>},
    {guiEventIdCarryForm, handleForNode<guiEventCarryForm>},
    {guiEventIdWork, runWork},
};

} // namespace

guiThread::guiThread(pthread_t scriptThread) : m_f{}
{
    m_f.started = pevent_create();
    m_f.finished = pevent_create();
    assert(pthread_equal(scriptThread, pthread_self()));
    m_f.scriptThreadId = scriptThread;
    velaScriptRole.claim();
    pthread_create_managed(&guiThread::threadMain, reinterpret_cast<intptr_t>(this));
    pevent_wait(m_f.started);
}

guiThread::~guiThread()
{
    assertOnScriptThread();
    postEvent(new guiEventShutdown);
    pevent_wait(m_f.finished);
    pthread_join(m_f.guiThreadId, nullptr); // until then the thread still uses the event
    theUpdates.take();                      // an event that was still on its way is lost
    pevent_destroy(m_f.started);
    pevent_destroy(m_f.finished);
    velaPoison(&m_f, sizeof m_f);
    velaScriptRole.release();
}

intptr_t guiThread::threadMain(intptr_t self)
{
    reinterpret_cast<guiThread*>(self)->run();
    return 0;
}

void guiThread::run()
{
    m_f.guiThreadId = pthread_self();
    velaGuiRole.claim();
    keepThreadRecord();
    startApplication();
    m_f.isRunning = true;
    pevent_set(m_f.started);
    QApplication::exec();
    endApplication();
    velaGuiRole.release();
    pevent_set(m_f.finished);
}

void guiThread::startApplication()
{
    m_f.nullReceiver = new QObject;
    m_f.filter = new guiEventFilter;
    m_f.receiver = new guiThreadReceiver(*this);

    static char name[] = "app";
    static char* arguments[] = {name, nullptr};
    static int argumentCount = 1; // QApplication keeps references to both
    guiToolkitMessages_start([this] { pevent_set(m_f.started); });
    m_f.app = new guiApplication(argumentCount, arguments);
    guiStartLanguages(*m_f.app);
    guiOfferPageAccess();
    guiToolkitMessages_started([] { return pGUI && pGUI->getPlatform()->displayLost(); });
    guiCloseRequest_watch(*m_f.app); // its filter comes behind the next one, which takes what was posted
    m_f.app->installEventFilter(m_f.filter);
    QGuiApplication::setQuitOnLastWindowClosed(false); // the thread outlives its windows
}

void guiThread::endApplication()
{
    assert(m_f.filter->mouseMoveBlock == 0); // no event is being handled any more
    delete std::exchange(m_f.receiver, nullptr);
    delete std::exchange(m_f.filter, nullptr);
    delete std::exchange(m_f.app, nullptr);
    guiToolkitMessages_end();
    delete std::exchange(m_f.nullReceiver, nullptr);
}

bool guiThread::isGuiThread() const { return pthread_equal(pthread_self(), m_f.guiThreadId) != 0; }
bool guiThread::isScriptThread() const { return pthread_equal(pthread_self(), m_f.scriptThreadId) != 0; }

void guiThread::postEvent(guiEvent* event) { guiThreadPost::post(m_f.receiver, event); }
void guiThread::postNullEvent() { guiThreadPost::post(m_f.nullReceiver, new QEvent(QEvent::None)); }

void guiThread::pumpOnce()
{
    assertOnGuiThread();
    assert(m_f.app);
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void guiThread::disable() { m_f.filter->activate(); }
void guiThread::enable() { m_f.filter->deactivate(); }
bool guiThread::isInputBlocked() const { return m_f.filter->inputBlock != 0; }
void guiThread::disableMM() { m_f.filter->activateMM(); }
void guiThread::enableMM() { m_f.filter->deactivateMM(); }
void guiThread::forceEnable() { m_f.filter->forceDeactivate(); }

bool guiThread::event(QEvent* event)
{
    assertOnGuiThread();
    disableMM();
    dispatchSafely(*event);
    if (auto* own = dynamic_cast<guiEvent*>(event))
        own->Finished();
    enableMM();
    return true;
}

/// Stops every error that a page can provoke, so that the poster is told that its event is done in any case.
void guiThread::dispatchSafely(QEvent& event)
{
    try {
        dispatch(event);
    } catch (velaError const& error) {
        guiComponent::logError("guiThread::event() - error %d in event %d\n", error.getCode(),
                               static_cast<int>(event.type()));
    } catch (std::bad_alloc const&) {
        guiComponent::logError("guiThread::event() - out of memory in event %d\n", static_cast<int>(event.type()));
    }
}

void guiThread::dispatch(QEvent& event)
{
    for (eventHandler const& known : kHandlers)
        if (known.id == static_cast<int>(event.type()))
            return known.handle(event);
    guiComponent::logError("guiThread::event() - unexpected event received\n");
}

// ---- Waiting for an event ----

void guiBlockingEvent::setWaiter(std::atomic<int>* done, pevent* waiter)
{
    assert(!m_done && !m_waiter); // one event has one poster
    m_done = done;
    m_waiter = waiter;
}

void guiBlockingEvent::Finished()
{
    assert(!m_isFinished);
    m_isFinished = true;
    pevent* waiter = m_waiter; // the poster may return, and its frame be gone, as soon as the flag is set
    if (m_done)
        m_done->store(1, std::memory_order_release);
    if (waiter)
        pevent_set(waiter);
    else
        guiCallback_postNullEvent();
}

void guiThread::sendEvent(guiBlockingEvent* event)
{
    if (isGuiThread()) {
        assertOnGuiThread();
        this->event(event);
        return;
    }
    assert(!pGUI || !pGUI->holdsLock()); // the GUI thread may need it before it comes to the event
    std::atomic<int> done{0};
    if (isScriptThread()) {
        assertOnScriptThread();
        event->setWaiter(&done, nullptr);
        postEvent(event);
        waitOnScriptThread(done);
        return;
    }
    pevent* finished = pevent_create();
    event->setWaiter(&done, finished);
    postEvent(event);
    pevent_wait(finished);
    pevent_destroy(finished);
}

/// The GUI thread may call into script before it has handled the event, so the script thread runs script work while it
/// waits.
void guiThread::waitOnScriptThread(std::atomic<int>& done)
{
    constexpr unsigned kPollMs = 100;
    while (done.load(std::memory_order_acquire) == 0) {
        if (ScriptPump* pump = pGUI ? pGUI->getPump() : nullptr)
            pump->step();
        else
            millisleep(kPollMs);
    }
}

/// A posted event belongs to Qt; one that is handled directly belongs to the caller, so it lives on the stack.
template <class Event, class... Arguments>
void guiThread::send(Arguments&&... arguments)
{
    if (isGuiThread()) {
        Event direct(std::forward<Arguments>(arguments)...);
        sendEvent(&direct);
    } else {
        sendEvent(new Event(std::forward<Arguments>(arguments)...));
    }
}

template <class Event, class... Arguments>
int guiThread::sendForResult(Arguments&&... arguments)
{
    int result = 0;
    send<Event>(std::forward<Arguments>(arguments)..., &result);
    return result;
}

// ---- The calls and posts ----

int guiThread::callPageOpen(guiHtmlBase* root, int modal) { return sendForResult<guiEventPageOpen>(root, modal); }
void guiThread::callPageClose(guiHtmlBase* root) { send<guiEventPageClose>(root); }

int guiThread::callLoadFile(guiHtml* node, sstring const& path) { return sendForResult<guiEventLoadFile>(node, path); }

int guiThread::callLoadBackground(guiHtml* node, sstring const& path)
{
    return sendForResult<guiEventLoadBackground>(node, path);
}

int guiThread::callSetText(guiHtml* node, sstring const& text) { return sendForResult<guiEventSetText>(node, text); }

int guiThread::callSetCaption(guiHtml* node, sstring const& text)
{
    return sendForResult<guiEventSetCaption>(node, text);
}

int guiThread::callUpdateLayout(guiHtml* node, int apply) { return sendForResult<guiEventUpdateLayout>(node, apply); }

void guiThread::callRepaint(guiHtml* node) { send<guiEventRepaint>(node); }
void guiThread::callCarryForm(guiHtmlBase* root, guiFormCarry carry) { send<guiEventCarryForm>(root, carry); }

void guiThread::callFunction(ScriptMethod method, LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                             ScriptArgs& args, ScriptValue& result)
{
    assert(method);
    send<guiEventFunction>(method, manager, data, self, args, result);
}

void guiThread::postTrigger(guiHtml* node)
{
    std::optional<guiUserInput> input;
    if (isGuiThread()) {
        assertOnGuiThread();
        input = guiInputScope::current();
    }
    postEvent(new guiEventTrigger(node, std::move(input)));
}

void guiThread::postClose(guiHtmlBase* root) { postEvent(new guiEventClose(root)); }
void guiThread::postRelease(guiHtmlBase* root) { postEvent(new guiEventRelease(root)); }

void guiThread::postUpdate(guiHtml* node)
{
    if (theUpdates.add(node))
        postEvent(new guiEventUpdate(node));
}
