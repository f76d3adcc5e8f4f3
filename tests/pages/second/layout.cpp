// tests/pages/second/layout.cpp: see layout.h. Nothing is remembered from one step to the next but the numbers of the
// nodes; each rule is written where it applies, once for each axis.
#include "tests/pages/second/layout.h"

#include "tests/pages/second/measure.h"

#include <algorithm>

namespace second {

namespace {

constexpr int kParagraphGap = 12;
constexpr int kLeastForBar = 31;

struct layer
{
    std::vector<node*> cells;
    bool endsParagraph = false;
    int align = 0;
};

std::vector<layer> layersOf(node const& parent)
{
    std::vector<layer> layers;
    int align = parent.alignX;
    std::size_t at = 0;
    while (true) {
        for (; at < parent.children.size(); ++at) {
            entry const& here = parent.children[at];
            if (here.child || here.mark == paragraph)
                break;
            if (here.mark >= alignLeft)
                align = here.mark - alignLeft;
        }
        if (at == parent.children.size())
            return layers;
        layer next;
        next.align = align;
        for (; at < parent.children.size() && parent.children[at].child; ++at)
            next.cells.push_back(parent.children[at].child.get());
        if (at < parent.children.size() && parent.children[at].mark == paragraph) {
            next.endsParagraph = true;
            ++at;
        }
        layers.push_back(std::move(next));
    }
}

int dividers(node const& parent, layer const& row)
{
    return row.cells.empty() ? 0 : (static_cast<int>(row.cells.size()) - 1) * parent.divide;
}

/// The height of stacked layers, with the gap below a paragraph that has any height.
int stacked(node const& parent, std::vector<int> const& heights)
{
    auto layers = layersOf(parent);
    int total = 0;
    bool gap = false;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        total += (i ? parent.divide : 0) + (gap ? kParagraphGap : 0) + heights[i];
        gap = layers[i].endsParagraph && heights[i] != 0;
    }
    return total;
}

// --- bottom-up -------------------------------------------------------------------------------------------------------

void normalisePercents(layer const& row)
{
    int sum = 0;
    node* last = nullptr;
    for (node* cell : row.cells)
        if (cell->dynamic.unitX == percent) {
            sum += cell->dynamic.x;
            last = cell;
        }
    if (sum <= 100)
        return;
    int rest = 100;
    for (node* cell : row.cells)
        if (cell->dynamic.unitX == percent && cell != last) {
            cell->dynamic.x = cell->dynamic.x * 100 / sum;
            rest -= cell->dynamic.x;
        }
    last->dynamic.x = rest;
}

void readCaption(node& node)
{
    node.captionHeight = 0;
    if (!node.caption.isEmpty() && node.caption != "*EMPTYGROUPBOX*")
        node.captionHeight = lineSpacing(node) - node.border;
}

void requestWidth(node& node)
{
    if (node.dynamic.unitX == percent)
        return;
    int preferred = preferredWidth(node);
    int share = preferred < 0 ? -preferred : 0;
    preferred = std::max(preferred, 0);
    if (node.dynamic.unitX == pixels) {
        if (!node.expandChildren && !share && node.scrollMode == 1)
            node.dynamic.x = std::max(node.dynamic.x, preferred);
        node.dynamic.x = std::max(node.dynamic.x, node.dynamic.minX);
        return;
    }
    node.expandWidth = node.parent && node.parent->expandChildren;
    node.dynamic.unitX = share ? percent : pixels;
    node.dynamic.x = share ? share : preferred;
}

std::vector<node*> sheetsOf(node const& tabs)
{
    std::vector<node*> sheets;
    for (entry const& each : tabs.children)
        if (each.child && each.child->role == sheetContainer)
            sheets.push_back(each.child.get());
    return sheets;
}

int barHeight(node const& tabs) { return leafHeight(*tabs.children.front().child, 0); }

/// What is not shown has its width, so that there is room for it, and no height; what is folded has neither.
void computeAway(node& sheet)
{
    sheet.shownMinY = sheet.dynamic.minY;
    if (!sheet.isAway)
        return;
    if (sheet.role == foldedContainer) {
        sheet.dynamic = {};
        sheet.dynamic.unitX = pixels;
        sheet.expandWidth = false;
    }
    sheet.dynamic.unitY = pixels;
    sheet.dynamic.y = sheet.dynamic.minY = 0;
    sheet.expandHeight = false;
}

void computeDynamic(node& node)
{
    if (node.role == foldedContainer && node.isAway)
        return computeAway(node);
    node.dynamic = node.fixed;
    if (node.kind == menuLeaf) { // no room where its tag stands
        node.dynamic = {};
        node.dynamic.unitX = pixels;
        return;
    }
    readCaption(node);
    if (node.type == 7) {
        if (node.fixed.unitX == pixels)
            node.dynamic.minX = node.fixed.x;
        if (node.fixed.unitY == pixels)
            node.dynamic.minY = node.fixed.y;
    }
    std::vector<int> heights;
    int widest = 0;
    for (layer const& row : layersOf(node)) {
        int width = dividers(node, row);
        int height = 0;
        for (second::node* cell : row.cells) {
            computeDynamic(*cell);
            width += cell->dynamic.minX;
            height = std::max(height, cell->dynamic.minY);
        }
        normalisePercents(row);
        heights.push_back(height);
        widest = std::max(widest, width);
    }
    if (node.scrollMode == 1) {
        node.dynamic.minX = std::max(node.dynamic.minX, widest + node.frame());
        node.dynamic.minY = std::max(node.dynamic.minY, stacked(node, heights) + node.frame() + node.captionHeight);
    }
    node.expandWidth = node.expandHeight = false;
    requestWidth(node);
    if (node.fixed.unitY == unbound && node.parent && node.parent->fixed.unitY != unbound)
        node.expandHeight = node.parent->expandChildren;
    if (node.kind == barLeaf)
        node.dynamic.minX = std::max(node.dynamic.minX, leastBarWidth(node));
    if (node.role == sheetContainer || node.role == foldedContainer)
        computeAway(node);
    for (second::node* sheet : sheetsOf(node))
        node.dynamic.minY = std::max(node.dynamic.minY, sheet->shownMinY + barHeight(node) + node.frame());
}

// --- panes -----------------------------------------------------------------------------------------------------------

std::vector<node*> panesOf(node const& splitter)
{
    std::vector<node*> panes;
    for (entry const& each : splitter.children)
        if (each.child && each.child->type == 0)
            panes.push_back(each.child.get());
    return panes;
}

/// The sizes of panes in so much room: what they ask for; those that ask for nothing share the rest, or give it up.
std::vector<int> paneSizes(node const& splitter, int inner)
{
    constexpr int kLeast = 16;
    constexpr int kDivider = 7;
    auto panes = panesOf(splitter);
    int room = inner - (std::max<int>(1, static_cast<int>(panes.size())) - 1) * kDivider;
    int const whole = std::max(room, 0);
    std::vector<int> sizes, least;
    std::vector<std::size_t> open, closed;
    for (std::size_t i = 0; i < panes.size(); ++i) {
        auto [which, size] = splitter.columnList[i];
        least.push_back(std::max(kLeast, splitter.isStacked ? panes[i]->dynamic.minY : panes[i]->dynamic.minX));
        sizes.push_back(std::max(least[i], which == percent ? whole * size / 100 : size));
        (which == unbound ? open : closed).push_back(i);
        room -= sizes[i];
    }
    for (std::size_t i = 0; i < open.size() && room > 0; ++i) {
        int share = room / static_cast<int>(open.size() - i);
        sizes[open[i]] += share;
        room -= share;
    }
    if (room > 0 && !sizes.empty())
        sizes.back() += room;
    for (auto const& list : {open, closed})
        for (auto at = list.rbegin(); at != list.rend() && room < 0; ++at) {
            int taken = std::min(-room, sizes[*at] - least[*at]);
            sizes[*at] -= taken;
            room += taken;
        }
    return sizes;
}

void askForPanes(node& splitter, int inner)
{
    std::vector<int> sizes = paneSizes(splitter, inner);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        node& pane = *panesOf(splitter)[i];
        pane.expandWidth = false;
        pane.dynamic.unitX = pixels;
        pane.dynamic.x = sizes[i];
    }
}

