// controls/guiaccessrole.h: what a node of a page is to a screen reader.
#pragma once

#include <QAccessible>

class guiHtml;

/// Never for a node that its widget stands for. GUI thread.
QAccessible::Role guiAccessRoleOf(guiHtml* node);
/// The level of a heading, 1 to 6; 0 for every other node.
int guiHeadingLevel(guiHtml const* node);
/// Adds to the state what a control that awaits its widget knows of itself.
void guiAddStateOf(guiHtml* control, QAccessible::State& state);
