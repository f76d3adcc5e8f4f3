// controls/guipackedrows.cpp: see guipackedrows.h. In front stand four units: which kinds of fields there are besides
// values and texts (guiPackedKind); how many texts each row has; how many rows there are, in two units, the lower one
// first. Then a unit of states for each row, the length of each field, and the fields themselves: of each row its
// value, its texts, the value of its parent, the name of its icon and its look. A length is one unit; kLong says that
// it follows in two.
#include "controls/guipackedrows.h"

#include "foundation/vela-qt.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace {

constexpr qsizetype kHead = 4;
enum guiPackedKind : unsigned
{
    kHasParents = 1,
    kHasIcons = 2,
    kHasLooks = 4,
};
constexpr std::uint32_t kLong = 0xFFFF;
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
    m_looks = (kinds & kHasLooks) != 0;
    m_texts = packed[1].unicode();
    std::uint64_t const count = numberAt(packed, 2);
    packed = packed.mid(kHead);
    if (m_texts > kMaxTexts || static_cast<std::uint64_t>(packed.size()) < count * (1ull + fields()))
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
    qsizetype at = 0;
    for (std::size_t i = 0; i < fieldCount; ++i) {
        if (at >= packed.size())
            return false;
        std::uint32_t length = packed[at++].unicode();
        if (length == kLong) {
            if (at + 2 > packed.size())
                return false;
            length = numberAt(packed, at);
            at += 2;
        }
        end += length;
        m_ends[i + 1] = static_cast<std::uint32_t>(end);
    }
    packed = packed.mid(at);
    return end == static_cast<std::uint64_t>(packed.size());
}

std::shared_ptr<guiPackedRows const> guiPackedRows::read(sstring packed)
{
    auto rows = std::make_shared<guiPackedRows>();
    rows->m_packed = std::move(packed);
    rows->m_text = sstoview(rows->m_packed);
    if (!rows->readHead(rows->m_text) || !rows->readEnds(rows->m_text))
        return nullptr;
    return rows;
}

std::shared_ptr<guiPackedRows const> guiPackedRows::read(QString const& packed) { return read(qtoss(packed)); }

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
    return m_text.mid(m_ends[at], m_ends[at + 1] - m_ends[at]);
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
    auto const length = static_cast<std::uint32_t>(text.size());
    m_lengths.append(QChar(static_cast<char16_t>(std::min(length, kLong))));
    if (length >= kLong)
        appendNumber(m_lengths, length);
    m_text.append(text);
}

QString guiRowPacker::packed() const
{
    QString head;
    head.append(QChar(static_cast<char16_t>(m_isWhole ? kHasParents | kHasIcons | kHasLooks : 0)));
    head.append(QChar(static_cast<char16_t>(m_texts)));
    appendNumber(head, static_cast<std::uint32_t>(m_states.size()));
    return head + m_states + m_lengths + m_text;
}
