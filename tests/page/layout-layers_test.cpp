// tests/page/layout-layers_test.cpp: how a child list is read as layers, and what each node needs, bottom-up.
#include "tests/page/pagetree.h"

#include <gtest/gtest.h>

#include <QFontMetrics>

#include <vector>

namespace {

struct layer
{
    unsigned first;
    unsigned count;
    int endsParagraph;
    guiAlignment align;
    bool operator==(layer const&) const = default;
};

std::vector<layer> layersOf(guiHtml* node)
{
    std::vector<layer> layers;
    unsigned pos = 0;
    layer found{};
    while (node->findLayer(&pos, &found.first, &found.count, &found.endsParagraph, &found.align))
        layers.push_back(found);
    return layers;
}

int minimumHeight(guiHtml& node)
{
    node.calcDynamicLayout();
    return node.m.dynamic.cyMin;
}

TEST(FindLayer, EmptyListHasNone)
{
    guiHtml node;
    EXPECT_TRUE(layersOf(&node).empty());
    addMarkers(&node, {kMarkerLineBreak, kMarkerNone, kMarkerAlignRight});
    EXPECT_TRUE(layersOf(&node).empty());
}

TEST(FindLayer, NodesInARowAreOneLayer)
{
    guiHtml node;
    addNode(&node);
    addNode(&node);
    EXPECT_EQ(layersOf(&node), (std::vector<layer>{{0, 2, 0, kAlignLeft}}));
}

TEST(FindLayer, EveryMarkerEndsALayer)
{
    for (guiMarker marker : {kMarkerNone, kMarkerLineBreak, kMarkerAlignLeft, kMarkerAlignCenter, kMarkerAlignRight}) {
        guiHtml node;
        addNode(&node);
        addMarkers(&node, {marker});
        addNode(&node);
        ASSERT_EQ(layersOf(&node).size(), 2u) << marker;
        EXPECT_EQ(layersOf(&node)[0].count, 1u);
        EXPECT_EQ(layersOf(&node)[0].endsParagraph, 0);
        EXPECT_EQ(layersOf(&node)[1].first, 2u);
    }
}

TEST(FindLayer, AlignmentMarksTheLayersThatFollow)
{
    guiHtml node;
    node.m.alignX = kAlignRight;
    addNode(&node);
    addMarkers(&node, {kMarkerAlignCenter});
    addNode(&node);
    addMarkers(&node, {kMarkerLineBreak});
    addNode(&node);
    addMarkers(&node, {kMarkerAlignLeft, kMarkerAlignRight});
    addNode(&node);
    EXPECT_EQ(layersOf(&node),
              (std::vector<layer>{
                  {0, 1, 0, kAlignRight}, {2, 1, 0, kAlignCenter}, {4, 1, 0, kAlignCenter}, {7, 1, 0, kAlignRight}}));
}

TEST(FindLayer, ParagraphMarkBelongsToTheLayerItEnds)
{
    guiHtml node;
    addNode(&node);
    addMarkers(&node, {kMarkerParagraph});
    addNode(&node);
    EXPECT_EQ(layersOf(&node), (std::vector<layer>{{0, 1, 1, kAlignLeft}, {2, 1, 0, kAlignLeft}}));
}

TEST(FindLayer, TwoParagraphMarksInARowGiveAnEmptyLayer)
{
    guiHtml node;
    addNode(&node);
    addMarkers(&node, {kMarkerParagraph, kMarkerParagraph});
    addNode(&node);
    EXPECT_EQ(layersOf(&node),
              (std::vector<layer>{{0, 1, 1, kAlignLeft}, {2, 0, 1, kAlignLeft}, {3, 1, 0, kAlignLeft}}));
}

TEST(FindLayer, OutputsThatNobodyWantsMayBeNull)
{
    guiHtml node;
    addNode(&node);
    unsigned pos = 0;
    EXPECT_EQ(node.findLayer(&pos, nullptr, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(node.findLayer(&pos, nullptr, nullptr, nullptr, nullptr), 0);
}

TEST(MinimumSize, RequestsAreCopiedIntoTheDynamicSizes)
{
    guiHtml node;
    node.m.fixed = {7, 9, kUnitPercent, kUnitPixels, 40, 50};
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.cxMin, 7);
    EXPECT_EQ(node.m.dynamic.cyMin, 9);
    EXPECT_EQ(node.m.dynamic.unitX, kUnitPercent);
    EXPECT_EQ(node.m.dynamic.x, 40u);
    EXPECT_EQ(node.m.dynamic.unitY, kUnitPixels);
    EXPECT_EQ(node.m.dynamic.y, 50u);
}

TEST(MinimumSize, CustomNodeIsAtLeastItsPixelRequest)
{
    struct custom : guiHtml
    {
        using guiHtml::operator=;
        int getType() override { return kTypeCustom; }
    };
    custom node;
    node.m.fixed = {0, 0, kUnitPixels, kUnitPercent, 40, 50};
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.cxMin, 40);
    EXPECT_EQ(node.m.dynamic.cyMin, 0);
    node.m.fixed = {0, 0, kUnitUnbound, kUnitPixels, 40, 50};
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.cxMin, 0);
    EXPECT_EQ(node.m.dynamic.cyMin, 50);
    node.m.fixed = {0, 0, kUnitPercent, kUnitUnbound, 40, 50};
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.cxMin, 0);
    EXPECT_EQ(node.m.dynamic.cyMin, 0);
}

