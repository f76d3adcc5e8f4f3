// tests/foundation/string-c_test.cpp: the C-string functions, each checked for 8-bit and 16-bit text.

#include "tests/foundation/strings.h"

#include <climits>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

/// The 8-bit functions, under names that the 16-bit ones share.
struct Narrow
{
    using Unit = unsigned char;
    static constexpr auto len = strlen8;
    static constexpr auto cpy = strcpy8;
    static constexpr auto cat = strcat8;
    static constexpr auto ncat = strncat8;
    static constexpr auto ncpy = strncpy8;
    static constexpr auto cmp = strcmp8;
    static constexpr auto ncmp = strncmp8;
    static constexpr auto icmp = stricmp8;
    static constexpr auto nicmp = strnicmp8;
    static constexpr auto chr = strchr8;
    static constexpr auto rchr = strrchr8;
    static constexpr auto str = strstr8;
    static constexpr auto rstr = strrstr8;
    static constexpr auto cspn = strcspn8;
    static constexpr auto spn = strspn8;
    static constexpr auto pbrk = strpbrk8;
    static constexpr auto dup = strdup8;
    static constexpr auto tok = strtok8;
    static constexpr auto lwr = strlwr8;
    static constexpr auto upr = strupr8;
    static constexpr auto lower = tolower8;
    static constexpr auto upper = toupper8;
    static constexpr auto toInt = atoi8;
    static constexpr auto toLong = atol8;
    static constexpr auto toDouble = atof8;
    static constexpr auto alloc = malloc8;
    static constexpr auto release = free8;
};

struct Wide
{
    using Unit = unsigned short;
    static constexpr auto len = strlen16;
    static constexpr auto cpy = strcpy16;
    static constexpr auto cat = strcat16;
    static constexpr auto ncat = strncat16;
    static constexpr auto ncpy = strncpy16;
    static constexpr auto cmp = strcmp16;
    static constexpr auto ncmp = strncmp16;
    static constexpr auto icmp = stricmp16;
    static constexpr auto nicmp = strnicmp16;
    static constexpr auto chr = strchr16;
    static constexpr auto rchr = strrchr16;
    static constexpr auto str = strstr16;
    static constexpr auto rstr = strrstr16;
    static constexpr auto cspn = strcspn16;
    static constexpr auto spn = strspn16;
    static constexpr auto pbrk = strpbrk16;
    static constexpr auto dup = strdup16;
    static constexpr auto tok = strtok16;
    static constexpr auto lwr = strlwr16;
    static constexpr auto upr = strupr16;
    static constexpr auto lower = tolower16;
    static constexpr auto upper = toupper16;
    static constexpr auto toInt = atoi16;
    static constexpr auto toLong = atol16;
    static constexpr auto toDouble = atof16;
    static constexpr auto alloc = malloc16;
    static constexpr auto release = free16;
};

template <class Flavour>
class StringC : public testing::Test
{
protected:
    using Unit = typename Flavour::Unit;

    /// A text with room for appending, which lives until the test ends.
    Unit* t(char const* text)
    {
        m_texts.emplace_back(new Unit[64]());
        std::copy_n(text, std::strlen(text), m_texts.back().get());
        return m_texts.back().get();
    }

    static std::string back(Unit const* text)
    {
        std::string result;
        for (; *text; ++text)
            result += static_cast<char>(*text);
        return result;
    }

private:
    std::vector<std::unique_ptr<Unit[]>> m_texts;
};

struct FlavourNames
{
    template <class Flavour>
    static std::string GetName(int)
    {
        return sizeof(typename Flavour::Unit) == 1 ? "Bytes" : "Units";
    }
};

using Flavours = testing::Types<Narrow, Wide>;
TYPED_TEST_SUITE(StringC, Flavours, FlavourNames);

int sign(int value) { return (value > 0) - (value < 0); }

} // namespace

TYPED_TEST(StringC, CopiesAndAppends)
{
    auto* to = this->t("old text");
    EXPECT_EQ(TypeParam::cpy(to, this->t("ab")), to);
    EXPECT_EQ(TypeParam::cat(to, this->t("cd")), to);
    EXPECT_EQ(TypeParam::ncat(to, this->t("efgh"), 2), to);
    EXPECT_EQ(TypeParam::ncat(to, this->t("g"), 5), to);
    EXPECT_EQ(this->back(to), "abcdefg");
    EXPECT_EQ(TypeParam::len(to), 7u);
    EXPECT_EQ(TypeParam::len(this->t("")), 0u);
}

