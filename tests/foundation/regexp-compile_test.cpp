// tests/foundation/regexp-compile_test.cpp: pattern expressions: what a pattern is compiled to, and which patterns are
// invalid.
#include "tests/foundation/regexps.h"

// Items

TEST(RegexpProgram, ALiteralIsItsUnit) { EXPECT_TRUE(hasProgram("ab", {2, 'a', 2, 'b', 255, 0})); }

TEST(RegexpProgram, ADotIsAnyUnit) { EXPECT_TRUE(hasProgram(".", {4, 255, 0})); }

TEST(RegexpProgram, ASetIsItsMembersAndOneMoreThanTheirNumber)
{
    EXPECT_TRUE(hasProgram("[xyz]", {6, 4, 'x', 'y', 'z', 255, 0}));
    EXPECT_TRUE(hasProgram("[^x]y", {8, 2, 'x', 2, 'y', 255, 0}));
}

TEST(RegexpProgram, AnAsteriskAddsOneToTheCodeBeforeIt)
{
    EXPECT_TRUE(hasProgram("a*", {3, 'a', 255, 0}));
    EXPECT_TRUE(hasProgram(".*", {5, 255, 0}));
    EXPECT_TRUE(hasProgram("[ab]*", {7, 3, 'a', 'b', 255, 0}));
    EXPECT_TRUE(hasProgram("[^ab]*", {9, 3, 'a', 'b', 255, 0}));
    EXPECT_TRUE(hasProgram(R"(\(a\)\1*)", {252, 0, 2, 'a', 253, 0, 11, 0, 255, 0}));
}

TEST(RegexpProgram, ARepeatedRepetitionIsOne)
{
    EXPECT_TRUE(hasProgram("a**", {3, 'a', 255, 0}));
    EXPECT_TRUE(hasProgram(".***b", {5, 2, 'b', 255, 0}));
}

TEST(RegexpProgram, ABackReferenceIsTheNumberOfItsGroupLessOne)
{
    EXPECT_TRUE(hasProgram(R"(\1\2\9)", {10, 0, 10, 1, 10, 8, 255, 0}));
    EXPECT_TRUE(hasProgram(R"(\0)", {2, '0', 255, 0})) << "there is no group 0 to a pattern";
}

TEST(RegexpProgram, GroupsAreNumberedAsTheyOpen)
{
    EXPECT_TRUE(hasProgram(R"(\(a\(b\)\)\(c\))",
                           {252, 0, 2, 'a', 252, 1, 2, 'b', 253, 1, 253, 0, 252, 2, 2, 'c', 253, 2, 255, 0}));
}

TEST(RegexpProgram, ABackslashMakesTheUnitBehindItLiteral)
{
    EXPECT_TRUE(hasProgram(R"(\.\*\[\\\$)", {2, '.', 2, '*', 2, '[', 2, '\\', 2, '$', 255, 0}));
    EXPECT_TRUE(hasProgram(R"(\^a\])", {2, '^', 2, 'a', 2, ']', 255, 0}));
    EXPECT_TRUE(hasProgram(R"(\a*)", {3, 'a', 255, 0}));
}

TEST(RegexpProgram, ABackslashAtTheEndIsLiteral) { EXPECT_TRUE(hasProgram("a\\", {2, 'a', 2, '\\', 255, 0})); }

// Anchors

TEST(RegexpProgram, ADollarIsTheEndOfTheTextOnlyAtTheEndOfThePattern)
{
    EXPECT_TRUE(hasProgram("a$", {2, 'a', 254, 255, 0}));
    EXPECT_TRUE(hasProgram("$", {254, 255, 0}));
    EXPECT_TRUE(hasProgram("$a", {2, '$', 2, 'a', 255, 0}));
    EXPECT_TRUE(hasProgram("$*", {3, '$', 255, 0}));
    EXPECT_TRUE(hasProgram("$$", {2, '$', 254, 255, 0}));
    EXPECT_TRUE(hasProgram(R"(\($\))", {252, 0, 2, '$', 253, 0, 255, 0}));
}

TEST(RegexpProgram, ACaretIsNoItemAtTheBeginningAndALiteralElsewhere)
{
    EXPECT_TRUE(hasProgram("^a", {2, 'a', 255, 0}));
    EXPECT_TRUE(hasProgram("^", {255, 0}));
    EXPECT_TRUE(hasProgram("^^", {2, '^', 255, 0}));
    EXPECT_TRUE(hasProgram("a^", {2, 'a', 2, '^', 255, 0}));
    EXPECT_TRUE(hasProgram(R"(\(^\))", {252, 0, 2, '^', 253, 0, 255, 0}));
}

// Asterisks that have nothing to repeat

TEST(RegexpProgram, ALoneAsteriskIsReadAsAnything)
{
    EXPECT_TRUE(hasProgram("*", {5, 255, 0}));
    EXPECT_STREQ(Expr("*").getExpr().c_str(), ".*");
}

