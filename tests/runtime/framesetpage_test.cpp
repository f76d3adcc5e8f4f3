// tests/runtime/framesetpage_test.cpp: framesets laid out.
#include "tests/support/laidoutpage.h"
#include "tests/support/pagewindow.h"

#include <gtest/gtest.h>

namespace {

using page = LaidOutPage<PlainRoot>;

TEST(FramesetPage, StarRowsShareWhatTheOthersLeaveWhateverIsInThem)
{
    page const p(
        "<frameset rows=40,*,25%,* framespacing=4><frame name=a><frame name=b><frame name=c><frame name=d></frameset>",
        200, 203);
    // 203 less three gaps of 4, 40, and a quarter of 203.
    EXPECT_EQ(p.named("a")->m.rect, (guiRect{0, 200, 0, 40}));
    EXPECT_EQ(p.named("b")->m.rect, (guiRect{0, 200, 44, 50}));
    EXPECT_EQ(p.named("c")->m.rect, (guiRect{0, 200, 98, 50}));
    EXPECT_EQ(p.named("d")->m.rect, (guiRect{0, 200, 152, 51}));
}

TEST(FramesetPage, FramesOfAStarRowAreAllAsHighAsTheRow)
{
    page const p("<frameset cols=50,* rows=*><frame name=a><frame name=b border=2 scrolling=yes>"
                 "</frameset>",
                 200, 100);
    EXPECT_EQ(p.named("a")->m.rect, (guiRect{0, 50, 0, 100}));
    EXPECT_EQ(p.named("b")->m.rect, (guiRect{50, 150, 0, 100}));
}

TEST(FramesetPage, ContentOfAStarRowKeepsItsOwnHeight)
{
    page const p("<frameset rows=*><td name=f valign=top><p>one</p><table name=t width=20 height=30><tr><td>x</td></tr>"
                 "</table></td></frameset>",
                 200, 300);
    EXPECT_EQ(p.named("f")->m.rect.height, 300);
    EXPECT_EQ(p.named("t")->m.rect.height, 30);
    EXPECT_LT(p.named("t")->m.rect.top, 50);
}

TEST(FramesetPage, FramesetsInsideFillTheirRowDownToTheInnermost)
{
    page const p(
        "<frameset rows=20,*><frame><frameset cols=*,*><frame><frameset rows=*,30><frame name=in><frame name=low>"
        "</frameset></frameset></frameset>",
        200, 200);
    EXPECT_EQ(p.named("in")->m.rect, (guiRect{0, 100, 0, 150}));
    EXPECT_EQ(p.named("low")->m.rect, (guiRect{0, 100, 150, 30}));
}

} // namespace
