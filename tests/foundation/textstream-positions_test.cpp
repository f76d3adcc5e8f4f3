// tests/foundation/textstream-positions_test.cpp: reading, looking ahead and going back, also across chunk boundaries.

#include "tests/foundation/streams.h"

#include <random>

namespace {

/// Text in which each unit depends on its position.
std::string numbered(unsigned int count)
{
    std::string text;
    for (unsigned int i = 0; text.size() < count; ++i)
        text += std::to_string(i) + " ";
    text.resize(count);
    return text;
}

std::u16string widened(std::string const& text) { return std::u16string(text.begin(), text.end()); }

} // namespace

TEST(TextstreamPositions, PeekConsumesNothingAndPopDoes)
{
    MemorySource source("ab");
    EXPECT_EQ(source->peek(), 'a');
    EXPECT_EQ(source->peek(), 'a');
    EXPECT_EQ(source->pop(), 'a');
    EXPECT_EQ(source->pop(), 'b');
    EXPECT_EQ(source->peek(), 0);
    EXPECT_EQ(source->pop(), 0);
    EXPECT_EQ(source->pop(), 0);
}

TEST(TextstreamPositions, CountedReadsReturnTerminatedText)
{
    MemorySource source("abcdef");
    unsigned short units[10];
    std::fill(units, units + 10, 0xFFFF);
    EXPECT_EQ(source->peek(units, 4), 4u);
    EXPECT_EQ(units[3], 'd');
    EXPECT_EQ(units[4], 0);
    EXPECT_EQ(source->pop(units, 4), 4u);
    EXPECT_EQ(source->pop(units, 9), 2u);
    EXPECT_EQ(units[1], 'f');
    EXPECT_EQ(units[2], 0);
    EXPECT_EQ(source->pop(units, 9), 0u);
    EXPECT_EQ(units[0], 0);
}

TEST(TextstreamPositions, StringsAndBytesAreReadAlike)
{
    MemorySource source("abcdef");
    sstring text("before");
    unsigned char bytes[64];
    EXPECT_EQ(source->peek(text, 3), 3u);
    EXPECT_EQ(text8(text), "abc");
    EXPECT_EQ(source->pop(text, 2), 2u);
    EXPECT_EQ(text8(text), "ab");
    EXPECT_EQ(source->peek(bytes, 2), 2u);
    EXPECT_STREQ(reinterpret_cast<char*>(bytes), "cd");
    EXPECT_EQ(source->pop(bytes, 10), 4u);
    EXPECT_STREQ(reinterpret_cast<char*>(bytes), "cdef");
    EXPECT_EQ(source->pop(bytes, 10), 0u);
    EXPECT_STREQ(reinterpret_cast<char*>(bytes), "");
    EXPECT_EQ(source->pop(text, 0xFFFFFFFF), 0u);
    EXPECT_EQ(text8(text), "");
}

TEST(TextstreamPositions, AdvanceReturnsHowFarItMoved)
{
    MemorySource source(numbered(40000));
    EXPECT_EQ(source->advance(39990), 39990u);
    EXPECT_EQ(source->advance(100), 10u);
    EXPECT_EQ(source->advance(1), 0u);
}

TEST(TextstreamPositions, PoppedPositionAfterTwentyThousandUnitsIsExact)
{
    std::string const page = numbered(60000);
    for (unsigned int before : {0u, 100u, 16380u, 16383u, 16384u, 20000u}) {
        MemorySource source(page);
        source->advance(before);
        bookmark const place = source->getPos();
        source->pushPos();
        EXPECT_EQ(source->advance(20000), 20000u);
        source->popPos();
        EXPECT_EQ(source->getPos(), place);
        EXPECT_EQ(source->pop(), static_cast<unsigned char>(page[before])) << before;
    }
}

TEST(TextstreamPositions, BookmarksNameTheChunkAndTheUnitInIt)
{
    // A chunk of single-byte text leaves its last byte to the next one, because it might be the first of two.
    MemorySource source(numbered(40000));
    EXPECT_EQ(source->getPos(), bookmark(0, 0));
    source->advance(5);
    EXPECT_EQ(source->getPos(), bookmark(0, 5));
    source->advance(16383 - 5);
    EXPECT_EQ(source->getPos(), bookmark(16383, 0));
    source->advance(16383 + 9);
    EXPECT_EQ(source->getPos(), bookmark(32766, 9));
    source->advance(40000);
    EXPECT_EQ(source->getPos(), bookmark(32766, 40000 - 32766));
    source->rewind();
    EXPECT_EQ(source->getPos(), bookmark(0, 0));
}

