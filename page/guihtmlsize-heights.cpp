// page/guihtmlsize-heights.cpp: top-down, how tall every node becomes, once the widths are known.
#include "page/guihtmlsize-scroll.h"
#include "page/guihtmlsize-widths.h"
#include "page/guihtmlsize.h"
#include "page/guilayoutcounters.h"

namespace {

// ---- The height that a node would like ----

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
    // Counts on within the upper half once all places are taken, so that it never reads as "none".
    memo.estimates =
        static_cast<std::uint8_t>(memo.estimates == 0xFF ? guiLayoutMemo::kWidths + 1u : memo.estimates + 1u);
}

bool isSettled(guiHtml const* child) { return child->m.layout.knows(guiLayoutMemo::kSettled, guiLayoutRun::number()); }

/// A child's own height for a width; a percentage is unknown while its parent's height is.
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

/// The largest height in a layer when the node is `width` wide.
int likedLayerHeight(guiHtml* node, guiLayer const& layer, int width)
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
    guiLayerSum heights(node, guiLayerSum::Gap::BelowContent);
    guiLayerWalk layers(node);
    while (layers.next())
        heights.add(layers.layer(), likedLayerHeight(node, layers.layer(), width));
    return guiClampPixels(heights.total() + guiFrameOf(node) + std::int64_t{node->getCaptionHeight()});
}

} // namespace

int guiHtml::getHeightEstimate(unsigned long width)
{
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
        return guiClampPixels(std::uint64_t(guiClampPixels(available)) * child->m.dynamic.y / 100);
    default:
        return child->getHeightEstimate(width);
    }
}

// ---- The height that a node gets ----

namespace {

// A subtree whose height did not change since it was worked out in this run is as it would become again.
void updateHeightsBelow(guiHtml* node)
{
    guiLayoutMemo const& memo = node->m.layout;
    if (!memo.knows(guiLayoutMemo::kHeights, guiLayoutRun::number()) ||
        memo.heightsFor != guiClampPixels(node->m.activeCy))
        node->updateActiveHeights();
}

bool isSpringy(guiHtml const* child) { return child->m.expandHeight != 0; }

// Two walks that come later skip the parts of the tree in which there is nothing to do for them.
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
    int const height = guiClampPixels(parent->getChildHeight(index, child->m.activeCx, available));
    child->m.activeCy = static_cast<unsigned>(std::max({height, child->m.dynamic.cyMin, 0}));
}

} // namespace

// What a large page costs is how often its nodes are fetched from memory, so a node and all below it are finished in
// one go where that gives the same result.
void guiSettleHeight(guiHtml* parent, unsigned index)
{
    guiHtml* child = parent->getChild(index);
    bool const isParentAsked = child->m.dynamic.unitY == kUnitPercent || parent->getType() == guiHtml::kTypeFrameset;
    if (isParentAsked || guiLayoutRun::kind() == guiLayoutRun::Kind::Part)
        return;
    takeHeight(parent, index, 0);
    child->m.layout.learn(guiLayoutMemo::kSettled, guiLayoutRun::number());
    updateHeightsBelow(child);
}

void guiHtml::updateActiveHeights()
{
    guiLayoutRun const run;
    ++guiLayoutCounters::heightPasses;
    int const room = guiInnerHeight(this, guiClampPixels(m.activeCy));
    auto const available = static_cast<unsigned long>(std::max(room, 0));
    m.layout.learn(guiLayoutMemo::kHeights, guiLayoutRun::number());
    m.layout.forget(guiLayoutMemo::kPlaced);
    m.layout.heightsFor = guiClampPixels(m.activeCy);
    guiLayerSum content(this, guiLayerSum::Gap::Always);
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

struct springs
{
    std::int64_t spare = 0;
    std::int64_t layers = 0; // with at least one node that may grow
};

springs findSprings(guiHtml* node)
{
    springs found;
    guiLayerSum content(node, guiLayerSum::Gap::BelowContent);
    guiLayerWalk layers(node);
    while (layers.next()) {
        guiLayerNodes const nodes(node, layers.layer());
        content.add(layers.layer(), layerHeight(node, layers.layer()));
        found.layers += std::any_of(nodes.begin(), nodes.end(), isSpringy);
    }
    found.spare = guiInnerHeight(node, guiClampPixels(node->m.activeCy)) - content.total();
    return found;
}

// What grew hands its whole new height on to its own children.
void grow(guiHtml* child, std::int64_t share)
{
    child->m.activeCy = static_cast<unsigned>(guiClampPixels(child->m.activeCy + share));
    child->m.layout.forget(guiLayoutMemo::kSettled);
    for (guiHtml* below : guiNodesOf(child)) {
        below->m.layout.forget(guiLayoutMemo::kSettled);
        below->m.activeCy = child->m.activeCy;
        updateHeightsBelow(below);
    }
}

void handOutHeight(guiHtml* node)
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
}

} // namespace

void guiHtml::updateSpringyHeights()
{
    guiLayoutRun const run;
    if (m.layout.knows(guiLayoutMemo::kNoSprings, guiLayoutRun::number()))
        return;
    if (m.expandChildren)
        handOutHeight(this);
    for (guiHtml* child : guiNodesOf(this))
        child->updateSpringyHeights();
}
