// tests/page/hostile-pages_test.cpp: pages that nobody should write. Each is laid out or refused with one clear line,
// within seconds and within bounded memory.
#include "tests/page/pagewindow.h"
#include "tests/support/hostilepage.h"

#include <gtest/gtest.h>

namespace {

using hostilePage = hostilePageIn<PageWindow>;

constexpr char kDepthWarning[] =
    "guiHtmlParser::pullContent() - elements nested deeper than 1000 levels are flattened (warning)\n";

// ---- Depth ----

TEST(HostileDepth, HundredThousandNestedTablesAreFlattened)
{
    budget const limit(3, 150);
    hostilePage const page(repeated("<table><tr><td>", 100000) + "core");
    EXPECT_EQ(page.log(), kDepthWarning);
    EXPECT_EQ(page.text(), "core");
    EXPECT_LE(page.deepest(), 1000u);
}

TEST(HostileDepth, UnknownTagsAreNamedOnTheWayDown)
{
    budget const limit(3, 150);
    hostilePage const page(repeated("<blink>", 100000) + "core");
    EXPECT_EQ(page.text(), "core");
    EXPECT_EQ(std::count(page.log().begin(), page.log().end(), '\n'), 101);
    EXPECT_NE(page.log().find(" more mistakes are not shown (warning)\n"), std::string::npos);
}

TEST(HostileDepth, MenusWithinMenusKeepTheirIndentationInBounds)
{
    budget const limit(5, 300);
    hostilePage page(repeated("<menu>x", 5000));
    page.layOut(200, 200);
    EXPECT_TRUE(page.isWithinBounds());
}

// ---- Length ----

TEST(HostileLength, AMillionCellsInARow)
{
    budget const limit(8, 700);
    hostilePage page("<table width=100%><tr>" + repeated("<td></td>", 1000000) + "</tr></table>");
    EXPECT_EQ(page.log(), "");
    EXPECT_EQ(page.countNodes(), 1000002u);
    EXPECT_TRUE(page.isWithinBounds());
}

TEST(HostileLength, AMillionCellsThatAllWantAll)
{
    budget const limit(8, 700);
    hostilePage page("<table><tr>" + repeated("<td width=4000000000%></td>", 1000000) + "</tr></table>");
    EXPECT_EQ(page.countNodes(), 1000002u);
    EXPECT_TRUE(page.isWithinBounds());
}

TEST(HostileLength, AMillionRowsParagraphsBreaksAndAttributes)
{
    for (std::string const item :
         {"<tr></tr>", "<p>", "<br>", "x<br>", "<td>x</td><tr></tr>", "<hr>", "<div align=right>x</div>"}) {
        SCOPED_TRACE(item);
        budget const limit(8, 500);
        hostilePage page("<table>" + repeated(item, 300000) + "</table>");
        EXPECT_EQ(page.log(), "");
        EXPECT_TRUE(page.isWithinBounds());
    }
    budget const limit(5, 500);
    hostilePage const page("<table " + repeated("a=1 ", 300000) + ">x</table>");
    EXPECT_EQ(page.text(), "x");
}

constexpr std::size_t kFiftyMegabytes = 50'000'000;

TEST(HostileLength, AWordOfFiftyMegabytes)
{
    budget const limit(10, 900);
    hostilePage page(std::string(kFiftyMegabytes, 'w'));
    EXPECT_EQ(page.log(), "");
    EXPECT_EQ(page.textLength(), kFiftyMegabytes);
    EXPECT_TRUE(page.isWithinBounds());
}

TEST(HostileLength, ManyWordsOfFiftyMegabytes)
{
    budget const limit(10, 900);
    hostilePage page(repeated("mouse ", kFiftyMegabytes / 6));
    EXPECT_EQ(page.log(), "");
    EXPECT_GE(page.textLength(), kFiftyMegabytes - 6);
    EXPECT_TRUE(page.isWithinBounds());
}

TEST(HostileLength, FiftyMegabytesOfCodes)
{
    for (char const* code : {"[[b]]", "[[br]]", "[[,24]]x", "[[a x]]y", "[[", "]]", "&amp;"}) {
        SCOPED_TRACE(code);
        budget const limit(5, 300);
        hostilePage page(repeated(code, 2000000));
        EXPECT_TRUE(page.isWithinBounds());
    }
}

TEST(HostileLength, AWindowThatLoadsFiftyMegabytes)
{
    budget const limit(10, 900);
    hostilePage page = hostilePage::loaded("<body>" + repeated("mouse ", kFiftyMegabytes / 6) + "</body>");
    EXPECT_EQ(page.log(), "");
    EXPECT_GE(page.textLength(), kFiftyMegabytes - 6);
    EXPECT_TRUE(page.isWithinBounds());
}

// ---- Numbers ----

TEST(HostileNumbers, CodesInThePagesOwnTextTakeEveryNumber)
{
    for (std::string const& number : hostileNumbers())
        for (std::string const& code : {"[[>" + number + "]]", "[[," + number + "]]", "[[Arial," + number + "]]",
                                        "[[#" + number + "]]", "[[a " + number + "]]", "[[" + number + "]]"}) {
            hostilePage page(code + "some text that is broken into lines");
            ASSERT_TRUE(page.isWithinBounds()) << code;
            page.paint();
        }
}

} // namespace
