// page/guizoom.h: zooms a page: every length that it was written with is scaled, and the page is laid out anew. What
// nodes make of fonts is scaled with the fonts (guihtmltext-nodefont.cpp).
#pragma once

#include "page/guihtml.h"

/// The lengths of a node as its page gives them, in pixels, beside what they were scaled to. A length that is another
/// one by now was set meanwhile, at the zoom of then.
struct guiUnzoomed
{
    /// A length as it is written, and scaled.
    struct length
    {
        int written = 0;
        int shown = 0;
    };

    length cxMin, cyMin, x, y, space, divide, border, padding;
    bool isMadeToScroll = false; ///< a page that would not scroll, but is larger than its window now
};

/// Scales the lengths of the node and of everything below it; `percent` is kLeastZoom to kMostZoom. Nodes that have
/// this zoom already keep their lengths. GUI thread.
void guiZoomTree(guiHtml* node, unsigned percent);
/// The same for the node alone, whose children are about to be replaced.
void guiZoomNode(guiHtml* node, unsigned percent);
