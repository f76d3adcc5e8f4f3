// tests/page/pageblocks_test.cpp: what of a page is not cut on paper.
#include "page/guipageblocks.h"
#include "tests/page/pagewindow.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace {

constexpr int kSheet = 300; // pixels

struct BlocksOf
{
    explicit BlocksOf(std::string const& body, int width = 400, int height = kSheet)
    {
        window.root.m.rect = {0, width, 0, 10};
        EXPECT_EQ(window.root.setText(sstring(("<body valign=top>" + body).c_str()), sstring()), 1);
        found = guiFindBlocks(&window.root, height);
        sheets = guiBreakPage(found, height);
    }

    guiRect placeOf(char const* name)
    {
        guiRect rect;
        window.root.getNamed(sstring(name))->getRectInWidget(&rect);
        return rect;
    }

    bool keeps(guiRect const& place) const
    {
        return std::any_of(found.whole.begin(), found.whole.end(), [&place](guiRect const& box) {
            return box.top <= place.top && box.bottom() >= place.bottom();
        });
    }

    PageWindow window{sstring(), 400, 10};
    guiPageBlocks found;
    std::vector<guiSheet> sheets;
};

std::string times(int count, std::string const& text)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

} // namespace

TEST(PageBlocks, EachLineOfTextIsOne)
{
    BlocksOf page("<p>" + times(400, "word "));
    ASSERT_GT(page.found.whole.size(), 8u);
    int const line = page.found.whole[3].height;
    for (std::size_t i = 1; i + 1 < page.found.whole.size(); ++i)
        EXPECT_EQ(page.found.whole[i].height, line);
    EXPECT_EQ(page.found.whole.front().height, 2 * line);
    EXPECT_EQ(page.found.whole.back().height, 2 * line);
    for (std::size_t i = 1; i < page.sheets.size(); ++i)
        EXPECT_EQ((page.sheets[i].top - page.found.whole.front().top) % line, 0);
}

TEST(PageBlocks, ALowRowIsOne)
{
    BlocksOf page("<table><tr><td name=a>one<td name=b>two<br>three<br>four<br>five<br>six</table>");
    EXPECT_TRUE(page.keeps(page.placeOf("b")));
}

TEST(PageBlocks, AHighRowIsCutBetweenLines)
{
    BlocksOf page("<table><tr><td name=a>one<td name=b>" + times(60, "two<br>") + "</table>");
    guiRect const row = page.placeOf("b");
    ASSERT_GT(row.height, kSheet);
    EXPECT_FALSE(page.keeps(row));
    EXPECT_TRUE(page.found.tall.empty());
}

TEST(PageBlocks, AHeadingStaysWithWhatItIsAbout)
{
    BlocksOf page("<h2>Tea</h2><p>" + times(400, "word "));
    guiRect const first = page.found.whole.front();
    bool const isJoined = std::any_of(page.found.whole.begin(), page.found.whole.end(), [&first](guiRect const& box) {
        return box.top == first.top && box.height > 2 * first.height;
    });
    EXPECT_TRUE(isJoined);
}

TEST(PageBlocks, TheRowsOfAHeadAreKnown)
{
    for (char const* head : {"<tr head><td name=a>A</tr>", "<thead><tr><td name=a>A</tr></thead>"}) {
        BlocksOf page("<table>" + std::string(head) + times(60, "<tr><td>1</td></tr>") + "</table>");
        ASSERT_EQ(page.found.heads.size(), 1u) << head;
        EXPECT_EQ(page.found.heads[0].place.top, page.placeOf("a").top);
        EXPECT_EQ(page.found.heads[0].place.height, page.placeOf("a").height);
        ASSERT_GT(page.sheets.size(), 2u);
        EXPECT_EQ(page.sheets[1].heads.size(), 1u);
    }
}

TEST(PageBlocks, TwoRowsOfAHeadBelongTogether)
{
    BlocksOf page("<table><tr head><td name=a>A</tr><tr head><td name=b>B</tr>" + times(60, "<tr><td>1</td></tr>") +
                  "</table>");
    ASSERT_EQ(page.found.heads.size(), 1u);
    EXPECT_EQ(page.found.heads[0].place.bottom(), page.placeOf("b").bottom());
}

TEST(PageBlocks, ARowFurtherDownIsNoHead)
{
    BlocksOf page("<table><tr><td>0</tr><tr head><td name=a>A</tr>" + times(60, "<tr><td>1</td></tr>") + "</table>");
    EXPECT_TRUE(page.found.heads.empty());
}

TEST(PageBlocks, WhatIsTallerThanASheetAndHoldsNothingIsTall)
{
    BlocksOf page("<table><tr><td bgcolor=red width=40 height=900></table>");
    ASSERT_EQ(page.found.tall.size(), 1u);
    EXPECT_EQ(page.found.tall[0].height, 900);
    EXPECT_EQ(page.found.bottom, page.found.tall[0].bottom());
}

TEST(PageBlocks, EmptyRoomMakesNoSheet)
{
    BlocksOf page("<p>one<table><tr><td width=40 height=900></table>");
    EXPECT_EQ(page.sheets.size(), 1u);
}

TEST(PageBlocks, AFramedBoxThatIsLowStaysWhole)
{
    BlocksOf page("<table border=1><tr><td name=a border=1>one<br>two<br>three<br>four<br>five</table>");
    EXPECT_TRUE(page.keeps(page.placeOf("a")));
}
