// page/guipdfupdate.h: adds links and an outline to a PDF file by an incremental update (ISO 32000-1, 7.5.6): what is
// there stays as it is, and new versions of a few objects follow it.
#pragma once

#include <QByteArray>
#include <QRectF>
#include <QString>

#include <vector>

class QIODevice;

/// A place that one can jump to.
struct guiPdfPlace
{
    int page = 0;   ///< from 0
    double top = 0; ///< in points from the upper edge of the page
};

/// Something to click on.
struct guiPdfLink
{
    int page = 0;     ///< from 0
    QRectF place;     ///< in points from the upper left corner of the page
    QByteArray uri;   ///< an address; "" for a link inside the document
    guiPdfPlace goTo; ///< where the latter leads
};

/// An entry of the outline.
struct guiPdfHeading
{
    int level = 1; ///< 1 is the outermost
    QString text;
    guiPdfPlace place;
};

struct guiPdfAdditions
{
    std::vector<guiPdfLink> links;
    std::vector<guiPdfHeading> headings; ///< in the order of the document
};

/// Appends them to the file, which is open for reading and writing and can be positioned. Of pages that the file does
/// not have nothing is added. False when the file is not one that it can read, or can not be written; it may have grown
/// then. Any thread.
bool guiUpdatePdf(QIODevice& file, guiPdfAdditions const& additions);
