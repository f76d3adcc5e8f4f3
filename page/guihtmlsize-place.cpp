// page/guihtmlsize-place.cpp: computes the rectangles from the sizes that the nodes got.
#include "page/guibaseline.h"
#include "page/guihtmlsize-layers.h"
#include "page/guihtmlsize-scroll.h"
#include "page/guihtmlsize.h"
#include "page/guilayoutcounters.h"
#include "page/guilayouthold.h"
#include "page/guipageroot.h"

#include <cassert>

namespace {

// Each run adds the bars that the one before made necessary. Two are enough unless scrolling nodes are nested.
constexpr int kMaxRuns = 8;

/// Stacks a node's layers from top to bottom.
class stacking
{
public:
    explicit stacking(guiHtml const* node) : m_divide(node->m.divide), m_paragraphGap(node->scaled(kParagraphGap)) {}

    /// The top of the next layer, which has this height.
    std::int64_t place(int height, bool endsParagraph)
    {
        assert(height >= 0);
        if (m_bottom != 0)
            m_bottom += m_divide;
        if (m_endedParagraph)
            m_bottom += m_paragraphGap;
        m_endedParagraph = endsParagraph;
        std::int64_t const top = m_bottom;
        m_bottom += height;
        return top;
    }
    std::int64_t bottom() const { return m_bottom; }

private:
    int m_divide;
    int m_paragraphGap;
    std::int64_t m_bottom = 0;
    bool m_endedParagraph = false;
};

struct layerSize
{
    std::int64_t width = 0;
    int height = 0;
};

layerSize sizeOf(guiHtml const* node, guiLayer const& layer)
{
    layerSize size{guiDividersOf(node, layer), 0};
    for (guiHtml const* child : guiLayerNodes(node, layer)) {
        size.width += child->m.activeCx;
        size.height = std::max(size.height, guiClampPixels(child->m.activeCy));
    }
    return size;
}

std::int64_t offsetFor(guiAlignment align, std::int64_t size, std::int64_t room)
{
    if (size >= room || align == kAlignLeft)
        return 0;
    return align == kAlignCenter ? (room - size) / 2 : room - size;
}

std::int64_t contentHeight(guiHtml* node)
{
    stacking stack(node);
    guiLayerWalk layers(node);
    while (layers.next())
        stack.place(sizeOf(node, layers.layer()).height, layers.layer().endsParagraph);
    return stack.bottom();
}

void placeLayer(guiHtml* node, guiLayer const& layer, int height, std::int64_t left, std::int64_t top)
    TARN_ON(velaGuiRole)
{
    guiBaseLine const baseLine(node, layer, height);
    for (guiHtml* child : guiLayerNodes(node, layer)) {
        int const lower = baseLine.offsetOf(child);
        guiRect rect{guiClampPixels(left), guiClampPixels(child->m.activeCx), guiClampPixels(top + lower),
                     guiClampPixels(child->m.activeCy)};
        child->setRect(&rect);
        left += std::int64_t{child->m.activeCx} + node->m.divide;
    }
}

// Vertical alignment moves the content as one block; within their layer nodes are not aligned but to a base line.
void placeChildren(guiHtml* node, int height) TARN_ON(velaGuiRole)
{
    std::int64_t const inset = guiFrameOf(node) / 2;
    int const roomX = guiInnerWidth(node, node->m.rect.width);
    int const roomY = guiInnerHeight(node, height);
    std::int64_t const blockTop = inset + guiBarAbove(node) + std::int64_t{node->getCaptionHeight()} +
                                  offsetFor(node->m.alignY, contentHeight(node), roomY);
    stacking stack(node);
    guiLayerWalk layers(node);
    while (layers.next()) {
        guiLayer const& layer = layers.layer();
        layerSize const size = sizeOf(node, layer);
        std::int64_t const top = blockTop + stack.place(size.height, layer.endsParagraph);
        placeLayer(node, layer, size.height, inset + offsetFor(layer.align, size.width, roomX), top);
    }
}

// Shares out width and height from the root down, until no scroll bar is added or removed any more.
void runPasses(guiHtml* root) TARN_ON(velaGuiRole)
{
    auto next = guiLayoutRun::phase::kFirst;
    for (int runs = 0; runs < kMaxRuns; ++runs) {
        guiLayoutRun const run(next);
        guiLayoutRun::checkFonts(root);
        root->updateActiveWidths();
        root->updateActiveHeights();
        root->updateSpringyHeights();
        if (!guiLayoutRun::hasChangedBars())
            break;
        next = guiLayoutRun::phase::kAgain;
    }
}

guiHtml* rootOf(guiHtml* node)
{
    while (node->m.parent)
        node = node->m.parent;
    return node;
}

// In a node that a layout kept, everything has its rectangle already, since rectangles are relative to the parent.
bool isPlaced(guiHtml const* node, guiRect const& rect)
{
    guiLayoutMemo const& memo = node->m.layout;
    return rect.width == node->m.rect.width && rect.height == node->m.rect.height && guiLayoutRun::keeps(memo.run) &&
           memo.knows(guiLayoutMemo::kPlaced, memo.run);
}

bool movesWidget(guiHtml* node) { return node->getType() == guiHtml::kTypeControl && node->getTopLevelWidget(); }

int barsOf(guiHtml* node)
{
    guiPageRoot* root = node->m.parent ? nullptr : node->getBaseHtml();
    return root ? root->getMenuHeight() + root->getStatusHeight() : 0;
}

void learnPlaced(guiHtml* node)
{
    guiLayoutMemo& memo = node->m.layout;
    if (!guiLayoutRun::keeps(memo.run) || movesWidget(node))
        return;
    for (guiHtml const* child : guiNodesOf(node))
        if (!isPlaced(child, child->m.rect))
            return;
    memo.learn(guiLayoutMemo::kPlaced, memo.run);
}

} // namespace

void guiHtml::setRect(guiRect* rect)
{
    assertOnGuiThread();
    ++guiLayoutCounters::placements;
    guiFetchAhead(this);
    bool const isRoot = getType() == kTypeBase;
    bool const isDone = !isRoot && isPlaced(this, *rect);
    m.rect = *rect;
    if (isDone)
        return;
    int const height = m.rect.height - (isRoot ? barsOf(this) : 0);
    if (isRoot) {
        m.activeCx = static_cast<unsigned>(std::max(m.rect.width, 0));
        m.activeCy = static_cast<unsigned>(std::max(height, 0));
        runPasses(this);
    }
    guiSettleBars(this);
    placeChildren(this, height);
    learnPlaced(this);
    if (isRoot) {
        updateScrollbarRanges();
        if (getTopLevelWidget()) // without a window there is nothing to order yet
            updateTabOrder();
    }
}

int guiHtml::updateLayout(int apply)
{
    assertOnGuiThread();
    if (apply && guiLayoutHold::postpone(this))
        return 1;
    guiHtml* root = rootOf(this);
    root->calcDynamicLayout();
    if (apply) {
        guiRect rect = root->getRect();
        root->setRect(&rect);
        root->update();
    }
    return 1;
}
