// page/guicontrast.h: how well a colour reads on another one.
#pragma once

#include "page/guitypes.h"

/// What a text needs at least (WCAG 2, levels AA and AAA), and what a line or a mark needs.
inline constexpr double kLeastContrast = 4.5;
inline constexpr double kGoodContrast = 7;
inline constexpr double kMarkContrast = 3;

/// The relative luminance of WCAG 2, 0 for black to 1 for white.
double guiLuminance(guiColor color);
/// The contrast ratio of WCAG 2, 1 for the same colour to 21 for black and white.
double guiContrast(guiColor first, guiColor second);
/// Whether white reads better on the colour than black.
bool guiIsDark(guiColor ground);
/// A colour between the two: `part` of the second one, 0 to 1.
guiColor guiMixed(guiColor first, guiColor second, double part);
/// The colour itself if it has this contrast to the ground; otherwise it is made as much lighter or darker as it takes,
/// at most white or black.
guiColor guiReadable(guiColor color, guiColor ground, double least);
