// foundation/vela-regexp-compile.cpp: makes a program of a pattern, in one pass over its units.
#include "foundation/vela-regexp-p.h"
#include "foundation/vela-regexp.h"

namespace {

unsigned int lowByte(unsigned short unit) { return unit & 0xFF; }

class ExprCompiler
{
public:
    ExprCompiler(unsigned short const* pattern, unsigned short* program) : m_at(pattern), m_program(program) {}

    bool compile()
    {
        while (*m_at && !m_isInvalid)
            compileUnit(*m_at++);
        emit(kExprMatch);
        emit(0);
        return !m_isInvalid && m_openCount == 0;
    }

private:
    static constexpr unsigned int kNone = ~0u;

    void compileUnit(unsigned short unit);
    void compileEscaped(unsigned short unit);
    void compileLiteral(unsigned short unit);
    void repeatLast();
    void compileSet();
    void compileMember(bool isFirst);
    void compileRange(unsigned short first, unsigned short last);
    void openGroup();
    void closeGroup();
    void markGroup(ExprCode code, unsigned int group);
    void beginItem(ExprCode code);
    void emit(unsigned int unit);

    unsigned short const* m_at;
    unsigned short* m_program;
    unsigned int m_used = 0;       ///< units of the program
    unsigned int m_last = kNone;   ///< where the item is that a "*" would repeat
    unsigned int m_groupCount = 0; ///< groups opened so far
    unsigned int m_open[kExprGroups] = {};
    unsigned int m_openCount = 0;
    bool m_isInvalid = false;
};

void ExprCompiler::compileUnit(unsigned short unit)
{
    switch (unit) {
    case '.':
        return beginItem(kExprAny);
    case '$':
        return *m_at ? compileLiteral(unit) : beginItem(kExprEndOfText);
    case '*':
        return repeatLast();
    case '[':
        return compileSet();
    case '\\':
        return *m_at ? compileEscaped(*m_at++) : compileLiteral(unit);
    default:
        return compileLiteral(unit);
    }
}

void ExprCompiler::compileEscaped(unsigned short unit)
{
    if (unit == '(')
        return openGroup();
    if (unit == ')')
        return closeGroup();
    if (unit < '1' || unit > '9')
        return compileLiteral(unit);
    beginItem(kExprBackReference);
    emit(unit - '1');
}

void ExprCompiler::compileLiteral(unsigned short unit)
{
    beginItem(kExprLiteral);
    emit(unit);
}

void ExprCompiler::repeatLast()
{
    if (m_last == kNone)
        return compileLiteral('*');
    m_program[m_last] |= kExprRepeated;
}

void ExprCompiler::compileSet()
{
    bool const isNegated = *m_at == '^';
    if (isNegated)
        ++m_at;
    beginItem(isNegated ? kExprNotInSet : kExprInSet);
    unsigned int const countAt = m_used;
    emit(1);
    while (*m_at && *m_at != ']' && !m_isInvalid)
        compileMember(m_used == countAt + 1);
    if (*m_at++ != ']')
        m_isInvalid = true;
    if (!m_isInvalid)
        m_program[countAt] = static_cast<unsigned short>(m_used - countAt);
}

void ExprCompiler::compileMember(bool isFirst)
{
    unsigned short const unit = *m_at++;
    if (unit != '-' || isFirst || *m_at == ']' || !*m_at)
        return emit(unit);
    compileRange(m_program[m_used - 1], *m_at++);
}

/// The first one is a member already.
void ExprCompiler::compileRange(unsigned short first, unsigned short last)
{
    unsigned short unit = first;
    while (lowByte(unit) < lowByte(last))
        emit(++unit);
    if (unit != last)
        emit(last);
}

void ExprCompiler::openGroup()
{
    if (m_groupCount == kExprGroups) {
        m_isInvalid = true;
        return;
    }
    m_open[m_openCount++] = m_groupCount;
    markGroup(kExprGroupStart, m_groupCount++);
}

void ExprCompiler::closeGroup()
{
    if (m_openCount == 0) {
        m_isInvalid = true;
        return;
    }
    markGroup(kExprGroupEnd, m_open[--m_openCount]);
}

void ExprCompiler::markGroup(ExprCode code, unsigned int group)
{
    beginItem(code);
    emit(group);
    m_last = kNone;
}

void ExprCompiler::beginItem(ExprCode code)
{
    m_last = m_used;
    emit(code);
}

void ExprCompiler::emit(unsigned int unit)
{
    if (m_used < Expr::programUnits)
        m_program[m_used++] = static_cast<unsigned short>(unit);
    else
        m_isInvalid = true;
}

} // namespace

bool compileExpr(unsigned short const* pattern, unsigned short* program)
{
    return ExprCompiler(pattern, program).compile();
}
