// tests/page/content_test.cpp: which nodes, markers and text codes each tag becomes.
#include "tests/support/parsedpage.h"

#include "page/guihtmltext.h"

TEST(PageContent, PlainTextIsOneRun) { EXPECT_EQ(outlineOf("Hello  there\n friend"), "'Hello there friend'"); }
TEST(PageContent, BracketsInThePageStandInTheRunAsTheyAre) { EXPECT_EQ(outlineOf("a [[b]] c"), "'a [[b]] c'"); }
TEST(PageContent, HeadingsWriteTheirCodesAndNeverCloseThem)
{
    EXPECT_EQ(outlineOf("x<h1>A</h1>y"), "'x' P '[[b]][[,24]]A' P 'y'");
    EXPECT_EQ(outlineOf("x<h2>A</h2>y"), "'x' P '[[b]][[,18]]A' P 'y'");
    EXPECT_EQ(outlineOf("x<H3>A</H3>y"), "'x' P '[[b]][[,14]]A' P 'y'");
}
TEST(PageContent, UnknownTagsAreLoggedAndTheirContentIsKept)
{
    parsedPage page = parsePage("<blink>x</blink>");
    EXPECT_EQ(outline(page.root.get()), "'x'");
    EXPECT_EQ(page.log, "guiHtmlParser::pullContent() - ignoring unrecognized tag <blink> (warning)\n");
    EXPECT_EQ(page.result, 1);
}
TEST(PageContent, DefinitionListsIndentOnlyTheirDefinitions)
{
    EXPECT_EQ(outlineOf("<dl><dt>T</dt><dd>D</dd></dl>z"), "'T' P '[[>1]]D' P 'z'");
}
TEST(PageContent, MenusDeepenTheIndentation)
{
    EXPECT_EQ(outlineOf("a<menu>b<menu>c</menu>d</menu>e"), "'a' P '[[>1]]b' BR '[[>2]]c' BR '[[>1]]d' P 'e'");
}
TEST(PageContent, ListsCountAsOneLevelOutsideMenus)
{
    EXPECT_EQ(outlineOf("<ul><li>a<li>b</ul>c"), "'[[>1]]a' P '[[>1]]b' P 'c'");
    EXPECT_EQ(outlineOf("<ol><li>a</li></ol>"), "'[[>1]]a' P");
    EXPECT_EQ(outlineOf("<menu><menu><li>a</menu></menu>"), "'[[>2]]a' P");
}
TEST(PageContent, ParagraphsAndDivisionsBreakDifferently)
{
    EXPECT_EQ(outlineOf("a<p>b</p>c"), "'a' P 'b' P 'c'");
    EXPECT_EQ(outlineOf("a<div>b</div>c"), "'a' BR 'b' BR 'c'");
    EXPECT_EQ(outlineOf("<p>a<p>b"), "'a' P 'b' P");
}
TEST(PageContent, AlignedDivisionsSwitchAndRestore)
{
    EXPECT_EQ(outlineOf("a<div align=center>b</div>c"), "'a' BR CENTER 'b' LEFT 'c'");
    EXPECT_EQ(outlineOf("<p align=right>a</p>"), "RIGHT 'a' LEFT");
    EXPECT_EQ(outlineOf("<p align=middle>a</p>"), "CENTER 'a' LEFT");
    EXPECT_EQ(outlineOf("<div align=left>a</div>"), "'a' BR");
    EXPECT_EQ(outlineOf("<div align=right><div align=left>a</div></div>"), "RIGHT LEFT 'a' RIGHT LEFT");
}
TEST(PageContent, DivisionsWithoutOrWithAnUnknownAlignmentKeepTheCurrentOne)
{
    EXPECT_EQ(outlineOf("<div align=right><p>a</p></div>"), "RIGHT 'a' P LEFT");
    EXPECT_EQ(outlineOf("<div align=right><p align=justify>a</p></div>"), "RIGHT 'a' P LEFT");
}
TEST(PageContent, RunsTakeTheAlignmentInForce)
{
    parsedPage page = parsePage("<div align=center>a</div>b");
    ASSERT_EQ(outline(page.root.get()), "CENTER 'a' LEFT 'b'");
    EXPECT_EQ(page.root->getChild(1)->m.alignX, kAlignCenter);
    EXPECT_EQ(page.root->getChild(3)->m.alignX, kAlignLeft);
}
TEST(PageContent, CenterAndTbodyEndInALineBreak)
{
    EXPECT_EQ(outlineOf("a<center>b</center>c"), "'ab' BR 'c'");
    EXPECT_EQ(outlineOf("<table><tbody><tr><td>b</td></tr></tbody></table>c"), "html{html{'b'} BR} BR 'c'");
}
TEST(PageContent, TablesKeepTheirCellsInOneNodeWithRowsApartByLineBreaks)
{
    EXPECT_EQ(outlineOf("x<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>y"),
              "'x' P html{html{'a'} html{'b'} BR html{'c'}} BR 'y'");
}
TEST(PageContent, AnUnknownTagCountsAsABlockObject)
{
    parsedPage page = parsePage("a<x>b</x><table></table>");
    EXPECT_EQ(outline(page.root.get()), "'ab' BR html BR");
}
TEST(PageContent, HeadTitleAndNoframeAreSkipped)
{
    EXPECT_EQ(outlineOf("<head>h<title>t</title></head><title>u</title><noframe>n<p>m</noframe>x"), "'x'");
}
TEST(PageContent, HtmlBodyDoctypeAndMessagesAreTransparent)
{
    EXPECT_EQ(outlineOf("<!doctype html><messages>m</messages>x"), "'mx'");
    EXPECT_EQ(outlineOf("<html><body>in</body></html>"), "'in'");
}
TEST(PageContent, TheBodyIsTheContentWhenThereIsOne) { EXPECT_EQ(outlineOf("out<body>in</body>out"), "'in'"); }
TEST(PageContent, CommentsVanish) { EXPECT_EQ(outlineOf("a<!-- <p>x</p> -->b"), "'ab'"); }
TEST(PageContent, AnEmptyPageHasNoChildren) { EXPECT_EQ(outlineOf(""), ""); }

