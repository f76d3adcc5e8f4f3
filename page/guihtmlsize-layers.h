// page/guihtmlsize-layers.h: reads a node's child list as layers: rows of nodes, one below the other, separated by
// markers. GUI thread.
#pragma once

#include "page/guihtml.h"
#include "page/guihtmlsize.h"

#include <cstdint>

/// One row: `count` nodes from entry `first` of the child list on. Between two paragraph markers there is an empty row.
struct guiLayer
{
    unsigned first = 0;
    unsigned count = 0;
    bool endsParagraph = false;
    guiAlignment align = kAlignLeft; ///< of the row in the node's width
};

/// Visits a node's layers from top to bottom: `while (walk.next()) use(walk.layer());`
class guiLayerWalk
{
public:
    explicit guiLayerWalk(guiHtml* node) : m_node(node) {}

    bool next()
    {
        int ends = 0;
        [[maybe_unused]] unsigned const from = m_pos;
        bool const found = m_node->findLayer(&m_pos, &m_layer.first, &m_layer.count, &ends, &m_layer.align) != 0;
        assert(!found || (m_layer.first >= from && m_layer.first + m_layer.count <= m_pos && m_pos > from));
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
    {
        assert(layer.first + layer.count <= node->getChildCount());
    }
    guiHtml** begin() const { return m_begin; }
    guiHtml** end() const { return m_end; }

private:
    guiHtml** m_begin;
    guiHtml** m_end;
};

/// The width of all dividers between the nodes of a layer, in pixels; 0 for an empty layer.
inline std::int64_t guiDividersOf(guiHtml const* node, guiLayer const& layer)
{
    return layer.count > 1 ? std::int64_t{layer.count - 1} * node->m.divide : 0;
}

/// Adds up the heights of a node's layers from top to bottom, with a divider before every layer but the first, and a
/// gap after a layer that ends a paragraph, if another layer follows.
class guiLayerSum
{
public:
    enum class gap
    {
        kBelowContent, ///< only below a layer with a height
        kAlways,
    };

    guiLayerSum(guiHtml const* node, gap when)
        : m_divide(node->m.divide), m_paragraphGap(node->scaled(kParagraphGap)), m_gap(when)
    {}

    void add(guiLayer const& layer, int height)
    {
        assert(height >= 0);
        if (!m_isFirst)
            m_total += m_divide;
        if (m_endedParagraph)
            m_total += m_paragraphGap;
        m_total += height;
        m_isFirst = false;
        m_endedParagraph = layer.endsParagraph && (height != 0 || m_gap == gap::kAlways);
    }
    std::int64_t total() const { return m_total; }

private:
    std::int64_t m_total = 0;
    int m_divide;
    int m_paragraphGap;
    gap m_gap;
    bool m_isFirst = true;
    bool m_endedParagraph = false;
};
