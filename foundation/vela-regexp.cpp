// foundation/vela-regexp.cpp: what a pattern expression is to its users, and the two comparisons of units.
#include "foundation/vela-regexp.h"

#include "foundation/vela-log.h"
#include "foundation/vela-regexp-p.h"

#include <algorithm>

void Expr::setExpr(sstring const& pattern)
{
    m_pattern = pattern;
    Compile();
}

int Expr::Compile()
{
    if (m_pattern == "*")
        m_pattern = ".*";
    unsigned short const* const pattern = m_pattern.getUnicode();
    unsigned short* const program = m_program.getBuffer(programUnits);
    m_isAnchored = *pattern == '^';
    bool const isValid = *pattern && compileExpr(m_isAnchored ? pattern + 1 : pattern, program);
    if (!isValid)
        *program = 0;
    return isValid;
}

bool Expr::operator==(sstring const& text) const
{
    if (!*getProgram())
        return false;
    ExprRests const rests(getProgram(), text.getUnicode());
    ExprGroups groups;
    ExprWalk walk(rests, groups);
    bool const isFound = walk.findMatch(m_isAnchored ? 0 : rests.textLength());
    if (walk.isExhausted())
        reportTooManySteps("operator==");
    return isFound;
}

bool Expr::MatchSubset(unsigned short const* text, unsigned short const* program, unsigned short const** groupStarts,
                       unsigned short const** groupEnds) const
{
    if (!*program)
        return false;
    ExprRests const rests(program, text);
    ExprGroups groups;
    std::copy_n(groupStarts, kExprGroups, groups.starts);
    std::copy_n(groupEnds, kExprGroups, groups.ends);
    ExprWalk walk(rests, groups);
    bool const isMatch = walk.matchAt(0);
    if (walk.isExhausted())
        reportTooManySteps("MatchSubset");
    std::copy_n(groups.starts, kExprGroups, groupStarts);
    std::copy_n(groups.ends, kExprGroups, groupEnds);
    return isMatch;
}

bool Expr::CompareParen(unsigned int group, unsigned short const* text, unsigned short const* const* groupStarts,
                        unsigned short const* const* groupEnds)
{
    if (!groupEnds[group])
        return false;
    return strncmp16(text, groupStarts[group], static_cast<unsigned int>(groupEnds[group] - groupStarts[group])) == 0;
}

bool Expr::fIsInCharSet(unsigned short const* set, unsigned short unit, bool negate)
{
    bool const isMember = std::find(set + 1, set + *set, unit) != set + *set;
    return unit && isMember != negate;
}

void Expr::reportTooManySteps(char const* method) const
{
    velaLog("Expr::%s() - the match would take more than %u steps: %s\n", method, ExprWalk::kMostSteps,
            velaPrintable(m_pattern).c_str());
}
