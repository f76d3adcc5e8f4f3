// page/guihtmlsize.h: what the files of the layout engine share. guihtmlsize.cpp walks bottom-up and finds what each
// node needs; guihtmlsize-widths.cpp and guihtmlsize-heights.cpp walk top-down and find what each node gets;
// guihtmlsize-place.cpp turns that into rectangles. guihtmlsize-layers.h reads a node's child list as rows,
// guihtmlsize-scroll.h makes scroll bars.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>

class guiHtml;

/// Upper bound of everything that layout computes, in pixels; the toolkit's own bound for a widget. Sums are taken in
/// 64 bits and clamped when they are stored.
inline constexpr int kMaxLayoutPixels = 16777215;
/// Space below a layer that ends a paragraph, in pixels.
inline constexpr int kParagraphGap = 12;

/// A length that fits, positive or negative.
template <std::integral T>
constexpr int guiClampPixels(T pixels)
{
    if constexpr (std::unsigned_integral<T>)
        return pixels > static_cast<unsigned>(kMaxLayoutPixels) ? kMaxLayoutPixels : static_cast<int>(pixels);
    else
        return static_cast<int>(std::clamp<std::int64_t>(pixels, -kMaxLayoutPixels, kMaxLayoutPixels));
}

/// A run of the layout engine: what a node computes in it is remembered until the next one starts. Made on the stack by
/// the operations that start one; inside another run of the same thread it changes nothing. GUI thread.
class guiLayoutRun
{
public:
    enum class Kind : std::uint8_t
    {
        Part,  ///< an operation that was called by itself
        First, ///< the first run over a page that gets a rectangle: no scroll bars yet
        Again, ///< one more, since a scroll bar appeared or went in the run before
    };

    guiLayoutRun() : guiLayoutRun(Kind::Part, !s_isActive) {}
    /// Starts a new run in any case.
    explicit guiLayoutRun(Kind kind) : guiLayoutRun(kind, true) {}
    ~guiLayoutRun();
    guiLayoutRun(guiLayoutRun const&) = delete;
    guiLayoutRun& operator=(guiLayoutRun const&) = delete;

    static std::uint32_t number() { return s_number; }
    static bool isActive() { return s_isActive; }
    /// Makes sure that fonts changed only where guiFontEpoch was told, for the rest of the outermost run.
    static void checkFonts(guiHtml* node);
    /// What layout starts from changed: later runs take nothing over from the ones before.
    static void startAnew() { s_firstKept = s_number + 1; }
    /// Whether what a node knows of this run still holds for a node of the same width.
    static bool keeps(std::uint32_t run) { return run >= s_firstKept; }
    static bool fontsAreChecked() { return s_isActive && s_hasCheckedFonts; }
    static Kind kind() { return s_kind; }
    /// A scroll bar appeared or went in this run; one that did both counts for nothing.
    static void addBar() { ++s_newBars; }
    static void dropNewBar() { --s_newBars; }
    static void dropOldBar() { s_hasLostBars = true; }
    static bool hasOtherBars() { return s_newBars != 0 || s_hasLostBars; }

private:
    guiLayoutRun(Kind kind, bool isNew);

    static inline std::uint32_t s_number = 1;
    static inline std::uint32_t s_firstKept = 2;
    static inline std::uint32_t s_fonts = 0; // the guiFontEpoch of the kept runs
    static inline bool s_isActive = false;
    static inline int s_newBars = 0;
    static inline bool s_hasLostBars = false;
    static inline bool s_hasCheckedFonts = false;
    static inline Kind s_kind = Kind::Part;

    bool m_isNew;
    bool m_wasActive;
    Kind m_kindBefore;
};

/// Has the processor fetch from memory what a walk over the page comes to next. Nodes lie there in the order in which
/// the page was read, with their texts in between, and that is the order of the walks. Costs nothing where it is wrong.
inline void guiFetchAhead(guiHtml const* node)
{
    constexpr std::uintptr_t kAhead = 2048; // bytes: four or five nodes
    constexpr std::uintptr_t kNode = 768;   // more than one takes, so that no gaps are left
    constexpr std::uintptr_t kLine = 64;
    auto const next = reinterpret_cast<std::uintptr_t>(node) + kAhead;
    for (std::uintptr_t at = next; at < next + kNode; at += kLine)
        __builtin_prefetch(reinterpret_cast<void const*>(at));
}

/// What a node's border and space take on both sides of an axis together.
std::int64_t guiFrameOf(guiHtml const* node);
/// A node's room for content inside a width or height of its own: less the frame, the other axis' scroll bar, and, for
/// a height, the caption. May be negative.
int guiInnerWidth(guiHtml const* node, int width);
int guiInnerHeight(guiHtml const* node, int height);
