// tests/foundation/mlparser-lazy_test.cpp: parsing on demand, long texts that stay in their source, and parsers that
// share a stream.

#include "tests/foundation/markup.h"

namespace {

std::string longText(unsigned int count)
{
    std::string text;
    for (unsigned int i = 0; text.size() < count; ++i)
        text += "w" + std::to_string(i) + (i % 7 ? " " : "\n  ");
    return text;
}

} // namespace

TEST(LazyParsing, ReadsOnlyUpToTheRequestedSection)
{
    MemorySource source("<a>1</a>2<b>]]>");
    mlParser parser(source.get());
    EXPECT_TRUE(parser.getSection(0)->isNamed("a"));
    EXPECT_EQ(parser.getSection(0)->getChildCount(), 0u) << "its tag alone was read";
    EXPECT_EQ(text8(parser.getSection(1)->getData()), "2");
    EXPECT_EQ(parser.getSection(0)->getChildCount(), 1u);
    EXPECT_TRUE(parser.getSection(2)->isNamed("B"));
    EXPECT_THROW(parser.getSection(3), mlParseError);
}

TEST(LazyParsing, ARequestedChildIsRead)
{
    MemorySource source("<a><b>1</b><c>2</c></a>]]>");
    mlParser parser(source.get());
    mlSection* a = parser.getSection(0);
    EXPECT_TRUE(a->getChild(1)->isNamed("c"));
    EXPECT_EQ(dump(a), "<a>[<b>['1'] <c>['2']]");
    EXPECT_EQ(a->getChild(2), nullptr) << "the element is closed: nothing behind it is read";
    EXPECT_THROW(parser.getSection(1), mlParseError);
}

TEST(LazyParsing, ThereIsNothingPastTheEnd)
{
    MemorySource source("<a>x</a>");
    mlParser parser(source.get());
    EXPECT_EQ(parser.getSection(1), nullptr);
    EXPECT_EQ(parser.getSection(4000000000u), nullptr);
    parser.fullParse();
    EXPECT_EQ(parser.getSection(1), nullptr);
    EXPECT_EQ(parser.getStream(), nullptr);
    EXPECT_EQ(errorOf([&] { parser.popToken(); }), 9);
    EXPECT_EQ(errorOf([&] { parser.getPos(); }), 9);
    parser.fullParse();
}

TEST(LazyParsing, GivesTheSameAsFullParsing)
{
    std::string const page =
        "<html><!-- x --><p>a<p>b " + longText(3000) + "<table><tr><td>1<td>2</table> &eacute; <br>";
    EXPECT_EQ(dumpOf(page, false), dumpOf(page, true));
}

TEST(LazyParsing, FileIsOpenOnlyWhileReading)
{
    TemporaryFile file("<a>1</a><b>" + longText(40000) + "</b><c>3</c>");
    textstream stream(file.name());
    mlParser parser(&stream);
    for (unsigned int i = 0; i < 3; ++i) {
        ASSERT_NE(parser.getSection(i), nullptr);
        EXPECT_EQ(stream.isOpen(), 0);
    }
    EXPECT_EQ(text8(parser.getSection(1)->getChild(0)->getData()).substr(0, 8), "w0 w1 w2");
    EXPECT_EQ(stream.isOpen(), 0);
    EXPECT_TRUE(parser.findSection("c"));
    EXPECT_EQ(stream.isOpen(), 0);
    parser.popToken();
    EXPECT_EQ(stream.isOpen(), 0);
}

TEST(LazyParsing, AMissingFileIsAnError)
{
    auto file = std::make_unique<TemporaryFile>(std::string(40000, 'x') + "<a>");
    textstream stream(file->name());
    stream.close();
    file.reset();
    mlParser parser(&stream);
    EXPECT_EQ(errorOf([&] { parser.getSection(0); }), 9);
}

