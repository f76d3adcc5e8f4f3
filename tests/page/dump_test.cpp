// tests/page/dump_test.cpp: the text dump, line by line.
#include "tests/support/parsedpage.h"

#include "page/guihtmltext.h"

#include <QScrollBar>

namespace {

/// A node whose preferred width is known.
class wideNode : public guiHtml
{
public:
    using guiHtml::operator=;
    int getPreferredWidth() override { return -35; }
};

std::string lineWith(guiHtml& node, char const* start)
{
    std::string dump = utf8(node.toString(0));
    std::size_t at = dump.find(start);
    return at == std::string::npos ? "" : dump.substr(at, dump.find('\n', at) - at);
}

} // namespace

TEST(Dump, IsWrittenLineByLine)
{
    wideNode node;
    node.setString(kStringName, "Main");
    node.m.rect = {1, 20, 3, 40};
    node.m.border = 2;
    node.m.space = 3;
    node.m.divide = -4;
    node.m.fixed = {10, -11, kUnitPixels, kUnitPercent, 12, 13};
    node.m.dynamic = {14, 15, kUnitUnbound, kUnitPixels, 16, 17};
    node.m.expandWidth = 1;
    node.m.activeCx = 18;
    node.m.activeCy = 19;
    EXPECT_EQ(utf8(node.toString(2)), "  HTML: Main\n"
                                      "  rect: (1,3)-(21,43) = 20x40\n"
                                      "  border 2; space 3; divide -4\n"
                                      "  static: X=12 pixels, Y=13%, cxMin=10, cyMin=-11\n"
                                      "  expansion: children=no, width=yes, height=no\n"
                                      "  dynamic: X=16/unbound, Y=17 pixels, cxMin=14, cyMin=15, cxPref=-35\n"
                                      "  active: cx=18, cy=19\n"
                                      "  scroll: =0, =0\n"
                                      "  align: X=left, Y=center\n"
                                      "  font: no override supplied\n"
                                      "  {\n"
                                      "  }\n");
}
TEST(Dump, MarkersAndChildrenAreIndentedByTwo)
{
    guiHtml node;
    for (unsigned marker = 0; marker <= 5; ++marker)
        node.appendMarker(static_cast<guiMarker>(marker));
    node.append(new wideNode);
    std::string dump = utf8(node.toString(1));
    EXPECT_NE(
        dump.find(
            " {\n   NULL\n\n   PARAGRAPH\n\n   LINEBREAK\n\n   ALIGN:LEFT\n\n   ALIGN:CENTER\n\n   ALIGN:RIGHT\n\n"
            "   HTML: \n   rect: "),
        std::string::npos)
        << dump;
    EXPECT_EQ(dump.substr(dump.size() - 8), "   }\n }\n");
}
TEST(Dump, TextRunsShowTheirText)
{
    guiHtmlText text;
    text.editText() = "[[b]]bold";
    EXPECT_EQ(utf8(text.toString(1)).substr(0, 24), " TEXT: \n text: [[b]]bold");
}
TEST(Dump, LongTextsAreWritten)
{
    guiHtmlText text;
    for (int i = 0; i < 1000; ++i)
        text.editText() += "0123456789";
    EXPECT_GT(utf8(text.toString(0)).size(), 10000u);
}
TEST(Dump, AlignmentsHaveWords)
{
    guiHtml node;
    node.m.alignX = kAlignRight;
    node.m.alignY = kAlignTop;
    EXPECT_EQ(lineWith(node, "align:"), "align: X=right, Y=top");
    node.m.alignX = kAlignCenter;
    node.m.alignY = kAlignBottom;
    EXPECT_EQ(lineWith(node, "align:"), "align: X=center, Y=bottom");
    node.m.alignX = static_cast<guiAlignment>(7);
    node.m.alignY = static_cast<guiAlignment>(3);
    EXPECT_EQ(lineWith(node, "align:"), "align: X=unknown, Y=unknown");
}
TEST(Dump, ScrollBarsAreNamedWhenTheyExist)
{
    guiHtml node;
    node.ensureScroll().barX = new QScrollBar;
    node.ensureScroll().rangeX = 30;
    EXPECT_EQ(lineWith(node, "scroll:"), "scroll: horz=30, =0");
    node.ensureScroll().barY = new QScrollBar;
    node.ensureScroll().rangeY = 40;
    EXPECT_EQ(lineWith(node, "scroll:"), "scroll: horz=30, vert=40");
    node.resetScroll();
    EXPECT_EQ(lineWith(node, "scroll:"), "scroll: =0, =0");
}
TEST(Dump, RequestsSizesAndRangesAreUnsignedTheRestIsSigned)
{
    guiHtml node;
    node.m.rect = {-5, 3, -7, 2};
    node.m.fixed = {-1, -2, kUnitPixels, kUnitPercent, 4000000000u, 3000000000u};
    node.m.dynamic = {-3, -4, kUnitPercent, kUnitUnbound, 4000000000u, 3000000000u};
    node.m.activeCx = 4000000000u;
    node.m.activeCy = 3000000000u;
    node.ensureScroll().rangeX = 4000000000u;
    node.ensureScroll().rangeY = 3000000000u;
    EXPECT_EQ(lineWith(node, "rect:"), "rect: (-5,-7)-(-2,-5) = 3x2");
    EXPECT_EQ(lineWith(node, "static:"), "static: X=4000000000 pixels, Y=3000000000%, cxMin=-1, cyMin=-2");
    EXPECT_EQ(lineWith(node, "dynamic:"), "dynamic: X=4000000000%, Y=3000000000/unbound, cxMin=-3, cyMin=-4, cxPref=0");
    EXPECT_EQ(lineWith(node, "active:"), "active: cx=4000000000, cy=3000000000");
    EXPECT_EQ(lineWith(node, "scroll:"), "scroll: =4000000000, =3000000000");
}
TEST(Dump, EachExpansionFlagHasItsWord)
{
    guiHtml node;
    node.m.expandChildren = 1;
    node.m.expandHeight = 1;
    EXPECT_EQ(lineWith(node, "expansion:"), "expansion: children=yes, width=no, height=yes");
}
TEST(Dump, PercentSignsInNamesTextsAndFontsAreWrittenAsTheyAre)
{
    guiHtmlText text;
    text.setString(kStringName, "100%s");
    text.setString(kStringFace, "%ld,12");
    text.editText() = "%n%lu";
    EXPECT_EQ(utf8(text.toString(0)).substr(0, 24), "TEXT: 100%s\ntext: %n%lu\n");
    EXPECT_EQ(lineWith(text, "font:"), "font: %ld,12");
}
TEST(Dump, TheFontOverrideIsShown)
{
    guiHtml node;
    node.setString(kStringFace, "Arial,12");
    EXPECT_EQ(lineWith(node, "font:"), "font: Arial,12");
}
