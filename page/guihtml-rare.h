// page/guihtml-rare.h: the side record of a node, for what few nodes have. Private to guihtml-rare.cpp and guihtml.cpp.
#pragma once

#include "page/guihtml.h"

#include <QPixmap>
#include <memory>
#include <string>
#include <vector>

/// All defaults are those of a node without the record.
struct guiHtml::rare_t
{
    struct text_t
    {
        guiNodeString which;
        std::u16string value;
    };

    rare_t() = default;
    /// A copy without the scroll bars: those belong to one node.
    rare_t(rare_t const& other);

    guiPackedColor borderLight = guiColor::White;
    guiPackedColor borderColor = guiColor::LightGray;
    guiPackedColor borderDark = guiColor::DarkGray;
    guiPackedColor background = guiColor::LightGray;
    bool hasBackground = false;
    int fontSize = 0;
    int tabIndex = kNoTabIndex;
    unsigned captionWidth = 0;
    unsigned captionHeight = 0;
    std::vector<text_t> texts;                // one per kind
    std::unique_ptr<QPixmap> backgroundImage; // null: none is loaded
    std::unique_ptr<scroll_t> scroll;
};
