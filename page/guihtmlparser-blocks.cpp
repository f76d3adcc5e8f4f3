// page/guihtmlparser-blocks.cpp: tables and rules.
#include "page/guihtmlparser.h"
#include "page/guihtmltext.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-qt.h"
#include "page/guihtmlsize-layers.h"
#include "page/guinumbers.h"
#include "page/guirareattributes.h"

#include <algorithm>
#include <optional>

void guiHtmlParser::keepPixelSizes(guiHtml* node)
{
    if (node->m.fixed.unitX == kUnitPixels)
        node->m.fixed.cxMin = static_cast<int>(node->m.fixed.x);
    if (node->m.fixed.unitY == kUnitPixels)
        node->m.fixed.cyMin = static_cast<int>(node->m.fixed.y);
}

void guiHtmlParser::startBlock(guiHtml* parent)
{
    if (m_lastWasBlock)
        appendLineBreak(parent);
    else
        appendParagraph(parent);
}

void guiHtmlParser::pullTableTag(guiHtml* parent, mlSection* section)
{
    pullTable(appendBlock(parent, std::make_unique<guiHtml>()), section);
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
    keepPlace(node, section);
    pullContent(node, section);
}

namespace {

int countLayers(guiHtml* node)
{
    int count = 0;
    for (guiLayerWalk layers(node); layers.next();)
        ++count;
    return count;
}

/// Rows are marked as the head of the table, which is repeated on paper, if there are none above them but those of the
/// head. Rows are layers of the table's node.
class headRows
{
public:
    explicit headRows(guiHtml* table) : m_table(table), m_above(countLayers(table)) {}

    void mark() const
    {
        if (sstoq(guiRareAttributeOf(m_table, guiRareAttribute::kHeadRows)).toInt() == m_above)
            guiSetRareAttribute(m_table, guiRareAttribute::kHeadRows, sformat("%d", countLayers(m_table)));
    }

private:
    guiHtml* m_table; // not owned
    int m_above;
};

} // namespace

void guiHtmlParser::pullTableRow(guiHtml* parent, mlSection* section)
{
    std::optional<headRows> const head = hasAttr(section, "head") ? std::optional<headRows>(parent) : std::nullopt;
    appendLineBreak(parent);
    pullContent(parent, section);
    if (head)
        head->mark();
}

void guiHtmlParser::pullTableHead(guiHtml* parent, mlSection* section)
{
    headRows const head(parent);
    pullContentAndBreak(parent, section);
    head.mark();
}

void guiHtmlParser::pullTableCellTag(guiHtml* parent, mlSection* section)
{
    pullTableCell(appendGuiHtml(parent, std::make_unique<guiHtml>()), section);
}

void guiHtmlParser::pullTableCell(guiHtml* node, mlSection* section, char const* codes)
{
    pullRestrict(node, section);
    pullBox(node, section, codes);
}

void guiHtmlParser::pullBox(guiHtml* node, mlSection* section, char const* codes)
{
    pullString(node, section, "src", kStringSource);
    pullObjectAlignment(node, section);
    pullBackground(node, section);
    pullBorder(node, section);
    pullMouseEvents(node, section);
    pullName(node, section);
    keepPlace(node, section);
    if (*codes)
        findOrCreateText(node)->editText() += codes;
    pullContent(node, section);
}

void guiHtmlParser::pullTableHeading(guiHtml* parent, mlSection* section)
{
    guiHtml* const cell = appendGuiHtml(parent, std::make_unique<guiHtml>());
    cell->m.alignX = kAlignCenter;
    pullTableCell(cell, section, "[[b]]");
}

void guiHtmlParser::pullRuleTag(guiHtml* parent, mlSection* section)
{
    guiAlignment outer = getCurrentAlignment(parent);
    guiAlignment own = outer;
    readAlignment(pullAttr(section, "align"), &own);
    appendParagraph(parent);
    if (own != outer)
        appendAlignment(parent, own);
    pullRule(appendGuiHtml(parent, std::make_unique<guiHtml>()), section);
    appendParagraph(parent); // before the alignment marker: after a marker no break is appended
    if (own != outer)
        appendAlignment(parent, outer);
}

namespace {

/// Gives a node a width of its own and a fixed height in pixels.
void setLineSize(guiHtml* node, guiLength width, int height)
{
    node->m.fixed.unitX = width.unit;
    node->m.fixed.x = width.value;
    node->m.fixed.unitY = kUnitPixels;
    node->m.fixed.y = static_cast<unsigned>(height);
    node->m.fixed.cyMin = height;
}

constexpr guiLength kWholeWidth{kUnitPercent, 100};

} // namespace

// An etched line is a node in the dark border colour with a child in the light one in its lower half, so that painting
// needs no case for rules.
void guiHtmlParser::pullRule(guiHtml* node, mlSection* section)
{
    constexpr int kDefaultHeight = 2;
    sstring size = pullAttr(section, "size");
    int height = size.getLength() ? guiToPixels(size) : kDefaultHeight;
    sstring width = pullAttr(section, "width");
    setLineSize(node, width.getLength() ? guiToLength(width) : kWholeWidth, height);
    node->m.alignY = kAlignBottom;
    pullName(node, section);

    guiColor flat;
    bool const isColored = readColor(pullAttr(section, "color"), &flat);
    if (isColored)
        node->setBackgroundColor(flat);
    else
        node->setBackgroundEdge(guiEdge::kDark);
    if (isColored || hasAttr(section, "noshade") || height < 2)
        return;
    guiHtml* lower = appendGuiHtml(node, std::make_unique<guiHtml>());
    setLineSize(lower, kWholeWidth, height / 2);
    lower->setBackgroundEdge(guiEdge::kLight);
}
