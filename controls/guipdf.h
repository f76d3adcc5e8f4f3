// controls/guipdf.h: writes the page of a window into a PDF file.
#pragma once

#include "controls/guipaper.h"
#include "foundation/vela-threadrole.h"

#include <QString>

class guiPageRoot;

/// Lays the whole page out on paper and writes it; the file is there, or is replaced, when all of it is written. "" or
/// what went wrong, in words, without the path. The page must be in a window, which need not be shown. Runs no script.
/// GUI thread.
QString guiWritePdf(guiPageRoot& page, guiPaper const& paper, QString const& path) TARN_ON(velaGuiRole);
