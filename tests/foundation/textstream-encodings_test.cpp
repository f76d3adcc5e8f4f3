// tests/foundation/textstream-encodings_test.cpp: decoding: byte-order marks, declared code sets, characters at chunk
// boundaries, and bytes that are not text.

#include "foundation/vela-tsdecoder.h"
#include "tests/foundation/streams.h"

#include <functional>
#include <random>

#include <unicode/ucnv.h>
#include <unicode/utf16.h>

namespace {

std::u16string readAll(std::string const& bytes)
{
    MemorySource source(bytes);
    return allUnits(*source.get());
}

std::u16string readAllFromFile(std::string const& bytes)
{
    TemporaryFile file(bytes);
    textstream stream(file.name());
    return allUnits(stream);
}

/// The bytes of a text in a code set of ICU.
std::string encoded(std::u16string const& text, char const* codeSet)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(codeSet, &status);
    std::string out(text.size() * 8 + 16, 0);
    int const length = ucnv_fromUChars(converter, out.data(), static_cast<int>(out.size()), text.data(),
                                       static_cast<int>(text.size()), &status);
    EXPECT_TRUE(U_SUCCESS(status)) << codeSet;
    ucnv_close(converter);
    out.resize(static_cast<size_t>(length));
    return out;
}

std::u16string decodedWhole(std::string const& bytes, char const* codeSet)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(codeSet, &status);
    std::u16string out(bytes.size() * 2 + 16, 0);
    int const length = ucnv_toUChars(converter, out.data(), static_cast<int>(out.size()), bytes.data(),
                                     static_cast<int>(bytes.size()), &status);
    EXPECT_TRUE(U_SUCCESS(status)) << codeSet;
    ucnv_close(converter);
    out.resize(static_cast<size_t>(length));
    return out;
}

std::string declared(std::string const& codeSet) { return "<meta content='text/html; charset=" + codeSet + "'>"; }

struct Language
{
    char const* codeSet;
    char const* locale;
    std::u16string text;
};

std::vector<Language> languages()
{
    return {{"shift_jis", "ja_JP", u"\u65E5\u672C\u8A9E\uFF76\u30C6\u30B9\u30C8 abc"},
            {"euc-kr", "ko_KR", u"\uD55C\uAD6D\uC5B4 abc"},
            {"gb2312", "zh_CN", u"\u4E2D\u6587 abc"},
            {"big5", "zh_TW", u"\u4E2D\u6587\u7E41\u9AD4 abc"},
            {"iso-8859-1", "en_US", u"Gr\u00FC\u00DFe \u00E9"},
            {"utf-8", "utf-8", u"Gr\u00FC\u00DFe \u65E5 \U0001F600 abc"}};
}

} // namespace

TEST(TextstreamEncodings, FileOfOnlyAMarkIsAnEmptyText)
{
    TemporaryFile file("\xFF\xFE");
    textstream stream(file.name());
    EXPECT_EQ(stream.peek(), 0);
    EXPECT_EQ(stream.pop(), 0);
    EXPECT_EQ(readAll("\xFE\xFF"), u"");
    EXPECT_EQ(readAll("\xEF\xBB\xBF"), u"");
    EXPECT_EQ(readAll(""), u"");
}

TEST(TextstreamEncodings, BothByteOrdersGiveTheSameUnits)
{
    std::u16string text = u"Gr\u00FC\u00DFe \u65E5\u672C \U0001F600 ";
    while (text.size() < 40000)
        text += text;
    for (bool isBig : {false, true}) {
        EXPECT_EQ(readAll(utf16Bytes(text, isBig)), text);
        EXPECT_EQ(readAllFromFile(utf16Bytes(text, isBig)), text);
    }
}

TEST(TextstreamEncodings, AnOddByteAtTheEndOfUtf16IsIgnored)
{
    EXPECT_EQ(readAll(utf16Bytes(u"ab", false) + "x"), u"ab");
    EXPECT_EQ(readAll("\xFF\xFEx"), u"");
}

