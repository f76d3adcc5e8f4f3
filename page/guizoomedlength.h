// page/guizoomedlength.h: lengths of a zoomed page.
#pragma once

#include <cstdint>

/// The zoom of a page that is shown as it is written, in percent, and the bounds of what the user and script can
/// choose.
inline constexpr std::uint16_t kUnzoomed = 100;
inline constexpr std::uint16_t kLeastZoom = 50;
inline constexpr std::uint16_t kMostZoom = 300;

/// What texts are scaled by, in percent.
struct guiTextScale
{
    unsigned font = kUnzoomed;   ///< sizes of fonts
    unsigned length = kUnzoomed; ///< margins and indentations
    bool operator==(guiTextScale const&) const = default;
};

/// A length in pixels at a zoom in percent, rounded to whole pixels. What is there at all stays visible: no length but
/// 0 becomes 0.
constexpr int guiZoomedLength(int pixels, unsigned percent)
{
    constexpr std::int64_t kHalf = kUnzoomed / 2;
    std::int64_t const product = std::int64_t{pixels} * percent;
    int const scaled = static_cast<int>((product + (pixels < 0 ? -kHalf : kHalf)) / kUnzoomed);
    return scaled == 0 && pixels != 0 ? (pixels < 0 ? -1 : 1) : scaled;
}

/// The length that is this one at a zoom in percent, rounded.
constexpr int guiUnzoomedLength(int pixels, unsigned percent)
{
    std::int64_t const product = std::int64_t{pixels} * kUnzoomed;
    std::int64_t const half = std::int64_t{percent} / 2;
    return static_cast<int>((product + (pixels < 0 ? -half : half)) / percent);
}
