// tests/foundation/regexp-match_test.cpp: pattern expressions: what matches, and the steps of a match.
#include "tests/foundation/regexps.h"

#include <algorithm>
#include <atomic>
#include <thread>

// Names and filters

TEST(RegexpMatch, ALoneAsteriskMatchesEveryName)
{
    for (char const* name : {"", "main", "*", "a/b.htm"})
        EXPECT_TRUE(matches("*", name)) << name;
}

TEST(RegexpMatch, ALeadingAsteriskIsLiteralAndADotIsAnyUnit)
{
    EXPECT_TRUE(matches("*.htm", "a*xhtm"));
    EXPECT_FALSE(matches("*.htm", "page.htm"));
    EXPECT_TRUE(matches(".*.htm", "page.htm"));
    EXPECT_TRUE(matches(".*\\.htm", "page.htm"));
    EXPECT_FALSE(matches(".*\\.htm", "pagexhtm"));
}

TEST(RegexpMatch, ACaretAnchorsAtTheBeginning)
{
    EXPECT_TRUE(matches("^main", "mainpage"));
    EXPECT_FALSE(matches("^main", "the mainpage"));
    EXPECT_TRUE(matches("main", "the mainpage"));
    EXPECT_TRUE(matches("a^", "ba^"));
    EXPECT_TRUE(matches("^", "x"));
    EXPECT_TRUE(matches("^", ""));
}

TEST(RegexpMatch, ADollarAnchorsAtTheEnd)
{
    EXPECT_TRUE(matches("page$", "mainpage"));
    EXPECT_FALSE(matches("page$", "pages"));
    EXPECT_TRUE(matches("page", "pages")) << "the rest of the text need not match";
    EXPECT_TRUE(matches("a$b", "a$b"));
    EXPECT_TRUE(matches("^$", ""));
    EXPECT_FALSE(matches("^$", "x"));
}

TEST(RegexpMatch, LooksAtEveryPositionTheEndIncluded)
{
    EXPECT_TRUE(matches("$", "abc"));
    EXPECT_TRUE(matches("b*$", "abc"));
    EXPECT_TRUE(matches("x*", ""));
    EXPECT_TRUE(matches(".$", "abc"));
    EXPECT_FALSE(matches(".", ""));
}

TEST(RegexpMatch, APatternThatBeginsWithALiteralIsFoundWhereverThatOccurs)
{
    EXPECT_TRUE(matches("ab", "aaab"));
    EXPECT_TRUE(matches("aab$", "aaaab"));
    EXPECT_TRUE(matches("a.c", "aabaabaac"));
    EXPECT_FALSE(matches("ab", "aaa"));
    EXPECT_FALSE(matches("ab", ""));
}

TEST(RegexpMatch, MindsCase)
{
    EXPECT_TRUE(matches("Main", "Main"));
    EXPECT_FALSE(matches("Main", "main"));
    EXPECT_FALSE(matches("[a-z]", "M"));
    EXPECT_FALSE(matches(R"(\(a\)\1)", "aA"));
    EXPECT_FALSE(Expr("main") == istring("MAIN"));
}

// Sets

TEST(RegexpMatch, ASetMatchesOneOfItsUnits)
{
    EXPECT_TRUE(matches("[a-c]x", "bx"));
    EXPECT_FALSE(matches("[a-c]x", "dx"));
    EXPECT_TRUE(matches("[^a-c]x", "dx"));
    EXPECT_FALSE(matches("[^a-c]x", "bx"));
    EXPECT_TRUE(matches("^[a-]*$", "a-a"));
    EXPECT_FALSE(matches("^[a-]*$", "b"));
}

TEST(RegexpMatch, NoSetMatchesTheEndOfTheText)
{
    EXPECT_FALSE(matches("a[^b]", "a"));
    EXPECT_FALSE(matches("a[b]", "a"));
    EXPECT_TRUE(matches("a[^b]*$", "a"));
    EXPECT_TRUE(matches("a[^b]*$", "acc"));
}

TEST(RegexpMatch, AnEmptySetMatchesNoUnitAndItsNegationAny)
{
    EXPECT_FALSE(matches("[]", "a"));
    EXPECT_TRUE(matches("^[]*a", "a"));
    EXPECT_TRUE(matches("^[^]$", "a"));
    EXPECT_FALSE(matches("[^]", ""));
}

// Units

