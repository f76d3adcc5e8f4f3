// page/guihtmltext-measure.cpp: see guihtmltext-measure.h.
#include "page/guihtmltext-measure.h"

#include "page/guihtmlsize.h"

#include <QHashFunctions>

#include <algorithm>
#include <cassert>

namespace {

std::uint64_t keyOf(QStringView text)
{
    return qHashBits(text.utf16(), static_cast<std::size_t>(text.size()) * 2, static_cast<std::size_t>(text.size()));
}

} // namespace

// Texts are compared by a 64-bit hash: keeping a copy would double the memory for the text of a page.
guiTextRun const& guiTextMeasures::run(QStringView text, bool isSameText, guiTextFont& font, int points)
{
    bool const isSameFont = m_font == &font && m_points == points && m_generation == guiTextFonts::generation();
    if (isSameText && isSameFont)
        return m_run;
    std::uint64_t const key = keyOf(text);
    if (isSameFont && m_textKey == key)
        return m_run;
    m_run = guiTextRun(text, font, points, true);
    m_textKey = key;
    m_font = &font;
    m_points = static_cast<std::uint16_t>(points);
    m_generation = guiTextFonts::generation();
    m_preferred.width = hotspotWidth = kNoWidth;
    m_heightCount = m_nextHeight = 0;
    return m_run;
}

std::optional<guiTextMeasures::extent> guiTextMeasures::preferred() const
{
    return m_preferred.width == kNoWidth ? std::nullopt : std::optional(m_preferred);
}

std::optional<int> guiTextMeasures::heightFor(int width) const
{
    bool const isPreferredKnown = m_preferred.width != kNoWidth && m_preferred.width < kMaxLayoutPixels;
    if (isPreferredKnown && width >= m_preferred.width - 2 * kTextMargin)
        return m_preferred.height;
    assert(m_heightCount <= kWidths && m_nextHeight < kWidths);
    auto const end = m_heights.begin() + m_heightCount;
    auto const found = std::find_if(m_heights.begin(), end, [width](extent size) { return size.width == width; });
    return found == end ? std::nullopt : std::optional(found->height);
}

void guiTextMeasures::rememberPreferred(extent size)
{
    assert(isMade() && size.width >= 0 && size.height > 0);
    m_preferred = size;
}

void guiTextMeasures::rememberHeight(int width, int height)
{
    assert(isMade() && height > 0);
    m_heights[m_nextHeight] = {width, height};
    m_nextHeight = static_cast<std::uint8_t>((m_nextHeight + 1) % kWidths);
    m_heightCount = static_cast<std::uint8_t>(std::min<unsigned>(m_heightCount + 1u, kWidths));
}
