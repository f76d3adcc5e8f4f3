// runtime/guiinspectorlook.h: what the inspector is told of the nodes of a window, as JSON.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QPoint>
#include <QString>

class guiHtml;

/// The nodes that one answer has at most.
inline constexpr int kMostInspectedNodes = 20000;

/// How a request and an answer name a node; only compared with those of what exists.
QString guiInspector_idOf(guiHtml const* node);
/// The node of this window's page with the id; null when it has gone.
guiHtml* guiInspector_find(guiHtml* page, QString const& id);

/// A number that changes when nodes come to the page or go, and when texts change.
QString guiInspector_shapeOf(guiHtml* page);
/// All nodes, each behind its parent: `id`, `parent` ("" for the page), `kind`, and what there is of `tag`, `name`,
/// `text`, `file`, `line`, `isHidden`. At most kMostInspectedNodes.
QJsonArray guiInspector_tree(guiHtml* page);
/// One node: where it comes from, its sizes on both axes (asked for, least, wanted, got), its look. Lengths in pixels.
QJsonObject guiInspector_describe(guiHtml* node) TARN_ON(velaGuiRole);
/// The innermost node at a place of the window; null outside of the page.
guiHtml* guiInspector_nodeAt(guiHtml* page, QPoint place);
