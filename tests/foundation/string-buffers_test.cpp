// tests/foundation/string-buffers_test.cpp: construction, writing, and the growth of buffers.

#include "foundation/localize2.h"
#include "foundation/vela-error.h"
#include "tests/foundation/strings.h"

#include <chrono>
#include <cstring>
#include <string>
#include <utility>

namespace {

template <class Call>
int thrownCode(Call call)
{
    try {
        call();
    } catch (velaError const& error) {
        return error.getCode();
    }
    return 0;
}

/// The vtable slot of a virtual member function. In the Itanium C++ ABI its pointer holds 1 + the offset in bytes.
template <class Method>
size_t slotOf(Method method)
{
    size_t first = 0;
    std::memcpy(&first, &method, sizeof first);
    return (first - 1) / sizeof(void*);
}

} // namespace

TEST(StringBuffers, ADefaultStringIsEmptyWithACapacityOf32Units)
{
    sstring const text;
    EXPECT_EQ(text.getLength(), 0u);
    EXPECT_EQ(text.getCapacity(), 32u);
    EXPECT_EQ(text.getCapacityA(), 0u);
    EXPECT_EQ(text.getCapacityW(), 0u);
    EXPECT_EQ(text.getUnicode()[0], 0);
    EXPECT_EQ(text.isTare(), 0u);
}

TEST(StringBuffers, AnUnallocatedStringGetsItsBufferWhenItIsWritten)
{
    sstring text = sstring::unallocated();
    EXPECT_EQ(text.getCapacity(), 0u);
    EXPECT_EQ(text.getLength(), 0u);
    EXPECT_EQ(text.getUnicode()[0], 0);
    EXPECT_TRUE(text == sstring());
    text += sstring("later");
    EXPECT_EQ(text.getCapacity(), 32u);
    EXPECT_TRUE(text == sstring("later"));
    EXPECT_EQ(sstring::unallocated().getUnicode()[0], 0) << "what they share has been written";
}

TEST(StringBuffers, NotFoundIsAllOnes) { EXPECT_EQ(sstring::npos, 0xFFFFFFFFu); }

TEST(StringBuffers, OnlyTheFourComparisonsAreVirtualInThisOrder)
{
    using Bytes = int (sstring::*)(unsigned char const*, unsigned int) const;
    using Units = int (sstring::*)(unsigned short const*, unsigned int) const;
    EXPECT_EQ(slotOf(static_cast<Bytes>(&sstring::compare)), 0u);
    EXPECT_EQ(slotOf(static_cast<Units>(&sstring::compare)), 1u);
    EXPECT_EQ(slotOf(static_cast<Bytes>(&sstring::comparei)), 2u);
    EXPECT_EQ(slotOf(static_cast<Units>(&sstring::comparei)), 3u);
    EXPECT_FALSE(std::has_virtual_destructor_v<sstring>);
    EXPECT_EQ(sizeof(istring), sizeof(sstring));
    EXPECT_EQ(sizeof(sformat), sizeof(sstring));
}

TEST(StringBuffers, ConstructorsTakeStartAndCount)
{
    EXPECT_EQ(sstring("abcdef", 2), "cdef");
    EXPECT_EQ(sstring("abcdef", 2, 3), "cde");
    EXPECT_EQ(sstring(u8("abcdef"), 1, 1), "b");
    EXPECT_EQ(sstring(u16(u"abcdef"), 3, 2), "de");
    EXPECT_EQ(sstring(sstring("abcdef"), 4), "ef");
    EXPECT_EQ(istring("abcdef", 2, 3), "CDE");
    EXPECT_EQ(sstring("abcdef").subString(1, 2), "bc");
}

