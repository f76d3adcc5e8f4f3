// page/guihtmlparser-blocks.cpp: tables and rules.
#include "page/guihtmlparser.h"

#include "foundation/vela-mlparser.h"
#include "page/guinumbers.h"

#include <algorithm>

void guiHtmlParser::keepPixelSizes(guiHtml* node)
{
    if (node->m.fixed.unitX == kUnitPixels)
        node->m.fixed.cxMin = static_cast<int>(node->m.fixed.x);
    if (node->m.fixed.unitY == kUnitPixels)
        node->m.fixed.cyMin = static_cast<int>(node->m.fixed.y);
}

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
