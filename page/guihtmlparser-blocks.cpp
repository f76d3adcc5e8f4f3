// page/guihtmlparser-blocks.cpp: tables, rules, forms, framesets and frames.
#include "page/guihtmlparser.h"

#include "controls/guihtmlform.h"
#include "foundation/vela-mlparser.h"
#include "page/guinumbers.h"
#include "runtime/guihtmlframeset.h"

#include <algorithm>

namespace {

/// A width or height in pixels that a page asks for is at least kept.
void keepPixelSizes(guiHtml* node)
{
    if (node->m.fixed.unitX == kUnitPixels)
        node->m.fixed.cxMin = static_cast<int>(node->m.fixed.x);
    if (node->m.fixed.unitY == kUnitPixels)
        node->m.fixed.cyMin = static_cast<int>(node->m.fixed.y);
}

} // namespace

void guiHtmlParser::appendBlock(guiHtml* parent, guiHtml* block)
{
    if (m_lastWasBlock)
        appendLineBreak(parent);
    else
        appendParagraph(parent);
    appendGuiHtml(parent, block);
}

void guiHtmlParser::pullTableTag(guiHtml* parent, mlSection* section)
{
    auto* table = new guiHtml;
    appendBlock(parent, table);
    pullTable(table, section);
    appendLineBreak(parent);
}

void guiHtmlParser::pullTable(guiHtml* node, mlSection* section)
{
    node->m.expandChildren = 1;
    pullString(node, section, "src", kStringSource);
    pullString(node, section, "caption", kStringCaption);
    pullBackground(node, section);
    pullRestrict(node, section);
    keepPixelSizes(node);
    pullBorder(node, section);
    pullName(node, section);
    pullMouseEvents(node, section);
    pullContent(node, section);
}

void guiHtmlParser::pullTableRow(guiHtml* parent, mlSection* section)
{
    appendLineBreak(parent);
    pullContent(parent, section);
}

void guiHtmlParser::pullTableCellTag(guiHtml* parent, mlSection* section)
{
    auto* cell = new guiHtml;
    appendGuiHtml(parent, cell);
    pullTableCell(cell, section);
}

void guiHtmlParser::pullTableCell(guiHtml* node, mlSection* section)
{
    pullString(node, section, "src", kStringSource);
    pullObjectAlignment(node, section);
    pullBackground(node, section);
    pullRestrict(node, section);
    pullBorder(node, section);
    pullMouseEvents(node, section);
    pullName(node, section);
    pullContent(node, section);
}

void guiHtmlParser::pullFormTag(guiHtml* parent, mlSection* section)
{
    auto* form = new guiHtmlForm;
    appendBlock(parent, form);
    pullTableForm(form, section);
}

void guiHtmlParser::pullTableForm(guiHtmlForm* form, mlSection* section)
{
    pullString(form, section, "src", kStringSource);
    form->setAction(pullAttr(section, "action"));
    pullObjectAlignment(form, section);
    pullBackground(form, section);
    pullRestrict(form, section);
    pullBorder(form, section);
    pullMouseEvents(form, section);
    pullName(form, section);
    pullContent(form, section);
}

void guiHtmlParser::pullRuleTag(guiHtml* parent, mlSection* section)
{
    guiAlignment outer = getCurrentAlignment(parent);
    guiAlignment own = outer;
    readAlignment(pullAttr(section, "align"), &own);
    appendParagraph(parent);
    if (own != outer)
        appendAlignment(parent, own);
    auto* rule = new guiHtml;
    appendGuiHtml(parent, rule);
    pullRule(rule, section);
    appendParagraph(parent); // before the mark, behind which there would be none
    if (own != outer)
        appendAlignment(parent, outer);
}

// An etched line is the dark border colour with the light one in its lower half, so that painting needs to know no
// rules.
void guiHtmlParser::pullRule(guiHtml* node, mlSection* section)
{
    constexpr int kDefaultHeight = 2;
    sstring size = pullAttr(section, "size");
    int height = size.getLength() ? guiToPixels(size) : kDefaultHeight;
    sstring width = pullAttr(section, "width");
    guiLength length = width.getLength() ? guiToLength(width) : guiLength{kUnitPercent, 100};
    node->m.fixed.unitX = length.unit;
    node->m.fixed.x = length.value;
    node->m.fixed.unitY = kUnitPixels;
    node->m.fixed.y = static_cast<unsigned>(height);
    node->m.fixed.cyMin = height;
    node->m.alignY = kAlignBottom;
    pullName(node, section);

    guiColor flat = node->getBorderDark();
    bool isFlat = readColor(pullAttr(section, "color"), &flat) || hasAttr(section, "noshade");
    node->setBackgroundColor(flat);
    if (isFlat || height < 2)
        return;
    auto* lower = new guiHtml;
    appendGuiHtml(node, lower);
    lower->m.fixed.unitX = kUnitPercent;
    lower->m.fixed.x = 100;
    lower->m.fixed.unitY = kUnitPixels;
    lower->m.fixed.y = static_cast<unsigned>(height / 2);
    lower->m.fixed.cyMin = height / 2;
    lower->setBackgroundColor(node->getBorderLight());
}

namespace {

/// Comma-separated pixels, percents and "*".
std::vector<guiHtmlFrameset::track_t> readTracks(sstring const& list)
{
    constexpr std::size_t kMostTracks = 1000;
    std::vector<guiHtmlFrameset::track_t> tracks;
    for (unsigned at = 0; at < list.getLength() && tracks.size() < kMostTracks;) {
        unsigned end = std::min(list.find(',', at), list.getLength());
        sstring part = list.subString(at, end - at);
        guiLength length = guiToLength(part);
        bool isShare = part.find('*') != sstring::npos;
        tracks.push_back(isShare ? guiHtmlFrameset::track_t() : guiHtmlFrameset::track_t{length.unit, length.value});
        at = end + 1;
    }
    return tracks;
}

/// A frameset without a size of its own fills its place: its frames share what there is. Inside another one its place
/// is its column and row.
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

} // namespace

void guiHtmlParser::pullFrameset(guiHtml* parent, mlSection* section)
{
    auto* frameset = new guiHtmlFrameset;
    appendGuiHtml(parent, frameset);
    frameset->setTracks(readTracks(pullAttr(section, "cols")), readTracks(pullAttr(section, "rows")));
    frameset->setResizable(!hasAttr(section, "noresize"));
    frameset->m.expandChildren = 1;
    pullBackground(frameset, section);
    pullRestrict(frameset, section);
    keepPixelSizes(frameset);
    pullBorder(frameset, section);
    pullMouseEvents(frameset, section);
    pullName(frameset, section);
    if (parent->getType() != guiHtml::kTypeFrameset)
        fillPlace(frameset);
    pullContent(frameset, section);
}

void guiHtmlParser::pullFrameTag(guiHtml* parent, mlSection* section)
{
    auto* frame = new guiHtml;
    appendGuiHtml(parent, frame);
    pullFrame(frame, section);
    frame->m.alignY = kAlignTop;
}

void guiHtmlParser::pullFrame(guiHtml* node, mlSection* section)
{
    pullString(node, section, "src", kStringSource);
    pullBackground(node, section);
    pullRestrict(node, section);
    keepPixelSizes(node);
    pullBorder(node, section);
    pullMouseEvents(node, section);
    pullName(node, section);
}