TEST(StringBuffers, APartOfAnotherStringCanBeSet)
{
    LOCALE* japanese = Locale_Create("ja_JP");
    sstring other("abcdef");
    other.setLocale(japanese);
    sstring text("xyz");
    EXPECT_EQ(text.set(other, 2, 3), "cde");
    EXPECT_EQ(text.set(other, 0, 1), "ade") << "an explicit count overwrites in place";
    EXPECT_EQ(text.set(other, 4), "ef");
    EXPECT_EQ(text.getLocale(), Locale_GetDefault()) << "only the text is taken";
    text.setAt(3, other, 0, 2);
    EXPECT_EQ(text, "ef ab");
    text.setAt(1, text, 2);
    EXPECT_EQ(text, "e ab");
    text.setAt(0, other, 100, 100);
    EXPECT_EQ(text, "e ab");
    text.setAt(0, other, 100);
    EXPECT_EQ(text.getLength(), 0u);
    Locale_Destroy(japanese);
}

TEST(StringBuffers, RangesPastTheEndAreCut)
{
    sstring const text("abc");
    EXPECT_EQ(text.subString(1, 100), "bc");
    EXPECT_EQ(text.subString(3).getLength(), 0u);
    EXPECT_EQ(text.subString(100, 5).getLength(), 0u);
    EXPECT_EQ(sstring("abc", 1, 100).getLength(), 2u);
    EXPECT_EQ(sstring("abc", 100).getLength(), 0u);
    EXPECT_EQ(sstring(u16(u"abc"), 3).getLength(), 0u);
    EXPECT_EQ(sstring(u16(u"abc\0def"), 5).getLength(), 0u);
    EXPECT_EQ(sstring(u16(u"abc\0def"), 4, 3), "def") << "an explicit count asks for no terminator";
    sstring const holed(u16(u"ab\0cd"), 0, 5);
    EXPECT_EQ(holed.subString(3), "cd");
}

TEST(StringBuffers, NullTextIsEmptyText)
{
    EXPECT_EQ(sstring(static_cast<char const*>(nullptr)).getLength(), 0u);
    EXPECT_EQ(sstring(static_cast<unsigned short const*>(nullptr), 3, 4).getLength(), 0u);
    sstring text("abc");
    text.append(static_cast<unsigned short const*>(nullptr));
    text.append(static_cast<unsigned char const*>(nullptr));
    EXPECT_EQ(text, "abc");
    EXPECT_GT(text.compare(static_cast<unsigned short const*>(nullptr), sstring::npos), 0);
}

TEST(StringBuffers, WritingPastTheEndFillsTheGapWithSpaces)
{
    sstring text("xyz");
    text.setAt(10, "ab");
    EXPECT_EQ(text, "xyz       ab");
    EXPECT_EQ(text.getLength(), 12u);
}

TEST(StringBuffers, AnExplicitCountOverwritesInPlace)
{
    sstring text;
    text.set("abcdef");
    text.setAt(1, "XY", 0, 2);
    EXPECT_EQ(text, "aXYdef");
    EXPECT_EQ(text.getLength(), 6u);
}

TEST(StringBuffers, AWholeSourceWriteEndsTheText)
{
    sstring text("abcdef");
    text.setAt(1, "XY", 0, sstring::npos);
    EXPECT_EQ(text, "aXY");
    EXPECT_EQ(text.getLength(), 3u);
    text = "abcdef";
    text.setAt(2, u16(u""));
    EXPECT_EQ(text, "ab");
}

TEST(StringBuffers, AnExplicitCountThatReachesTheOldEndSetsTheLength)
{
    sstring text("abc");
    text.setAt(1, u16(u"XYZ"), 0, 2);
    EXPECT_EQ(text, "aXY");
    text.setAt(2, u16(u"123"), 1, 2);
    EXPECT_EQ(text, "aX23");
    text.setAt(0, "zz", 0, 0);
    EXPECT_EQ(text, "aX23");
}

TEST(StringBuffers, AnExplicitCountOf16BitTextNeedsNoTerminator)
{
    unsigned short const units[] = {'a', 0, 'b'};
    sstring text;
    text.set(units, 0, 3);
    EXPECT_EQ(text.getLength(), 3u);
    EXPECT_EQ(text[2], 'b');
}

