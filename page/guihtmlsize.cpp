// page/guihtmlsize.cpp: the bottom-up walk of the layout: the least and the preferred size of every node. The top-down
// walks are in guihtmlsize-widths.cpp, guihtmlsize-heights.cpp and guihtmlsize-place.cpp.
#include "page/guihtmlsize.h"

#include "foundation/vela-qt.h"
#include "page/guifontepoch.h"
#include "page/guihtml.h"
#include "page/guihtmlsize-layers.h"
#include "page/guihtmlsize-scroll.h"
#include "page/guihtmltext-fonts.h"
#include "page/guilayoutcounters.h"
#include "page/guipageroot.h"

guiLayoutRun::guiLayoutRun(phase which, bool isNew) : m_isNew(isNew), m_wasActive(s_isActive), m_phaseBefore(s_phase)
{
    assert(isNew || s_isActive);
    if (!isNew)
        return;
    ++s_number;
    if (!s_isActive)
        s_hasCheckedFonts = false;
    s_isActive = true;
    s_newBars = 0;
    s_hasLostBars = false;
    s_phase = which;
}

guiLayoutRun::~guiLayoutRun()
{
    if (!m_isNew)
        return;
    assertOnGuiThread();
    assert(s_isActive);
    s_isActive = m_wasActive;
    s_phase = m_phaseBefore;
}

void guiLayoutRun::checkFonts(guiHtml* node)
{
    if (s_hasCheckedFonts)
        return;
    while (node->m.parent)
        node = node->m.parent;
    guiFontEpoch::check(node);
    if (guiFontEpoch::number() != s_fontEpoch)
        startAnew();
    s_fontEpoch = guiFontEpoch::number();
    s_hasCheckedFonts = true;
}

std::int64_t guiFrameOf(guiHtml const* node) { return 2 * (std::int64_t{node->m.border} + node->m.space); }

int guiInnerWidth(guiHtml const* node, int width)
{
    return guiClampPixels(width - guiFrameOf(node) - guiBarWidth(node));
}

int guiInnerHeight(guiHtml const* node, int height)
{
    return guiClampPixels(height - guiFrameOf(node) - guiBarHeight(node) - std::int64_t{node->getCaptionHeight()});
}

