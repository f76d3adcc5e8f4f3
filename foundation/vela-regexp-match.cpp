// foundation/vela-regexp-match.cpp: the walk of a program through a text. It calls itself once for each repeated item
// of the program, so its depth does not depend on the text.
#include "foundation/vela-regexp-p.h"
#include "foundation/vela-regexp.h"

bool ExprWalk::findMatch(unsigned int lastStart)
{
    for (unsigned int start = 0; start <= lastStart && !isExhausted(); ++start) {
        if (!m_rests.canMatch(0, start))
            continue;
        // Without back-references the table is exact.
        if (!m_rests.hasBackReferences() || matchAt(start))
            return true;
    }
    return false;
}

bool ExprWalk::matchAt(unsigned int start)
{
    ExprGroups const before = m_groups;
    if (matchFrom(0, start))
        return true;
    m_groups = before;
    return false;
}

bool ExprWalk::matchFrom(unsigned int item, unsigned int at)
{
    for (;; ++item) {
        ++m_steps;
        if (isExhausted() || !m_rests.canMatch(item, at))
            return false;
        unsigned short const* const code = m_rests.item(item);
        if (*code == kExprMatch)
            return true;
        if (isExprRepeated(*code))
            return matchRepeated(item, at);
        // That a unit is taken, and that the end is here, is what the table has said.
        if (*code == kExprBackReference && !repeatsGroup(code[1], at))
            return false;
        record(code, at);
        at += lengthOfOne(code);
    }
}

/// A group that opens again has no end any more.
void ExprWalk::record(unsigned short const* item, unsigned int at)
{
    if (*item == kExprGroupEnd)
        m_groups.ends[item[1]] = m_rests.text() + at;
    if (*item != kExprGroupStart)
        return;
    m_groups.starts[item[1]] = m_rests.text() + at;
    m_groups.ends[item[1]] = nullptr;
}

/// Groups that the failed rest has recorded are forgotten: a back-reference to one of them stands before it, too.
bool ExprWalk::matchRepeated(unsigned int item, unsigned int at)
{
    ExprGroups const before = m_groups;
    unsigned int const stride = lengthOfOne(m_rests.item(item));
    for (unsigned int end = longestEnd(item, at); !isExhausted(); end -= stride) {
        if (matchFrom(item + 1, end))
            return true;
        m_groups = before;
        if (end == at)
            return false;
    }
    return false;
}

unsigned int ExprWalk::lengthOfOne(unsigned short const* item) const
{
    switch (exprKind(*item)) {
    case kExprLiteral:
    case kExprAny:
    case kExprInSet:
    case kExprNotInSet:
        return 1;
    case kExprBackReference:
        return groupLength(item[1]);
    default:
        return 0;
    }
}

unsigned int ExprWalk::longestEnd(unsigned int item, unsigned int at)
{
    unsigned short const* const code = m_rests.item(item);
    switch (exprKind(*code)) {
    case kExprAny:
        return m_rests.textLength();
    case kExprBackReference:
        return endOfCopies(code[1], at);
    default:
        return endOfRun(item, at);
    }
}

unsigned int ExprWalk::endOfRun(unsigned int item, unsigned int at)
{
    unsigned int end = at;
    while (end < m_rests.textLength() && m_rests.takes(item, end))
        ++end;
    countRead(end - at);
    return end;
}

/// Any number of empty copies is as long as none.
unsigned int ExprWalk::endOfCopies(unsigned int group, unsigned int at)
{
    unsigned int const length = groupLength(group);
    unsigned int end = at;
    while (length && repeatsGroup(group, end))
        end += length;
    return end;
}

bool ExprWalk::repeatsGroup(unsigned int group, unsigned int at)
{
    ++m_steps;
    countRead(groupLength(group));
    return Expr::CompareParen(group, m_rests.text() + at, m_groups.starts, m_groups.ends);
}

unsigned int ExprWalk::groupLength(unsigned int group) const
{
    unsigned short const* const end = m_groups.ends[group];
    return end ? static_cast<unsigned int>(end - m_groups.starts[group]) : 0;
}
