// tests/page/slots_test.cpp: the order of the page node's virtual operations, which other binaries may rely on.
#include "page/guihtml.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>
#include <vector>

namespace {

/// Slot of a virtual operation in the class's table. A pointer to one is its offset in the table plus one (Itanium C++
/// ABI, 2.3); the destructor takes the first two slots.
template <typename Operation>
std::size_t slotOf(Operation operation)
{
    static_assert(sizeof operation == 2 * sizeof(std::size_t));
    std::size_t words[2];
    std::memcpy(words, &operation, sizeof words);
    return words[0] % 2 == 1 ? (words[0] - 1) / sizeof(void*) : 0;
}

template <typename Result, typename... Arguments>
std::size_t slotWith(Result (guiHtml::*operation)(Arguments...))
{
    return slotOf(operation);
}

TEST(VirtualOperations, StandInTheirOrder)
{
    using node = guiHtml;
    std::vector<std::pair<char const*, std::size_t>> const table = {
        {"operator=", slotWith<node&, node&>(&node::operator=)},
        {"Clone", slotOf(&node::Clone)},
        {"getType", slotOf(&node::getType)},
        {"getRect", slotOf(&node::getRect)},
        {"getClientRect", slotOf(&node::getClientRect)},
        {"getNamed", slotWith<node*, sstring&>(&node::getNamed)},
        {"getBookmarked", slotWith<node*, sstring&>(&node::getBookmarked)},
        {"getName", slotOf(&node::getName)},
        {"setRect", slotOf(&node::setRect)},
        {"getRectInWidget", slotOf(&node::getRectInWidget)},
        {"getClipRect", slotOf(&node::getClipRect)},
        {"getTopLevelWidget", slotOf(&node::getTopLevelWidget)},
        {"getBaseHtml", slotOf(&node::getBaseHtml)},
        {"getCustomObject", slotOf(&node::getCustomObject)},
        {"buildCustomObject_script", slotOf(&node::buildCustomObject_script)},
        {"toString", slotOf(&node::toString)},
        {"loadFile", slotOf(&node::loadFile)},
        {"loadBackground", slotOf(&node::loadBackground)},
        {"setText", slotOf(&node::setText)},
        {"setCaption", slotOf(&node::setCaption)},
        {"dynamicLoad", slotOf(&node::dynamicLoad)},
        {"setBackgroundImage", slotOf(&node::setBackgroundImage)},
        {"update", slotOf(&node::update)},
        {"onShow", slotOf(&node::onShow)},
        {"setEnabled", slotOf(&node::setEnabled)},
        {"isEnabled", slotOf(&node::isEnabled)},
        {"getDefaultFont", slotOf(&node::getDefaultFont)},
        {"updateLayout", slotOf(&node::updateLayout)},
        {"updateTabOrder", slotOf(&node::updateTabOrder)},
        {"getChildWidget", slotOf(&node::getChildWidget)},
        {"getTabIndex", slotOf(&node::getTabIndex)},
        {"readFormProperty", slotOf(&node::readFormProperty)},
        {"writeFormProperty", slotOf(&node::writeFormProperty)},
        {"eraseFormProperty", slotOf(&node::eraseFormProperty)},
        {"setCurrent", slotOf(&node::setCurrent)},
        {"setUseSystemFont", slotOf(&node::setUseSystemFont)},
        {"onEnter", slotOf(&node::onEnter)},
        {"onEscape", slotOf(&node::onEscape)},
        {"triggerNow", slotOf(&node::triggerNow)},
        {"findWidget", slotOf(&node::findWidget)},
        {"getSizePolicy", slotOf(&node::getSizePolicy)},
        {"setSizePolicy", slotOf(&node::setSizePolicy)},
        {"getPreferredWidth", slotOf(&node::getPreferredWidth)},
        {"getHeightEstimate", slotOf(&node::getHeightEstimate)},
        {"findLayer", slotOf(&node::findLayer)},
        {"calcDynamicLayout", slotOf(&node::calcDynamicLayout)},
        {"updateActiveWidths", slotOf(&node::updateActiveWidths)},
        {"updateActiveHeights", slotOf(&node::updateActiveHeights)},
        {"updateSpringyHeights", slotOf(&node::updateSpringyHeights)},
        {"updateScrollbarRanges", slotOf(&node::updateScrollbarRanges)},
        {"getChildHeight", slotOf(&node::getChildHeight)},
        {"paintBorder", slotOf(&node::paintBorder)},
        {"paintTo", slotOf(&node::paintTo)},
        {"paintCornerTo", slotOf(&node::paintCornerTo)},
        {"paintChildrenTo", slotOf(&node::paintChildrenTo)},
        {"setCurrentDirectory", slotOf(&node::setCurrentDirectory)},
        {"createChildWidget", slotOf(&node::createChildWidget)},
        {"destroyChildWidget", slotOf(&node::destroyChildWidget)},
        {"hitTest", slotOf(&node::hitTest)},
        {"canHitTest", slotOf(&node::canHitTest)},
        {"onMouseOn", slotOf(&node::onMouseOn)},
        {"onMouseOff", slotOf(&node::onMouseOff)},
        {"onMouseMove", slotOf(&node::onMouseMove)},
        {"onMouseUp", slotOf(&node::onMouseUp)},
        {"onMouseDown", slotOf(&node::onMouseDown)},
        {"onScrollX", slotOf(&node::onScrollX)},
        {"onScrollY", slotOf(&node::onScrollY)},
        {"onEvent", slotOf(&node::onEvent)},
        {"onHyperlink", slotOf(&node::onHyperlink)},
        {"onHyperlinkAction", slotOf(&node::onHyperlinkAction)},
        {"onHyperlinkFile", slotOf(&node::onHyperlinkFile)},
    };
    constexpr std::size_t kDestructorSlots = 2;
    for (std::size_t i = 0; i < table.size(); ++i)
        EXPECT_EQ(table[i].second, kDestructorSlots + i) << table[i].first;
}

} // namespace
