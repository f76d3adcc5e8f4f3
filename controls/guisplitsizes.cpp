// controls/guisplitsizes.cpp: see guisplitsizes.h.
#include "controls/guisplitsizes.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>

namespace {

using sizeList = std::vector<int>;

std::int64_t sumOf(sizeList const& sizes)
{
    std::int64_t sum = 0;
    for (int const size : sizes)
        sum += size;
    return sum;
}

void giveEvenly(sizeList& sizes, std::vector<guiSplitPart> const& parts, std::int64_t spare)
{
    std::int64_t left = std::count_if(parts.begin(), parts.end(), [](auto const& part) { return part.isElastic; });
    if (left == 0)
        sizes.back() += static_cast<int>(spare);
    for (std::size_t i = 0; i < parts.size() && left > 0; ++i) {
        if (!parts[i].isElastic)
            continue;
        std::int64_t const share = spare / left--;
        sizes[i] += static_cast<int>(share);
        spare -= share;
    }
}

/// Takes from the parts of one kind, the last one first; returns what is still missing.
std::int64_t take(sizeList& sizes, std::vector<guiSplitPart> const& parts, bool fromElastic, std::int64_t missing)
{
    for (std::size_t i = parts.size(); i-- > 0 && missing > 0;) {
        if (parts[i].isElastic != fromElastic)
            continue;
        std::int64_t const taken = std::min<std::int64_t>(missing, sizes[i] - parts[i].least);
        sizes[i] -= static_cast<int>(taken);
        missing -= taken;
    }
    return missing;
}

/// Takes up to `wanted` pixels from the part at `from` and those behind it in the direction of `step`.
int squeeze(sizeList& sizes, std::vector<guiSplitPart> const& parts, std::size_t from, int step, int wanted)
{
    int taken = 0;
    for (std::size_t i = from; i < sizes.size() && taken < wanted; i += static_cast<std::size_t>(step)) {
        int const share = std::clamp(sizes[i] - parts[i].least, 0, wanted - taken);
        sizes[i] -= share;
        taken += share;
    }
    return taken;
}

} // namespace

std::vector<int> guiShareSplit(std::vector<guiSplitPart> const& parts, int room)
{
    sizeList sizes;
    for (guiSplitPart const& part : parts)
        sizes.push_back(std::max({part.wanted, part.least, 0}));
    if (sizes.empty())
        return sizes;
    std::int64_t const spare = room - sumOf(sizes);
    if (spare > 0)
        giveEvenly(sizes, parts, spare);
    else
        take(sizes, parts, false, take(sizes, parts, true, -spare));
    return sizes;
}

std::vector<int> guiMoveSplit(std::vector<int> const& sizes, std::vector<guiSplitPart> const& parts, unsigned index,
                              int by)
{
    assert(sizes.size() == parts.size());
    sizeList moved = sizes;
    if (std::size_t{index} + 1 >= sizes.size())
        return moved;
    bool const grows = by > 0; // the part before the divider
    int const taken = squeeze(moved, parts, grows ? index + 1 : index, grows ? 1 : -1, std::abs(by));
    moved[grows ? index : index + 1] += taken;
    return moved;
}