TEST(RegexpProgram, AnAsteriskAtTheBeginningIsLiteral)
{
    EXPECT_TRUE(hasProgram("*a", {2, '*', 2, 'a', 255, 0}));
    EXPECT_TRUE(hasProgram("**", {3, '*', 255, 0}));
    EXPECT_TRUE(hasProgram("^*", {2, '*', 255, 0}));
    EXPECT_TRUE(hasProgram("^**a", {3, '*', 2, 'a', 255, 0}));
}

TEST(RegexpProgram, AnAsteriskRightBehindAGroupMarkIsLiteral)
{
    EXPECT_TRUE(hasProgram(R"(\(*\)*)", {252, 0, 2, '*', 253, 0, 2, '*', 255, 0}));
    EXPECT_TRUE(hasProgram(R"(\(a\)**)", {252, 0, 2, 'a', 253, 0, 3, '*', 255, 0}));
}

// Sets

TEST(RegexpProgram, ARangeIsExpanded)
{
    EXPECT_TRUE(hasProgram("[a-d]", {6, 5, 'a', 'b', 'c', 'd', 255, 0}));
    EXPECT_TRUE(hasProgram("[^xa-cy]", {8, 6, 'x', 'a', 'b', 'c', 'y', 255, 0}));
    EXPECT_TRUE(hasProgram("[a-a]", {6, 2, 'a', 255, 0}));
    EXPECT_TRUE(hasProgram("[a-b-d]", {6, 5, 'a', 'b', 'c', 'd', 255, 0}))
        << "the second range begins where the first ends";
    EXPECT_TRUE(hasProgram("[+--]", {6, 4, '+', ',', '-', 255, 0})) << "a range up to the dash";
    EXPECT_TRUE(hasProgram("[--/]", {6, 4, '-', '.', '/', 255, 0})) << "a range from the dash on";
}

TEST(RegexpProgram, ADashThatIsFirstOrLastInItsSetIsAMember)
{
    EXPECT_TRUE(hasProgram("[-a]", {6, 3, '-', 'a', 255, 0}));
    EXPECT_TRUE(hasProgram("[^-a]", {8, 3, '-', 'a', 255, 0}));
    EXPECT_TRUE(hasProgram("[a-]", {6, 3, 'a', '-', 255, 0}));
    EXPECT_TRUE(hasProgram("[a-c-]", {6, 5, 'a', 'b', 'c', '-', 255, 0}));
    EXPECT_TRUE(hasProgram("[-]", {6, 2, '-', 255, 0}));
}

TEST(RegexpProgram, ARangeIsComparedOnLowBytes)
{
    EXPECT_TRUE(hasProgram(u"[\u0161-\u0163]", {6, 4, 0x161, 0x162, 0x163, 255, 0}));
    EXPECT_TRUE(hasProgram(u"[a-\u0163]", {6, 5, 'a', 'b', 'c', 0x163, 255, 0}));
    EXPECT_TRUE(hasProgram(u"[\u0161-c]", {6, 5, 0x161, 0x162, 0x163, 'c', 255, 0}));
    EXPECT_TRUE(hasProgram(u"[\u00F0-\u0110]", {6, 3, 0xF0, 0x110, 255, 0})) << "0x10 is below 0xF0";
}

TEST(RegexpProgram, OfARangeThatRunsBackwardsOnlyItsEndsAreMembers)
{
    EXPECT_TRUE(hasProgram("[d-a]", {6, 3, 'd', 'a', 255, 0}));
}

TEST(RegexpProgram, TheFirstBracketEndsASet)
{
    EXPECT_TRUE(hasProgram("[]a]", {6, 1, 2, 'a', 2, ']', 255, 0}));
    EXPECT_TRUE(hasProgram("[^]", {8, 1, 255, 0}));
    EXPECT_TRUE(hasProgram(R"([\])", {6, 2, '\\', 255, 0}));
    EXPECT_TRUE(hasProgram("]", {2, ']', 255, 0}));
}

TEST(RegexpProgram, NothingIsSpecialInASet)
{
    EXPECT_TRUE(hasProgram("[.*$[^]", {6, 6, '.', '*', '$', '[', '^', 255, 0}));
    EXPECT_TRUE(hasProgram("[^^]", {8, 2, '^', 255, 0}));
}

// Invalid patterns

TEST(RegexpInvalid, TheEmptyPattern)
{
    EXPECT_FALSE(isValid(""));
    EXPECT_EQ(Expr().Compile(), 0);
    EXPECT_TRUE(isValid("^"));
}

TEST(RegexpInvalid, ASetThatIsNotClosed)
{
    for (char const* pattern : {"[", "[^", "[a", "[a-", "[a-z", "[^-", "[\\", "a[]["})
        EXPECT_FALSE(isValid(pattern)) << pattern;
}

TEST(RegexpInvalid, AGroupThatIsNotClosedOrNotOpen)
{
    for (char const* pattern : {R"(\()", R"(a\(b)", R"(\(\(a\))", R"(\))", R"(\(a\)\))", R"(\)\()", R"([\(]\))"})
        EXPECT_FALSE(isValid(pattern)) << pattern;
    for (char const* pattern : {"(", ")", R"([\)])", R"(\(\))", R"(\\()"})
        EXPECT_TRUE(isValid(pattern)) << pattern;
}

