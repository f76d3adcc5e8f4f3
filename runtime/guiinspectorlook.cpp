// runtime/guiinspectorlook.cpp: see guiinspectorlook.h.
#include "runtime/guiinspectorlook.h"

#include "foundation/vela-qt.h"
#include "page/guihtmlsize.h"
#include "page/guihtmltext.h"
#include "page/guinodesource.h"
#include "page/guivisibletext.h"
#include "runtime/gui.h"

#include <QFont>
#include <QScrollBar>
#include <functional>

namespace {

constexpr qsizetype kMostLetters = 60; // of a text in the tree

QString kindOf(guiHtml* node)
{
    switch (node->getType()) {
    case guiHtml::kTypeBase:
        return QStringLiteral("page");
    case guiHtml::kTypeForm:
        return QStringLiteral("form");
    case guiHtml::kTypeImage:
        return QStringLiteral("picture");
    case guiHtml::kTypeText:
        return QStringLiteral("text");
    case guiHtml::kTypeControl:
        return QStringLiteral("control");
    case guiHtml::kTypeFrameset:
        return QStringLiteral("frames");
    case guiHtml::kTypeCustom:
        return QStringLiteral("element");
    default:
        return QStringLiteral("box");
    }
}

QString shownText(guiHtml* node)
{
    auto* const text = dynamic_cast<guiHtmlText*>(node);
    if (!text)
        return {};
    QString const all = guiVisibleText(text->editText().view()).text().simplified();
    return all.size() > kMostLetters ? all.left(kMostLetters - 1) + QChar(0x2026) : all;
}

void addIfAny(QJsonObject& item, char const* name, QString const& value)
{
    if (!value.isEmpty())
        item[QLatin1String(name)] = value;
}

QJsonObject treeItem(guiHtml* node, guiHtml const* page)
{
    QJsonObject item{{"id", guiInspector_idOf(node)},
                     {"parent", node == page ? QString() : guiInspector_idOf(node->getParent())},
                     {"kind", kindOf(node)}};
    guiNodeSource const source = guiNodeSourceOf(node);
    addIfAny(item, "tag", source.tag);
    addIfAny(item, "name", sstoq(node->getName()));
    addIfAny(item, "text", shownText(node));
    addIfAny(item, "file", source.file);
    if (source.line != 0)
        item["line"] = static_cast<int>(source.line);
    if (node->m.visible == 0)
        item["isHidden"] = true;
    return item;
}

/// Visits the nodes of a page, each before those in it, until the visitor says no.
bool visit(guiHtml* node, std::function<bool(guiHtml*)> const& visitor)
{
    if (!visitor(node))
        return false;
    for (guiHtml* child : guiNodesOf(node))
        if (!visit(child, visitor))
            return false;
    return true;
}

// ---- One node ----

QString unitName(guiSizeUnit unit)
{
    if (unit == kUnitPixels)
        return QStringLiteral("pixels");
    return unit == kUnitPercent ? QStringLiteral("percent") : QStringLiteral("none");
}

/// The room that the node around has for what is in it.
QJsonObject axis(unsigned asked, guiSizeUnit askedUnit, int least, unsigned wanted, guiSizeUnit wantedUnit,
                 unsigned got)
{
    return {{"asked", static_cast<int>(asked)},   {"askedUnit", unitName(askedUnit)},   {"least", least},
            {"wanted", static_cast<int>(wanted)}, {"wantedUnit", unitName(wantedUnit)}, {"got", static_cast<int>(got)}};
}

QJsonObject widthOf(guiHtml* node)
{
    guiHtml::sizes_t const& fixed = node->m.fixed;
    guiHtml::sizes_t const& dynamic = node->m.dynamic;
    QJsonObject width = axis(fixed.x, fixed.unitX, dynamic.cxMin, dynamic.x, dynamic.unitX, node->m.activeCx);
    width["isSpringy"] = node->m.expandWidth != 0;
    if (guiHtml* const parent = node->getParent())
        width["room"] = guiInnerWidth(parent, guiClampPixels(parent->m.activeCx));
    return width;
}

QJsonObject heightOf(guiHtml* node)
{
    guiHtml::sizes_t const& fixed = node->m.fixed;
    guiHtml::sizes_t const& dynamic = node->m.dynamic;
    QJsonObject height = axis(fixed.y, fixed.unitY, dynamic.cyMin, dynamic.y, dynamic.unitY, node->m.activeCy);
    height["content"] = node->getHeightEstimate(node->m.activeCx);
    height["isSpringy"] = node->m.expandHeight != 0;
    if (guiHtml* const parent = node->getParent()) {
        height["room"] = guiInnerHeight(parent, guiClampPixels(parent->m.activeCy));
        height["isShared"] = parent->m.expandChildren != 0;
    }
    return height;
}

QString colorName(guiColor color)
{
    return QStringLiteral("#%1%2%3")
        .arg(color.red, 2, 16, QLatin1Char('0'))
        .arg(color.green, 2, 16, QLatin1Char('0'))
        .arg(color.blue, 2, 16, QLatin1Char('0'))
        .toUpper();
}

/// A colour, and whether the page gives it or the user's desktop does.
QJsonObject colorOf(guiColor color, bool isGiven) { return {{"color", colorName(color)}, {"isGiven", isGiven}}; }

QJsonObject colorsOf(guiHtml* node)
{
    QJsonObject colors{{"text", colorOf(node->m.textColor, node->m.givenColors & kGivenText)},
                       {"link", colorOf(node->m.linkColor, node->m.givenColors & kGivenLink)}};
    if (node->hasBackgroundColor())
        colors["background"] = colorOf(node->getBackgroundColor(), true);
    return colors;
}

QJsonObject fontOf(guiHtml* node)
{
    int points = 0;
    QFont const font = node->getDefaultFont(&points);
    return {{"family", font.family()}, {"points", points}, {"isBold", font.bold()}, {"isItalic", font.italic()}};
}

QJsonObject scrollOf(guiHtml* node)
{
    constexpr char const* kPolicies[] = {"yes", "grow", "no"};
    guiHtml::scroll_t const& scroll = node->getScroll();
    return {{"policy", QLatin1String(kPolicies[node->getSizePolicy() % 3])},
            {"x", static_cast<int>(scroll.posX)},
            {"y", static_cast<int>(scroll.posY)},
            {"rangeX", static_cast<int>(scroll.rangeX)},
            {"rangeY", static_cast<int>(scroll.rangeY)}};
}

QString alignName(guiAlignment align, char const* first, char const* last)
{
    if (align == kAlignCenter)
        return QStringLiteral("center");
    return QLatin1String(align == kAlignLeft ? first : last);
}

QJsonArray attributesOf(guiNodeSource const& source)
{
    QJsonArray attributes;
    for (auto const& [name, value] : source.attributes)
        attributes.append(QJsonArray{name, value});
    return attributes;
}

/// What is seen of the node, in the window.
bool isAt(guiHtml* node, QPoint place)
{
    guiRect seen;
    node->getClipRect(&seen);
    return place.x() >= seen.left && place.x() < seen.right() && place.y() >= seen.top && place.y() < seen.bottom();
}

} // namespace

