// tests/page/layout-sizes_test.cpp: how width and height are shared out, top-down, and where every node comes to lie.
#include "tests/page/pagetree.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

/// Active widths of a node's children in order.
std::vector<unsigned> widthsOf(guiHtml* node)
{
    std::vector<unsigned> widths;
    for (guiHtml* child : guiNodesOf(node))
        widths.push_back(child->m.activeCx);
    return widths;
}

std::vector<unsigned> heightsOf(guiHtml* node)
{
    std::vector<unsigned> heights;
    for (guiHtml* child : guiNodesOf(node))
        heights.push_back(child->m.activeCy);
    return heights;
}

using sizes = std::vector<unsigned>;

TEST(ActiveWidth, RequestsAreGrantedWhenThereIsRoom)
{
    testRoot root;
    addBox(&root, 30, 10);
    addBox(&root, 50, 10);
    root.layOut(200, 100);
    EXPECT_EQ(widthsOf(&root), (sizes{30, 50}));
}

TEST(ActiveWidth, RoomIsSharedInProportionToWhatIsMissingTheRestGoesToTheLast)
{
    testRoot root;
    addBox(&root, 100, 10);
    addBox(&root, 100, 10);
    addBox(&root, 100, 10);
    root.layOut(100, 100);
    EXPECT_EQ(widthsOf(&root), (sizes{33, 33, 34}));
    root.layOut(101, 100);
    EXPECT_EQ(widthsOf(&root), (sizes{33, 33, 35}));
}

TEST(ActiveWidth, NobodyGetsMoreThanIsMissing)
{
    testRoot root;
    for (int i = 0; i < 5; ++i)
        addBox(&root, 100, 10);
    addBox(&root, 1, 10);
    root.layOut(104, 100); // 20 each, and the last gets its one pixel, not the four that rounding left
    EXPECT_EQ(widthsOf(&root), (sizes{20, 20, 20, 20, 20, 1}));
}

TEST(ActiveWidth, SharingStartsFromTheMinima)
{
    testRoot root;
    addBox(&root, 100, 10)->m.fixed.cxMin = 60;
    addBox(&root, 100, 10);
    root.layOut(100, 100); // 40 spare for 40 and 100 missing
    EXPECT_EQ(widthsOf(&root), (sizes{71, 29}));
}

TEST(ActiveWidth, NegativeRoomLeavesTheMinima)
{
    testRoot root;
    root.m.border = 20;
    root.m.divide = 30;
    addBox(&root, 100, 10)->m.fixed.cxMin = 60;
    addBox(&root, 100, 10);
    requestWidth(addNode(&root), kUnitPercent, 50);
    root.layOut(10, 10);
    EXPECT_EQ(widthsOf(&root), (sizes{60, 0, 0}));
}

TEST(ActiveWidth, PercentsAreOfTheLayersRoomLessItsDividers)
{
    testRoot root;
    root.m.divide = 10;
    root.m.border = 1;
    root.m.space = 4;
    requestWidth(addNode(&root), kUnitPercent, 25);
    requestWidth(addNode(&root), kUnitPercent, 50);
    root.layOut(120, 100); // 120 - 2 x 5 - 10
    EXPECT_EQ(widthsOf(&root), (sizes{25, 50}));
}

TEST(ActiveWidth, NodeThatReaches100PercentTakesAllThatIsLeft)
{
    testRoot root;
    requestWidth(addNode(&root), kUnitPercent, 33);
    requestWidth(addNode(&root), kUnitPercent, 33);
    requestWidth(addNode(&root), kUnitPercent, 34);
    root.layOut(101, 100);
    EXPECT_EQ(widthsOf(&root), (sizes{33, 33, 35}));
}

TEST(ActiveWidth, PercentNodeBehindTheOneThatReached100GetsWhatIsLeftAtLeastItsMinimum)
{
    testRoot root;
    requestWidth(addNode(&root), kUnitPercent, 100);
    requestWidth(addNode(&root), kUnitPercent, 0);
    root.layOut(200, 100);
    EXPECT_EQ(widthsOf(&root), (sizes{200, 0}));
    root.getChild(1)->m.fixed.cxMin = 15;
    root.layOut(200, 100);
    EXPECT_EQ(widthsOf(&root), (sizes{200, 15}));
}

