// controls/guilinkplace.h: where a link stands: in which node, and which one of its links it is.
#pragma once

#include "page/guihtml.h"

/// One of the links of a node, see guiHtml::findLinks().
struct guiLinkPlace
{
    guiHtml* node = nullptr; ///< not owned
    unsigned place = guiHtml::kNoLink;

    bool operator==(guiLinkPlace const&) const = default;
};
