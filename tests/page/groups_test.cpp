// tests/page/groups_test.cpp: which groups of attributes each element reads, and which elements count as block objects
// to the table or form behind them.
#include "tests/page/pagesupport.h"

#include <set>

namespace {

/// The groups, by the effect of one attribute of each.
std::set<std::string> groupsOf(guiHtml& node)
{
    std::set<std::string> groups;
    auto add = [&groups](bool hasEffect, char const* group) {
        if (hasEffect)
            groups.insert(group);
    };
    add(node.isString(kStringName, "n"), "name");
    add(node.m.border == 3 && node.m.divide == 5, "border");
    add(node.isString(kStringMouseOver, "over") && node.isString(kStringMouseUp, "up"), "mouse");
    add(node.hasBackgroundColor() && node.hasString(kStringBackground), "background");
    add(node.m.fixed.unitX == kUnitPixels && node.m.fixed.x == 70, "width");
    add(node.m.fixed.unitY == kUnitPixels && node.m.fixed.y == 40, "height");
    add(node.m.fixed.cxMin == 70, "least width");
    add(node.m.fixed.cyMin == 40, "least height");
    add(node.m.alignX == kAlignRight, "align");
    add(node.m.alignY == kAlignBottom, "valign");
    add(node.isString(kStringSource, "s.html"), "src");
    add(node.isString(kStringCaption, "c"), "caption");
    add(node.getTabIndex() == 7, "tabindex");
    add(!node.isEnabled(), "disabled");
    add(node.m.expandChildren, "expands");
    return groups;
}

constexpr char kAll[] = " name=n border=3 cellspacing=5 onmouseover=over onmouseup=up bgcolor=red background=b.png"
                        " width=70 height=40 align=right valign=bottom src=s.html caption=c tabindex=7 disabled ";

std::set<std::string> groupsRead(std::string const& tag)
{
    parsedPage page = parsePage("<" + tag + kAll + ">");
    guiHtml* node = page.root->getLastChild();
    return node ? groupsOf(*node) : std::set<std::string>{"no node"};
}

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

TEST(AttributeGroups, ARowReadsNone)
{
    parsedPage page = parsePage(std::string("<table><tr") + kAll + "><td></table>");
    guiHtml* table = page.root->getLastChild();
    EXPECT_EQ(groupsOf(*table), groups{"expands"});
    EXPECT_EQ(groupsOf(*table->getLastChild()), groups{});
}

TEST(AttributeGroups, PercentSizesAreNoMinima)
{
    parsedPage page = parsePage("<table width=50% height=60%></table>");
    guiHtml* table = page.root->getLastChild();
    EXPECT_EQ(table->m.fixed.unitX, kUnitPercent);
    EXPECT_EQ(table->m.fixed.unitY, kUnitPercent);
    EXPECT_EQ(table->m.fixed.cxMin, 0);
    EXPECT_EQ(table->m.fixed.cyMin, 0);
}

/// The marker that a table behind an element of this name starts with.
std::string markerBehind(std::string const& element)
{
    parsedPage page = parsePage(element + "<table name=t></table>");
    guiHtml* parent = page.root->getNamed("t")->getParent();
    for (unsigned i = parent->getChildCount(); i-- > 1;)
        if (guiChildList::isNode(parent->getChild(i)))
            return guiChildList::isNode(parent->getChild(i - 1))                         ? "none"
                   : guiChildList::toMarker(parent->getChild(i - 1)) == kMarkerParagraph ? "paragraph"
                                                                                         : "break";
    return "first";
}

// Only where the marker tells the two apart: behind an element that leaves a node at the end of the list.
TEST(BlockObjects, AreTablesImagesObjectsAndUnknownTags)
{
    EXPECT_EQ(markerBehind("<object classid=Clock></object>"), "break");
    EXPECT_EQ(markerBehind("<object classid=menu></object>"), "break");
    EXPECT_EQ(markerBehind("<object classid=listview></object>"), "break");
    EXPECT_EQ(markerBehind("<blink>x</blink>"), "break");
    EXPECT_EQ(markerBehind("x"), "paragraph");
    EXPECT_EQ(markerBehind("<b>x</b>"), "paragraph");
    EXPECT_EQ(markerBehind("<a href=y>x</a>"), "paragraph");
    EXPECT_EQ(markerBehind("<font>x</font>"), "paragraph");
    EXPECT_EQ(markerBehind("<td>x</td>"), "paragraph");
    EXPECT_EQ(markerBehind("<form>x</form>"), "paragraph");
    EXPECT_EQ(markerBehind("<select></select>"), "paragraph");
    EXPECT_EQ(markerBehind("<textarea></textarea>"), "paragraph");
    EXPECT_EQ(markerBehind("<dl>x</dl>"), "paragraph");
    EXPECT_EQ(markerBehind("<messages>x</messages>"), "paragraph");
    EXPECT_EQ(markerBehind("<object classid=Clock></object><map></map>"), "paragraph");
    EXPECT_EQ(markerBehind("<object classid=Clock></object><noframe></noframe>"), "paragraph");
    EXPECT_EQ(markerBehind("<object classid=Clock></object><b></b>"), "paragraph");
    EXPECT_EQ(markerBehind("<table></table>"), "break");
    EXPECT_EQ(markerBehind("<img>"), "break");
}

TEST(BlockObjects, AreFramesetsAndFramesButNotWhatEndsInABreak)
{
    EXPECT_EQ(outlineOf("<frameset></frameset><table></table>"), "frameset BR html BR");
    EXPECT_EQ(outlineOf("<frame></frame><table></table>"), "html BR html BR");
    for (std::string const tag : {"center", "tbody"})
        EXPECT_EQ(outlineOf("<" + tag + ">x</" + tag + "><table></table>"), "'x' P html BR") << tag;
}
TEST(BlockObjects, CountOnlyAtTheirOwnLevel)
{
    EXPECT_EQ(outlineOf("<dl><img></dl><table></table>"), "image P html BR");
    EXPECT_EQ(outlineOf("<img><dl><table></table></dl>"), "image P html BR");
}
TEST(BlockObjects, AFormBehindOneStandsOnTheNextLineToo)
{
    EXPECT_EQ(outlineOf("<object classid=Clock></object><form></form>"), "custom BR form");
    EXPECT_EQ(outlineOf("x<form></form>"), "'x' P form");
}

} // namespace
