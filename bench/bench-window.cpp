// bench/bench-window.cpp: the time from the start of a process until its window shows text, compared with a minimal
// program of the toolkit that paints the same text. Both are observed from outside in the same way. And the same
// through the Node.js host, compared with what an interpreter that does nothing and the minimal program take.

#include "bench/alternating.h"
#include "bench/child.h"
#include "bench/ratioline.h"
#include "bench/windowwatch.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include <exception>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 41;
constexpr double kTarget = 1 / 1.25;
constexpr uint32_t kBackground = 0x336699;
constexpr uint32_t kText = 0xFFFFFF;
constexpr int kWidth = 320;
constexpr int kHeight = 160;
constexpr std::chrono::seconds kLongestStart{30};
/// Time for the window manager to clean up after the last window.
constexpr std::chrono::milliseconds kRest{60};

/// What a program needed in each of its starts.
struct Program
{
    std::vector<std::string> words;
    std::vector<double> processorSeconds;
};

/// Returns the seconds until the window shows its text. Ends the benchmark if the program does not show it.
double timeOfStart(WindowWatch& watch, Program& program)
{
    auto const start = Clock::now();
    Child child(program.words);
    auto const seen = watch.waitForContent(kBackground, kText, [&] { return Clock::now() - start > kLongestStart; });
    double const seconds = std::chrono::duration<double>(Clock::now() - start).count();
    program.processorSeconds.push_back(child.end().processorSeconds);
    if (!seen)
        throw std::runtime_error(program.words[0] + " showed no window with its text");
    if (seen->width != kWidth || seen->height != kHeight)
        throw std::runtime_error(program.words[0] + " showed a window of another size");
    watch.waitUntilGone(seen->window);
    std::this_thread::sleep_for(kRest);
    return seconds;
}

#ifdef TARN_BENCH_NODE
/// How much longer than the minimal program the host may take, the interpreter's own start not counted.
constexpr double kNodeShare = 1.3;

double timeOfBareNode()
{
    return secondsOf([] { Child({TARN_BENCH_NODE, "-e", "0"}).waitForEnd(); });
}

void measureNode(WindowWatch& watch, Program& plain)
{
    setenv("TARN_ADDON", TARN_BENCH_ADDON, 1);
    setenv("TARN_LIBRARY", TARN_BENCH_COMPONENT, 1);
    Program node{{TARN_BENCH_NODE, TARN_BENCH_SCRIPT}, {}};
    std::vector<double> bareNodes;
    std::vector<double> plains;
    Medians const medians = measureInTurns(
        kRounds, [&] { return timeOfStart(watch, node); },
        [&] {
            bareNodes.push_back(timeOfBareNode());
            plains.push_back(timeOfStart(watch, plain));
            return bareNodes.back() + kNodeShare * plains.back();
        });
    std::printf("an interpreter that does nothing takes %s, the bare program %s\n", timeText(median(bareNodes)).c_str(),
                timeText(median(plains)).c_str());
    printRatio("first-window-node", medians.ours, medians.peer, 1);
}
#else
void measureNode(WindowWatch&, Program&) { std::printf("without Node.js: its first window is not measured\n"); }
#endif

void measure()
{
    std::string const folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    Program page{{folder + "/window_page", "window-page.html"}, {}};
    Program plain{{folder + "/window_plain"}, {}};
    WindowWatch watch;
    Medians const medians = measureInTurns(
        kRounds, [&] { return timeOfStart(watch, page); }, [&] { return timeOfStart(watch, plain); });
    std::printf("processor time up to then: %s, and %s of the bare program\n",
                timeText(median(page.processorSeconds)).c_str(), timeText(median(plain.processorSeconds)).c_str());
    printRatio("first-window", medians.ours, medians.peer, kTarget);
    measureNode(watch, plain);
}

} // namespace

int main()
{
    try {
        measure();
    } catch (std::exception const& error) {
        std::fprintf(stderr, "bench_window: %s\n", error.what());
        return 1;
    }
}