// --- top-down: widths ------------------------------------------------------------------------------------------------

/// The first pass over a row: minima and percentages. The result is what they use.
int grantFirst(layer const& row, int room)
{
    int used = 0;
    int sum = 0;
    for (node* cell : row.cells) {
        cell->cx = 0;
        if (!cell->expandWidth && cell->dynamic.unitX == percent) {
            sum += cell->dynamic.x;
            cell->cx = sum <= 99 ? room * cell->dynamic.x / 100 : room - used;
        }
        cell->cx = std::max(cell->cx, cell->dynamic.minX);
        used += cell->cx;
    }
    return used;
}

void shareSpare(layer const& row, int spare)
{
    std::vector<node*> wanting, expanding;
    int want = 0;
    for (node* cell : row.cells) {
        if (cell->expandWidth) {
            expanding.push_back(cell);
        } else if (cell->dynamic.unitX != percent && cell->dynamic.x > cell->cx) {
            wanting.push_back(cell);
            want += cell->dynamic.x - cell->cx;
        }
    }
    if (want > spare) {
        int given = 0;
        for (node* cell : wanting) {
            int deficit = cell->dynamic.x - cell->cx;
            int share = cell == wanting.back() ? spare - given
                                               : static_cast<int>(static_cast<long long>(spare) * deficit / want);
            share = std::min(share, deficit);
            cell->cx += share;
            given += share;
        }
        return;
    }
    for (node* cell : wanting)
        cell->cx = cell->dynamic.x;
    int rest = spare - want;
    int const even = expanding.empty() ? 0 : rest / static_cast<int>(expanding.size());
    for (node* cell : expanding) {
        cell->cx += cell == expanding.back() ? rest : even;
        rest -= even;
    }
}

