// page/guilayoutmemo.h: what a node remembers while its page is laid out, so that nothing is computed twice
// (guihtmlsize.h).
#pragma once

#include <cstdint>

class guiHtml;

/// Results of one layout run, known by the run's number. All of them are stale in the next, unless it takes the node
/// over with all below it (keep()). GUI thread.
struct guiLayoutMemo
{
    static constexpr unsigned kWidths = 2;

    /// What is known in the run `run`.
    enum : std::uint8_t
    {
        kFont = 1,      ///< fontSource
        kShares = 2,    ///< the children have their widths
        kHeights = 4,   ///< the children have their heights, for heightsFor
        kNoSprings = 8, ///< nothing from here down hands out height
        kNoBars = 16,   ///< nothing from here down has a scroll bar
        kSettled = 32,  ///< the node itself has its height, before spare height is handed out
        kPlaced = 64,   ///< everything below has its rectangle, and no widget is there to be moved
    };

    std::uint32_t run = 0;
    int heightsFor = 0; ///< the node's own height when the children got theirs, pixels
    int estimateWidth[kWidths] = {};
    int estimateHeight[kWidths] = {};
    std::uint8_t known = 0;
    std::uint8_t estimates = 0; ///< how many were made; the last kWidths of them are kept
    bool hasBarX = false;       ///< whether the layout counts with a horizontal scroll bar
    bool hasBarY = false;       ///< or a vertical one
    bool hadBarX = false;       ///< whether it did so when the run began
    bool hadBarY = false;
    bool lostBarX = false; ///< whether it went in an earlier run of this layout
    bool lostBarY = false;
    guiHtml* fontSource = nullptr; ///< the node above that decides about this node's font; not owned

    bool knows(std::uint8_t what, std::uint32_t inRun) const { return run == inRun && (known & what) == what; }
    void learn(std::uint8_t what, std::uint32_t inRun)
    {
        enter(inRun);
        known = static_cast<std::uint8_t>(known | what);
    }
    /// What is known of an earlier run holds in this one, too.
    void keep(std::uint32_t inRun) { run = inRun; }
    void forget(std::uint8_t what) { known = static_cast<std::uint8_t>(known & ~what); }
    /// Drops what is not of this run.
    void enter(std::uint32_t inRun)
    {
        if (run == inRun)
            return;
        run = inRun;
        known = estimates = 0;
    }
};
