// runtime/guidriverrows.h: the rows of lists: which one has a value or a text, what the user sees of it, and where it
// is.
#pragma once

#include <QJsonObject>
#include <QRect>
#include <QString>

struct guiDriverThing;
class QAbstractItemView;
class QWidget;

/// The view that a widget is, or that the list has which belongs to it and has popped up; null without one.
QAbstractItemView* guiDriver_viewIn(QWidget* widget);
/// The row of a list with this value or, if none has it, with this text in any column: its number `part`, rows of all
/// levels counted, `isChecked`, `isSelected`, `isDisabled`. Without such a row `known`: values and texts of the first
/// ones. The widget of the list must exist. GUI thread.
QJsonObject guiDriver_findRow(guiDriverThing const& list, QString const& wanted);
/// Scrolls the row into view. Its place in the view's port; empty for one that is not seen for another reason.
QRect guiDriver_showRow(QAbstractItemView& view, int number);