TEST(RegexpMatch, ComparesWholeUnits)
{
    EXPECT_TRUE(matches(u"\u0161", u"\u0161"));
    EXPECT_FALSE(matches(u"\u0161", u"a")) << "the same low byte";
    EXPECT_FALSE(matches(u"[\u0161]", u"a"));
    EXPECT_TRUE(matches(u"^[\u0161-\u0163]*$", u"\u0161\u0162\u0163"));
    EXPECT_FALSE(matches(u"[\u0161-\u0163]", u"b"));
    EXPECT_FALSE(matches(u"\u012A", u"a")) << "only an asterisk is one, whatever its low byte";
    EXPECT_FALSE(matches(u"\u0001", u"a")) << "the smallest unit is one like others";
    EXPECT_FALSE(matches(u"[^\u0001]", u"\u0001"));
    EXPECT_TRUE(matches(u"\uFFFF*[^\uFFFE]$", u"\uFFFF\uFFFF"));
}

TEST(RegexpMatch, ACharacterOfTwoUnitsIsTwo)
{
    EXPECT_FALSE(matches(u"^x.y$", u"x\U0001F600y"));
    EXPECT_TRUE(matches(u"^x..y$", u"x\U0001F600y"));
}

TEST(RegexpMatch, TextEndsAtItsTerminator)
{
    unsigned short const cut[] = {'a', 0, 'b', 0};
    sstring text;
    text.set(cut, 0, 3);
    ASSERT_EQ(text.getLength(), 3u);
    EXPECT_TRUE(Expr("a$") == text);
    EXPECT_FALSE(Expr("b") == text);
}

// Repetitions

TEST(RegexpMatch, ARepetitionGivesBackWhatTheRestNeeds)
{
    EXPECT_TRUE(matches("^a*a$", "aaa"));
    EXPECT_TRUE(matches("^a*aaa$", "aaa"));
    EXPECT_FALSE(matches("^a*aaaa$", "aaa"));
    EXPECT_TRUE(matches("^.*b.*c$", "abbcbc"));
    EXPECT_TRUE(matches("^[ab]*b[^c]*c$", "abbabc"));
    EXPECT_FALSE(matches("^[ab]*c[ab]*$", "abab"));
}

TEST(RegexpMatch, ARepetitionMayMatchNothing)
{
    EXPECT_TRUE(matches("^ab*c$", "ac"));
    EXPECT_TRUE(matches("^a*$", ""));
    EXPECT_TRUE(matches("^.*$", ""));
    EXPECT_TRUE(matches("^a**$", "aaa"));
}

TEST(RegexpMatch, TheLongestRepetitionThatSucceedsWins)
{
    EXPECT_EQ(Subset(R"(\(a*\)\(a*\))", "aaa").group(0), "aaa");
    EXPECT_EQ(Subset(R"(\(a*\)\(a*\))", "aaa").group(1), "");
    EXPECT_EQ(Subset(R"(\(a*\)\(a*\)ab)", "aaab").group(0), "aa");
    EXPECT_EQ(Subset(R"(\(.*\)-\(.*\))", "a-b-c").group(0), "a-b");
    EXPECT_EQ(Subset(R"(\([^-]*\)-\(.*\))", "a-b-c").group(1), "b-c");
    EXPECT_EQ(Subset(R"(\(.*\)$)", "abc").group(0), "abc") << "any unit, to the end of the text";
}

// Groups and back-references

TEST(RegexpMatch, ABackReferenceRepeatsItsGroup)
{
    EXPECT_TRUE(matches(R"(\(ab\)\1)", "abab"));
    EXPECT_FALSE(matches(R"(\(ab\)\1)", "abba"));
    EXPECT_TRUE(matches(R"(^\(.\)\(.\)\2\1$)", "abba"));
    EXPECT_FALSE(matches(R"(^\(.\)\(.\)\2\1$)", "abab"));
    EXPECT_TRUE(matches(R"(^\(.*\)-\1$)", "one-one"));
    EXPECT_FALSE(matches(R"(^\(.*\)-\1$)", "one-on"));
    EXPECT_TRUE(matches(R"(^\(a*\)b\1$)", "aabaa"));
}

TEST(RegexpMatch, AllNineGroupsCanBeRepeated)
{
    std::string const groups = repeated(R"(\(.\))", 9);
    EXPECT_TRUE(matches("^" + groups + R"(\9\8\7\6\5\4\3\2\1$)", "abcdefghiihgfedcba"));
    EXPECT_FALSE(matches("^" + groups + R"(\9\8\7\6\5\4\3\2\1$)", "abcdefghiihgfedcbb"));
}

TEST(RegexpMatch, AGroupIsShortenedForItsBackReference)
{
    EXPECT_TRUE(matches(R"(^\(a*\)\1$)", "aaaa"));
    EXPECT_FALSE(matches(R"(^\(a*\)\1$)", "aaa"));
    EXPECT_EQ(Subset(R"(\(a*\)\1)", "aaaaa").group(0), "aa");
    EXPECT_TRUE(matches(R"(^\(a*\)b*\1*$)", "aabaaaa"));
}

