// tests/foundation/mlparser-sections_test.cpp: the sections of a page, and which tags close which.

#include "tests/foundation/markup.h"

TEST(Sections, TagsContainWhatIsBetweenThem)
{
    EXPECT_EQ(dumpOf("<html><body bgcolor=red>Hello <b>big</b> world</body></html>"),
              "<html>[<body bgcolor=red>['Hello' <b>[' big'] ' world']]");
    EXPECT_EQ(dumpOf(""), "");
    EXPECT_EQ(dumpOf(" \n "), "");
    EXPECT_EQ(dumpOf("plain"), "'plain'");
}

TEST(Sections, ParagraphsDoNotNest)
{
    EXPECT_EQ(dumpOf("<p>a<p>b"), "<p>['a'] <p>['b']");
    EXPECT_EQ(dumpOf("<P>a<p>b"), "<P>['a'] <p>['b']");
    EXPECT_EQ(dumpOf("<p>a<b>c<p>d"), "<p>['a' <b>['c' <p>['d']]]") << "only the innermost one is looked at";
}

TEST(Sections, ListItemsDoNotNestAndBreaksHoldNothing)
{
    EXPECT_EQ(dumpOf("<ul><li>a<li>b</ul>"), "<ul>[<li>['a'] <li>['b']]");
    EXPECT_EQ(dumpOf("a<br>b<BR>c<br/>d</br>e"), "'a' <br> 'b' <BR> 'c' <br> 'd' 'e'");
}

TEST(Sections, OtherTagsNest)
{
    EXPECT_EQ(dumpOf("<div>a<div>b"), "<div>['a' <div>['b']]");
    EXPECT_EQ(dumpOf("<input>x"), "<input>['x']") << "a tag that is never closed holds what follows";
}

TEST(Sections, CloseTagClosesAllInsideIt)
{
    EXPECT_EQ(dumpOf("<b><i>x</b>y"), "<b>[<i>['x']] 'y'");
    EXPECT_EQ(dumpOf("<table><TR><td>a<td>b</tr>c</Table>d"), "<table>[<TR>[<td>['a' <td>['b']]] 'c'] 'd'");
    EXPECT_EQ(dumpOf("<b><b>x</b>y</b>z"), "<b>[<b>['x'] 'y'] 'z'");
}

TEST(Sections, StrayCloseTagIsIgnored)
{
    EXPECT_EQ(dumpOf("</td>a"), "'a'");
    EXPECT_EQ(dumpOf("<b>a</td>b</b>"), "<b>['a' 'b']");
    EXPECT_EQ(dumpOf("</foo bar>x"), "'>x'") << "one token is consumed behind the name";
    EXPECT_EQ(dumpOf("</foo"), "");
}

TEST(Sections, NamesAreComparedWithoutCaseAndNothingElse)
{
    EXPECT_EQ(dumpOf("<DIV>a</div>b"), "<DIV>['a'] 'b'");
    EXPECT_EQ(dumpOf("charset=utf-8<\xC5\xA1>a</a>b</\xC5\xA1>c"), "'charset=utf-8' <\xC5\xA1>['a' 'b'] 'c'");
}

TEST(Sections, ContentThatIsToBeKeptIsOneText)
{
    auto kept = [](std::string const& markup, bool isWhole = true) {
        MemorySource source(markup);
        mlParser parser(source.get());
        parser.keepContentOf("area");
        if (isWhole)
            parser.fullParse();
        return dump(parser);
    };
    EXPECT_EQ(kept("a <Area>\n b  <i>c\n&lt;</area> d"), "'a' <Area>['\n b  <i>c\n<'] ' d'");
    EXPECT_EQ(kept("<area>'a' <!-- b --></areas></area\n>c"), "<area>[''a' <!-- b --></areas>'] 'c'");
    EXPECT_EQ(kept("<area></area><area/>a<area>b"), "<area> <area> 'a' <area>['b']");
    EXPECT_EQ(kept("<area>a<"), "<area>['a<']");
    std::string const text(3000, '<'); // across chunks of the source, and longer than a text that is cut
    for (bool isWhole : {true, false})
        EXPECT_EQ(kept("<area>" + text + "</area>b", isWhole), "<area>['" + text + "'] 'b'");
}

