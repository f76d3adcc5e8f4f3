// page/guipagebreaks.h: cuts a page that has been laid out as one long strip into sheets of paper. guipageblocks.h
// finds what must not be cut.
#pragma once

#include "page/guitypes.h"

#include <vector>

/// The first rows of a table, which every sheet repeats on which the table goes on.
struct guiTableHead
{
    guiRect place;  ///< of the rows
    int bottom = 0; ///< of the table
};

/// What decides where a page may be cut. All in pixels of the page, in any order.
struct guiPageBlocks
{
    std::vector<guiRect> whole; ///< never cut unless taller than a sheet: lines, pictures, controls, low rows
    std::vector<guiRect> tall;  ///< what is taller than a sheet and has nothing in it to cut between
    std::vector<guiTableHead> heads;
    int top = 0;    ///< where the first sheet begins
    int bottom = 0; ///< of everything that is seen
};

/// One sheet: the strip from `top` to `bottom` of the page.
struct guiSheet
{
    int top = 0;
    int bottom = 0;
    std::vector<guiRect> heads;  ///< repeated above the strip, from top to bottom
    std::vector<guiRect> absent; ///< what stands in the strip but is shown by the sheet before or behind this one

    /// The height of what is repeated.
    int headHeight() const;
};

/// The sheets of a page, at least one, each of up to `height` pixels. Where nothing stands in the way all of a strip is
/// on one sheet; where columns leave no common gap in the lower half of a sheet, each column is cut where it has one,
/// and the strips of neighbouring sheets overlap. Takes time in proportion to the number of blocks, sorting apart.
std::vector<guiSheet> guiBreakPage(guiPageBlocks blocks, int height);
