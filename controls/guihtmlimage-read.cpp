// controls/guihtmlimage-read.cpp: reads images and image maps, and gives each image its map when the page has been
// read.
#include "controls/guihtmlimage.h"
#include "controls/guihtmlread.h"
#include "controls/guiimagemap.h"
#include "page/guinumbers.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <map>
#include <memory>
#include <vector>

namespace {

/// The maps of one page and the images that name one, collected until the page has been read: an image may come before
/// its map.
class imageMaps : public guiReaderState
{
public:
    void finish() override { assignMaps(); }

    std::vector<std::unique_ptr<guiImageMap>> maps;
    std::vector<guiHtmlImage*> images; // not owned; nothing destroys them while the page is read

private:
    void assignMaps();
};

void imageMaps::assignMaps()
{
    auto before = [](sstring const& a, sstring const& b) { return a.comparei(b.getUnicode(), sstring::npos) < 0; };
    std::map<sstring, guiImageMap const*, decltype(before)> byName(before);
    for (auto const& map : maps)
        byName.emplace(map->getName(), map.get());
    for (guiHtmlImage* image : images) {
        auto found = byName.find(image->getMapName());
        if (found != byName.end())
            image->setImageMap(found->second->Clone());
    }
}

// ---- Images ----

void requestMap(guiHtmlParser& parser, guiHtmlImage* image, sstring const& map)
{
    if (map.getLength() == 0)
        return;
    image->setMapName(map[0u] == '#' ? map.subString(1) : map);
    parser.state<imageMaps>().images.push_back(image);
}

void pullImage(guiHtmlParser& parser, guiHtmlImage* image, mlSection* section)
{
    guiHtmlParser::pullName(image, section);
    guiHtmlParser::pullMouseEvents(image, section);
    guiHtmlParser::pullObjectAlignment(image, section);
    guiHtmlParser::pullBackground(image, section);
    guiHtmlParser::pullRestrict(image, section);
    guiHtmlParser::pullBorder(image, section);
    image->setLink(guiHtmlParser::hasAttr(section, "onclick") ? guiHtmlParser::pullAttr(section, "onclick")
                                                              : parser.getLink());
    image->setPlayback({guiHtmlParser::hasAttr(section, "pause") || guiHtmlParser::hasAttr(section, "paused"),
                        guiHtmlParser::hasAttr(section, "loop") || guiHtmlParser::hasAttr(section, "looped")});
    requestMap(parser, image, guiHtmlParser::pullAttr(section, "usemap"));
    parser.keepPlace(image, section);
    sstring source = guiHtmlParser::pullAttr(section, "src");
    if (source.getLength())
        image->setSource(source);
}

void pullImageTag(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    parser.appendLineBreak(parent);
    auto* image = new guiHtmlImage;
    parser.appendGuiHtml(parent, image);
    pullImage(parser, image, section);
    parser.appendLineBreak(parent);
}

void pullInputImage(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* image = new guiHtmlImage;
    parser.appendGuiHtml(parent, image);
    pullImage(parser, image, section);
    guiHtmlParser::pullTabIndex(image, section);
}

// ---- Maps ----

/// Comma-separated whole numbers, limited so that computing with them stays within 32 bits.
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

/// `at`: x and y of two opposite corners, in either order.
void addRectangle(guiImageMap* map, sstring const& link, std::vector<int> const& at)
{
    assert(at.size() >= 4);
    map->addRegion(guiImageMapRegion(link, std::min(at[0], at[2]), std::min(at[1], at[3]), std::abs(at[2] - at[0]),
                                     std::abs(at[3] - at[1])));
}

void addPolygon(guiImageMap* map, sstring const& link, std::vector<int> const& numbers)
{
    assert(numbers.size() >= 6); // three corners
    std::vector<int> xs;
    std::vector<int> ys;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
        xs.push_back(numbers[i]);
        ys.push_back(numbers[i + 1]);
    }
    map->addRegion(guiImageMapRegion(link, xs.data(), ys.data(), static_cast<int>(xs.size())));
}

bool isOneOf(sstring const& shape, char const* name, char const* otherName)
{
    return guiIsWord(shape, name) || guiIsWord(shape, otherName);
}

/// An area without a shape is a rectangle.
void pullImageMapArea(guiImageMap* map, mlSection* section)
{
    sstring const shape = guiHtmlParser::pullAttr(section, "shape");
    sstring const link = guiHtmlParser::pullAttr(section, "href");
    std::vector<int> const at = readCoordinates(guiHtmlParser::pullAttr(section, "coords"));
    if ((shape.getLength() == 0 || isOneOf(shape, "rect", "rectangle")) && at.size() >= 4)
        addRectangle(map, link, at);
    else if (isOneOf(shape, "circle", "circ") && at.size() >= 3)
        map->addRegion(guiImageMapRegion(link, at[0], at[1], at[2]));
    else if (isOneOf(shape, "poly", "polygon") && at.size() >= 6)
        addPolygon(map, link, at);
}

/// What an area is called.
sstring pullAreaText(mlSection* section)
{
    sstring const alt = guiHtmlParser::pullData(section, "alt");
    sstring const title = guiHtmlParser::pullData(section, "title");
    return alt.getLength() != 0 ? alt : title;
}

void pullImageMap(guiHtmlParser& parser, guiHtml*, mlSection* section)
{
    auto map = std::make_unique<guiImageMap>(guiHtmlParser::pullData(section, "name"));
    sstring rest; // the link of the picture outside of all other areas
    guiElementWalk walk(parser, section, {"area"});
    while (mlSection* area = walk.next()) {
        unsigned const before = map->getRegionCount();
        if (!guiIsWord(guiHtmlParser::pullAttr(area, "shape"), "default"))
            pullImageMapArea(map.get(), area);
        else if (rest.getLength() == 0)
            rest = guiHtmlParser::pullAttr(area, "href");
        sstring const text = pullAreaText(area);
        if (map->getRegionCount() != before)
            map->nameLast(text);
    }
    if (rest.getLength())
        map->addRegion(guiImageMapRegion(rest, 0, 0, kMaxPixels, kMaxPixels));
    parser.state<imageMaps>().maps.push_back(std::move(map));
}

guiTag const kImage("img", pullImageTag, kTagFollowed | kTagBlock);
guiTag const kMap("map", pullImageMap);
guiInputType const kInputImage("image", pullInputImage);

} // namespace
