// page/guihtmltext-measure.h: the words and the latest sizes of a text run, kept between layouts, so that an unchanged
// run is not measured again.
#pragma once

#include "page/guihtmltext-shape.h"

#include <QStringView>

#include <array>
#include <cstdint>
#include <optional>

/// Pixels on either side of a run's lines.
inline constexpr int kTextMargin = 4;

/// The measurements of one text in one font. Every text node has one, so it is kept small. GUI thread.
class guiTextMeasures
{
public:
    struct extent
    {
        int width = 0;
        int height = 0;
    };

    /// The words of `text`. When text, font, points or scale have changed, it measures them again and forgets all
    /// sizes. `isSameText`: the caller knows that the text is the same as in the last call. `font` is not owned.
    /// `direction`: the same in each call.
    guiTextRun const& run(QStringView text, bool isSameText, guiTextFont& font, int points, guiTextScale scale = {},
                          guiDirection direction = guiDirection::kByText);
    /// Whether run() was called.
    bool isMade() const { return m_font != nullptr; }
    bool hasLinks() const { return m_run.hasLinks(); }

    /// The height at this line width, if it is one of the last few remembered or wide enough that no line is broken.
    std::optional<int> heightFor(int width) const;
    void rememberHeight(int width, int height);

    /// The size when no line is broken, margins included.
    std::optional<extent> preferred() const;
    void rememberPreferred(extent size);

    /// The node's width for which its hotspots were recorded; kNoWidth after a change of text or font.
    int hotspotWidth = kNoWidth;

    /// The guiFontEpoch in which the node's font was the one measured in, 0 for none.
    std::uint32_t fontEpoch = 0;

    static constexpr int kNoWidth = -0x7FFFFFFF;

private:
    static constexpr unsigned kWidths = 3;

    static std::uint32_t sizesOf(int points, guiTextScale scale);
    int margins() const;

    guiTextRun m_run;
    guiTextFont* m_font = nullptr;
    std::uint64_t m_textKey = 0;
    std::uint32_t m_generation = 0;
    std::uint32_t m_sizes : 28 = 0; // points and scale
    std::uint32_t m_heightCount : 2 = 0;
    std::uint32_t m_nextHeight : 2 = 0;
    extent m_preferred{kNoWidth, 0};
    std::array<extent, kWidths> m_heights;
};
