// page/guihtmlparser-attributes.cpp: the attributes that many elements share.
#include "page/guihtmlparser.h"

#include "foundation/vela-mlparser.h"
#include "page/guihtml.h"
#include "page/guinumbers.h"

#include <algorithm>

namespace {

bool isNo(sstring const& value)
{
    return guiIsWord(value, "no") || guiIsWord(value, "off") || guiIsWord(value, "false") || guiIsWord(value, "0");
}

bool isYes(sstring const& value)
{
    return guiIsWord(value, "yes") || guiIsWord(value, "on") || guiIsWord(value, "true") || guiIsWord(value, "1");
}

bool isCenter(sstring const& value) { return guiIsWord(value, "center") || guiIsWord(value, "middle"); }

} // namespace

sstring guiHtmlParser::pullAttr(mlSection* section, char const* name, char const* bare)
{
    mlAttr* attr = section->findAttr(name);
    if (!attr)
        return sstring();
    sstring value = attr->getRHS();
    return value.getLength() ? value : sstring(bare);
}

sstring guiHtmlParser::pullAttr(mlSection* section, sstring const& name, sstring const& bare)
{
    return pullAttr(section, name.c_str(), bare.c_str());
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
        node->setString(which, pullAttr(section, name));
}

void guiHtmlParser::pullMouseEvents(guiHtml* node, mlSection* section)
{
    pullString(node, section, "onmouseover", kStringMouseOver);
    pullString(node, section, "onmouseout", kStringMouseOut);
    pullString(node, section, "onmousedown", kStringMouseDown);
    pullString(node, section, "onmouseup", kStringMouseUp);
}

namespace {

void pullBorderColors(guiHtml* node, mlSection* section)
{
    guiColor light = node->getBorderLight();
    guiColor color = node->getBorderColor();
    guiColor dark = node->getBorderDark();
    guiHtmlParser::readColor(guiHtmlParser::pullAttr(section, "bordercolorlight"), &light);
    guiHtmlParser::readColor(guiHtmlParser::pullAttr(section, "bordercolor"), &color);
    guiHtmlParser::readColor(guiHtmlParser::pullAttr(section, "bordercolordark"), &dark);
    node->setBorderColors(light, color, dark);
}

void pullSpacing(guiHtml* node, mlSection* section)
{
    int sum = 0;
    for (char const* name : {"cellspacing", "framespacing", "cellpadding"})
        sum += guiToPixels(guiHtmlParser::pullAttr(section, name));
    node->m.divide = std::min(sum, kMaxPixels);
    node->m.space = node->getType() == guiHtml::kTypeFrameset ? 0 : node->m.divide;
}

void pullScrolling(guiHtml* node, mlSection* section)
{
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
    node->m.border = guiToPixels(pullAttr(section, "border"));
    if (node->m.border == 0)
        node->m.border = guiToPixels(pullAttr(section, "frameborder"));
    if (node->m.border != 0)
        pullBorderColors(node, section);
    pullSpacing(node, section);
    sstring systemFont = pullAttr(section, "usesystemfont");
    if (systemFont.getLength())
        node->m.useSystemFont = !isNo(systemFont);
    pullScrolling(node, section);
}

void guiHtmlParser::pullBackground(guiHtml* node, mlSection* section)
{
    guiColor color;
    if (readColor(pullAttr(section, "bgcolor"), &color))
        node->setBackgroundColor(color);
    sstring file = pullAttr(section, "background");
    if (file.getLength())
        node->setBackgroundImage(file);
}

void guiHtmlParser::pullRestrict(guiHtml* node, mlSection* section)
{
    sstring width = pullAttr(section, hasAttr(section, "width") ? "width" : "minwidth");
    if (width.getLength()) {
        guiLength length = guiToLength(width);
        node->m.fixed.unitX = length.unit;
        node->m.fixed.x = length.value;
    }
    sstring height = pullAttr(section, hasAttr(section, "height") ? "height" : "minheight");
    if (height.getLength()) {
        guiLength length = guiToLength(height);
        node->m.fixed.unitY = length.unit;
        node->m.fixed.y = length.value;
    }
}

void guiHtmlParser::pullObjectAlignment(guiHtml* node, mlSection* section)
{
    readAlignment(pullAttr(section, "align"), &node->m.alignX);
    sstring vertical = pullAttr(section, "valign");
    if (guiIsWord(vertical, "top"))
        node->m.alignY = kAlignTop;
    else if (guiIsWord(vertical, "bottom"))
        node->m.alignY = kAlignBottom;
    else if (isCenter(vertical))
        node->m.alignY = kAlignCenter;
}

void guiHtmlParser::pullDefaultColors(guiHtml* node, mlSection* section)
{
    guiColor color;
    if (readColor(pullAttr(section, "text"), &color))
        node->m.textColor = color;
    if (readColor(pullAttr(section, "link"), &color))
        node->m.linkColor = color;
    if (readColor(pullAttr(section, "alink"), &color))
        node->m.activeLinkColor = color;
}

void guiHtmlParser::pullTabIndex(guiHtml* node, mlSection* section)
{
    sstring index = pullAttr(section, "tabindex");
    if (index.getLength())
        node->setTabIndex(guiToNumber(index));
}
