// controls/guipapersheets.h: a page as sheets of paper.
#pragma once

#include "controls/guipaper.h"
#include "controls/guipaperlayout.h"
#include "controls/guipaperparts.h"
#include "foundation/vela-threadrole.h"
#include "page/guipagebreaks.h"
#include "page/guipdfupdate.h"

#include <QRectF>
#include <vector>

class guiPageRoot;
class QPainter;
class QRegion;

/// While it exists, the page is laid out for paper: see guiPaperLayout. GUI thread.
class guiPaperSheets
{
public:
    /// Of the units that sheets are painted in.
    static constexpr int kUnitsPerInch = 96;

    /// The page must be in a window; layouts throw velaError(ENOMEM).
    guiPaperSheets(guiPageRoot& page, guiPaper const& paper) TARN_ON(velaGuiRole);

    int count() const { return static_cast<int>(m_sheets.size()); }
    /// Paints a sheet, counted from 0. The painter's origin is the sheet's upper left corner.
    void paint(QPainter& painter, int number) TARN_ON(velaGuiRole);
    /// Where on the sheets links and headings are.
    guiPdfAdditions findAdditions() const;

private:
    void paintStrip(QPainter& painter, QRegion const& region) TARN_ON(velaGuiRole);
    void paintControls(QPainter& painter, QRegion const& region) TARN_ON(velaGuiRole);
    void paintLine(QPainter& painter, guiPaperLine const& line, double middle, int number) const;
    QString filledIn(QString text, int number) const;
    QRegion stripOf(guiSheet const& sheet) const;
    QRectF onSheet(QRect const& place, guiSheet const& sheet) const;
    int sheetAt(QRect const& place) const;
    guiPdfPlace placeOf(QRect const& place) const;
    void addLink(guiPaperLink const& link, guiPdfAdditions& additions) const;

    guiPageRoot& m_page;
    guiPaper const m_paper;
    QRectF const m_content; // between the margins
    guiPaperLayout m_layout;
    double m_scale = 1; // of the content
    guiPaperParts m_parts;
    int m_highestControl = 0;
    std::vector<guiSheet> m_sheets;
};
