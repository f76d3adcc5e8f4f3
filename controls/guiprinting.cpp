// controls/guiprinting.cpp: see guiprinting.h.
#include "controls/guiprinting.h"

#include "controls/guipapersheets.h"
#include "controls/guisidelibrary.h"
#include "foundation/vela-error.h"
#include "foundation/vela-qt.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>
#include <memory>
#include <string>

namespace {

TarnPrintModule const* loadLibrary(QString& why)
{
    std::string told;
    auto* const module = guiLoadSideLibrary<TarnPrintEntry>(
        {"TARN_PRINT", "libtarn-print.so", kTarnPrintEntry, TARN_PRINT_VERSION, "printing"}, told);
    if (!module)
        why = QString::fromLocal8Bit(told.c_str());
    return module;
}

using answering = std::function<void(TarnPrintout const*)>;

void giveAnswer(void* data, TarnPrintout const* printout)
{
    std::unique_ptr<answering> const answered(static_cast<answering*>(data));
    (*answered)(printout);
}

/// With margins that are comfortable, and at least those that the printer needs.
guiPaper paperOf(QPagedPaintDevice const& device, QString const& title)
{
    QPageLayout const layout = device.pageLayout();
    QMarginsF const needed = layout.margins(QPageLayout::Millimeter);
    guiPaper paper;
    paper.size = layout.fullRect(QPageLayout::Millimeter).size();
    QMarginsF const usual = paper.margins;
    paper.margins = {std::max(usual.left(), needed.left()), std::max(usual.top(), needed.top()),
                     std::max(usual.right(), needed.right()), std::max(usual.bottom(), needed.bottom())};
    paper.title = title;
    return paper;
}

bool paintSheets(guiPaperSheets& sheets, TarnPrintout const& printout) TARN_ON(velaGuiRole)
{
    QPainter painter;
    if (!painter.begin(printout.device))
        return false;
    painter.scale(printout.device->logicalDpiX() / double{guiPaperSheets::kUnitsPerInch},
                  printout.device->logicalDpiY() / double{guiPaperSheets::kUnitsPerInch});
    int const first = std::max(printout.first, 1) - 1;
    int const last = printout.last > 0 ? std::min(printout.last, sheets.count()) : sheets.count();
    for (int i = first; i < last; ++i) {
        if (i != first && !printout.device->newPage())
            return false;
        sheets.paint(painter, i);
    }
    return painter.end();
}

} // namespace

QString guiAskPrinter(QWidget* over, QString const& title, std::function<void(TarnPrintout const* printout)> answered)
{
    QString why;
    static TarnPrintModule const* loaded = nullptr;
    if (!loaded)
        loaded = loadLibrary(why);
    if (loaded)
        loaded->ask(over, title, new answering(std::move(answered)), giveAnswer);
    return why;
}

QString guiPrintPage(guiPageRoot& page, QString const& title, TarnPrintout const& printout)
{
    guiPaper const paper = paperOf(*printout.device, title);
    if (!paper.isUsable())
        return QStringLiteral("the paper is too small");
    try {
        guiPaperSheets sheets(page, paper);
        return paintSheets(sheets, printout) ? QString() : QStringLiteral("the printer did not take it");
    } catch (velaError const& error) {
        return sstoq(error.getMessage());
    }
}
