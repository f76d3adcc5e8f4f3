// bench/bench-paint.cpp: how fast a window of 800 by 600 pixels is repainted, and how fast it scrolls by one step, at
// the top, in the middle and at the end of a long page, compared with other engines.

#include "bench/pageprograms.h"
#include "bench/ratioline.h"

#include <algorithm>
#include <cstdio>

#include <exception>

namespace {

constexpr char kPlaces[][8] = {"top", "middle", "end"};
constexpr int kRounds = 3;
constexpr double kMostSpread = 1.3;
constexpr double kStepTarget = 3; // steps in the time of one full repaint

void keepBest(PageFigures& best, PageFigures const& found)
{
    for (auto const& [name, value] : found) {
        auto const [known, isNew] = best.try_emplace(name, value);
        if (!isNew)
            known->second = std::min(known->second, value);
    }
}

void print(std::string const& engine, PageFigures& figures)
{
    std::printf("%-9s window %8s at the top, %8s in the middle, %8s at the end; scroll step %8s; %.0f pixels\n",
                engine.c_str(), timeText(figures["top"]).c_str(), timeText(figures["middle"]).c_str(),
                timeText(figures["end"]).c_str(), timeText(figures["step"]).c_str(), figures["range"]);
    std::fflush(stdout);
}

void compare(PageFigures& ours, PageFigures& qtext)
{
    double slowest = 0;
    double fastest = 1e9;
    for (char const* place : kPlaces) {
        printRatio(std::string("paint-window/") + place, ours[place], qtext[place], 1);
        slowest = std::max(slowest, ours[place]);
        fastest = std::min(fastest, ours[place]);
    }
    printFigure("paint-places-apart", slowest / fastest, kMostSpread, 1);
    printRatio("paint-scroll-step", ours["step"], ours["middle"], kStepTarget);
}

void measure()
{
    std::map<std::string, PageFigures> results;
    std::vector<std::string> const engines = findPageEngines({"qtext", "litehtml"});
    for (int round = 0; round < kRounds; ++round)
        for (std::string const& engine : engines)
            if (round == 0 || engine == "tarn")
                keepBest(results[engine], runPageEngine(engine, "paint mixed 4096"));
    for (auto& [engine, figures] : results)
        print(engine, figures);
    compare(results["tarn"], results["qtext"]);
}

} // namespace

int main()
{
    try {
        measure();
    } catch (std::exception const& error) {
        std::fprintf(stderr, "bench_paint: %s\n", error.what());
        return 1;
    }
}
