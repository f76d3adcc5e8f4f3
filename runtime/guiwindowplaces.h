// runtime/guiwindowplaces.h: where the windows of a program stand, so that they stand there again when the program has
// been started anew.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QJsonArray>

class guiHtmlBase;
class guiWidget;

/// The places of the windows that are shown, by the file of their page: objects with "file", "x", "y", "width",
/// "height", in pixels of the screen, and "isMaximized".
QJsonArray guiWindowPlaces_read() TARN_ON(velaGuiRole);
/// Windows that are made from now on get these places; of several with the same file, the first one the first.
void guiWindowPlaces_expect(QJsonArray const& places) TARN_ON(velaGuiRole);
/// A window has been made and is not shown yet: takes its place, if one is left for it.
void guiWindowPlaces_take(guiHtmlBase& root, guiWidget& window) TARN_ON(velaGuiRole);
