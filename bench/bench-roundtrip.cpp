// bench/bench-roundtrip.cpp: the cost of a call from the script thread to the GUI thread or back, compared with two
// plain objects of the toolkit that post events to each other in the same process. Both threads share a core: the time
// is then that of the work and two switches, and does not depend on how fast a sleeping core wakes up.

#include "bench/alternating.h"
#include "bench/bareline.h"
#include "bench/clicks.h"
#include "bench/nodeclicks.h"
#include "bench/ratioline.h"
#include "host/native/nativehost.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guithread.h"

#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>

#include <pthread.h>
#include <sched.h>

namespace {

constexpr int kTripsPerSample = 1000;
constexpr int kRounds = 61;
constexpr double kTarget = 1.0 / 3;

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

/// Runs a function on the GUI thread and waits, as every call of a window's method does.
void callOnGuiThread(ScriptMethod method, ScriptObject* self)
{
    NativeValue result;
    pGUI->getThread()->callFunction(method, pGUI->getManager(), nullptr, self, noArguments(), result);
}

/// How often each of our two functions ran, counted on its thread. Read after the measurement.
int reachedOnGuiThread = 0;
int reachedOnScriptThread = 0;

/// Small, so that the crossing itself is measured.
void arrive(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    reachedOnGuiThread += pGUI->getThread()->isGuiThread();
}

/// On the GUI thread: calls an object's handler `onPing` once for each trip.
void callHandlers(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    for (int i = 0; i < kTripsPerSample; ++i)
        guiCallback_CallEvent(nullptr, self, "onPing", self, &result);
}

/// The two objects; that of the GUI thread is made and destroyed there.
struct Line
{
    Peer script{kTripsPerSample};
    Peer* gui = nullptr;
};

Line* line = nullptr;

void makeGuiEnd(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    line->gui = new Peer(kTripsPerSample);
    line->gui->other = &line->script;
    line->script.other = line->gui;
}

void destroyGuiEnd(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&) { delete line->gui; }

void callFromScript()
{
    for (int i = 0; i < kTripsPerSample; ++i)
        callOnGuiThread(arrive, nullptr);
}

/// Clicks the link of our own window while the script thread runs the handlers. Returns the seconds.
double clickHere(NativeHost& host)
{
    std::optional<double> seconds;
    clickLater(kClickWindow, kTripsPerSample, [&](double found) {
        host.post([&, found] { seconds = found; }); // ends the loop of the script thread
    });
    if (!host.serveUntil([&] { return seconds.has_value(); }, std::chrono::minutes(1)) || *seconds < 0) {
        std::fprintf(stderr, "bench_roundtrip: the window does not answer clicks\n");
        std::_Exit(1); // without waiting for a window that may hang
    }
    return *seconds;
}

double bareTrip()
{
    return secondsOf([] { line->script.letOtherPlay(); }) / kTripsPerSample;
}

/// Measures clicks on a link whose handler does nothing, from the press until the handler has returned and the button
/// is released.
void compareClicks(NativeHost& host, int const& clicked)
{
    auto const print = [](char const* name, Medians const& medians) {
        printRatio(name, medians.ours, medians.peer, kTarget);
    };
    print("click-to-handler-and-back/native",
          measureInTurns(
              kRounds, [&] { return clickHere(host) / kTripsPerSample; }, bareTrip));
    if (clicked != (kRounds + 1) * kTripsPerSample) {
        std::fprintf(stderr, "bench_roundtrip: %d clicks reached the handler\n", clicked);
        std::_Exit(1);
    }
    std::unique_ptr<NodeClicks> const node = NodeClicks::start();
    if (node)
        print("click-to-handler-and-back/node",
              measureInTurns(
                  kRounds, [&] { return node->click(kTripsPerSample) / kTripsPerSample; }, bareTrip));
    else
        std::printf("no Node.js host was built: its clicks are not measured\n");
}

/// Measures a pair and prints the time of a trip.
void compare(char const* name, std::function<void()> const& ours, std::function<void()> const& peer)
{
    Medians const medians = measureInTurns(
        kRounds, [&] { return secondsOf(ours) / kTripsPerSample; }, [&] { return secondsOf(peer) / kTripsPerSample; });
    printRatio(name, medians.ours, medians.peer, kTarget);
}

} // namespace

int main()
{
    NativeHost host({.folder = TARN_BENCH_FOLDER});
    NativeWindow window = host.window(kClickPage); // makes an engine, which the loop below waits in
    int clicked = 0;
    window.on("onPing", [&](NativeWindow&, NativeArguments const&) { ++clicked; });
    if (!window.open())
        return 1;
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
    compareClicks(host, clicked);
    callOnGuiThread(destroyGuiEnd, nullptr);
    window.close();

    constexpr int kExpected = (kRounds + 1) * kTripsPerSample;
    if (reachedOnGuiThread == kExpected && reachedOnScriptThread == kExpected)
        return 0;
    std::fprintf(stderr, "bench_roundtrip: %d and %d calls arrived, not %d\n", reachedOnGuiThread,
                 reachedOnScriptThread, kExpected);
    return 1;
}
