// tests/foundation/string-search_test.cpp: finding, replacing and comparing in a string.

#include "tests/foundation/strings.h"

#include <string>

namespace {

constexpr unsigned int npos = sstring::npos;

sstring repeated(char const* text, int times)
{
    sstring result(text);
    return result * (times - 1);
}

/// The definition of rfind: a forward search repeated from one past the last hit.
unsigned int rfindByForwardSearch(sstring const& text, sstring const& wanted, unsigned int limit)
{
    unsigned int last = npos;
    for (unsigned int hit = text.find(wanted, 0); hit != npos; hit = text.find(wanted, hit + 1)) {
        if (limit != npos && hit > limit)
            break;
        last = hit;
    }
    return last;
}

} // namespace

TEST(StringSearch, FindsTheFirstUnitAtOrAfterFrom)
{
    sstring const text("banana");
    EXPECT_EQ(text.find('a'), 1u);
    EXPECT_EQ(text.find('a', 1), 1u);
    EXPECT_EQ(text.find('a', 2), 3u);
    EXPECT_EQ(text.find('q'), 0xFFFFFFFFu);
    EXPECT_EQ(text.find('a', 100), npos);
    EXPECT_EQ(text.find(0), npos);
}

TEST(StringSearch, FindsText)
{
    sstring const text("banana");
    EXPECT_EQ(text.find("an"), 1u);
    EXPECT_EQ(text.find("an", 2), 3u);
    EXPECT_EQ(text.find("ann"), npos);
    EXPECT_EQ(text.find(u16(u"na"), 4), 4u);
    EXPECT_EQ(text.find("bananas"), npos);
    EXPECT_EQ(text.find("", 2), 2u);
    EXPECT_EQ(text.find("", 6), 6u);
    EXPECT_EQ(text.find("", 7), npos);
    EXPECT_EQ(text.find("a", 0xFFFFFFF0u), npos);
}

TEST(StringSearch, FindsUnitsInAndOutsideASet)
{
    sstring const text(u16(u"  x\u3042y "));
    EXPECT_EQ(text.find_any("yx"), 2u);
    EXPECT_EQ(text.find_any("yx", 3), 4u);
    EXPECT_EQ(text.find_any(u16(u"\u3042\u3043")), 3u);
    EXPECT_EQ(text.find_any("B"), npos); // 0x42, the low byte of the third letter
    EXPECT_EQ(text.find_any(""), npos);
    EXPECT_EQ(text.find_none(" "), 2u);
    EXPECT_EQ(text.find_none(" xy"), 3u);
    EXPECT_EQ(text.find_none(u16(u" xy\u3042")), npos); // the terminator never counts
    EXPECT_EQ(text.find_none("", 5), 5u);
}

TEST(StringSearch, FindsBackwardsUpToALimit)
{
    sstring const text("banana");
    EXPECT_EQ(text.rfind('a'), 5u);
    EXPECT_EQ(text.rfind('a', 4), 3u);
    EXPECT_EQ(text.rfind('a', 3), 3u);
    EXPECT_EQ(text.rfind('a', 0), npos);
    EXPECT_EQ(text.rfind('b', 0), 0u);
    EXPECT_EQ(text.rfind('q'), npos);
    EXPECT_EQ(text.rfind("ana"), 3u);
    EXPECT_EQ(text.rfind("ana", 2), 1u);
    EXPECT_EQ(text.rfind("ana", 0), npos);
    EXPECT_EQ(text.rfind_any("nb"), 4u);
    EXPECT_EQ(text.rfind_any("nb", 1), 0u);
    EXPECT_EQ(text.rfind_none("an"), 0u);
    EXPECT_EQ(text.rfind_none("a", 3), 2u);
    EXPECT_EQ(text.rfind_none("abn"), npos);
}

