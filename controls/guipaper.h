// controls/guipaper.h: what a page is printed on, and what stands above and below it on each sheet.
#pragma once

#include <QMarginsF>
#include <QSizeF>
#include <QString>

/// A line of three parts. "{page}" is the number of the sheet, "{pages}" how many there are, "{title}" the title of the
/// window.
struct guiPaperLine
{
    QString left;
    QString center;
    QString right;

    bool isEmpty() const { return left.isEmpty() && center.isEmpty() && right.isEmpty(); }
};

/// All lengths in millimetres.
struct guiPaper
{
    static constexpr double kLeastContent = 10; ///< between the margins, each way
    static constexpr double kMostSize = 5000;

    QSizeF size{210, 297};
    QMarginsF margins{20, 20, 20, 20};
    guiPaperLine header; ///< in the upper margin
    guiPaperLine footer; ///< in the lower margin
    QString title;

    /// Whether there is room for anything.
    bool isUsable() const
    {
        bool const hasSize = size.width() <= kMostSize && size.height() <= kMostSize;
        bool const hasMargins =
            margins.left() >= 0 && margins.right() >= 0 && margins.top() >= 0 && margins.bottom() >= 0;
        return hasSize && hasMargins && size.width() - margins.left() - margins.right() >= kLeastContent &&
               size.height() - margins.top() - margins.bottom() >= kLeastContent;
    }
};
