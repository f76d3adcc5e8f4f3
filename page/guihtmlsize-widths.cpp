// page/guihtmlsize-widths.cpp: the top-down walk that computes widths.
#include "page/guihtmlsize-widths.h"

#include "page/guihtmlsize-scroll.h"
#include "page/guihtmlsize.h"
#include "page/guilayoutcounters.h"

namespace {

/// Every node of a layer is one of three: it expands, it has a percentage, or it has a request in pixels or none.
bool isExpanding(guiHtml const* child) { return child->m.expandWidth != 0; }
bool isPercent(guiHtml const* child) { return !isExpanding(child) && child->m.dynamic.unitX == kUnitPercent; }
bool isRequesting(guiHtml const* child) { return !isExpanding(child) && !isPercent(child); }

/// By how much a node's request exceeds its width.
std::int64_t deficitOf(guiHtml const* child, int width)
{
    return isRequesting(child) ? std::max<std::int64_t>(0, guiClampPixels(child->m.dynamic.x) - std::int64_t{width})
                               : 0;
}

/// One layer while its width is shared out.
class sharing
{
public:
    sharing(guiHtml const* node, guiLayer const& layer, int room)
        : m_nodes(node, layer), m_room(room - guiDividersOf(node, layer))
    {
        m_result.widths.resize(layer.count);
    }

    guiLayerWidths run()
    {
        giveLeast();
        std::int64_t const spare = m_room - m_result.least;
        if (spare > 0)
            giveSpare(spare);
        assert(std::all_of(m_result.widths.begin(), m_result.widths.end(), [](int width) { return width >= 0; }));
        return std::move(m_result);
    }

private:
    void giveLeast();
    void giveSpare(std::int64_t spare);
    void giveInProportion(std::int64_t spare, std::int64_t want);
    void giveRequests();
    void giveEvenly(std::int64_t rest);
    template <typename Visit>
    void forEach(Visit visit)
    {
        int* width = m_result.widths.data();
        for (guiHtml* child : m_nodes)
            visit(child, *width++);
    }

    guiLayerNodes m_nodes;
    std::int64_t m_room;
    guiLayerWidths m_result;
};

// Percentages are of the layer's room; the node that brings them to 100 or more takes all the room that is left.
void sharing::giveLeast()
{
    std::uint64_t percents = 0;
    forEach([&](guiHtml const* child, int& width) {
        std::int64_t share = 0;
        if (isPercent(child)) {
            percents += child->m.dynamic.x;
            share = percents <= 99 ? m_room * child->m.dynamic.x / 100 : m_room - m_result.least;
        }
        width = std::max({guiClampPixels(share), child->m.dynamic.cxMin, 0});
        m_result.least += width;
    });
}

void sharing::giveSpare(std::int64_t spare)
{
    std::int64_t want = 0;
    std::int64_t expanding = 0;
    forEach([&](guiHtml const* child, int const& width) {
        want += deficitOf(child, width);
        expanding += isExpanding(child);
    });
    if (want > spare) {
        giveInProportion(spare, want);
        return;
    }
    giveRequests();
    if (expanding)
        giveEvenly(spare - want);
}

// The last node that wants more takes the rounding.
void sharing::giveInProportion(std::int64_t spare, std::int64_t want)
{
    std::int64_t left = spare;
    std::int64_t deficits = want;
    forEach([&](guiHtml const* child, int& width) {
        std::int64_t const deficit = deficitOf(child, width);
        if (deficit == 0)
            return;
        deficits -= deficit;
        std::int64_t const share = deficits == 0 ? std::min(left, deficit) : spare * deficit / want;
        width += static_cast<int>(share);
        left -= share;
    });
    assert(deficits == 0 && left >= 0);
}

void sharing::giveRequests()
{
    forEach([](guiHtml const* child, int& width) { width += static_cast<int>(deficitOf(child, width)); });
}

void sharing::giveEvenly(std::int64_t rest)
{
    std::int64_t nodes = 0;
    forEach([&](guiHtml const* child, int const&) { nodes += isExpanding(child); });
    assert(nodes > 0 && rest >= 0);
    std::int64_t const share = rest / nodes;
    forEach([&](guiHtml const* child, int& width) {
        if (!isExpanding(child))
            return;
        width = guiClampPixels(width + (--nodes == 0 ? rest : share));
        rest -= share;
    });
}

} // namespace

guiLayerWidths guiShareWidth(guiHtml const* node, guiLayer const& layer, int room)
{
    return sharing(node, layer, room).run();
}

namespace {

void takeWidth(guiHtml* child, int width)
{
    if (child->m.activeCx != static_cast<unsigned>(width))
        child->m.layout.forget(guiLayoutMemo::kSettled);
    child->m.activeCx = static_cast<unsigned>(width);
}

// A node of the same width as in an earlier run keeps that run's results, if its height and everything below it
// depended only on its width.
bool keepsLayout(guiHtml* child) TARN_ON(velaGuiRole)
{
    constexpr std::uint8_t kNeeded =
        guiLayoutMemo::kSettled | guiLayoutMemo::kHeights | guiLayoutMemo::kNoSprings | guiLayoutMemo::kNoBars;
    guiLayoutMemo& memo = child->m.layout;
    bool const isWhole = guiLayoutRun::currentPhase() != guiLayoutRun::phase::kPart;
    if (!isWhole || !guiLayoutRun::keeps(memo.run) || !memo.knows(kNeeded, memo.run))
        return false;
    memo.keep(guiLayoutRun::number());
    return true;
}

} // namespace

void guiHtml::updateActiveWidths()
{
    assertOnGuiThread();
    guiLayoutRun const run;
    ++guiLayoutCounters::widthPasses;
    guiFetchAhead(this);
    m.layout.learn(guiLayoutMemo::kShares, guiLayoutRun::number());
    guiStartBars(this);
    int const room = guiInnerWidth(this, guiClampPixels(m.activeCx));
    std::int64_t content = 0;
    guiLayerWalk layers(this);
    while (layers.next()) {
        guiLayer const& layer = layers.layer();
        guiLayerWidths const shares = guiShareWidth(this, layer, room);
        int const* width = shares.widths.data();
        for (guiHtml* child : guiLayerNodes(this, layer))
            takeWidth(child, *width++);
        content = std::max(content, shares.least + guiDividersOf(this, layer));
    }
    for (unsigned i = 0; i < getChildCount(); ++i)
        if (guiChildList::isNode(getChild(i)) && !keepsLayout(getChild(i))) {
            getChild(i)->updateActiveWidths();
            guiSettleHeight(this, i);
        }
    guiDecideBar(this, Qt::Horizontal, content, room);
}
