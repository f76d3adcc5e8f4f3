// runtime/guidriverhand.h: mouse and keys as the display would deliver them, so that filters, grabs, modal windows,
// shortcuts, the focus and the double click are the toolkit's own.
#pragma once

#include <QKeySequence>
#include <QPoint>
#include <QString>
#include <QWidget>

/// What the mouse does at a place.
enum class guiDriverClick
{
    kMove,
    kLeft,
    kAgain, ///< so soon behind a click at the same place that both are a double click
    kRight,
};

/// Moves the pointer to a place of the window, in its own pixels, and clicks there. Returns at once: each step comes
/// with an event of its own, so that a button goes up again though a handler waits for another window since it went
/// down. GUI thread.
void guiDriver_click(QWidget* window, QPoint place, guiDriverClick click, Qt::KeyboardModifiers modifiers);
/// Presses keys, one combination after the other, where the window has the keyboard. Returns at once. GUI thread.
void guiDriver_press(QWidget* window, QKeySequence const& keys);
/// Types a text, "\n" by the Enter key and "\t" by the Tab key. Returns at once. GUI thread.
void guiDriver_type(QWidget* window, QString const& text);
