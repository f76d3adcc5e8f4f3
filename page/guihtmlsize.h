// page/guihtmlsize.h: what the files of the layout engine share. guihtmlsize.cpp walks bottom-up and computes the size
// that each node needs; guihtmlsize-widths.cpp and guihtmlsize-heights.cpp walk top-down and compute the size that each
// node gets; guihtmlsize-place.cpp turns sizes into rectangles. guihtmlsize-layers.h reads a node's child list as rows,
// guihtmlsize-scroll.h makes scroll bars.
#pragma once

#include "foundation/vela-threadrole.h"

#include <algorithm>
#include <cassert>
#include <concepts>
#include <cstdint>

class guiHtml;

/// Upper bound in pixels of everything that layout computes, the same as the toolkit's for a widget. Sums are computed
/// in 64 bits and clamped when they are stored.
inline constexpr int kMaxLayoutPixels = 16777215;
/// Space below a layer that ends a paragraph, in pixels.
inline constexpr int kParagraphGap = 12;

/// The length, limited to kMaxLayoutPixels in both directions.
template <std::integral T>
constexpr int guiClampPixels(T pixels)
{
    if constexpr (std::unsigned_integral<T>)
        return pixels > static_cast<unsigned>(kMaxLayoutPixels) ? kMaxLayoutPixels : static_cast<int>(pixels);
    else
        return static_cast<int>(std::clamp<std::int64_t>(pixels, -kMaxLayoutPixels, kMaxLayoutPixels));
}

/// A run of the layout engine: what nodes compute in it is remembered until the next run starts. Each operation of the
/// engine makes one on the stack; inside another run it has no effect. GUI thread.
class guiLayoutRun
{
public:
    enum class phase : std::uint8_t
    {
        kPart,  ///< an operation that was called alone
        kFirst, ///< the first run over a page that gets a rectangle: no scroll bars yet
        kAgain, ///< another one, because a scroll bar was added or removed in the run before
    };

    guiLayoutRun() TARN_ON(velaGuiRole) : guiLayoutRun(phase::kPart, !s_isActive) {}
    /// Starts a new run in any case.
    explicit guiLayoutRun(phase which) TARN_ON(velaGuiRole) : guiLayoutRun(which, true) {}
    ~guiLayoutRun();
    guiLayoutRun(guiLayoutRun const&) = delete;
    guiLayoutRun& operator=(guiLayoutRun const&) = delete;

    static std::uint32_t number() { return s_number; }
    static bool isActive() { return s_isActive; }
    /// Checks once in the outermost run that guiFontEpoch knows of all changes of fonts. `node`: any node of the page.
    static void checkFonts(guiHtml* node) TARN_ON(velaGuiRole);
    /// The input of the layout has changed: later runs keep no results of earlier ones.
    static void startAnew() { s_firstKept = s_number + 1; }
    /// Whether a node's results of this run are still valid if its width is the same.
    static bool keeps(std::uint32_t run) { return run >= s_firstKept; }
    static bool fontsAreChecked() { return s_isActive && s_hasCheckedFonts; }
    static phase currentPhase() TARN_ON(velaGuiRole) { return s_phase; }
    /// Count the scroll bars that this run added or removed. Adding one and removing it again cancel out.
    static void countAddedBar() TARN_ON(velaGuiRole) { ++s_newBars; }
    static void uncountAddedBar() TARN_ON(velaGuiRole) { --s_newBars; }
    static void countRemovedBar() TARN_ON(velaGuiRole) { s_hasLostBars = true; }
    static bool hasChangedBars() TARN_ON(velaGuiRole) { return s_newBars != 0 || s_hasLostBars; }

private:
    guiLayoutRun(phase which, bool isNew) TARN_ON(velaGuiRole);

    static inline std::uint32_t s_number = 1;
    static inline std::uint32_t s_firstKept = 2;
    static inline std::uint32_t s_fontEpoch TARN_GUARDED_BY(velaGuiRole) = 0; // of the kept runs
    static inline bool s_isActive = false;
    static inline int s_newBars TARN_GUARDED_BY(velaGuiRole) = 0;
    static inline bool s_hasLostBars TARN_GUARDED_BY(velaGuiRole) = false;
    static inline bool s_hasCheckedFonts = false;
    static inline phase s_phase TARN_GUARDED_BY(velaGuiRole) = phase::kPart;

    bool m_isNew;
    bool m_wasActive;
    phase m_phaseBefore;
};

/// Prefetches the memory of the nodes that a walk over the page visits next. Nodes and their texts usually lie in
/// memory in the order in which the page was read, which is the order of the walks. A wrong guess has no effect.
inline void guiFetchAhead(guiHtml const* node)
{
    constexpr std::uintptr_t kAhead = 2048; // bytes: four or five nodes
    constexpr std::uintptr_t kNode = 768;   // more than a node takes, so that there are no gaps
    constexpr std::uintptr_t kLine = 64;
    auto const next = reinterpret_cast<std::uintptr_t>(node) + kAhead;
    for (std::uintptr_t at = next; at < next + kNode; at += kLine)
        __builtin_prefetch(reinterpret_cast<void const*>(at));
}

/// What a node's border and space take on an axis, both sides together, in pixels.
std::int64_t guiFrameOf(guiHtml const* node);
/// The room for content in a node of this width or height, in pixels: less the frame, the scroll bar of the other axis,
/// and, in a height, the caption. May be negative.
int guiInnerWidth(guiHtml const* node, int width);
int guiInnerHeight(guiHtml const* node, int height);
