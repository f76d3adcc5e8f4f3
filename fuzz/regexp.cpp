// fuzz/regexp.cpp: any pattern and any text. Whether the pattern is valid, whether and where it matches first and what
// its groups are is what a plain second matcher says, which tries everything; unless that takes it too long.
//
// Input: length of the pattern, the pattern, the text. Bytes from 0xC0 on are units above 0xFF that have the low byte
// of an ASCII character.
#include "foundation/vela-regexp.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"

#include <array>
#include <optional>
#include <set>
#include <vector>

namespace {

using Units = std::u16string;

struct Item
{
    enum Kind
    {
        kUnit,
        kCopy,
        kOpen,
        kClose,
        kEnd
    };

    bool takes(char16_t unit) const { return units.contains(unit) != isNegated; }

    Kind kind;
    std::set<char16_t> units{}; // of kUnit
    bool isNegated = false;     // any unit: none of the empty set
    bool isRepeated = false;
    int group = 0; // of kCopy, kOpen and kClose
    int size = 1;  // units of a program
};

/// Reads patterns as the header of Expr describes them.
class PlainPattern
{
public:
    explicit PlainPattern(Units pattern)
    {
        isValid = !pattern.empty();
        if (pattern == u"*")
            pattern = u".*";
        isAnchored = pattern.starts_with(u'^');
        m_rest = pattern.substr(isAnchored);
        while (isValid && !m_rest.empty())
            read();
        int size = 2;
        for (Item const& item : items)
            size += item.size;
        isValid = isValid && m_open.empty() && size <= 512;
    }

    std::vector<Item> items;
    bool isAnchored;
    bool isValid;
    int groups = 0;

private:
    char16_t take()
    {
        char16_t const unit = m_rest.front();
        m_rest.erase(0, 1);
        return unit;
    }

    void addUnits(std::set<char16_t> units, bool isNegated, int size)
    {
        items.push_back({.kind = Item::kUnit, .units = std::move(units), .isNegated = isNegated, .size = size});
    }

    void addMark(Item::Kind kind, int group)
    {
        items.push_back({.kind = kind, .group = group, .size = kind == Item::kEnd ? 1 : 2});
    }

    bool canRepeat() const
    {
        return !items.empty() && items.back().kind != Item::kOpen && items.back().kind != Item::kClose;
    }

    void read()
    {
        char16_t const unit = take();
        if (unit == u'.')
            addUnits({}, true, 1);
        else if (unit == u'$' && m_rest.empty())
            addMark(Item::kEnd, 0);
        else if (unit == u'*' && canRepeat())
            items.back().isRepeated = true;
        else if (unit == u'[')
            readSet();
        else if (unit == u'\\' && !m_rest.empty())
            readEscaped();
        else
            addUnits({unit}, false, 2);
    }

    void readEscaped()
    {
        char16_t const unit = take();
        if (unit == u'(') {
            isValid = groups < 9;
            m_open.push_back(groups);
            addMark(Item::kOpen, groups++);
        } else if (unit == u')') {
            isValid = !m_open.empty();
            addMark(Item::kClose, isValid ? m_open.back() : 0);
            if (isValid)
                m_open.pop_back();
        } else if (unit >= u'1' && unit <= u'9') {
            addMark(Item::kCopy, unit - u'1');
        } else {
            addUnits({unit}, false, 2);
        }
    }

    void readSet()
    {
        size_t const begin = m_rest.starts_with(u'^');
        size_t const end = m_rest.find(u']', begin);
        isValid = end != Units::npos;
        if (!isValid)
            return;
        Units members = m_rest.substr(begin, end - begin);
        m_rest.erase(0, end + 1);
        for (size_t i = 1; i + 1 < members.size(); ++i)
            if (members[i] == u'-')
                i += expandRange(members, i);
        addUnits({members.begin(), members.end()}, begin == 1, 2 + static_cast<int>(members.size()));
    }

    /// Puts the units of a range in the place of its dash. Returns how far on the next dash may be.
    static size_t expandRange(Units& members, size_t dash)
    {
        Units between;
        char16_t const last = members[dash + 1];
        for (char16_t unit = members[dash - 1]; (unit & 0xFF) < (last & 0xFF);)
            between += ++unit;
        if (between.ends_with(last))
            between.pop_back();
        bool const isOne = members[dash - 1] == last;
        members.replace(dash, 1 + isOne, between);
        return between.size() - isOne;
    }

    Units m_rest;
    std::vector<int> m_open;
};

struct Span
{
    size_t start = 0;
    size_t end = 0;
    bool isOpened = false;
    bool isClosed = false;
    bool operator==(Span const&) const = default;
};
using Spans = std::array<Span, 9>;

/// Tries everything, in the order in which a match is looked for.
class PlainMatcher
{
public:
    PlainMatcher(PlainPattern const& pattern, Units const& text) : m_items(pattern.items), m_text(text) {}

