// controls/guiwidget.h: the top-level widget of a window. It turns the toolkit's events (mouse, keys, paint, resize,
// show, close) into calls of the page's nodes, which have all the behaviour, and has the page paint itself.
#pragma once

#include "controls/guicurrentlink.h"
#include "controls/guilatewidgets.h"
#include "controls/guitextgesture.h"
#include "controls/guitextwindow.h"
#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "page/guipagesurface.h"

#include <QApplication>
#include <QDialog>
#include <QFont>
#include <QPixmap>
#include <QPointer>
#include <QScrollBar>

class guiFindBar;
class guiHtml;
class guiHtmlCustom;
class guiPageRoot;
class QEvent;
class QHelpEvent;

/// Made unbound; the page root sets `htmlBase`. While that is null, every handler only does what the toolkit does by
/// default. GUI thread.
class guiWidget : public QDialog, public guiPageSurface, public guiTextWindow
{
    Q_OBJECT

public:
    /// Pixels by which the back buffer is larger than the window when it has to grow, in each direction.
    static constexpr int kBackBufferMargin = 128;

    /// `modal` (not 0): blocks input to the other windows while it is shown; showing it never waits.
    guiWidget(QWidget* parent, char const* name, int modal, Qt::WindowFlags flags);
    ~guiWidget() override;

    bool isPainting() const { return paintDepth != 0; }
    /// Deletes the widget at once, or as soon as that is safe: at the end of the outermost paint event, or when all
    /// event scopes have ended. Except during a paint event, the page is unbound and the window hidden at once.
    void deleteWhenSafe();
    /// Forgets the node under the pointer, tells it so, and makes the cursor an arrow again.
    void refresh();
    /// The node, or its widgets, are about to be destroyed.
    void onHtmlDestroy(guiHtml* node) override;
    bool isHovering(guiHtml const* node) const override { return node == hoverNode; }
    /// Vertical resolution in dots per inch.
    int logPixelsY() const;
    /// The widgets that are made when they are needed.
    guiLateWidgets& lateWidgets() { return m_lateWidgets; }
    /// The hidden parent of the native widgets that are out of view.
    QWidget* outOfView();
    QScrollBar* createScrollBar(guiHtml* node, Qt::Orientation orientation, char const* name) override;
    bool scrollPixels(QRect const& area, int dx, int dy) override;
    /// The link that has the keyboard.
    guiCurrentLink& currentLink() { return m_currentLink; }
    bool isAtLink() const override { return m_currentLink.get().has_value(); }

    QWidget* asWidget() override { return this; }
    guiPageRoot* shownPage() const override { return livePage(); }
    void openFindBar() override TARN_ON(velaGuiRole);
    void dropMarks() override;

