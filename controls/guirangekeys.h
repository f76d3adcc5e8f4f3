// controls/guirangekeys.h: how the user selects a range of rows in a list in which each click selects one row more.
#pragma once

#include <QAbstractItemView>
#include <QInputEvent>

/// Whether the event selects everything from the last row on: a press of a button or key while Shift is down.
inline bool guiSelectsRange(QAbstractItemView::SelectionMode mode, QEvent const* event)
{
    bool const isInput = event && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress);
    return isInput && mode == QAbstractItemView::MultiSelection &&
           static_cast<QInputEvent const*>(event)->modifiers().testFlag(Qt::ShiftModifier);
}
