// page/guihtmlparser-objects.cpp: images, image maps, and object elements.
#include "page/guihtmlparser.h"

#include "controls/guihtmlcustom.h"
#include "controls/guihtmlimage.h"
#include "controls/guiimagemap.h"
#include "foundation/vela-mlparser.h"
#include "page/guinumbers.h"

#include <algorithm>
#include <cstdlib>
#include <map>

void guiHtmlParser::pullImageTag(guiHtml* parent, mlSection* section)
{
    appendLineBreak(parent);
    auto* image = new guiHtmlImage;
    appendGuiHtml(parent, image);
    pullImage(image, section);
    appendLineBreak(parent);
}

void guiHtmlParser::pullImage(guiHtmlImage* image, mlSection* section)
{
    pullName(image, section);
    pullMouseEvents(image, section);
    pullObjectAlignment(image, section);
    pullBackground(image, section);
    pullRestrict(image, section);
    pullBorder(image, section);
    image->setLink(pullAttr(section, "onclick"));
    image->setPlayback({hasAttr(section, "pause") || hasAttr(section, "paused"),
                        hasAttr(section, "loop") || hasAttr(section, "looped")});
    sstring map = pullAttr(section, "usemap");
    if (map.getLength()) {
        image->setMapName(map[0u] == '#' ? map.subString(1) : map);
        m_mappedImages.push_back(image);
    }
    sstring source = pullAttr(section, "src");
    if (source.getLength())
        image->setSource(source);
}

void guiHtmlParser::pullImageMap(guiHtml*, mlSection* section)
{
    m_maps.push_back(std::make_unique<guiImageMap>(pullAttr(section, "name")));
    // An area that is not closed contains the ones that follow it.
    std::vector<std::pair<mlSection*, unsigned>> path{{section, 0}};
    while (!path.empty()) {
        mlSection* item = path.back().first->getChild(path.back().second++);
        if (!item) {
            path.pop_back();
        } else if (item->isTag()) {
            path.emplace_back(item, 0);
            if (item->isNamed("area"))
                pullImageMapArea(m_maps.back().get(), item);
        }
    }
}

namespace {

/// Comma-separated whole numbers, limited so that shapes keep within 32 bits.
std::vector<int> readCoordinates(sstring const& list)
{
    constexpr std::size_t kMostCoordinates = 4096;
    std::vector<int> numbers;
    for (unsigned at = 0; at < list.getLength() && numbers.size() < kMostCoordinates;) {
        unsigned end = std::min(list.find(',', at), list.getLength());
        numbers.push_back(std::clamp(guiToNumber(list.subString(at, end - at)), -kMaxPixels, kMaxPixels));
        at = end + 1;
    }
    return numbers;
}

/// From one corner to the opposite one, in either order.
void addRectangle(guiImageMap* map, sstring const& link, std::vector<int> const& at)
{
    map->addRegion(guiImageMapRegion(link, std::min(at[0], at[2]), std::min(at[1], at[3]), std::abs(at[2] - at[0]),
                                     std::abs(at[3] - at[1])));
}

void addPolygon(guiImageMap* map, sstring const& link, std::vector<int> const& numbers)
{
    std::vector<int> xs;
    std::vector<int> ys;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
        xs.push_back(numbers[i]);
        ys.push_back(numbers[i + 1]);
    }
    map->addRegion(guiImageMapRegion(link, xs.data(), ys.data(), static_cast<int>(xs.size())));
}

} // namespace

void guiHtmlParser::pullImageMapArea(guiImageMap* map, mlSection* section)
{
    sstring shape = pullAttr(section, "shape");
    sstring link = pullAttr(section, "href");
    std::vector<int> at = readCoordinates(pullAttr(section, "coords"));
    if (guiIsWord(shape, "rect") && at.size() >= 4)
        addRectangle(map, link, at);
    else if (guiIsWord(shape, "circle") && at.size() >= 3)
        map->addRegion(guiImageMapRegion(link, at[0], at[1], at[2]));
    else if (guiIsWord(shape, "poly") && at.size() >= 6)
        addPolygon(map, link, at);
}

void guiHtmlParser::assignImageMap()
{
    auto before = [](sstring const& a, sstring const& b) { return a.comparei(b.getUnicode(), sstring::npos) < 0; };
    std::map<sstring, guiImageMap const*, decltype(before)> maps(before);
    for (auto const& map : m_maps)
        maps.emplace(map->getName(), map.get());
    for (guiHtmlImage* image : m_mappedImages) {
        auto found = maps.find(image->getMapName());
        if (found != maps.end())
            image->setImageMap(found->second->Clone());
    }
    m_mappedImages.clear();
    m_maps.clear();
}

void guiHtmlParser::pullObject(guiHtml* parent, mlSection* section)
{
    sstring kind = pullAttr(section, "classid");
    for (char const* list : {"flexlist", "checklist", "listview", "treeview"})
        if (guiIsWord(kind, list))
            return pullInputFlex(parent, section, kind);
    if (guiIsWord(kind, "menu"))
        return pullObjectMenu(parent, section);
    auto* custom = new guiHtmlCustom;
    pullControl(parent, custom, section);
    pullObjectAlignment(custom, section);
    pullBackground(custom, section);
    pullBorder(custom, section);
    custom->setCompName(kind);
    pullObjectParams(custom, section);
}

void guiHtmlParser::pullObjectParams(guiHtmlCustom* custom, mlSection* section)
{
    // A param that is not closed contains the ones that follow it.
    std::vector<std::pair<mlSection*, unsigned>> path{{section, 0}};
    while (!path.empty()) {
        mlSection* item = path.back().first->getChild(path.back().second++);
        if (!item) {
            path.pop_back();
        } else if (item->isTag()) {
            path.emplace_back(item, 0);
            if (item->isNamed("param"))
                custom->setParam(pullAttr(item, "name"), pullAttr(item, "value"));
        }
    }
}
