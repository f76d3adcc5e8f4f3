// tests/page/load_test.cpp: what a whole page says about its node and its window, and pages made to hurt.
#include "tests/support/parsedpage.h"

#include "foundation/vela-mlparser.h"
#include "page/guihtmlparser.h"
#include "page/guihtmltext.h"
#include "tests/support/repeated.h"
#include "tests/support/testroot.h"

namespace {

/// Loads a page as a new window does.
int loadWindow(TestRoot& window, std::string text, bool* hasContent = nullptr)
{
    textstream stream(reinterpret_cast<unsigned char*>(text.data()), static_cast<unsigned>(text.size()), 0);
    mlParser markup(&stream);
    guiHtmlParser parser(&markup, "");
    int result = parser.pullWindow(&window);
    if (hasContent)
        *hasContent = parser.hasContent();
    return result;
}

} // namespace

TEST(SetText, ReplacesContentAndScrollState)
{
    guiHtml node;
    node.setText("<b>old</b>", "");
    node.ensureScroll().posY = 40;
    EXPECT_EQ(node.setText("new", ""), 1);
    EXPECT_EQ(outline(&node), "'new'");
    EXPECT_EQ(node.getScroll().posY, 0u);
}
TEST(SetText, AppliesTheBodyToTheNode)
{
    parsedPage page =
        parsePage("<body text=red link=lime alink=blue bgcolor=silver align=center valign=bottom width=50% "
                  "height=30 border=4>x</body>");
    guiHtml* node = page.root.get();
    EXPECT_EQ(guiColor(node->m.textColor), guiColor::BrightRed);
    EXPECT_EQ(guiColor(node->m.linkColor), guiColor::BrightGreen);
    EXPECT_EQ(guiColor(node->m.activeLinkColor), guiColor::BrightBlue);
    EXPECT_EQ(node->getBackgroundColor(), guiColor::LightGray);
    EXPECT_EQ(node->m.alignX, kAlignCenter);
    EXPECT_EQ(node->m.alignY, kAlignBottom);
    EXPECT_EQ(node->m.fixed.unitX, kUnitPercent);
    EXPECT_EQ(node->m.fixed.y, 30u);
    EXPECT_EQ(node->m.border, 0); // only a window takes the border
    EXPECT_EQ(guiColor(node->getChild(0)->m.textColor), guiColor::BrightRed);
    EXPECT_EQ(node->getChild(0)->m.alignX, kAlignCenter);
}
TEST(SetText, ChildrenInheritColoursAndFontAtAppending)
{
    parsedPage page = parsePage("<body text=red link=lime alink=white><table usesystemfont><tr><td><font "
                                "face=F>x</font></td></tr></table></body>");
    guiHtml* cell = page.root->getLastChild()->getLastChild();
    EXPECT_EQ(guiColor(cell->m.textColor), guiColor::BrightRed);
    EXPECT_EQ(guiColor(cell->m.linkColor), guiColor::BrightGreen);
    EXPECT_EQ(guiColor(cell->m.activeLinkColor), guiColor::White);
    EXPECT_EQ(cell->m.useSystemFont, 1);
    EXPECT_EQ(utf8(cell->getLastChild()->getString(kStringFace)), "F");
    page.root->setText("y", "");
}
TEST(SetText, WordsThatNameNoPlaceLeaveTheAlignmentAsItIs)
{
    auto frame = std::make_unique<guiHtml>();
    frame->m.alignX = kAlignRight;
    frame->m.alignY = kAlignTop;
    parsedPage page = parsePageInto(std::move(frame), "<body align=justify valign=baseline>x</body>");
    EXPECT_EQ(page.root->m.alignX, kAlignRight);
    EXPECT_EQ(page.root->m.alignY, kAlignTop);
    page.root->setText("<body align valign>x</body>", "");
    EXPECT_EQ(page.root->m.alignX, kAlignRight);
    EXPECT_EQ(page.root->m.alignY, kAlignTop);
}
TEST(SetText, ASyntaxErrorIsLoggedOnceAndWhatStandsBeforeItIsKept)
{
    parsedPage page = parsePage("before<p>]]> after");
    EXPECT_EQ(page.result, 0);
    EXPECT_EQ(outline(page.root.get()).substr(0, 10), "'before' P");
    EXPECT_EQ(page.log, "guiHtmlParser::pullPage() - line 1: unexpected symbol found\n");
}
TEST(SetText, AForeignCharsetInThePageDoesNotMatter)
{
    EXPECT_EQ(
        outlineOf("<head><meta content=\"text/html; charset=iso-8859-1\"></head><body>\xC3\xA9\xE2\x82\xAC</body>"),
        "'\xC3\xA9\xE2\x82\xAC'");
}
TEST(SetText, LongTextsAreWhole)
{
    std::string longText = repeated("word ", 2000) + "end";
    EXPECT_EQ(outlineOf(longText), "'" + longText + "'");
}