TEST(TextstreamPositions, EmptyBookmarkIsTheBeginningOfTheText)
{
    MemorySource source("\xEF\xBB\xBFpage");
    EXPECT_EQ(source->getPos(), bookmark(3, 0));
    source->advance(2);
    source->setPos(bookmark());
    EXPECT_EQ(source->pop(), 'p');
}

TEST(TextstreamPositions, ReturnOverABoundaryReadsTheSourceOnce)
{
    // The source changes; the text that the stream has decoded must not.
    std::string const page = numbered(40000);
    std::vector<unsigned char> data(page.begin(), page.end());
    textstream stream(data.data(), static_cast<unsigned int>(data.size()), 0);
    stream.advance(16380);
    stream.pushPos();
    unsigned short ahead[21];
    EXPECT_EQ(stream.peek(ahead, 20), 20u);
    std::fill(data.begin(), data.end(), '#');
    stream.advance(10);
    stream.popPos();
    std::u16string units(20, 0);
    stream.pop(reinterpret_cast<unsigned short*>(units.data()), 19);
    EXPECT_EQ(units.substr(0, 19), widened(page.substr(16380, 19)));
}

TEST(TextstreamPositions, ToStringReturnsTheRest)
{
    std::string const page = numbered(3000);
    MemorySource source(page);
    EXPECT_EQ(text16(source->toString()), widened(page));
    EXPECT_EQ(source->toString().getLength(), 0u);
    source->rewind();
    source->advance(2990);
    EXPECT_EQ(source->toString().getLength(), 10u);
}

TEST(TextstreamPositions, AnyMixOfReadsEqualsOneStraightRead)
{
    std::string const page = numbered(100000);
    std::u16string const expected = widened(page);
    for (std::string const& bytes : {page, utf16Bytes(expected, false), utf16Bytes(expected, true)}) {
        MemorySource source(bytes);
        std::mt19937 random(7);
        std::vector<size_t> pushed;
        size_t at = 0;
        std::vector<unsigned short> units(30001);
        for (int step = 0; step < 3000; ++step) {
            unsigned int const n = random() % 10 ? random() % 100 : random() % 30000;
            size_t const there = std::min<size_t>(n, expected.size() - at);
            switch (random() % 6) {
            case 0:
                ASSERT_EQ(source->peek(units.data(), n), there);
                ASSERT_TRUE(std::equal(units.begin(), units.begin() + there, expected.begin() + at)) << at << " " << n;
                break;
            case 1:
            case 2:
                ASSERT_EQ(source->pop(units.data(), n), there);
                ASSERT_TRUE(std::equal(units.begin(), units.begin() + there, expected.begin() + at)) << at << " " << n;
                at += there;
                break;
            case 3:
                source->pushPos();
                pushed.push_back(at);
                break;
            case 4:
                if (!pushed.empty()) {
                    source->popPos();
                    at = pushed.back();
                    pushed.pop_back();
                }
                break;
            default:
                ASSERT_EQ(source->pop(), at < expected.size() ? expected[at] : 0);
                at += at < expected.size();
            }
            if (at == expected.size() && pushed.empty()) {
                source->rewind();
                at = 0;
            }
        }
    }
}

TEST(TextstreamPositions, DatastreamReadsAStringsText)
{
    sstring text(u16(u"Gr\u00FC\u00DFe \u65E5\u672C"));
    datastream stream(text);
    text = "changed"; // the stream has a copy
    EXPECT_EQ(stream.getPos(), bookmark(0, 0));
    EXPECT_EQ(stream.isOpen(), 1);
    EXPECT_EQ(text16(stream.toString()), u"Gr\u00FC\u00DFe \u65E5\u672C");
    stream.close();
    EXPECT_EQ(stream.reopen(), 1);
    stream.rewind();
    EXPECT_EQ(stream.pop(), 'G');
}

TEST(TextstreamPositions, DatastreamTreatsNoUnitAsAMark)
{
    sstring text(u16(u"\uFEFFx"));
    datastream stream(text);
    EXPECT_EQ(stream.pop(), 0xFEFF);
    EXPECT_EQ(stream.pop(), 'x');
}

TEST(TextstreamPositions, DatastreamOfLongTextCrossesChunks)
{
    std::u16string const expected = widened(numbered(50000));
    sstring text(u16(expected.c_str()));
    datastream stream(text);
    EXPECT_EQ(allUnits(stream), expected);
}