TEST(MinimumSize, IsTheWidestLayerAndTheSumOfTheHighest)
{
    guiHtml node;
    node.m.divide = 5;
    auto addMinimum = [&node](int width, int height) {
        guiHtml* child = addNode(&node);
        child->m.fixed.cxMin = width;
        child->m.fixed.cyMin = height;
    };
    addMinimum(10, 20);
    addMinimum(30, 10);
    addMarkers(&node, {kMarkerLineBreak});
    addMinimum(41, 7);
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.cxMin, 45);         // 10 + 5 + 30
    EXPECT_EQ(node.m.dynamic.cyMin, 20 + 5 + 7); // a divider between the layers
    node.m.border = 2;
    node.m.space = 3;
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.cxMin, 55); // 2 x (2 + 3)
    EXPECT_EQ(node.m.dynamic.cyMin, 42);
}

TEST(MinimumSize, ParagraphAddsTwelvePixelsBelowALayerOfSomeHeight)
{
    guiHtml node;
    addNode(&node)->m.fixed.cyMin = 20;
    addMarkers(&node, {kMarkerParagraph});
    EXPECT_EQ(minimumHeight(node), 20);
    addNode(&node)->m.fixed.cyMin = 10;
    EXPECT_EQ(minimumHeight(node), 20 + 12 + 10);
    node.getChild(0)->m.fixed.cyMin = 0;
    EXPECT_EQ(minimumHeight(node), 10);
}

TEST(MinimumSize, EmptyLayerAddsItsDividerButNoSecondGap)
{
    guiHtml node;
    node.m.divide = 5;
    addNode(&node)->m.fixed.cyMin = 20;
    addMarkers(&node, {kMarkerParagraph, kMarkerParagraph});
    addNode(&node)->m.fixed.cyMin = 10;
    EXPECT_EQ(minimumHeight(node), 20 + 5 + 12 + 5 + 10);
}

TEST(MinimumSize, OnlyANodeThatGrowsIsForcedByItsContent)
{
    for (guiSizePolicy policy : {kPolicyScroll, kPolicyResize, kPolicyFixed}) {
        guiHtml node;
        node.m.scrollMode = policy;
        node.m.fixed.cxMin = 3;
        guiHtml* child = addNode(&node);
        child->m.fixed.cxMin = 100;
        child->m.fixed.cyMin = 50;
        node.calcDynamicLayout();
        EXPECT_EQ(node.m.dynamic.cxMin, policy == kPolicyResize ? 100 : 3);
        EXPECT_EQ(node.m.dynamic.cyMin, policy == kPolicyResize ? 50 : 0);
    }
}