TEST(TextstreamEncodings, MarkOfUtf8IsOnlySkipped)
{
    MemorySource source("\xEF\xBB\xBF" + declared("utf-8") + "\xC3\xA9");
    EXPECT_EQ(source->peek(), '<');
    EXPECT_EQ(allUnits(*source.get()).back(), u'\u00E9');
}

TEST(TextstreamEncodings, Utf8WithoutDeclarationReadsInTheLocalesCodeSet)
{
    LOCALE* locale = Locale_Create("en_US");
    for (char const* mark : {"", "\xEF\xBB\xBF"}) {
        MemorySource source(std::string(mark) + "\xC3\xA9");
        source->setLocale(locale);
        EXPECT_EQ(allUnits(*source.get()), decodedWhole("\xC3\xA9", "IBM-850"));
    }
    Locale_Destroy(locale);
}

TEST(TextstreamEncodings, UndeclaredTextTakesTheDefaultLocale)
{
    LOCALE* korean = Locale_Create("ko_KR");
    Locale_SetDefault(korean);
    MemorySource source("\xB0\xA1");
    EXPECT_EQ(source->getLocale(), nullptr);
    EXPECT_EQ(allUnits(*source.get()), u"\uAC00");
    EXPECT_STREQ(source->getLocale()->name, "ko_KR");
    Locale_SetDefault(nullptr);
    Locale_Destroy(korean);
}

TEST(TextstreamEncodings, DeclaredCodeSetDecodesAndNamesTheLocale)
{
    for (Language const& language : languages()) {
        std::string const page = declared(language.codeSet) + encoded(language.text, language.codeSet);
        MemorySource source(page);
        std::u16string const units = allUnits(*source.get());
        EXPECT_EQ(text8(units.substr(declared(language.codeSet).size())), text8(language.text)) << language.codeSet;
        EXPECT_STREQ(source->getLocale()->name, language.locale);
    }
}

TEST(TextstreamEncodings, TextReadTakesTheStreamsLocale)
{
    MemorySource source(declared("shift_jis"));
    EXPECT_STREQ(source->toString().getLocale()->name, "ja_JP");
}

TEST(TextstreamEncodings, CharactersAtAndOverTheBoundaryDecode)
{
    // The chunk boundary, byte 16,384, falls on each byte of a piece of text in turn; several chunks follow.
    for (Language const& language : languages()) {
        std::string const head = declared(language.codeSet);
        std::string const text = encoded(language.text, language.codeSet);
        for (unsigned int shift = 0; shift < text.size() + 4; ++shift) {
            std::string page = head + std::string(16384 - head.size() - shift, '.');
            std::u16string expected(page.begin(), page.end());
            while (page.size() < 50000) {
                page += text;
                expected += language.text;
            }
            ASSERT_EQ(readAll(page), expected) << language.codeSet << " " << shift;
            if (shift % 5 == 0) {
                ASSERT_EQ(readAllFromFile(page), expected) << language.codeSet << " " << shift;
            }
        }
    }
}

TEST(TextstreamEncodings, DeclarationIsSearchedInTheFirstChunkOnly)
{
    std::string const late = std::string(17000, '.') + declared("euc-kr") + "\xB0\xA1";
    MemorySource source(late);
    LOCALE* locale = Locale_Create("en_US");
    Locale_SetDefault(locale);
    EXPECT_EQ(allUnits(*source.get()).substr(late.size() - 2), decodedWhole("\xB0\xA1", "IBM-850"));
    Locale_SetDefault(nullptr);
    Locale_Destroy(locale);
}

TEST(TextstreamEncodings, LocaleClearedLaterStartsNoNewSearch)
{
    std::string const late = std::string(17000, '.') + declared("euc-kr") + "\xB0\xA1";
    MemorySource source(late);
    LOCALE* locale = Locale_Create("en_US");
    Locale_SetDefault(locale);
    EXPECT_EQ(source->advance(10), 10u);
    source->setLocale(nullptr);
    EXPECT_EQ(allUnits(*source.get()).substr(late.size() - 12), decodedWhole("\xB0\xA1", "IBM-850"));
    EXPECT_STREQ(source->getLocale()->name, "en_US");
    source->close();
    source->setLocale(nullptr);
    std::string next = declared("euc-kr") + "\xB0\xA1";
    ASSERT_EQ(source->open(reinterpret_cast<unsigned char*>(next.data()), static_cast<unsigned int>(next.size()), 0),
              1);
    EXPECT_EQ(allUnits(*source.get()).back(), u'\uAC00') << "another source has a first chunk of its own";
    Locale_SetDefault(nullptr);
    Locale_Destroy(locale);
}

