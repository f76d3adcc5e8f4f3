// page/guihtmlsize-widths.h: shares out the width of a layer among its nodes.
#pragma once

#include "page/guihtmlsize-layers.h"

#include <cstdint>
#include <vector>

/// The widths of one layer.
struct guiLayerWidths
{
    std::vector<int> widths; ///< of each node, in order
    std::int64_t least = 0;  ///< their sum before spare width is shared out, without dividers
};

/// Computes the height of a child, and the heights below it, as soon as their widths are known, unless the height
/// depends on the parent's. Does nothing outside a whole layout.
void guiSettleHeight(guiHtml* parent, unsigned index) TARN_ON(velaGuiRole);

/// Shares out `room` pixels, dividers included. Changes no node.
guiLayerWidths guiShareWidth(guiHtml const* node, guiLayer const& layer, int room);
