// tests/support/parsedpage.cpp: see parsedpage.h.
#include "tests/support/parsedpage.h"

#include "page/guihtmltext.h"

#include <QString>
#include <algorithm>

std::string utf8(sstring const& text)
{
    return QString::fromUtf16(reinterpret_cast<char16_t const*>(text.getUnicode()), text.getLength()).toStdString();
}

namespace {

sstring fromUtf8(std::string const& text)
{
    return sstring(reinterpret_cast<unsigned short const*>(QString::fromStdString(text).utf16()));
}

std::string kindOf(guiHtml* node)
{
    switch (node->getType()) {
    case guiHtml::kTypeBase:
        return "base";
    case guiHtml::kTypeForm:
        return "form";
    case guiHtml::kTypeImage:
        return "image";
    case guiHtml::kTypeControl:
        return controlWord(node);
    case guiHtml::kTypeFrameset:
        return "frameset";
    case guiHtml::kTypeCustom:
        return "custom";
    default:
        return "html";
    }
}

std::string wordOf(guiHtml* entry)
{
    if (!guiChildList::isNode(entry)) {
        char const* const words[] = {"NULL", "P", "BR", "LEFT", "CENTER", "RIGHT"};
        return words[guiChildList::toMarker(entry)];
    }
    if (entry->getType() == guiHtml::kTypeText)
        return "'" + utf8(static_cast<guiHtmlText*>(entry)->getText()) + "'";
    std::string children = outline(entry);
    return kindOf(entry) + (children.empty() ? "" : "{" + children + "}");
}

} // namespace

parsedPage parsePageInto(std::unique_ptr<guiHtml> root, std::string const& text)
{
    parsedPage page{std::move(root), "", 0};
    testing::internal::CaptureStderr();
    page.result = page.root->setText(fromUtf8(text), "");
    page.log = testing::internal::GetCapturedStderr();
    return page;
}

parsedPage parsePage(std::string const& text) { return parsePageInto(std::make_unique<guiHtml>(), text); }

std::string outline(guiHtml* node)
{
    std::string line;
    for (unsigned i = 0; i < node->getChildCount(); ++i)
        line += (i ? " " : "") + wordOf(node->getChild(i));
    return line;
}

std::string outlineOf(std::string const& text)
{
    parsedPage page = parsePage(text);
    EXPECT_EQ(page.log, "");
    EXPECT_EQ(page.result, 1);
    return outline(page.root.get());
}

guiHtml* findType(guiHtml* node, int type)
{
    for (guiHtml* child : guiNodesOf(node)) {
        if (child->getType() == type)
            return child;
        if (guiHtml* found = findType(child, type))
            return found;
    }
    return nullptr;
}

unsigned deepest(guiHtml* node)
{
    unsigned depth = 0;
    for (guiHtml* child : guiNodesOf(node))
        depth = std::max(depth, 1 + deepest(child));
    return depth;
}
