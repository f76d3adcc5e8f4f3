// page/guihtmlparser-attributes.cpp: the attributes that many elements share.
#include "page/guihtmlparser.h"

#include "foundation/vela-mlparser.h"
#include "page/guihtml.h"
#include "page/guinumbers.h"
#include "page/guirareattributes.h"
#include "page/guirareread.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

bool isNo(sstring const& value)
{
    return guiIsWord(value, "no") || guiIsWord(value, "off") || guiIsWord(value, "false") || guiIsWord(value, "0");
}

bool isYes(sstring const& value)
{
    return guiIsWord(value, "yes") || guiIsWord(value, "on") || guiIsWord(value, "true") || guiIsWord(value, "1");
}

/// Whether the string is the user's own text.
bool isData(guiNodeString which) { return which == kStringName || which == kStringCaption || which == kStringTitle; }

bool isCenter(sstring const& value) { return guiIsWord(value, "center") || guiIsWord(value, "middle"); }

} // namespace

sstring guiHtmlParser::pullAttr(mlSection* section, char const* name, char const* bare)
{
    mlAttr* attr = section->findAttr(name);
    if (!attr)
        return sstring::unallocated();
    sstring value = attr->getRHS();
    if (value.getLength() == 0)
        value = bare;
    return value;
}

sstring guiHtmlParser::pullAttr(mlSection* section, sstring const& name, sstring const& bare)
{
    return pullAttr(section, name.c_str(), bare.c_str());
}

sstring guiHtmlParser::pullData(mlSection* section, char const* name)
{
    mlAttr* attr = section->findAttr(name);
    if (!attr)
        return sstring::unallocated();
    return attr->hasValue() ? attr->getRHS() : sstring("1");
}

bool guiHtmlParser::hasAttr(mlSection* section, char const* name) { return section->findAttr(name) != nullptr; }

bool guiHtmlParser::readAlignment(sstring const& value, guiAlignment* out)
{
    if (guiIsWord(value, "left"))
        *out = kAlignLeft;
    else if (isCenter(value))
        *out = kAlignCenter;
    else if (guiIsWord(value, "right"))
        *out = kAlignRight;
    else
        return false;
    return true;
}

void guiHtmlParser::pullName(guiHtml* node, mlSection* section) { pullString(node, section, "name", kStringName); }

void guiHtmlParser::pullString(guiHtml* node, mlSection* section, char const* name, guiNodeString which)
{
    if (hasAttr(section, name))
        node->setString(which, isData(which) ? pullData(section, name) : pullAttr(section, name));
}

void guiHtmlParser::pullMouseEvents(guiHtml* node, mlSection* section)
{
    pullString(node, section, "onmouseover", kStringMouseOver);
    pullString(node, section, "onmouseout", kStringMouseOut);
    pullString(node, section, "onmousedown", kStringMouseDown);
    pullString(node, section, "onmouseup", kStringMouseUp);
    guiPullRareAttributes(node, section);
    pullString(node, section, "title", kStringTitle);
}

namespace {

/// Most attributes are absent, so presence is tested before a string is made.
int pullPixels(mlSection* section, char const* name)
{
    return section->findAttr(name) ? guiToPixels(guiHtmlParser::pullAttr(section, name)) : 0;
}

bool pullColor(mlSection* section, char const* name, guiColor* out)
{
    return section->findAttr(name) && guiHtmlParser::readColor(guiHtmlParser::pullAttr(section, name), out);
}

void pullBorderColors(guiHtml* node, mlSection* section)
{
    guiColor light = node->getBorderLight();
    guiColor color = node->getBorderColor();
    guiColor dark = node->getBorderDark();
    unsigned given = 0;
    if (pullColor(section, "bordercolorlight", &light))
        given |= kGivenLight;
    if (pullColor(section, "bordercolor", &color))
        given |= kGivenMiddle;
    if (pullColor(section, "bordercolordark", &dark))
        given |= kGivenDark;
    node->setBorderColors(light, color, dark, given);
}

/// A gap holds for what stands in the element as well, until an element has a spacing of its own.
void pullGap(guiHtml* node, mlSection* section, bool hasSpacing)
{
    guiHtml const* const parent = node->m.parent;
    bool const isInherited = parent && parent->m.spacious;
    node->m.spacious = isInherited || section->findAttr("gap");
    if (section->findAttr("gap"))
        node->m.divide = pullPixels(section, "gap");
    else if (isInherited && !hasSpacing)
        node->m.divide = parent->m.divide;
}

/// What separates cells from each other shows what is behind them; what keeps the content from the edge is the node's
/// own.
void pullPadding(guiHtml* node, mlSection* section)
{
    bool const hasMargin = section->findAttr("margin") != nullptr;
    if (hasMargin)
        node->m.space = pullPixels(section, "margin");
    int const padding = hasMargin ? node->m.space : pullPixels(section, "cellpadding");
    constexpr int kMost = std::numeric_limits<std::uint16_t>::max();
    node->m.padding = static_cast<std::uint16_t>(std::clamp(padding, 0, std::clamp(node->m.space, 0, kMost)));
}

void pullSpacing(guiHtml* node, mlSection* section)
{
    int sum = 0;
    for (char const* name : {"cellspacing", "framespacing", "cellpadding"})
        sum += pullPixels(section, name);
    node->m.divide = std::min(sum, kMaxPixels);
    node->m.space = node->getType() == guiHtml::kTypeFrameset ? 0 : node->m.divide;
    pullGap(node, section, sum != 0);
    pullPadding(node, section);
}

void pullScrolling(guiHtml* node, mlSection* section)
{
    if (!section->findAttr("scrolling"))
        return;
    sstring scrolling = guiHtmlParser::pullAttr(section, "scrolling", "on");
    if (isNo(scrolling))
        node->setSizePolicy(kPolicyResize);
    else if (isYes(scrolling))
        node->setSizePolicy(kPolicyScroll);
    else if (guiIsWord(scrolling, "fixed"))
        node->setSizePolicy(kPolicyFixed);
}

} // namespace

