// runtime/guihtmlframeset-read.cpp: reads framesets and their frames.
#include "page/guihtmlparser.h"
#include "page/guinumbers.h"
#include "page/guitagtable.h"
#include "runtime/guihtmlframeset.h"

#include <algorithm>
#include <vector>

namespace {

/// Reads a comma-separated list of pixels, percents and "*".
std::vector<guiHtmlFrameset::track> readTracks(sstring const& list)
{
    constexpr std::size_t kMostTracks = 1000;
    std::vector<guiHtmlFrameset::track> tracks;
    for (unsigned at = 0; at < list.getLength() && tracks.size() < kMostTracks;) {
        unsigned end = std::min(list.find(',', at), list.getLength());
        sstring part = list.subString(at, end - at);
        guiLength length = guiToLength(part);
        bool isShare = part.find('*') != sstring::npos;
        tracks.push_back(isShare ? guiHtmlFrameset::track() : guiHtmlFrameset::track{length.unit, length.value});
        at = end + 1;
    }
    return tracks;
}

/// A frameset without a size of its own fills its place. Not called for one inside another frameset, whose place is its
/// column and row.
void fillPlace(guiHtml* node)
{
    if (node->m.fixed.unitX == kUnitUnbound) {
        node->m.fixed.unitX = kUnitPercent;
        node->m.fixed.x = 100;
    }
    if (node->m.fixed.unitY == kUnitUnbound) {
        node->m.fixed.unitY = kUnitPercent;
        node->m.fixed.y = 100;
    }
}

void pullFrameset(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* frameset = new guiHtmlFrameset;
    parser.appendGuiHtml(parent, frameset);
    frameset->setTracks(readTracks(guiHtmlParser::pullAttr(section, "cols")),
                        readTracks(guiHtmlParser::pullAttr(section, "rows")));
    frameset->setResizable(!guiHtmlParser::hasAttr(section, "noresize"));
    frameset->m.expandChildren = 1;
    guiHtmlParser::pullBackground(frameset, section);
    guiHtmlParser::pullRestrict(frameset, section);
    guiHtmlParser::keepPixelSizes(frameset);
    guiHtmlParser::pullBorder(frameset, section);
    guiHtmlParser::pullMouseEvents(frameset, section);
    guiHtmlParser::pullName(frameset, section);
    parser.keepPlace(frameset, section);
    if (parent->getType() != guiHtml::kTypeFrameset)
        fillPlace(frameset);
    parser.pullContent(frameset, section);
}

void pullFrame(guiHtmlParser& parser, guiHtml* node, mlSection* section)
{
    guiHtmlParser::pullString(node, section, "src", kStringSource);
    guiHtmlParser::pullBackground(node, section);
    guiHtmlParser::pullRestrict(node, section);
    guiHtmlParser::keepPixelSizes(node);
    guiHtmlParser::pullBorder(node, section);
    guiHtmlParser::pullMouseEvents(node, section);
    guiHtmlParser::pullName(node, section);
    parser.keepPlace(node, section);
}

void pullFrameTag(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* frame = new guiHtml;
    parser.appendGuiHtml(parent, frame);
    pullFrame(parser, frame, section);
    frame->m.alignY = kAlignTop;
}

guiTag const kFrameset("frameset", pullFrameset, kTagNests | kTagBlock);
guiTag const kFrame("frame", pullFrameTag, kTagFollowed | kTagBlock);

} // namespace
