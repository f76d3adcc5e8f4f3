// page/guipageblocks.h: finds what of a page that has been laid out must not be cut when it is printed.
#pragma once

#include "page/guipagebreaks.h"

class guiHtml;

/// The blocks at and below the node for sheets of `height` pixels, in coordinates of the node's parent. Lines of text
/// stay whole and, at the ends of a paragraph, in pairs; pictures, controls and rows that are low enough stay whole; a
/// heading stays with what it is about. Walks over the nodes once. GUI thread.
guiPageBlocks guiFindBlocks(guiHtml* node, int height);