TEST(PageFormatting, EachTagWritesItsCode)
{
    EXPECT_EQ(outlineOf("<b>x</b>"), "'[[b]]x[[/b]]'");
    EXPECT_EQ(outlineOf("<strong>x</strong>"), "'[[b]]x[[/b]]'");
    EXPECT_EQ(outlineOf("<u>x</u>"), "'[[u]]x[[/u]]'");
    for (char const* tag : {"i", "em", "cite", "var", "EM"})
        EXPECT_EQ(outlineOf(std::string("<") + tag + ">x</" + tag + ">"), "'[[i]]x[[/i]]'") << tag;
    EXPECT_EQ(outlineOf("<sup>x</sup>"), "'[[b]][[,8]]x[[/,8]][[/b]]'");
    EXPECT_EQ(outlineOf("a<br>b"), "'a[[br]]b'");
}
TEST(PageFormatting, FontWritesColourFaceAndSize)
{
    EXPECT_EQ(outlineOf("<font size=3>x</font>"), "'[[,12]]x[[/,12]]'");
    EXPECT_EQ(outlineOf("<font color=red>x</font>"), "'[[#FF0000]]x[[/#FF0000]]'");
    EXPECT_EQ(outlineOf("<font face=Arial>x</font>"), "'[[Arial]]x[[/Arial]]'");
    EXPECT_EQ(outlineOf("<font face=Arial size=7 color=#102030>x</font>"),
              "'[[#102030]][[Arial,36]]x[[/Arial,36]][[/#102030]]'");
    EXPECT_EQ(outlineOf("a<font>x</font>"), "'ax'");
}
TEST(PageFormatting, ALineBreakIsNeverClosedWhoeverWritesItsCode)
{
    EXPECT_EQ(outlineOf("a<font face=br>x</font>y"), "'a[[br]]xy'");
    EXPECT_EQ(outline(parsePage("a<font color=br face=Arial>x</font>y").root.get()), "'a[[br]][[Arial]]x[[/Arial]]y'");
    EXPECT_EQ(outlineOf("a<font face=br size=3>x</font>y"), "'a[[br,12]]x[[/br,12]]y'");
}
TEST(PageFormatting, AnAttributeWithoutAValueIsOne)
{
    EXPECT_EQ(outlineOf("<font size>x</font>"), "'[[,8]]x[[/,8]]'");
    EXPECT_EQ(outlineOf("<font color face>x</font>"), "'[[1]][[1]]x[[/1]][[/1]]'");
    EXPECT_EQ(outlineOf("<a href>x</a>"), "'[[a 1]]x[[/a]]'");
    EXPECT_EQ(outlineOf("<a href=u target>x</a>"), "'[[a {1}u]]x[[/a]]'");
}
TEST(PageFormatting, OnlyAFontElementContinuesInNewRuns)
{
    parsedPage page = parsePage("<sup>a<p>b</p></sup><font color=red>c<p>d</p></font>");
    ASSERT_EQ(outline(page.root.get()), "'[[b]][[,8]]a' P 'b' P '[[#FF0000]]c' P 'd' P");
    for (guiHtml* node : guiNodesOf(page.root.get()))
        EXPECT_FALSE(node->hasString(kStringFace)) << utf8(node->toString(0));
}
TEST(PageFormatting, AnInnerFontHoldsUntilItsEndAndThenTheOuterOne)
{
    parsedPage page = parsePage("<font face=A>a<font size=1><p>b<font color=red><p>c</font></font><p>d</font><p>e");
    std::vector<std::string> fonts;
    for (guiHtml* node : guiNodesOf(page.root.get()))
        fonts.push_back(utf8(node->getString(kStringFace)));
    EXPECT_EQ(fonts, (std::vector<std::string>{"A", ",8", ",8", "A", ""}));
}
TEST(PageFormatting, CodesAreClosedOnlyWhileTheRunIsStillTheLastChild)
{
    EXPECT_EQ(outlineOf("<b>x<table></table></b>y"), "'[[b]]x' P html BR 'y'");
    EXPECT_EQ(outlineOf("<b>x<table></table>z</b>y"), "'[[b]]x' P html BR 'zy'");
}
TEST(PageFormatting, AFontContinuesInNewRunsAsTheirFont)
{
    parsedPage page = parsePage("<font face=Arial size=4>a<p>b</p></font><p>c");
    ASSERT_EQ(outline(page.root.get()), "'[[Arial,14]]a' P 'b' P 'c' P");
    EXPECT_EQ(utf8(page.root->getChild(0)->getString(kStringFace)), "Arial,14");
    EXPECT_EQ(utf8(page.root->getChild(2)->getString(kStringFace)), "Arial,14");
    EXPECT_FALSE(page.root->getChild(4)->hasString(kStringFace));
}
TEST(PageFormatting, SpacesStayOutsideOfTheFormattingThatFollows)
{
    EXPECT_EQ(outlineOf("abcde <b>f</b> g"), "'abcde [[b]]f[[/b]] g'");
    EXPECT_EQ(outlineOf("abcde<b> f</b>"), "'abcde [[b]]f[[/b]]'");
    EXPECT_EQ(outlineOf("abcde <b><i>f</i></b>"), "'abcde [[b]][[i]]f[[/i]][[/b]]'");
}
TEST(PageFormatting, NoSpaceFollowsALineBreak)
{
    EXPECT_EQ(outlineOf("a<br> b c"), "'a[[br]]b c'");
    EXPECT_EQ(outlineOf("a<br>\n<b>b</b> c"), "'a[[br]][[b]]b[[/b]] c'");
}

