// page/guihtmlsize-layers.h: a node's child list read as layers: rows of nodes, one below the other, which markers
// separate.
#pragma once

#include "page/guihtml.h"

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
        m_isFirst = m_isBefore;
        m_isBefore = false;
        bool const found = m_node->findLayer(&m_pos, &m_layer.first, &m_layer.count, &ends, &m_layer.align) != 0;
        m_layer.endsParagraph = ends != 0;
        return found;
    }
    guiLayer const& layer() const { return m_layer; }
    bool isFirst() const { return m_isFirst; }

private:
    guiHtml* m_node;
    unsigned m_pos = 0;
    guiLayer m_layer;
    bool m_isFirst = false;
    bool m_isBefore = true;
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