TEST(RegexpInvalid, ATenthGroup)
{
    EXPECT_TRUE(isValid(repeated(R"(\(a\))", 9)));
    EXPECT_FALSE(isValid(repeated(R"(\(a\))", 10)));
    EXPECT_TRUE(isValid(repeated(R"(\()", 9) + repeated(R"(\))", 9)));
    EXPECT_FALSE(isValid(repeated(R"(\()", 10) + repeated(R"(\))", 10)));
}

TEST(RegexpInvalid, AProgramThatDoesNotFitInto512Units)
{
    EXPECT_TRUE(isValid(repeated("a", 255)));
    EXPECT_FALSE(isValid(repeated("a", 256)));
    EXPECT_TRUE(isValid(repeated("a", 255) + "*")) << "repeating takes no room";
    EXPECT_TRUE(isValid(repeated("a", 254) + ".$"));
    EXPECT_FALSE(isValid(repeated("a", 255) + "$"));
    EXPECT_TRUE(isValid(repeated(".", 510)));
    EXPECT_FALSE(isValid(repeated(".", 511)));
    EXPECT_TRUE(isValid("[" + repeated("a", 508) + "]"));
    EXPECT_FALSE(isValid("[" + repeated("a", 509) + "]"));
    EXPECT_TRUE(isValid(repeated("a", 253) + R"(\(\))"));
    EXPECT_FALSE(isValid(repeated("a", 254) + R"(\(\))"));
    EXPECT_FALSE(isValid(repeated("a", 255) + R"(\1)"));
}

TEST(RegexpInvalid, ARangeThatDoesNotFit)
{
    EXPECT_TRUE(matches(u"[\u0001-\u00FF]", u"\u00FF"));
    EXPECT_FALSE(Expr(units(u"[\u0001-\u00FF][\u0001-\u00FF]")).Compile());
    EXPECT_FALSE(isValid(repeated("a", 254) + "[a-z]*"));
}

TEST(RegexpInvalid, APatternThatIsFarTooLong)
{
    for (char const* unit : {"a", ".", "[a]", "[", "\\", R"(\()", R"(\1)", "[a-z", "$", "^"})
        EXPECT_FALSE(isValid(repeated(unit, 100000))) << unit;
    EXPECT_TRUE(matches("^a" + repeated("*", 100000) + "$", "aaa")) << "a repetition repeated";
}

TEST(RegexpInvalid, MatchesNothing)
{
    for (char const* pattern : {"", "[a", R"(\(a)", R"(a\))"}) {
        Expr const expr(pattern);
        EXPECT_EQ(expr.getProgram()[0], 0) << pattern;
        for (char const* text : {"", "a", "[a", "(a", "a)"}) {
            EXPECT_FALSE(expr == text) << pattern << ' ' << text;
            EXPECT_TRUE(expr != text) << pattern << ' ' << text;
        }
    }
    EXPECT_FALSE(Expr() == "");
}

// Setting patterns

TEST(RegexpPattern, TheLastOneSetCounts)
{
    Expr expr("^a");
    EXPECT_FALSE(expr == "ba");
    expr = sstring("a");
    EXPECT_TRUE(expr == "ba") << "the anchor is gone";
    expr.setExpr("[a");
    EXPECT_FALSE(expr == "ba");
    EXPECT_EQ(expr.Compile(), 0);
    expr.setExpr("b");
    EXPECT_TRUE(expr == "ba");
    EXPECT_NE(expr.Compile(), 0);
    EXPECT_NE(expr.Compile(), 0) << "compiling again changes nothing";
    EXPECT_TRUE(expr == "ba");
}

TEST(RegexpPattern, IsGivenBackAsItWasSet)
{
    EXPECT_STREQ(Expr("^a*\\(b\\)").getExpr().c_str(), "^a*\\(b\\)");
    EXPECT_STREQ(Expr("[invalid").getExpr().c_str(), "[invalid");
    EXPECT_STREQ(Expr().getExpr().c_str(), "");
    Expr expr("a.c");
    expr = expr.getExpr();
    EXPECT_TRUE(expr == "abc");
}

TEST(RegexpPattern, ACopyMatchesLikeItsOriginal)
{
    Expr original(R"(^\(ab\)\1$)"); // its program has zeros in it
    Expr const copy(original);
    Expr assigned("x");
    assigned = original;
    original.setExpr("x");
    for (Expr const* expr : {&copy, const_cast<Expr const*>(&assigned)}) {
        EXPECT_TRUE(*expr == "abab");
        EXPECT_FALSE(*expr == "abba");
        EXPECT_FALSE(*expr == "xabab");
    }
}

TEST(RegexpPattern, EndsAtItsTerminator)
{
    unsigned short const pattern[] = {'a', 0, '[', 0};
    sstring text;
    text.set(pattern, 0, 3);
    ASSERT_EQ(text.getLength(), 3u);
    EXPECT_TRUE(Expr(text) == "a");
}
