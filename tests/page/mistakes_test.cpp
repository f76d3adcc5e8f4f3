// tests/page/mistakes_test.cpp: what the author of a page is told about it.
#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "page/guiattributes.h"
#include "page/guihtmlparser.h"
#include "page/guinearest.h"
#include "tests/support/parsedpage.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <regex>
#include <sstream>

namespace {

constexpr char kCaller[] = "tarn: ";
constexpr char kTagCaller[] = "guiHtmlParser::pullContent() - ";

/// What is logged of a page that was read from /pages/order.html.
std::string told(std::string const& text)
{
    guiHtml node;
    sstring content(text.c_str());
    datastream stream(content);
    mlParser markup(&stream);
    testing::internal::CaptureStderr();
    {
        guiHtmlParser parser(&markup, "/pages/", "/pages/order.html");
        parser.pullPage(&node);
    }
    return testing::internal::GetCapturedStderr();
}

std::string line(std::string const& message) { return kCaller + message + "\n"; }
std::string tagLine(std::string const& message) { return kTagCaller + message + "\n"; }

std::size_t linesOf(std::string const& log)
{
    return static_cast<std::size_t>(std::count(log.begin(), log.end(), '\n'));
}

} // namespace

TEST(Mistakes, AGoodPageIsReadInSilence)
{
    EXPECT_EQ(told("<html><body width=300 bgcolor=#FFFFFF text=black><table border=1 cellpadding=0 width='50%'>"
                   "<tr><td height=+3 valign=top name=a>x &amp; y &mdash; &#65;</td></tr></table>"
                   "<font size='+1' color=red face=Sans>z</font></body></html>"),
              "");
}
TEST(Mistakes, AnUnknownTagIsToldWithItsPlaceAndTheNearestOne)
{
    EXPECT_EQ(told("<body>\n<tabel>x</tabel>\n<p>y<zzzzz>"),
              tagLine("ignoring unrecognized tag <tabel> (warning) in /pages/order.html:2; did you mean <table>?") +
                  tagLine("ignoring unrecognized tag <zzzzz> (warning) in /pages/order.html:3"));
}
TEST(Mistakes, TextWithoutAFileHasNoPlace)
{
    EXPECT_EQ(parsePage("<tabel>x</tabel>").log, tagLine("ignoring unrecognized tag <tabel> (warning)"));
    EXPECT_EQ(parsePage("<td wdith=3>").log, line("ignoring unknown attribute wdith of <td> (warning)"));
}
TEST(Mistakes, AnUnknownAttributeIsToldWithItsPlaceAndTheNearestOne)
{
    EXPECT_EQ(
        told("<body hieght=3>\n<td\nWDITH=3 qqqqqq>x"),
        line("ignoring unknown attribute hieght of <body> (warning) in /pages/order.html:1; did you mean height?") +
            line("ignoring unknown attribute WDITH of <td> (warning) in /pages/order.html:3; did you mean width?") +
            line("ignoring unknown attribute qqqqqq of <td> (warning) in /pages/order.html:3"));
    EXPECT_EQ(told("<body><td text1=a text23=b>"), "") << "numbered ones are known";
}
TEST(Mistakes, AColorThatIsNoneIsTold)
{
    for (char const* color : {"red", "#123456", "#abc", "CornflowerBlue", "#FFF"})
        EXPECT_EQ(told(std::string("<body><td bgcolor='") + color + "'>x"), "") << color;
    EXPECT_EQ(told("<body text=rde><td bgcolor='#12'>x"),
              line("text=\"rde\" of <body> is not a color (warning) in /pages/order.html:1") +
                  line("bgcolor=\"#12\" of <td> is not a color (warning) in /pages/order.html:1"));
}
TEST(Mistakes, AnActionThatCallsNoHandlerIsTold)
{
    auto wrong = [](std::string const& value, std::string const& meant) {
        return line("onclick=\"" + value +
                    "\" of <td> calls no handler (warning) in /pages/order.html:1; did you mean event://" + meant +
                    "?");
    };
    auto page = [](std::string const& value) { return "<body><td onclick=\"" + value + "\">x"; };
    EXPECT_EQ(told(page("onOk")), wrong("onOk", "onOk"));
    EXPECT_EQ(told(page("onOk()")), wrong("onOk()", "onOk"));
    EXPECT_EQ(told(page("this.onOk(1, 2);")), wrong("this.onOk(1, 2);", "onOk"));
    EXPECT_EQ(told(page("javascript:onOk()")), wrong("javascript:onOk()", "onOk"));
    for (char const* good : {"event://onOk", "{_top}event://onOk/1", "next.html", "pages/next", "#place", ""})
        EXPECT_EQ(told(page(good)), "") << good;
    EXPECT_EQ(told("<body><a href=next>x</a>"), "") << "a link leads to a page";
}

