// controls/guilistrows.cpp: see guilistrows.h. The index is a table of chains through the rows, made when a row is
// first looked for: a list that is only shown needs none.
#include "controls/guilistrows.h"

#include "foundation/vela-string-c.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace {

constexpr std::size_t kLeastChains = 64;

unsigned short unitAt(QStringView text, qsizetype at) { return at < text.size() ? text[at].unicode() : 0; }

/// Equal for values that are the same: what follows a unit that folds to zero may differ.
std::size_t hashOf(QStringView value)
{
    std::size_t hash = 14695981039346656037u;
    for (QChar const c : value) {
        unsigned short const folded = tolower16(c.unicode());
        if (!folded)
            break;
        hash = (hash ^ folded) * 1099511628211u;
    }
    return hash ^ (hash >> 32);
}

} // namespace

bool guiIsSameValue(QStringView a, QStringView b)
{
    for (qsizetype at = 0;; ++at) {
        unsigned short const left = unitAt(a, at);
        unsigned short const right = unitAt(b, at);
        if (tolower16(left) != tolower16(right))
            return false;
        if (!left || !right)
            return true;
    }
}

guiListRows& guiListRows::operator=(guiListRows const& other)
{
    if (this == &other)
        return *this;
    selected = other.selected;
    m_rows.clear();
    m_rows.resize(other.m_rows.size());
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        rowData const& from = other.m_rows[i];
        m_rows[i] = {from.above,      from.order,
                     from.packed,     kNoRow,
                     from.indicator,  from.isThere,
                     from.isChecked,  from.isEnabled,
                     from.isExpanded, from.own ? std::make_unique<guiRowTexts>(*from.own) : nullptr};
    }
    m_holes = other.m_holes;
    m_top = other.m_top;
    m_under = other.m_under;
    m_packed = other.m_packed;
    m_index.clear();
    m_indicators = other.m_indicators;
    m_disabled = other.m_disabled;
    return *this;
}

// ---- Finding ----

void guiListRows::addToIndex(guiRowNumber row) const
{
    guiRowNumber& head = m_index[hashOf(value(row)) & (m_index.size() - 1)];
    m_rows[row].nextOfHash = std::exchange(head, row);
}

void guiListRows::buildIndex() const
{
    std::size_t chains = kLeastChains;
    while (chains < m_rows.size() * 2)
        chains *= 2;
    m_index.assign(chains, kNoRow);
    for (guiRowNumber row = size(); row > 0; --row)
        if (m_rows[row - 1].isThere)
            addToIndex(row - 1);
}

void guiListRows::removeFromIndex(guiRowNumber row)
{
    if (m_index.empty())
        return;
    guiRowNumber* at = &m_index[hashOf(value(row)) & (m_index.size() - 1)];
    while (*at != row)
        at = &m_rows[*at].nextOfHash;
    *at = m_rows[row].nextOfHash;
}

guiRowNumber guiListRows::find(QStringView value) const
{
    if (m_rows.empty())
        return kNoRow;
    if (m_index.size() < m_rows.size())
        buildIndex();
    guiRowNumber found = kNoRow; // the greatest number there is
    for (guiRowNumber row = m_index[hashOf(value) & (m_index.size() - 1)]; row != kNoRow; row = m_rows[row].nextOfHash)
        if (row < found && guiIsSameValue(this->value(row), value))
            found = row;
    return found;
}

// ---- Which lies under which ----

guiListRows::rowList const& guiListRows::under(guiRowNumber above) const
{
    static rowList const none;
    if (above == kNoRow)
        return m_top;
    auto const found = m_under.find(above);
    return found == m_under.end() ? none : found->second;
}

guiListRows::rowList& guiListRows::listUnder(guiRowNumber above) { return above == kNoRow ? m_top : m_under[above]; }

int guiListRows::placeOf(guiRowNumber row) const
{
    rowList const& beside = under(m_rows[row].above);
    std::uint32_t const order = m_rows[row].order;
    std::size_t const guess = order - m_rows[beside.front()].order;
    if (guess < beside.size() && beside[guess] == row)
        return static_cast<int>(guess);
    auto const found = std::lower_bound(beside.begin(), beside.end(), order,
                                        [this](guiRowNumber each, auto wanted) { return m_rows[each].order < wanted; });
    assert(found != beside.end() && *found == row);
    return static_cast<int>(found - beside.begin());
}

