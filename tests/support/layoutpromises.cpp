// tests/support/layoutpromises.cpp: see layoutpromises.h.
#include "tests/support/layoutpromises.h"

#include "page/guihtml.h"
#include "page/guihtmlsize.h"

#include <QScrollBar>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

/// The nodes of a child list between two markers.
std::vector<std::vector<guiHtml*>> rowsOf(guiHtml const* node)
{
    std::vector<std::vector<guiHtml*>> rows(1);
    for (guiHtml* entry : node->m.children)
        if (guiChildList::isNode(entry))
            rows.back().push_back(entry);
        else if (!rows.back().empty())
            rows.emplace_back();
    if (rows.back().empty())
        rows.pop_back();
    return rows;
}

int sum(std::vector<guiHtml*> const& row, std::function<int(guiHtml*)> const& value)
{
    int total = 0;
    for (guiHtml* node : row)
        total += value(node);
    return total;
}

int roomFor(guiHtml* node)
{
    QScrollBar const* bar = node->getScroll().barY;
    return static_cast<int>(node->m.activeCx) - 2 * node->m.border - 2 * node->m.space -
           (bar ? bar->sizeHint().width() : 0);
}

int widthOfRow(guiHtml* node, std::vector<guiHtml*> const& row)
{
    return sum(row, [](guiHtml* child) { return static_cast<int>(child->m.activeCx); }) +
           (static_cast<int>(row.size()) - 1) * node->m.divide;
}

// What would stand beyond the largest position that there is stands on it.
std::string followsWithoutOverlap(guiHtml* node)
{
    int bottom = node->m.border + node->m.space + static_cast<int>(node->getCaptionHeight());
    for (auto const& row : rowsOf(node)) {
        int right = node->m.border + node->m.space;
        int rowBottom = bottom;
        for (guiHtml* child : row) {
            if (child->m.rect.left < std::min(right, kMaxLayoutPixels))
                return "a node overlaps the one before it";
            if (child->m.rect.top < std::min(bottom, kMaxLayoutPixels))
                return "a node overlaps the layer above it";
            if (child->m.rect.top != row.front()->m.rect.top)
                return "the nodes of a layer stand at different heights";
            right = child->m.rect.right() + node->m.divide;
            rowBottom = std::max(rowBottom, child->m.rect.bottom());
        }
        bottom = rowBottom;
    }
    return "";
}

bool hasPercent(std::vector<guiHtml*> const& row)
{
    return std::any_of(row.begin(), row.end(), [](guiHtml* child) { return child->m.dynamic.unitX == kUnitPercent; });
}

// Percentages are of the whole row, so other nodes beside them may not fit; everything else has room in a node that
// grows to its content.
std::string liesInItsParent(guiHtml* node)
{
    if (node->m.scrollMode != kPolicyResize || static_cast<int>(node->m.activeCx) < node->m.dynamic.cxMin)
        return "";
    int const right = node->m.rect.width - node->m.border - node->m.space;
    for (auto const& row : rowsOf(node))
        if (!hasPercent(row) && row.back()->m.rect.right() > right)
            return "a layer sticks out of its node";
    return "";
}

bool wantedMore(guiHtml const* child)
{
    bool const isRequest = !child->m.expandWidth && child->m.dynamic.unitX == kUnitPixels;
    return isRequest && static_cast<int>(child->m.dynamic.x) > std::max(child->m.dynamic.cxMin, 0);
}

bool isStillWanting(guiHtml const* child) { return wantedMore(child) && child->m.activeCx < child->m.dynamic.x; }

// Rounding down leaves less than a pixel for each wanting node to the last of them, which takes no more than it wants.
int lostToRounding(std::vector<guiHtml*> const& row)
{
    auto const last = std::find_if(row.rbegin(), row.rend(), wantedMore);
    bool const isFull = last != row.rend() && !isStillWanting(*last);
    return isFull ? static_cast<int>(std::count_if(row.begin(), row.end(), wantedMore)) - 1 : 0;
}

std::string usesTheWidthExactly(guiHtml* node)
{
    int const room = roomFor(node);
    for (auto const& row : rowsOf(node)) {
        bool const isExpanding =
            std::any_of(row.begin(), row.end(), [](guiHtml* child) { return child->m.expandWidth; });
        bool const isWanting = std::any_of(row.begin(), row.end(), isStillWanting);
        int const unused = room - widthOfRow(node, row);
        if ((isExpanding && !isWanting && unused > 0) || (isWanting && unused > lostToRounding(row)))
            return "a layer leaves " + std::to_string(unused) + " pixels to nobody";
        bool const hasSpare = std::any_of(row.begin(), row.end(), [](guiHtml* child) {
            return child->m.activeCx > static_cast<unsigned>(std::max(child->m.dynamic.cxMin, 0));
        });
        if (hasSpare && !hasPercent(row) && unused < 0)
            return "a layer gives away " + std::to_string(-unused) + " pixels that it does not have";
    }
    return "";
}

std::string isNeverBelowItsMinimum(guiHtml* node)
{
    if (node->getType() == guiHtml::kTypeBase)
        return ""; // the window decides
    bool const isWide = static_cast<int>(node->m.activeCx) >= node->m.dynamic.cxMin;
    bool const isHigh = static_cast<int>(node->m.activeCy) >= node->m.dynamic.cyMin;
    return isWide && isHigh ? "" : "a node is smaller than its minimum";
}

std::string isPlacedAtItsActiveSize(guiHtml* node)
{
    bool const isSame = node->m.rect.width == static_cast<int>(node->m.activeCx) &&
                        node->m.rect.height == static_cast<int>(node->m.activeCy);
    return isSame ? "" : "a rectangle is not of the active size";
}

std::string percentsAddUp(guiHtml* node)
{
    for (auto const& row : rowsOf(node)) {
        int const percents = sum(row, [](guiHtml* child) {
            return child->m.dynamic.unitX == kUnitPercent ? static_cast<int>(child->m.dynamic.x) : 0;
        });
        if (percents > 100)
            return "the percentages of a layer add up to " + std::to_string(percents);
    }
    return "";
}

} // namespace

std::string onEveryNode(guiHtml* node, std::function<std::string(guiHtml*)> const& check)
{
    std::string const fault = check(node);
    if (!fault.empty())
        return fault;
    for (guiHtml* child : guiNodesOf(node))
        if (std::string const below = onEveryNode(child, check); !below.empty())
            return below;
    return "";
}

std::string brokenLayoutPromise(guiHtml* root)
{
    for (auto promise : {followsWithoutOverlap, liesInItsParent, usesTheWidthExactly, isNeverBelowItsMinimum,
                         isPlacedAtItsActiveSize, percentsAddUp})
        if (std::string const fault = onEveryNode(root, promise); !fault.empty())
            return fault;
    return "";
}
