// tests/foundation/string-convert_test.cpp: conversions between 8-bit and 16-bit text.

#include "foundation/localize2.h"
#include "foundation/vela-comtypes.h"
#include "tests/foundation/strings.h"

#include <thread>

#include <unicode/ucnv.h>

namespace {

sstring decoded(char const* charset, char const* text)
{
    unsigned short out[64];
    return ConvertToUnicode(charset, out, u8(text), 64) ? sstring(out) : sstring("failed");
}

std::string encoded(char const* charset, char16_t const* text)
{
    unsigned char out[64];
    return ConvertToOEM(charset, out, u16(text), 64) ? reinterpret_cast<char const*>(out) : "failed";
}

/// The text converted by a converter of its own.
std::u16string decodedByIcu(char const* charset, std::string const& text)
{
    UConverter* converter = OpenConverter(charset);
    UErrorCode error = U_ZERO_ERROR;
    std::u16string out(text.size() * 2 + 1, 0);
    out.resize(static_cast<size_t>(ucnv_toUChars(converter, out.data(), static_cast<int32_t>(out.size()), text.data(),
                                                 static_cast<int32_t>(text.size()), &error)));
    CloseConverter(converter);
    return out;
}

/// Makes a locale the process default during a test.
class DefaultLocale
{
public:
    explicit DefaultLocale(char const* name) : locale(Locale_Create(name)) { Locale_SetDefault(locale); }
    ~DefaultLocale()
    {
        Locale_SetDefault(nullptr);
        Locale_Destroy(locale);
    }
    LOCALE* locale;
};

} // namespace

TEST(StringConvert, EveryCodeSetOfTheTableOpens)
{
    for (char const* name : {"IBM-850", "IBM-932", "ksc_5601", "IBM-1381", "BIG5"}) {
        UConverter* converter = OpenConverter(name);
        EXPECT_NE(converter, nullptr) << name;
        CloseConverter(converter);
    }
}

TEST(StringConvert, NoConverterForEmptyOrUnknownNames)
{
    EXPECT_EQ(OpenConverter(""), nullptr);
    EXPECT_EQ(OpenConverter(nullptr), nullptr);
    EXPECT_EQ(OpenConverter("no-such-code-set"), nullptr);
    CloseConverter(nullptr);
}

TEST(StringConvert, DecodesAndEncodesEachCodeSet)
{
    EXPECT_EQ(decoded("IBM-850", "\x82x"), u16(u"\u00e9x"));
    EXPECT_EQ(decoded("IBM-932", "\x82\xa0"), u16(u"\u3042"));
    EXPECT_EQ(decoded("ksc_5601", "\xb0\xa1"), u16(u"\uac00"));
    EXPECT_EQ(decoded("IBM-1381", "\xb0\xa1"), u16(u"\u554a"));
    EXPECT_EQ(decoded("BIG5", "\xa4\x40"), u16(u"\u4e00"));
    EXPECT_EQ(decoded("utf-8", "\xf0\x9f\x98\x80"), u16(u"\U0001f600"));
    EXPECT_EQ(encoded("IBM-850", u"\u00e9x"), "\x82x");
    EXPECT_EQ(encoded("IBM-932", u"\u3042"), "\x82\xa0");
    EXPECT_EQ(encoded("ksc_5601", u"\uac00"), "\xb0\xa1");
    EXPECT_EQ(encoded("IBM-1381", u"\u554a"), "\xb0\xa1");
    EXPECT_EQ(encoded("BIG5", u"\u4e00"), "\xa4\x40");
    EXPECT_EQ(encoded("utf-8", u"\U0001f600"), "\xf0\x9f\x98\x80");
}

TEST(StringConvert, OutputIsZeroFilledUpToTheCapacity)
{
    unsigned short wide[8];
    unsigned char narrow[8];
    for (char const* charset : {"IBM-850", "utf-16be", "utf-8"}) {
        std::fill(std::begin(wide), std::end(wide), static_cast<unsigned short>(0xAAAA));
        EXPECT_TRUE(ConvertToUnicode(charset, wide, u8("ab"), 7));
        EXPECT_EQ(wide[6], 0) << charset;
        EXPECT_EQ(wide[7], 0xAAAA) << charset;
    }
    std::fill(std::begin(narrow), std::end(narrow), static_cast<unsigned char>(0xAA));
    EXPECT_TRUE(ConvertToOEM("IBM-850", narrow, u16(u"\u00e9"), 7));
    EXPECT_EQ(narrow[1], 0);
    EXPECT_EQ(narrow[6], 0);
    EXPECT_EQ(narrow[7], 0xAA);
}

