// tests/runtime/elements_test.cpp: what the attributes of framesets and frames become, and what framesets are among the
// other elements of a page.
#include "page/guihtmlparser.h"
#include "runtime/guihtmlframeset.h"
#include "tests/support/atable.h"
#include "tests/support/attributegroups.h"

TEST(Attributes, TheThreeSpacingsAddUpToDivideAndSpace)
{
    aTable table("cellspacing=1 framespacing=2 cellpadding=4");
    EXPECT_EQ(table->m.divide, 7);
    EXPECT_EQ(table->m.space, 7);
    parsedPage page = parsePage("<frameset framespacing=3></frameset>");
    EXPECT_EQ(page.root->getLastChild()->m.divide, 3);
    EXPECT_EQ(page.root->getLastChild()->m.space, 0);
}

TEST(Framesets, CountTheirColumnsAndRows)
{
    parsedPage page = parsePage("<frameset cols=100,20%,* rows=*,30 noresize></frameset>");
    auto* frameset = findNode<guiHtmlFrameset>(page, 6);
    EXPECT_EQ(frameset->getColumnCount(), 3);
    EXPECT_EQ(frameset->getRowCount(), 2);
    EXPECT_FALSE(frameset->isResizable());
    EXPECT_EQ(frameset->m.expandChildren, 1);
    guiHtmlFrameset plain;
    EXPECT_EQ(plain.getColumnCount(), 1);
    EXPECT_EQ(plain.getRowCount(), 1);
    EXPECT_TRUE(plain.isResizable());
}
TEST(Framesets, FillRowAfterRow)
{
    EXPECT_EQ(outlineOf("<frameset cols=*,* rows=*,*><frame/><frame/><frame/><frame/></frameset>"),
              "frameset{html html BR html html}");
    EXPECT_EQ(outlineOf("<frameset rows=*,*><frame><frame></frameset>"), "frameset{html BR html}");
    EXPECT_EQ(outlineOf("<frameset cols=*,*><frame><frame></frameset>"), "frameset{html html}");
}
TEST(Framesets, FramesTakeTheSizesOfTheirColumnAndRow)
{
    parsedPage page = parsePage("<frameset cols=100,20% rows=*,30><frame><frame><frame width=7></frameset>");
    guiHtml* frameset = page.root->getLastChild();
    guiHtml* first = frameset->getChild(0);
    EXPECT_EQ(first->m.fixed.unitX, kUnitPixels);
    EXPECT_EQ(first->m.fixed.x, 100u);
    EXPECT_EQ(first->m.fixed.cxMin, 100);
    EXPECT_EQ(first->m.fixed.unitY, kUnitUnbound);
    EXPECT_EQ(frameset->getChild(1)->m.fixed.unitX, kUnitPercent);
    EXPECT_EQ(frameset->getChild(1)->m.fixed.x, 20u);
    guiHtml* third = frameset->getChild(3);
    EXPECT_EQ(third->m.fixed.x, 7u);
    EXPECT_EQ(third->m.fixed.y, 30u);
}
TEST(Framesets, BreaksNeverStandInThem)
{
    EXPECT_EQ(outlineOf("<frameset><frame><p></p><div></div></frameset>"), "frameset{html}");
}

TEST(Frames, AreAlignedToTheTopWhateverTheySay)
{
    parsedPage page = parsePage("<frame name=f src=a.html valign=bottom border=1 scrolling>");
    guiHtml* frame = page.root->getLastChild();
    EXPECT_EQ(frame->m.alignY, kAlignTop);
    EXPECT_EQ(utf8(frame->getName()), "f");
    EXPECT_EQ(frame->m.border, 1);
    EXPECT_EQ(frame->getSizePolicy(), kPolicyScroll);
}

namespace {

using groups = std::set<std::string>;

// A `src` is pending only until the page is applied; what reads it is pinned with the elements themselves.
TEST(AttributeGroups, AreReadByTheElementsThatHaveThem)
{
    EXPECT_EQ(groupsRead("table"), (groups{"name", "border", "mouse", "background", "width", "height", "least width",
                                           "least height", "caption", "expands"}));
    EXPECT_EQ(groupsRead("td"),
              (groups{"name", "border", "mouse", "background", "width", "height", "align", "valign"}));
    EXPECT_EQ(groupsRead("form"),
              (groups{"name", "border", "mouse", "background", "width", "height", "align", "valign"}));
    EXPECT_EQ(groupsRead("frame"),
              (groups{"name", "border", "mouse", "background", "width", "height", "least width", "least height"}));
    EXPECT_EQ(groupsRead("frameset"), (groups{"name", "border", "mouse", "background", "width", "height", "least width",
                                              "least height", "expands"}));
    for (std::string const control :
         {"input type=text", "input type=checkbox", "textarea", "select", "object classid=listview"})
        for (char const* group : {"name", "mouse", "width", "height", "tabindex", "disabled"})
            EXPECT_EQ(groupsRead(control).count(group), 1u) << control << " " << group;
    EXPECT_EQ(groupsRead("input type=hidden"), groups{"name"});
    for (char const* group : {"name", "mouse", "width", "height", "border", "background", "align", "valign"})
        EXPECT_EQ(groupsRead("img").count(group), 1u) << group;
}

TEST(BlockObjects, AreFramesetsAndFramesButNotWhatEndsInABreak)
{
    EXPECT_EQ(outlineOf("<frameset></frameset><table></table>"), "frameset BR html BR");
    EXPECT_EQ(outlineOf("<frame></frame><table></table>"), "html BR html BR");
    for (std::string const tag : {"center", "tbody"})
        EXPECT_EQ(outlineOf("<" + tag + ">x</" + tag + "><table></table>"), "'x' P html BR") << tag;
}

/// A parser without markup, for its rules alone.
struct aParser : guiHtmlParser
{
    aParser() : guiHtmlParser(nullptr, "") {}
};

TEST(Markers, FramesetsTakeNoBreaks)
{
    aParser parser;
    guiHtmlFrameset node;
    node.append(new guiHtml);
    parser.appendParagraph(&node);
    parser.appendLineBreak(&node);
    EXPECT_EQ(outline(&node), "html");
}

} // namespace
