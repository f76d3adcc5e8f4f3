// tests/foundation/mlparser-robustness_test.cpp: truncated, padded, deep, huge and hostile pages. Nothing crashes,
// hangs or takes more than linear time.

#include "tests/foundation/markup.h"

#include <ctime>
#include <random>

namespace {

std::string repeated(std::string const& text, unsigned int count)
{
    std::string out;
    out.reserve(text.size() * count);
    for (unsigned int i = 0; i < count; ++i)
        out += text;
    return out;
}

/// Parses everything, continuing after each error. Returns the number of outermost sections.
unsigned int parseOverErrors(std::string const& page)
{
    MemorySource source(page);
    mlParser parser(source.get());
    for (bool isDone = false; !isDone;) {
        try {
            parser.fullParse();
            isDone = true;
        } catch (mlParseError const&) {}
    }
    unsigned int count = 0;
    while (parser.getSection(count))
        ++count;
    return count;
}

/// Processor time, which other programs affect least.
double secondsFor(std::string const& page)
{
    std::clock_t const start = std::clock();
    parseOverErrors(page);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// A page four times as large may take eight times as long on a busy machine, but not sixteen times.
void expectLinear(std::string const& head, std::string const& unit, std::string const& tail, unsigned int count)
{
    double const small = secondsFor(head + repeated(unit, count / 4) + tail);
    double const large = secondsFor(head + repeated(unit, count) + tail);
    EXPECT_LT(large, std::max(8 * small, 0.1)) << head << unit << tail;
}

char const samplePage[] =
    "<!DOCTYPE html><html><head><meta content='charset=utf-8'></head><body bgcolor=#FFF>"
    "<!-- a 'comment' --><p align=\"left\">T\xC3\xA9xt &eacute; \xF0\x9F\x98\x80 <b>bold</b> end<br/>"
    "<![CDATA[ raw <x> ]]><!--#exec cgi='event://f'--><?pi x?><ul><li>1<li>2</ul></body></html>";

} // namespace

TEST(Robustness, PageCutAnywhereIsReadToItsEnd)
{
    std::string const page = samplePage;
    for (size_t length = 0; length <= page.size(); ++length) {
        parseOverErrors(page.substr(0, length));
        parseOverErrors(page.substr(length));
    }
}

TEST(Robustness, BoundaryInsideATagChangesNothing)
{
    std::string const page = samplePage;
    std::string const expected = dumpOf(page);
    for (size_t shift = 0; shift <= page.size() + 2; ++shift) {
        std::string const padding = "<!-- charset=utf-8 " + std::string(16384 - shift - 23, 'x') + " -->";
        ASSERT_EQ(dumpOf(padding + page), expected) << shift;
        ASSERT_EQ(dumpOf(padding + page, false), expected) << shift;
    }
}

TEST(Robustness, BoundaryInUtf16ChangesNothing)
{
    std::string const page = "<a href='x'>text &amp; <![CDATA[raw]]><!-- c --> more</a><b/>";
    std::string const expected = dumpOf(page);
    for (size_t shift = 0; shift <= page.size(); ++shift) {
        std::string const padded = "<!--" + std::string(16384 - shift - 7, 'x') + "-->" + page;
        std::u16string const units(padded.begin(), padded.end());
        ASSERT_EQ(dumpOf(utf16Bytes(units, shift % 2 != 0)), expected) << shift;
    }
}

TEST(Robustness, AnyBytesAreReadToTheEnd)
{
    std::mt19937 random(5);
    static char const* const pieces[] = {"<",      ">",         "</", "/>",   "<!", "<!--",        "-->", "<!--#",
                                         "]]>",    "<![CDATA[", "?>", "<?",   "=",  "\"",          "'",   "&",
                                         ";",      "#",         "a",  "b",    "p",  "br",          " ",   "\n",
                                         "&nbsp;", "&#65;",     "\0", "\xE9", "td", "charset=big5"};
    for (int round = 0; round < 3000; ++round) {
        std::string page;
        for (unsigned int i = random() % 200; i > 0; --i)
            page += pieces[random() % std::size(pieces)];
        parseOverErrors(page);
    }
}

TEST(Robustness, DeepNestingIsParsedWrittenSearchedAndFreed)
{
    constexpr unsigned int kDepth = 100000;
    MemorySource source(repeated("<div>", kDepth) + "x");
    mlParser parser(source.get());
    parser.fullParse();
    mlSection* section = parser.getSection(0);
    unsigned int levels = 1;
    while (section->getChild(0)->isTag()) {
        section = section->getChild(0);
        ++levels;
    }
    EXPECT_EQ(levels, kDepth);
    EXPECT_EQ(parser.toString().getLength(), kDepth * 11 + 1);
    EXPECT_LT(parser.toFormattedString().getLength(), kDepth * 200);
    EXPECT_EQ(parser.findSection("span"), nullptr);
}

TEST(Robustness, ADeepChainOfAppendedSectionsIsFreed)
{
    mlSection top;
    top.setTag("a", kTagOrdinary);
    mlSection* at = &top;
    for (int i = 0; i < 100000; ++i) {
        mlSection* child = new mlSection;
        child->setTag("b", kTagOrdinary);
        at->append(child);
        at = child;
    }
    EXPECT_EQ(top.getChildCount(), 1u);
}

TEST(Robustness, SubtreeCopyOfADeepTree)
{
    MemorySource source(repeated("<div>", 100000) + "x</div>");
    mlParser parser(source.get());
    mlSection* top = parser.getSection(0);
    EXPECT_EQ(parser.findSection("span"), nullptr);
    mlParser inner(top);
    EXPECT_EQ(inner.toString().getLength(), 100000u * 11 + 1);
}

TEST(Robustness, NothingTakesMoreThanLinearTime)
{
    expectLinear("<!--", "long comment ", "", 400000);
    expectLinear("<!--", "- -- ", "", 400000);
    expectLinear("", "text ]] ] < ", "", 100000);
    expectLinear("<p>", "word ", "</p>", 2000000);
    expectLinear("", "<b>", "", 200000);
    expectLinear("<a ", "x=1 ", ">", 500000);
    expectLinear("<a b='", "unclosed ", "", 500000);
    expectLinear("", "<a 'x ", "", 200000);
    expectLinear(repeated("<i>", 50000), "</b>", "", 200000);
    expectLinear(repeated("<b>", 50000), "</i><b></b>", "", 100000);
    expectLinear("", "&", "", 500000);
    expectLinear("", "&ea", "", 300000);
    expectLinear("", "]]>", "", 100000);
    expectLinear("", "<>", "", 200000);
    expectLinear("", "<p>", "", 200000);
    expectLinear("<![CDATA[", "] ]> ", "]]>", 300000);
}

TEST(Robustness, ManyDifferentNamesInManySpellings)
{
    std::string page = "<a ";
    for (unsigned int i = 0; i < 200000; ++i) {
        std::string name = "abcdefghijklmnopqr";
        for (unsigned int bit = 0; bit < name.size(); ++bit)
            if (i >> bit & 1)
                name[bit] = static_cast<char>(name[bit] - 32);
        page += name + " ";
    }
    double const small = secondsFor(page.substr(0, page.size() / 4));
    EXPECT_LT(secondsFor(page), std::max(8 * small, 0.1));
}

TEST(Robustness, MillionAttributesAreAllThere)
{
    std::string page = "<a ";
    for (unsigned int i = 0; i < 1000000; ++i)
        page += "x=" + std::to_string(i) + " ";
    MemorySource source(page + ">");
    mlParser parser(source.get());
    mlSection* a = parser.getSection(0);
    EXPECT_EQ(a->getAttrCount(), 1000000u);
    EXPECT_EQ(text8(a->getAttr(999999)->getRHS()), "999999");
}

TEST(Robustness, FiftyMegabytesOfText)
{
    std::string const page = "<p>" + repeated("fifty megabytes of running text in one element ", 1120000) + "</p>";
    MemorySource source(page);
    mlParser parser(source.get());
    mlSection* run = parser.getSection(0)->getChild(0);
    EXPECT_TRUE(run->isTruncated());
    EXPECT_EQ(run->getData().getLength(), page.size() - 8);
}