/// The verdict about one scroll bar.
void decideBar(node const& node, bool* bar, int* range, int content, int room)
{
    *bar = content > room && node.scrollMode == 0 && room > kLeastForBar;
    *range = *bar ? content - room : 0;
}

void updateWidths(node& node)
{
    int room = node.cx - node.frame() - (node.barY ? barWidth() : 0);
    int widest = 0;
    if (node.role == splitContainer && !node.isStacked)
        askForPanes(node, room);
    for (layer const& row : layersOf(node)) {
        if (row.cells.empty())
            continue;
        int rowRoom = room - dividers(node, row);
        int used = grantFirst(row, rowRoom);
        if (used < rowRoom)
            shareSpare(row, rowRoom - used);
        widest = std::max(widest, used + dividers(node, row));
        for (second::node* cell : row.cells)
            if (!cell->isAway)
                updateWidths(*cell);
    }
    decideBar(node, &node.barX, &node.rangeX, widest, room);
}

// --- top-down: heights -----------------------------------------------------------------------------------------------

/// The height of a node as wide as it is now.
int estimate(node const& node);

void forgetWidths(node& of)
{
    for (entry const& each : of.children)
        if (each.child) {
            each.child->cx = 0;
            forgetWidths(*each.child);
        }
}

/// The height of a sheet that is not shown, as if it was.
int awayHeight(node& sheet)
{
    updateWidths(sheet);
    int height = estimate(sheet);
    forgetWidths(sheet);
    return height;
}

/// As high as the tab that is highest.
int tabsHeight(node const& tabs)
{
    int highest = 0;
    for (second::node* sheet : sheetsOf(tabs))
        highest = std::max({highest, sheet->isAway ? awayHeight(*sheet) : estimate(*sheet), sheet->shownMinY});
    return highest + barHeight(tabs) + tabs.frame();
}

int estimate(node const& node)
{
    if (node.kind != noLeaf)
        return leafHeight(node, node.cx);
    if (node.role == tabsContainer)
        return tabsHeight(node);
    std::vector<int> heights;
    for (layer const& row : layersOf(node)) {
        int height = 0;
        for (second::node* cell : row.cells) {
            int own = cell->dynamic.unitY == pixels ? cell->dynamic.y : estimate(*cell);
            height = std::max({height, own, cell->dynamic.minY});
        }
        heights.push_back(height);
    }
    return stacked(node, heights) + node.frame() + node.captionHeight;
}

