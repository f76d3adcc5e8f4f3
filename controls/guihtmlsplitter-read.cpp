// controls/guihtmlsplitter-read.cpp: reads `splitter` and `pane`.
#include "controls/guihtmlread.h"
#include "controls/guihtmlsplitter.h"
#include "page/guinumbers.h"

#include <memory>

namespace {

constexpr unsigned kWhole = 100;

void fill(guiSizeUnit& unit, unsigned& size)
{
    unit = kUnitPercent;
    size = kWhole;
}

/// Without a size of its own it fills its place, as a frameset does.
void fillPlace(guiHtml* node)
{
    if (node->m.fixed.unitX == kUnitUnbound)
        fill(node->m.fixed.unitX, node->m.fixed.x);
    if (node->m.fixed.unitY == kUnitUnbound)
        fill(node->m.fixed.unitY, node->m.fixed.y);
}

void pullSplitter(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* splitter = parser.appendBlock(parent, std::make_unique<guiHtmlSplitter>());
    splitter->init(guiHtmlParser::hasAttr(section, "vertical"));
    splitter->m.expandChildren = 1;
    splitter->m.alignX = kAlignLeft;
    splitter->m.alignY = kAlignTop;
    guiHtmlParser::pullRestrict(splitter, section);
    guiHtmlParser::keepPixelSizes(splitter);
    guiHtmlParser::pullMouseEvents(splitter, section);
    guiHtmlParser::pullName(splitter, section);
    splitter->setAction(guiHtmlParser::pullAttr(section, "onchange"));
    fillPlace(splitter);
    parser.pullContent(splitter, section);
    if (guiHtmlParser::hasAttr(section, "disabled"))
        splitter->setEnabled(0);
    parser.appendLineBreak(parent);
}

/// Also for a pane that is read inside of another one, which nobody has closed.
guiHtmlSplitter* splitterAround(guiHtml* parent)
{
    if (auto* splitter = dynamic_cast<guiHtmlSplitter*>(parent))
        return splitter;
    bool const isPane = parent->getType() == guiHtml::kTypePlain && parent->getParent();
    return isPane ? dynamic_cast<guiHtmlSplitter*>(parent->getParent()) : nullptr;
}

/// A child of the splitter that is as wide or as high as that, across it.
template <typename Node>
Node* appendPart(guiHtmlParser& parser, guiHtmlSplitter* splitter)
{
    if (splitter->isVertical())
        parser.appendLineBreak(splitter);
    Node* const part = parser.appendGuiHtml(splitter, std::make_unique<Node>());
    if (!splitter->isVertical())
        fill(part->m.fixed.unitY, part->m.fixed.y);
    return part;
}

void appendDivider(guiHtmlParser& parser, guiHtmlSplitter* splitter)
{
    auto* const divider = appendPart<guiHtmlDivider>(parser, splitter);
    auto& fixed = divider->m.fixed;
    bool const isVertical = splitter->isVertical();
    (isVertical ? fixed.unitY : fixed.unitX) = kUnitPixels;
    (isVertical ? fixed.y : fixed.x) = guiHtmlDivider::kSize;
    (isVertical ? fixed.cyMin : fixed.cxMin) = guiHtmlDivider::kSize;
}

/// The length that an attribute asks for; unbound without it.
guiLength pullLength(mlSection* section, char const* name)
{
    return guiHtmlParser::hasAttr(section, name) ? guiToLength(guiHtmlParser::pullAttr(section, name)) : guiLength();
}

void pullSizes(guiHtml* pane, guiHtmlSplitter* splitter, mlSection* section)
{
    guiLength const width = pullLength(section, "width");
    guiLength const height = pullLength(section, "height");
    guiLength const asked = splitter->isVertical() ? height : width;
    splitter->addPane(asked.unit, asked.value);
    pane->m.fixed.cxMin = guiToPixels(guiHtmlParser::pullAttr(section, "minwidth"));
    pane->m.fixed.cyMin = guiToPixels(guiHtmlParser::pullAttr(section, "minheight"));
    if (splitter->isVertical())
        fill(pane->m.fixed.unitY,
             pane->m.fixed.y); // so that its height is asked for when that of the splitter is known
}

/// Outside of a splitter it is what it contains.
void pullPane(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiHtmlSplitter* const splitter = splitterAround(parent);
    if (!splitter)
        return parser.pullContent(parent, section);
    if (splitter->getLastChild())
        appendDivider(parser, splitter);
    auto* const pane = appendPart<guiHtml>(parser, splitter);
    pullSizes(pane, splitter, section);
    pane->setSizePolicy(kPolicyScroll);
    pane->m.alignY = kAlignTop;
    parser.pullBox(pane, section);
}

guiTag const kSplitter("splitter", pullSplitter, kTagNests | kTagBlock);
guiTag const kPane("pane", pullPane, kTagNests | kTagBlock);

} // namespace
