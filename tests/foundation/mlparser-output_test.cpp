// tests/foundation/mlparser-output_test.cpp: sections written as markup.

#include "tests/foundation/markup.h"

namespace {

std::string written(std::string const& page)
{
    MemorySource source(page);
    mlParser parser(source.get());
    return text8(parser.toString());
}

} // namespace

TEST(Output, TagsWithTheirAttributesAndContent)
{
    EXPECT_EQ(written("<a href=x y>text</a>"), "<a href=\"x\" y=\"\">text</a>");
    EXPECT_EQ(written("<b></b><br><img src=a/>"), "<b/><br/><img src=\"a\"/>");
    EXPECT_EQ(written("<a><b>x"), "<a><b>x</b></a>");
}

TEST(Output, OtherTagTypes)
{
    EXPECT_EQ(written("<!DOCTYPE html>"), "<!DOCTYPE html=\"\">");
    EXPECT_EQ(written("<?xml version='1.0'?>"), "<?xml version=\"1.0\"?>");
    EXPECT_EQ(written("<!--#exec cgi=x-->"), "<!--#exec cgi=\"x\"-->");
}

TEST(Output, TextEscapesBracketsAndMarksButNoAmpersand)
{
    EXPECT_EQ(written("a&lt;b&gt;c&quot;d&amp;e"), "a&lt;b&gt;c&quot;d&e");
    EXPECT_EQ(written("<b>&nbsp;</b>"), "<b>&nbsp;</b>");
    EXPECT_EQ(written("<b>&nbsp;&nbsp;</b>"), "<b>  </b>");
    EXPECT_EQ(written("<b> x</b>"), "<b> x</b>");
}

TEST(Output, CharacterDataStaysAsItIs)
{
    EXPECT_EQ(written("<![CDATA[a<b>&\"c]]>"), "<![CDATA[a<b>&\"c]]>");
    EXPECT_EQ(written("<![CDATA[]]>"), "<![CDATA[]]>");
}

TEST(Output, QuotationMarksInsideValuesAndNamesReadBack)
{
    EXPECT_EQ(written("<a x='say \"hi\"'>"), "<a x=\"say &quot;hi&quot;\"/>");
    EXPECT_EQ(written("<!DOCTYPE html PUBLIC '-//X Y//EN'>"), "<!DOCTYPE html=\"\" PUBLIC=\"\" \"-//X Y//EN\"=\"\">");
}

TEST(Output, AnAttributeAlone)
{
    mlAttr attr;
    EXPECT_EQ(text8(attr.toString()), "=\"\"");
    attr.set("name", "say \"what is too long to stand in place\"");
    mlAttr const copy = attr;
    attr.set("other", "");
    EXPECT_EQ(text8(copy.toString()), "name=\"say &quot;what is too long to stand in place&quot;\"");
    EXPECT_EQ(text8(attr.toString()), "other=\"\"");
    EXPECT_EQ(attr.getLine(), 0u);
}

TEST(Output, ACopiedAttributeOutlivesItsSectionAndDoesNotShareItsText)
{
    std::string const longText(40, 'x');
    mlAttr copy;
    {
        MemorySource source("<a b='" + longText + "' c=d>");
        mlParser parser(source.get());
        mlSection* section = parser.getSection(0);
        copy = *section->getAttr(0);
        mlAttr other(*section->getAttr(0));
        other.set("z", "z");
        *section->getAttr(1) = other;
        section->removeAttr("b");
        section->addAttr("e", longText.c_str());
        EXPECT_EQ(text8(section->toString()), "<a z=\"z\" e=\"" + longText + "\"/>");
    }
    EXPECT_EQ(text8(copy.getLHS()), "b");
    EXPECT_EQ(text8(copy.getRHS()), longText);
    EXPECT_EQ(copy.getLine(), 1u);
}

TEST(Output, OneSectionAlone)
{
    MemorySource source("<a><b x=1>c<i>d</i></b></a>");
    mlParser parser(source.get());
    EXPECT_EQ(text8(parser.findSection("b")->toString()), "<b x=\"1\">c<i>d</i></b>");
    EXPECT_EQ(text8(parser.findSection("i")->toFormattedString(1)), "  <i>\n    d\n  </i>\n");
}

TEST(Output, FormattedFormIndentsEachLevel)
{
    MemorySource source("<a><b/>x<c><d>y</d></c></a><!e>");
    mlParser parser(source.get());
    EXPECT_EQ(text8(parser.toFormattedString()),
              "<a>\n  <b/>\n  x\n  <c>\n    <d>\n      y\n    </d>\n  </c>\n</a>\n<!e>\n");
}

TEST(Output, LongTextsAreWrittenWhole)
{
    std::string const text(3000, 'x');
    EXPECT_EQ(written("<p>" + text + "</p>"), "<p>" + text + "</p>");
}

TEST(Output, ReadsBackToTheSameSections)
{
    std::string const form =
        "<form action='event://onOk'><input type=text name=a value=\"1 > 0\"/>"
        "<select name=s multiple><option selected value=1>One</option><option>Two</option></select>"
        "<textarea rows=3>Some text</textarea></form>";
    std::string const table =
        "<table border=1 width=100%><tr><td align=right>1</td><td bgcolor='#FF0000'>&nbsp;</td></tr>"
        "<tr><td colspan=2><table><tr><td>inner</td></tr></table></td></tr></table>";
    std::string const text = "<html><head><title>A &lt;title&gt;</title></head><body><h1>Head</h1><p>One <b>bold</b> "
                             "<i>word</i>, then more.<p>Two<br>lines<hr><ul><li>a<li>b</ul></body></html>";
    std::string const odd =
        "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\"><?php x='1'?><!--#exec cgi='event://f' -->"
        "<![CDATA[ 1 < 2 ]]><a href='event://f(\"x\")'> link </a>tail";
    for (std::string const& page : {form, table, text, odd, form + table + text}) {
        std::string const once = written(page);
        EXPECT_EQ(dumpOf(once), dumpOf(page)) << once;
        EXPECT_EQ(written(once), once);
    }
}