TEST(Caption, IsMeasuredInTheNodesFont)
{
    testRoot root;
    guiHtml* group = addNode(&root);
    group->m.border = 2;
    group->setString(kStringCaption, sstring("Address"));
    root.calcDynamicLayout();
    QFontMetrics const metrics(testFont());
    EXPECT_EQ(group->getCaptionWidth(), static_cast<unsigned>(metrics.horizontalAdvance(QStringLiteral("Address"))));
    EXPECT_EQ(group->getCaptionHeight(), static_cast<unsigned>(metrics.lineSpacing() - 2));
    EXPECT_EQ(group->m.dynamic.cyMin, metrics.lineSpacing() - 2 + 4);
}

TEST(Caption, MarkerOfAnEmptyGroupBoxAndNoCaptionMeasureNothing)
{
    testRoot root;
    guiHtml* group = addNode(&root);
    group->setString(kStringCaption, sstring("Address"));
    root.calcDynamicLayout();
    for (char const* caption : {kEmptyGroupBox, ""}) {
        group->setString(kStringCaption, sstring(caption));
        root.calcDynamicLayout();
        EXPECT_EQ(group->getCaptionWidth(), 0u);
        EXPECT_EQ(group->getCaptionHeight(), 0u);
    }
}

TEST(Percents, ThreeHalvesBecome33And33And34)
{
    guiHtml node;
    for (int i = 0; i < 3; ++i)
        requestWidth(addNode(&node), kUnitPercent, 50);
    node.calcDynamicLayout();
    EXPECT_EQ(node.getChild(0)->m.dynamic.x, 33u);
    EXPECT_EQ(node.getChild(1)->m.dynamic.x, 33u);
    EXPECT_EQ(node.getChild(2)->m.dynamic.x, 34u);
}

TEST(Percents, UpTo100StayAsTheyAreAndOtherNodesAreLeftOut)
{
    guiHtml node;
    requestWidth(addNode(&node), kUnitPercent, 60);
    requestWidth(addNode(&node), kUnitPixels, 70);
    requestWidth(addNode(&node), kUnitPercent, 40);
    node.calcDynamicLayout();
    EXPECT_EQ(node.getChild(0)->m.dynamic.x, 60u);
    EXPECT_EQ(node.getChild(1)->m.dynamic.x, 70u);
    EXPECT_EQ(node.getChild(2)->m.dynamic.x, 40u);
    requestWidth(node.getChild(2), kUnitPercent, 140);
    node.calcDynamicLayout();
    EXPECT_EQ(node.getChild(0)->m.dynamic.x, 30u);
    EXPECT_EQ(node.getChild(1)->m.dynamic.x, 70u);
    EXPECT_EQ(node.getChild(2)->m.dynamic.x, 70u);
}

TEST(Percents, HugeOnesAddUpTo100)
{
    guiHtml node;
    for (int i = 0; i < 3; ++i)
        requestWidth(addNode(&node), kUnitPercent, 4000000000u);
    node.calcDynamicLayout();
    EXPECT_EQ(node.getChild(0)->m.dynamic.x, 33u);
    EXPECT_EQ(node.getChild(2)->m.dynamic.x, 34u);
}

TEST(PreferredWidth, IsTheWidestLayerOfPixelsPlusTheFrame)
{
    guiHtml node;
    node.m.border = 1;
    node.m.space = 2;
    node.m.divide = 4;
    addBox(&node, 30, 10);
    addBox(&node, 50, 10);
    addMarkers(&node, {kMarkerLineBreak});
    addBox(&node, 83, 10);
    EXPECT_EQ(node.calcDynamicLayout(), 2 * 3 + 84);
    EXPECT_EQ(node.getPreferredWidth(), 2 * 3 + 84);
    EXPECT_EQ(node.m.dynamic.unitX, kUnitPixels);
    EXPECT_EQ(node.m.dynamic.x, 90u);
}

