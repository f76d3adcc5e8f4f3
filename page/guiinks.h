// page/guiinks.h: the colours that a page does not choose itself. On light grounds they are always the same; on a dark
// ground of the desktop they are the desktop's own, and on a ground of the page those that go with it. They are chosen
// when they are painted, so that they follow the desktop. GUI thread.
#pragma once

#include "page/guihtml.h"

class QPalette;

/// What a node stands on.
struct guiGround
{
    guiColor color = guiColor::LightGray;
    bool isGiven = false; ///< by the page, not by the desktop
};

/// The ground of the nearest element that has one, the node itself included; behind the page, that of the window, or
/// light gray outside of a window. A picture counts with the mean of its colours.
guiGround guiGroundOf(guiHtml* node);

/// The colours of text.
struct guiInks
{
    guiColor text = guiColor::Black;
    guiColor link = guiColor::BrightBlue;
    guiColor activeLink = guiColor::BrightRed; ///< of the link under the pointer
};

/// Those that the page gives the node, and the others as they read on what it stands on.
guiInks guiInksOf(guiHtml* node);
/// The same on another ground.
guiInks guiInksOn(guiHtml* node, guiGround const& ground);
/// Text for which the page gives no colour, like the caption of a group.
guiColor guiPlainInkOf(guiHtml* node);

/// The colours of frames and lines.
struct guiEdges
{
    guiColor light = guiColor::White;
    guiColor middle = guiColor::LightGray;
    guiColor dark = guiColor::DarkGray;
};

/// Those that the page does not choose, on what the node's parent stands on.
guiEdges guiEdgesOf(guiHtml* node);

/// Whether the user has asked the desktop for strong contrast: by a theme of that name, or by a palette of black and
/// white.
bool guiIsHighContrast(QPalette const& palette);
/// What shows where the keyboard is, on the window's ground.
guiColor guiFocusInk(QPalette const& palette);
/// The desktop's settings may have changed since they were read.
void guiForgetDesktopColors();