int heightOf(node const& cell, int available)
{
    if (cell.dynamic.unitY == pixels)
        return cell.dynamic.y;
    if (cell.dynamic.unitY == percent)
        return std::max(available, 0) * cell.dynamic.y / 100;
    return estimate(cell);
}

bool isShared(node const& frame) { return frame.dynamic.unitY == unbound; }

/// Rows of "*" share what the others leave, the last one with the remainder.
void shareFrameRows(node& set, int room)
{
    auto rows = layersOf(set);
    int left = std::max(room, 0) - (static_cast<int>(rows.size()) - 1) * set.divide;
    std::vector<layer> shared;
    for (layer const& row : rows) {
        int height = 0;
        bool shares = false;
        for (second::node* frame : row.cells) {
            shares = shares || isShared(*frame);
            height = std::max(height, isShared(*frame) ? 0 : std::max(heightOf(*frame, room), frame->dynamic.minY));
        }
        if (shares)
            shared.push_back(row);
        else
            left -= height;
    }
    left = std::max(left, 0);
    for (std::size_t i = 0; i < shared.size(); ++i) {
        int each = left / static_cast<int>(shared.size());
        int share = i + 1 < shared.size() ? each : left - each * (static_cast<int>(shared.size()) - 1);
        for (second::node* frame : shared[i].cells)
            if (isShared(*frame))
                frame->cy = std::max(share, frame->dynamic.minY);
    }
}

int innerHeight(node const& node) { return node.cy - node.frame() - (node.barX ? barWidth() : 0) - node.captionHeight; }

std::vector<int> rowHeights(node const& node)
{
    std::vector<int> heights;
    for (layer const& row : layersOf(node)) {
        heights.push_back(0);
        for (second::node* cell : row.cells)
            heights.back() = std::max(heights.back(), cell->cy);
    }
    return heights;
}

/// The tab that is shown has what the bar leaves, and panes what they share.
void placeParts(node& node, int room)
{
    for (second::node* sheet : sheetsOf(node))
        if (!sheet->isAway)
            sheet->cy = std::max({0, std::max(room, 0) - barHeight(node), sheet->dynamic.minY});
    if (node.role != splitContainer || !node.isStacked)
        return;
    std::vector<int> sizes = paneSizes(node, room);
    for (std::size_t i = 0; i < sizes.size(); ++i)
        panesOf(node)[i]->cy = std::max(sizes[i], panesOf(node)[i]->dynamic.minY);
}

void updateHeights(node& node)
{
    int room = innerHeight(node);
    for (entry const& each : node.children)
        if (each.child)
            each.child->cy = std::max(heightOf(*each.child, room), each.child->dynamic.minY);
    if (node.type == 6)
        shareFrameRows(node, room);
    placeParts(node, room);
    for (entry const& each : node.children)
        if (each.child && !each.child->isAway)
            updateHeights(*each.child);
    int content = 0;
    bool gap = false;
    auto layers = layersOf(node);
    auto heights = rowHeights(node);
    for (std::size_t i = 0; i < layers.size(); ++i) {
        content += (i ? node.divide : 0) + (gap ? kParagraphGap : 0) + heights[i];
        gap = layers[i].endsParagraph;
    }
    decideBar(node, &node.barY, &node.rangeY, content, room);
}

/// Text, pictures and controls of one line are placed by the alignment of a cell that grows.
bool keepsHeight(node const& node)
{
    switch (node.kind) {
    case noLeaf:
    case flexLeaf:
        return false;
    case editLeaf:
    case listLeaf:
        return node.rows <= 1;
    default:
        return true;
    }
}

void growWithParent(node& child)
{
    if (layersOf(child).size() != 1)
        return;
    for (entry const& each : child.children)
        if (each.child && !keepsHeight(*each.child)) {
            each.child->cy = child.cy;
            updateHeights(*each.child);
        }
}

