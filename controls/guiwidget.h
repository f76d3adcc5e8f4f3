// controls/guiwidget.h: the top-level widget of a window. It paints the page and turns what the toolkit reports (mouse,
// keys, paint, resize, show, close) into calls on the page tree; all behaviour is in the nodes.
#pragma once

#include "page/guipagesurface.h"

#include <QDialog>
#include <QPixmap>

class guiHtml;
class guiPageRoot;
class QEvent;

/// Made unbound; the page root binds `htmlBase`. While that is null, every handler does what the toolkit does and no
/// more. GUI thread.
class guiWidget : public QDialog, public guiPageSurface
{
    Q_OBJECT

public:
    /// Pixels by which the back buffer is larger than the window when it has to grow, in each direction.
    static constexpr int kBackBufferMargin = 128;

    /// `modal` (not 0): blocks input to the other windows while it is shown; showing it never waits.
    guiWidget(QWidget* parent, char const* name, int modal, Qt::WindowFlags flags);
    ~guiWidget() override;

    bool isPainting() const { return paintDepth != 0; }
    /// Deletes the widget; while it paints, at the end of the outermost paint; while another of its handlers runs, when
    /// that has returned. The page is unbound and the window hidden at once unless it paints.
    void deleteWhenSafe();
    /// The pointer is over no node any more: the hovered one is told and the cursor is an arrow again.
    void refresh();
    /// The node is going, or its widgets are.
    void onHtmlDestroy(guiHtml* node) override;
    bool isHovering(guiHtml const* node) const override { return node == hoverNode; }
    /// Vertical resolution in dots per inch.
    int logPixelsY() const;
    /// A hidden child, under which the window keeps native widgets that are out of view.
    QWidget* outOfView();
    QScrollBar* createScrollBar(guiHtml* node, Qt::Orientation orientation, char const* name) override;
    bool scrollPixels(QRect const& area, int dx, int dy) override;

    guiPageRoot* htmlBase = nullptr; ///< the page; not owned
    guiHtml* hoverNode = nullptr;    ///< the node under the pointer; not owned, dropped by onHtmlDestroy()
    QPixmap backBuffer;              ///< in device pixels; null until the first paint
    unsigned paintDepth = 0;         ///< paintEvent() calls on the stack
    int deletePending = 0;           ///< deletion was asked for while painting

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    // Beyond the toolkit's defaults: the pointer can come and go without a move that this widget sees, and Tab goes
    // from control to control.
    bool focusNextPrevChild(bool next) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// A pixmap of this size in logical pixels; null when there is no memory for it.
    virtual QPixmap makeBuffer(QSize const& size);

private:
    /// The page, null as soon as the window is to go: what happens to it until then is not the page's business.
    guiPageRoot* livePage() const { return deletePending ? nullptr : htmlBase; }
    void unbind();
    void hover(QPoint at);
    void paintRegion(QRegion const& region);
    void paintPage(QPaintDevice* device, QRegion const& region);
    void ensureBuffer();
    void paintThroughBuffer(QRegion const& region);
    void endPaint();
    void reportVisibility();

    QWidget* m_outOfView = nullptr; // owned; null until something is out of view
    QRegion m_missedDamage;         // damage that arrived while the page was being painted
    bool m_isClosing = false;       // hidden on the user's request, but the page still has things to do
};

/// The rule that all widgets of a page share for Escape and Enter: the owner's onEscape() or onEnter() is asked, and
/// the event counts as used when that returned not 0. `withEnter` false: Escape only. True when the event was used up.
template <typename Owner>
bool guiHandleKey(Owner* owner, int key, bool withEnter)
{
    if (!owner)
        return false;
    if (key == Qt::Key_Escape)
        return owner->onEscape() != 0;
    if (withEnter && (key == Qt::Key_Return || key == Qt::Key_Enter))
        return owner->onEnter() != 0;
    return false;
}
