// controls/guiaccessiblerole.h: what a widget that the toolkit does not know is to a screen reader.
#pragma once

#include <QAccessible>

class QWidget;

/// From now on the widget has this role; its name is its accessible name. GUI thread.
void guiSetAccessibleRole(QWidget* widget, QAccessible::Role role);
