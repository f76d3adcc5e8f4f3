// tests/page/elements_test.cpp: what the attributes that pages share, tables and rules become.
#include "tests/support/atable.h"

#include "foundation/vela-mlparser.h"
#include "page/guihtmlparser.h"
#include "page/guinumbers.h"

TEST(Attributes, AbsentIsEmptyWithoutValueIsOneElseTheValue)
{
    unsigned char page[] = "<x a b=\"\" C=v c=w>";
    textstream stream(page, sizeof page - 1, 0);
    mlParser parser(&stream);
    mlSection* section = parser.getSection(0);
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "none")), "");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "a")), "1");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "A", "on")), "on");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "b")), "1");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, "c")), "v");
    EXPECT_EQ(utf8(guiHtmlParser::pullAttr(section, sstring("A"), sstring("bare"))), "bare");
}

TEST(Attributes, BorderIsOneWithoutAValueAndZeroWhenAbsentOrNoNumber)
{
    EXPECT_EQ(aTable("")->m.border, 0);
    EXPECT_EQ(aTable("border")->m.border, 1);
    EXPECT_EQ(aTable("border=3")->m.border, 3);
    EXPECT_EQ(aTable("border=wide")->m.border, 0);
    EXPECT_EQ(aTable("border=-4")->m.border, 0);
}
TEST(Attributes, FrameborderCountsWhenThereIsNoBorder)
{
    EXPECT_EQ(aTable("frameborder=2")->m.border, 2);
    EXPECT_EQ(aTable("border=5 frameborder=2")->m.border, 5);
}
TEST(Attributes, BorderColoursAreReadOnlyWithABorder)
{
    aTable with("border=1 bordercolorlight=red bordercolor=#010203 bordercolordark=NAVY");
    EXPECT_EQ(with->getBorderLight(), (guiColor{255, 0, 0}));
    EXPECT_EQ(with->getBorderColor(), (guiColor{1, 2, 3}));
    EXPECT_EQ(with->getBorderDark(), (guiColor{0, 0, 128}));
    aTable without("bordercolorlight=red bordercolor=#010203 bordercolordark=NAVY");
    EXPECT_EQ(without->getBorderLight(), guiColor::White);
    EXPECT_EQ(without->getBorderColor(), guiColor::LightGray);
    EXPECT_EQ(without->getBorderDark(), guiColor::DarkGray);
}
TEST(Attributes, UseSystemFontIsOffForTheFourWords)
{
    EXPECT_EQ(aTable("")->m.useSystemFont, 0);
    for (char const* word : {"yes", "1", "anything"})
        EXPECT_EQ(aTable(std::string("usesystemfont=") + word)->m.useSystemFont, 1) << word;
    EXPECT_EQ(aTable("usesystemfont")->m.useSystemFont, 1);
    for (char const* word : {"no", "off", "FALSE", "0"})
        EXPECT_EQ(aTable(std::string("usesystemfont=") + word)->m.useSystemFont, 0) << word;
}
TEST(Attributes, ScrollingNamesTheThreePolicies)
{
    EXPECT_EQ(aTable("")->getSizePolicy(), kPolicyResize);
    EXPECT_EQ(aTable("scrolling")->getSizePolicy(), kPolicyScroll);
    for (char const* word : {"yes", "on", "true", "1"})
        EXPECT_EQ(aTable(std::string("scrolling=") + word)->getSizePolicy(), kPolicyScroll) << word;
    for (char const* word : {"no", "off", "false", "0", "perhaps"})
        EXPECT_EQ(aTable(std::string("scrolling=") + word)->getSizePolicy(), kPolicyResize) << word;
    EXPECT_EQ(aTable("scrolling=Fixed")->getSizePolicy(), kPolicyFixed);
}
TEST(Attributes, MouseHandlersAndNameAreKeptAsGiven)
{
    aTable table("name=T onmouseover=event://a onmouseout=event://b onmousedown=event://c onmouseup=event://d");
    EXPECT_EQ(stringOf(*table, kStringName), "T");
    EXPECT_EQ(stringOf(*table, kStringMouseOver), "event://a");
    EXPECT_EQ(stringOf(*table, kStringMouseOut), "event://b");
    EXPECT_EQ(stringOf(*table, kStringMouseDown), "event://c");
    EXPECT_EQ(stringOf(*table, kStringMouseUp), "event://d");
}
TEST(Attributes, BackgroundIsAColourAndAFile)
{
    aTable table("bgcolor=teal background=sky.png");
    EXPECT_TRUE(table->hasBackgroundColor());
    EXPECT_EQ(table->getBackgroundColor(), (guiColor{0, 128, 128}));
    EXPECT_EQ(stringOf(*table, kStringBackground), "sky.png");
    EXPECT_FALSE(aTable("bgcolor=nonsense")->hasBackgroundColor());
}
TEST(Attributes, SizesArePixelsOrPercent)
{
    aTable table("width=120 height=50%");
    EXPECT_EQ(table->m.fixed.unitX, kUnitPixels);
    EXPECT_EQ(table->m.fixed.x, 120u);
    EXPECT_EQ(table->m.fixed.unitY, kUnitPercent);
    EXPECT_EQ(table->m.fixed.y, 50u);
    EXPECT_EQ(aTable("")->m.fixed.unitX, kUnitUnbound);
    EXPECT_EQ(aTable("minwidth=7")->m.fixed.x, 7u);
    EXPECT_EQ(aTable("minheight=8")->m.fixed.y, 8u);
    EXPECT_EQ(aTable("width=5 minwidth=7")->m.fixed.x, 5u);
}
TEST(Attributes, AWidthOfZeroOrNoNumberIsARequestOfZeroPixels)
{
    for (char const* width : {"width=0", "width=wide", "width=-5"}) {
        aTable table(width);
        EXPECT_EQ(table->m.fixed.unitX, kUnitPixels) << width;
        EXPECT_EQ(table->m.fixed.x, 0u) << width;
    }
}
TEST(Attributes, SizesAreLimited)
{
    aTable table("width=4294967297 height=99999999999% border=1000000 cellspacing=99999 cellpadding=99999");
    EXPECT_EQ(table->m.fixed.x, static_cast<unsigned>(kMaxPixels));
    EXPECT_EQ(table->m.fixed.y, static_cast<unsigned>(kMaxPercent));
    EXPECT_EQ(table->m.border, kMaxPixels);
    EXPECT_EQ(table->m.divide, kMaxPixels);
}
TEST(Attributes, NumbersReadTheirBeginningAndStopAtTheEndOfTheirRange)
{
    EXPECT_EQ(guiToNumber(" 12px"), 12);
    EXPECT_EQ(guiToNumber("+3"), 3);
    EXPECT_EQ(guiToNumber("-3"), -3);
    EXPECT_EQ(guiToNumber(""), 0);
    EXPECT_EQ(guiToNumber("x1"), 0);
    EXPECT_EQ(guiToNumber("99999999999999999999999"), 2147483647);
    EXPECT_EQ(guiToNumber("-99999999999999999999999"), -2147483647);
}

