// foundation/vela-regexp-rests.cpp: the table of which rests of a program can match where in a text. It is what bounds
// the time of a match: a walk without it tries the same rest at the same place again and again.
#include "foundation/vela-regexp-p.h"
#include "foundation/vela-regexp.h"

#include <algorithm>

namespace {

unsigned int operandCount(unsigned short const* item)
{
    switch (exprKind(*item)) {
    case kExprAny:
    case kExprEndOfText:
    case kExprMatch:
        return 0;
    case kExprInSet:
    case kExprNotInSet:
        return item[1];
    default:
        return 1;
    }
}

/// Units that the item treats in a way of their own, and how many.
unsigned short const* namedBy(unsigned short const* item, unsigned int* count)
{
    bool const isSet = exprKind(*item) == kExprInSet || exprKind(*item) == kExprNotInSet;
    *count = isSet ? item[1] - 1u : exprKind(*item) == kExprLiteral;
    return isSet ? item + 2 : item + 1;
}

/// The unit is not the terminator.
bool takesUnit(unsigned short const* item, unsigned short unit)
{
    switch (exprKind(*item)) {
    case kExprLiteral:
        return unit == item[1];
    case kExprInSet:
        return Expr::fIsInCharSet(item + 1, unit, false);
    case kExprNotInSet:
        return Expr::fIsInCharSet(item + 1, unit, true);
    case kExprAny:
    case kExprBackReference:
        return true;
    default:
        return false;
    }
}

bool isBackReference(unsigned short const* item) { return exprKind(*item) == kExprBackReference; }
bool isGroupMark(unsigned short const* item) { return *item == kExprGroupStart || *item == kExprGroupEnd; }

} // namespace

ExprRests::ExprRests(unsigned short const* program, unsigned short const* text) : m_text(text), m_length(strlen16(text))
{
    readItems(program);
    classifyItems();
    nameUnits();
    findTakers();
    classifyUnits();
    fillRows();
}

void ExprRests::readItems(unsigned short const* program)
{
    for (; *program != kExprMatch; program += 1 + operandCount(program))
        m_items.push_back(program);
    m_items.push_back(program);
    m_words = static_cast<unsigned int>((m_items.size() + kWordBits - 1) / kWordBits);
}

void ExprRests::classifyItems()
{
    m_repeated.resize(m_words);
    m_passable.resize(m_words);
    for (unsigned int i = 0; i < m_items.size(); ++i) {
        bool const isCopy = isBackReference(m_items[i]);
        bool const isRepeated = isExprRepeated(*m_items[i]) || isCopy;
        m_hasBackReferences |= isCopy;
        if (isRepeated)
            setBit(m_repeated.data(), i);
        if (isRepeated || isGroupMark(m_items[i]))
            setBit(m_passable.data(), i);
    }
}

void ExprRests::nameUnits()
{
    for (unsigned short const* item : m_items) {
        unsigned int count = 0;
        unsigned short const* const units = namedBy(item, &count);
        m_named.insert(m_named.end(), units, units + count);
    }
    std::sort(m_named.begin(), m_named.end());
    m_named.erase(std::unique(m_named.begin(), m_named.end()), m_named.end());
}

/// One that stands for all that the program does not name.
unsigned short ExprRests::unnamedUnit() const
{
    unsigned short unit = 1;
    for (unsigned short named : m_named)
        unit = static_cast<unsigned short>(unit + (named == unit));
    return unit;
}

void ExprRests::findTakers()
{
    m_takers.resize((m_named.size() + 1) * m_words);
    for (size_t u = 0; u <= m_named.size(); ++u) {
        unsigned short const unit = u < m_named.size() ? m_named[u] : unnamedUnit();
        for (unsigned int i = 0; i < m_items.size(); ++i)
            if (takesUnit(m_items[i], unit))
                setBit(m_takers.data() + u * m_words, i);
    }
}

unsigned short ExprRests::classOf(unsigned short unit) const
{
    auto const found = std::lower_bound(m_named.begin(), m_named.end(), unit);
    bool const isNamed = found != m_named.end() && *found == unit;
    return static_cast<unsigned short>((isNamed ? found : m_named.end()) - m_named.begin());
}

void ExprRests::classifyUnits()
{
    m_classes.resize(m_length);
    std::transform(m_text, m_text + m_length, m_classes.begin(), [this](unsigned short unit) { return classOf(unit); });
}

void ExprRests::fillRows()
{
    m_rows.resize((size_t{m_length} + 1) * m_words);
    Word* row = m_rows.data() + size_t{m_length} * m_words;
    fillLastRow(row);
    for (unsigned int at = m_length; at-- > 0; row -= m_words)
        fillRow(row - m_words, row, takersAt(at));
}

void ExprRests::fillLastRow(Word* row) const
{
    for (unsigned int i = 0; i < m_items.size(); ++i)
        if (*m_items[i] == kExprEndOfText || *m_items[i] == kExprMatch)
            setBit(row, i);
    passOn(row);
}

/// An item that takes the unit leads to the rest behind it, or to itself again, at the following position.
void ExprRests::fillRow(Word* row, Word const* following, Word const* takers) const
{
    Word carried = 0;
    for (unsigned int w = 0; w < m_words; ++w) {
        Word const behind = following[w] << 1 | carried;
        carried = following[w] >> (kWordBits - 1);
        row[w] = takers[w] & ((m_repeated[w] & following[w]) | (~m_repeated[w] & behind));
    }
    row[0] |= 1; // kExprMatch
    passOn(row);
}

/// Where the rest behind an item that needs no unit can match, so can the rest from this item on. Sums do this for
/// whole runs of such items: a bit that is added to a run of ones turns over all from there to the end of the run,
/// where the carry stops, since the bit above the run is 0.
void ExprRests::passOn(Word* row) const
{
    Word shiftedOut = 0;
    bool isCarried = false;
    for (unsigned int w = 0; w < m_words; ++w) {
        Word const entered = (row[w] << 1 | shiftedOut) & m_passable[w];
        shiftedOut = row[w] >> (kWordBits - 1);
        Word sum = 0;
        bool const first = __builtin_add_overflow(m_passable[w], entered, &sum);
        bool const second = __builtin_add_overflow(sum, Word{isCarried}, &sum);
        isCarried = first || second;
        row[w] |= entered | ((sum ^ m_passable[w]) & m_passable[w]);
    }
}

void ExprRests::setBit(Word* words, unsigned int index) const
{
    size_t const bit = m_items.size() - 1 - index;
    words[bit / kWordBits] |= Word{1} << bit % kWordBits;
}

bool ExprRests::hasBit(Word const* words, unsigned int index) const
{
    size_t const bit = m_items.size() - 1 - index;
    return words[bit / kWordBits] >> bit % kWordBits & 1;
}
