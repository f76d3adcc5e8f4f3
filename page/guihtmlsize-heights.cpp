// page/guihtmlsize-heights.cpp: the top-down walk that computes heights, after the widths.
#include "page/guihtmlsize-scroll.h"
#include "page/guihtmlsize-widths.h"
#include "page/guihtmlsize.h"
#include "page/guilayoutcounters.h"

namespace {

// ---- The height that a node wants ----

int const* findEstimate(guiLayoutMemo const& memo, int width)
{
    if (memo.run != guiLayoutRun::number())
        return nullptr;
    unsigned const kept = std::min<unsigned>(memo.estimates, guiLayoutMemo::kWidths);
    for (unsigned i = 0; i < kept; ++i)
        if (memo.estimateWidth[i] == width)
            return &memo.estimateHeight[i];
    return nullptr;
}

void rememberEstimate(guiLayoutMemo& memo, int width, int height)
{
    memo.enter(guiLayoutRun::number());
    unsigned const at = memo.estimates % guiLayoutMemo::kWidths;
    memo.estimateWidth[at] = width;
    memo.estimateHeight[at] = height;
    // Wraps around to a number that still says that all places are in use.
    memo.estimates =
        static_cast<std::uint8_t>(memo.estimates == 0xFF ? guiLayoutMemo::kWidths + 1u : memo.estimates + 1u);
}

bool isSettled(guiHtml const* child) { return child->m.layout.knows(guiLayoutMemo::kSettled, guiLayoutRun::number()); }

/// The height that a child wants at a width. A percentage counts as no request, because the parent's height is not
/// known yet.
int wantedHeight(guiHtml* child, int width)
{
    if (isSettled(child) && guiClampPixels(child->m.activeCx) == width)
        return guiClampPixels(child->m.activeCy);
    int height = 0;
    if (child->m.dynamic.unitY == kUnitPixels)
        height = guiClampPixels(child->m.dynamic.y);
    else
        height = child->getHeightEstimate(static_cast<unsigned long>(width));
    return std::max(guiClampPixels(height), child->m.dynamic.cyMin);
}

/// The largest height that a node of the layer wants when the parent has this width.
int wantedLayerHeight(guiHtml* node, guiLayer const& layer, int width)
{
    int largest = 0;
    if (node->m.layout.knows(guiLayoutMemo::kShares, guiLayoutRun::number()) &&
        guiClampPixels(node->m.activeCx) == width) {
        for (guiHtml* child : guiLayerNodes(node, layer))
            largest = std::max(largest, wantedHeight(child, guiClampPixels(child->m.activeCx)));
        return largest;
    }
    guiLayerWidths const shares = guiShareWidth(node, layer, guiInnerWidth(node, width));
    int const* childWidth = shares.widths.data();
    for (guiHtml* child : guiLayerNodes(node, layer))
        largest = std::max(largest, wantedHeight(child, *childWidth++));
    return largest;
}

int computeEstimate(guiHtml* node, int width)
{
    guiLayerSum heights(node, guiLayerSum::gap::kBelowContent);
    guiLayerWalk layers(node);
    while (layers.next())
        heights.add(layers.layer(), wantedLayerHeight(node, layers.layer(), width));
    return guiClampPixels(heights.total() + guiFrameOf(node) + std::int64_t{node->getCaptionHeight()});
}

} // namespace

int guiHtml::getHeightEstimate(unsigned long width)
{
    assertOnGuiThread();
    guiLayoutRun const run;
    ++guiLayoutCounters::heightQueries;
    int const pixels = guiClampPixels(width);
    if (int const* known = findEstimate(m.layout, pixels))
        return *known;
    ++guiLayoutCounters::heightsComputed;
    int const height = computeEstimate(this, pixels);
    rememberEstimate(m.layout, pixels, height);
    return height;
}

int guiHtml::getChildHeight(unsigned index, unsigned long width, unsigned long available)
{
    guiHtml* child = getChild(index);
    if (!guiChildList::isNode(child))
        return 0;
    switch (child->m.dynamic.unitY) {
    case kUnitPixels:
        return guiClampPixels(child->m.dynamic.y);
    case kUnitPercent:
        return guiClampPixels(static_cast<std::uint64_t>(guiClampPixels(available)) * child->m.dynamic.y / 100);
    default:
        return child->getHeightEstimate(width);
    }
}

// ---- The height that a node gets ----

namespace {

// Skips a subtree whose heights were already computed in this run for the same height of the node.
void updateHeightsBelow(guiHtml* node)
{
    guiLayoutMemo const& memo = node->m.layout;
    if (!memo.knows(guiLayoutMemo::kHeights, guiLayoutRun::number()) ||
        memo.heightsFor != guiClampPixels(node->m.activeCy))
        node->updateActiveHeights();
}

bool isSpringy(guiHtml const* child) { return child->m.expandHeight != 0; }

// Remembers whether there are springs or scroll bars below, so that two later walks can skip this part of the tree.
void learnWhatIsBelow(guiHtml* node)
{
    std::uint32_t const run = guiLayoutRun::number();
    bool hasSprings = false;
    bool hasBars = node->isScrolled();
    for (guiHtml* child : guiNodesOf(node)) {
        hasSprings |=
            (node->m.expandChildren && isSpringy(child)) || !child->m.layout.knows(guiLayoutMemo::kNoSprings, run);
        hasBars |= !child->m.layout.knows(guiLayoutMemo::kNoBars, run);
    }
    node->m.layout.forget(guiLayoutMemo::kNoSprings | guiLayoutMemo::kNoBars);
    if (!hasSprings)
        node->m.layout.learn(guiLayoutMemo::kNoSprings, run);
    if (!hasBars)
        node->m.layout.learn(guiLayoutMemo::kNoBars, run);
}

int layerHeight(guiHtml const* node, guiLayer const& layer)
{
    int largest = 0;
    for (guiHtml* child : guiLayerNodes(node, layer))
        largest = std::max(largest, guiClampPixels(child->m.activeCy));
    return largest;
}

void takeHeight(guiHtml* parent, unsigned index, unsigned long available)
{
    guiHtml* child = parent->getChild(index);
    assert(guiChildList::isNode(child));
    int const height = guiClampPixels(parent->getChildHeight(index, child->m.activeCx, available));
    child->m.activeCy = static_cast<unsigned>(std::max({height, child->m.dynamic.cyMin, 0}));
}

} // namespace