TEST(PreferredWidth, PercentInAnyLayerMakesItAPercentage)
{
    guiHtml node;
    requestWidth(addNode(&node), kUnitPercent, 20);
    requestWidth(addNode(&node), kUnitPercent, 30);
    addMarkers(&node, {kMarkerLineBreak});
    requestWidth(addNode(&node), kUnitPercent, 40);
    addBox(&node, 500, 10);
    EXPECT_EQ(node.calcDynamicLayout(), 0);
    EXPECT_EQ(node.getPreferredWidth(), -50);
    EXPECT_EQ(node.m.dynamic.unitX, kUnitPercent);
    EXPECT_EQ(node.m.dynamic.x, 50u);
}

TEST(DynamicWidth, PixelRequestIsRaisedToThePreferredWidth)
{
    guiHtml node;
    requestWidth(&node, kUnitPixels, 40);
    addBox(&node, 100, 10);
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.x, 100u);
    requestWidth(&node, kUnitPixels, 140);
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.x, 140u);
}

TEST(DynamicWidth, PixelRequestStaysWhereSpareWidthOrAPercentageDecides)
{
    guiHtml node;
    requestWidth(&node, kUnitPixels, 40);
    guiHtml* child = addBox(&node, 100, 10);
    node.m.expandChildren = 1;
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.x, 40u);
    node.m.expandChildren = 0;
    requestWidth(child, kUnitPercent, 10);
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.x, 40u);
}

TEST(DynamicWidth, PixelRequestIsNeverBelowTheMinimum)
{
    guiHtml node;
    requestWidth(&node, kUnitPixels, 40);
    node.m.expandChildren = 1;
    addNode(&node)->m.fixed.cxMin = 60;
    node.calcDynamicLayout();
    EXPECT_EQ(node.m.dynamic.x, 60u);
}

TEST(DynamicWidth, ScrollingOrFixedNodeKeepsItsRequest)
{
    for (guiSizePolicy policy : {kPolicyScroll, kPolicyFixed}) {
        guiHtml node;
        node.m.scrollMode = policy;
        requestWidth(&node, kUnitPixels, 40);
        addBox(&node, 100, 10);
        node.calcDynamicLayout();
        EXPECT_EQ(node.m.dynamic.x, 40u);
    }
}

TEST(Expansion, UnboundChildrenOfAnExpandingParentMayGrow)
{
    guiHtml table;
    table.m.expandChildren = 1;
    guiHtml* unbound = addNode(&table);
    guiHtml* wide = addNode(&table);
    requestWidth(wide, kUnitPixels, 10);
    table.calcDynamicLayout();
    EXPECT_EQ(unbound->m.expandWidth, 1);
    EXPECT_EQ(wide->m.expandWidth, 0);
    EXPECT_EQ(unbound->m.expandHeight, 0); // the table has no height request
    requestHeight(&table, kUnitPercent, 100);
    requestHeight(wide, kUnitPixels, 10);
    table.calcDynamicLayout();
    EXPECT_EQ(unbound->m.expandHeight, 1);
    EXPECT_EQ(wide->m.expandHeight, 0);
    table.m.expandChildren = 0;
    table.calcDynamicLayout();
    EXPECT_EQ(unbound->m.expandWidth, 0);
    EXPECT_EQ(unbound->m.expandHeight, 0);
}

TEST(Clamping, RequestsBeyondTheToolkitsBoundAreCut)
{
    guiHtml node;
    guiHtml* child = addNode(&node);
    requestWidth(child, kUnitPixels, 2147483647);
    requestWidth(addNode(&node), kUnitPixels, 4294967295u);
    node.calcDynamicLayout();
    EXPECT_EQ(child->m.dynamic.x, 16777215u);
    EXPECT_EQ(node.getPreferredWidth(), 16777215);
}

} // namespace
