// page/guipageroot.cpp: see guipageroot.h.
#include "page/guipageroot.h"

#include "foundation/vela-threadrole.h"
#include "page/guifontepoch.h"
#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"
#include "page/guizoom.h"

#include <algorithm>
#include <cmath>
#include <list>

namespace {

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

void guiPageRoot::refreshLook()
{
    assertOnGuiThread();
    guiFontEpoch::advance();
    guiLayoutRun::startAnew();
    tellAll(this);
    updateLayout(1);
}

void guiPageRoot::setZoom(unsigned percent)
{
    assertOnGuiThread();
    unsigned const wanted = std::clamp<unsigned>(percent, kLeastZoom, kMostZoom);
    if (wanted == m.zoom)
        return;
    std::list<scrolledPlace> places;
    findPlaces(this, places);
    guiNodeWatch const self(this);
    guiZoomTree(this, wanted);
    refreshLook();
    for (scrolledPlace const& place : places)
        if (self.alive())
            scrollTo(place);
}