TEST(Sections, CommentsVanish)
{
    EXPECT_EQ(dumpOf("a<!-- <b>c</b> -->d"), "'a' 'd'");
    EXPECT_EQ(dumpOf("<!---->"), "");
    EXPECT_EQ(dumpOf("a<!-- open"), "'a'");
}

TEST(Sections, SpaceBeforeATagOrCommentIsNotLost)
{
    EXPECT_EQ(dumpOf("a <b>c</b> d"), "'a' <b>[' c'] ' d'");
    EXPECT_EQ(dumpOf("a<b>c</b>d"), "'a' <b>['c'] 'd'");
    EXPECT_EQ(dumpOf("a<b> c </b>d"), "'a' <b>[' c'] ' d'");
    EXPECT_EQ(dumpOf("<b>a</b> <i>b</i>"), "<b>['a'] <i>[' b']");
    EXPECT_EQ(dumpOf("a <!-- x -->b"), "'a' ' b'");
    EXPECT_EQ(dumpOf("a<!-- x -->b"), "'a' 'b'");
    EXPECT_EQ(dumpOf("a <![CDATA[b]]>c"), "'a' #' b' 'c'");
}

TEST(Sections, AttributesWithAndWithoutValue)
{
    EXPECT_EQ(dumpOf("<img src=a b>"), "<img src=a b=>");
    EXPECT_EQ(dumpOf("<img src = 'a b' alt=\"\" checked/>x"), "<img src=a b alt= checked=> 'x'");
    EXPECT_EQ(dumpOf("<a href=http://x/y>z"), "<a href=http://x/y>['z']");
    EXPECT_EQ(dumpOf("<a href=http://x/>z"), "<a href=http://x> 'z'") << "\"/>\" ends the tag inside a value";
    EXPECT_EQ(dumpOf("<a x=1 X=2>"), "<a x=1 X=2>");
    EXPECT_EQ(dumpOf("<a \"quoted name\"='v'>"), "<a quoted name=v>");
}

TEST(Sections, AttributeNamesMayBeEmpty) { EXPECT_EQ(dumpOf("<a \"\" ''=1>x</a>"), "<a = =1>['x']"); }

TEST(Sections, TheOpenerDeterminesTheTagType)
{
    EXPECT_EQ(dumpOf("<!DOCTYPE html PUBLIC \"-//X\"><p>x"), "<!DOCTYPE html= PUBLIC= -//X=> <p>['x']");
    EXPECT_EQ(dumpOf("<?xml version='1.0'?>x"), "<?xml version=1.0> 'x'");
    EXPECT_EQ(dumpOf("<!--#exec cgi='event://f'-->x"), "<!--#exec cgi=event://f> 'x'");
    EXPECT_EQ(dumpOf("<b -->x</b><i ?>y</i>"), "<b>['x'] <i>['y']") << "any closing token ends a tag";
    EXPECT_EQ(dumpOf("<b/>x<!d/>y"), "<b> 'x' <!d> 'y'");
}

TEST(Sections, CharacterDataIsTakenAsItIs)
{
    EXPECT_EQ(dumpOf("<![CDATA[a <b> &amp; -->]]>x"), "#'a <b> &amp; -->' 'x'");
    EXPECT_EQ(dumpOf("<![CDATA[]]>x"), "#'' 'x'");
    EXPECT_EQ(dumpOf("<![cdata[ a \n b ]]>"), "#' a b'");
    EXPECT_EQ(dumpOf("<![CDATA['a]]>' ]]>x"), "#'a]]>' 'x'") << "what begins with a quotation mark is a quoted string";
}

TEST(Sections, TextThatBeginsWithAQuotationMarkIsAQuotedString)
{
    EXPECT_EQ(dumpOf("<b>\"hi\" he said</b>"), "<b>['hi' ' he said']");
    EXPECT_EQ(dumpOf("<b>'tis</b>x"), "<b>['tis'] 'x'");
}

TEST(Sections, ClosingSignInTextIsText)
{
    EXPECT_EQ(dumpOf("a > b"), "'a > b'");
    EXPECT_EQ(dumpOf(">"), "'>'");
}

