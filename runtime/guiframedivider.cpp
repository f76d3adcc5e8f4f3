// runtime/guiframedivider.cpp: see guiframedivider.h. The rows of a frameset are its layers; a column is made of the
// frames at the same place in each row.
#include "runtime/guiframedivider.h"

#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"

#include <algorithm>
#include <cassert>
#include <vector>

namespace {

using frameRow = std::vector<guiHtml*>;

std::vector<frameRow> rowsOf(guiHtml const* frameset)
{
    std::vector<frameRow> rows(1);
    for (guiHtml* entry : frameset->m.children) {
        if (guiChildList::isNode(entry))
            rows.back().push_back(entry);
        else if (!rows.back().empty())
            rows.emplace_back();
    }
    if (rows.back().empty())
        rows.pop_back();
    return rows;
}

/// Whether a position is on the divider between the end of one frame and the beginning of the next.
bool isBetween(int at, int end, int begin)
{
    int middle = (end + begin) / 2;
    return at >= std::min(end, middle - guiFrameDivider::kGrip) &&
           at < std::max(begin, middle + guiFrameDivider::kGrip);
}

int topOf(frameRow const& row)
{
    assert(!row.empty());
    int top = row.front()->m.rect.top;
    for (guiHtml const* frame : row)
        top = std::min(top, frame->m.rect.top);
    return top;
}

int bottomOf(frameRow const& row)
{
    assert(!row.empty());
    int bottom = row.front()->m.rect.bottom();
    for (guiHtml const* frame : row)
        bottom = std::max(bottom, frame->m.rect.bottom());
    return bottom;
}

/// The index of the column before the divider at `x`; the number of columns when there is no divider.
std::size_t columnBefore(frameRow const& row, int x)
{
    for (std::size_t i = 0; i + 1 < row.size(); ++i)
        if (isBetween(x, row[i]->m.rect.right(), row[i + 1]->m.rect.left))
            return i;
    return row.size();
}

/// The frames of a column or of a row; empty when there is none of this index.
frameRow framesOf(std::vector<frameRow> const& rows, bool isColumn, std::size_t index)
{
    if (!isColumn)
        return index < rows.size() ? rows[index] : frameRow();
    frameRow frames;
    for (frameRow const& row : rows)
        if (index < row.size())
            frames.push_back(row[index]);
    return frames;
}

/// A column or row takes a share of what is left when any of its frames does.
bool isShare(frameRow const& frames, bool isColumn)
{
    return std::any_of(frames.begin(), frames.end(), [isColumn](guiHtml const* frame) {
        return (isColumn ? frame->m.fixed.unitX : frame->m.fixed.unitY) == kUnitUnbound;
    });
}

/// Whether any column or row but the two beside the divider takes a share.
bool otherShares(std::vector<frameRow> const& rows, bool isColumn, std::size_t divider)
{
    std::size_t count = isColumn ? rows.front().size() : rows.size();
    for (std::size_t i = 0; i < count; ++i)
        if (i != divider && i != divider + 1 && isShare(framesOf(rows, isColumn, i), isColumn))
            return true;
    return false;
}

int sizeOf(frameRow const& frames, bool isColumn)
{
    assert(!frames.empty());
    guiRect const& rect = frames.front()->m.rect;
    return isColumn ? rect.width : rect.height;
}

/// Requests a size in pixels for all frames of a column or row; 0 requests a share of what is left.
void request(frameRow const& frames, bool isColumn, int pixels)
{
    guiSizeUnit unit = pixels != 0 ? kUnitPixels : kUnitUnbound;
    for (guiHtml* frame : frames) {
        auto& fixed = frame->m.fixed;
        (isColumn ? fixed.unitX : fixed.unitY) = unit;
        (isColumn ? fixed.x : fixed.y) = static_cast<unsigned>(pixels);
        (isColumn ? fixed.cxMin : fixed.cyMin) = pixels;
    }
}

} // namespace

std::optional<guiFrameDivider> guiFrameDivider::find(guiHtml const* frameset, int x, int y)
{
    assertOnGuiThread();
    guiHtml::scroll_t const& scroll = frameset->getScroll();
    int atX = x + static_cast<int>(scroll.posX);
    int atY = y + static_cast<int>(scroll.posY);
    std::vector<frameRow> rows = rowsOf(frameset);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i + 1 < rows.size() && isBetween(atY, bottomOf(rows[i]), topOf(rows[i + 1])))
            return guiFrameDivider(separated::kRows, static_cast<unsigned>(i), y);
        if (atY < topOf(rows[i]) || atY >= bottomOf(rows[i]))
            continue;
        std::size_t column = columnBefore(rows[i], atX);
        if (column < rows[i].size())
            return guiFrameDivider(separated::kColumns, static_cast<unsigned>(column), x);
    }
    return std::nullopt;
}

bool guiFrameDivider::moveTo(guiHtml* frameset, int x, int y)
{
    assertOnGuiThread();
    bool isColumn = isBetweenColumns();
    std::vector<frameRow> rows = rowsOf(frameset);
    frameRow first = framesOf(rows, isColumn, m_index);
    frameRow second = framesOf(rows, isColumn, m_index + 1);
    if (first.empty() || second.empty())
        return false;
    if (m_first == 0) {
        m_first = sizeOf(first, isColumn);
        m_second = sizeOf(second, isColumn);
    }
    int sum = m_first + m_second;
    if (sum < 2 * kLeastSize)
        return false;
    int wanted = std::clamp(m_first + (isColumn ? x : y) - m_grasped, kLeastSize, sum - kLeastSize);
    if (wanted == sizeOf(first, isColumn))
        return false;
    bool othersShare = otherShares(rows, isColumn, m_index);
    bool firstShares = !othersShare && isShare(first, isColumn) && !isShare(second, isColumn);
    request(first, isColumn, firstShares ? 0 : wanted);
    request(second, isColumn, othersShare || firstShares ? sum - wanted : 0);
    return true;
}