TYPED_TEST(StringC, CountedCopyPadsWithZerosAndMayLeaveTheTerminatorOut)
{
    auto* to = this->t("123456");
    TypeParam::ncpy(to, this->t("ab"), 4);
    EXPECT_EQ(this->back(to), "ab");
    EXPECT_EQ(to[3], 0);
    EXPECT_EQ(to[4], '5');
    TypeParam::ncpy(to, this->t("xyz"), 2);
    EXPECT_EQ(this->back(to), "xy");
    to[2] = 'q';
    TypeParam::ncpy(to, this->t("AB"), 2);
    EXPECT_EQ(to[2], 'q');
}

TYPED_TEST(StringC, Compares)
{
    EXPECT_EQ(TypeParam::cmp(this->t("ab"), this->t("ab")), 0);
    EXPECT_EQ(sign(TypeParam::cmp(this->t("ab"), this->t("abc"))), -1);
    EXPECT_EQ(sign(TypeParam::cmp(this->t("b"), this->t("abc"))), 1);
    EXPECT_EQ(TypeParam::ncmp(this->t("abX"), this->t("abY"), 2), 0);
    EXPECT_EQ(sign(TypeParam::ncmp(this->t("abX"), this->t("abY"), 3)), -1);
    EXPECT_EQ(TypeParam::ncmp(this->t("ab"), this->t("ab"), 100), 0);
    EXPECT_EQ(TypeParam::ncmp(this->t("a"), this->t("b"), 0), 0);
}

TYPED_TEST(StringC, CaselessComparisonGivesTheDifferenceOfTheFoldedCharacters)
{
    EXPECT_EQ(TypeParam::icmp(this->t("HeLLo"), this->t("hEllO")), 0);
    EXPECT_EQ(TypeParam::icmp(this->t("aB"), this->t("AD")), 'b' - 'd');
    EXPECT_EQ(TypeParam::icmp(this->t("ab"), this->t("A")), 'b');
    EXPECT_EQ(TypeParam::nicmp(this->t("ABx"), this->t("aby"), 2), 0);
    EXPECT_EQ(TypeParam::nicmp(this->t("ABx"), this->t("abY"), 3), -1);
}

TYPED_TEST(StringC, FindsCharacters)
{
    auto* text = this->t("banana");
    EXPECT_EQ(TypeParam::chr(text, 'a'), text + 1);
    EXPECT_EQ(TypeParam::rchr(text, 'a'), text + 5);
    EXPECT_EQ(TypeParam::chr(text, 0), text + 6);
    EXPECT_EQ(TypeParam::rchr(text, 0), text + 6);
    EXPECT_EQ(TypeParam::chr(text, 'q'), nullptr);
    EXPECT_EQ(TypeParam::rchr(text, 'q'), nullptr);
}

TYPED_TEST(StringC, FindsText)
{
    auto* text = this->t("banana");
    EXPECT_EQ(TypeParam::str(text, this->t("ana")), text + 1);
    EXPECT_EQ(TypeParam::rstr(text, this->t("ana")), text + 3);
    EXPECT_EQ(TypeParam::str(text, this->t("")), text);
    EXPECT_EQ(TypeParam::rstr(text, this->t("")), text + 6);
    EXPECT_EQ(TypeParam::str(text, this->t("nas")), nullptr);
    EXPECT_EQ(TypeParam::rstr(text, this->t("nas")), nullptr);
    EXPECT_EQ(TypeParam::str(text, this->t("bananas")), nullptr);
}

TYPED_TEST(StringC, MeasuresSpans)
{
    auto* text = this->t("  key=value");
    EXPECT_EQ(TypeParam::spn(text, this->t(" ")), 2u);
    EXPECT_EQ(TypeParam::cspn(text, this->t("=;")), 5u);
    EXPECT_EQ(TypeParam::cspn(text, this->t("#")), 11u);
    EXPECT_EQ(TypeParam::spn(text, this->t("")), 0u);
    EXPECT_EQ(TypeParam::pbrk(text, this->t(";=")), text + 5);
    EXPECT_EQ(TypeParam::pbrk(text, this->t("#")), nullptr);
}

TYPED_TEST(StringC, DuplicatesIntoABlockOfItsOwn)
{
    auto* text = this->t("copy");
    auto* copy = TypeParam::dup(text);
    text[0] = 'X';
    EXPECT_EQ(this->back(copy), "copy");
    TypeParam::release(copy);
    auto* block = TypeParam::alloc(3);
    block[2] = 1;
    TypeParam::release(block);
    TypeParam::release(nullptr);
}