namespace {

void copyRequests(guiHtml* node)
{
    node->m.dynamic = node->m.fixed;
    if (node->getType() != guiHtml::kTypeCustom)
        return;
    if (node->m.fixed.unitX == kUnitPixels)
        node->m.dynamic.cxMin = guiClampPixels(node->m.fixed.x);
    if (node->m.fixed.unitY == kUnitPixels)
        node->m.dynamic.cyMin = guiClampPixels(node->m.fixed.y);
}

void measureCaption(guiHtml* node)
{
    if (!node->hasString(kStringCaption)) {
        node->setCaptionSize(0, 0);
        return;
    }
    sstring const caption = node->getString(kStringCaption);
    if (caption == kEmptyGroupBox) {
        node->setCaptionSize(0, 0);
        return;
    }
    guiTextFont& font = guiTextFonts::of(node->getDefaultFont(nullptr));
    std::int64_t const width = guiTextPixels(font.wordAdvance(sstoview(caption)));
    int const height = guiClampPixels(std::int64_t{font.lineSpacing()} - node->m.border);
    node->setCaptionSize(static_cast<unsigned>(guiClampPixels(width)), static_cast<unsigned>(std::max(height, 0)));
}

// In a row of more than 100 percent the percentages are scaled down to 100 together; the last one takes the rounding.
void normalizePercents(guiHtml* node, guiLayer const& layer)
{
    std::uint64_t sum = 0;
    guiHtml* last = nullptr;
    for (guiHtml* child : guiLayerNodes(node, layer))
        if (child->m.dynamic.unitX == kUnitPercent) {
            sum += child->m.dynamic.x;
            last = child;
        }
    if (sum <= 100)
        return;
    unsigned left = 100;
    for (guiHtml* child : guiLayerNodes(node, layer)) {
        if (child->m.dynamic.unitX != kUnitPercent)
            continue;
        unsigned const share = static_cast<unsigned>(std::uint64_t{child->m.dynamic.x} * 100 / sum);
        child->m.dynamic.x = child == last ? left : share;
        left -= child->m.dynamic.x;
    }
    assert(left == 0);
}

struct contentMinimum
{
    std::int64_t width = 0;
    std::int64_t height = 0;
};

contentMinimum measureLayers(guiHtml* node)
{
    contentMinimum minimum;
    guiLayerSum heights(node, guiLayerSum::gap::kBelowContent);
    guiLayerWalk layers(node);
    while (layers.next()) {
        guiLayer const& layer = layers.layer();
        std::int64_t width = guiDividersOf(node, layer);
        int height = 0;
        for (guiHtml* child : guiLayerNodes(node, layer)) {
            child->calcDynamicLayout();
            width += child->m.dynamic.cxMin;
            height = std::max(height, child->m.dynamic.cyMin);
        }
        normalizePercents(node, layer);
        heights.add(layer, height);
        minimum.width = std::max(minimum.width, width);
    }
    minimum.height = heights.total();
    return minimum;
}

// Only content that can not be scrolled sets a minimum for the node.
void raiseMinima(guiHtml* node, contentMinimum const& content)
{
    if (node->m.scrollMode != kPolicyResize)
        return;
    auto& dynamic = node->m.dynamic;
    dynamic.cxMin = std::max(dynamic.cxMin, guiClampPixels(content.width + guiFrameOf(node)));
    dynamic.cyMin = std::max(
        dynamic.cyMin, guiClampPixels(content.height + guiFrameOf(node) + std::int64_t{node->getCaptionHeight()}));
}

// A request in pixels is raised to the minimum, and to the preferred width unless spare width or a percentage decides.
unsigned raisedRequest(guiHtml* node, int preferred, int percent)
{
    int x = guiClampPixels(node->m.dynamic.x);
    if (!node->m.expandChildren && percent == 0 && node->m.scrollMode == kPolicyResize)
        x = std::max(x, preferred);
    return static_cast<unsigned>(std::max({x, node->m.dynamic.cxMin, 0}));
}

int decideWidth(guiHtml* node)
{
    auto& dynamic = node->m.dynamic;
    if (dynamic.unitX == kUnitPercent)
        return 0;
    int preferred = node->getPreferredWidth();
    int percent = 0;
    if (preferred < 0) {
        percent = -preferred;
        preferred = 0;
    }
    preferred = guiClampPixels(preferred);
    if (dynamic.unitX == kUnitPixels) {
        dynamic.x = raisedRequest(node, preferred, percent);
        return preferred;
    }
    node->m.expandWidth = node->m.parent && node->m.parent->m.expandChildren;
    dynamic.unitX = percent ? kUnitPercent : kUnitPixels;
    dynamic.x = static_cast<unsigned>(percent ? percent : preferred);
    return preferred;
}

void decideHeight(guiHtml* node)
{
    guiHtml const* parent = node->m.parent;
    if (node->m.dynamic.unitY == kUnitUnbound && parent && parent->m.dynamic.unitY != kUnitUnbound)
        node->m.expandHeight = parent->m.expandChildren;
}

} // namespace

int guiHtml::calcDynamicLayout()
{
    assertOnGuiThread();
    guiLayoutRun const run;
    guiLayoutRun::checkFonts(this);
    guiLayoutRun::startAnew();
    ++guiLayoutCounters::calcDynamic;
    guiFetchAhead(this);
    copyRequests(this);
    measureCaption(this);
    raiseMinima(this, measureLayers(this));
    m.expandWidth = m.expandHeight = 0;
    int const preferred = decideWidth(this);
    decideHeight(this);
    return preferred;
}

int guiHtml::getPreferredWidth()
{
    ++guiLayoutCounters::widthQueries;
    std::int64_t largestFixed = 0;
    std::uint64_t largestPercent = 0;
    guiLayerWalk layers(this);
    while (layers.next()) {
        std::int64_t fixed = guiDividersOf(this, layers.layer());
        std::uint64_t percent = 0;
        for (guiHtml* child : guiLayerNodes(this, layers.layer())) {
            if (child->m.dynamic.unitX == kUnitPixels)
                fixed += guiClampPixels(child->m.dynamic.x);
            else if (child->m.dynamic.unitX == kUnitPercent)
                percent += child->m.dynamic.x;
        }
        largestFixed = std::max(largestFixed, fixed);
        largestPercent = std::max(largestPercent, percent);
    }
    if (largestPercent)
        return -guiClampPixels(largestPercent);
    return guiClampPixels(guiFrameOf(this) + largestFixed);
}
