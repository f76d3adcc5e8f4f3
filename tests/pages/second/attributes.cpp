// tests/pages/second/attributes.cpp: see attributes.h.
#include "tests/pages/second/attributes.h"

#include <algorithm>
#include <map>

namespace second {

namespace {

constexpr int kMostPixels = 32767;
constexpr int kMostPercent = 1000;

} // namespace

int number(QString const& text)
{
    QString digits = text.trimmed();
    int end = digits.startsWith('-') || digits.startsWith('+') ? 1 : 0;
    while (end < digits.size() && digits[end].isDigit())
        ++end;
    return static_cast<int>(std::clamp<long long>(digits.left(end).toLongLong(), INT32_MIN, INT32_MAX));
}

int pixelCount(QString const& text) { return std::clamp(number(text), 0, kMostPixels); }

bool isWord(QString const& text, std::initializer_list<char const*> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](char const* word) { return text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0; });
}

void readLength(QString const& text, unit* which, int* size)
{
    if (text.isEmpty())
        return;
    *which = text.contains('%') ? percent : pixels;
    *size = std::clamp(number(text), 0, *which == percent ? kMostPercent : kMostPixels);
}

void readSizes(node* into, element const& tag)
{
    readLength(tag.get(tag.has("width") ? "width" : "minwidth"), &into->fixed.unitX, &into->fixed.x);
    readLength(tag.get(tag.has("height") ? "height" : "minheight"), &into->fixed.unitY, &into->fixed.y);
}

void keepSizes(node* of)
{
    if (of->fixed.unitX == pixels)
        of->fixed.minX = of->fixed.x;
    if (of->fixed.unitY == pixels)
        of->fixed.minY = of->fixed.y;
}

void readBorder(node* into, element const& tag)
{
    into->border = pixelCount(tag.get("border"));
    if (into->border == 0)
        into->border = pixelCount(tag.get("frameborder"));
    into->divide =
        pixelCount(tag.get("cellspacing")) + pixelCount(tag.get("framespacing")) + pixelCount(tag.get("cellpadding"));
    into->space = into->type == 6 ? 0 : into->divide;
    QString system = tag.get("usesystemfont");
    if (!system.isEmpty())
        into->systemFont = !isWord(system, {"no", "off", "false", "0"});
    QString scrolling = tag.get("scrolling", "on");
    if (isWord(scrolling, {"no", "off", "false", "0"}))
        into->scrollMode = 1;
    else if (isWord(scrolling, {"yes", "on", "true", "1"}))
        into->scrollMode = 0;
    else if (isWord(scrolling, {"fixed"}))
        into->scrollMode = 2;
}

int alignmentOf(element const& tag, int otherwise)
{
    QString align = tag.get("align");
    if (isWord(align, {"left"}))
        return 0;
    if (isWord(align, {"center", "middle"}))
        return 1;
    return isWord(align, {"right"}) ? 2 : otherwise;
}

void readAlignment(node* into, element const& tag)
{
    into->alignX = alignmentOf(tag, into->alignX);
    QString vertical = tag.get("valign");
    if (isWord(vertical, {"top"}))
        into->alignY = 0;
    else if (isWord(vertical, {"center", "middle"}))
        into->alignY = 1;
    else if (isWord(vertical, {"bottom"}))
        into->alignY = 2;
}

void readName(node* into, element const& tag) { into->name = tag.data("name"); }

QString hexOf(QString const& color)
{
    static std::map<QString, char const*> const names{
        {"aqua", "#00FFFF"},   {"black", "#000000"}, {"blue", "#0000FF"},   {"fuchsia", "#FF00FF"},
        {"gray", "#808080"},   {"green", "#008000"}, {"lime", "#00FF00"},   {"maroon", "#800000"},
        {"navy", "#000080"},   {"olive", "#808000"}, {"purple", "#800080"}, {"red", "#FF0000"},
        {"silver", "#C0C0C0"}, {"teal", "#008080"},  {"white", "#FFFFFF"},  {"yellow", "#FFFF00"}};
    auto found = names.find(color.toLower());
    return found == names.end() ? color : QString(found->second);
}

} // namespace second