TEST(StringBuffers, TextMayComeFromTheStringItself)
{
    sstring text("abcdef");
    text += text;
    EXPECT_EQ(text, "abcdefabcdef");
    text.set(text.getUnicode() + 3, 0, 3);
    EXPECT_EQ(text, "defdefabcdef");
    text.append(text.getUnicode());
    EXPECT_EQ(text, "defdefabcdefdefdefabcdef");
    text = text.getUnicode() + 21;
    EXPECT_EQ(text, "def");
}

TEST(StringBuffers, GrowthKeepsTextThatComesFromTheStringItself)
{
    sstring text("0123456789");
    for (int i = 0; i < 10; ++i)
        text.append(text.getUnicode());
    EXPECT_EQ(text.getLength(), 10240u);
    EXPECT_EQ(text.subString(10230), "0123456789");
    sstring const& itself = text;
    text = itself;
    EXPECT_EQ(text.getLength(), 10240u);
}

TEST(StringBuffers, RequestsAreRoundedUpToMultiplesOfTheLength)
{
    sstring text;
    text.setSize(16);
    EXPECT_EQ(text.getCapacity(), 32u); // 16 + 16 fits
    text.setSize(17);
    EXPECT_EQ(text.getCapacity(), 64u); // the smallest step is 32
    text.set(sstring("x") * 99);
    EXPECT_EQ(text.getLength(), 100u);
    text.setSize(200);
    EXPECT_EQ(text.getCapacity(), 300u); // 216 in steps of 100
    text.setSize(284);
    EXPECT_EQ(text.getCapacity(), 300u);
    text.setSize(285);
    EXPECT_EQ(text.getCapacity(), 400u);
    EXPECT_EQ(text.getLength(), 100u);
}

TEST(StringBuffers, TheLargestStepIsOneMebiUnit)
{
    sstring text;
    text.setAt(1100000, "x");
    unsigned int const before = text.getCapacity();
    EXPECT_EQ(before, 1100032u);
    text.setSize(before);
    EXPECT_EQ(text.getCapacity(), 0x200000u);
}

TEST(StringBuffers, TheOtherTwoBuffersGrowByTheSameRule)
{
    sstring const text("abc");
    text.setSizeA(1);
    EXPECT_EQ(text.getCapacityA(), 32u);
    text.setSizeA(2048);
    EXPECT_EQ(text.getCapacityA(), 2080u);
    text.setSizeW(40);
    EXPECT_EQ(text.getCapacityW(), 64u);
    text.getAnsi();
    EXPECT_EQ(text.getCapacityA(), 2080u);
    sstring const other("abc");
    other.getAnsi();
    EXPECT_EQ(other.getCapacityA(), 32u); // 3 * 4 + 4 + 16
}

TEST(StringBuffers, MoreThanTwoToThe31UnitsAreRefused)
{
    sstring text("abc");
    EXPECT_EQ(thrownCode([&] { text.setSize(0x80000001u); }), 12);
    EXPECT_EQ(thrownCode([&] { text.setSizeW(0xFFFFFFFFu); }), 12);
    EXPECT_EQ(thrownCode([&] { text.setSizeA(0xFFFFFFFFu); }), 12);
    EXPECT_EQ(thrownCode([&] { text.setAt(0xFFFFFFF0u, "x"); }), 12);
    EXPECT_EQ(thrownCode([&] { text[-1] = 'x'; }), 12);
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(text.getCapacity(), 32u);
}

TEST(StringBuffers, AnErrorCarriesItsCodeAndMessage)
{
    velaError const plain(12);
    EXPECT_EQ(plain.getCode(), 12);
    EXPECT_EQ(plain.getMessage().getLength(), 0u);
    EXPECT_EQ(plain.getMessage().getUnicode()[0], 0);
    velaError const told(22, "no such granule");
    velaError const copy(told);
    EXPECT_EQ(copy.getCode(), 22);
    EXPECT_EQ(copy.getMessage(), "no such granule");
}

TEST(StringBuffers, DirectWritingLeavesTheLengthToTheWriter)
{
    sstring text;
    strcpy16(text.getBuffer(100), u16(u"written"));
    EXPECT_EQ(text.getLength(), 0u);
    EXPECT_GE(text.getCapacity(), 116u);
    text = text.getUnicode();
    EXPECT_EQ(text.getLength(), 7u);
    EXPECT_EQ(text.getUnicodeAt(2)[0], 'i');
}

