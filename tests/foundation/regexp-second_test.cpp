// tests/foundation/regexp-second_test.cpp: pattern expressions: random patterns and texts, compared with ICU's regular
// expressions, which have another grammar and another engine.
#include "tests/foundation/regexps.h"

#include <cstdlib>
#include <memory>
#include <optional>
#include <random>

#include <unicode/uregex.h>

namespace {

using Units = std::u16string;

/// Writes a pattern in ICU's grammar, from the grammar that vela-regexp.h documents and nothing else of it.
class Translator
{
public:
    explicit Translator(Units const& pattern) : m_pattern(pattern) {}

    /// Nothing when the pattern is invalid.
    std::optional<Units> translated()
    {
        if (m_pattern == u"*")
            return u".*";
        if (m_pattern.empty())
            return std::nullopt;
        if (m_pattern[0] == u'^')
            anchor();
        while (m_isValid && m_at < m_pattern.size())
            translateOne();
        if (!m_isValid || !m_open.empty())
            return std::nullopt;
        return m_out;
    }

private:
    void anchor()
    {
        ++m_at;
        m_out = u"\\A";
    }

    void translateOne()
    {
        char16_t const unit = m_pattern[m_at++];
        bool const isLast = m_at == m_pattern.size();
        if (unit == u'$' && isLast)
            m_out += u"\\z"; // ICU's "$" is before a line feed, too
        else if (unit == u'[')
            set();
        else if (unit == u'\\' && !isLast)
            escaped(m_pattern[m_at++]);
        else
            item(unit == u'.' ? u"." : literal(unit));
    }

    void escaped(char16_t unit)
    {
        if (unit == u'(')
            open();
        else if (unit == u')')
            close();
        else if (unit >= u'1' && unit <= u'9')
            item(copy(unit - u'0'));
        else
            item(literal(unit));
    }

    /// The asterisks behind an item go with it: to ICU two in a row are an error.
    void item(Units const& translation)
    {
        m_out += translation;
        if (m_at < m_pattern.size() && m_pattern[m_at] == u'*')
            m_out += u"*";
        while (m_at < m_pattern.size() && m_pattern[m_at] == u'*')
            ++m_at;
    }

    /// As a number, so that no unit is special to ICU, in a set or outside.
    static Units literal(char16_t unit)
    {
        static char16_t const digits[] = u"0123456789ABCDEF";
        Units out = u"\\u";
        for (int shift = 12; shift >= 0; shift -= 4)
            out += digits[unit >> shift & 15];
        return out;
    }

    /// ICU fails for a group that is not there, and takes a group inside itself for one that can match: what never
    /// matches is said in another way. The brackets keep a digit that follows apart.
    Units copy(int group) const
    {
        bool const isClosed = m_closed.find(static_cast<char16_t>(group)) != Units::npos;
        return isClosed ? u"(?:\\" + Units(1, static_cast<char16_t>(u'0' + group)) + u")" : u"(?:(?!))";
    }

    void open()
    {
        m_isValid = m_groups < 9;
        m_open += static_cast<char16_t>(++m_groups);
        m_out += u"(";
        literalAsterisk();
    }

    void close()
    {
        m_isValid = !m_open.empty();
        if (!m_isValid)
            return;
        m_closed += m_open.back();
        m_open.pop_back();
        m_out += u")";
        literalAsterisk();
    }

    void literalAsterisk()
    {
        if (m_at < m_pattern.size() && m_pattern[m_at] == u'*') {
            ++m_at;
            item(literal(u'*'));
        }
    }

    /// ICU has no empty set, and its sets have operators: members are written one by one.
    void set()
    {
        bool const isNegated = m_at < m_pattern.size() && m_pattern[m_at] == u'^';
        size_t const begin = m_at + isNegated;
        size_t const end = m_pattern.find(u']', begin);
        m_isValid = end != Units::npos;
        if (!m_isValid)
            return;
        m_at = end + 1;
        Units const members = membersOf(m_pattern.substr(begin, end - begin));
        if (members.empty())
            item(isNegated ? u"." : u"(?:(?!))");
        else
            item((isNegated ? u"[^" : u"[") + members + u"]");
    }

