// tests/page/layout-huge_test.cpp: trees beyond all measure: their layout stays within bounds.
#include "tests/page/pagetree.h"

#include <gtest/gtest.h>

namespace {

TEST(HugePage, MillionCellsInOneRow)
{
    testRoot root;
    for (int i = 0; i < 1000000; ++i)
        requestWidth(addNode(&root), kUnitPercent, 4000000000u);
    root.layOut(800, 600);
    EXPECT_EQ(root.getLastChild()->m.dynamic.x, 100u);
}

TEST(HugePage, SumsBeyond32BitsAreClamped)
{
    testRoot root;
    guiHtml* cell = addNode(&root);
    for (int i = 0; i < 1000; ++i) {
        guiHtml* child = addNode(cell);
        child->m.fixed.cxMin = child->m.fixed.cyMin = 2147483647;
        addMarkers(cell, {i % 2 ? kMarkerParagraph : kMarkerAlignRight});
    }
    cell->m.border = 2147483647;
    cell->m.divide = 2147483647;
    root.layOut(800, 600);
    EXPECT_EQ(cell->m.dynamic.cxMin, 16777215);
    EXPECT_EQ(cell->m.rect.height, 16777215);
}

TEST(HugePage, EstimatesBeyond32BitsAreClamped)
{
    testRoot root;
    guiHtml* cell = addNode(&root);
    for (int i = 0; i < 200; ++i) {
        requestHeight(addNode(cell), kUnitPixels, 16777215);
        addMarkers(cell, {kMarkerLineBreak});
    }
    root.layOut(800, 600);
    EXPECT_EQ(cell->m.rect.height, 16777215);
    EXPECT_EQ(cell->getHeightEstimate(100), 16777215);
}

TEST(HugePage, WhatWouldStandBeyondTheLargestPositionStandsOnIt)
{
    testRoot root;
    guiHtml* scrolling = addNode(&root);
    scrolling->m.scrollMode = kPolicyScroll;
    requestHeight(scrolling, kUnitPixels, 100);
    guiHtml* tall = addNode(scrolling);
    requestHeight(tall, kUnitPercent, 4000000000u);
    addMarkers(scrolling, {kMarkerLineBreak});
    guiHtml* below = addNode(scrolling);
    requestHeight(below, kUnitPixels, 20);
    addMarkers(scrolling, {kMarkerLineBreak});
    guiHtml* belowThat = addNode(scrolling);
    root.layOut(800, 600);
    EXPECT_EQ(tall->m.rect.height, 16777215);
    EXPECT_EQ(below->m.rect.top, 16777215);
    EXPECT_EQ(below->m.rect.height, 20);
    EXPECT_EQ(belowThat->m.rect.top, 16777215);
}

TEST(HugePage, ThousandLevels)
{
    testRoot root;
    guiHtml* node = &root;
    for (int i = 0; i < 1000; ++i) {
        node = addNode(node);
        node->m.expandChildren = 1;
        requestHeight(node, i % 2 ? kUnitPercent : kUnitUnbound, 100);
    }
    addText(node, "bottom");
    root.layOut(800, 600);
    EXPECT_EQ(root.getChild(0)->m.rect.width, widthOf("bottom") + 8);
}

} // namespace