TEST(StringBuffers, AMovedFromStringIsEmptyAndGoesOnWorking)
{
    sstring from("abc");
    sstring to(std::move(from));
    EXPECT_EQ(to, "abc");
    EXPECT_EQ(from.getLength(), 0u); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(!from);
    EXPECT_EQ(from, "");
    EXPECT_STREQ(from.c_str(), "");
    EXPECT_EQ(from.find('a'), sstring::npos);
    EXPECT_EQ(from[3], 0);
    from += "new";
    EXPECT_EQ(from, "new");
    to = std::move(from);
    EXPECT_EQ(to, "new");
}

TEST(StringBuffers, TheEightBitRenderingIsBuiltByEachRequest)
{
    sstring text("abc");
    EXPECT_STREQ(text.c_str(), "abc");
    text[0] = 'X';
    EXPECT_STREQ(text.c_str(), "Xbc");
    EXPECT_EQ(strcmp8(text.getAnsiAt(1), u8("bc")), 0);
    EXPECT_EQ(text.getAnsiAt(3)[0], 0);
    EXPECT_EQ(text.getAnsiAt(100)[0], 0);
    EXPECT_EQ(text.toUnicode(), text.getUnicode());
    EXPECT_EQ(strcmp8(text.toAnsi(), text.getAnsi()), 0);
}

TEST(StringBuffers, TheStringsLocaleNamesItsCodeSet)
{
    LOCALE* japanese = Locale_Create("ja_JP");
    sstring text;
    EXPECT_EQ(text.getLocale(), Locale_GetDefault());
    LOCALE* own = text.setLocale(japanese);
    EXPECT_NE(own, japanese);
    EXPECT_STREQ(own->name, "ja_JP");
    Locale_Destroy(japanese);
    text.set("\x82\xa0");
    EXPECT_EQ(text, u16(u"\u3042"));
    EXPECT_STREQ(text.c_str(), "\x82\xa0");
    EXPECT_EQ(text, "\x82\xa0");
    EXPECT_EQ(text.find("\x82\xa0"), sstring::npos); // converted by the argument's own locale, the default
    EXPECT_NE(text.strstr("\x82\xa0"), nullptr);
    text.append("\x82\xa2");
    EXPECT_EQ(text, u16(u"\u3042\u3044"));
    EXPECT_EQ(text % "\x82\xa2", sstring(u16(u"\u3044")));
    EXPECT_EQ(text.replace(u8("\x82\xa2"), u8("x")), 2u);

    sstring const copy(text);
    EXPECT_STREQ(copy.getLocale()->name, "ja_JP");
    EXPECT_NE(copy.getLocale(), text.getLocale());
    sstring assigned("x");
    assigned = copy;
    EXPECT_STREQ(assigned.getLocale()->name, "ja_JP");
    assigned = sstring("plain");
    EXPECT_EQ(assigned.getLocale(), Locale_GetDefault());
    EXPECT_EQ(text.setLocale(Locale_GetDefault()), Locale_GetDefault());
    EXPECT_EQ(text.setLocale(nullptr), Locale_GetDefault());
}

TEST(StringBuffers, TareSetsItsFlag)
{
    sstring text;
    text.tare();
    EXPECT_EQ(text.isTare(), 1u);
}

TEST(StringBuffers, AppendingUnitByUnitIsAmortised)
{
    sstring text;
    unsigned int growths = 0;
    unsigned int capacity = text.getCapacity();
    for (unsigned int i = 0; i < 1000000; ++i) {
        text += static_cast<unsigned short>('a' + i % 26);
        growths += text.getCapacity() != capacity;
        capacity = text.getCapacity();
    }
    EXPECT_EQ(text.getLength(), 1000000u);
    EXPECT_EQ(text[999999], 'a' + 999999 % 26);
    EXPECT_LT(growths, 30u);
}
