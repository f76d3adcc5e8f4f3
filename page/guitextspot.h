// page/guitextspot.h: places between the characters of a page: which one is under a point, and where one is.
#pragma once

#include <QPoint>
#include <QRect>

class guiHtml;
class guiHtmlText;

/// A boundary between two units of a run; without a run it is no place. Valid as long as the run lives and keeps its
/// text.
struct guiTextSpot
{
    guiHtmlText* run = nullptr; ///< not owned
    unsigned unit = 0;

    explicit operator bool() const { return run != nullptr; }
    bool operator==(guiTextSpot const&) const = default;
};

/// The place of selectable text that is nearest to a point in the window; none on a page without such text. GUI thread.
guiTextSpot guiTextSpotAt(guiHtml* page, QPoint at);

/// A line as high as the text at the place, without width, in coordinates of the window. GUI thread.
QRect guiCaretOf(guiTextSpot const& spot);

/// The units of the line that the place is on, from the first to behind the last shown. GUI thread.
struct guiLineUnits
{
    unsigned from = 0;
    unsigned to = 0;
};
guiLineUnits guiLineAround(guiTextSpot const& spot);

/// The first and the last place of a run.
guiTextSpot guiStartOf(guiHtmlText* run);
guiTextSpot guiEndOf(guiHtmlText* run);
