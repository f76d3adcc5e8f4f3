// runtime/guithread.cpp: starting and ending the GUI thread, and getting work and waiting across the thread boundary.
#include "runtime/guithread.h"

#include "foundation/threading.h"
#include "foundation/vela-error.h"
#include "foundation/vela-poison.h"
#include "foundation/vela-qt.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"

#include "controls/guiwidget.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <set>
#include <utility>

namespace {

/// One repaint event for the whole component may be on its way at a time; the nodes that ask meanwhile get none.
class updateRequests
{
public:
    /// True when there is no event on its way: the caller posts one.
    bool add(guiHtml* node)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        if (m_isPending)
            m_others.insert(node);
        return !std::exchange(m_isPending, true);
    }

    /// The nodes that asked since the event was posted; further requests take a new event.
    std::set<guiHtml*> take()
    {
        std::lock_guard<std::mutex> guard(m_lock);
        m_isPending = false;
        return std::exchange(m_others, {});
    }

private:
    std::mutex m_lock;
    bool m_isPending = false;    // guarded by m_lock
    std::set<guiHtml*> m_others; // guarded by m_lock; not owned, may be gone
};

updateRequests theUpdates;

/// Stands in the GUI thread's event queue for the guiThread object, which can not be a QObject itself: it is
/// constructed on the script thread before Qt may be touched.
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

/// While the application object is made: drops Qt's warning that this is not the main() thread, and turns "no display",
/// which would abort the process, into one line and an exit code.
void startMessageHandler(QtMsgType type, QMessageLogContext const&, QString const& message)
{
    if (message.contains(QLatin1String("was not created in the main() thread")) ||
        message.contains(QLatin1String("XDG_RUNTIME_DIR")))
        return;
    if (type != QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(message));
        return;
    }
    std::fprintf(stderr, "guiThread::run() - can not open the display \"%s\": no window can be shown\n",
                 qgetenv("DISPLAY").constData());
    std::fflush(stderr);
    std::_Exit(1);
}

template <class Node>
bool isRegistered(Node* node)
{
    return node && pGUI && pGUI->contains(node);
}

int openPage(guiHtmlBase& root, int modal) TARN_ON(velaGuiRole)
{
    guiWidget* widget = root.createWidget(modal);
    widget->setWindowTitle(sstoq(root.getTitle()));
    pGUI->setCurrentWindow(widget); // a window manager may activate it late, or never
    widget->show();
    return 1;
}

/// The repaint event of `first` has come. The others that asked for one get no pass of their own: their places only
/// join what this one damages.
void serveUpdates(guiHtml* first) TARN_ON(velaGuiRole)
{
    if (isRegistered(first))
        first->update();
    for (guiHtml* node : theUpdates.take())
        if (isRegistered(node))
            node->guiHtml::update();
}

void carryForm(guiHtmlBase& root, guiFormCarry carry) TARN_ON(velaGuiRole)
{
    if (carry == guiFormCarry::ToScript)
        root.formValues().beginCall();
    else
        root.formValues().endCall();
}

void repaint(guiHtml& node) TARN_ON(velaGuiRole)
{
    node.update();
    if (QWidget* widget = node.getTopLevelWidget())
        widget->repaint();
}

} // namespace

guiThread::guiThread(pthread_t scriptThread) : m_f{}
{
    m_f.started = pevent_create();
    m_f.finished = pevent_create();
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
    pthread_join(m_f.guiThreadId, nullptr); // nobody else does; until then it keeps its stack, and uses the event
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
    m_f.nullReceiver = new QObject;
    m_f.filter = new guiEventFilter;
    m_f.receiver = new guiThreadReceiver(*this);

    static char name[] = "app";
    static char* arguments[] = {name, nullptr};
    static int argumentCount = 1; // QApplication keeps references to both
    QtMessageHandler previous = qInstallMessageHandler(startMessageHandler);
    m_f.app = new QApplication(argumentCount, arguments);
    qInstallMessageHandler(previous);
    m_f.app->installEventFilter(m_f.filter);
    QGuiApplication::setQuitOnLastWindowClosed(false); // the thread outlives its windows

    pevent_set(m_f.started);
    QApplication::exec();

    delete std::exchange(m_f.receiver, nullptr);
    delete std::exchange(m_f.filter, nullptr);
    delete std::exchange(m_f.app, nullptr);
    delete std::exchange(m_f.nullReceiver, nullptr);
    velaGuiRole.release();
    pevent_set(m_f.finished);
}

bool guiThread::isGuiThread() const { return pthread_equal(pthread_self(), m_f.guiThreadId) != 0; }
bool guiThread::isScriptThread() const { return pthread_equal(pthread_self(), m_f.scriptThreadId) != 0; }

void guiThread::postEvent(guiEvent* event) { guiThreadPost::post(m_f.receiver, event); }

void guiThread::postNullEvent() { guiThreadPost::post(m_f.nullReceiver, new QEvent(QEvent::None)); }