TEST(StringSearch, BackwardSearchIsTheForwardSearchRepeated)
{
    for (char const* pattern : {"", "a", "aa", "ab", "aba", "b", "q"})
        for (char const* content : {"", "a", "aaaa", "abababa", "bbb"})
            for (unsigned int limit : {0u, 1u, 2u, 3u, 5u, 100u, npos})
                EXPECT_EQ(sstring(content).rfind(pattern, limit), rfindByForwardSearch(content, pattern, limit))
                    << pattern << " in " << content << " up to " << limit;
}

TEST(StringSearch, LongPatternsAreFoundLikeShortOnes)
{
    sstring const pattern = repeated("ab", 40);
    sstring const text = repeated("ab", 45) + "x" + repeated("ab", 40) + "c";
    EXPECT_EQ(text.find(pattern), 0u);
    EXPECT_EQ(text.find(pattern, 1), 2u);
    EXPECT_EQ(text.find(pattern, 11), 91u);
    EXPECT_EQ(text.find(pattern, 92), npos);
    EXPECT_EQ(text.rfind(pattern), 91u);
    EXPECT_EQ(text.rfind(pattern, 90), 10u);
    EXPECT_EQ(text.find(pattern + "d"), npos);
    EXPECT_EQ(text.rfind(pattern, 5), rfindByForwardSearch(text, pattern, 5));
}

TEST(StringSearch, RepetitiveTextIsSearchedInLinearTime)
{
    // A search that compares at every position would take 10^11 steps and exceed the time limit.
    sstring const text = repeated("aaaaaaaaaa", 100000);
    sstring const pattern = repeated("aaaaaaaaaa", 10000) + "b";
    EXPECT_EQ(text.find(pattern), npos);
    EXPECT_EQ(text.rfind(pattern), npos);
    EXPECT_EQ(text.rfind(repeated("a", 100000)), 900000u);
}

TEST(StringSearch, PointerSearchesIncludeTheTerminator)
{
    sstring const text("banana");
    unsigned short* start = text.getUnicode();
    EXPECT_EQ(text.strchr('a'), start + 1);
    EXPECT_EQ(text.strrchr('a'), start + 5);
    EXPECT_EQ(text.strchr(0), start + 6);
    EXPECT_EQ(text.strrchr(0), start + 6);
    EXPECT_EQ(text.strchr('q'), nullptr);
    EXPECT_EQ(text.strrchr('q'), nullptr);
    EXPECT_EQ(text.strstr("nan"), start + 2);
    EXPECT_EQ(text.strstr(u8("nax"), 2), start + 2);
    EXPECT_EQ(text.strstr(u16(u"nax")), nullptr);
    EXPECT_EQ(text.strrstr("na"), start + 4);
    EXPECT_EQ(text.strrstr(u8("anx"), 2), start + 3);
    EXPECT_EQ(text.strrstr(u16(u"ana")), start + 3);
    EXPECT_EQ(text.strrstr("x"), nullptr);
}

TEST(StringSearch, ReplacedTextIsNotSearchedAgain)
{
    sstring text("aXa");
    EXPECT_EQ(text.replace("a", "aa"), 5u);
    EXPECT_EQ(text, "aaXaa");
    text = "aaaa";
    EXPECT_EQ(text.replace(u8("aa"), u8("a")), 2u);
    EXPECT_EQ(text, "aa");
}

TEST(StringSearch, ReplacesEveryHitOrOnlyTheFirst)
{
    sstring text("one two one two");
    EXPECT_EQ(text.replace("one", "1", sstring::kReplaceFirst), 13u);
    EXPECT_EQ(text, "1 two one two");
    EXPECT_EQ(text.replace(u16(u"two"), u16(u"three"), static_cast<sstring::ReplaceHowMany>(7)), 15u);
    EXPECT_EQ(text, "1 three one two");
    EXPECT_EQ(text.replace("e", ""), 12u);
    EXPECT_EQ(text, "1 thr on two");
    EXPECT_EQ(text.replace("q", "x"), 12u);
    EXPECT_EQ(text.replace("", "x"), 12u);
    EXPECT_EQ(text.replace(text, text), 12u);
    EXPECT_EQ(text, "1 thr on two");
}

