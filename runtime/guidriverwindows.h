// runtime/guidriverwindows.h: the windows that a test can work with: those of pages, the desktop's dialogs, menus and
// other lists that have popped up.
#pragma once

#include <QJsonArray>
#include <QString>

class QWidget;
class guiHtmlBase;

/// All that are shown, each with `id`, `kind` ("page", "dialog", "menu" or "list"), `title` and `isModal`. GUI thread.
QJsonArray guiDriver_windows();
/// Which of these kinds a window is, "" for what a test does not see, such as a tip.
QString guiDriver_kindOf(QWidget* window);
/// The number of a window, the same as long as it exists; never 0.
int guiDriver_idOf(QWidget* window);
/// The window of this number, null when it is not shown any more.
QWidget* guiDriver_windowOf(int id);
/// The page that the window shows, null for all others.
guiHtmlBase* guiDriver_pageOf(QWidget* window);
/// Why no key reaches the window now: the dialog in front of it; "" when they do.
QString guiDriver_obstacleOf(QWidget* window);
/// Why no click reaches it, a menu that is open being a reason, too.
QString guiDriver_coverOf(QWidget* window);
/// The window's title as a message names it.
QString guiDriver_nameOf(QWidget const* window);