QString guiInspector_idOf(guiHtml const* node) { return QString::number(reinterpret_cast<quintptr>(node), 16); }

guiHtml* guiInspector_find(guiHtml* page, QString const& id)
{
    assertOnGuiThread();
    bool isNumber = false;
    auto* const node = reinterpret_cast<guiHtml*>(static_cast<quintptr>(id.toULongLong(&isNumber, 16)));
    bool const isThere = isNumber && pGUI->contains(node) && node->getTopLevelWidget() == page->getTopLevelWidget();
    return isThere ? node : nullptr;
}

QString guiInspector_shapeOf(guiHtml* page)
{
    assertOnGuiThread();
    std::size_t shape = 0;
    visit(page, [&shape](guiHtml* node) {
        auto* const text = dynamic_cast<guiHtmlText*>(node); // a new text may stand in the place of the old one
        shape = qHashMulti(shape, node, node->m.visible, text ? text->editText().view() : QStringView());
        return true;
    });
    return QString::number(shape, 16);
}

QJsonArray guiInspector_tree(guiHtml* page)
{
    assertOnGuiThread();
    QJsonArray items;
    visit(page, [&items, page](guiHtml* node) {
        items.append(treeItem(node, page));
        return items.size() < kMostInspectedNodes;
    });
    return items;
}

QJsonObject guiInspector_describe(guiHtml* node)
{
    assertOnGuiThread();
    guiRect rect;
    node->getRectInWidget(&rect);
    guiNodeSource const source = guiNodeSourceOf(node);
    QJsonObject about{{"id", guiInspector_idOf(node)},
                      {"kind", kindOf(node)},
                      {"tag", source.tag},
                      {"name", sstoq(node->getName())},
                      {"text", shownText(node)},
                      {"file", source.file},
                      {"line", static_cast<int>(source.line)},
                      {"attributes", attributesOf(source)},
                      {"place", QJsonArray{rect.left, rect.top, rect.width, rect.height}},
                      {"width", widthOf(node)},
                      {"height", heightOf(node)},
                      {"border", node->m.border},
                      {"space", node->m.space},
                      {"divide", node->m.divide},
                      {"zoom", node->m.zoom},
                      {"alignX", alignName(node->m.alignX, "left", "right")},
                      {"alignY", alignName(node->m.alignY, "top", "bottom")},
                      {"scroll", scrollOf(node)},
                      {"colors", colorsOf(node)},
                      {"font", fontOf(node)},
                      {"isEnabled", node->isEnabled() != 0},
                      {"isHidden", node->m.visible == 0}};
    return about;
}

guiHtml* guiInspector_nodeAt(guiHtml* page, QPoint place)
{
    assertOnGuiThread();
    if (!isAt(page, place))
        return nullptr;
    guiHtml* found = page;
    for (guiHtml* in = page; in;) {
        in = nullptr;
        for (guiHtml* child : guiNodesOf(found)) // the last one is painted last
            if (child->m.visible != 0 && isAt(child, place))
                in = child;
        found = in ? in : found;
    }
    return found;
}