    guiPageRoot* htmlBase = nullptr; ///< the page; not owned
    guiHtml* hoverNode = nullptr;    ///< the node under the pointer; not owned, dropped by onHtmlDestroy()
    QPixmap backBuffer;              ///< in device pixels; null until the first paint
    unsigned paintDepth = 0;         ///< paintEvent() calls on the stack
    int deletePending = 0;           ///< deletion was asked for while painting
    bool keepsFocus = false;         ///< the toolkit is not to give the keyboard to another control now

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    // The pointer can enter and leave the page without a mouse move that this widget sees, and Tab goes from control to
    // control.
    bool focusNextPrevChild(bool next) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void childEvent(QChildEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// A pixmap of this size in logical pixels; null when there is no memory for it.
    virtual QPixmap makeBuffer(QSize const& size);

private:
    /// The page; null once the window is to be deleted, because its remaining events no longer concern the page.
    guiPageRoot* livePage() const { return deletePending ? nullptr : htmlBase; }
    void unbind();
    void pressAt(QMouseEvent* event, bool isDouble);
    guiHtml* pressPage(QMouseEvent const& event) TARN_ON(velaGuiRole);
    bool useForText(QObject* watched, QEvent const& event);
    void hover(QPoint at) TARN_ON(velaGuiRole);
    static void press(guiHtml* node, Qt::MouseButton button, int x, int y) TARN_ON(velaGuiRole);
    void drag(QMouseEvent const& event) TARN_ON(velaGuiRole);
    void drop(QMouseEvent const& event) TARN_ON(velaGuiRole);
    void release(QPoint at) TARN_ON(velaGuiRole);
    bool showTip(QHelpEvent const& event) TARN_ON(velaGuiRole);
    guiHtml* nodeOf(QWidget* widget) TARN_ON(velaGuiRole);
    guiHtml* contextNode(QContextMenuEvent const& event) TARN_ON(velaGuiRole);
    bool isOwnContext(QObject* watched, QEvent const& event);
    void onFocusChanged(QWidget* from, QWidget* to) TARN_ON(velaGuiRole);
    bool pressLink(guiHtml* node, QMouseEvent const& event, int x, int y) TARN_ON(velaGuiRole);
    bool useAtLink(QKeyEvent const& event) TARN_ON(velaGuiRole);
    guiHtml* keyNode() TARN_ON(velaGuiRole);
    bool isFocusGoing() TARN_ON(velaGuiRole);
    bool openMenu(QKeyEvent const& event) TARN_ON(velaGuiRole);
    bool openFind(QKeyEvent const& event) TARN_ON(velaGuiRole);
    bool turnTabs(QEvent const& event);
    bool turnZoom(QObject const* watched, QEvent const& event);
    bool turnWheel(QWheelEvent const& event) TARN_ON(velaGuiRole);
    bool zoomByKey(QKeyEvent const& event) TARN_ON(velaGuiRole);
    bool zoomByWheel(QWheelEvent const& event) TARN_ON(velaGuiRole);
    void noteLook(QEvent const& event);
    void followDesktop() TARN_ON(velaGuiRole);
    void paintRegion(QRegion const& region) TARN_ON(velaGuiRole);
    void paintPage(QPaintDevice* device, QRegion const& region) TARN_ON(velaGuiRole);
    void ensureBuffer() TARN_ON(velaGuiRole);
    void paintThroughBuffer(QRegion const& region) TARN_ON(velaGuiRole);
    void endPaint() TARN_ON(velaGuiRole);
    void reportVisibility();

    guiFindBar* m_findBar = nullptr;    // owned; null until it is opened for the first time
    QPointer<QScrollBar> m_clickedPane; // vertical bar of the pane that was clicked last, until Tab goes on; not owned
    QWidget* m_outOfView = nullptr;     // owned; null until something is out of view
    guiLateWidgets m_lateWidgets{*this};
    guiTextGesture m_textGesture{*this};
    guiCurrentLink m_currentLink{*this};
    guiHtmlCustom* m_pressed =
        nullptr;            // the custom element on which a button went down; not owned, see onHtmlDestroy()
    QRegion m_missedDamage; // what was to be repainted while a paint event was going on
    QFont m_desktopFont = QApplication::font(); // for which the page has been laid out
    int m_zoomTurn = 0;                         // what the wheel was turned since the last step, 1/8 degree
    bool m_isLookStale = false;                 // the colours or the font of the desktop have changed
    bool m_isClosing = false;                   // the user has closed the window, and the page is still saving its form
};

/// How all widgets of a page handle Escape and Enter: by the owner's onEscape() or onEnter(). Returns true when those
/// return not 0: the key has been used. `withEnter` false: Escape only. Runs script.
template <typename Owner>
bool guiHandleKey(Owner* owner, int key, bool withEnter)
{
    assertOnGuiThread();
    if (!owner)
        return false;
    if (key == Qt::Key_Escape)
        return owner->onEscape() != 0;
    if (withEnter && (key == Qt::Key_Return || key == Qt::Key_Enter))
        return owner->onEnter() != 0;
    return false;
}
