// bench/bench-page.cpp: how fast a page is parsed and laid out, how fast it is laid out at another width, and how much
// memory it takes, compared with other small engines.

#include "bench/page-texts.h"
#include "bench/pageprograms.h"
#include "bench/ratioline.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include <exception>

namespace {

constexpr unsigned kSizes[] = {10, 100, 1024, 4096}; // kilobytes
constexpr unsigned kCompared = 1024;
constexpr int kRounds = 3;

constexpr double kTextTarget = 2.5;
constexpr double kTarget = 5;
constexpr double kMemoryTarget = 2;
constexpr double kMostGrowth = 1.05;
constexpr double kMostMeasures = 8;

/// Figures by engine.
using Results = std::map<std::string, PageFigures>;

void keepBest(PageFigures& best, PageFigures const& found)
{
    for (auto const& [name, value] : found) {
        auto const [known, isNew] = best.try_emplace(name, value);
        if (!isNew)
            known->second = std::min(known->second, value);
    }
}

/// Runs the engines alternately, several times each, so that other load on the machine affects all alike.
Results measure(std::vector<std::string> const& engines, std::string const& kind, unsigned size)
{
    Results results;
    for (int round = 0; round < (size > kCompared ? 1 : kRounds); ++round)
        for (std::string const& engine : engines)
            keepBest(results[engine], runPageEngine(engine, "load " + kind + " " + std::to_string(size)));
    return results;
}

void print(std::string const& kind, unsigned size, Results& results)
{
    for (auto& [engine, figures] : results)
        std::printf("%-5s %4u KB  %-8s load %6s  second layout %6s  bytes per page byte %5.1f, kept %5.1f\n",
                    kind.c_str(), size, engine.c_str(), timeText(figures["load"]).c_str(),
                    timeText(figures["layout"]).c_str(), figures["bytes"], figures["kept"]);
    std::fflush(stdout);
}

double bestPeer(Results& results, char const* figure)
{
    double best = std::numeric_limits<double>::infinity();
    for (auto& [engine, figures] : results)
        if (engine != "tarn")
            best = std::min(best, figures[figure]);
    return best;
}

void compare(std::string const& kind, Results& results)
{
    PageFigures& ours = results["tarn"];
    printRatio("page-load/" + kind, ours["load"], bestPeer(results, "load"), kind == "text" ? kTextTarget : kTarget);
    if (results.contains("wx"))
        printRatio("page-second-layout/" + kind, ours["layout"], results["wx"]["layout"], 1);
    printFigure("page-memory/" + kind, ours["bytes"], results["qtext"]["bytes"], kMemoryTarget);
    printFigure("page-measures-per-node/" + kind, ours["measures-per-node"], kMostMeasures, 1);
}

void measureKind(std::vector<std::string> const& engines, std::string const& kind)
{
    std::map<unsigned, double> loads;
    for (unsigned size : kSizes) {
        Results results = measure(engines, kind, size);
        print(kind, size, results);
        loads[size] = results["tarn"]["load"];
        if (size == kCompared)
            compare(kind, results);
    }
    double const exponent = std::log(loads[4096] / loads[100]) / std::log(4096.0 / 100);
    printFigure("page-growth-exponent/" + kind, exponent, kMostGrowth, 1);
}

} // namespace

int main()
{
    try {
        std::vector<std::string> const engines = findPageEngines({"qtext", "litehtml", "wx"});
        for (PageKind const& kind : pageKinds())
            measureKind(engines, kind.name);
    } catch (std::exception const& error) {
        std::fprintf(stderr, "bench_page: %s\n", error.what());
        return 1;
    }
}