TEST(PageLinks, ALinkIsWrittenIntoItsRun)
{
    EXPECT_EQ(outlineOf("x<a href=event://onOk>y</a>z"), "'x[[a event://onOk]]y[[/a]]z'");
    EXPECT_EQ(outlineOf("<a href=f.html target=main>y</a>"), "'[[a {main}f.html]]y[[/a]]'");
}
TEST(PageLinks, PairsOfBracketsInALinkDoNotEndIt)
{
    EXPECT_EQ(outlineOf("<a href='event://f/a[1]'>y</a>z"), "'[[a event://f/a[1%5D]]y[[/a]]z'");
    EXPECT_EQ(outlineOf("<a href='f[[1]].html'>y</a>"), "'[[a f%5B[1%5D].html]]y[[/a]]'");
    EXPECT_EQ(outlineOf("<a href='f[[[' target='t]]'>y</a>"), "'[[a {t%5D]}f%5B%5B[]]y[[/a]]'");
    EXPECT_EQ(outlineOf("<a href='f[1].html'>y</a>"), "'[[a f[1].html]]y[[/a]]'");
}
TEST(PageFormatting, AFontOutlivesTheFormattingInside)
{
    parsedPage page = parsePage("<font face=A><b>x</b><p>y</p><sup>z</sup><p>w</p></font>");
    for (guiHtml* node : guiNodesOf(page.root.get()))
        EXPECT_EQ(utf8(node->getString(kStringFace)), "A") << utf8(node->toString(0));
}
TEST(PageFormatting, NodesTakeTheFontOfTheNodeThatTheyAreReadInto)
{
    auto cell = std::make_unique<guiHtml>();
    cell->setString(kStringFace, "F,14");
    parsedPage page = parsePageInto(std::move(cell), "<table><tr><td>x</td></tr></table>");
    for (guiHtml* node = page.root->getLastChild(); node; node = node->getLastChild())
        EXPECT_EQ(utf8(node->getString(kStringFace)), "F,14");
}
TEST(PageLinks, ANamedLinkEndsLikeAnyOther)
{
    EXPECT_EQ(outlineOf("<a href=u name=n>x</a><p>y"), "'[[a u]]x[[/a]]' P 'y' P");
}
TEST(PageLinks, ALinkInsideALinkEndsIt)
{
    EXPECT_EQ(outlineOf("<a href=u>a<a href=v>b</a>c<p>d</a>"), "'[[a u]]a[[a v]]b[[/a]]c' P 'd' P");
}
TEST(PageLinks, ALinkContinuesAcrossRuns)
{
    EXPECT_EQ(outlineOf("<a href=u>a<p>b</p></a>c"), "'[[a u]]a' P '[[a u]]b' P 'c'");
}
TEST(PageLinks, APlaceInsideARunIsWrittenAsALinkToNowhere)
{
    EXPECT_EQ(outlineOf("x<a name=n>y</a>"), "'x[[a ]]y[[/a]]'");
    EXPECT_EQ(outlineOf("<a name=n>y</a>"), "'y[[/a]]'");
}
TEST(PageLinks, ANameMarksTheLastChild)
{
    parsedPage page = parsePage("<a name=top>x</a>");
    EXPECT_EQ(page.root->getBookmarked("TOP"), page.root->getChild(0));
    EXPECT_EQ(page.root->getBookmarked("bottom"), nullptr);
}
