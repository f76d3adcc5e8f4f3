// tests/page/referencelayout.cpp: see referencelayout.h.
#include "tests/page/referencelayout.h"

#include <QScrollBar>

#include <algorithm>

struct referenceLayout::box
{
    pixels cxMin = 0;
    pixels cyMin = 0;
    guiSizeUnit unitX = kUnitUnbound;
    guiSizeUnit unitY = kUnitUnbound;
    pixels x = 0;
    pixels y = 0;
    bool expandWidth = false;
    bool expandHeight = false;
    pixels cx = 0;
    pixels cy = 0;
    pixels captionHeight = 0;
    bool barX = false;
    bool barY = false;
    bool hadBarX = false; // when the run began
    bool hadBarY = false;
    bool lostBarX = false; // in an earlier run
    bool lostBarY = false;
    pixels rangeX = 0;
    pixels rangeY = 0;
    guiRect rect;
};

/// Sum of layer heights; the gap below a paragraph may depend on the layer having a height.
struct referenceLayout::stack
{
    pixels divide = 0;
    bool gapNeedsHeight = false;
    pixels total = 0;
    bool isFirst = true;
    bool gap = false;

    void add(pixels height, bool endsParagraph)
    {
        total += (isFirst ? 0 : divide) + (gap ? 12 : 0) + height;
        isFirst = false;
        gap = endsParagraph && (height != 0 || !gapNeedsHeight);
    }
};

referenceLayout::~referenceLayout() = default;

referenceLayout::referenceLayout(guiHtml* root, int width, int height) : m_root(root)
{
    m_barWidth = QScrollBar(Qt::Vertical).sizeHint().width();
    m_barHeight = QScrollBar(Qt::Horizontal).sizeHint().height();
    need(root);
    of(root).cx = width;
    of(root).cy = height;
    of(root).rect = {0, width, 0, height};
    do {
        for (auto& [node, own] : m_boxes) {
            own.lostBarX = own.lostBarX || (own.hadBarX && !own.barX);
            own.lostBarY = own.lostBarY || (own.hadBarY && !own.barY);
            own.hadBarX = own.barX;
            own.hadBarY = own.barY;
        }
        giveWidths(root);
        giveHeights(root);
        giveSpareHeight(root);
    } while (std::any_of(m_boxes.begin(), m_boxes.end(), [](auto const& each) {
        return each.second.barX != each.second.hadBarX || each.second.barY != each.second.hadBarY;
    }));
    place(root);
}

// A bar that took part in a whole run stays while there is room for one; one that went in a run does not come back.
void referenceLayout::decideBar(guiHtml const* node, bool* bar, barPast past, pixels* range, pixels content,
                                pixels room)
{
    auto const [had, lost] = past;
    bool const isNeeded = content > room && node->m.scrollMode == kPolicyScroll && room > 31 && !lost;
    *bar = isNeeded || (had && room > 31);
    *range = isNeeded ? content - room : 0;
}

referenceLayout::box& referenceLayout::of(guiHtml const* node) { return m_boxes[node]; }

std::vector<referenceLayout::row> referenceLayout::rowsOf(guiHtml const* node)
{
    std::vector<row> rows;
    bool isOpen = false;
    guiAlignment align = node->m.alignX;
    for (guiHtml* entry : node->m.children) {
        if (guiChildList::isNode(entry)) {
            if (!isOpen)
                rows.push_back({{}, false, align});
            rows.back().nodes.push_back(entry);
            isOpen = true;
            continue;
        }
        guiMarker const marker = guiChildList::toMarker(entry);
        if (marker == kMarkerParagraph && isOpen)
            rows.back().endsParagraph = true;
        else if (marker == kMarkerParagraph)
            rows.push_back({{}, true, align});
        else if (marker >= kMarkerAlignLeft && marker <= kMarkerAlignRight)
            align = static_cast<guiAlignment>(marker - kMarkerAlignLeft);
        isOpen = false;
    }
    return rows;
}

referenceLayout::pixels referenceLayout::dividers(guiHtml const* node, row const& of)
{
    return of.nodes.empty() ? 0 : static_cast<pixels>(of.nodes.size() - 1) * node->m.divide;
}

bool referenceLayout::isLeaf(guiHtml* node)
{
    int const type = node->getType();
    return type != guiHtml::kTypePlain && type != guiHtml::kTypeBase && type != guiHtml::kTypeForm;
}

referenceLayout::pixels referenceLayout::innerWidth(guiHtml const* node, pixels width)
{
    return width - 2 * node->m.border - 2 * node->m.space - (of(node).barY ? m_barWidth : 0);
}

