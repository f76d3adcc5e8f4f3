// tests/foundation/regexps.h: patterns and texts of the tests of pattern expressions.
#pragma once

#include "foundation/vela-regexp.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

inline sstring units(std::u16string const& text)
{
    return sstring(reinterpret_cast<unsigned short const*>(text.c_str()));
}
inline sstring units(std::string const& text) { return sstring(text.c_str()); }

inline std::string repeated(std::string const& text, size_t count)
{
    std::string out;
    out.reserve(text.size() * count);
    for (size_t i = 0; i < count; ++i)
        out += text;
    return out;
}

inline bool isValid(std::string const& pattern) { return Expr(units(pattern)).Compile() != 0; }
inline bool matches(std::string const& pattern, std::string const& text)
{
    return Expr::Matches(units(pattern), units(text));
}
inline bool matches(std::u16string const& pattern, std::u16string const& text)
{
    return Expr::Matches(units(pattern), units(text));
}

/// As many units of the compiled pattern as are expected. What is expected ends with 255 and 0.
template <class Text>
testing::AssertionResult hasProgram(Text const& pattern, std::vector<unsigned short> const& expected)
{
    Expr const expr{units(pattern)};
    std::vector<unsigned short> const program(expr.getProgram(), expr.getProgram() + expected.size());
    if (program == expected)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(program);
}

/// MatchSubset() with the groups as text; "-" for one that was not recorded.
class Subset
{
public:
    Subset(std::string const& pattern, std::string const& text) : m_expr(units(pattern)), m_text(units(text))
    {
        isMatch = m_expr.MatchSubset(m_text.getUnicode(), m_expr.getProgram(), starts, ends);
    }

    std::string group(unsigned int index) const
    {
        if (!starts[index] || !ends[index])
            return "-";
        return std::string(starts[index], ends[index]);
    }

    unsigned short const* starts[9] = {};
    unsigned short const* ends[9] = {};
    bool isMatch = false;

private:
    Expr m_expr;
    sstring m_text;
};