    /// The test's units are below 256, where low bytes are the units themselves.
    static Units membersOf(Units const& set)
    {
        Units out;
        for (size_t i = 0; i < set.size(); ++i) {
            out += literal(set[i]);
            if (i + 2 >= set.size() || set[i + 1] != u'-')
                continue;
            // The unit behind the dash is listed by the next turn, which may begin another range with it.
            for (char16_t unit = set[i]; unit < set[i + 2]; ++unit)
                out += literal(unit);
            ++i;
        }
        return out;
    }

    Units m_pattern;
    size_t m_at = 0;
    Units m_out;
    Units m_open;   // numbers of groups
    Units m_closed; // the same
    int m_groups = 0;
    bool m_isValid = true;
};

/// Asterisks that have nothing to repeat are literal: written with a backslash they mean the same everywhere.
Units withLiteralAsterisk(Units const& pattern)
{
    size_t const begin = pattern.starts_with(u"^");
    bool const hasNothingToRepeat = pattern != u"*" && pattern.size() > begin && pattern[begin] == u'*';
    return hasNothingToRepeat ? pattern.substr(0, begin) + u"\\" + pattern.substr(begin) : pattern;
}

struct CloseRegex
{
    void operator()(URegularExpression* regex) const { uregex_close(regex); }
};

/// The second opinion.
class IcuPattern
{
public:
    explicit IcuPattern(Units const& pattern)
    {
        std::optional<Units> const translated = Translator(withLiteralAsterisk(pattern)).translated();
        isValid = translated.has_value();
        if (!isValid)
            return;
        // A dot is any unit, line feeds included.
        m_regex.reset(uregex_open(translated->data(), static_cast<int32_t>(translated->size()), UREGEX_DOTALL, nullptr,
                                  &m_error));
        EXPECT_TRUE(U_SUCCESS(m_error)) << testing::PrintToString(*translated);
    }

    /// Where the first match starts; -1: there is none.
    int find(Units const& text)
    {
        uregex_setText(m_regex.get(), text.data(), static_cast<int32_t>(text.size()), &m_error);
        bool const isFound = uregex_find(m_regex.get(), 0, &m_error);
        int const start = isFound ? uregex_start(m_regex.get(), 0, &m_error) : -1;
        EXPECT_TRUE(U_SUCCESS(m_error));
        return start;
    }

    int groupCount() { return uregex_groupCount(m_regex.get(), &m_error); }
    int start(int group) { return uregex_start(m_regex.get(), group, &m_error); }
    int end(int group) { return uregex_end(m_regex.get(), group, &m_error); }

    bool isValid;

private:
    UErrorCode m_error = U_ZERO_ERROR;
    std::unique_ptr<URegularExpression, CloseRegex> m_regex;
};

/// Patterns and texts over few units, so that they match now and then.
class Generator
{
public:
    Units pattern()
    {
        Units out;
        if (below(6) == 0)
            out += u'^';
        int const count = 1 + below(7);
        for (int i = 0; i < count; ++i)
            out += below(12) == 0 ? anyUnit() : piece();
        if (below(5) == 0)
            out += u'$';
        return out;
    }

    /// No surrogates: to ICU two of them are one character.
    Units text()
    {
        static char16_t const kUnits[] = u"aaaaaaaabbbbbbbbcc12-]*.\\^$[(\n";
        Units out;
        for (int i = below(16); i > 0; --i)
            out += kUnits[below(static_cast<int>(std::size(kUnits)) - 1)];
        return out;
    }

private:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }

    Units piece()
    {
        static char16_t const* const kPieces[] = {
            u"a",     u"a",        u"b",           u"ab",         u".",     u".",     u"a*",     u"b*",
            u".*",    u"[ab]",     u"[ab]*",       u"[^a]",       u"[^b]*", u"[a-c]", u"[^1-b]", u"\\(",
            u"\\)",   u"\\(a*\\)", u"\\(.\\)",     u"\\(.*\\)",   u"\\1",   u"\\1*",  u"\\2",    u"\\2*",
            u"\\3",   u"\\(ab\\)", u"\\([ab]*\\)", u"\\([^1]\\)", u"*",     u"**",    u"[-a]",   u"[b-a*]*",
            u"[1-]*", u"[]",       u"[^]*",        u"\\.",        u"\\*",   u"\\\\",  u"a**",    u"\\1a"};
        return kPieces[below(std::size(kPieces))];
    }

    /// Anything that is special, anywhere.
    Units anyUnit()
    {
        static char16_t const kUnits[] = u"ab1.*[]^-$\\()";
        return Units(1, kUnits[below(static_cast<int>(std::size(kUnits)) - 1)]);
    }

    std::mt19937 m_random{20};
};

unsigned short const* data(Units const& text) { return reinterpret_cast<unsigned short const*>(text.c_str()); }

/// The groups of the first match are ICU's, and no match starts before it.
void expectSameMatch(Expr const& expr, Units const& text, IcuPattern& icu, int start)
{
    for (int at = 0; at <= start; ++at) {
        unsigned short const* starts[9] = {};
        unsigned short const* ends[9] = {};
        ASSERT_EQ(expr.MatchSubset(data(text) + at, expr.getProgram(), starts, ends), at == start) << at;
        for (int group = 0; at == start && group < icu.groupCount(); ++group) {
            ASSERT_EQ(starts[group] - data(text), icu.start(group + 1)) << group;
            ASSERT_EQ(ends[group] - data(text), icu.end(group + 1)) << group;
        }
    }
}

std::string shown(Units const& text) { return std::string(text.begin(), text.end()); }

unsigned int pairsWanted()
{
    char const* const wanted = std::getenv("TARN_REGEXP_PAIRS");
    return wanted ? static_cast<unsigned int>(std::atol(wanted)) : 100000;
}

} // namespace

/// TARN_REGEXP_PAIRS is how many pairs are compared.
TEST(RegexpSecond, AgreesWithIcu)
{
    constexpr unsigned int kTextsOfAPattern = 4;
    Generator random;
    unsigned int pairs = 0, invalid = 0, found = 0, withGroups = 0;
    while (pairs < pairsWanted()) {
        Units const pattern = random.pattern();
        SCOPED_TRACE("pattern " + shown(pattern));
        Expr expr(units(pattern));
        IcuPattern icu(pattern);
        ASSERT_EQ(expr.Compile() != 0, icu.isValid);
        invalid += !icu.isValid;
        for (unsigned int i = 0; i < kTextsOfAPattern && icu.isValid; ++i, ++pairs) {
            Units const text = random.text();
            SCOPED_TRACE("text " + shown(text));
            int const start = icu.find(text);
            ASSERT_EQ(expr == units(text), start >= 0);
            found += start >= 0;
            withGroups += start >= 0 && icu.groupCount() > 0;
            expectSameMatch(expr, text, icu, start);
            if (testing::Test::HasFailure())
                return;
        }
    }
    // Otherwise nothing was compared that is worth it.
    EXPECT_GT(found, pairs / 5);
    EXPECT_LT(found, pairs / 4 * 3);
    EXPECT_GT(withGroups, pairs / 20);
    EXPECT_GT(invalid, pairs / 40);
    testing::Test::RecordProperty("found", static_cast<int>(found));
    testing::Test::RecordProperty("withGroups", static_cast<int>(withGroups));
    testing::Test::RecordProperty("invalid", static_cast<int>(invalid));
}
