// tests/page/layout-property.cpp: what holds for every page. Trees are random, but the same in every run.
#include "tests/page/pagetree.h"

#include "page/guihtmlsize-layers.h"
#include "page/guilayoutcounters.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

/// Makes a page from a seed.
class pageMaker
{
public:
    explicit pageMaker(unsigned seed) : m_random(seed) {}

    void fill(guiHtml* node, int depth)
    {
        int const entries = below(6) + 1;
        for (int i = 0; i < entries; ++i)
            addEntry(node, depth);
    }
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }

private:
    void addEntry(guiHtml* parent, int depth)
    {
        switch (below(depth > 0 ? 6 : 3)) {
        case 0:
            addBox(parent, below(120), below(40));
            break;
        case 1:
            addText(parent,
                    below(2) ? "Name of the customer" : "one [[b]]two[[/b]] three [[a event://x]]four[[/a]] five");
            break;
        case 2:
            parent->appendMarker(static_cast<guiMarker>(below(6)));
            break;
        default:
            addContainer(parent, depth);
            break;
        }
    }

    void addContainer(guiHtml* parent, int depth)
    {
        guiHtml* node = addNode(parent);
        node->m.border = below(3);
        node->m.space = below(3);
        node->m.divide = below(4);
        node->m.alignX = static_cast<guiAlignment>(below(3));
        node->m.alignY = static_cast<guiAlignment>(below(3));
        node->m.expandChildren = static_cast<std::uint8_t>(below(2));
        node->m.scrollMode = below(4) ? kPolicyResize : kPolicyScroll;
        requestWidth(node, static_cast<guiSizeUnit>(below(3)), static_cast<unsigned>(below(150)));
        requestHeight(node, static_cast<guiSizeUnit>(below(3)), static_cast<unsigned>(below(150)));
        if (below(5) == 0)
            node->setString(kStringCaption, sstring("Group"));
        fill(node, depth - 1);
    }

    std::mt19937 m_random;
};

void collectRects(guiHtml* node, std::vector<guiRect>& rects)
{
    rects.push_back(node->m.rect);
    for (guiHtml* child : guiNodesOf(node))
        collectRects(child, rects);
}

std::vector<guiRect> rectsOf(guiHtml* root)
{
    std::vector<guiRect> rects;
    collectRects(root, rects);
    return rects;
}

/// Children of a layer follow each other without overlap, and layers stand below each other.
void expectOrder(guiHtml* node)
{
    guiLayerWalk layers(node);
    int bottom = node->m.border + node->m.space;
    while (layers.next()) {
        int right = node->m.border + node->m.space;
        int layerBottom = bottom;
        for (guiHtml* child : guiLayerNodes(node, layers.layer())) {
            ASSERT_GE(child->m.rect.left, right);
            ASSERT_GE(child->m.rect.top, bottom);
            ASSERT_GE(child->m.rect.width, child->m.dynamic.cxMin);
            ASSERT_GE(child->m.rect.height, child->m.dynamic.cyMin);
            right = child->m.rect.right();
            layerBottom = std::max(layerBottom, child->m.rect.bottom());
        }
        bottom = layerBottom;
    }
    for (guiHtml* child : guiNodesOf(node))
        ASSERT_NO_FATAL_FAILURE(expectOrder(child));
}

TEST(RandomPage, LayoutDependsOnThePageAndTheSizeOnly)
{
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        pageMaker maker(seed);
        testRoot root;
        maker.fill(&root, 4);
        int const width = 50 + maker.below(500);
        int const height = 50 + maker.below(500);
        root.layOut(width, height);
        ASSERT_NO_FATAL_FAILURE(expectOrder(&root));
        std::vector<guiRect> const first = rectsOf(&root);
        root.layOut(width, height);
        ASSERT_EQ(rectsOf(&root), first);
        root.layOut(width / 2, height / 2);
        root.layOut(width, height);
        ASSERT_EQ(rectsOf(&root), first);
    }
}

/// A table in a cell of a table, `depth` times, with `width` cells on every level.
void nest(guiHtml* parent, int depth, int width)
{
    guiHtml* table = addNode(parent);
    table->m.expandChildren = 1;
    requestHeight(table, kUnitPercent, 100);
    for (int i = 0; i < width; ++i) {
        guiHtml* cell = addNode(table);
        addText(cell, "Name of the customer");
        if (depth > 1 && i == 0)
            nest(cell, depth - 1, width);
    }
}

unsigned countNodes(guiHtml* node)
{
    unsigned count = 1;
    for (guiHtml* child : guiNodesOf(node))
        count += countNodes(child);
    return count;
}

TEST(LayoutWork, PerNodeIsBoundedAtEveryDepth)
{
    for (int depth : {1, 4, 8, 12, 200}) {
        testRoot root;
        nest(&root, depth, 4);
        unsigned const nodes = countNodes(&root);
        guiLayoutCounters::reset();
        root.layOut(800, 600);
        EXPECT_EQ(guiLayoutCounters::calcDynamic, nodes) << depth;
        EXPECT_EQ(guiLayoutCounters::widthPasses, nodes) << depth;
        EXPECT_LE(guiLayoutCounters::heightPasses, 2 * nodes) << depth;
        EXPECT_LE(guiLayoutCounters::heightQueries, 3 * nodes) << depth;
        EXPECT_LE(guiLayoutCounters::heightsComputed, nodes) << depth;
        EXPECT_EQ(guiLayoutCounters::placements, nodes) << depth;
        EXPECT_LE(guiLayoutCounters::fontClimbs, 4 * nodes) << depth;
    }
}

TEST(LayoutWork, UnchangedTextIsNotBrokenOrShapedAgain)
{
    testRoot root;
    nest(&root, 4, 4);
    root.layOut(800, 600);
    guiLayoutCounters::reset();
    root.layOut(800, 600);
    EXPECT_EQ(guiLayoutCounters::runsShaped, 0u);
    EXPECT_EQ(guiLayoutCounters::runsBroken, 0u);
    EXPECT_EQ(guiLayoutCounters::wordsShaped, 0u);
    EXPECT_EQ(guiLayoutCounters::fontProbes, 0u);
    root.layOut(300, 600);
    EXPECT_EQ(guiLayoutCounters::runsShaped, 0u);
    EXPECT_EQ(guiLayoutCounters::wordsShaped, 0u);
}

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