TYPED_TEST(StringC, TokenizerSkipsEmptyTokens)
{
    auto* separators = this->t(",;");
    EXPECT_EQ(this->back(TypeParam::tok(this->t(",,a;b,;c,"), separators)), "a");
    EXPECT_EQ(this->back(TypeParam::tok(nullptr, separators)), "b");
    EXPECT_EQ(this->back(TypeParam::tok(nullptr, separators)), "c");
    EXPECT_EQ(TypeParam::tok(nullptr, separators), nullptr);
    EXPECT_EQ(TypeParam::tok(nullptr, separators), nullptr);
    EXPECT_EQ(TypeParam::tok(this->t(",,"), separators), nullptr);
}

TYPED_TEST(StringC, FoldsCase)
{
    EXPECT_EQ(TypeParam::lower('A'), 'a');
    EXPECT_EQ(TypeParam::upper('z'), 'Z');
    EXPECT_EQ(TypeParam::lower('1'), '1');
    auto* text = this->t("MiXed 1");
    EXPECT_EQ(TypeParam::lwr(text), text);
    EXPECT_EQ(this->back(text), "mixed 1");
    EXPECT_EQ(this->back(TypeParam::upr(text)), "MIXED 1");
}

TYPED_TEST(StringC, ReadsNumbers)
{
    EXPECT_EQ(TypeParam::toInt(this->t("42")), 42);
    EXPECT_EQ(TypeParam::toInt(this->t(" \t-17px")), -17);
    EXPECT_EQ(TypeParam::toInt(this->t("+5")), 5);
    EXPECT_EQ(TypeParam::toInt(this->t("")), 0);
    EXPECT_EQ(TypeParam::toInt(this->t("x1")), 0);
    EXPECT_EQ(TypeParam::toInt(this->t("- 1")), 0);
    EXPECT_EQ(TypeParam::toLong(this->t("9223372036854775807")), LONG_MAX);
    EXPECT_EQ(TypeParam::toLong(this->t("9223372036854775808")), LONG_MAX);
    EXPECT_EQ(TypeParam::toLong(this->t("-9223372036854775808")), LONG_MIN);
    EXPECT_EQ(TypeParam::toLong(this->t("-99999999999999999999999")), LONG_MIN);
    EXPECT_EQ(TypeParam::toLong(this->t("99999999999999999999999")), LONG_MAX);
    EXPECT_EQ(TypeParam::toDouble(this->t(" -2.5e3 x")), -2500.0);
    EXPECT_EQ(TypeParam::toDouble(this->t("none")), 0.0);
}

TEST(StringCUnits, FoldingLosesTheHighByte)
{
    EXPECT_EQ(tolower16(0x0141), 'a');
    EXPECT_EQ(toupper16(0x3061), 'A');
    EXPECT_EQ(tolower16(0x3042), 'b');
    EXPECT_EQ(stricmp16(u16(u"\u0141"), u16(u"a")), 0);
    EXPECT_NE(strcmp16(u16(u"\u0141"), u16(u"a")), 0);
}

TEST(StringCUnits, ComparisonIsByUnsignedValue)
{
    EXPECT_GT(strcmp16(u16(u"\uff01"), u16(u"a")), 0);
    EXPECT_GT(strcmp8(u8("\xff"), u8("a")), 0);
    EXPECT_EQ(atol16(u16(u"\uff11")), 0);
    EXPECT_EQ(atof16(u16(u"1\uff11")), 1.0);
}

TEST(StringCUnits, TheTwoTokenizersKeepSeparatePositions)
{
    unsigned char bytes[] = "a b";
    unsigned short units[] = {'c', ' ', 'd', 0};
    EXPECT_EQ(*strtok8(bytes, u8(" ")), 'a');
    EXPECT_EQ(*strtok16(units, u16(u" ")), 'c');
    EXPECT_EQ(*strtok8(nullptr, u8(" ")), 'b');
    EXPECT_EQ(*strtok16(nullptr, u16(u" ")), 'd');
}

TEST(StringCUnits, FoldedComparisonEndsAtEitherTerminator)
{
    // U+0100 folds to zero. Each block ends with its terminator, so that a sanitizer notices reading past it.
    for (unsigned short unit : {0x100, 0xFF00}) {
        std::vector<unsigned short> const longer{'a', unit, 0};
        std::vector<unsigned short> const shorter{'A', 0};
        EXPECT_EQ(stricmp16(longer.data(), shorter.data()), 0);
        EXPECT_EQ(stricmp16(shorter.data(), longer.data()), 0);
        EXPECT_EQ(strnicmp16(longer.data(), shorter.data(), 9), 0);
        EXPECT_EQ(strnicmp16(shorter.data(), longer.data(), 9), 0);
    }
    // The units after the terminators differ.
    unsigned short const left[] = {0x100, 'x', 0};
    unsigned short const right[] = {0, 'y', 0};
    EXPECT_EQ(stricmp16(left, right), 0);
    EXPECT_EQ(strnicmp16(left, right, 2), 0);
}
