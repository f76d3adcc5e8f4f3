// tests/page/layout-pages_test.cpp: pages as people write them, read by the parser and laid out; and pages that nobody
// should write.
#include "page/guilayoutcounters.h"
#include "tests/support/laidoutpage.h"
#include "tests/support/repeated.h"
#include "tests/support/testroot.h"

#include <gtest/gtest.h>

namespace {

using page = LaidOutPage<TestRoot>;

unsigned countNodes(guiHtml* node)
{
    unsigned count = 1;
    for (guiHtml* child : guiNodesOf(node))
        count += countNodes(child);
    return count;
}

TEST(Page, CellsOfHalfTheTableEachOverlapNothing)
{
    page const p(
        "<table width=300><tr><td name=a width=50%>a</td><td name=b width=50%>b</td><td name=c width=50%>c</td>"
        "</tr></table>");
    EXPECT_EQ(p.named("a")->m.rect.width, 99);
    EXPECT_EQ(p.named("b")->m.rect.width, 99);
    EXPECT_EQ(p.named("c")->m.rect.width, 102);
    EXPECT_EQ(p.leftOf("b"), p.leftOf("a") + 99);
    EXPECT_EQ(p.leftOf("c"), p.leftOf("b") + 99);
}

TEST(Page, PixelWidthOfATableIsItsMinimum)
{
    page const p("<table name=t width=300><tr><td>a</td></tr></table>", 100, 100);
    EXPECT_EQ(p.named("t")->m.rect.width, 300);
}

TEST(Page, CentredParagraphStandsInTheMiddle)
{
    page const p("<p align=center><table name=t width=100><tr><td>a</td></tr></table></p>");
    EXPECT_EQ(p.leftOf("t"), (640 - 100) / 2);
}

TEST(Page, ScrollingTableKeepsItsSizeAndGrowsWithoutScrolling)
{
    std::string const content = "<tr><td><table width=400 height=300><tr><td>a</td></tr></table></td></tr></table>";
    page const scrolls("<table name=t width=100 height=80 scrolling=yes>" + content);
    EXPECT_EQ(scrolls.named("t")->m.rect.width, 100);
    EXPECT_EQ(scrolls.named("t")->m.rect.height, 80);
    page const grows("<table name=t width=100 height=80 scrolling=no>" + content);
    EXPECT_EQ(grows.named("t")->m.rect.width, 400);
    EXPECT_EQ(grows.named("t")->m.rect.height, 300);
}

TEST(Page, RelayoutAfterOtherSizesGivesTheSameRectangles)
{
    page p(
        "<h1>Orders</h1><table width=100% height=100% border=1><tr><td name=a>One order of many words</td><td name=b "
        "width=30%><a href=\"event://x\">Details</a></td></tr></table>");
    guiRect const a = p.named("a")->m.rect;
    guiRect const b = p.named("b")->m.rect;
    p.layOut(200, 200);
    EXPECT_NE(p.named("a")->m.rect, a);
    p.layOut(640, 480);
    EXPECT_EQ(p.named("a")->m.rect, a);
    EXPECT_EQ(p.named("b")->m.rect, b);
}

TEST(WildPage, HugeRequestsStayInBounds)
{
    for (char const* size : {"2147483647", "4294967295", "99999999999999999999", "4000000000%", "-5", "-4000000000%"}) {
        page const p("<table name=t border=" + std::string(size) + " cellspacing=" + size + " width=" + size +
                     " height=" + size + "><tr><td width=" + size + " height=" + size + ">text</td></tr></table>");
        guiRect const rect = p.named("t")->m.rect;
        EXPECT_GE(rect.width, 0) << size;
        EXPECT_GE(rect.height, 0) << size;
        EXPECT_LE(rect.width, 16777215) << size;
        EXPECT_LE(rect.height, 16777215) << size;
    }
}

TEST(WildPage, HundredThousandNestedTables)
{
    page const p(repeated("<table><tr><td>", 100000) + "deep");
    EXPECT_GT(countNodes(p.root.get()), 500u);
}

TEST(WildPage, MillionCellsInOneRow)
{
    page const p("<table name=t width=100%><tr>" + repeated("<td></td>", 1000000) + "</tr></table>");
    EXPECT_GT(countNodes(p.root.get()), 1000000u);
}

TEST(WildPage, MegabyteOfTextWithoutABlank)
{
    page p(std::string(1 << 20, 'x'));
    guiLayoutCounters::reset();
    p.layOut(500, 400);
    EXPECT_EQ(guiLayoutCounters::wordsShaped, 0u);
}

TEST(WildPage, DataWithoutABlankIsNotShapedPieceByPiece)
{
    std::string data;
    for (unsigned i = 0; i < 200000; ++i)
        data += static_cast<char>('a' + i * i % 26);
    guiLayoutCounters::reset();
    page const p(data);
    EXPECT_LT(guiLayoutCounters::wordsShaped, 100u);
}

TEST(WildPage, NestedSpringyTablesAreLinear)
{
    std::string text = "deep";
    for (int i = 0; i < 250; ++i)
        text = "<table width=100% height=100%><tr><td>" + text + "</td><td height=50%>beside</td></tr></table>";
    page p(text);
    unsigned const nodes = countNodes(p.root.get());
    guiLayoutCounters::reset();
    p.layOut(800, 600);
    EXPECT_EQ(guiLayoutCounters::calcDynamic, nodes);
    EXPECT_LE(guiLayoutCounters::heightPasses, 2 * nodes);
    EXPECT_LE(guiLayoutCounters::heightQueries, 3 * nodes);
}

} // namespace
