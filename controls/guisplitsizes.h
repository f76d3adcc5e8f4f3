// controls/guisplitsizes.h: shares out the room of a splitter among its panes. Knows neither nodes nor widgets.
#pragma once

#include <vector>

/// One pane, in pixels.
struct guiSplitPart
{
    int wanted = 0;
    int least = 0;
    bool isElastic = false; ///< takes what the others leave, and gives up its room before they do
};

/// The sizes of the parts, which fill the room; where it is less than all they need at least, each has its least. Room
/// to spare goes to the elastic parts evenly, and without one to the last part; what is missing is taken from the
/// elastic parts and then from the others, the last one first.
std::vector<int> guiShareSplit(std::vector<guiSplitPart> const& parts, int room);

/// The sizes after the divider behind part `index` has been moved by `by` pixels, or as far towards it as the least
/// sizes allow: a part that has come down to its least pushes the next one.
std::vector<int> guiMoveSplit(std::vector<int> const& sizes, std::vector<guiSplitPart> const& parts, unsigned index,
                              int by);
