// page/guihtmltext-measure.h: what a text run remembers between layouts: its words, and the sizes it had lately. A run
// that did not change costs no font work, however often it is laid out, and none of this exists before a run is first
// measured.
#pragma once

#include "page/guihtmltext-shape.h"

#include <QStringView>

#include <array>
#include <cstdint>
#include <optional>

/// One piece of link text for hit testing: where it lies in the run's node, and the position of its "[[a" code.
struct guiHotspot
{
    int left = 0;
    int width = 0;
    int top = 0;
    int height = 0;
    unsigned link = 0;
};

/// The measurements of one text in one font.
class guiTextMeasures
{
public:
    struct extent
    {
        int width = 0;
        int height = 0;
    };

    /// The words of `text`; cuts and measures them, and forgets all sizes, when text, font or points are new.
    guiTextRun const& run(QStringView text, guiTextFont& font, int points);

    /// The height found for a box of this width, if it is among the last few.
    std::optional<int> heightFor(int width) const;
    void rememberHeight(int width, int height);

    std::optional<extent> preferred() const { return m_preferred; }
    void rememberPreferred(extent size) { m_preferred = size; }

    /// The width that the hotspots were recorded for; none after a change.
    std::optional<int> hotspotWidth;

private:
    static constexpr unsigned kWidths = 4; // an estimate, the final width, and both before a scroll bar appeared

    std::optional<guiTextRun> m_run;
    std::uint64_t m_textKey = 0;
    qsizetype m_textLength = 0;
    guiTextFont* m_font = nullptr;
    int m_points = 0;
    unsigned m_generation = 0;
    std::optional<extent> m_preferred;
    std::array<extent, kWidths> m_heights;
    std::uint8_t m_heightCount = 0;
    std::uint8_t m_nextHeight = 0;
};
