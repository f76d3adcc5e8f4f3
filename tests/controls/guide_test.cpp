// tests/controls/guide_test.cpp: the samples of CONTRIBUTING.md do what the guide says of them.
#include "controls/guihtmlcontrolprogress.h"
#include "tests/controls/shownpage.h"

#include <QProgressBar>

TEST(Guide, TheSampleTagIsEmptyRoomOfItsHeight)
{
    ShownPage page("<td name=cell><gap size=40></td><td name=other><gap></td>");
    EXPECT_EQ(page.node("cell")->getHeightEstimate(400), 40);
    EXPECT_EQ(page.node("other")->getHeightEstimate(400), 12);
}

TEST(Guide, TheSampleControlIsABarThatIsFilledAsItSays)
{
    ShownPage page("<input type=progress name=bar value=40>");
    auto* bar = page.widget<QProgressBar>("bar");
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->value(), 40);
    EXPECT_EQ(page.node("bar")->m.rect.width, 120);
}
