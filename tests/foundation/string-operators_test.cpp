// tests/foundation/string-operators_test.cpp: every operator of the string classes picks the overload that a reader
// expects.

#include "tests/foundation/strings.h"

#include <sstream>
#include <type_traits>

TEST(StringOperators, IndexGivesTheUnitForIntAndUnsigned)
{
    sstring text("abc");
    unsigned int last = 2;
    EXPECT_EQ(text[0], 'a');
    EXPECT_EQ(text[last], 'c');
    text[1] = 'X';
    EXPECT_TRUE(text == "aXc");
    sstring const& same = text;
    EXPECT_EQ(same[0], 'a');
    EXPECT_EQ(same[last], 'c');
}

TEST(StringOperators, IndexBeyondTheLengthMakesRoomAndReadsZero)
{
    sstring const text("abc");
    EXPECT_EQ(text[1000], 0);
    EXPECT_GE(text.getCapacity(), 1016u);
    EXPECT_EQ(text.getLength(), 3u);
}

TEST(StringOperators, ComparesWithEveryKindOfText)
{
    sstring const text("abc");
    EXPECT_TRUE(text == "abc");
    EXPECT_TRUE(text == u8("abc"));
    EXPECT_TRUE(text == u16(u"abc"));
    EXPECT_TRUE(text == sstring("abc"));
    EXPECT_TRUE("abc" == text);
    EXPECT_FALSE(text != "abc");
    EXPECT_TRUE(text != "ABC");
    EXPECT_TRUE(text < "abd");
    EXPECT_TRUE(text <= "abc");
    EXPECT_TRUE(text > u8("abb"));
    EXPECT_TRUE(text >= u16(u"ab"));
    EXPECT_FALSE(text < sstring("abc"));
}

TEST(StringOperators, ComparesWithANumberAsNumbers)
{
    sstring const text("10 pixels");
    EXPECT_TRUE(text == 10);
    EXPECT_TRUE(text > 9);
    EXPECT_TRUE(text < 11);
    EXPECT_TRUE(text >= 10);
    EXPECT_TRUE(text <= 10);
    EXPECT_TRUE(text != 0);
    EXPECT_TRUE(sstring("none") == 0);
}

TEST(StringOperators, AnIstringOnEitherSideIgnoresCase)
{
    EXPECT_TRUE(sstring("ABC") < istring("abd"));
    EXPECT_FALSE(sstring("abd") < istring("ABC"));
    EXPECT_TRUE(sstring("ABC") == istring("abc"));
    EXPECT_TRUE(istring("ABC") == sstring("abc"));
    EXPECT_TRUE(istring("ABC") == istring("abc"));
    EXPECT_FALSE(istring("ABC") != istring("abc"));
    EXPECT_TRUE(istring("ABC") == "abc");
    EXPECT_TRUE("abc" == istring("ABC"));
    EXPECT_TRUE(istring("abc") == u8("ABC"));
    EXPECT_TRUE(istring("abc") == u16(u"ABC"));
    EXPECT_TRUE(istring("abc") >= "ABC");
    EXPECT_TRUE(istring("B") > istring("a"));
    EXPECT_TRUE(istring("12") == 12);
    EXPECT_FALSE(sstring("ABC") == sstring("abc"));
}

TEST(StringOperators, AnIstringSeenAsItsBaseStillIgnoresCase)
{
    istring const text("Submit");
    sstring const& base = text;
    EXPECT_TRUE(base == "SUBMIT");
    EXPECT_EQ(base.compare(u16(u"subMIT!"), 6), 0);
}

TEST(StringOperators, PlusJoinsEveryKindOfOperand)
{
    sstring const text("s");
    EXPECT_EQ("x" + text, sstring("xs"));
    EXPECT_EQ(u8("x") + text, sstring("xs"));
    EXPECT_EQ(u16(u"x") + text, sstring("xs"));
    EXPECT_EQ(text + "x", sstring("sx"));
    EXPECT_EQ(text + u8("x"), sstring("sx"));
    EXPECT_EQ(text + u16(u"x"), sstring("sx"));
    EXPECT_EQ(text + text, sstring("ss"));
    EXPECT_EQ(text + 'c', sstring("sc"));
    EXPECT_EQ(text + static_cast<unsigned char>('c'), sstring("sc"));
    EXPECT_EQ(text + static_cast<unsigned short>(u'\u00e9'), sstring(u16(u"s\u00e9")));
    EXPECT_EQ(text + 1, sstring("s1"));
    EXPECT_EQ(text + -12, sstring("s-12"));
    EXPECT_EQ(text + reinterpret_cast<void const*>(0xAB), sstring("s0x000000AB"));
    EXPECT_EQ(text, "s");
}

