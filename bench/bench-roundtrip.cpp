// bench/bench-roundtrip.cpp: what it costs to cross between the script thread and the GUI thread and come back, beside
// two bare objects of the toolkit that post events to each other in the same process. Both threads share one core:
// there the time is that of the work and of two switches, and does not depend on how soon a sleeping core wakes up.
#include <pthread.h>
#include <sched.h>

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QObject>
#include <cstdlib>
#include <functional>

#include "alternating.h"
#include "host/native/nativehost.h"
#include "ratioline.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guithread.h"

namespace {

constexpr int tripsPerSample = 1000;
constexpr int rounds = 61;
constexpr double target = 1.0 / 3;

void pinTo(pthread_t thread, int core)
{
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(core, &set);
    if (pthread_setaffinity_np(thread, sizeof set, &set) != 0) {
        std::fprintf(stderr, "bench_roundtrip: can not keep a thread on core %d\n", core);
        std::exit(1);
    }
}

ScriptArgs& noArguments()
{
    static NativeArguments none;
    return none;
}

/// Runs a function on the GUI thread and waits for it, as every call of a window's method does.
void callOnGuiThread(ScriptMethod method, ScriptObject* self)
{
    NativeValue result;
    pGUI->getThread()->callFunction(method, pGUI->getManager(), nullptr, self, noArguments(), result);
}

/// How often each of our two functions was reached, on the thread where it belongs. Read after the measurement.
int reachedOnGuiThread = 0;
int reachedOnScriptThread = 0;

/// As good as nothing.
void arrive(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    reachedOnGuiThread += pGUI->getThread()->isGuiThread();
}

/// On the GUI thread: calls the handler `onPing` of an object once for each trip.
void callHandlers(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    for (int i = 0; i < tripsPerSample; ++i)
        guiCallback_CallEvent(nullptr, self, "onPing", self, &result);
}

/// What the two ends of the peer's line send to each other.
constexpr auto ball = QEvent::Type(QEvent::User + 500);
constexpr auto play = QEvent::Type(QEvent::User + 501); // asks the other end to play all trips
constexpr auto end = QEvent::Type(QEvent::User + 502);  // the answer, when it has

/// One end of the peer's line: an object that sends every ball back, or waits for each to come back.
class Peer : public QObject
{
public:
    Peer* other = nullptr; // not owned

    bool event(QEvent* event) override
    {
        switch (static_cast<int>(event->type())) {
        case ball:
            ++arrived;
            if (answers)
                send(ball);
            return true;
        case play:
            playTrips();
            send(end);
            return true;
        case end:
            ended = true;
            return true;
        default:
            return QObject::event(event);
        }
    }

    void playTrips()
    {
        answers = false;
        for (arrived = 0; arrived < tripsPerSample;) {
            int const before = arrived;
            send(ball);
            waitUntil([&] { return arrived > before; });
        }
        answers = true;
    }

    void letOtherPlay()
    {
        ended = false;
        send(play);
        waitUntil([this] { return ended; });
    }

private:
    void send(QEvent::Type type) { QCoreApplication::postEvent(other, new QEvent(type)); }

    template <class Condition>
    static void waitUntil(Condition condition)
    {
        QEventLoop loop;
        while (!condition())
            loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }

    int arrived = 0;
    bool answers = true;
    bool ended = false;
};

/// The two ends; the GUI thread's is made and destroyed there.
struct Line
{
    Peer script;
    Peer* gui = nullptr;
};

Line* line = nullptr;

void makeGuiEnd(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    line->gui = new Peer;
    line->gui->other = &line->script;
    line->script.other = line->gui;
}

void destroyGuiEnd(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&) { delete line->gui; }

void callFromScript()
{
    for (int i = 0; i < tripsPerSample; ++i)
        callOnGuiThread(arrive, nullptr);
}

/// Measures one pair; prints the time of one trip.
void compare(char const* name, std::function<void()> const& ours, std::function<void()> const& peer)
{
    Medians const medians = measureInTurns(
        rounds, [&] { return secondsOf(ours) / tripsPerSample; }, [&] { return secondsOf(peer) / tripsPerSample; });
    printRatio(name, medians.ours, medians.peer, target);
}

} // namespace

int main()
{
    NativeHost host;
    NativeWindow window = host.window(); // from now on there is an engine, and so a pump to wait in
    NativeObjectRef object = host.object();
    object->on("onPing", [](NativeObject&, NativeArguments const&) {
        reachedOnScriptThread += pGUI->getThread()->isScriptThread();
    });

    int const core = sched_getcpu();
    pinTo(pthread_self(), core);
    pinTo(pGUI->getThread()->id(), core);

    Line ends;
    line = &ends;
    callOnGuiThread(makeGuiEnd, nullptr);
    compare("script-calls-gui-thread", callFromScript, [] { line->script.playTrips(); });
    compare(
        "gui-thread-calls-handler", [&] { callOnGuiThread(callHandlers, object.get()); },
        [] { line->script.letOtherPlay(); });
    callOnGuiThread(destroyGuiEnd, nullptr);

    constexpr int expected = (rounds + 1) * tripsPerSample;
    if (reachedOnGuiThread == expected && reachedOnScriptThread == expected)
        return 0;
    std::fprintf(stderr, "bench_roundtrip: %d and %d calls arrived, not %d\n", reachedOnGuiThread,
                 reachedOnScriptThread, expected);
    return 1;
}
