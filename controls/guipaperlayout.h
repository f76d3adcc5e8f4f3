// controls/guipaperlayout.h: lays a page out for paper, and for its window again afterwards.
#pragma once

#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"
#include "page/guionpaper.h"

#include <memory>
#include <vector>

class guiPageRoot;

/// While it exists, the page is as wide as a sheet and as high as its content: nothing scrolls, and what was zoomed is
/// not. The page's window, which it must have, keeps its widgets as they are; it gets its layout,
/// its places of scrolling and its colours back in the end. GUI thread.
class guiPaperLayout
{
public:
    /// `width`: of a sheet, pixels. Layouts throw velaError(ENOMEM).
    guiPaperLayout(guiPageRoot& page, int width) TARN_ON(velaGuiRole);
    ~guiPaperLayout();
    guiPaperLayout(guiPaperLayout const&) = delete;
    guiPaperLayout& operator=(guiPaperLayout const&) = delete;

    /// The width of the layout, in pixels: that of a sheet, or more where the page does not get along with so little.
    int width() const { return m_width; }

private:
    /// What of a node is another on paper.
    struct keptNode
    {
        guiHtml* node = nullptr; // not owned
        guiHtml::sizes_t fixed;
        guiSizePolicy scrollMode = kPolicyResize;
        unsigned posX = 0;
        unsigned posY = 0;
    };

    void layOutFor(int width) TARN_ON(velaGuiRole);
    void keep(guiHtml* node, bool isBound);
    void layOut(int width) TARN_ON(velaGuiRole);
    void putBack();
    void restore() TARN_ON(velaGuiRole);

    guiPageRoot& m_page;
    guiRect const m_rect; // in the window
    unsigned const m_zoom;
    bool const m_wasDark;
    std::vector<keptNode> m_kept;
    std::unique_ptr<guiOnPaper> m_onPaper;
    int m_width = 0;
};