TEST(LoadWindow, ReadsTitleLookAndSizes)
{
    TestRoot window;
    EXPECT_EQ(loadWindow(window, "<html><title>T</title><body text=red border=2 minwidth=100 minheight=50 maxwidth=900 "
                                 "maxheight=800 width=300 height=200>x</body></html>"),
              1);
    EXPECT_EQ(utf8(window.title), "T");
    EXPECT_EQ(window.m.border, 2);
    EXPECT_EQ(window.minimum.width, 100);
    EXPECT_EQ(window.minimum.height, 50);
    EXPECT_EQ(window.maximum.width, 900);
    EXPECT_EQ(window.maximum.height, 800);
    EXPECT_EQ(window.preferred.width, 300);
    EXPECT_EQ(window.preferred.height, 200);
    EXPECT_EQ(window.m.fixed.unitX, kUnitUnbound); // the sizes are the window's, not the node's
    EXPECT_EQ(outline(&window), "'x'");
}
TEST(LoadWindow, APageWithoutBodyOrHtmlHasNoContent)
{
    TestRoot window;
    bool hasContent = true;
    EXPECT_EQ(loadWindow(window, "<title>T</title>text", &hasContent), 0);
    EXPECT_FALSE(hasContent);
    EXPECT_EQ(utf8(window.title), "T");
    EXPECT_EQ(window.getChildCount(), 0u);
}

TEST(LoadWindow, AnErrorInTheHeadIsNamedAndTheTitleIsKept)
{
    TestRoot window;
    bool hasContent = false;
    testing::internal::CaptureStderr();
    EXPECT_EQ(loadWindow(window, "<html><head><title>T</title>\n<meta>a < = b</meta></head><body>x</body></html>",
                         &hasContent),
              0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "guiHtmlParser::pullPage() - line 2: expected tag name after token\n");
    EXPECT_TRUE(hasContent);
    EXPECT_EQ(utf8(window.title), "T");
}

TEST(HardPages, NestingIsFollowedToAThousandLevelsAndWarnedAboutOnce)
{
    parsedPage page = parsePage(repeated("<table><tr><td>", 3000) + "core");
    EXPECT_EQ(page.log,
              "guiHtmlParser::pullContent() - elements nested deeper than 1000 levels are flattened (warning)\n");
    EXPECT_LE(deepest(page.root.get()), 1000u);
    EXPECT_GT(deepest(page.root.get()), 300u);
    guiHtml* node = page.root.get();
    while (guiHtml* child = node->getLastChild())
        node = child;
    ASSERT_EQ(node->getType(), 4);
    EXPECT_EQ(utf8(static_cast<guiHtmlText*>(node)->getText()), "core");
}
TEST(HardPages, DeepFormattingIsFlattenedAndItsTextKept)
{
    parsedPage page = parsePage(repeated("<b>", 50000) + "core");
    std::string text = outline(page.root.get());
    EXPECT_NE(text.find("core"), std::string::npos);
    EXPECT_EQ(page.log,
              "guiHtmlParser::pullContent() - elements nested deeper than 1000 levels are flattened (warning)\n");
}
TEST(HardPages, AWindowInAFrameCountsItsDepthFromTheTop)
{
    auto top = std::make_unique<guiHtml>();
    guiHtml* node = top.get();
    for (int i = 0; i < 990; ++i)
        node = node->append(new guiHtml);
    testing::internal::CaptureStderr();
    node->setText(sstring(repeated("<table><tr><td>", 100).c_str()), "");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("flattened"), std::string::npos);
    EXPECT_LE(deepest(top.get()), 1000u);
}
