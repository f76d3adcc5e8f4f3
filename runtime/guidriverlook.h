// runtime/guidriverlook.h: what is on a window: the controls, links and named elements of a page, the buttons and
// fields of a dialog, the items of a menu.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

class QWidget;
class guiHtml;
class guiHtmlBase;

/// A thing on a window, as a request names it: `node` and perhaps `link`, or `widget`, and of lists, tabs and menus
/// `part`, counted from 0. Addresses are only compared with those of what exists.
struct guiDriverThing
{
    guiHtml* node = nullptr;   ///< not owned
    QWidget* widget = nullptr; ///< not owned; of a dialog or a menu, or the bar of tabs or menus
    int link = -1;             ///< place of a link in the node; -1: none
    int part = -1;             ///< tab, item or row; -1: the whole
};

/// All things on a window in the order of reading, each with `kind`, in words for the user, and what there is of
/// `name`, `text`, `label`, `value`, `isChecked`, `isDisabled`, `isHidden`, `why` (of what is hidden) and `thing`.
QJsonArray guiDriver_look(QWidget* window);
/// What `thing` of an answer stands for; nothing when it has gone.
guiDriverThing guiDriver_find(QWidget* window, QJsonObject const& thing);
/// The text that the user reads at and below a node: lines, cells with a tab between them.
QString guiDriver_textOf(guiHtml* node);
/// The rows of a list, as `packed` (base64 of the units of packed rows) or as `rows`.
QJsonObject guiDriver_rowsOf(guiDriverThing const& thing);
