// page/guitextcopy.h: a part of a page's text for other programs, as plain text and as markup.
#pragma once

#include "page/guitextflow.h"

#include <QString>

#include <cstddef>

class guiHtmlText;

/// A place in a flow: which run, and which unit of it.
struct guiFlowPlace
{
    std::size_t run = 0;
    unsigned unit = 0;
};

/// The text between two places: lines, paragraphs with an empty line between them, cells with a tab between them. GUI
/// thread.
QString guiCopyAsText(guiTextFlow const& flow, guiFlowPlace from, guiFlowPlace to);

/// The same as markup: paragraphs, tables, bold, italic, underlined, struck and marked parts, links. GUI thread.
QString guiCopyAsHtml(guiTextFlow const& flow, guiFlowPlace from, guiFlowPlace to);

/// What the run shows of a link, given the position of the link's code in the run. GUI thread.
QString guiTextOfLink(guiHtmlText& run, unsigned link);
