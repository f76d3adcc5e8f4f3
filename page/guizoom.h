// page/guizoom.h: zooms a page: every length that it was written with is scaled, and the page is laid out anew. What
// nodes make of fonts is scaled with the fonts (guihtmltext-nodefont.cpp).
#pragma once

class guiHtml;
class guiPageRoot;

/// Shows the page larger or smaller, in percent within kLeastZoom and kMostZoom; pages that are loaded later are shown
/// so too. What stands at the upper edge of a part that is scrolled stays there. GUI thread, like all of these.
void guiZoomPage(guiPageRoot& page, unsigned percent);
/// Tells every node that the look has changed (guiHtml::onLookChange()), and lays the page out.
void guiRefreshLook(guiPageRoot& page);

/// Scales the lengths of the node and of everything below it; `percent` is kLeastZoom to kMostZoom. Nodes that have
/// this zoom already keep their lengths.
void guiZoomTree(guiHtml* node, unsigned percent);
/// The same for the node alone, whose children are about to be replaced.
void guiZoomNode(guiHtml* node, unsigned percent);