unsigned guiListRows::levelOf(guiRowNumber row) const
{
    unsigned level = 0;
    for (guiRowNumber at = m_rows[row].above; at != kNoRow; at = m_rows[at].above)
        ++level;
    return level;
}

guiRowNumber guiListRows::lifted(guiRowNumber above, unsigned levels) const
{
    unsigned deep = above == kNoRow ? 1 : levelOf(above) + 2;
    for (; deep > levels; --deep)
        above = m_rows[above].above;
    return above;
}

// ---- Adding and removing ----

void guiListRows::append(guiRowNumber row, guiRowNumber above)
{
    rowList& list = listUnder(above);
    m_rows[row].above = above;
    m_rows[row].order = list.empty() ? 0 : m_rows[list.back()].order + 1;
    list.push_back(row);
}

void guiListRows::takeOut(guiRowNumber row)
{
    guiRowNumber const above = m_rows[row].above;
    int const place = placeOf(row);
    rowList& list = listUnder(above);
    list.erase(list.begin() + place);
    if (list.empty() && above != kNoRow)
        m_under.erase(above);
}

guiRowNumber guiListRows::takeHole()
{
    if (m_holes.empty()) {
        m_rows.emplace_back();
        return size() - 1;
    }
    guiRowNumber const row = m_holes.top();
    m_holes.pop();
    m_rows[row] = {};
    return row;
}

guiRowNumber guiListRows::add(guiRowTexts texts, guiRowIndicator indicator, guiRowNumber above)
{
    guiRowNumber const row = takeHole();
    rowData& data = m_rows[row];
    data.isThere = true;
    data.indicator = indicator;
    data.own = std::make_unique<guiRowTexts>(std::move(texts));
    m_indicators += indicator != kRowPlain;
    append(row, above);
    if (m_index.size() >= m_rows.size())
        addToIndex(row); // else a larger one is made when it is needed
    return row;
}

void guiListRows::putBehind(guiRowNumber row, guiRowNumber other)
{
    rowList& list = listUnder(m_rows[other].above);
    std::erase(list, row);
    list.insert(std::find(list.begin(), list.end(), other) + 1, row);
    renumber(list);
}

void guiListRows::remove(guiRowNumber row)
{
    assert(has(row) && !hasRowsUnder(row));
    if (m_index.size() >= m_rows.size())
        removeFromIndex(row);
    takeOut(row);
    m_indicators -= m_rows[row].indicator != kRowPlain;
    setEnabled(row, true);
    selected.erase(row);
    m_rows[row] = {};
    m_holes.push(row);
}

void guiListRows::move(guiRowNumber row, guiRowNumber above)
{
    takeOut(row);
    append(row, above);
}

void guiListRows::clear() { *this = guiListRows(); }

// ---- Packed rows ----

void guiListRows::assignRow(guiRowNumber row, guiRowIndicator usual)
{
    rowData& data = m_rows[row];
    guiPackedState const state = m_packed->state(row);
    data.packed = row;
    data.isThere = true;
    data.indicator = state.indicator > kRowRadio ? usual : static_cast<guiRowIndicator>(state.indicator);
    data.isChecked = state.isChecked && data.indicator != kRowPlain;
    data.isEnabled = !state.isDisabled;
    data.isExpanded = !state.isCollapsed;
    m_indicators += data.indicator != kRowPlain;
    m_disabled += state.isDisabled;
    if (state.isSelected && !state.isDisabled)
        selected.insert(selected.end(), row);
}

/// A row lies under the first row of its parent's value if that stands before it.
int guiListRows::nestAssigned(unsigned levels)
{
    int isDeeper = 0;
    for (guiRowNumber row = 0; row < size(); ++row) {
        QStringView const wanted = parent(row);
        guiRowNumber const found = wanted.isEmpty() ? kNoRow : find(wanted);
        guiRowNumber const above = found < row ? found : kNoRow;
        guiRowNumber const possible = lifted(above, levels);
        isDeeper |= possible != above;
        append(row, possible);
    }
    return isDeeper;
}

