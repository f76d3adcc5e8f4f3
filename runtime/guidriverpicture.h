// runtime/guidriverpicture.h: pictures of windows for tests, and how much two of them differ.
#pragma once

#include <QJsonObject>
#include <QString>

class QWidget;

/// Writes a picture of the window's content into a file. GUI thread.
QJsonObject guiDriver_savePicture(QWidget* window, QString const& file);
/// Compares the window's content with a picture in a file: a pixel counts when one of its colours differs by more than
/// `tolerance`, of 255. The answer has `isMissing`; or `isSize` false and both sizes; or `differing`, how many count.
/// GUI thread.
QJsonObject guiDriver_comparePicture(QWidget* window, QString const& file, int tolerance);
