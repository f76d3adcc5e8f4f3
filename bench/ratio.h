// bench/ratio.h: runs the benchmarks of a program and then says how its measurements stand to each other, one line
// each (bench/ratioline.h). Figures of one run on one machine can be compared; absolute times can not. Every program
// whose benchmarks run on one thread shares this; bench/alternating.h serves the others.
#pragma once

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/ratioline.h"

/// How many times as fast `ours` is as `peer`, both names of benchmarks, as the run prints them. A target below 1 says
/// what part of a limit is to be reached.
struct Ratio
{
    std::string name;
    std::string ours;
    std::string peer;
    double target;
};

/// Has a benchmark measured several times, each time shortly.
inline benchmark::internal::Benchmark* repeated(benchmark::internal::Benchmark* measurement)
{
    return measurement->MinTime(0.1)->Repetitions(5);
}

/// Prints and keeps, of the repetitions of each benchmark, the one with the shortest processor time: it is the least
/// disturbed by other programs.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    /// Without colours, whose control characters would stand in the lines that other programs read.
    RatioReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(std::vector<Run> const& runs) override
    {
        std::vector<Run> measured;
        std::copy_if(runs.begin(), runs.end(), std::back_inserter(measured),
                     [](Run const& run) { return run.run_type == Run::RT_Iteration && !run.error_occurred; });
        if (measured.empty())
            return;
        Run const& best = *std::min_element(measured.begin(), measured.end(),
                                            [](Run const& a, Run const& b) { return secondsOf(a) < secondsOf(b); });
        std::string const args = best.run_name.args.empty() ? "" : "/" + best.run_name.args;
        m_seconds[best.run_name.function_name + args] = secondsOf(best);
        ConsoleReporter::ReportRuns({best});
    }

    /// Leaves out what was not run, for example because a filter excluded it or the peer is not installed.
    void print(Ratio const& ratio) const
    {
        auto const ours = m_seconds.find(ratio.ours);
        auto const peer = m_seconds.find(ratio.peer);
        if (ours != m_seconds.end() && peer != m_seconds.end())
            printRatio(ratio.name, ours->second, peer->second, ratio.target);
    }

private:
    static double secondsOf(Run const& run) { return run.cpu_accumulated_time / static_cast<double>(run.iterations); }

    std::map<std::string, double> m_seconds;
};

/// The body of main(): runs what was registered, then prints the ratios.
inline int runWithRatios(int argc, char** argv, std::vector<Ratio> const& ratios)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (Ratio const& ratio : ratios)
        reporter.print(ratio);
    benchmark::Shutdown();
    return 0;
}
