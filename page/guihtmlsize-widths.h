// page/guihtmlsize-widths.h: how the width of a layer is shared out among its nodes.
#pragma once

#include "page/guihtmlsize-layers.h"

#include <cstdint>
#include <vector>

/// The widths of one layer.
struct guiLayerWidths
{
    std::vector<int> widths; ///< of each node, in order
    std::int64_t least = 0;  ///< what the nodes take before spare width is given away, without dividers
};

/// Gives a child its height, and its own children theirs, as soon as their widths are known and while they are at hand,
/// unless the height depends on the parent's. Part of a whole layout.
void guiSettleHeight(guiHtml* parent, unsigned index);

/// Shares out `room` pixels, dividers included. Changes no node.
guiLayerWidths guiShareWidth(guiHtml const* node, guiLayer const& layer, int room);