void guiThread::pumpOnce()
{
    assertOnGuiThread();
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void guiThread::disable() { m_f.filter->activate(); }
void guiThread::enable() { m_f.filter->deactivate(); }
void guiThread::disableMM() { m_f.filter->activateMM(); }
void guiThread::enableMM() { m_f.filter->deactivateMM(); }
void guiThread::forceEnable() { m_f.filter->forceDeactivate(); }

bool guiThread::event(QEvent* event)
{
    assertOnGuiThread(); // what the compiler takes for granted
    disableMM();
    dispatchSafely(event);
    if (auto* own = dynamic_cast<guiEvent*>(event))
        own->Finished();
    enableMM();
    return true;
}

/// What a page can provoke ends here at the latest: the poster is told that its event is done whatever happened to it.
void guiThread::dispatchSafely(QEvent* event)
{
    try {
        dispatch(event);
    } catch (velaError const& error) {
        guiComponent::logError("guiThread::event() - error %d in event %d\n", error.getCode(),
                               static_cast<int>(event->type()));
    } catch (std::bad_alloc const&) {
        guiComponent::logError("guiThread::event() - out of memory in event %d\n", static_cast<int>(event->type()));
    }
}

void guiThread::dispatch(QEvent* event)
{
    switch (static_cast<int>(event->type())) {
    case guiEventIdShutdown:
        QApplication::exit(0);
        break;
    case guiEventIdPageOpen:
        if (auto* e = static_cast<guiEventPageOpen*>(event); isRegistered(e->node))
            *e->result = openPage(*e->node, e->value);
        break;
    case guiEventIdPageClose:
        if (auto* e = static_cast<guiEventPageClose*>(event); isRegistered(e->node))
            e->node->destroyWidget();
        break;
    case guiEventIdLoadFile:
        if (auto* e = static_cast<guiEventLoadFile*>(event); isRegistered(e->node))
            *e->result = e->node->loadFile(e->text);
        break;
    case guiEventIdLoadBackground:
        if (auto* e = static_cast<guiEventLoadBackground*>(event); isRegistered(e->node))
            *e->result = e->node->loadBackground(e->text);
        break;
    case guiEventIdSetText:
        if (auto* e = static_cast<guiEventSetText*>(event); isRegistered(e->node))
            *e->result = e->node->setText(e->text, sstring());
        break;
    case guiEventIdSetCaption:
        if (auto* e = static_cast<guiEventSetCaption*>(event); isRegistered(e->node))
            e->node->setCaption(e->text);
        break;
    case guiEventIdUpdateLayout:
        if (auto* e = static_cast<guiEventUpdateLayout*>(event); isRegistered(e->node))
            e->node->updateLayout(e->value);
        break;
    case guiEventIdRepaint:
        if (auto* e = static_cast<guiEventRepaint*>(event); isRegistered(e->node))
            repaint(*e->node);
        break;
    case guiEventIdFunction: {
        auto* e = static_cast<guiEventFunction*>(event);
        e->method(e->manager, e->data, e->self, e->args, e->result);
        break;
    }
    case guiEventIdTrigger:
        if (auto* e = static_cast<guiEventTrigger*>(event); isRegistered(e->node))
            e->node->triggerNow();
        break;
    case guiEventIdClose:
        if (auto* e = static_cast<guiEventClose*>(event); isRegistered(e->node))
            e->node->destroyWidget();
        break;
    case guiEventIdRelease:
        if (auto* e = static_cast<guiEventRelease*>(event); isRegistered(e->node))
            guiHtmlBase::release(e->node);
        break;
    case guiEventIdCarryForm:
        if (auto* e = static_cast<guiEventCarryForm*>(event); isRegistered(e->node))
            carryForm(*e->node, e->carry);
        break;
    case guiEventIdUpdate:
        serveUpdates(static_cast<guiEventUpdate*>(event)->node);
        break;
    default:
        guiComponent::logError("guiThread::event() - unexpected event received\n");
        break;
    }
}

void guiThread::sendEvent(guiBlockingEvent* event)
{
    if (isGuiThread()) {
        assertOnGuiThread();
        this->event(event);
        return;
    }
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

/// A posted event belongs to Qt; one that is handled directly stays ours, so it lives on the stack.
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

int guiThread::callPageOpen(guiHtmlBase* root, int modal)
{
    int result = 0;
    send<guiEventPageOpen>(root, modal, &result);
    return result;
}

void guiThread::callPageClose(guiHtmlBase* root) { send<guiEventPageClose>(root); }

int guiThread::callLoadFile(guiHtml* node, sstring const& path)
{
    int result = 0;
    send<guiEventLoadFile>(node, path, &result);
    return result;
}

int guiThread::callLoadBackground(guiHtml* node, sstring const& path)
{
    int result = 0;
    send<guiEventLoadBackground>(node, path, &result);
    return result;
}

int guiThread::callSetText(guiHtml* node, sstring const& text)
{
    int result = 0;
    send<guiEventSetText>(node, text, &result);
    return result;
}

int guiThread::callSetCaption(guiHtml* node, sstring const& text)
{
    int result = 0;
    send<guiEventSetCaption>(node, text, &result);
    return result;
}

int guiThread::callUpdateLayout(guiHtml* node, int apply)
{
    int result = 0;
    send<guiEventUpdateLayout>(node, apply, &result);
    return result;
}

void guiThread::callRepaint(guiHtml* node) { send<guiEventRepaint>(node); }

void guiThread::callCarryForm(guiHtmlBase* root, guiFormCarry carry) { send<guiEventCarryForm>(root, carry); }

void guiThread::callFunction(ScriptMethod method, LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                             ScriptArgs& args, ScriptValue& result)
{
    send<guiEventFunction>(method, manager, data, self, args, result);
}

void guiThread::postTrigger(guiHtml* node) { postEvent(new guiEventTrigger(node)); }
void guiThread::postClose(guiHtmlBase* root) { postEvent(new guiEventClose(root)); }

void guiThread::postRelease(guiHtmlBase* root) { postEvent(new guiEventRelease(root)); }

void guiThread::postUpdate(guiHtml* node)
{
    if (theUpdates.add(node))
        postEvent(new guiEventUpdate(node));
}
