// runtime/guidriverlook-widgets.h: what is on the windows that are the toolkit's own: dialogs and menus.
#pragma once

#include <QJsonArray>
#include <QString>

class QWidget;

/// The things on a dialog, a menu or a list that has popped up, see guidriverlook.h. GUI thread.
QJsonArray guiDriver_lookAtWidgets(QWidget* window);
/// The items of a menu, or the menus of a menu bar. `kind`: what each is called. GUI thread.
QJsonArray guiDriver_lookAtActions(QWidget* menu, QString const& kind);
/// A text without the marks of its letter for the keyboard, and of a menu's item without its keys.
QString guiDriver_plainText(QString const& text);
