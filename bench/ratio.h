// bench/ratio.h: runs the benchmarks of a program and prints the ratios of their results (bench/ratioline.h). Results
// of the same run on the same machine are comparable, absolute times are not. For benchmarks on one thread;
// bench/alternating.h is for the others.
#pragma once

#include "bench/ratioline.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

/// A comparison of two benchmarks, named as the run prints them. The target says how many times as fast `ours` should
/// be as `peer`; below 1 it is the part of the peer's speed to reach.
struct Ratio
{
    std::string name;
    std::string ours;
    std::string peer;
    double target;
};

/// Repeats a short measurement several times.
inline benchmark::internal::Benchmark* repeated(benchmark::internal::Benchmark* measurement)
{
    return measurement->MinTime(0.1)->Repetitions(5);
}

/// Keeps and prints the repetition of each benchmark with the shortest processor time, which other programs have
/// disturbed least.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    /// Without colours: other programs read these lines and can not handle control characters.
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

    /// Prints nothing if one of the two was not run, because a filter excludes it or the peer is not installed.
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

/// The body of main(): runs the registered benchmarks, then prints the ratios.
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