void guiHtmlParser::pullBorder(guiHtml* node, mlSection* section)
{
    node->m.border = pullPixels(section, "border");
    if (node->m.border == 0)
        node->m.border = pullPixels(section, "frameborder");
    if (node->m.border != 0)
        pullBorderColors(node, section);
    pullSpacing(node, section);
    if (hasAttr(section, "usesystemfont"))
        node->m.useSystemFont = !isNo(pullAttr(section, "usesystemfont"));
    pullScrolling(node, section);
}

void guiHtmlParser::pullRoomyBorder(guiHtml* node, mlSection* section)
{
    constexpr int kSpace = 8;
    pullBorder(node, section);
    if (node->m.divide == 0)
        node->m.divide = kSpace;
    if (node->m.space == 0 && !hasAttr(section, "margin"))
        node->m.space = kSpace;
}

void guiHtmlParser::pullBackground(guiHtml* node, mlSection* section)
{
    guiColor color;
    if (pullColor(section, "bgcolor", &color))
        node->setBackgroundColor(color);
    if (hasAttr(section, "background"))
        node->setBackgroundImage(pullAttr(section, "background"));
}

void guiHtmlParser::keepPlace(guiHtml* node, mlSection* section, std::initializer_list<char const*> names)
{
    if (std::any_of(names.begin(), names.end(), [section](char const* name) { return hasAttr(section, name); }))
        node->setString(kStringPlace, m_mistakes.place(section->getLine()));
}

namespace {

/// The first of the two names that the element has as an attribute, null if it has neither.
char const* findFirst(mlSection* section, char const* name, char const* otherwise)
{
    if (section->findAttr(name))
        return name;
    return section->findAttr(otherwise) ? otherwise : nullptr;
}

} // namespace

void guiHtmlParser::pullRestrict(guiHtml* node, mlSection* section)
{
    if (char const* width = findFirst(section, "width", "minwidth")) {
        guiLength length = guiToLength(pullAttr(section, width));
        node->m.fixed.unitX = length.unit;
        node->m.fixed.x = length.value;
    }
    if (char const* height = findFirst(section, "height", "minheight")) {
        guiLength length = guiToLength(pullAttr(section, height));
        node->m.fixed.unitY = length.unit;
        node->m.fixed.y = length.value;
    }
}

void guiHtmlParser::pullObjectAlignment(guiHtml* node, mlSection* section)
{
    if (hasAttr(section, "align"))
        readAlignment(pullAttr(section, "align"), &node->m.alignX);
    if (!hasAttr(section, "valign"))
        return;
    sstring vertical = pullAttr(section, "valign");
    if (guiIsWord(vertical, "top"))
        node->m.alignY = kAlignTop;
    else if (guiIsWord(vertical, "bottom"))
        node->m.alignY = kAlignBottom;
    else if (isCenter(vertical))
        node->m.alignY = kAlignCenter;
}

namespace {

void pullInk(guiHtml* node, mlSection* section, char const* name, guiPackedColor* ink, guiGivenColor which)
{
    guiColor color;
    if (!pullColor(section, name, &color))
        return;
    *ink = color;
    node->m.givenColors = static_cast<std::uint8_t>(node->m.givenColors | which);
}

} // namespace

void guiHtmlParser::pullDefaultColors(guiHtml* node, mlSection* section)
{
    pullInk(node, section, "text", &node->m.textColor, kGivenText);
    pullInk(node, section, "link", &node->m.linkColor, kGivenLink);
    pullInk(node, section, "alink", &node->m.activeLinkColor, kGivenActiveLink);
}

void guiHtmlParser::pullTabIndex(guiHtml* node, mlSection* section)
{
    sstring index = pullAttr(section, "tabindex");
    if (index.getLength())
        node->setTabIndex(guiToNumber(index));
}
