// controls/guipaperparts.h: what of a page that is laid out for paper is more than what it paints itself: controls,
// links, places to jump to, headings.
#pragma once

#include "foundation/vela-string.h"
#include "page/guitypes.h"

#include <QByteArray>
#include <QHash>
#include <QRect>
#include <QString>
#include <vector>

class guiHtml;

struct guiPaperLink
{
    QRect place;
    QByteArray uri;   ///< "" for a link within the page
    QString bookmark; ///< the latter's, with "#"
};

struct guiPaperHeading
{
    int level = 1;
    QString text;
    QRect place;
};

/// All places are in pixels of the page, from the corner of the root's parent.
struct guiPaperParts
{
    struct control
    {
        guiHtml* node = nullptr; ///< not owned
        guiRect place;
    };

    std::vector<control> controls; ///< from top to bottom
    std::vector<guiPaperLink> links;
    std::vector<guiPaperHeading> headings;
    QHash<QString, int> bookmarks; ///< how far down each is
};

/// Walks over the page once. Links that lead to handlers or other pages are left out: paper can not follow them. GUI
/// thread.
guiPaperParts guiFindPaperParts(guiHtml* page);