TEST(ActiveWidth, ExpandingNodesShareTheRestEvenlyTheRemainderGoesToTheLast)
{
    testRoot root;
    guiHtml* table = addNode(&root);
    table->m.expandChildren = 1;
    requestWidth(table, kUnitPercent, 100);
    for (int i = 0; i < 3; ++i)
        addNode(table);
    requestWidth(addNode(table), kUnitPixels, 20);
    root.layOut(120, 100);
    EXPECT_EQ(widthsOf(table), (sizes{33, 33, 34, 20}));
}

TEST(ActiveWidth, ExpandingNodesGetTheRestOnTopOfTheirMinimum)
{
    testRoot root;
    guiHtml* table = addNode(&root);
    table->m.expandChildren = 1;
    requestWidth(table, kUnitPercent, 100);
    addNode(table)->m.fixed.cxMin = 40;
    addNode(table);
    root.layOut(100, 100);
    EXPECT_EQ(widthsOf(table), (sizes{70, 30}));
}

TEST(ActiveWidth, ExpandingNodesGetNothingWhileOthersWantMore)
{
    testRoot root;
    guiHtml* table = addNode(&root);
    table->m.expandChildren = 1;
    requestWidth(table, kUnitPercent, 100);
    addNode(table);
    requestWidth(addNode(table), kUnitPixels, 150);
    root.layOut(100, 100);
    EXPECT_EQ(widthsOf(table), (sizes{0, 100}));
}

TEST(ActiveHeight, ComesFromTheChildPixelsPercentOrItsContent)
{
    testRoot root;
    requestHeight(addNode(&root), kUnitPixels, 30);
    requestHeight(addNode(&root), kUnitPercent, 50);
    addBox(&root, 10, 17);
    root.m.border = 5;
    root.layOut(200, 110); // percents are of 110 - 10
    EXPECT_EQ(heightsOf(&root), (sizes{30, 50, 17}));
}

TEST(ActiveHeight, IsAtLeastTheMinimumAndNothingIsShared)
{
    testRoot root;
    guiHtml* small = addNode(&root);
    requestHeight(small, kUnitPixels, 5);
    addNode(small)->m.fixed.cyMin = 40;
    requestHeight(addNode(&root), kUnitPercent, 100);
    addMarkers(&root, {kMarkerLineBreak});
    requestHeight(addNode(&root), kUnitPercent, 100);
    root.layOut(200, 100);
    EXPECT_EQ(heightsOf(&root), (sizes{40, 100, 100}));
}

TEST(ActiveHeight, HugePercentsAreClamped)
{
    testRoot root;
    requestHeight(addNode(&root), kUnitPercent, 4000000000u);
    root.layOut(200, 2000000);
    EXPECT_EQ(heightsOf(&root), (sizes{16777215}));
}

TEST(HeightEstimate, StacksTheLayersOfANode)
{
    testRoot root;
    guiHtml* node = addNode(&root);
    node->m.border = 1;
    node->m.space = 2;
    node->m.divide = 3;
    addBox(node, 10, 20);
    addBox(node, 10, 25);
    addMarkers(node, {kMarkerParagraph});
    addBox(node, 10, 30);
    addMarkers(node, {kMarkerLineBreak});
    guiHtml* small = addNode(node);
    small->m.fixed.cyMin = 7;
    requestHeight(small, kUnitPixels, 4);
    root.layOut(200, 300);
    EXPECT_EQ(node->getHeightEstimate(node->m.activeCx), 2 * 3 + 25 + 3 + 12 + 30 + 3 + 7);
    EXPECT_EQ(node->m.activeCy, 86u);
}

