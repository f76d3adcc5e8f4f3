// page/guibaseline.cpp: see guibaseline.h.
#include "page/guibaseline.h"

#include <algorithm>
#include <optional>

namespace {

// A cell in a table in a cell in a table. Deeper, where hardly anybody looks for it, a base line is not searched, so
// that it costs no more than a few steps a node however deep a page is nested.
constexpr int kDeepest = 4;

std::optional<int> baseLineOf(guiHtml* node, int depth);

std::optional<int> lowestOf(guiHtml* node, guiLayer const& layer, int depth)
{
    std::optional<int> lowest;
    for (guiHtml* child : guiLayerNodes(node, layer))
        if (std::optional<int> const line = baseLineOf(child, depth))
            lowest = std::max(lowest.value_or(*line), *line);
    return lowest;
}

// Of a node with children: that of its first layer. Where a node is higher than its content, its vertical alignment
// decides.
std::optional<int> baseLineOf(guiHtml* node, int depth)
{
    if (std::optional<int> const own = node->getBaseLine())
        return own;
    guiLayerWalk layers(node);
    if (depth == kDeepest || !layers.next())
        return std::nullopt;
    std::optional<int> const inside = lowestOf(node, layers.layer(), depth + 1);
    if (!inside)
        return std::nullopt;
    return guiFrameOf(node) / 2 + guiClampPixels(node->getCaptionHeight()) + *inside;
}

} // namespace

guiBaseLine::guiBaseLine(guiHtml* node, guiLayer const& layer, int layerHeight) : m_layerHeight(layerHeight)
{
    if (node->m.spacious && layer.count > 1)
        m_lowest = lowestOf(node, layer, 0).value_or(-1);
}

int guiBaseLine::offsetOf(guiHtml* child) const
{
    std::optional<int> const line = m_lowest > 0 ? baseLineOf(child, 0) : std::nullopt;
    if (!line)
        return 0;
    int const spare = m_layerHeight - guiClampPixels(child->m.activeCy);
    return std::clamp(m_lowest - *line, 0, std::max(spare, 0));
}
