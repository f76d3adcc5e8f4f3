// tests/page/layout-scroll_test.cpp: when a node gets scroll bars, and what they change.
#include "tests/page/pagetree.h"

#include <gtest/gtest.h>

#include <QScrollBar>

namespace {

/// A root with one scrolling node of a fixed size, in which lies one leaf of a fixed size.
class ScrollBars : public testing::Test
{
protected:
    ScrollBars()
    {
        node = addNode(&root);
        node->m.scrollMode = kPolicyScroll;
        content = addNode(node);
    }

    void layOut(unsigned width, unsigned height, int contentWidth, int contentHeight)
    {
        requestWidth(node, kUnitPixels, width);
        requestHeight(node, kUnitPixels, height);
        content->m.fixed.cxMin = contentWidth;
        content->m.fixed.cyMin = contentHeight;
        root.layOut(500, 500);
    }
    QScrollBar* barX() const { return node->getScroll().barX; }
    QScrollBar* barY() const { return node->getScroll().barY; }

    testRoot root;
    guiHtml* node = nullptr;
    guiHtml* content = nullptr;
};

TEST_F(ScrollBars, AreMadeOnlyForContentLargerThanTheNode)
{
    layOut(100, 100, 100, 100);
    EXPECT_EQ(barX(), nullptr);
    EXPECT_EQ(barY(), nullptr);
    layOut(100, 100, 101, 20);
    ASSERT_NE(barX(), nullptr);
    EXPECT_EQ(barY(), nullptr);
    EXPECT_EQ(barX()->objectName(), QStringLiteral("html x-scrollbar"));
    EXPECT_EQ(barX()->orientation(), Qt::Horizontal);
    EXPECT_EQ(barX()->parentWidget(), root.getTopLevelWidget());
    EXPECT_EQ(node->getScroll().rangeX, 1u);
    layOut(100, 100, 20, 150);
    ASSERT_NE(barY(), nullptr);
    EXPECT_EQ(barX(), nullptr);
    EXPECT_EQ(barY()->objectName(), QStringLiteral("html y-scrollbar"));
    EXPECT_EQ(barY()->orientation(), Qt::Vertical);
    EXPECT_EQ(node->getScroll().rangeY, 50u);
}

TEST_F(ScrollBars, NodeOf31PixelsNeverGetsOne)
{
    layOut(31, 31, 5000, 5000);
    EXPECT_EQ(barX(), nullptr);
    EXPECT_EQ(barY(), nullptr);
    layOut(32, 31, 5000, 5000);
    EXPECT_NE(barX(), nullptr);
    EXPECT_EQ(barY(), nullptr);
}

TEST_F(ScrollBars, BarGoesWhenTheOtherLeavesItTooLittleRoom)
{
    layOut(40, 100, 5000, 5000);
    EXPECT_EQ(barX(), nullptr);
    ASSERT_NE(barY(), nullptr);
    EXPECT_EQ(node->getScroll().rangeX, 0u);
    EXPECT_EQ(node->getScroll().rangeY, 4900u);
    unsigned const least = 32 + static_cast<unsigned>(barY()->sizeHint().width());
    layOut(least, 100, 5000, 5000);
    EXPECT_NE(barX(), nullptr);
    EXPECT_NE(barY(), nullptr);
}

TEST_F(ScrollBars, NoneAppearInANodeThatGrowsWithItsCell)
{
    guiHtml* table = addNode(&root);
    table->m.expandChildren = 1;
    requestHeight(table, kUnitPixels, 200);
    guiHtml* inner = addNode(addNode(table));
    inner->m.scrollMode = kPolicyScroll;
    requestHeight(inner, kUnitPixels, 50);
    addNode(inner)->m.fixed.cyMin = 80;
    layOut(100, 100, 10, 10);
    EXPECT_EQ(inner->m.rect.height, 200);
    EXPECT_EQ(inner->getScroll().barY, nullptr);
    EXPECT_EQ(inner->getScroll().rangeY, 0u);
}

TEST_F(ScrollBars, NodeThatDoesNotScrollGrowsToItsContentInstead)
{
    node->m.scrollMode = kPolicyResize;
    layOut(100, 100, 150, 160);
    EXPECT_EQ(barX(), nullptr);
    EXPECT_EQ(node->m.rect.width, 150);
    EXPECT_EQ(node->m.rect.height, 160);
    node->m.scrollMode = kPolicyScroll;
    layOut(100, 100, 150, 160);
    EXPECT_NE(barX(), nullptr);
    EXPECT_EQ(node->m.rect.width, 100);
    EXPECT_EQ(node->m.rect.height, 100);
}

TEST_F(ScrollBars, FixedNodeKeepsItsSizeWithoutBars)
{
    node->m.scrollMode = kPolicyFixed;
    layOut(100, 100, 150, 160);
    EXPECT_EQ(barX(), nullptr);
    EXPECT_EQ(barY(), nullptr);
    EXPECT_EQ(node->m.rect.width, 100);
    EXPECT_EQ(node->m.rect.height, 100);
}

TEST_F(ScrollBars, OneBarMayMakeTheOtherNecessary)
{
    layOut(100, 100, 100, 150); // exactly as wide as the node, until the vertical bar takes some of it
    ASSERT_NE(barX(), nullptr);
    ASSERT_NE(barY(), nullptr);
    int const extent = barY()->sizeHint().width();
    EXPECT_EQ(node->getScroll().rangeX, static_cast<unsigned>(extent));
    EXPECT_EQ(node->getScroll().rangeY, 50u + static_cast<unsigned>(barX()->sizeHint().height()));
}

TEST_F(ScrollBars, BarThatIsNoLongerNeededGoesAndThePositionWithIt)
{
    layOut(100, 100, 150, 150);
    ASSERT_NE(barX(), nullptr);
    node->ensureScroll().posX = 30;
    node->ensureScroll().posY = 40;
    layOut(200, 100, 150, 150);
    EXPECT_EQ(barX(), nullptr);
    EXPECT_EQ(node->getScroll().posX, 0u);
    EXPECT_EQ(node->getScroll().rangeX, 0u);
    EXPECT_NE(barY(), nullptr);
    EXPECT_EQ(node->getScroll().posY, 40u);
    EXPECT_TRUE(root.getTopLevelWidget()->findChild<QScrollBar*>(QStringLiteral("html x-scrollbar")) == nullptr);
}

TEST_F(ScrollBars, BothBarsGoWhenNeitherWouldBeNeededWithoutTheOther)
{
    layOut(100, 100, 150, 150);
    ASSERT_NE(barX(), nullptr);
    layOut(150, 150, 150, 150);
    EXPECT_EQ(barX(), nullptr);
    EXPECT_EQ(barY(), nullptr);
}

TEST_F(ScrollBars, PositionIsCutToTheRange)
{
    layOut(100, 100, 50, 300);
    node->ensureScroll().posY = 200;
    layOut(100, 100, 50, 150);
    EXPECT_EQ(node->getScroll().posY, 50u);
    EXPECT_EQ(barY()->value(), 50);
    EXPECT_EQ(barY()->maximum(), 50);
    EXPECT_EQ(barY()->minimum(), 0);
    EXPECT_EQ(barY()->pageStep(), 100);
}

TEST_F(ScrollBars, StandInsideTheBorderAndTheSpace)
{
    node->m.border = 2;
    node->m.space = 3;
    addMarkers(&root, {});
    layOut(120, 140, 300, 300);
    ASSERT_NE(barX(), nullptr);
    ASSERT_NE(barY(), nullptr);
    int const extentX = barY()->sizeHint().width();
    int const extentY = barX()->sizeHint().height();
    EXPECT_EQ(barY()->geometry(), QRect(120 - 5 - extentX, 5, extentX, 140 - 10 - extentY));
    EXPECT_EQ(barX()->geometry(), QRect(5, 140 - 5 - extentY, 120 - 10 - extentX, extentY));
}

TEST_F(ScrollBars, RangeReachesTheEndOfContentWithDividersAndParagraphs)
{
    node->m.divide = 5;
    node->m.alignY = kAlignTop;
    addMarkers(node, {kMarkerParagraph, kMarkerParagraph});
    addBox(node, 10, 30);
    layOut(100, 100, 10, 100);
    EXPECT_EQ(node->getScroll().rangeY, 100u + 5 + 12 + 5 + 12 + 30 - 100);
    EXPECT_EQ(node->getLastChild()->m.rect.bottom(), 100 + static_cast<int>(node->getScroll().rangeY));
}

TEST_F(ScrollBars, HorizontalRangeCountsMinimaAndDividers)
{
    node->m.divide = 5;
    addNode(node)->m.fixed.cxMin = 60;
    layOut(100, 100, 70, 10);
    EXPECT_EQ(node->getScroll().rangeX, 60u + 5 + 70 - 100);
}

TEST_F(ScrollBars, RootScrollsToo)
{
    root.m.scrollMode = kPolicyScroll;
    node->m.fixed.cxMin = 600;
    layOut(600, 600, 10, 10);
    ASSERT_NE(root.getScroll().barX, nullptr);
    ASSERT_NE(root.getScroll().barY, nullptr);
    int const extent = root.getScroll().barY->sizeHint().width();
    EXPECT_EQ(root.getScroll().barY->geometry(), QRect(500 - extent, 0, extent, 500 - extent));
}

TEST_F(ScrollBars, BarInsideAScrolledNodeIsCutOffWithIt)
{
    root.m.scrollMode = kPolicyScroll;
    addBox(&root, 10, 10);
    node->m.scrollMode = kPolicyScroll;
    layOut(400, 700, 10, 900);
    ASSERT_NE(barY(), nullptr);
    ASSERT_NE(root.getScroll().barY, nullptr);
    EXPECT_FALSE(barY()->mask().isEmpty());
    EXPECT_LE(barY()->mask().boundingRect().bottom(), 500);
}

TEST_F(ScrollBars, TextWrapsBesideTheBar)
{
    guiHtmlText* text = addText(node, "one two three four five six seven eight nine ten one two three four five six");
    layOut(150, 40, 0, 0);
    ASSERT_NE(barY(), nullptr);
    int const extent = barY()->sizeHint().width();
    EXPECT_EQ(text->m.rect.width, 150 - extent);
    EXPECT_EQ(text->m.rect.height, text->getHeightEstimate(static_cast<unsigned long>(150 - extent)));
    EXPECT_EQ(node->getScroll().rangeY, static_cast<unsigned>(text->m.rect.height - 40));
}

TEST_F(ScrollBars, BarThatAppearsBecauseOfAnotherNarrowsItsTextToo)
{
    addMarkers(node, {kMarkerLineBreak});
    guiHtml* inner = addNode(node);
    inner->m.scrollMode = kPolicyScroll;
    requestWidth(inner, kUnitPercent, 100);
    guiHtmlText* text =
        addText(inner, "one two three four five six seven eight nine ten one two three four five six one "
                       "two three four five six seven eight nine ten one two three four five six");
    auto const exact = static_cast<unsigned>(text->getHeightEstimate(150));
    ASSERT_GT(text->getHeightEstimate(140), static_cast<int>(exact));
    requestHeight(inner, kUnitPixels, exact); // fits, until the outer bar takes some of its width
    layOut(150, 60, 0, 100);
    int const extent = barY()->sizeHint().width();
    ASSERT_NE(inner->getScroll().barY, nullptr);
    EXPECT_EQ(inner->m.rect.width, 150 - extent);
    EXPECT_EQ(text->m.rect.width, 150 - 2 * extent);
}

TEST_F(ScrollBars, PageInNoWindowHasNone)
{
    guiHtml loose;
    loose.m.scrollMode = kPolicyScroll;
    addNode(&loose)->m.fixed.cxMin = 500;
    loose.calcDynamicLayout();
    loose.m.activeCx = 100;
    loose.updateActiveWidths();
    EXPECT_EQ(loose.getScroll().barX, nullptr);
}

TEST_F(ScrollBars, InnerScrollingNodeSettlesInOneLayout)
{
    content->m.scrollMode = kPolicyScroll;
    requestWidth(content, kUnitPercent, 100);
    requestHeight(content, kUnitPixels, 200);
    guiHtmlText* text =
        addText(content, "one two three four five six seven eight nine ten one two three four five six "
                         "one two three four five six seven eight nine ten one two three four five six");
    layOut(130, 100, 0, 0);
    ASSERT_NE(barY(), nullptr);
    guiRect const first = text->m.rect;
    root.layOut(500, 500);
    EXPECT_EQ(text->m.rect, first);
}

} // namespace