TEST(RegexpMatch, ABackReferenceToAnEmptyGroupMatchesNothingAtAll)
{
    EXPECT_TRUE(matches(R"(^\(x*\)\1a$)", "a"));
    EXPECT_TRUE(matches(R"(^\(\)\1*a$)", "a"));
}

TEST(RegexpMatch, ARepeatedBackReferenceGivesBackWholeCopies)
{
    EXPECT_TRUE(matches(R"(^\(ab\)\1*$)", "ab"));
    EXPECT_TRUE(matches(R"(^\(ab\)\1*$)", "ababab"));
    EXPECT_FALSE(matches(R"(^\(ab\)\1*$)", "ababa"));
    EXPECT_TRUE(matches(R"(^\(ab\)\1*abab$)", "abababab"));
    EXPECT_TRUE(matches(R"(^\(ab\)\1*a$)", "ababa"));
    EXPECT_EQ(Subset(R"(\(ab\)\1*\(.*\))", "abababc").group(1), "c");
    EXPECT_FALSE(matches(R"(^\(ab\)\1*b$)", "abab")) << "half a copy";
}

TEST(RegexpMatch, ABackReferenceToAGroupThatIsNotClosedNeverMatches)
{
    EXPECT_FALSE(matches(R"(\1)", "a"));
    EXPECT_FALSE(matches(R"(\1)", ""));
    EXPECT_FALSE(matches(R"(\1\(a\))", "aa"));
    EXPECT_FALSE(matches(R"(\(a\1\))", "aa"));
    EXPECT_FALSE(matches(R"(\(a\)\2)", "aa"));
    EXPECT_TRUE(matches(R"(^\1*\(a\)$)", "a")) << "no copy is always there";
}

TEST(RegexpMatch, AGroupOfAnAttemptThatFailedIsForgotten)
{
    EXPECT_TRUE(matches(R"(^a*b*\1*\(ab\)\1$)", "ababab"));
    EXPECT_FALSE(matches(R"(^a*b*\1*\(ab\)\1$)", "abababab"));
}

// Threads

TEST(RegexpMatch, ChangesNeitherExpressionNorText)
{
    Expr const expr(R"(\(a*\)b\1$)");
    sstring const text("aabaa");
    unsigned int const capacity = text.getCapacity();
    unsigned int const patternCapacity = expr.getExpr().getCapacityA();
    EXPECT_TRUE(expr == text);
    EXPECT_EQ(text.getCapacity(), capacity);
    EXPECT_EQ(text.getCapacityA(), 0u);
    EXPECT_EQ(text.getCapacityW(), 0u);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(expr == units(repeated("a", 3000) + "b" + repeated("a", 1499) + "c")) << "too many steps";
    EXPECT_NE(testing::internal::GetCapturedStderr(), "") << "the pattern was written out";
    EXPECT_EQ(expr.getExpr().getCapacityA(), patternCapacity);
}

TEST(RegexpMatch, ManyThreadsMatchAtATime)
{
    Expr const expr(R"(^\(a*\)\(a*\)\(a*\)\1\2\3b$)");
    sstring const matching("aaaaaab");
    sstring const endless = units(repeated("a", 1001) + "xb"); // reports that there were too many steps
    std::atomic<int> found = 0;
    std::vector<std::thread> threads;
    testing::internal::CaptureStderr();
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] { found += (expr == matching) + (expr == endless); });
    for (std::thread& thread : threads)
        thread.join();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(found, 4);
}

// The steps

TEST(RegexpSteps, ASubsetMatchesAtItsBeginningOnly)
{
    EXPECT_TRUE(Subset("ab", "abc").isMatch);
    EXPECT_FALSE(Subset("bc", "abc").isMatch);
    EXPECT_TRUE(!Subset("", "").starts[0] && !Subset("", "").isMatch) << "there is no program";
}

TEST(RegexpSteps, ASubsetRecordsItsGroups)
{
    Subset const subset(R"(a\(b\(c*\)\)d\(\))", "abccd");
    ASSERT_TRUE(subset.isMatch);
    EXPECT_EQ(subset.group(0), "bcc");
    EXPECT_EQ(subset.group(1), "cc");
    EXPECT_EQ(subset.group(2), "");
    EXPECT_EQ(subset.group(3), "-");
}

TEST(RegexpSteps, ASubsetThatFailsLeavesTheGroupsAlone)
{
    sstring const other("other");
    unsigned short const* starts[9];
    unsigned short const* ends[9];
    std::fill_n(starts, 9, other.getUnicode());
    std::fill_n(ends, 9, other.getUnicode() + 2);
    Expr const expr(R"(\(a\)\1b)"); // the table of rests can not tell that the group is not repeated
    sstring const text("acb");
    EXPECT_FALSE(expr.MatchSubset(text.getUnicode(), expr.getProgram(), starts, ends));
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(starts[i], other.getUnicode());
        EXPECT_EQ(ends[i], other.getUnicode() + 2);
    }
}

