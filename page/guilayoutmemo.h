// page/guilayoutmemo.h: what a node remembers while its page is laid out, so that nothing is computed twice
// (guihtmlsize.h).
#pragma once

#include <cstdint>

class guiHtml;

/// Results of one layout run, known by the run's number; all of them are stale in the next. GUI thread.
struct guiLayoutMemo
{
    static constexpr unsigned kWidths = 2;

    guiHtml* fontSource = nullptr; ///< the node above that decides about this node's font; not owned
    std::uint32_t fontRun = 0;     ///< run in which it was found
    std::uint32_t widthsRun = 0;   ///< run in which the children got their widths
    std::uint32_t heightsRun = 0;  ///< run in which the children got their heights,
    int heightsFor = 0;            ///< and the node's own height then, pixels
    std::uint32_t estimateRun = 0; ///< run of the height estimates below
    int estimateWidth[kWidths] = {};
    int estimateHeight[kWidths] = {};
    std::uint8_t estimates = 0; ///< how many were made; the last kWidths of them are kept
    bool hasBarX = false;       ///< whether the layout counts with a horizontal scroll bar
    bool hasBarY = false;       ///< or a vertical one
    bool hadBarX = false;       ///< whether it did so when the run began
    bool hadBarY = false;
    bool lostBarX = false; ///< whether it went in an earlier run of this layout
    bool lostBarY = false;
};