// On a large page, layout takes as long as fetching the nodes from memory takes, so where the result is the same a node
// and everything below it are finished in one go.
void guiSettleHeight(guiHtml* parent, unsigned index)
{
    guiHtml* child = parent->getChild(index);
    assert(guiChildList::isNode(child));
    bool const needsParent = child->m.dynamic.unitY == kUnitPercent || parent->getType() == guiHtml::kTypeFrameset;
    if (needsParent || guiLayoutRun::currentPhase() == guiLayoutRun::phase::kPart)
        return;
    takeHeight(parent, index, 0);
    child->m.layout.learn(guiLayoutMemo::kSettled, guiLayoutRun::number());
    updateHeightsBelow(child);
}

void guiHtml::updateActiveHeights()
{
    assertOnGuiThread();
    guiLayoutRun const run;
    ++guiLayoutCounters::heightPasses;
    int const room = guiInnerHeight(this, guiClampPixels(m.activeCy));
    auto const available = static_cast<unsigned long>(std::max(room, 0));
    m.layout.learn(guiLayoutMemo::kHeights, guiLayoutRun::number());
    m.layout.forget(guiLayoutMemo::kPlaced);
    m.layout.heightsFor = guiClampPixels(m.activeCy);
    guiLayerSum content(this, guiLayerSum::gap::kAlways);
    guiLayerWalk layers(this);
    while (layers.next()) {
        guiLayer const& layer = layers.layer();
        for (unsigned i = layer.first; i < layer.first + layer.count; ++i)
            if (!isSettled(getChild(i)))
                takeHeight(this, i, available);
        content.add(layer, layerHeight(this, layer));
    }
    for (guiHtml* child : guiNodesOf(this))
        updateHeightsBelow(child);
    guiDecideBar(this, Qt::Vertical, content.total(), room);
    learnWhatIsBelow(this);
}

namespace {

/// The height that a node can share out, and among how many layers.
struct springs
{
    std::int64_t spare = 0;  // pixels
    std::int64_t layers = 0; // layers with at least one node that may grow
};

springs findSprings(guiHtml* node)
{
    springs found;
    guiLayerSum content(node, guiLayerSum::gap::kBelowContent);
    guiLayerWalk layers(node);
    while (layers.next()) {
        guiLayerNodes const nodes(node, layers.layer());
        content.add(layers.layer(), layerHeight(node, layers.layer()));
        found.layers += std::any_of(nodes.begin(), nodes.end(), isSpringy);
    }
    found.spare = guiInnerHeight(node, guiClampPixels(node->m.activeCy)) - content.total();
    return found;
}

bool hasOneLayer(guiHtml* node)
{
    guiLayerWalk layers(node);
    return layers.next() && !layers.next();
}

// A node that grew gives its whole new height to each of its children, if they stand side by side; a second layer would
// be pushed out of sight.
void grow(guiHtml* child, std::int64_t share)
{
    child->m.activeCy = static_cast<unsigned>(guiClampPixels(child->m.activeCy + share));
    child->m.layout.forget(guiLayoutMemo::kSettled);
    if (!hasOneLayer(child))
        return;
    for (guiHtml* below : guiNodesOf(child)) {
        if (below->keepsHeight())
            continue;
        below->m.layout.forget(guiLayoutMemo::kSettled);
        below->m.activeCy = child->m.activeCy;
        updateHeightsBelow(below);
    }
}

void shareOutHeight(guiHtml* node)
{
    springs const found = findSprings(node);
    if (found.spare <= 0 || found.layers == 0)
        return;
    std::int64_t const share = found.spare / found.layers;
    std::int64_t left = found.spare;
    std::int64_t layersLeft = found.layers;
    guiLayerWalk layers(node);
    while (layers.next()) {
        guiLayerNodes const nodes(node, layers.layer());
        if (std::none_of(nodes.begin(), nodes.end(), isSpringy))
            continue;
        std::int64_t const own = --layersLeft == 0 ? left : share;
        left -= own;
        for (guiHtml* child : nodes)
            if (isSpringy(child))
                grow(child, own);
    }
    assert(layersLeft == 0 && left == 0);
}

} // namespace

void guiHtml::updateSpringyHeights()
{
    assertOnGuiThread();
    guiLayoutRun const run;
    if (m.layout.knows(guiLayoutMemo::kNoSprings, guiLayoutRun::number()))
        return;
    if (m.expandChildren)
        shareOutHeight(this);
    for (guiHtml* child : guiNodesOf(this))
        child->updateSpringyHeights();
}