TEST(HeightEstimate, PercentHeightCountsWithTheChildsOwnEstimate)
{
    testRoot root;
    guiHtml* node = addNode(&root);
    guiHtml* child = addNode(node);
    requestHeight(child, kUnitPercent, 10);
    addBox(child, 10, 33);
    root.layOut(200, 300);
    EXPECT_EQ(node->m.activeCy, 33u);
}

TEST(HeightEstimate, TextIsAskedForItsHeightAtTheWidthItWouldGet)
{
    testRoot root;
    guiHtml* cell = addNode(&root);
    addText(cell, "one two three four five six");
    root.layOut(200, 300);
    int const line = cell->getHeightEstimate(1000);
    EXPECT_EQ(cell->getHeightEstimate(static_cast<unsigned long>(widthOf("one two three") + 8)), 2 * line);
    EXPECT_EQ(cell->getHeightEstimate(1000), line);
}

/// A table that fills the root, 100 high, with rows of one cell each.
class SpringyHeight : public testing::Test
{
protected:
    SpringyHeight()
    {
        table = addNode(&root);
        table->m.expandChildren = 1;
        requestHeight(table, kUnitPixels, 100);
    }
    guiHtml* addRow(int height)
    {
        addMarkers(table, {kMarkerLineBreak});
        guiHtml* cell = addNode(table);
        addBox(cell, 10, height);
        return cell;
    }

    testRoot root;
    guiHtml* table = nullptr;
};

TEST_F(SpringyHeight, SpareHeightIsDividedAmongTheLayersTheRemainderGoesToTheLast)
{
    for (int i = 0; i < 3; ++i)
        addRow(20);
    root.layOut(200, 300);
    EXPECT_EQ(heightsOf(table), (sizes{33, 33, 34}));
}

TEST_F(SpringyHeight, OnlyNodesWithoutAHeightRequestGrow)
{
    addRow(20);
    requestHeight(addRow(20), kUnitPixels, 30);
    addRow(20);
    guiHtml* beside = addNode(table);
    requestHeight(beside, kUnitPixels, 5);
    root.layOut(200, 300);
    EXPECT_EQ(heightsOf(table), (sizes{35, 30, 35, 5}));
}

TEST_F(SpringyHeight, DividersParagraphsAndFrameAreNotSpare)
{
    table->m.border = 1;
    table->m.space = 2;
    table->m.divide = 4;
    addRow(20);
    addMarkers(table, {kMarkerParagraph});
    addRow(20);
    root.layOut(200, 300);
    EXPECT_EQ(heightsOf(table), (sizes{39, 39})); // 100 - 6 - 4 - 12
}

TEST_F(SpringyHeight, GapBelowAnEmptyParagraphIsSpare)
{
    addRow(20);
    addMarkers(table, {kMarkerParagraph, kMarkerParagraph});
    addRow(20);
    root.layOut(200, 300);
    EXPECT_EQ(heightsOf(table), (sizes{44, 44})); // 100 - 12: the second gap counts only where nodes are placed
}

TEST_F(SpringyHeight, NodeThatDoesNotExpandHandsNothingOut)
{
    addRow(20);
    table->m.expandChildren = 0;
    root.layOut(200, 300);
    EXPECT_EQ(heightsOf(table), (sizes{20}));
}

TEST_F(SpringyHeight, CellHandsItsWholeNewHeightToItsChildren)
{
    guiHtml* cell = addRow(20);
    guiHtml* inner = addNode(cell);
    guiHtml* half = addNode(inner);
    requestHeight(half, kUnitPercent, 50);
    root.layOut(200, 300);
    EXPECT_EQ(cell->m.activeCy, 100u);
    EXPECT_EQ(heightsOf(cell), (sizes{100, 100}));
    EXPECT_EQ(half->m.activeCy, 50u);
}

TEST_F(SpringyHeight, LayersOfACellKeepTheirHeights)
{
    guiHtml* cell = addRow(20);
    cell->m.alignY = kAlignTop;
    addMarkers(cell, {kMarkerLineBreak});
    guiHtml* second = addBox(cell, 10, 30);
    root.layOut(200, 300);
    EXPECT_EQ(cell->m.activeCy, 100u);
    EXPECT_EQ(heightsOf(cell), (sizes{20, 30}));
    EXPECT_EQ(second->m.rect.top, 20); // below the first, and inside the cell
}

