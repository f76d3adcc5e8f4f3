// controls/guiprinting.h: prints the page of a window.
#pragma once

#include "controls/guiprintmodule.h"
#include "foundation/vela-threadrole.h"

#include <QString>
#include <functional>

class guiPageRoot;

/// Shows the desktop's print dialog over a window (null: none) and returns at once. `answered` is called once, with
/// null when nothing is to be printed, unless the application ends first. "" or, when there is no such dialog, why;
/// then `answered` is not called. GUI thread.
QString guiAskPrinter(QWidget* over, QString const& title, std::function<void(TarnPrintout const* printout)> answered)
    TARN_ON(velaGuiRole);

/// Lays the whole page out for the chosen paper and prints the chosen sheets. "" or what went wrong. The page must be
/// in a window, which need not be shown. Runs no script. GUI thread.
QString guiPrintPage(guiPageRoot& page, QString const& title, TarnPrintout const& printout) TARN_ON(velaGuiRole);
