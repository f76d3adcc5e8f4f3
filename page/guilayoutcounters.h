// page/guilayoutcounters.h: counts the work that layout does. Tests and benchmarks limit the counts per node, since,
// unlike times, they do not depend on the machine.
#pragma once

#include <cstdint>

/// Counts since the process started or since reset(). GUI thread. No product code reads them.
struct guiLayoutCounters
{
    static inline std::uint64_t calcDynamic = 0;     ///< nodes whose minimum and preferred width were computed
    static inline std::uint64_t widthQueries = 0;    ///< how often a node was asked for its preferred width
    static inline std::uint64_t heightQueries = 0;   ///< how often a node was asked for its height at a width
    static inline std::uint64_t heightsComputed = 0; ///< how often it had to be computed
    static inline std::uint64_t widthPasses = 0;     ///< nodes that shared out their width
    static inline std::uint64_t heightPasses = 0;    ///< nodes that shared out their height
    static inline std::uint64_t placements = 0;      ///< setRect() calls
    static inline std::uint64_t runsShaped = 0;      ///< text runs cut into words
    static inline std::uint64_t runsBroken = 0;      ///< walks that broke a run into lines
    static inline std::uint64_t wordsShaped = 0;     ///< texts handed to the toolkit's shaper
    static inline std::uint64_t fontProbes = 0;      ///< fonts tried for a line height
    static inline std::uint64_t fontClimbs = 0;      ///< steps from a node to the one that chooses its font

    static void reset()
    {
        calcDynamic = widthQueries = heightQueries = heightsComputed = widthPasses = heightPasses = placements = 0;
        runsShaped = runsBroken = wordsShaped = fontProbes = fontClimbs = 0;
    }
};
