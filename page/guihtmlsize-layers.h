// page/guihtmlsize-layers.h: a node's child list read as layers: rows of nodes, one below the other, which markers
// separate.
#pragma once

#include "page/guihtml.h"
#include "page/guihtmlsize.h"

#include <cstdint>

/// One row: `count` nodes from entry `first` of the child list on. An empty row stands between two paragraph marks.
struct guiLayer
{
    unsigned first = 0;
    unsigned count = 0;
    bool endsParagraph = false;
    guiAlignment align = kAlignLeft; ///< how the row stands in the node's width
};

/// Visits a node's layers from top to bottom: `while (walk.next()) use(walk.layer());`
class guiLayerWalk
{
public:
    explicit guiLayerWalk(guiHtml* node) : m_node(node) {}

    bool next()
    {
        int ends = 0;
        bool const found = m_node->findLayer(&m_pos, &m_layer.first, &m_layer.count, &ends, &m_layer.align) != 0;
        m_layer.endsParagraph = ends != 0;
        return found;
    }
    guiLayer const& layer() const { return m_layer; }

private:
    guiHtml* m_node;
    unsigned m_pos = 0;
    guiLayer m_layer;
};

/// The nodes of one layer: `for (guiHtml* child : guiLayerNodes(node, layer))`.
class guiLayerNodes
{
public:
    guiLayerNodes(guiHtml const* node, guiLayer const& layer)
        : m_begin(node->m.children.begin() + layer.first), m_end(m_begin + layer.count)
    {}
    guiHtml** begin() const { return m_begin; }
    guiHtml** end() const { return m_end; }

private:
    guiHtml** m_begin;
    guiHtml** m_end;
};

/// What the dividers between the nodes of a layer take, in pixels; nothing in an empty layer.
inline std::int64_t guiDividersOf(guiHtml const* node, guiLayer const& layer)
{
    return layer.count > 1 ? std::int64_t{layer.count - 1} * node->m.divide : 0;
}

/// Sums the heights of a node's layers from top to bottom: a divider before every layer but the first, and the gap
/// below a layer that ends a paragraph, if another one follows.
class guiLayerSum
{
public:
    enum class Gap
    {
        BelowContent, ///< only below a layer of some height
        Always,
    };

    guiLayerSum(guiHtml const* node, Gap gap) : m_divide(node->m.divide), m_gap(gap) {}

    void add(guiLayer const& layer, int height)
    {
        if (!m_isFirst)
            m_total += m_divide;
        if (m_endedParagraph)
            m_total += kParagraphGap;
        m_total += height;
        m_isFirst = false;
        m_endedParagraph = layer.endsParagraph && (height != 0 || m_gap == Gap::Always);
    }
    std::int64_t total() const { return m_total; }

private:
    std::int64_t m_total = 0;
    int m_divide;
    Gap m_gap;
    bool m_isFirst = true;
    bool m_endedParagraph = false;
};
