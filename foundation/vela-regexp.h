// foundation/vela-regexp.h: pattern expressions, which say for which names something is meant.
#pragma once

#include "foundation/vela-string.h"

/// A pattern, compiled once and then compared with any number of texts. Everything is in 16-bit units and
/// case-sensitive; patterns and texts end at their terminator.
///
/// | pattern | matches |
/// |---|---|
/// | `.` | any unit |
/// | `[abc]` `[a-z]` | one unit of the set; no unit at all when it is empty |
/// | `[^a-z]` | one unit that is not in the set |
/// | `*` behind one of these, a plain unit or a `\1` | as many of it as fit, or fewer, or none |
/// | `*` at the beginning, or right behind `\(` or `\)` | itself |
/// | `^` at the very beginning | only the beginning of the text |
/// | `$` at the very end | only the end of the text |
/// | `\(` `\)` | a group: what is between them |
/// | `\1` to `\9` | what the first to ninth group has matched |
/// | `\` before any other unit | that unit |
/// | any other unit | itself; so does a `\` that is the last unit |
///
/// Groups are numbered as they open, at most 9. A `\1` never matches while its group is open. `a**` is `a*`, and the
/// pattern `*` alone is read as `.*`, which matches everything.
///
/// In a set a `-` between two units stands for all from the first up to the one that has the low byte of the second,
/// and for both of these themselves; as the first or the last unit of the set it is itself. The first `]` ends the set,
/// and `\` is a member like others.
///
/// Invalid are the empty pattern, a set without `]`, a group that is not closed or not open, a tenth group, and a
/// pattern whose program takes more than 512 units (255 plain letters fit). An invalid pattern matches nothing.
///
/// Cost: a match without back-references takes time and 8 to 64 bytes of memory for each unit of the text, whatever the
/// pattern is. With back-references the possibilities are tried, at most 1,000,000 steps of them; a match that would
/// take more fails, and says so in one line on standard error. Stack is used in proportion to the pattern alone.
///
/// Threads: matching changes neither the expression nor the text, so any number of threads may match at a time;
/// setting a pattern needs the expression for itself.
///
/// Throws only velaError 12.
class Expr
{
public:
    Expr() = default;
    Expr(sstring const& pattern) { setExpr(pattern); }
    Expr(Expr const& other) : Expr(other.m_pattern) {}
    Expr& operator=(Expr const& other) { return *this = other.m_pattern; }
    Expr& operator=(sstring const& pattern)
    {
        setExpr(pattern);
        return *this;
    }

    /// Stores the pattern and compiles it. Whether it is valid is what Compile() says.
    void setExpr(sstring const& pattern);
    /// The pattern; `.*` when it was set as `*`.
    sstring const& getExpr() const { return m_pattern; }
    /// Compiles the stored pattern. Returns 1, or 0 when it is invalid.
    int Compile();

    /// Whether the pattern matches somewhere in the text, or at its beginning when it is anchored there.
    bool operator==(sstring const& text) const;
    bool operator!=(sstring const& text) const { return !(*this == text); }
    /// The same for a pattern that is needed once.
    static bool Matches(sstring const& pattern, sstring const& text) { return Expr(pattern) == text; }

    // The steps of a match. Groups are given by where they start and end, 9 of each, null where there is none yet.

    /// Units that a program may have.
    static constexpr unsigned int programUnits = 512;
    /// The compiled pattern; begins with 0 when the pattern is invalid.
    unsigned short const* getProgram() const { return m_program.getUnicode(); }
    /// Whether the program, or the rest of one, matches at the beginning of the text; records where its groups are. The
    /// groups are left as they were when it does not match.
    bool MatchSubset(unsigned short const* text, unsigned short const* program, unsigned short const** groupStarts,
                     unsigned short const** groupEnds) const;
    /// Whether the text begins with what the group, 0 to 8, has matched. Never when the group is not closed.
    static bool CompareParen(unsigned int group, unsigned short const* text, unsigned short const* const* groupStarts,
                             unsigned short const* const* groupEnds);
    /// Whether the unit is in the set, or not in it when `negate`; never for the terminator. A set is 1 plus the number
    /// of its members, then the members.
    static bool fIsInCharSet(unsigned short const* set, unsigned short unit, bool negate);

private:
    void reportTooManySteps(char const* method) const;

    bool m_isAnchored = false; ///< the pattern begins with "^"
    sstring m_program;         ///< a buffer of codes, zeros among them: its length is not kept
    sstring m_pattern;
};
