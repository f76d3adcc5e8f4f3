// page/guizoom.cpp: see guizoom.h.
#include "page/guizoom.h"

#include "foundation/vela-threadrole.h"
#include "page/guifontepoch.h"
#include "page/guihtml.h"
#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guiunzoomed.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <list>
#include <utility>

namespace {

using length = guiUnzoomed::length;

/// The length at another zoom; `now` is what the node has, at the zoom `from`.
int rescaled(length& known, int now, unsigned from, unsigned to)
{
    if (now != known.shown)
        known.written = guiUnzoomedLength(now, from);
    known.shown = to == kUnzoomed ? known.written : guiZoomedLength(known.written, to);
    return known.shown;
}

/// What the node has, as it is before it is zoomed for the first time.
guiUnzoomed asWritten(guiHtml::fields_t const& fields)
{
    auto const same = [](auto value) { return length{static_cast<int>(value), static_cast<int>(value)}; };
    guiHtml::sizes_t const& fixed = fields.fixed;
    return {same(fixed.cxMin),  same(fixed.cyMin),   same(fixed.x),       same(fixed.y),
            same(fields.space), same(fields.divide), same(fields.border), same(fields.padding)};
}

bool hasLengths(guiHtml::fields_t const& fields)
{
    guiHtml::sizes_t const& fixed = fields.fixed;
    return fixed.cxMin != 0 || fixed.cyMin != 0 || (fixed.unitX == kUnitPixels && fixed.x != 0) ||
           (fixed.unitY == kUnitPixels && fixed.y != 0) || fields.space != 0 || fields.divide != 0 ||
           fields.border != 0;
}

bool isRoot(guiHtml* node) { return !node->m.parent && node->getType() == guiHtml::kTypeBase; }

/// A page that fits its window as it is written may not fit it any more.
void makeScroll(guiHtml::fields_t& fields, guiUnzoomed& known, bool isEnlarged)
{
    if (isEnlarged && fields.scrollMode == kPolicyResize) {
        fields.scrollMode = kPolicyScroll;
        known.isMadeToScroll = true;
    } else if (!isEnlarged && std::exchange(known.isMadeToScroll, false)) {
        fields.scrollMode = kPolicyResize;
    }
}

void rescale(guiHtml::fields_t& fields, guiUnzoomed& known, unsigned to)
{
    unsigned const from = fields.zoom;
    auto const at = [from, to](length& each, auto now) { return rescaled(each, static_cast<int>(now), from, to); };
    guiHtml::sizes_t& fixed = fields.fixed;
    fixed.cxMin = at(known.cxMin, fixed.cxMin);
    fixed.cyMin = at(known.cyMin, fixed.cyMin);
    if (fixed.unitX == kUnitPixels)
        fixed.x = static_cast<unsigned>(at(known.x, fixed.x));
    if (fixed.unitY == kUnitPixels)
        fixed.y = static_cast<unsigned>(at(known.y, fixed.y));
    fields.space = at(known.space, fields.space);
    fields.divide = at(known.divide, fields.divide);
    fields.border = at(known.border, fields.border);
    constexpr int kMost = std::numeric_limits<std::uint16_t>::max();
    fields.padding = static_cast<std::uint16_t>(std::clamp(at(known.padding, fields.padding), 0, kMost));
}

void tellAll(guiHtml* node)
{
    node->onLookChange();
    for (guiHtml* child : guiNodesOf(node))
        tellAll(child);
}

/// A scrolled node, and where its view begins.
struct scrolledPlace
{
    scrolledPlace(guiHtml* node, double above) : scrolled(node), share(above) {}

    guiNodeWatch scrolled;
    double share; // of the height of the content that is above the view
};

/// How high what a node scrolls is, in pixels.
double contentHeight(guiHtml* node)
{
    guiHtml::scroll_t const& scroll = node->getScroll();
    return std::max(1.0, static_cast<double>(scroll.rangeY) + node->m.rect.height);
}

void findPlaces(guiHtml* node, std::list<scrolledPlace>& found)
{
    if (node->isScrolled() && node->getScroll().posY != 0)
        found.emplace_back(node, node->getScroll().posY / contentHeight(node));
    for (guiHtml* child : guiNodesOf(node))
        findPlaces(child, found);
}

void scrollTo(scrolledPlace const& place)
{
    guiHtml* const node = place.scrolled.get();
    if (node && node->isScrolled())
        node->onScrollY(static_cast<int>(std::lround(place.share * contentHeight(node))));
}

} // namespace

void guiZoomNode(guiHtml* node, unsigned percent)
{
    assertOnGuiThread();
    if (node->m.zoom == percent)
        return;
    bool const isPage = isRoot(node);
    if (isPage || hasLengths(node->m)) {
        guiUnzoomed const* before = node->getUnzoomed();
        guiUnzoomed known = before ? *before : node->m.zoom == kUnzoomed ? asWritten(node->m) : guiUnzoomed();
        rescale(node->m, known, percent);
        if (isPage)
            makeScroll(node->m, known, percent > kUnzoomed);
        node->setUnzoomed(percent == kUnzoomed ? std::nullopt : std::optional(known));
    }
    node->m.zoom = static_cast<std::uint16_t>(percent);
    guiFontEpoch::advance();
    guiLayoutRun::startAnew();
}

void guiZoomTree(guiHtml* node, unsigned percent)
{
    guiZoomNode(node, percent);
    for (guiHtml* child : guiNodesOf(node))
        guiZoomTree(child, percent);
}

void guiRefreshLook(guiPageRoot& page)
{
    assertOnGuiThread();
    guiFontEpoch::advance();
    guiLayoutRun::startAnew();
    tellAll(&page);
    page.updateLayout(1);
}

void guiZoomPage(guiPageRoot& page, unsigned percent)
{
    assertOnGuiThread();
    unsigned const wanted = std::clamp<unsigned>(percent, kLeastZoom, kMostZoom);
    if (wanted == page.m.zoom)
        return;
    std::list<scrolledPlace> places;
    findPlaces(&page, places);
    guiNodeWatch const self(&page);
    guiZoomTree(&page, wanted);
    guiRefreshLook(page);
    for (scrolledPlace const& place : places)
        if (self.alive())
            scrollTo(place);
}