TEST(LazyParsing, FindSectionReadsUntilTheSectionIsFound)
{
    MemorySource source("<html><head><title>T</title></head><body><p>x</p></body>]]>");
    mlParser parser(source.get());
    mlSection* title = parser.findSection("TITLE");
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->getChildCount(), 0u);
    EXPECT_EQ(text8(title->getChild(0)->getData()), "T");
    EXPECT_EQ(parser.findSection("title"), title);
    EXPECT_TRUE(parser.findSection("p"));
    EXPECT_THROW(parser.findSection("nowhere"), mlParseError);
    EXPECT_EQ(parser.getSection(0)->findSection("body"), parser.findSection("body"));
}

TEST(LazyParsing, FindSectionIsDepthFirst)
{
    MemorySource source("<a><b><x 1></x></b></a><x 2>");
    mlParser parser(source.get());
    parser.fullParse();
    EXPECT_EQ(text8(parser.findSection("x")->getAttr(0)->getLHS()), "1");
    EXPECT_EQ(parser.findSection("y"), nullptr);
}

TEST(LongTexts, StayInTheirSourceUntilRequested)
{
    std::string const text = longText(5000);
    std::vector<unsigned char> page;
    for (std::string const& part : {std::string("<a>\n"), text, std::string(" &lt;</a>next")})
        page.insert(page.end(), part.begin(), part.end());
    textstream stream(page.data(), static_cast<unsigned int>(page.size()), 0);
    mlParser parser(&stream);
    mlSection* a = parser.getSection(0);
    mlSection* run = a->getChild(0);
    EXPECT_TRUE(run->isTruncated());
    EXPECT_TRUE(run->hasLeadingSpace());
    parser.getSection(1);
    unsigned int const line = parser.getLine();
    std::string const data = text8(run->getData());
    EXPECT_FALSE(run->isTruncated());
    EXPECT_EQ(parser.getLine(), line) << "reading again counts no lines";
    EXPECT_EQ(text8(parser.getSection(1)->getData()), "next");
    // The same words in short texts give the expected text.
    EXPECT_EQ(data.substr(0, 20), "w0 w1 w2 w3 w4 w5 w6");
    EXPECT_EQ(data.find('\n'), std::string::npos);
    EXPECT_EQ(data.find("  "), std::string::npos);
    EXPECT_EQ(data.substr(data.size() - 2), " <");
    std::fill(page.begin(), page.end(), '#');
    EXPECT_EQ(text8(run->getData()), data) << "kept from then on";
}

TEST(LongTexts, AreTheSameAsWithoutALimit)
{
    for (unsigned int length : {1023u, 1024u, 1025u, 2000u, 16380u, 16384u, 40000u}) {
        for (std::string const& open : {std::string("<p>"), std::string("<![CDATA["), std::string("<p> \n")}) {
            std::string text = longText(length) + "&amp; x";
            std::string const page = open + text + (open[1] == '!' ? " ]]>" : " </p>") + "tail <b>c</b>";
            ASSERT_EQ(dumpOf(page, false), dumpOf(page, true)) << length << open;
            MemorySource source(page);
            mlParser parser(source.get());
            sstring whole;
            mlTokenType type{};
            parser.popToken(nullptr, nullptr, nullptr, nullptr, nullptr, 8);
            if (open[1] != '!') {
                parser.popToken(nullptr, nullptr, nullptr, nullptr, nullptr, 1);
                parser.popToken(nullptr, nullptr, nullptr, nullptr, nullptr, 1);
            }
            parser.popToken(&type, &whole, nullptr, nullptr, nullptr, open[1] == '!' ? 2 : 8);
            mlParser other(source.get());
            source->reopen();
            source->rewind();
            mlSection* first = other.getSection(0);
            EXPECT_EQ(text8((first->isTag() ? first->getChild(0) : first)->getData()), text8(whole));
        }
    }
}

TEST(LongTexts, InFilesSurviveTheReading)
{
    std::string const text = longText(60000);
    TemporaryFile file("<a>" + text + "</a><b>" + text + "</b>");
    textstream stream(file.name());
    mlParser parser(&stream);
    mlSection* b = parser.getSection(1);
    std::string const second = text8(b->getChild(0)->getData());
    EXPECT_EQ(text8(parser.getSection(0)->getChild(0)->getData()), second);
    EXPECT_GT(second.size(), 50000u);
    EXPECT_EQ(stream.isOpen(), 0);
}

