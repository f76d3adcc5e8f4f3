// page/guihtmltext-measure.h: what a text run remembers between layouts: its words, and the sizes it had lately. A run
// that did not change costs no font work, however often it is laid out.
#pragma once

#include "page/guihtmltext-shape.h"

#include <QStringView>

#include <array>
#include <cstdint>
#include <optional>

/// Pixels on either side of a run's lines.
inline constexpr int kTextMargin = 4;

/// The measurements of one text in one font. Part of every text node, so it is kept small.
class guiTextMeasures
{
public:
    struct extent
    {
        int width = 0;
        int height = 0;
    };

    /// The words of `text`; cuts and measures them, and forgets all sizes, when text, font or points are new.
    /// `isSameText`: the caller knows that the text is the one of the last call.
    guiTextRun const& run(QStringView text, bool isSameText, guiTextFont& font, int points);
    /// Whether run() was called; then it has links or not.
    bool isMade() const { return m_font != nullptr; }
    bool hasLinks() const { return m_run.hasLinks(); }

    /// The height found for lines of this width, if it is among the last few, or if no line is broken in it.
    std::optional<int> heightFor(int width) const;
    void rememberHeight(int width, int height);

    /// The size when no line is broken, margins included.
    std::optional<extent> preferred() const;
    void rememberPreferred(extent size) { m_preferred = size; }

    /// The width that the hotspots were recorded for; kNoWidth after a change.
    int hotspotWidth = kNoWidth;

    /// The guiFontEpoch in which the font is known to be the one measured in, 0 for none.
    std::uint32_t fontEpoch = 0;

    static constexpr int kNoWidth = -0x7FFFFFFF;

private:
    static constexpr unsigned kWidths = 3;

    guiTextRun m_run;
    guiTextFont* m_font = nullptr;
    std::uint64_t m_textKey = 0;
    std::uint32_t m_generation = 0;
    std::uint16_t m_points = 0;
    std::uint8_t m_heightCount = 0;
    std::uint8_t m_nextHeight = 0;
    extent m_preferred{kNoWidth, 0};
    std::array<extent, kWidths> m_heights;
};