TEST(Mistakes, ASizeThatIsNoNumberIsTold)
{
    for (char const* size : {"0", "12", "12px", "50%", " 7", "+2", "-1"})
        EXPECT_EQ(told(std::string("<body><td width='") + size + "'>x"), "") << size;
    EXPECT_EQ(told("<body><td width=wide height='%' border>x"),
              line("width=\"wide\" of <td> is not a number (warning) in /pages/order.html:1") +
                  line("height=\"%\" of <td> is not a number (warning) in /pages/order.html:1"));
}
TEST(Mistakes, AnUnknownReferenceIsToldAndStays)
{
    EXPECT_EQ(told("<body>\nA &mdahs; B &amp;foo; C & D &; E"),
              line("unknown character reference &mdahs; stays as it is (warning) in /pages/order.html:2; "
                   "did you mean &mdash;?"));
    EXPECT_EQ(outline(parsePage("A &mdahs; B").root.get()), "'A &mdahs; B'");
}
TEST(Mistakes, ALongTextTellsItsReferencesOnce)
{
    EXPECT_EQ(linesOf(told("<body>&first; " + std::string(3000, 'x') + " &second; y")), 2U);
}
TEST(Mistakes, ElementsNestedTooDeepAreToldWithTheirPlace)
{
    std::string page = "<body>\n";
    for (int i = 0; i < 1100; ++i)
        page += "<table>\n";
    EXPECT_EQ(told(page).find("elements nested deeper than 1000 levels are flattened (warning) in /pages/order.html:1"),
              std::string(kTagCaller).size());
}
TEST(Mistakes, AtMostAHundredLinesAndTheNumberOfTheRest)
{
    std::string page = "<body>";
    for (int i = 0; i < 250; ++i)
        page += "<bad><td wdith=1>x</td></bad>";
    std::string const log = told(page);
    EXPECT_EQ(linesOf(log), 101U);
    EXPECT_TRUE(log.ends_with(line("400 more mistakes in /pages/order.html are not shown (warning)"))) << log;
}
TEST(Mistakes, HundredsOfThousandsTakeLittleTime)
{
    std::string page = "<body>";
    for (int i = 0; i < 200000; ++i)
        page += "<badtag badattribute=1 width=wide>&badone;";
    auto const start = std::chrono::steady_clock::now();
    EXPECT_EQ(linesOf(told(page)), 101U);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}
TEST(Mistakes, TheNearestWordTakesTheFewestChanges)
{
    std::vector<std::string_view> const words{"table", "td", "title", "textarea"};
    EXPECT_EQ(guiNearestWord("tabel", words), "table") << "two neighbours swapped";
    EXPECT_EQ(guiNearestWord("tble", words), "table");
    EXPECT_EQ(guiNearestWord("tabel", {"label", "table"}), "table") << "which begins alike";
    EXPECT_EQ(guiNearestWord("textaera", words), "textarea");
    EXPECT_EQ(guiNearestWord("ttle", words), "title");
    EXPECT_EQ(guiNearestWord("x", words), "") << "not every letter may change";
    EXPECT_EQ(guiNearestWord("blink", words), "");
    EXPECT_EQ(guiNearestWord("", words), "");
    EXPECT_EQ(guiNearestWord(std::string(1000, 't'), words), "");
}
TEST(Mistakes, EveryAttributeOfTheDocumentationIsKnown)
{
    std::ifstream guide(TARN_SOURCE_FOLDER "/docs/page-language.md");
    std::stringstream text;
    text << guide.rdbuf();
    std::string const page = text.str();
    std::regex const attribute("<[a-z0-9]+((?: +[a-z0-9]+(?:=\"[^\"]*\"|=[^ >\"]+)?)+) *>");
    std::regex const name(" ([a-z0-9]+)(?:=\"[^\"]*\"|=[^ >\"]+)?");
    std::sregex_iterator const none;
    int count = 0;
    for (std::sregex_iterator tag(page.begin(), page.end(), attribute); tag != none; ++tag) {
        std::string const list = (*tag)[1];
        for (std::sregex_iterator each(list.begin(), list.end(), name); each != none; ++each, ++count)
            EXPECT_NE(guiFindAttribute("td", (*each)[1].str()), nullptr) << (*each)[1].str() << " in " << tag->str();
    }
    EXPECT_GT(count, 50);
}