TEST(StringSearch, ReplacesARange)
{
    sstring text("abcdef");
    EXPECT_EQ(text.replace(1, 2, "X"), 5u);
    EXPECT_EQ(text, "aXdef");
    EXPECT_EQ(text.replace(1, 1, "12345"), 9u);
    EXPECT_EQ(text, "a12345def");
    EXPECT_EQ(text.replace(0, 1, "Z"), 9u);
    EXPECT_EQ(text.replace(8, 100, ""), 8u);
    EXPECT_EQ(text, "Z12345de");
    EXPECT_EQ(text.replace(100, 1, "!"), 9u);
    EXPECT_EQ(text.replace(0, 8, text), 10u);
    EXPECT_EQ(text, "Z12345de!!");
}

TEST(StringSearch, ReplacingManyHitsTakesLinearTime)
{
    // Moving the rest at each of the 2 million hits would copy 4 * 10^12 units and exceed the time limit.
    sstring text = repeated("ab", 2000000);
    EXPECT_EQ(text.replace("a", "xyz"), 8000000u);
    EXPECT_EQ(text.subString(7999996), "xyzb");
    EXPECT_EQ(text.replace("xyz", ""), 2000000u);
}

TEST(StringSearch, ComparesUpToACount)
{
    sstring const text("abcdef");
    EXPECT_EQ(text.compare(u8("abcxyz"), 3), 0);
    EXPECT_LT(text.compare(u8("abcxyz"), 4), 0);
    EXPECT_GT(text.compare(u16(u"abc"), npos), 0);
    EXPECT_EQ(text.compare(u16(u"abcdef"), npos), 0);
    EXPECT_EQ(text.comparei(u8("ABCxyz"), 3), 0);
    EXPECT_EQ(text.comparei(u16(u"ABCDEF"), npos), 0);
    EXPECT_EQ(text.comparei(u16(u"abX"), npos), 'c' - 'x');
    EXPECT_EQ(istring("ABC").compare(u8("abd"), 2), 0);
}

TEST(StringSearch, ReplacedTextEndsAtItsTerminator)
{
    std::u16string const longer = u"a" + std::u16string(1, u'\0') + std::u16string(5000, u'b');
    sstring const from(u16(longer.c_str()), 0, static_cast<unsigned int>(longer.size()));
    ASSERT_EQ(from.getLength(), 5002u);
    sstring text("xaya");
    EXPECT_EQ(text.replace(from, "-"), 4u);
    EXPECT_EQ(text, "x-y-");
    text = "xaya";
    EXPECT_EQ(text.replace(from, "-", sstring::kReplaceFirst), 4u);
    EXPECT_EQ(text, "x-ya");
    sstring const nothing(u16(u"\0a"), 0, 2);
    EXPECT_EQ(text.replace(nothing, "-"), 4u);
}

TEST(StringSearch, TakesAStringWhereverItTakesAText)
{
    sstring text("abcabc");
    sstring const part("bcx");
    EXPECT_EQ(text.strstr(part, 2), text.getUnicode() + 1);
    EXPECT_EQ(text.strrstr(part, 2), text.getUnicode() + 4);
    EXPECT_EQ(text.strstr(part), nullptr);
    EXPECT_EQ(text.strrstr(part), nullptr);
    EXPECT_EQ(text.compare(sstring("abX"), 2), 0);
    EXPECT_GT(text.compare(sstring("abX"), npos), 0);
    EXPECT_LT(text.comparei(sstring("abX"), npos), 0);
    EXPECT_EQ(istring("ABC").compare(text, 3), 0);
    EXPECT_EQ(text.compare("abcX", 3), 0);
}
