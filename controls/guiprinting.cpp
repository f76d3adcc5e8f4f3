// controls/guiprinting.cpp: see guiprinting.h.
#include "controls/guiprinting.h"

#include "controls/guipapersheets.h"
#include "foundation/vela-error.h"
#include "foundation/vela-qt.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <memory>

namespace {

/// Beside the file that this code is in.
std::string pathOfLibrary()
{
    if (char const* const own = std::getenv("TARN_PRINT"))
        return own;
    Dl_info info;
    std::filesystem::path folder;
    if (dladdr(reinterpret_cast<void const*>(&pathOfLibrary), &info) && info.dli_fname)
        folder = std::filesystem::path(info.dli_fname).parent_path();
    return (folder / "libtarn-print.so").string();
}

/// It stays in the process, for the plug-ins that it brings. Null, and why, when there is none.
TarnPrintModule const* loadLibrary(QString& why)
{
    void* const library = dlopen(pathOfLibrary().c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* const entry = library ? dlsym(library, kTarnPrintEntry) : nullptr;
    TarnPrintModule const* const module = entry ? reinterpret_cast<TarnPrintEntry>(entry)() : nullptr;
    if (module && module->version == TARN_PRINT_VERSION)
        return module;
    char const* const told = entry ? nullptr : dlerror();
    why = told ? QString::fromLocal8Bit(told) : QStringLiteral("the library for printing is of another version");
    return nullptr;
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