TEST(StringOperators, PointersToWritableTextAreTextToo)
{
    sstring const text("b");
    char narrow[] = "a";
    unsigned char* bytes = text.getAnsi();
    unsigned short* units = text.getUnicode();
    EXPECT_EQ(narrow + text, "ab");
    EXPECT_EQ(text + narrow, "ba");
    EXPECT_EQ(units + text, "bb");
    EXPECT_EQ(text + units, "bb");
    EXPECT_EQ(bytes + text, "bb");
    EXPECT_EQ(text + bytes, "bb");
    EXPECT_TRUE(text == units);
    EXPECT_TRUE(text == bytes);
    EXPECT_TRUE(text > narrow);
    EXPECT_TRUE(text != narrow);
    EXPECT_TRUE(units == text);
    EXPECT_TRUE(narrow < text);
}

TEST(StringOperators, TextOnTheLeftIsComparedAsText)
{
    sstring const text("b");
    EXPECT_TRUE("a" < text);
    EXPECT_TRUE("b" <= text);
    EXPECT_TRUE("c" > text);
    EXPECT_TRUE(u8("b") >= text);
    EXPECT_FALSE("b" != text);
    EXPECT_TRUE("B" >= istring("b"));
}

TEST(StringOperators, PlusAssignAppendsEveryKindOfOperand)
{
    sstring text;
    text += "a";
    text += u8("b");
    text += u16(u"c");
    text += sstring("d");
    text += 'e';
    text += static_cast<unsigned char>('f');
    text += static_cast<unsigned short>('g');
    text += 7;
    text += reinterpret_cast<void*>(0x1234567890);
    EXPECT_EQ(text, "abcdefg70x1234567890");
}

TEST(StringOperators, AssignsEveryKindOfOperand)
{
    sstring text;
    EXPECT_EQ(text = "a", "a");
    EXPECT_EQ(text = u8("b"), "b");
    EXPECT_EQ(text = u16(u"c"), "c");
    EXPECT_EQ(text = sstring("d"), "d");
    EXPECT_EQ(text = -5, "-5");
    EXPECT_EQ(text = reinterpret_cast<void const*>(0xFEEDC0DE), "0xFEEDC0DE");
    istring other;
    other = "E";
    EXPECT_TRUE(other == "e");
    sformat formatted;
    formatted = text;
    EXPECT_EQ(formatted, "0xFEEDC0DE");
}

TEST(StringOperators, Utf16LiteralsAreRefusedWhereTheyWouldBecomeNumbersOrAddresses)
{
    EXPECT_FALSE((std::is_assignable_v<sstring&, char16_t const*>));
    EXPECT_TRUE((std::is_assignable_v<sstring&, unsigned short const*>));
}

TEST(StringOperators, TimesAppendsCopiesToTheStringItself)
{
    sstring text("ab");
    EXPECT_EQ(&(text * 2), &text);
    EXPECT_EQ(text, "ababab");
    text * 0;
    text * -3;
    EXPECT_EQ(text, "ababab");
    sstring empty;
    empty * 5;
    EXPECT_EQ(empty.getLength(), 0u);
}

TEST(StringOperators, PercentGivesTheTailFromTheFirstAndCaretFromTheLastHit)
{
    sstring const path("a/b/c");
    EXPECT_EQ(path % '/', sstring("/b/c"));
    EXPECT_EQ(path ^ '/', sstring("/c"));
    EXPECT_EQ(path % "/", sstring("/b/c"));
    EXPECT_EQ(path ^ u8("/"), sstring("/c"));
    EXPECT_EQ(path % u16(u"b"), sstring("b/c"));
    EXPECT_EQ(path ^ sstring("/b"), sstring("/b/c"));
    EXPECT_EQ((path % 'q').getLength(), 0u);
    EXPECT_EQ((path ^ "q").getLength(), 0u);
}

TEST(StringOperators, ConvertsToPointersAndNumbers)
{
    sstring const text("42x");
    char* narrow = text;
    unsigned char* bytes = text;
    unsigned short* units = text;
    EXPECT_STREQ(narrow, "42x");
    EXPECT_EQ(strcmp8(bytes, u8("42x")), 0);
    EXPECT_EQ(strcmp16(units, u16(u"42x")), 0);
    EXPECT_EQ(static_cast<int>(text), 42);
    EXPECT_EQ(static_cast<int>(sstring("-7")), -7);
    EXPECT_FALSE(!text);
    EXPECT_TRUE(!sstring());
}

TEST(StringOperators, StreamsItsEightBitRendering)
{
    std::ostringstream stream;
    stream << sstring("text") << 1;
    EXPECT_EQ(stream.str(), "text1");
}