referenceLayout::pixels referenceLayout::innerHeight(guiHtml const* node, pixels height)
{
    return height - 2 * node->m.border - 2 * node->m.space - (of(node).barX ? m_barHeight : 0) - of(node).captionHeight;
}

// ---- Bottom-up ----

void referenceLayout::need(guiHtml* node)
{
    box& own = of(node);
    auto const& fixed = node->m.fixed;
    own.cxMin = fixed.cxMin;
    own.cyMin = fixed.cyMin;
    own.unitX = fixed.unitX;
    own.unitY = fixed.unitY;
    own.x = fixed.x;
    own.y = fixed.y;
    own.captionHeight = node->getCaptionHeight(); // a matter of fonts, pinned elsewhere

    stack heights{node->m.divide, true};
    pixels widest = 0;
    for (row const& layer : rowsOf(node)) {
        pixels width = dividers(node, layer);
        pixels height = 0;
        for (guiHtml* child : layer.nodes) {
            need(child);
            width += of(child).cxMin;
            height = std::max(height, of(child).cyMin);
        }
        normalize(layer);
        heights.add(height, layer.endsParagraph);
        widest = std::max(widest, width);
    }
    pixels const frame = 2 * (node->m.border + node->m.space);
    if (node->m.scrollMode == kPolicyResize) {
        own.cxMin = std::max(own.cxMin, widest + frame);
        own.cyMin = std::max(own.cyMin, heights.total + frame + own.captionHeight);
    }

    guiHtml const* parent = node->m.parent;
    pixels const liked = own.unitX == kUnitPercent ? 0 : preferred(node);
    if (own.unitX == kUnitPixels) {
        if (!node->m.expandChildren && liked >= 0 && node->m.scrollMode == kPolicyResize)
            own.x = std::max(own.x, liked);
        own.x = std::max(own.x, own.cxMin);
    } else if (own.unitX == kUnitUnbound) {
        own.expandWidth = parent && parent->m.expandChildren;
        own.unitX = liked < 0 ? kUnitPercent : kUnitPixels;
        own.x = liked < 0 ? -liked : liked;
    }
    if (own.unitY == kUnitUnbound && parent && parent->m.fixed.unitY != kUnitUnbound)
        own.expandHeight = parent->m.expandChildren;
}

void referenceLayout::normalize(row const& layer)
{
    std::vector<box*> percents;
    pixels sum = 0;
    for (guiHtml* child : layer.nodes)
        if (of(child).unitX == kUnitPercent) {
            percents.push_back(&of(child));
            sum += of(child).x;
        }
    if (sum <= 100)
        return;
    pixels others = 0;
    for (std::size_t i = 0; i + 1 < percents.size(); ++i)
        others += percents[i]->x = percents[i]->x * 100 / sum;
    percents.back()->x = 100 - others;
}

referenceLayout::pixels referenceLayout::preferred(guiHtml* node)
{
    if (isLeaf(node))
        return node->getPreferredWidth();
    pixels fixed = 0;
    pixels percent = 0;
    for (row const& layer : rowsOf(node)) {
        pixels layerFixed = dividers(node, layer);
        pixels layerPercent = 0;
        for (guiHtml* child : layer.nodes)
            (of(child).unitX == kUnitPixels ? layerFixed : layerPercent) += of(child).x;
        fixed = std::max(fixed, layerFixed);
        percent = std::max(percent, layerPercent);
    }
    return percent ? -percent : 2 * (node->m.border + node->m.space) + fixed;
}

// ---- Top-down ----

std::vector<referenceLayout::pixels> referenceLayout::share(guiHtml* node, row const& layer, pixels room, pixels* least)
{
    pixels const width = room - dividers(node, layer);
    std::size_t const count = layer.nodes.size();
    std::vector<pixels> shares(count);
    auto at = [&](std::size_t i) -> box const& { return of(layer.nodes[i]); };
    pixels used = 0;
    pixels percents = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (!at(i).expandWidth && at(i).unitX == kUnitPercent) {
            percents += at(i).x;
            shares[i] = percents <= 99 ? width * at(i).x / 100 : width - used;
        }
        shares[i] = std::max<pixels>({shares[i], at(i).cxMin, 0});
        used += shares[i];
    }
    if (least)
        *least = used + dividers(node, layer);
    if (used < width)
        spread(layer, shares, width - used);
    return shares;
}

