// runtime/guithread.h: the GUI thread. It owns the QApplication and runs its event loop; every other thread sends it
// events (runtime/guievents.h) and, for the blocking ones, waits until they are handled.
#pragma once

#include "foundation/vela-threadrole.h"
#include "runtime/guiefilter.h"
#include "runtime/guievents.h"

#include <pthread.h>

class QApplication;

/// Made and destroyed by the component on the script thread. No Qt object exists before it: Qt takes the first thread
/// that uses it for its main thread, and that must be the GUI thread.
class guiThread
{
public:
    /// Starts the GUI thread and waits until its application object exists, or can not be made (isRunning). From now on
    /// the new thread plays the GUI role and the calling thread, `scriptThread`, the script role.
    explicit guiThread(pthread_t scriptThread);
    /// Ends the event loop and waits until the GUI thread has destroyed its application object and ended. Both roles
    /// are free afterwards.
    ~guiThread();
    guiThread(guiThread const&) = delete;
    guiThread& operator=(guiThread const&) = delete;

    /// False when the toolkit did not start. The object may then only be left alone: its thread stays where it is, and
    /// there can be no other in this process.
    bool isRunning() const { return m_f.isRunning; }

    pthread_t id() const { return m_f.guiThreadId; }
    pthread_t idScript() const { return m_f.scriptThreadId; }
    QApplication* getApp() const { return m_f.app; }
    bool isGuiThread() const;
    bool isScriptThread() const;

    /// Blocking calls: each is handled on the GUI thread and returns the handler's result, 0 when the node is gone. Any
    /// thread that does not hold the component lock; on the GUI thread they run directly, on the script thread the
    /// host's message pump runs meanwhile.
    int callPageOpen(guiHtmlBase* root, int modal);
    void callPageClose(guiHtmlBase* root);
    int callLoadFile(guiHtml* node, sstring const& path);
    int callLoadBackground(guiHtml* node, sstring const& path);
    int callSetText(guiHtml* node, sstring const& text);
    int callSetCaption(guiHtml* node, sstring const& text);
    int callUpdateLayout(guiHtml* node, int apply);
    void callRepaint(guiHtml* node);
    void callCarryForm(guiHtmlBase* root, guiFormCarry carry);
    void callFunction(ScriptMethod method, LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                      ScriptArgs& args, ScriptValue& result);

    /// Posts that return at once. Any thread. The node may be gone when the event arrives.
    void postTrigger(guiHtml* node);
    void postClose(guiHtmlBase* root);
    /// Deletes a page that was released (guiHtmlBase::release), once nothing calls script for it. Any thread.
    void postRelease(guiHtmlBase* root);
    /// Repaints a node soon. While one such request is on its way, further ones join it: one pass serves all.
    void postUpdate(guiHtml* node);
    /// Hands `event` over to Qt, which owns it from now on.
    void postEvent(guiEvent* event);
    /// Makes a waiting pumpOnce(), or else the next one, return.
    void postNullEvent();

    /// Handles Qt events once, waiting for one when there is none.
    void pumpOnce() TARN_ON(velaGuiRole);

    /// User input is dropped between disable() and enable(), mouse moves between disableMM() and enableMM(). Calls
    /// nest. Any thread.
    void disable();
    void enable();
    bool isInputBlocked() const;
    void disableMM();
    void enableMM();
    /// Ends all of these at once.
    void forceEnable();

    /// Handles an event of the component; reports any other with a log line. Always true.
    bool event(QEvent* event) TARN_ON(velaGuiRole);
    /// Posts `event` and waits until it has been handled. On the GUI thread it is handled directly, and the caller
    /// still owns it.
    void sendEvent(guiBlockingEvent* event);

private:
    struct fields
    {
        pthread_t guiThreadId;
        pthread_t scriptThreadId;
        pevent* started;        // owned
        pevent* finished;       // owned
        bool isRunning;         // written before `started` is set
        QApplication* app;      // owned by the GUI thread
        QObject* nullReceiver;  // takes the events that only end a pumpOnce(); owned by the GUI thread
        guiEventFilter* filter; // owned by the GUI thread
        QObject* receiver; // passes the events that are posted to this object on to event(); owned by the GUI thread
    };

    static intptr_t threadMain(intptr_t self);
    void run();
    void startApplication() TARN_ON(velaGuiRole);
    void endApplication() TARN_ON(velaGuiRole);
    void dispatch(QEvent& event) TARN_ON(velaGuiRole);
    void dispatchSafely(QEvent& event) TARN_ON(velaGuiRole);
    void waitOnScriptThread(std::atomic<int>& done) TARN_ON(velaScriptRole);
    template <class Event, class... Arguments>
    void send(Arguments&&... arguments);
    template <class Event, class... Arguments>
    int sendForResult(Arguments&&... arguments);

    fields m_f;
};