int guiListRows::assign(std::shared_ptr<guiPackedRows const> packed, guiRowIndicator usual, unsigned levels)
{
    clear();
    m_packed = std::move(packed);
    m_rows.resize(m_packed->count());
    for (guiRowNumber row = 0; row < size(); ++row)
        assignRow(row, usual);
    if (m_packed->hasParents())
        return nestAssigned(levels);
    m_top.resize(m_rows.size());
    for (guiRowNumber row = 0; row < size(); ++row)
        m_rows[row].order = m_top[row] = row;
    return 0;
}

// ---- Texts ----

QStringView guiListRows::value(guiRowNumber row) const
{
    rowData const& data = m_rows[row];
    return data.own ? QStringView(data.own->value) : m_packed->value(data.packed);
}

QStringView guiListRows::parent(guiRowNumber row) const
{
    rowData const& data = m_rows[row];
    return data.own ? QStringView(data.own->parent) : m_packed->parent(data.packed);
}

QStringView guiListRows::icon(guiRowNumber row) const
{
    rowData const& data = m_rows[row];
    return data.own ? QStringView(data.own->icon) : m_packed->icon(data.packed);
}

QStringView guiListRows::look(guiRowNumber row) const
{
    rowData const& data = m_rows[row];
    return data.own ? QStringView(data.own->look) : m_packed->look(data.packed);
}

unsigned guiListRows::textCount(guiRowNumber row) const
{
    rowData const& data = m_rows[row];
    return data.own ? static_cast<unsigned>(data.own->cells.size()) : m_packed->textCount();
}

QStringView guiListRows::text(guiRowNumber row, unsigned column) const
{
    if (column >= textCount(row))
        return {};
    rowData const& data = m_rows[row];
    return data.own ? QStringView(data.own->cells[column]) : m_packed->text(data.packed, column);
}

guiRowTexts& guiListRows::ownTexts(guiRowNumber row)
{
    rowData& data = m_rows[row];
    if (data.own)
        return *data.own;
    auto own = std::make_unique<guiRowTexts>();
    own->value = value(row).toString();
    own->parent = parent(row).toString();
    own->icon = icon(row).toString();
    own->look = look(row).toString();
    for (unsigned column = 0; column < textCount(row); ++column)
        own->cells.push_back(text(row, column).toString());
    data.own = std::move(own);
    return *data.own;
}

void guiListRows::setText(guiRowNumber row, unsigned column, QString const& text)
{
    std::vector<QString>& cells = ownTexts(row).cells;
    if (column >= cells.size())
        cells.resize(column + 1);
    cells[column] = text;
}

// ---- States ----

void guiListRows::setEnabled(guiRowNumber row, bool on)
{
    m_disabled += m_rows[row].isEnabled;
    m_rows[row].isEnabled = on;
    m_disabled -= on;
}

bool guiListRows::isUsable(guiRowNumber row) const
{
    if (m_disabled == 0)
        return true;
    for (; row != kNoRow; row = m_rows[row].above)
        if (!m_rows[row].isEnabled)
            return false;
    return true;
}

guiRowNumber guiListRows::otherRadioOn(guiRowNumber row) const
{
    for (guiRowNumber const each : under(m_rows[row].above))
        if (each != row && m_rows[each].indicator == kRowRadio && m_rows[each].isChecked)
            return each;
    return kNoRow;
}

// ---- Order ----

void guiListRows::renumber(rowList const& list)
{
    for (std::uint32_t i = 0; i < list.size(); ++i)
        m_rows[list[i]].order = i;
}

void guiListRows::sortList(rowList& list, std::function<bool(guiRowNumber, guiRowNumber)> const& isBefore)
{
    std::stable_sort(list.begin(), list.end(), isBefore);
    renumber(list);
}

void guiListRows::sort(std::function<bool(guiRowNumber, guiRowNumber)> const& isBefore)
{
    sortList(m_top, isBefore);
    for (auto& [above, list] : m_under)
        sortList(list, isBefore);
}