TEST_F(SpringyHeight, AnEmptyLayerIsALayerToo)
{
    guiHtml* cell = addRow(20);
    addMarkers(cell, {kMarkerParagraph, kMarkerParagraph});
    root.layOut(200, 300);
    EXPECT_EQ(heightsOf(cell), (sizes{20}));
}

TEST_F(SpringyHeight, ATextInACellKeepsItsHeightAndIsPlacedByTheAlignment)
{
    addMarkers(table, {kMarkerLineBreak});
    guiHtml* cell = addNode(table);
    guiHtmlText* text = addText(cell, "word");
    cell->m.alignY = kAlignBottom;
    root.layOut(200, 300);
    EXPECT_EQ(cell->m.activeCy, 100u);
    EXPECT_EQ(text->m.activeCy, static_cast<unsigned>(text->getHeightEstimate(text->m.activeCx)));
    EXPECT_EQ(text->m.rect.top, 100 - text->m.rect.height);
}

TEST_F(SpringyHeight, NothingIsHandedDownWhenNothingIsSpare)
{
    guiHtml* cell = addRow(150);
    addBox(cell, 5, 20);
    root.layOut(200, 300);
    EXPECT_EQ(heightsOf(cell), (sizes{150, 20}));
}

TEST_F(SpringyHeight, InnerTablesGrowWithTheirCell)
{
    guiHtml* cell = addRow(20);
    guiHtml* inner = addNode(cell);
    inner->m.expandChildren = 1;
    requestHeight(inner, kUnitPercent, 100);
    guiHtml* innerCell = addNode(inner);
    addBox(innerCell, 10, 15);
    root.layOut(200, 300);
    EXPECT_EQ(inner->m.activeCy, 100u);
    EXPECT_EQ(innerCell->m.activeCy, 100u);
}

TEST(Placement, LayersFollowEachOtherBelowTheFrame)
{
    testRoot root;
    root.m.border = 1;
    root.m.space = 2;
    root.m.divide = 4;
    guiHtml* a = addBox(&root, 30, 10);
    guiHtml* b = addBox(&root, 40, 20);
    addMarkers(&root, {kMarkerLineBreak});
    guiHtml* c = addBox(&root, 50, 30);
    addMarkers(&root, {kMarkerParagraph});
    guiHtml* d = addBox(&root, 60, 40);
    root.layOut(200, 200);
    EXPECT_EQ(a->m.rect, (guiRect{3, 30, 3, 10}));
    EXPECT_EQ(b->m.rect, (guiRect{37, 40, 3, 20}));
    EXPECT_EQ(c->m.rect, (guiRect{3, 50, 27, 30}));
    EXPECT_EQ(d->m.rect, (guiRect{3, 60, 73, 40})); // 27 + 30 + 4 + 12
}

TEST(Placement, GapBelowAnEmptyParagraphStays)
{
    testRoot root;
    root.m.divide = 5;
    addBox(&root, 10, 20);
    addMarkers(&root, {kMarkerParagraph, kMarkerParagraph});
    guiHtml* below = addBox(&root, 10, 10);
    root.layOut(100, 100);
    EXPECT_EQ(below->m.rect.top, 20 + 5 + 12 + 5 + 12);
}

TEST(Placement, NoDividerBelowLayersWithoutHeight)
{
    testRoot root;
    root.m.divide = 5;
    addNode(&root);
    addMarkers(&root, {kMarkerLineBreak});
    guiHtml* below = addBox(&root, 10, 10);
    root.layOut(100, 100);
    EXPECT_EQ(below->m.rect.top, 0);
}