TEST(TextstreamEncodings, LocaleSetFromOutsideStopsTheSearch)
{
    LOCALE* korean = Locale_Create("euc-kr");
    MemorySource source(declared("shift_jis") + "\xB0\xA1");
    source->setLocale(korean);
    EXPECT_EQ(allUnits(*source.get()).back(), u'\uAC00');
    source->setLocale(nullptr);
    EXPECT_EQ(source->getLocale(), nullptr);
    Locale_Destroy(korean);
}

TEST(TextstreamEncodings, UnknownCodeSetWidensEachByte)
{
    EXPECT_EQ(readAll(declared("no-such-set") + "\x80\xE9\xFF").substr(declared("no-such-set").size()),
              u"\u0080\u00E9\u00FF");
}

TEST(TextstreamEncodings, ZeroUnitsAreSkipped)
{
    using namespace std::string_literals;
    EXPECT_EQ(readAll("charset=utf-8 a\0b\0\0c"s), u"charset=utf-8 abc");
    EXPECT_EQ(readAll("charset=iso-8859-1 \0\0x"s), u"charset=iso-8859-1 x");
    EXPECT_EQ(readAll("\xFF\xFE"
                      "a\0\0\0b\0"s),
              u"ab");
    EXPECT_EQ(readAll("charset=utf-8"s + std::string(40000, 0) + "end"), u"charset=utf-8end");
}

TEST(TextstreamEncodings, BytesThatAreNotTextAreReadToTheEnd)
{
    std::mt19937 random(11);
    for (char const* codeSet : {"utf-8", "shift_jis", "euc-kr", "gb2312", "big5", "gb18030", "iso-8859-1", "us-ascii",
                                "utf-7", "utf-16", "utf-32", "iso-2022-jp", "scsu", "hz-gb-2312", "bocu-1"}) {
        std::string bytes = declared(codeSet);
        for (int i = 0; i < 60000; ++i)
            bytes += static_cast<char>(random());
        MemorySource source(bytes);
        unsigned int previous = 0;
        unsigned int chunks = 0;
        unsigned int count = 0;
        while (source->peekRun(count)) {
            EXPECT_TRUE(chunks == 0 || source->cacheStart() > previous) << codeSet;
            previous = source->cacheStart();
            source->skipRun(count);
            ++chunks;
        }
        EXPECT_GE(chunks, 4u) << codeSet;
        EXPECT_LE(chunks, 5u) << codeSet;
    }
}

TEST(TextstreamEncodings, BytesThatDecodeToNothingDoNotStallTheReader)
{
    // Window commands of a compressed encoding: thousands of bytes that decode to nothing.
    std::u16string const units = readAll(declared("scsu") + std::string(300000, '\x10') + "end");
    EXPECT_EQ(units.substr(units.size() - 3), u"end");
}

TEST(TextstreamEncodings, FileThatBecomesShorterEndsEarly)
{
    TemporaryFile file(std::string(50000, 'x'));
    textstream stream(file.name());
    stream.advance(10);
    ASSERT_EQ(truncate(file.name().c_str(), 20000), 0);
    EXPECT_EQ(stream.advance(50000), 20000u - 10u);
    EXPECT_EQ(stream.pop(), 0);
}

