// bench/alternating.h: measures two things alternately, so that other load on the machine affects both alike, and takes
// the median of each. For what Google Benchmark can not time: two threads, and whole processes.
#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

/// The seconds that `work` takes.
inline double secondsOf(std::function<void()> const& work)
{
    auto const start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> samples)
{
    std::sort(samples.begin(), samples.end());
    size_t const middle = samples.size() / 2;
    return samples.size() % 2 == 1 ? samples[middle] : (samples[middle - 1] + samples[middle]) / 2;
}

/// The two medians, in seconds.
struct Medians
{
    double ours;
    double peer;
};

/// Takes `rounds` samples of each; a sample is what the function returns, in seconds. The order changes with every
/// round, so that neither always finds cold caches. An extra round beforehand does not count.
inline Medians measureInTurns(int rounds, std::function<double()> const& ours, std::function<double()> const& peer)
{
    std::vector<double> oursSamples, peerSamples;
    ours();
    peer();
    for (int round = 0; round < rounds; ++round) {
        if (round % 2 == 0)
            oursSamples.push_back(ours());
        peerSamples.push_back(peer());
        if (round % 2 == 1)
            oursSamples.push_back(ours());
    }
    return {median(oursSamples), median(peerSamples)};
}