TEST(LongTexts, OutliveTheStreamAfterFullParsing)
{
    std::unique_ptr<mlParser> parser;
    {
        MemorySource source("<a>" + std::string(5000, 'x') + "</a>" + std::string(6000, 'y'));
        parser = std::make_unique<mlParser>(source.get());
        EXPECT_TRUE(parser->getSection(0)->getChild(0)->isTruncated());
        parser->fullParse();
    }
    EXPECT_EQ(parser->getSection(0)->getChild(0)->getData().getLength(), 5000u);
    EXPECT_EQ(parser->getSection(1)->getData().getLength(), 6000u);
}

namespace {

/// Tells when it is destroyed.
class WatchedStream : public datastream
{
public:
    WatchedStream(sstring text, bool& isGone) : datastream(text), m_isGone(isGone) {}
    ~WatchedStream() override { m_isGone = true; }

private:
    bool& m_isGone;
};

} // namespace

TEST(LongTexts, AStreamThatTheParserOwnsIsFreedOnceAllIsParsed)
{
    bool isGone = false;
    std::string const text = "<a>" + std::string(5000, 'x') + "</a>";
    mlParser parser(std::make_unique<WatchedStream>(sstring(text.c_str()), isGone));
    EXPECT_TRUE(parser.getSection(0)->getChild(0)->isTruncated());
    EXPECT_FALSE(isGone);
    parser.fullParse();
    EXPECT_TRUE(isGone);
    EXPECT_EQ(parser.getSection(0)->getChild(0)->getData().getLength(), 5000u);
}

TEST(SubtreeParsing, ReadsTheRestOfOneElement)
{
    MemorySource source("<table\n><tr a=1>one<td>two</td>three</tr>four</table>five");
    mlParser parser(source.get());
    mlSection* table = parser.getSection(0);
    mlSection* row = table->getChild(0);
    ASSERT_EQ(text8(row->getChild(0)->getData()), "one");
    mlParser inner(row);
    EXPECT_EQ(inner.getLine(), 2u);
    EXPECT_EQ(inner.getStream(), source.get());
    EXPECT_NE(inner.getSection(0), row) << "a copy";
    EXPECT_EQ(inner.getSection(0)->getParser(), &inner);
    EXPECT_EQ(inner.getSection(1), nullptr) << "ends with its element";
    EXPECT_EQ(dump(inner), "<tr a=1>['one' <td>['two'] 'three']");
    EXPECT_EQ(row->getChildCount(), 1u);
}

TEST(SubtreeParsing, MirrorsWhatIsOpenInside)
{
    MemorySource source("<a><b><c>x</c>y</b>z</a>tail");
    mlParser parser(source.get());
    mlSection* a = parser.getSection(0);
    mlSection* c = a->getChild(0)->getChild(0);
    ASSERT_TRUE(c->isNamed("c"));
    mlParser inner(a);
    inner.fullParse();
    EXPECT_EQ(dump(inner), "<a>[<b>[<c>['x'] 'y'] 'z']");
}

TEST(SubtreeParsing, ClosedElementHasNoRest)
{
    MemorySource source("<a>x</a><b>y</b>z");
    mlParser parser(source.get());
    ASSERT_NE(parser.getSection(1), nullptr);
    mlParser inner(parser.getSection(0));
    EXPECT_EQ(dump(inner), "<a>['x']");
    EXPECT_EQ(dump(parser), "<a>['x'] <b>['y'] 'z'");
}

TEST(SubtreeParsing, CopyOfALongTextReadsItToo)
{
    MemorySource source("<a>" + longText(3000) + "<b>");
    mlParser parser(source.get());
    mlSection* a = parser.getSection(0);
    ASSERT_TRUE(a->getChild(1));
    mlParser inner(a);
    mlSection* copy = inner.getSection(0)->getChild(0);
    EXPECT_TRUE(copy->isTruncated());
    EXPECT_EQ(text8(copy->getData()), text8(a->getChild(0)->getData()));
}