TEST(RegexpSteps, TheRestOfAProgramUsesTheGroupsItIsGiven)
{
    unsigned short const rest[] = {10, 3, 254, 255, 0};
    sstring const group("ab");
    unsigned short const* starts[9] = {};
    unsigned short const* ends[9] = {};
    starts[3] = group.getUnicode();
    ends[3] = group.getUnicode() + 2;
    Expr const expr;
    EXPECT_TRUE(expr.MatchSubset(sstring("ab").getUnicode(), rest, starts, ends));
    EXPECT_FALSE(expr.MatchSubset(sstring("ba").getUnicode(), rest, starts, ends));
    EXPECT_FALSE(expr.MatchSubset(sstring("abb").getUnicode(), rest, starts, ends));
}

TEST(RegexpSteps, AGroupThatOpensAgainIsNotClosed)
{
    Expr const expr(R"(\(a\1\)b)");
    sstring const text("aab");
    unsigned short const* starts[9] = {text.getUnicode()};
    unsigned short const* ends[9] = {text.getUnicode() + 1};
    EXPECT_FALSE(expr.MatchSubset(text.getUnicode(), expr.getProgram(), starts, ends));
}

TEST(RegexpSteps, AGroupIsComparedWithTheBeginningOfAText)
{
    sstring const group("abc");
    unsigned short const* starts[9] = {group.getUnicode(), group.getUnicode() + 1, group.getUnicode()};
    unsigned short const* ends[9] = {group.getUnicode() + 3, group.getUnicode() + 1};
    EXPECT_TRUE(Expr::CompareParen(0, sstring("abcd").getUnicode(), starts, ends));
    EXPECT_FALSE(Expr::CompareParen(0, sstring("abd").getUnicode(), starts, ends));
    EXPECT_FALSE(Expr::CompareParen(0, sstring("ab").getUnicode(), starts, ends)) << "the text ends first";
    EXPECT_TRUE(Expr::CompareParen(1, sstring("").getUnicode(), starts, ends)) << "an empty group";
    EXPECT_FALSE(Expr::CompareParen(2, sstring("abc").getUnicode(), starts, ends)) << "not closed";
    EXPECT_FALSE(Expr::CompareParen(3, sstring("").getUnicode(), starts, ends)) << "not opened";
}

TEST(RegexpSteps, AUnitIsInASetOrNot)
{
    unsigned short const set[] = {3, 'a', 0x162, 'z'}; // "z" stands behind it
    EXPECT_TRUE(Expr::fIsInCharSet(set, 'a', false));
    EXPECT_TRUE(Expr::fIsInCharSet(set, 0x162, false));
    EXPECT_FALSE(Expr::fIsInCharSet(set, 'b', false));
    EXPECT_FALSE(Expr::fIsInCharSet(set, 'z', false));
    EXPECT_FALSE(Expr::fIsInCharSet(set, 'a', true));
    EXPECT_TRUE(Expr::fIsInCharSet(set, 'b', true));
    EXPECT_TRUE(Expr::fIsInCharSet(set, 'z', true));
    EXPECT_FALSE(Expr::fIsInCharSet(set, 0, true));
    EXPECT_FALSE(Expr::fIsInCharSet(set, 0, false));
    unsigned short const empty[] = {1};
    EXPECT_FALSE(Expr::fIsInCharSet(empty, 'a', false));
    EXPECT_TRUE(Expr::fIsInCharSet(empty, 'a', true));
}

TEST(RegexpSteps, MoreThan64ItemsAreFollowedLikeFew)
{
    // The table of rests goes through its rows 64 items at a time: each length meets its seams differently.
    for (size_t count = 60; count <= 200; ++count) {
        std::string const anything = repeated("x*", count);
        EXPECT_TRUE(matches("^" + anything + "$", "xx")) << count;
        EXPECT_FALSE(matches("^" + anything + "$", "xy")) << count;
        EXPECT_TRUE(matches("^" + repeated("x", count) + "$", repeated("x", count))) << count;
        EXPECT_FALSE(matches("^" + repeated("x", count) + "$", repeated("x", count - 1))) << count;
        EXPECT_TRUE(matches("^a" + repeated("x*", count / 2) + "b" + repeated("[xy]*", count / 4) + "c$", "axbxyc"));
        EXPECT_FALSE(matches("^a" + repeated("x*", count / 2) + "b" + repeated("[xy]*", count / 4) + "c$", "axybxc"));
    }
}
