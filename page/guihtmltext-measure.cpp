// page/guihtmltext-measure.cpp: see guihtmltext-measure.h.
#include "page/guihtmltext-measure.h"

#include <QHashFunctions>

#include <algorithm>

// The text is told from the one measured before by its length and 64 bits of hash: a copy to compare with would double
// what a page of text takes.
guiTextRun const& guiTextMeasures::run(QStringView text, guiTextFont& font, int points)
{
    std::uint64_t const key = qHashBits(text.utf16(), static_cast<std::size_t>(text.size()) * 2);
    if (m_run && m_textLength == text.size() && m_textKey == key && m_font == &font && m_points == points &&
        m_generation == guiTextFonts::generation())
        return *m_run;
    m_run.emplace(text, font, points, true);
    m_textLength = text.size();
    m_textKey = key;
    m_font = &font;
    m_points = points;
    m_generation = guiTextFonts::generation();
    m_preferred.reset();
    hotspotWidth.reset();
    m_heightCount = m_nextHeight = 0;
    return *m_run;
}

std::optional<int> guiTextMeasures::heightFor(int width) const
{
    auto const end = m_heights.begin() + m_heightCount;
    auto const found = std::find_if(m_heights.begin(), end, [width](extent size) { return size.width == width; });
    return found == end ? std::nullopt : std::optional(found->height);
}

void guiTextMeasures::rememberHeight(int width, int height)
{
    m_heights[m_nextHeight] = {width, height};
    m_nextHeight = static_cast<std::uint8_t>((m_nextHeight + 1) % kWidths);
    m_heightCount = static_cast<std::uint8_t>(std::min<unsigned>(m_heightCount + 1u, kWidths));
}
