// tests/page/textlines.h: how a text breaks into lines, and how a line looks.
#pragma once

#include <QImage>
#include <QSize>
#include <QStringView>

#include <string>

/// The lines of a text in testFont() in a box of a width, joined by "|"; a hyphen that is shown is "~", a line without
/// text "<empty>". None may be wider than the box.
std::string linesOf(std::u16string const& text, int width);

/// A picture of a text of one line, on white: piece by piece as a run is painted, and by the toolkit as a whole.
QImage drawnByPieces(QStringView text, QSize size);
QImage drawnWhole(QStringView text, QSize size);
