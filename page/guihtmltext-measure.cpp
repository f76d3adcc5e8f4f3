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

constexpr std::uint32_t kSizesMask = (1u << 28) - 1;
constexpr std::uint32_t kFew = 3; // what a count of heights can hold
constexpr unsigned kPointsBits = 9;
constexpr unsigned kFontBits = 10;
constexpr unsigned kLengthBits = 9;

std::uint32_t within(unsigned value, unsigned bits) { return std::min(value, (1u << bits) - 1); }

} // namespace

// What is larger than its bits is larger than any font can be.
std::uint32_t guiTextMeasures::sizesOf(int points, guiTextScale scale)
{
    return within(static_cast<unsigned>(std::max(points, 0)), kPointsBits) |
           within(scale.font, kFontBits) << kPointsBits |
           within(scale.length, kLengthBits) << (kPointsBits + kFontBits);
}

int guiTextMeasures::margins() const { return 2 * guiZoomedLength(kTextMargin, m_sizes >> (kPointsBits + kFontBits)); }

// Texts are compared by a 64-bit hash: keeping a copy would double the memory for the text of a page.
guiTextRun const& guiTextMeasures::run(QStringView text, bool isSameText, guiTextFont& font, int points,
                                       guiTextScale scale, guiDirection direction)
{
    std::uint32_t const sizes = sizesOf(points, scale) & kSizesMask;
    bool const isSameFont = m_font == &font && m_sizes == sizes && m_generation == guiTextFonts::generation();
    if (isSameText && isSameFont)
        return m_run;
    std::uint64_t const key = keyOf(text);
    if (isSameFont && m_textKey == key)
        return m_run;
    m_run = guiTextRun(text, font, points, true, scale, direction);
    m_textKey = key;
    m_font = &font;
    m_sizes = sizes;
    m_generation = guiTextFonts::generation();
    m_preferred.width = hotspotWidth = kNoWidth;
    m_heightCount = 0;
    m_nextHeight = 0;
    return m_run;
}

std::optional<guiTextMeasures::extent> guiTextMeasures::preferred() const
{
    return m_preferred.width == kNoWidth ? std::nullopt : std::optional(m_preferred);
}

std::optional<int> guiTextMeasures::heightFor(int width) const
{
    bool const isPreferredKnown = m_preferred.width != kNoWidth && m_preferred.width < kMaxLayoutPixels;
    if (isPreferredKnown && width >= m_preferred.width - margins())
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
    m_nextHeight = (m_nextHeight + 1) % kWidths & kFew;
    m_heightCount = std::min<unsigned>(m_heightCount + 1u, kWidths) & kFew;
}
