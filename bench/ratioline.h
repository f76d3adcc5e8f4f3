// bench/ratioline.h: how a benchmark program prints its results, one line for each comparison:
//   ratio <name> <value> target <value> ours <figure> peer <figure>
// bench/run collects these lines into a table. Figures contain no blanks.
#pragma once

#include <cstdio>
#include <string>

/// A duration with three digits and a unit.
inline std::string timeText(double seconds)
{
    struct Unit
    {
        char const* name;
        double seconds;
    };
    constexpr Unit kUnits[] = {{"s", 1}, {"ms", 1e-3}, {"us", 1e-6}, {"ns", 1e-9}};
    Unit unit = kUnits[3];
    for (Unit const& candidate : kUnits) {
        if (seconds >= candidate.seconds) {
            unit = candidate;
            break;
        }
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.3g%s", seconds / unit.seconds, unit.name);
    return text;
}

/// Prints a comparison of two durations in seconds: how many times as fast `ours` is as `peer`. The target is met if
/// that is at least `target`.
inline void printRatio(std::string const& name, double ours, double peer, double target)
{
    std::printf("ratio %s %.3g target %.3g ours %s peer %s\n", name.c_str(), peer / ours, target,
                timeText(ours).c_str(), timeText(peer).c_str());
    std::fflush(stdout);
}

/// The same for other figures of which less is better, such as bytes.
inline void printFigure(std::string const& name, double ours, double peer, double target)
{
    std::printf("ratio %s %.3g target %.3g ours %.4g peer %.4g\n", name.c_str(), peer / ours, target, ours, peer);
    std::fflush(stdout);
}
