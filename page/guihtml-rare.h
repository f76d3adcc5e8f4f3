// page/guihtml-rare.h: a separate record for the properties that few nodes have. Private to guihtml-rare.cpp and
// guihtml.cpp.
#pragma once

#include "page/guihtml.h"
#include "page/guipicture.h"
#include "page/guiunzoomed.h"

#include <memory>
#include <string>
#include <vector>

/// Its defaults are what a node without the record answers.
struct guiHtml::rare_t
{
    struct namedText
    {
        guiNodeString which;
        std::u16string value;
    };

    rare_t() = default;
    /// A copy without the scroll bars, which belong to one node.
    rare_t(rare_t const& other);

    guiPackedColor borderLight = guiColor::White;
    guiPackedColor borderColor = guiColor::LightGray;
    guiPackedColor borderDark = guiColor::DarkGray;
    guiPackedColor background = guiColor::LightGray;
    bool hasBackground = false;
    std::uint8_t givenBorders = 0; // bits of guiGivenBorder
    guiEdge edge = guiEdge::kNone; // of a line, in place of `background`
    int fontSize = 0;
    int tabIndex = kNoTabIndex;
    unsigned captionWidth = 0;
    unsigned captionHeight = 0;
    std::vector<namedText> texts;  // at most one per guiNodeString
    guiPictureRef backgroundImage; // null: none is loaded
    std::unique_ptr<scroll_t> scroll;
    std::unique_ptr<guiUnzoomed> unzoomed; // null: not zoomed, or without lengths
};