    /// Whether the items from `item` on match at `at`, and with which groups. Nothing is known when there were too many
    /// steps.
    std::optional<Spans> match(size_t item, size_t at, Spans spans)
    {
        if (item == m_items.size())
            return spans;
        if (++m_steps > kMostSteps)
            return std::nullopt;
        Item const& one = m_items[item];
        if (one.isRepeated)
            return matchRepeated(item, at, spans);
        if (one.kind == Item::kOpen)
            spans[one.group] = {at, 0, true, false};
        if (one.kind == Item::kClose) {
            spans[one.group].end = at;
            spans[one.group].isClosed = true;
        }
        std::optional<size_t> const next = afterOne(one, at, spans);
        return next ? match(item + 1, *next, spans) : std::nullopt;
    }
    bool isGivenUp() const { return m_steps > kMostSteps; }

private:
    static constexpr unsigned kMostSteps = 3000;

    std::optional<Spans> matchRepeated(size_t item, size_t at, Spans const& spans)
    {
        std::vector<size_t> ends{at};
        for (std::optional<size_t> next = at; next && !isGivenUp(); ++m_steps) {
            next = afterOne(m_items[item], *next, spans);
            if (next == ends.back())
                break;
            if (next)
                ends.push_back(*next);
        }
        for (; !ends.empty() && !isGivenUp(); ends.pop_back())
            if (std::optional<Spans> const found = match(item + 1, ends.back(), spans))
                return found;
        return std::nullopt;
    }

    /// Where a single one of the item leads to.
    std::optional<size_t> afterOne(Item const& item, size_t at, Spans const& spans) const
    {
        if (item.kind == Item::kUnit)
            return at < m_text.size() && item.takes(m_text[at]) ? std::optional(at + 1) : std::nullopt;
        if (item.kind == Item::kEnd)
            return at == m_text.size() ? std::optional(at) : std::nullopt;
        if (item.kind != Item::kCopy)
            return at;
        Span const& group = spans[item.group];
        if (!group.isClosed)
            return std::nullopt;
        size_t const length = group.end - group.start;
        bool const isCopy = m_text.compare(at, length, m_text, group.start, length) == 0;
        return isCopy ? std::optional(at + length) : std::nullopt;
    }

    std::vector<Item> const& m_items;
    Units const& m_text;
    unsigned m_steps = 0;
};

Units unitsOf(std::string const& bytes)
{
    Units out;
    for (char byte : bytes) {
        auto const unit = static_cast<unsigned char>(byte);
        if (unit)
            out += static_cast<char16_t>(unit < 0xC0 ? unit : 0x100 + (unit & 0x7F));
    }
    return out;
}

unsigned short const* data(Units const& text) { return reinterpret_cast<unsigned short const*>(text.c_str()); }

std::optional<Spans> subset(Expr const& expr, Units const& text, size_t at)
{
    unsigned short const* starts[9] = {};
    unsigned short const* ends[9] = {};
    if (!expr.MatchSubset(data(text) + at, expr.getProgram(), starts, ends))
        return std::nullopt;
    Spans spans;
    for (size_t i = 0; i < spans.size(); ++i)
        if (starts[i])
            spans[i] = {static_cast<size_t>(starts[i] - data(text)), static_cast<size_t>(ends[i] - data(text)), true,
                        true};
    return spans;
}

void check(PlainPattern const& pattern, Expr const& expr, Units const& text)
{
    bool isFound = false;
    size_t const lastStart = pattern.isAnchored ? 0 : text.size();
    PlainMatcher matcher(pattern, text);
    for (size_t at = 0; at <= lastStart && !isFound; ++at) {
        std::optional<Spans> const expected = matcher.match(0, at, {});
        if (matcher.isGivenUp())
            return;
        isFound = expected.has_value();
        if (isFound || at == 0) // for the others what the search says is enough
            require(subset(expr, text, at) == expected, "another match from a position");
    }
    require((expr == sstring(data(text))) == isFound, "a match is found or not as it should not");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    silenceLog(); // matches of too many steps
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    FuzzBytes input(bytes, size);
    size_t const length = input.byte();
    Units const patternText = unitsOf(input.text(length));
    Units const text = unitsOf(input.rest());
    PlainPattern const pattern(patternText);
    Expr expr{sstring(data(patternText))};
    require((expr.Compile() != 0) == pattern.isValid, "a pattern is valid or not as it should not be");
    if (pattern.isValid)
        check(pattern, expr, text);
    else
        require(expr != sstring(data(text)), "an invalid pattern matches");
    return 0;
}