TEST(StringConvert, EmptyInputSucceedsAndWrongInputFails)
{
    unsigned short wide[4] = {1, 1, 1, 1};
    EXPECT_TRUE(ConvertToUnicode("IBM-850", wide, u8(""), 4));
    EXPECT_EQ(wide[0], 0);
    EXPECT_FALSE(ConvertToUnicode("no-such-code-set", wide, u8("a"), 4));
    EXPECT_FALSE(ConvertToUnicode("IBM-850", wide, u8("abcde"), 4));
    EXPECT_FALSE(ConvertToUnicode("IBM-850", wide, u8("\x82\x82\x82\x82\x82"), 4));
    EXPECT_FALSE(ConvertToUnicode("IBM-850", wide, nullptr, 4));
    EXPECT_FALSE(ConvertToUnicode("IBM-850", nullptr, u8("a"), 4));
    unsigned char narrow[4];
    EXPECT_FALSE(ConvertToOEM("utf-8", narrow, u16(u"\u3042\u3042"), 4));
    EXPECT_FALSE(ConvertToOEM("no-such-code-set", narrow, u16(u"a"), 4));
}

TEST(StringConvert, ATextOfExactlyTheCapacityFits)
{
    unsigned short wide[3] = {};
    EXPECT_TRUE(ConvertToUnicode("IBM-850", wide, u8("abc"), 3));
    EXPECT_EQ(wide[2], 'c');
    EXPECT_TRUE(ConvertToUnicode("IBM-850", wide, u8("ab\x82"), 3));
    EXPECT_EQ(wide[2], 0xE9);
}

TEST(StringConvert, PlainAsciiIsCopiedAsTheConverterWouldConvertIt)
{
    for (char const* charset : {"IBM-850", "IBM-932", "ksc_5601", "IBM-1381", "BIG5", "utf-8", "iso-8859-1",
                                "shift_jis", "euc-kr", "gb2312", "utf-7", "iso-2022-jp", "hz", "ibm-037", "utf-16le"}) {
        for (int byte = 1; byte < 0x80; ++byte) {
            std::string const text{static_cast<char>(byte), '~', '{', 'A'};
            unsigned short out[16];
            ASSERT_TRUE(ConvertToUnicode(charset, out, u8(text.c_str()), 16));
            std::u16string const expected = decodedByIcu(charset, text);
            EXPECT_EQ(strcmp16(out, u16(expected.c_str())), 0) << charset << " byte " << byte;
        }
    }
}

TEST(StringConvert, ConversionsDoNotInfluenceEachOther)
{
    EXPECT_EQ(decoded("iso-2022-jp", "\x1b$B$\""), u16(u"\u3042"));
    EXPECT_EQ(decoded("iso-2022-jp", "$\""), "$\"");
    EXPECT_EQ(decoded("utf-8", "\xe3\x81"), u16(u"\ufffd"));
    EXPECT_EQ(decoded("utf-8", "\x82"), u16(u"\ufffd"));
}

TEST(StringConvert, MoreCodeSetsThanAreKeptOpenStillConvert)
{
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(decoded("utf-8", "\xc3\xa9"), u16(u"\u00e9"));
        for (char const* name : {"iso-8859-1", "iso-8859-15", "windows-1252", "windows-1250", "windows-1251",
                                 "windows-1253", "windows-1254", "windows-1255", "windows-1257", "koi8-r"})
            EXPECT_NE(decoded(name, "\xe9"), "failed") << name;
        EXPECT_EQ(decoded(std::string(500, 'x').c_str(), "a"), "failed");
        EXPECT_EQ(decoded("koi8-r", "\xe9"), u16(u"\u0418"));
    }
}

TEST(StringConvert, AnotherThreadConvertsWithConvertersOfItsOwn)
{
    sstring result;
    std::thread other([&] { result = decoded("IBM-932", "\x82\xa0"); });
    EXPECT_EQ(decoded("IBM-932", "\x82\xa2"), u16(u"\u3044"));
    other.join();
    EXPECT_EQ(result, u16(u"\u3042"));
}

