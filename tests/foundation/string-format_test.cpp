// tests/foundation/string-format_test.cpp: strings made from printf-style formats.

#include "foundation/localize2.h"
#include "foundation/vela-error.h"
#include "tests/foundation/strings.h"

#include <climits>
#include <string>

namespace {

int codeOfFormattingLength(unsigned int length)
{
    try {
        sformat const text("%*s", static_cast<int>(length), "");
        EXPECT_EQ(text.getLength(), length);
    } catch (velaError const& error) {
        return error.getCode();
    }
    return 0;
}

sformat throughList(sformat& target, char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    target.vformat(sstring(format), arguments);
    va_end(arguments);
    return target;
}

} // namespace

TEST(StringFormat, EveryKindOfFormatWorks)
{
    EXPECT_EQ(sformat("%s is %d", "x", 5), "x is 5");
    EXPECT_EQ(sformat(u8("%s is %d"), "x", 5), "x is 5");
    EXPECT_EQ(sformat(u16(u"%s is %d"), "x", 5), "x is 5");
    sformat text;
    EXPECT_EQ(text.format("%ld", LONG_MIN), "-9223372036854775808");
    EXPECT_EQ(text.format(u8("%lu"), ULONG_MAX), "18446744073709551615");
    EXPECT_EQ(text.format(u16(u"%c%%"), 'a'), "a%");
    EXPECT_EQ(throughList(text, "%x-%s", 255, "y"), "ff-y");
}

TEST(StringFormat, AResultThatFillsTheBufferIsError7)
{
    // A request for 2,048 bytes becomes 2,080 with the headroom and the smallest step.
    EXPECT_EQ(codeOfFormattingLength(2048), 0);
    EXPECT_EQ(codeOfFormattingLength(2079), 0);
    EXPECT_EQ(codeOfFormattingLength(2080), 7);
    EXPECT_EQ(codeOfFormattingLength(100000), 7);
}

TEST(StringFormat, AfterError7TheTextIsAsItWas)
{
    sformat text("before");
    EXPECT_THROW(text.format("%*s", 5000, ""), velaError);
    EXPECT_EQ(text, "before");
}

TEST(StringFormat, ALargerCacheHoldsALargerResult)
{
    sformat text;
    text.setSizeA(10000);
    text.format("%*s", 9999, "x");
    EXPECT_EQ(text.getLength(), 9999u);
    EXPECT_EQ(text[9998], 'x');
}

TEST(StringFormat, ArgumentsMayPointIntoTheStringItself)
{
    sformat text("abc");
    text.format("<%s>", text.c_str());
    EXPECT_EQ(text, "<abc>");
    text.format("[%s]", text.c_str());
    EXPECT_EQ(text, "[<abc>]");
}

TEST(StringFormat, TheResultIsConvertedUnderTheStringsLocale)
{
    LOCALE* japanese = Locale_Create("ja_JP");
    sformat text;
    text.setLocale(japanese);
    Locale_Destroy(japanese);
    text.format("%s", "\x82\xa0");
    EXPECT_EQ(text, u16(u"\u3042"));
    text.format(u16(u"\u3044%d"), 1);
    EXPECT_EQ(text, u16(u"\u30441"));
}

TEST(StringFormat, FormattedStringsCompareWithCase) { EXPECT_FALSE(sformat("%s", "abc") == "ABC"); }