TEST(FindDeclaredCodeSet, ReadsTheNameAfterTheNextEqualsSign)
{
    auto find = [](std::string const& text) {
        auto const* bytes = reinterpret_cast<unsigned char const*>(text.data());
        velaBytes const name = findDeclaredCodeSet(bytes, static_cast<unsigned int>(text.size()));
        return std::string(name.begin(), name.end());
    };
    EXPECT_EQ(find("charset=utf-8"), "utf-8");
    EXPECT_EQ(find("CharSet = \t\r\n\"Shift_JIS\""), "Shift_JIS");
    EXPECT_EQ(find("charset='euc-kr'"), "euc-kr");
    EXPECT_EQ(find("charset is big: x=big5;"), "big5");
    EXPECT_EQ(find("charset=''x"), "");
    EXPECT_EQ(find("charset"), "");
    EXPECT_EQ(find("charset="), "");
    EXPECT_EQ(find("charse"), "");
    EXPECT_EQ(find("no declaration = here"), "");
    EXPECT_EQ(find("charset=" + std::string(200, 'a')), std::string(127, 'a'));
}

namespace {

/// A simple search for the end of the last whole character: drop the last byte and decode the whole chunk again until
/// the result grows, changes its last character, or shrinks for the second time. Counts characters, not units.
size_t guardedEnd(std::string const& chunk, char const* codeSet)
{
    auto measure = [&](size_t end, size_t& count, char32_t& last) {
        std::u16string const units = decodedWhole(chunk.substr(0, end), codeSet);
        count =
            static_cast<size_t>(std::count_if(units.begin(), units.end(), [](char16_t u) { return !U16_IS_TRAIL(u); }));
        last = units.empty() ? 0 : units.back();
        if (U16_IS_TRAIL(last) && units.size() > 1)
            last = U16_GET_SUPPLEMENTARY(units[units.size() - 2], last);
    };
    size_t count = 0;
    char32_t last = 0;
    measure(chunk.size(), count, last);
    bool hasShrunk = false;
    for (size_t end = chunk.size(); end > 0; --end) {
        size_t count2 = 0;
        char32_t last2 = 0;
        measure(end - 1, count2, last2);
        if (count2 > count || (count2 == count && last2 != last) || (count2 < count && hasShrunk))
            return end;
        hasShrunk = hasShrunk || count2 < count;
        count = count2;
        last = last2;
    }
    return chunk.size();
}

} // namespace

TEST(TsDecoder, ChunkEndsWhereDroppingByteAfterByteWouldEndIt)
{
    std::mt19937 random(3);
    for (char const* codeSet : {"utf-8", "shift_jis", "euc-kr", "gb2312", "big5", "gb18030", "iso-8859-1", "IBM-850"}) {
        tsDecoder decoder;
        decoder.useCodeSet(codeSet);
        for (int round = 0; round < 400; ++round) {
            std::u16string text;
            while (text.size() < 120) {
                static char16_t const letters[] = {u'a', u'\u00E9', u'\u4E2D', u'\u6587', u' ', u'\uAC00', u'\u65E5'};
                text += letters[random() % 7];
                if (random() % 4 == 0 && codeSet != std::string("iso-8859-1"))
                    text += u"\U0001F600";
            }
            std::string chunk = encoded(text, codeSet);
            chunk.resize(100 + random() % 20); // may split a character
            if (round % 4 == 0)
                for (int i = 0; i < 3; ++i)
                    chunk[chunk.size() - 1 - random() % 8] = static_cast<char>(0x80 | random());
            std::vector<unsigned short> out(chunk.size());
            tsDecoder::Result const result = decoder.decode(reinterpret_cast<unsigned char const*>(chunk.data()),
                                                            static_cast<unsigned int>(chunk.size()), false, out.data());
            ASSERT_EQ(result.bytes, guardedEnd(chunk, codeSet)) << codeSet << " " << round;
            std::u16string const expected = decodedWhole(chunk.substr(0, result.bytes), codeSet);
            ASSERT_EQ(std::u16string(out.begin(), out.begin() + result.units), expected) << codeSet << " " << round;
        }
    }
}

TEST(TsDecoder, TheLastChunkIsUsedEntirely)
{
    for (char const* codeSet : {"utf-8", "shift_jis", "iso-8859-1", "no-such-set"}) {
        tsDecoder decoder;
        decoder.useCodeSet(codeSet);
        unsigned char const bytes[] = {'a', 0xE6, 0x97};
        unsigned short out[3];
        EXPECT_EQ(decoder.decode(bytes, 3, true, out).bytes, 3u) << codeSet;
    }
}
