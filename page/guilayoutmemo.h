// page/guilayoutmemo.h: the results that a node keeps while its page is laid out, so that nothing is computed twice
// (guihtmlsize.h).
#pragma once

#include <cassert>
#include <cstdint>

class guiHtml;

/// Results of one layout run, which has a number. In the next run all of them are out of date, unless that run keeps
/// the node with everything below it (keep()). GUI thread.
struct guiLayoutMemo
{
    static constexpr unsigned kWidths = 2;

    /// Bits of `known`: what is valid in the run `run`.
    enum : std::uint8_t
    {
        kFont = 1,      ///< fontSource
        kShares = 2,    ///< the children have their widths
        kHeights = 4,   ///< the children have their heights, for heightsFor
        kNoSprings = 8, ///< nothing from here down gives spare height to its children
        kNoBars = 16,   ///< nothing from here down has a scroll bar
        kSettled = 32,  ///< the node itself has its height, without a share of spare height
        kPlaced = 64,   ///< everything below has its rectangle, and no native widget has to be moved
    };

    std::uint32_t run = 0;
    int heightsFor = 0; ///< the node's own height when the children got theirs, pixels
    int estimateWidth[kWidths] = {};
    int estimateHeight[kWidths] = {};
    std::uint8_t known = 0;
    std::uint8_t estimates = 0; ///< how many were made; the last kWidths of them are kept
    bool hasBarX = false;       ///< whether the layout leaves room for a horizontal scroll bar
    bool hasBarY = false;       ///< the same for a vertical one
    bool hadBarX = false;       ///< whether it did so when the run began
    bool hadBarY = false;
    bool lostBarX = false; ///< whether an earlier run of this layout took it away
    bool lostBarY = false;
    guiHtml* fontSource = nullptr; ///< the node that chooses this node's font; not owned

    bool knows(std::uint8_t what, std::uint32_t inRun) const { return run == inRun && (known & what) == what; }
    void learn(std::uint8_t what, std::uint32_t inRun)
    {
        enter(inRun);
        known = static_cast<std::uint8_t>(known | what);
    }
    /// The results of an earlier run are valid in this one, too.
    void keep(std::uint32_t inRun)
    {
        assert(run != 0 && run <= inRun);
        run = inRun;
    }
    void forget(std::uint8_t what) { known = static_cast<std::uint8_t>(known & ~what); }
    /// Drops the results of other runs.
    void enter(std::uint32_t inRun)
    {
        assert(run <= inRun);
        if (run == inRun)
            return;
        run = inRun;
        known = estimates = 0;
    }
};
