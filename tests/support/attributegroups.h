// tests/support/attributegroups.h: which groups of attributes an element reads.
#pragma once

#include "tests/support/parsedpage.h"

#include <set>

/// The groups, by the effect of one attribute of each.
inline std::set<std::string> groupsOf(guiHtml& node)
{
    std::set<std::string> groups;
    auto add = [&groups](bool hasEffect, char const* group) {
        if (hasEffect)
            groups.insert(group);
    };
    add(node.isString(kStringName, "n"), "name");
    add(node.m.border == 3 && node.m.divide == 5, "border");
    add(node.isString(kStringMouseOver, "over") && node.isString(kStringMouseUp, "up"), "mouse");
    add(node.hasBackgroundColor() && node.hasString(kStringBackground), "background");
    add(node.m.fixed.unitX == kUnitPixels && node.m.fixed.x == 70, "width");
    add(node.m.fixed.unitY == kUnitPixels && node.m.fixed.y == 40, "height");
    add(node.m.fixed.cxMin == 70, "least width");
    add(node.m.fixed.cyMin == 40, "least height");
    add(node.m.alignX == kAlignRight, "align");
    add(node.m.alignY == kAlignBottom, "valign");
    add(node.isString(kStringSource, "s.html"), "src");
    add(node.isString(kStringCaption, "c"), "caption");
    add(node.getTabIndex() == 7, "tabindex");
    add(!node.isEnabled(), "disabled");
    add(node.m.expandChildren, "expands");
    return groups;
}

inline constexpr char kAll[] =
    " name=n border=3 cellspacing=5 onmouseover=over onmouseup=up bgcolor=red background=b.png"
    " width=70 height=40 align=right valign=bottom src=s.html caption=c tabindex=7 disabled ";

inline std::set<std::string> groupsRead(std::string const& tag)
{
    parsedPage page = parsePage("<" + tag + kAll + ">");
    guiHtml* node = page.root->getLastChild();
    return node ? groupsOf(*node) : std::set<std::string>{"no node"};
}