TEST(Placement, GapBelowAnEmptyFirstLayerStaysWithoutItsDivider)
{
    testRoot root;
    root.m.divide = 5;
    addMarkers(&root, {kMarkerParagraph});
    guiHtml* below = addBox(&root, 10, 10);
    addMarkers(&root, {kMarkerParagraph});
    guiHtml* last = addBox(&root, 10, 10);
    root.m.alignY = kAlignTop;
    root.layOut(100, 100);
    EXPECT_EQ(below->m.rect.top, 12);
    EXPECT_EQ(last->m.rect.top, 12 + 10 + 5 + 12);
}

TEST(Placement, LayersAreAlignedInTheNodesWidth)
{
    testRoot root;
    root.m.alignX = kAlignRight;
    guiHtml* right = addBox(&root, 31, 10);
    addMarkers(&root, {kMarkerAlignCenter});
    guiHtml* middle = addBox(&root, 31, 10);
    addMarkers(&root, {kMarkerAlignLeft});
    guiHtml* left = addBox(&root, 31, 10);
    addMarkers(&root, {kMarkerAlignRight});
    guiHtml* full = addBox(&root, 500, 10);
    root.layOut(100, 100);
    EXPECT_EQ(right->m.rect.left, 69);
    EXPECT_EQ(middle->m.rect.left, 34);
    EXPECT_EQ(left->m.rect.left, 0);
    EXPECT_EQ(full->m.rect.left, 0);
}

TEST(Placement, ContentMovesVerticallyAsOneBlock)
{
    for (auto [align, top] : {std::pair(kAlignTop, 0), std::pair(kAlignCenter, 34), std::pair(kAlignBottom, 69)}) {
        testRoot root;
        root.m.alignY = align;
        guiHtml* low = addBox(&root, 10, 11);
        guiHtml* high = addBox(&root, 10, 31);
        root.layOut(100, 100);
        EXPECT_EQ(low->m.rect.top, top);
        EXPECT_EQ(high->m.rect.top, top);
        root.layOut(100, 31);
        EXPECT_EQ(high->m.rect.top, 0);
        root.layOut(100, 20);
        EXPECT_EQ(high->m.rect.top, 0);
    }
}

TEST(Placement, CaptionStandsAboveTheContent)
{
    testRoot root;
    guiHtml* group = addNode(&root);
    group->m.border = 2;
    group->m.alignY = kAlignTop;
    group->setString(kStringCaption, sstring("Address"));
    guiHtml* box = addBox(group, 10, 10);
    root.layOut(200, 200);
    int const caption = static_cast<int>(group->getCaptionHeight());
    EXPECT_GT(caption, 5);
    EXPECT_EQ(box->m.rect.top, 2 + caption);
    EXPECT_EQ(group->m.rect.height, 4 + caption + 10);
}

TEST(Placement, ChildrenAreRelativeToTheirParent)
{
    testRoot root;
    addBox(&root, 50, 10);
    guiHtml* cell = addNode(&root);
    guiHtml* box = addBox(cell, 10, 10);
    root.layOut(200, 100);
    EXPECT_EQ(cell->m.rect.left, 50);
    EXPECT_EQ(box->m.rect.left, 0);
}

TEST(UpdateLayout, WithoutApplyOnlySizesAreComputed)
{
    testRoot root;
    guiHtml* box = addBox(&root, 50, 10);
    root.layOut(200, 100);
    requestWidth(box, kUnitPixels, 80);
    EXPECT_EQ(box->updateLayout(0), 1);
    EXPECT_EQ(box->m.dynamic.x, 80u);
    EXPECT_EQ(box->m.rect.width, 50);
}

TEST(UpdateLayout, WithApplyTheRootsRectangleIsAppliedAgain)
{
    testRoot root;
    guiHtml* cell = addNode(&root);
    guiHtml* box = addBox(cell, 50, 10);
    root.layOut(200, 100);
    requestWidth(box, kUnitPixels, 80);
    EXPECT_EQ(box->updateLayout(1), 1);
    EXPECT_EQ(box->m.rect.width, 80);
    EXPECT_EQ(root.m.rect, (guiRect{0, 200, 0, 100}));
}

} // namespace