TEST(Sections, LinesOfTagsTextsAndAttributes)
{
    MemorySource source("<a>\n<b\nx=1\n\ny>\ntext\n</b></a>");
    mlParser parser(source.get());
    parser.fullParse();
    mlSection* a = parser.getSection(0);
    EXPECT_EQ(a->getLine(), 1u);
    mlSection* b = a->getChild(0);
    EXPECT_EQ(b->getLine(), 2u);
    EXPECT_EQ(b->getAttr(0)->getLine(), 3u);
    EXPECT_EQ(b->getAttr(1)->getLine(), 5u);
    EXPECT_EQ(b->getChild(0)->getLine(), 7u);
}

TEST(Sections, FirstOfTwoAttributesCounts)
{
    MemorySource source("<a x=1 X=2>");
    mlParser parser(source.get());
    mlSection* a = parser.getSection(0);
    EXPECT_EQ(text8(a->findAttr("X")->getRHS()), "1");
    EXPECT_EQ(a->findAttr("y"), nullptr);
    EXPECT_EQ(a->getAttrCount(), 2u);
    EXPECT_EQ(a->getAttr(2), nullptr);
}

TEST(Sections, AreBuiltByHandToo)
{
    mlSection table;
    table.setTag("table", kTagOrdinary);
    for (int i = 0; i < 20; ++i)
        table.addAttr(sformat("a%d", i), sformat("value %d", i));
    mlAttr* kept = table.getAttr(3);
    mlAttr* last = table.nextAttr();
    last->set("A5", "again");
    EXPECT_EQ(table.getAttr(3), kept) << "attributes do not move";
    table.removeAttr("a5");
    EXPECT_EQ(table.getAttrCount(), 19u);
    EXPECT_EQ(text8(table.getAttr(5)->getLHS()), "a6");
    EXPECT_EQ(text8(table.getAttr(18)->getRHS()), "value 19");
    table.addAttr("b", "1");
    EXPECT_EQ(text8(table.getAttr(19)->toString()), "b=\"1\"");
    mlSection* cell = table.nextSection();
    cell->setTagName("td");
    cell->setTagType(kTagOrdinary);
    mlSection* text = new mlSection;
    text->setText("long text", bookmark(1, 2), 0, 0, 1);
    cell->append(text);
    EXPECT_EQ(dump(cell), "<td>[' long text']");
    text->setData("other");
    EXPECT_EQ(dump(cell), "<td>[' other']");
    EXPECT_EQ(table.findSection("TD"), cell);
    EXPECT_EQ(table.findSection("table"), nullptr) << "only what is below";
    EXPECT_EQ(table.getParser(), nullptr);
    EXPECT_EQ(cell->getLine(), 0u);
}

TEST(Sections, TagsHaveNoDataAndTextsNoTag)
{
    mlSection tag;
    tag.setTag("b", kTagOrdinary);
    EXPECT_EQ(errorOf([&] { tag.getData(); }), 22);
    EXPECT_EQ(errorOf([&] { tag.setData("x"); }), 22);
    mlSection text;
    text.setData("x");
    EXPECT_FALSE(text.isTag());
    EXPECT_EQ(errorOf([&] { text.setTagName("b"); }), 22);
    EXPECT_EQ(errorOf([&] { text.nextAttr(); }), 22);
    EXPECT_EQ(errorOf([&] { text.nextSection(); }), 22);
    EXPECT_EQ(text8(text.getName()), "");
    EXPECT_EQ(text.getAttr(0), nullptr);
    EXPECT_EQ(text.getChild(0), nullptr);
}

TEST(Sections, AppendedSectionsBelongToTheTreeAndItsParser)
{
    MemorySource source("<a>x</a>");
    mlParser parser(source.get());
    mlSection* inner = new mlSection;
    inner->setTag("inner", kTagOrdinary);
    mlSection* outer = new mlSection;
    outer->setTag("outer", kTagOrdinary);
    outer->append(inner);
    EXPECT_EQ(inner->getParser(), nullptr);
    parser.append(outer);
    EXPECT_EQ(outer->getParser(), &parser);
    EXPECT_EQ(inner->getParser(), &parser);
    EXPECT_EQ(dump(parser), "<outer>[<inner>] <a>['x']");
    mlSection* made = parser.nextSection();
    made->setTag("made", kTagInclude);
    EXPECT_EQ(parser.getSection(2), made);
}
