// page/guihtmltext-levels.h: in which direction the characters of a run are written (Unicode Standard Annex #9), across
// its formatting: the algorithm sees the text without the codes.
#pragma once

#include "page/guitypes.h"

#include <QStringView>

#include <cstdint>
#include <span>
#include <vector>

/// The level of a unit and of the paragraph around it. Odd levels are written from right to left.
class guiTextLevel
{
public:
    constexpr guiTextLevel() = default;
    constexpr guiTextLevel(unsigned level, bool isParagraphFromTheRight)
        : m_bits(static_cast<std::uint8_t>(level | (isParagraphFromTheRight ? kParagraph : 0)))
    {}

    constexpr unsigned level() const { return m_bits & (kParagraph - 1u); }
    constexpr bool isFromTheRight() const { return level() % 2 != 0; }
    constexpr bool isParagraphFromTheRight() const { return (m_bits & kParagraph) != 0; }
    /// The level of what stands at the end of a line: that of the paragraph.
    constexpr unsigned paragraphLevel() const { return isParagraphFromTheRight() ? 1 : 0; }
    constexpr bool operator==(guiTextLevel const&) const = default;

private:
    static constexpr unsigned kParagraph = 0x80; // levels end at 126

    std::uint8_t m_bits = 0;
};
static_assert(sizeof(guiTextLevel) == 1);

/// Whether any of the text may be written from right to left. Any thread.
bool guiMayTurn(QStringView text);

/// A level for each unit of a run's text, codes included; a line break starts a new paragraph. Empty when all of it is
/// written from left to right. Time is linear. GUI thread.
std::vector<guiTextLevel> guiLevelsOf(QStringView run, guiDirection direction);

/// What the levels of the characters of one line mean for their order: stores in `order` the indexes of its parts from
/// left to right (rule L2). Time is linear in the parts times the different levels.
void guiOrderByLevels(std::span<std::uint8_t const> levels, std::vector<std::uint32_t>& order);