TEST(StringConvert, ALocaleNamesTheCodeSet)
{
    LOCALE* korean = Locale_Create("ko_KR");
    unsigned short wide[8];
    unsigned char narrow[8];
    EXPECT_TRUE(AnsiToUnicode(wide, u8("\xb0\xa1"), 8, korean));
    EXPECT_EQ(wide[0], 0xAC00);
    EXPECT_TRUE(UnicodeToAnsi(narrow, wide, 8, korean));
    EXPECT_EQ(strcmp8(narrow, u8("\xb0\xa1")), 0);
    EXPECT_FALSE(AnsiToUnicode(nullptr, u8("a"), 8, korean));
    EXPECT_FALSE(UnicodeToAnsi(narrow, nullptr, 8, korean));
    Locale_Destroy(korean);
}

TEST(StringConvert, WithoutALocaleTheProcessDefaultCounts)
{
    DefaultLocale const chinese("zh_CN");
    unsigned short wide[8];
    EXPECT_TRUE(AnsiToUnicode(wide, u8("\xb0\xa1"), 8));
    EXPECT_EQ(wide[0], 0x554A);
    EXPECT_TRUE(ConvertToUnicode("", wide, u8("\xb0\xa1"), 8));
    EXPECT_EQ(wide[0], 0x554A);
    EXPECT_TRUE(ConvertToUnicode(nullptr, wide, u8("\xb0\xa1"), 8));
    EXPECT_EQ(wide[0], 0x554A);
    EXPECT_EQ(sstring("\xb0\xa1"), u16(u"\u554a"));
}

TEST(StringConvert, WithoutAConverterEachByteIsWidened)
{
    unsigned short wide[4];
    EXPECT_TRUE(AnsiToUnicodeIn("no-such-code-set", wide, u8("a\xff"), 4));
    EXPECT_EQ(wide[1], 0xFF);
    EXPECT_EQ(wide[2], 0);
    EXPECT_TRUE(AnsiToUnicodeIn("no-such-code-set", wide, u8("abcdefgh"), 4));
    EXPECT_EQ(wide[3], 'd');
}

TEST(StringConvert, WhatDoesNotFitIsNarrowedUpToTheCapacity)
{
    LOCALE* japanese = Locale_Create("ja_JP");
    unsigned char narrow[3];
    EXPECT_TRUE(UnicodeToAnsi(narrow, u16(u"\u3042\u3044\u3046\u3048"), 3, japanese));
    EXPECT_EQ(narrow[0], 0x42);
    EXPECT_EQ(narrow[2], 0x46);
    Locale_Destroy(japanese);
}

TEST(StringConvert, StaticBuffersAreReusedAndNeverShrink)
{
    DefaultLocale const japanese("ja_JP");
    EXPECT_EQ(ToAnsi16(nullptr), nullptr);
    EXPECT_EQ(ToUnicode8(nullptr), nullptr);
    std::string const longText(5000, 'x');
    unsigned char* narrow = ToAnsi16(sstring(longText.c_str()));
    EXPECT_EQ(strlen8(narrow), 5000u);
    EXPECT_EQ(ToAnsi16(u16(u"\u3042")), narrow);
    EXPECT_EQ(strcmp8(narrow, u8("\x82\xa0")), 0);
    unsigned short* wide = ToUnicode8(u8(longText.c_str()));
    EXPECT_EQ(strlen16(wide), 5000u);
    EXPECT_EQ(ToUnicode8(u8("\x82\xa0")), wide);
    EXPECT_EQ(strcmp16(wide, u16(u"\u3042")), 0);
}

TEST(StringConvert, PlainAsciiLeavesOutWhatSomeCodeSetsExchange)
{
    unsigned short units[] = {'a', 0x1A, 0x1C, 0x7F, 0x80, 0x3042};
    EXPECT_TRUE(isPlainAscii(units, 1));
    for (int i = 1; i < 6; ++i)
        EXPECT_FALSE(isPlainAscii(units + i, 1)) << i;
    unsigned char const edges[] = {0x01, 0x19, 0x1B, 0x1D, 0x20, 0x7E};
    EXPECT_TRUE(isPlainAscii(edges, 6));
    LOCALE* japanese = Locale_Create("ja_JP");
    EXPECT_TRUE(keepsPlainAscii(japanese));
    Locale_Destroy(japanese);
}