/// What is left over goes to the nodes that want more, and then to those that expand.
void referenceLayout::spread(row const& layer, std::vector<pixels>& shares, pixels spare)
{
    std::size_t const count = layer.nodes.size();
    auto at = [&](std::size_t i) -> box const& { return of(layer.nodes[i]); };
    auto wants = [&](std::size_t i) {
        bool const isOne = !at(i).expandWidth && at(i).unitX != kUnitPercent;
        return isOne ? std::max<pixels>(0, at(i).x - shares[i]) : 0;
    };
    pixels want = 0;
    std::size_t lastWanting = count;
    std::size_t lastExpanding = count;
    pixels expanding = 0;
    for (std::size_t i = 0; i < count; ++i) {
        want += wants(i);
        if (wants(i) > 0)
            lastWanting = i;
        if (at(i).expandWidth) {
            ++expanding;
            lastExpanding = i;
        }
    }
    pixels left = spare;
    if (want > spare) {
        for (std::size_t i = 0; i < count; ++i) {
            pixels const own = i == lastWanting ? std::min(left, wants(i)) : spare * wants(i) / want;
            shares[i] += own;
            left -= own;
        }
        return;
    }
    left -= want;
    pixels const each = expanding ? left / expanding : 0;
    for (std::size_t i = 0; i < count; ++i) {
        shares[i] += wants(i);
        if (at(i).expandWidth) {
            shares[i] += i == lastExpanding ? left : each;
            left -= each;
        }
    }
}

referenceLayout::pixels referenceLayout::estimate(guiHtml* node, pixels width)
{
    if (isLeaf(node))
        return node->getHeightEstimate(static_cast<unsigned long>(std::max<pixels>(width, 0)));
    stack heights{node->m.divide, true};
    for (row const& layer : rowsOf(node)) {
        std::vector<pixels> const widths = share(node, layer, innerWidth(node, width), nullptr);
        pixels height = 0;
        for (std::size_t i = 0; i < layer.nodes.size(); ++i) {
            box const child = of(layer.nodes[i]);
            pixels const own = child.unitY == kUnitPixels ? child.y : estimate(layer.nodes[i], widths[i]);
            height = std::max({height, own, child.cyMin});
        }
        heights.add(height, layer.endsParagraph);
    }
    return heights.total + 2 * (node->m.border + node->m.space) + of(node).captionHeight;
}

void referenceLayout::giveWidths(guiHtml* node)
{
    pixels const room = innerWidth(node, of(node).cx);
    pixels content = 0;
    for (row const& layer : rowsOf(node)) {
        pixels least = 0;
        std::vector<pixels> const widths = share(node, layer, room, &least);
        for (std::size_t i = 0; i < layer.nodes.size(); ++i)
            of(layer.nodes[i]).cx = widths[i];
        content = std::max(content, least);
    }
    for (guiHtml* child : guiNodesOf(node))
        giveWidths(child);
    decideBar(node, &of(node).barX, {of(node).hadBarX, of(node).lostBarX}, &of(node).rangeX, content, room);
}

referenceLayout::pixels referenceLayout::tallest(row const& layer)
{
    pixels height = 0;
    for (guiHtml* child : layer.nodes)
        height = std::max(height, of(child).cy);
    return height;
}

void referenceLayout::giveHeights(guiHtml* node)
{
    pixels const room = innerHeight(node, of(node).cy);
    stack content{node->m.divide, false};
    for (row const& layer : rowsOf(node)) {
        for (guiHtml* child : layer.nodes) {
            box& own = of(child);
            pixels height = own.y;
            if (own.unitY == kUnitPercent)
                height = std::max<pixels>(room, 0) * own.y / 100;
            else if (own.unitY == kUnitUnbound)
                height = estimate(child, own.cx);
            own.cy = std::max<pixels>({height, own.cyMin, 0});
        }
        content.add(tallest(layer), layer.endsParagraph);
    }
    for (guiHtml* child : guiNodesOf(node))
        giveHeights(child);
    decideBar(node, &of(node).barY, {of(node).hadBarY, of(node).lostBarY}, &of(node).rangeY, content.total, room);
}

