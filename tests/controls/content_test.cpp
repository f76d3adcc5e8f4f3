// tests/controls/content_test.cpp: where forms, controls and images stand between the markers of a page, which of them
// count as block objects to the table or form behind them, and pages made to hurt.
#include "tests/support/parsedpage.h"

#include "controls/guihtmlcontrollist.h"
#include "tests/support/repeated.h"

TEST(PageContent, ATableBehindABlockObjectStandsOnTheNextLineInsteadOfAParagraph)
{
    EXPECT_EQ(outlineOf("<table></table><table></table>"), "html BR html BR");
    EXPECT_EQ(outlineOf("x<img><table></table>"), "'x' BR image BR html BR");
    EXPECT_EQ(outlineOf("<table></table>x<table></table>"), "html BR 'x' P html BR");
    EXPECT_EQ(outlineOf("<object classid=menu></object><table></table>"), "control5 BR html BR");
    EXPECT_EQ(outlineOf("<input type=text><table></table>"), "control1 P html BR");
}
TEST(PageContent, AFormIsABlockButNotABlockObject)
{
    EXPECT_EQ(outlineOf("x<form>a</form><table></table>"), "'x' P form{'a'} P html BR");
}
TEST(PageContent, TagsThatAreNeverClosedHaveTheirFollowersBehindThem)
{
    EXPECT_EQ(outlineOf("a<hr>b<input type=text>c<img>d"), "'a' P html{html} P 'b' control1 'c' BR image BR 'd'");
}

TEST(PageLinks, ANameMarksANodeThatIsNoText)
{
    parsedPage page = parsePage("x<a name=n><img></a>");
    EXPECT_EQ(page.root->getBookmarked("n"), findType(page.root.get(), guiHtml::kTypeImage));
    parsedPage behind = parsePage("x<p></p><a name=n></a>");
    EXPECT_EQ(behind.root->getBookmarked("n"), behind.root->getChild(0)) << "a marker is no child";
}

namespace {

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

} // namespace

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
TEST(LineBreaks, BehindAControlAPictureOrACustomElementStartALine)
{
    EXPECT_EQ(outlineOf("<input type=text><br>b"), "control1 BR 'b'");
    EXPECT_EQ(outlineOf("a<input type=text> c<br> d<br>e"), "'a' control1 'c' BR 'd[[br]]e'") << "one for the line";
    EXPECT_EQ(outlineOf("<input type=image><br><br>b"), "image BR '[[br]]b'") << "the second one leaves a line free";
    EXPECT_EQ(outlineOf("<object classid=Clock></object>x<br/>"), "custom 'x' BR");
    EXPECT_EQ(outlineOf("<a href=x><input type=image><br>b</a>"), "image BR '[[a x]]b[[/a]]'");
    EXPECT_EQ(outlineOf("<input type=text><p>a<br>b"), "control1 P 'a[[br]]b' P") << "in another line";
}
TEST(LineBreaks, BehindTextCellsAndMenusAreThoseOfText)
{
    EXPECT_EQ(outlineOf("a<br>b<input type=text>"), "'a[[br]]b' control1");
    EXPECT_EQ(outlineOf("<td>a</td>b<br>c"), "html{'a'} 'b[[br]]c'");
    EXPECT_EQ(outlineOf("<object classid=menu></object><br>a"), "control5 '[[br]]a'");
    EXPECT_EQ(outlineOf("<br>a"), "'[[br]]a'");
    EXPECT_EQ(outlineOf("<img><br>a"), "image BR '[[br]]a'") << "a picture is a line of its own";
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

TEST(HardPages, ControlsBeyondTheDeepestLevelAreKept)
{
    parsedPage page = parsePage(repeated("<div>", 5000) + "<input type=text><img><select></select>");
    EXPECT_NE(findType(page.root.get(), guiHtml::kTypeControl), nullptr);
    EXPECT_NE(findType(page.root.get(), guiHtml::kTypeImage), nullptr);
}
TEST(HardPages, ThousandsOfUnclosedTagsStandSideBySide)
{
    parsedPage page = parsePage(repeated("<img><input type=text>", 20000));
    EXPECT_EQ(page.log, "");
    EXPECT_EQ(deepest(page.root.get()), 1u);
    EXPECT_EQ(page.root->getChildCount(), 79999u);
}
TEST(HardPages, ThousandsOfUnclosedOptionsAreEntries)
{
    parsedPage page = parsePage("<select>" + repeated("<option>x", 20000) + "</select>");
    EXPECT_EQ(findNode<guiHtmlControlList>(page, 5)->getEntryCount(), 20000u);
}