TEST(Tables, PixelSizesAreAlsoMinima)
{
    aTable table("width=120 height=50%");
    EXPECT_EQ(table->m.fixed.cxMin, 120);
    EXPECT_EQ(table->m.fixed.cyMin, 0);
    EXPECT_EQ(table->m.expandChildren, 1);
}
TEST(Tables, SourceAndCaptionAreStored)
{
    unsigned char text[] = "<html><table src=part.html caption=Options></table></html>";
    textstream stream(text, sizeof text - 1, 0);
    mlParser markup(&stream);
    guiHtml node;
    EXPECT_EQ(guiHtmlParser(&markup, "").pullPage(&node), 1);
    EXPECT_EQ(stringOf(*node.getChild(0), kStringSource), "part.html");
    EXPECT_EQ(stringOf(*node.getChild(0), kStringCaption), "Options");
}
TEST(Tables, CellsReadTheirOwnAttributesAndKeepNoMinimum)
{
    parsedPage page =
        parsePage("<table><tr><td align=right valign=bottom width=40 border=2 name=c>x</td></tr></table>");
    guiHtml* cell = page.root->getLastChild()->getLastChild();
    EXPECT_EQ(cell->m.alignX, kAlignRight);
    EXPECT_EQ(cell->m.alignY, kAlignBottom);
    EXPECT_EQ(cell->m.fixed.x, 40u);
    EXPECT_EQ(cell->m.fixed.cxMin, 0);
    EXPECT_EQ(cell->m.border, 2);
    EXPECT_EQ(cell->m.expandChildren, 0);
    EXPECT_EQ(utf8(cell->getName()), "c");
}
TEST(Tables, AlignmentWords)
{
    auto cellWith = [](char const* attributes) {
        parsedPage page = parsePage(std::string("<table><tr><td ") + attributes + "></td></tr></table>");
        guiHtml* cell = page.root->getLastChild()->getLastChild();
        return std::pair<int, int>(cell->m.alignX, cell->m.alignY);
    };
    EXPECT_EQ(cellWith(""), std::make_pair(0, 1));
    EXPECT_EQ(cellWith("align=left valign=top"), std::make_pair(0, 0));
    EXPECT_EQ(cellWith("align=CENTER valign=center"), std::make_pair(1, 1));
    EXPECT_EQ(cellWith("align=middle valign=middle"), std::make_pair(1, 1));
    EXPECT_EQ(cellWith("align=justify valign=baseline"), std::make_pair(0, 1));
}