void referenceLayout::giveSpareHeight(guiHtml* node)
{
    auto isSpringy = [this](guiHtml* child) { return of(child).expandHeight; };
    stack content{node->m.divide, true};
    std::vector<std::vector<guiHtml*>> springs;
    for (row const& layer : rowsOf(node)) {
        content.add(tallest(layer), layer.endsParagraph);
        std::vector<guiHtml*> growing;
        std::copy_if(layer.nodes.begin(), layer.nodes.end(), std::back_inserter(growing), isSpringy);
        if (!growing.empty())
            springs.push_back(growing);
    }
    pixels const spare = innerHeight(node, of(node).cy) - content.total;
    if (node->m.expandChildren && spare > 0 && !springs.empty()) {
        pixels const each = spare / static_cast<pixels>(springs.size());
        for (std::size_t i = 0; i < springs.size(); ++i)
            for (guiHtml* child : springs[i]) {
                bool const isLast = i + 1 == springs.size();
                of(child).cy += isLast ? spare - each * static_cast<pixels>(springs.size() - 1) : each;
                bool const isOneRow = rowsOf(child).size() == 1;
                for (guiHtml* below : guiNodesOf(child)) {
                    if (!isOneRow || below->keepsHeight())
                        continue;
                    of(below).cy = of(child).cy;
                    giveHeights(below);
                }
            }
    }
    for (guiHtml* child : guiNodesOf(node))
        giveSpareHeight(child);
}

void referenceLayout::place(guiHtml* node)
{
    box const own = of(node);
    auto offset = [](guiAlignment align, pixels size, pixels room) {
        if (size >= room || align == kAlignLeft)
            return pixels{0};
        return align == kAlignCenter ? (room - size) / 2 : room - size;
    };
    pixels content = 0;
    pixels y = 0;
    std::vector<pixels> tops;
    bool gap = false;
    for (row const& layer : rowsOf(node)) {
        y += (y != 0 ? node->m.divide : 0) + (gap ? 12 : 0);
        tops.push_back(y);
        content = y += tallest(layer);
        gap = layer.endsParagraph;
    }
    pixels const inset = node->m.border + node->m.space;
    pixels const top = inset + own.captionHeight + offset(node->m.alignY, content, innerHeight(node, own.rect.height));
    std::size_t at = 0;
    for (row const& layer : rowsOf(node)) {
        pixels width = dividers(node, layer);
        for (guiHtml* child : layer.nodes)
            width += of(child).cx;
        pixels left = inset + offset(layer.align, width, innerWidth(node, own.rect.width));
        for (guiHtml* child : layer.nodes) {
            box& inner = of(child);
            inner.rect = {static_cast<int>(left), static_cast<int>(inner.cx), static_cast<int>(top + tops[at]),
                          static_cast<int>(inner.cy)};
            left += inner.cx + node->m.divide;
            place(child);
        }
        ++at;
    }
}

// ---- Comparing ----

namespace {

std::string text(guiRect const& rect)
{
    return std::to_string(rect.width) + "x" + std::to_string(rect.height) + " at " + std::to_string(rect.left) + "," +
           std::to_string(rect.top);
}

} // namespace

std::string referenceLayout::difference() const { return differenceAt(m_root); }

std::string referenceLayout::differenceAt(guiHtml* node) const
{
    box const& own = m_boxes.at(node);
    std::string found;
    auto compare = [&](char const* what, auto seen, auto expected) {
        if (static_cast<pixels>(seen) != static_cast<pixels>(expected))
            found += std::string(" ") + what + " " + std::to_string(seen) + " not " + std::to_string(expected);
    };
    auto const& dynamic = node->m.dynamic;
    compare("cxMin", dynamic.cxMin, own.cxMin);
    compare("cyMin", dynamic.cyMin, own.cyMin);
    compare("X unit", int{dynamic.unitX}, int{own.unitX});
    compare("Y unit", int{dynamic.unitY}, int{own.unitY});
    compare("X", dynamic.x, own.x);
    compare("Y", dynamic.y, own.y);
    compare("expand width", int{node->m.expandWidth}, int{own.expandWidth});
    compare("expand height", int{node->m.expandHeight}, int{own.expandHeight});
    compare("active cx", node->m.activeCx, own.cx);
    compare("active cy", node->m.activeCy, own.cy);
    compare("horizontal bar", int{node->getScroll().barX != nullptr}, int{own.barX});
    compare("vertical bar", int{node->getScroll().barY != nullptr}, int{own.barY});
    compare("horizontal range", node->getScroll().rangeX, own.rangeX);
    compare("vertical range", node->getScroll().rangeY, own.rangeY);
    if (node->m.rect != own.rect)
        found += " rectangle " + text(node->m.rect) + " not " + text(own.rect);
    if (!found.empty())
        return "node of type " + std::to_string(node->getType()) + ":" + found;
    for (guiHtml* child : guiNodesOf(node))
        if (std::string below = differenceAt(child); !below.empty())
            return below;
    return "";
}
