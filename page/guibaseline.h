// page/guibaseline.h: in an element with `gap`, what stands beside each other in a layer shares a base line.
#pragma once

#include "foundation/vela-threadrole.h"
#include "page/guihtmlsize-layers.h"

/// How far below the layer's top its nodes have to stand, so that their first lines of text are on one base line. A
/// node never leaves the layer, whose height stays what it is. Made once the nodes have their active sizes. GUI thread.
class guiBaseLine
{
public:
    /// Without an effect where the node's lines need not share one.
    guiBaseLine(guiHtml* node, guiLayer const& layer, int layerHeight) TARN_ON(velaGuiRole);

    /// In pixels; 0 for a node without text.
    int offsetOf(guiHtml* child) const TARN_ON(velaGuiRole);

private:
    int m_layerHeight;
    int m_lowest = -1; ///< of all base lines, as if each node stood at the layer's top; -1: nothing is to be moved
};
