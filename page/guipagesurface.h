// page/guipagesurface.h: the interface to the widget that shows a page. A window's widget (controls/guiwidget.h)
// derives from this and from its toolkit class; a page in any other widget is laid out and painted without it.
#pragma once

#include <Qt>

class guiHtml;
class QRect;
class QScrollBar;

/// One for each window; in a list of all surfaces while it exists. GUI thread.
class guiPageSurface
{
public:
    guiPageSurface(guiPageSurface const&) = delete;
    guiPageSurface& operator=(guiPageSurface const&) = delete;

    /// The surface that shows the node's page, null when its page is in no window, or in another kind of widget.
    static guiPageSurface* of(guiHtml* node);
    /// Called before a node or its widgets are destroyed: tells the surface that has the node under the pointer.
    static void nodeLosesWidget(guiHtml* node);

    /// A new hidden scroll bar that scrolls the node. The widget owns it; layout shows and places it.
    virtual QScrollBar* createScrollBar(guiHtml* node, Qt::Orientation orientation, char const* name) = 0;
    /// Moves the pixels of `area`, those of the widgets in it too, by (dx, dy) and schedules a paint of the strip that
    /// appears. False when that is not possible: then the whole area is repainted.
    virtual bool scrollPixels(QRect const& area, int dx, int dy) = 0;
    /// Whether the node is the one under the pointer.
    virtual bool isHovering(guiHtml const* node) const = 0;
    /// Whether a link has the keyboard, so that a new control does not get it.
    virtual bool isAtLink() const { return false; }
    /// The node under the pointer is about to be destroyed.
    virtual void onHtmlDestroy(guiHtml* node) = 0;

protected:
    guiPageSurface();
    ~guiPageSurface();
};