void shareHeight(node& node)
{
    int spare = innerHeight(node) - stacked(node, rowHeights(node));
    std::vector<layer> springy;
    for (layer const& row : layersOf(node))
        if (std::any_of(row.cells.begin(), row.cells.end(), [](second::node* cell) { return cell->expandHeight; }))
            springy.push_back(row);
    if (spare <= 0 || springy.empty())
        return;
    int const even = spare / static_cast<int>(springy.size());
    for (std::size_t i = 0; i < springy.size(); ++i) {
        int share = i + 1 == springy.size() ? spare : even;
        spare -= share;
        for (second::node* cell : springy[i].cells)
            if (cell->expandHeight) {
                cell->cy += share;
                growWithParent(*cell);
            }
    }
}

void updateSpringy(node& node)
{
    if (node.expandChildren)
        shareHeight(node);
    for (entry const& each : node.children)
        if (each.child && !each.child->isAway)
            updateSpringy(*each.child);
}

bool hasMenu(node const& node)
{
    return node.kind == menuLeaf || std::any_of(node.children.begin(), node.children.end(),
                                                [](entry const& each) { return each.child && hasMenu(*each.child); });
}

std::vector<bool> barsOf(node const& node)
{
    std::vector<bool> bars{node.barX, node.barY};
    for (entry const& each : node.children)
        if (each.child)
            for (bool bar : barsOf(*each.child))
                bars.push_back(bar);
    return bars;
}

// --- places ----------------------------------------------------------------------------------------------------------

int offsetFor(int align, int spare)
{
    if (spare <= 0 || align == 0)
        return 0;
    return align == 1 ? spare / 2 : spare;
}

/// Top of each layer, and behind them the height of all.
std::vector<int> layerTops(node const& node)
{
    auto layers = layersOf(node);
    auto heights = rowHeights(node);
    std::vector<int> tops;
    int y = 0;
    bool gap = false;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        y += (y ? node.divide : 0) + (gap ? kParagraphGap : 0);
        tops.push_back(y);
        y += heights[i];
        gap = layers[i].endsParagraph;
    }
    tops.push_back(y);
    return tops;
}

void place(node& node)
{
    auto layers = layersOf(node);
    auto tops = layerTops(node);
    int innerX = node.width - node.frame() - (node.barY ? barWidth() : 0);
    int down = offsetFor(node.alignY, innerHeight(node) - tops.back());
    for (std::size_t i = 0; i < layers.size(); ++i) {
        int width = dividers(node, layers[i]);
        for (second::node* cell : layers[i].cells)
            width += cell->cx;
        int x = node.border + node.space + offsetFor(layers[i].align, innerX - width);
        for (second::node* cell : layers[i].cells) {
            cell->left = x;
            cell->top = node.menuHeight + node.border + node.space + down + tops[i] + node.captionHeight;
            cell->width = cell->cx;
            cell->height = cell->cy;
            x += cell->cx + node.divide;
            if (!cell->isAway)
                place(*cell);
        }
    }
}

} // namespace

int preferredWidth(node const& node)
{
    if (node.kind != noLeaf)
        return leafWidth(node);
    int widest = 0;
    int share = 0;
    for (layer const& row : layersOf(node)) {
        int width = dividers(node, row);
        int percents = 0;
        for (second::node* cell : row.cells)
            (cell->dynamic.unitX == percent ? percents : width) += cell->dynamic.x;
        widest = std::max(widest, width);
        share = std::max(share, percents);
    }
    return share ? -share : node.frame() + widest;
}

void layOut(node& root, int width, int height)
{
    computeDynamic(root);
    root.width = root.cx = width;
    root.height = height;
    root.menuHeight = hasMenu(root) ? menuHeight() : 0; // the bar is above the page
    root.cy = height - root.menuHeight;
    // Bars that come and go with each other settle in no number of rounds; no stored page has such.
    constexpr int kMostRounds = 8;
    std::vector<bool> before;
    for (int i = 0; i < kMostRounds && before != barsOf(root); ++i) {
        before = barsOf(root);
        updateWidths(root);
        updateHeights(root);
        updateSpringy(root);
    }
    place(root);
}

} // namespace second
