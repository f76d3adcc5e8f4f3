// page/guipagesurface.h: what a page wants of the widget that shows it. A window's widget (controls/guiwidget.h)
// derives from this besides its toolkit class; a page in any other widget lays out and paints without.
#pragma once

#include <Qt>

class guiHtml;
class QRect;
class QScrollBar;

/// One per top-level widget; registered while it exists. GUI thread.
class guiPageSurface
{
public:
    guiPageSurface(guiPageSurface const&) = delete;
    guiPageSurface& operator=(guiPageSurface const&) = delete;

    /// The surface that shows the node's page, null when its page is in no window, or in another kind of widget.
    static guiPageSurface* of(guiHtml* node);
    /// The node is going, or its widgets are: whichever surface holds on to it lets go.
    static void nodeLosesWidget(guiHtml* node);

    /// A hidden scroll bar of the widget that scrolls the node. The widget owns it; layout shows and places it.
    virtual QScrollBar* createScrollBar(guiHtml* node, Qt::Orientation orientation, char const* name) = 0;
    /// Moves the pixels of `area`, those of the widgets in it too, by (dx, dy) and has the strip that appears painted.
    /// False when that is not possible: then all of the area is painted.
    virtual bool scrollPixels(QRect const& area, int dx, int dy) = 0;
    /// Whether the surface holds on to the node, as the one under the pointer.
    virtual bool isHovering(guiHtml const* node) const = 0;
    /// The node under the pointer is going.
    virtual void onHtmlDestroy(guiHtml* node) = 0;

protected:
    guiPageSurface();
    ~guiPageSurface();
};
