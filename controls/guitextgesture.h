// controls/guitextgesture.h: how the user selects and copies the text of a page with the pointer and the keys.
#pragma once

#include "foundation/vela-threadrole.h"
#include "page/guitextspot.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QTimer>

class QKeyEvent;
class QMouseEvent;
class QScrollBar;
class guiHtml;
class guiPageRoot;
class guiTextSelection;
class guiTextWindow;

/// Part of a window. The page hears of the pointer and of keys first; this takes what it has no use for. GUI thread.
class guiTextGesture
{
public:
    explicit guiTextGesture(guiTextWindow& window);

    /// A button went down beside all controls. `hit`: the node that hears of it, null for none.
    void press(guiPageRoot& page, guiHtml* hit, QMouseEvent const& event, bool isDouble);
    /// The page has changed under a button that went down.
    void cancel();
    /// True while the pointer selects: then the page does not hear that it moves.
    bool move(guiPageRoot& page, QMouseEvent const& event);
    /// True at the end of a drag that has selected something.
    bool release(guiPageRoot& page, QMouseEvent const& event);
    /// True when the key selects or copies.
    bool key(guiPageRoot& page, QKeyEvent const& event) TARN_ON(velaGuiRole);

private:
    int countPress(QMouseEvent const& event, bool isDouble);
    bool begins(QMouseEvent const& event) const;
    void follow(guiPageRoot& page);
    void scrollOn() TARN_ON(velaGuiRole);
    bool moveBy(guiPageRoot& page, QKeyEvent const& event) TARN_ON(velaGuiRole);
    guiTextSpot stepOf(guiPageRoot& page, QKeyEvent const& event);

    guiTextWindow& m_window;
    bool m_isDown = false;     // the button that selects
    bool m_isDragging = false; // and the pointer has moved far enough
    QPoint m_pressedAt;
    QPoint m_pointer;
    int m_presses = 0; // that followed each other at one place
    QElapsedTimer m_sincePress;
    QTimer m_scrolling; // runs only while the pointer is beyond the edge of a pane that can scroll
};

/// What is selected goes to the clipboard, as text and as markup; nothing when nothing is selected.
void guiCopySelection(guiPageRoot& page);
/// Whether a node hears of the mouse itself; not where a run has a link. `hit` may be null.
bool guiHearsOfPress(guiHtml* hit);
/// Whether the user has selected something on the page.
bool guiHasSelection(guiPageRoot& page);
/// Scrolls to a place, with some of what is around it.
void guiShowSpot(guiTextSpot const& spot) TARN_ON(velaGuiRole);
