// foundation/vela-regexp-p.h: what compiling and matching a pattern expression share: the codes of its program, the
// table of what can still match, and the walk through a program. Not part of the public interface.
#pragma once

#include "foundation/vela-array.h"

#include <cstdint>

/// A program is items, each a code and its operands, and a zero behind the last one.
enum ExprCode : unsigned short
{
    kExprLiteral = 2,        ///< the unit
    kExprAny = 4,            ///< no operand
    kExprInSet = 6,          ///< 1 + number of members, then the members
    kExprNotInSet = 8,       ///< the same
    kExprBackReference = 10, ///< group, 0 to 8
    kExprGroupStart = 252,   ///< group
    kExprGroupEnd = 253,     ///< group
    kExprEndOfText = 254,    ///< no operand; only right before kExprMatch
    kExprMatch = 255         ///< no operand
};
/// Added to one of the first five codes: as many of the item as fit.
constexpr unsigned short kExprRepeated = 1;

inline bool isExprRepeated(unsigned short code) { return code < kExprGroupStart && code & kExprRepeated; }
/// The code of a single one.
inline unsigned int exprKind(unsigned short code) { return isExprRepeated(code) ? code - kExprRepeated : code; }

constexpr unsigned int kExprGroups = 9;

/// Where the groups of a match are in its text; null where a group has not begun or ended.
struct ExprGroups
{
    unsigned short const* starts[kExprGroups] = {};
    unsigned short const* ends[kExprGroups] = {};
};

/// Compiles what stands behind the anchor into a buffer of Expr::programUnits units. False when it is invalid; the
/// buffer's content then means nothing.
bool compileExpr(unsigned short const* pattern, unsigned short* program);

/// For each position of a text and each item of a program: whether the rest of the program, from that item on, can
/// match there. It is exact but for back-references, which are taken to match text of any length.
///
/// A row of bits per position, one bit per item, worked out from the end of the text to its beginning, 64 items at a
/// time. Bit 0 is the last item, so that what an item learns from the one behind it moves up, as carries do.
class ExprRests
{
public:
    /// Both must outlive the table. The program may be the rest of one, from an item on.
    ExprRests(unsigned short const* program, unsigned short const* text);

    unsigned short const* text() const { return m_text; }
    unsigned int textLength() const { return m_length; }
    bool hasBackReferences() const { return m_hasBackReferences; }
    /// Code and operands of item 0, 1, ...
    unsigned short const* item(unsigned int index) const { return m_items[index]; }
    /// Whether the item takes the unit at that position.
    bool takes(unsigned int index, unsigned int at) const { return hasBit(takersAt(at), index); }
    /// Whether the program can match from that item on, at that position (0 to the length of the text).
    bool canMatch(unsigned int index, unsigned int at) const { return hasBit(row(at), index); }

private:
    using Word = uint64_t;
    static constexpr unsigned int kWordBits = 64;

    void readItems(unsigned short const* program);
    void classifyItems();
    void nameUnits();
    void findTakers();
    void classifyUnits();
    void fillRows();
    void fillLastRow(Word* row) const;
    void fillRow(Word* row, Word const* following, Word const* takers) const;
    void passOn(Word* row) const;

    unsigned short unnamedUnit() const;
    unsigned short classOf(unsigned short unit) const;
    Word const* takersAt(unsigned int at) const { return m_takers.data() + size_t{m_classes[at]} * m_words; }
    Word const* row(unsigned int at) const { return m_rows.data() + size_t{at} * m_words; }
    void setBit(Word* words, unsigned int index) const;
    bool hasBit(Word const* words, unsigned int index) const;

    unsigned short const* m_text;
    unsigned int m_length;
    bool m_hasBackReferences = false;
    velaArray<unsigned short const*> m_items;
    unsigned int m_words = 0;            ///< of a row
    velaArray<unsigned short> m_named;   ///< units that the program names, sorted
    velaArray<Word> m_takers;            ///< a row for each of these, and one for all others: the items that take it
    velaArray<Word> m_repeated;          ///< a row: the items that may be repeated
    velaArray<Word> m_passable;          ///< a row: the items that can match no unit at all
    velaArray<unsigned short> m_classes; ///< for each unit of the text its place in m_named, or behind the last one
    velaArray<Word> m_rows;              ///< a row per position, the terminator's included
};

/// Walks a program through a text, item by item, and tries again with less when a repeated item took too much. Where
/// the table says that the rest can not match, it is not tried.
class ExprWalk
{
public:
    /// Records the groups of a match in `groups`; when there is none they stay as they were.
    ExprWalk(ExprRests const& rests, ExprGroups& groups) : m_rests(rests), m_groups(groups) {}

    /// Whether the program matches at some position up to `lastStart`.
    bool findMatch(unsigned int lastStart);
    bool matchAt(unsigned int start);

    /// Steps that a walk may take: an item that is tried is one, and so are 8 units that are read.
    static constexpr unsigned int kMostSteps = 1000000;
    unsigned int steps() const { return m_steps; }
    /// Nothing matches any more: there were too many steps.
    bool isExhausted() const { return m_steps > kMostSteps; }

private:
    bool matchFrom(unsigned int item, unsigned int at);
    bool matchRepeated(unsigned int item, unsigned int at);
    void record(unsigned short const* item, unsigned int at);
    unsigned int lengthOfOne(unsigned short const* item) const;
    unsigned int longestEnd(unsigned int item, unsigned int at);
    unsigned int endOfRun(unsigned int item, unsigned int at);
    unsigned int endOfCopies(unsigned int group, unsigned int at);
    bool repeatsGroup(unsigned int group, unsigned int at);
    unsigned int groupLength(unsigned int group) const;
    void countRead(unsigned int units) { m_steps += units / 8; }

    ExprRests const& m_rests;
    ExprGroups& m_groups;
    unsigned int m_steps = 0;
};
