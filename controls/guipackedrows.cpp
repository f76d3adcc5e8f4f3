// controls/guipackedrows.cpp: see guipackedrows.h. In front stand four units: bit 0: there are parents, bit 1: there
// are icons; how many texts each row has; how many rows there are, in two units, the lower one first. Then a unit of
// states for each row, two units for the length of each field, and the
// fields themselves: of each row its value, its texts, the value of its parent and the name of its icon.
#include "controls/guipackedrows.h"

#include <cassert>

namespace {

constexpr qsizetype kHead = 4;
constexpr unsigned kHasParents = 1;
constexpr unsigned kHasIcons = 2;
constexpr unsigned kMaxTexts = 1000; // a page's list has a handful of columns

enum stateBit : unsigned
{
    kIndicator = 3,
    kChecked = 4,
    kSelected = 8,
    kDisabled = 16,
    kCollapsed = 32,
    kExpanded = 64,
};

std::uint32_t numberAt(QStringView units, qsizetype at)
{
    return units[at].unicode() | (std::uint32_t{units[at + 1].unicode()} << 16);
}

void appendNumber(QString& units, std::uint32_t number)
{
    units.append(QChar(static_cast<char16_t>(number & 0xFFFF)));
    units.append(QChar(static_cast<char16_t>(number >> 16)));
}

} // namespace

bool guiPackedRows::readHead(QStringView& packed)
{
    if (packed.size() < kHead)
        return false;
    unsigned const kinds = packed[0].unicode();
    m_parents = (kinds & kHasParents) != 0;
    m_icons = (kinds & kHasIcons) != 0;
    m_texts = packed[1].unicode();
    std::uint64_t const count = numberAt(packed, 2);
    packed = packed.mid(kHead);
    if (m_texts > kMaxTexts || static_cast<std::uint64_t>(packed.size()) < count * (1 + 2ull * fields()))
        return false;
    m_states.resize(count);
    for (std::size_t row = 0; row < count; ++row)
        m_states[row] = static_cast<std::uint8_t>(packed[static_cast<qsizetype>(row)].unicode());
    packed = packed.mid(static_cast<qsizetype>(count));
    return true;
}

bool guiPackedRows::readEnds(QStringView& packed)
{
    std::size_t const fieldCount = m_states.size() * fields();
    m_ends.resize(fieldCount + 1);
    std::uint64_t end = 0;
    for (std::size_t i = 0; i < fieldCount; ++i) {
        end += numberAt(packed, static_cast<qsizetype>(i * 2));
        m_ends[i + 1] = static_cast<std::uint32_t>(end);
    }
    packed = packed.mid(static_cast<qsizetype>(fieldCount * 2));
    return end == static_cast<std::uint64_t>(packed.size());
}

std::shared_ptr<guiPackedRows const> guiPackedRows::read(QStringView packed)
{
    auto rows = std::make_shared<guiPackedRows>();
    if (!rows->readHead(packed) || !rows->readEnds(packed))
        return nullptr;
    rows->m_text = packed.toString();
    return rows;
}

guiPackedState guiPackedRows::state(unsigned row) const
{
    unsigned const bits = m_states[row];
    auto has = [bits](stateBit bit) { return (bits & bit) != 0; };
    return {bits & kIndicator, has(kChecked), has(kSelected), has(kDisabled), has(kCollapsed), has(kExpanded)};
}

QStringView guiPackedRows::field(unsigned row, unsigned which) const
{
    std::size_t const at = std::size_t{row} * fields() + which;
    assert(at + 1 < m_ends.size());
    return QStringView(m_text).mid(m_ends[at], m_ends[at + 1] - m_ends[at]);
}

void guiRowPacker::addState(guiPackedState const& state)
{
    unsigned bits = state.indicator;
    bits |= state.isChecked ? kChecked : 0u;
    bits |= state.isSelected ? kSelected : 0u;
    bits |= state.isDisabled ? kDisabled : 0u;
    bits |= state.isCollapsed ? kCollapsed : 0u;
    bits |= state.isExpanded ? kExpanded : 0u;
    m_states.append(QChar(static_cast<char16_t>(bits)));
}

void guiRowPacker::addField(QStringView text)
{
    appendNumber(m_lengths, static_cast<std::uint32_t>(text.size()));
    m_text.append(text);
}

QString guiRowPacker::packed() const
{
    QString head;
    head.append(QChar(static_cast<char16_t>(m_isWhole ? kHasParents | kHasIcons : 0)));
    head.append(QChar(static_cast<char16_t>(m_texts)));
    appendNumber(head, static_cast<std::uint32_t>(m_states.size()));
    return head + m_states + m_lengths + m_text;
}
