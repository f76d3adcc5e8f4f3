// tests/page/markers_test.cpp: markers and blanks, rule by rule.
#include "tests/support/parsedpage.h"

#include "page/guihtmlparser.h"
#include "page/guihtmltext.h"

namespace {

std::string spaced(char const* text)
{
    sstring value(text);
    guiHtmlParser::appendSpace(value);
    return utf8(value);
}

/// A parser without markup, for its rules alone.
struct aParser : guiHtmlParser
{
    aParser() : guiHtmlParser(nullptr, "") {}
};

} // namespace

TEST(AppendSpace, GoesBehindAShortText)
{
    EXPECT_EQ(spaced(""), " ");
    EXPECT_EQ(spaced("abcd"), "abcd ");
    EXPECT_EQ(spaced("[[]]"), "[[]] ");
}
TEST(AppendSpace, GoesBeforeOpeningCodesAtTheEnd)
{
    EXPECT_EQ(spaced("abc[[b]]"), "abc [[b]]");
    EXPECT_EQ(spaced("abc[[b]][[,24]]"), "abc [[b]][[,24]]");
    EXPECT_EQ(spaced("[[b]][[i]]"), " [[b]][[i]]");
    EXPECT_EQ(spaced("[[b]]abc[[i]]"), "[[b]]abc [[i]]");
}
TEST(AppendSpace, GoesBehindTextAndClosingCodes)
{
    EXPECT_EQ(spaced("abcdef"), "abcdef ");
    EXPECT_EQ(spaced("[[b]]abc[[/b]]"), "[[b]]abc[[/b]] ");
    EXPECT_EQ(spaced("[[/b]][[i]]"), "[[/b]] [[i]]");
    EXPECT_EQ(spaced("abc]] x]]"), "abc]] x]] ");
    EXPECT_EQ(spaced("abcde]]"), "abcde]] ");
}

TEST(Markers, AParagraphNeedsANodeBeforeIt)
{
    aParser parser;
    guiHtml node;
    parser.appendParagraph(&node);
    EXPECT_EQ(outline(&node), "");
    node.append(new guiHtml);
    parser.appendParagraph(&node);
    parser.appendParagraph(&node);
    EXPECT_EQ(outline(&node), "html P");
}
TEST(Markers, AParagraphReplacesALineBreak)
{
    aParser parser;
    guiHtml node;
    node.append(new guiHtml);
    parser.appendLineBreak(&node);
    parser.appendLineBreak(&node);
    EXPECT_EQ(outline(&node), "html BR");
    parser.appendParagraph(&node);
    EXPECT_EQ(outline(&node), "html P");
    parser.appendLineBreak(&node);
    EXPECT_EQ(outline(&node), "html P");
}
TEST(Markers, NothingFollowsAnAlignment)
{
    aParser parser;
    guiHtml node;
    node.append(new guiHtml);
    parser.appendAlignment(&node, kAlignRight);
    parser.appendParagraph(&node);
    parser.appendLineBreak(&node);
    EXPECT_EQ(outline(&node), "html RIGHT");
}
TEST(Markers, AlignmentsAreThreeToFive)
{
    aParser parser;
    guiHtml node;
    parser.appendAlignment(&node, kAlignLeft);
    parser.appendAlignment(&node, kAlignCenter);
    parser.appendAlignment(&node, kAlignRight);
    EXPECT_EQ(outline(&node), "LEFT CENTER RIGHT");
    EXPECT_EQ(guiChildList::toMarker(node.getChild(0)), 3u);
    EXPECT_EQ(guiChildList::toMarker(node.getChild(2)), 5u);
}
TEST(Markers, TheCurrentAlignmentIsTheLastMarkersOrTheNodes)
{
    aParser parser;
    guiHtml node;
    node.m.alignX = kAlignCenter;
    EXPECT_EQ(parser.getCurrentAlignment(&node), kAlignCenter);
    parser.appendAlignment(&node, kAlignRight);
    node.append(new guiHtml);
    EXPECT_EQ(parser.getCurrentAlignment(&node), kAlignRight);
    guiHtml child;
    parser.pullLeafAlignment(&node, &child);
    EXPECT_EQ(child.m.alignX, kAlignRight);
}
TEST(Markers, TextGoesIntoTheLastEntryOnlyIfItIsARun)
{
    aParser parser;
    guiHtml node;
    guiHtmlText* run = parser.findOrCreateText(&node);
    EXPECT_EQ(parser.findOrCreateText(&node), run);
    parser.appendParagraph(&node);
    EXPECT_EQ(guiHtmlParser::getLastIfText(&node), nullptr);
    EXPECT_NE(parser.findOrCreateText(&node), run);
}
TEST(Markers, FormattingTags)
{
    for (char const* tag : {"sup", "font", "br", "strong", "em", "b", "u", "cite", "i", "var", "BR"})
        EXPECT_TRUE(guiHtmlParser::isFormattingTag(tag)) << tag;
    for (char const* tag : {"p", "a", "sub", "bold", ""})
        EXPECT_FALSE(guiHtmlParser::isFormattingTag(tag)) << tag;
}