TEST(Rules, AreTwoPixelsHighAndAsWideAsTheirPlace)
{
    parsedPage page = parsePage("<hr>");
    guiHtml* rule = page.root->getLastChild();
    EXPECT_EQ(rule->m.fixed.unitX, kUnitPercent);
    EXPECT_EQ(rule->m.fixed.x, 100u);
    EXPECT_EQ(rule->m.fixed.unitY, kUnitPixels);
    EXPECT_EQ(rule->m.fixed.y, 2u);
    EXPECT_EQ(rule->getBackgroundColor(), guiColor::DarkGray);
    EXPECT_EQ(rule->getLastChild()->getBackgroundColor(), guiColor::White);
    EXPECT_EQ(rule->getLastChild()->m.fixed.y, 1u);
}
TEST(Rules, TakeSizeWidthAlignmentAndColour)
{
    parsedPage page = parsePage("a<hr size=6 width=50 align=right color=red>b");
    EXPECT_EQ(outline(page.root.get()), "'a' P RIGHT html P LEFT 'b'");
    guiHtml* rule = page.root->getChild(3);
    EXPECT_EQ(rule->m.fixed.y, 6u);
    EXPECT_EQ(rule->m.fixed.unitX, kUnitPixels);
    EXPECT_EQ(rule->m.fixed.x, 50u);
    EXPECT_EQ(rule->getBackgroundColor(), guiColor::BrightRed);
    EXPECT_EQ(outlineOf("<hr noshade>"), "html P");
}

TEST(Colours, TheSixteenNamesHaveTheirValues)
{
    std::pair<char const*, char const*> const names[] = {
        {"aqua", "#00FFFF"},   {"black", "#000000"}, {"blue", "#0000FF"},   {"fuchsia", "#FF00FF"},
        {"gray", "#808080"},   {"green", "#008000"}, {"lime", "#00FF00"},   {"maroon", "#800000"},
        {"navy", "#000080"},   {"olive", "#808000"}, {"purple", "#800080"}, {"red", "#FF0000"},
        {"silver", "#C0C0C0"}, {"teal", "#008080"},  {"white", "#FFFFFF"},  {"yellow", "#FFFF00"},
    };
    for (auto const& [name, hex] : names)
        EXPECT_EQ(utf8(guiHtmlParser::convColorToHex(name)), hex);
    EXPECT_EQ(utf8(guiHtmlParser::convColorToHex("ReD")), "#FF0000");
    EXPECT_EQ(utf8(guiHtmlParser::convColorToHex("reddish")), "reddish");
}
TEST(Colours, HexPairsAreRedGreenBlueAndAnythingElseIsBlack)
{
    EXPECT_EQ(guiHtmlParser::convColorToStruct("#0a1B2c"), (guiColor{10, 27, 44}));
    EXPECT_EQ(guiHtmlParser::convColorToStruct("yellow"), (guiColor{255, 255, 0}));
    for (char const* bad : {"", "#12345", "#1234567", "#12345g", "123456", "reddish"})
        EXPECT_EQ(guiHtmlParser::convColorToStruct(bad), guiColor::Black) << bad;
}
TEST(FontSizes, ComeFromATableAndItsEnds)
{
    int const points[] = {8, 10, 12, 14, 18, 24, 36};
    for (int size = 1; size <= 7; ++size)
        EXPECT_EQ(guiHtmlParser::toPointSize(size), points[size - 1]);
    EXPECT_EQ(guiHtmlParser::toPointSize(0), 8);
    EXPECT_EQ(guiHtmlParser::toPointSize(-9), 8);
    EXPECT_EQ(guiHtmlParser::toPointSize(99), 36);
}
