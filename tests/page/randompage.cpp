// tests/page/randompage.cpp: see randompage.h.
#include "tests/page/randompage.h"

#include "page/guihtmlparser.h"
#include "page/guitagtable.h"
#include "tests/page/pagetree.h"

namespace {

/// To layout a form is a node that holds others. The real one and its reader belong to a layer above pages.
class formNode : public guiHtml
{
public:
    using guiHtml::operator=;
    int getType() override { return kTypeForm; }
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }
};

void pullForm(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* form = new formNode;
    parser.appendBlock(parent, form);
    guiHtmlParser::pullObjectAlignment(form, section);
    guiHtmlParser::pullRestrict(form, section);
    guiHtmlParser::pullBorder(form, section);
    parser.pullContent(form, section);
}

guiTag const kForm("form", pullForm, kTagNests);

constexpr int kDeepestTable = 4;
constexpr unsigned kLongestPage = 4000; // characters; then items become single words

void collectContainers(guiHtml* node, std::vector<guiHtml*>& found)
{
    if (node->getType() == guiHtml::kTypePlain || node->getType() == guiHtml::kTypeForm)
        found.push_back(node);
    for (guiHtml* child : guiNodesOf(node))
        collectContainers(child, found);
}

} // namespace

randomPage::randomPage(unsigned seed) : m_random(seed)
{
    width = static_cast<int>(20 + below(900));
    height = static_cast<int>(20 + below(700));
    otherWidth = static_cast<int>(20 + below(900));
    otherHeight = static_cast<int>(20 + below(700));
    m_markup = "<body";
    if (oneIn(3))
        m_markup += " scrolling";
    writeFrame();
    m_markup += ">";
    writeContent(kDeepestTable);
    m_markup += "</body>";
}

void randomPage::writeContent(int depth)
{
    for (unsigned items = 1 + below(4); items > 0; --items)
        writeItem(depth);
}

void randomPage::writeItem(int depth)
{
    if (m_markup.size() > kLongestPage || depth <= 0)
        return writeWords(1);
    switch (below(12)) {
    case 0:
    case 1:
        return writeText();
    case 2:
        return writeFormatted();
    case 3:
        return writeInside(oneOf({"<p>", "<p align=center>", "<p align=right>", "<p align=left>"}), "</p>", depth);
    case 4:
        return writeInside(oneOf({"<div>", "<div align=middle>", "<div align=right>"}), "</div>", depth);
    case 5:
        return writeInside("<center>", "</center>", depth);
    case 6:
        return writeInside(oneOf({"<h1>", "<h2>", "<h3>"}), oneOf({"</h1>", "</h2>", "</h3>"}), 1);
    case 7:
        return writeList(depth);
    case 8:
        m_markup += oneOf({"<hr>", "<hr width=70 align=right>", "<hr width=40% size=5>", "<hr noshade>"});
        return;
    case 9:
        return writeInside("<form border=1 cellpadding=2 align=right>", "</form>", depth);
    default:
        return writeTable(depth);
    }
}

void randomPage::writeText()
{
    constexpr unsigned kLengths[] = {0, 1, 2, 5, 12, 30, 90};
    writeWords(kLengths[below(std::size(kLengths))]);
}

void randomPage::writeWords(unsigned count)
{
    for (; count > 0; --count) {
        unsigned const length = oneIn(40) ? 40 + below(120) : 1 + below(11);
        for (unsigned i = 0; i < length; ++i)
            m_markup += static_cast<char>('a' + below(26));
        m_markup += ' ';
    }
}

void randomPage::writeFormatted()
{
    switch (below(5)) {
    case 0:
        return writeInside("<b>", "</b>", 1);
    case 1:
        return writeInside("<font size=5 color=red>", "</font>", 1);
    case 2:
        return writeInside("<a href=event://go>", "</a>", 1);
    case 3:
        m_markup += "line<br>line<br><br>";
        return;
    default:
        return writeInside("<sup><i>", "</i></sup>", 1);
    }
}

void randomPage::writeInside(char const* opening, char const* closing, int depth)
{
    m_markup += opening;
    writeWords(below(4));
    writeItem(depth - 1);
    m_markup += closing;
}

void randomPage::writeList(int depth)
{
    char const* const kind = oneOf({"menu", "ul", "dl"});
    m_markup += std::string("<") + kind + ">";
    for (unsigned items = 1 + below(3); items > 0; --items)
        writeInside(oneOf({"<li>", "<dd>", "<dt>"}), "", depth - 1);
    m_markup += std::string("</") + kind + ">";
}

void randomPage::writeTable(int depth)
{
    m_markup += "<table";
    writeSize(" width");
    writeSize(" height");
    writeFrame();
    if (oneIn(6))
        m_markup += oneOf({" caption=Group", " caption=*EMPTYGROUPBOX*"});
    m_markup += ">";
    for (unsigned rows = 1 + below(3); rows > 0; --rows) {
        m_markup += "<tr>";
        for (unsigned cells = 1 + below(4); cells > 0; --cells)
            writeCell(depth);
        m_markup += "</tr>";
    }
    m_markup += "</table>";
}

void randomPage::writeCell(int depth)
{
    m_markup += "<td";
    writeSize(oneIn(4) ? " minwidth" : " width");
    writeSize(oneIn(4) ? " minheight" : " height");
    m_markup += oneOf({"", "", " align=right", " align=center"});
    m_markup += oneOf({"", "", " valign=top", " valign=bottom"});
    if (oneIn(3))
        writeFrame();
    m_markup += ">";
    if (!oneIn(5))
        writeContent(depth - 1);
    m_markup += "</td>";
}

void randomPage::writeSize(char const* name)
{
    if (!oneIn(3))
        return;
    unsigned const kind = below(2);
    m_markup += std::string(name) + "=" + std::to_string(kind ? below(130) : below(300)) + (kind ? "%" : "");
}

void randomPage::writeFrame()
{
    if (oneIn(2))
        m_markup += " border=" + std::to_string(below(4));
    if (oneIn(2))
        m_markup += " cellspacing=" + std::to_string(below(5)) + " cellpadding=" + std::to_string(below(3));
    m_markup += oneOf({"", "", "", " scrolling=no", " scrolling=yes", " scrolling=fixed"});
}

void randomPage::decorate(guiHtml* root)
{
    std::vector<guiHtml*> containers{root};
    collectContainers(root, containers);
    for (guiHtml* node : containers)
        if (oneIn(3))
            decorateNode(node);
}

void randomPage::decorateNode(guiHtml* node)
{
    for (unsigned entries = below(5); entries > 0; --entries)
        if (oneIn(2))
            addBox(node, static_cast<int>(below(160)), static_cast<int>(below(60)));
        else
            node->appendMarker(static_cast<guiMarker>(below(6)));
    if (oneIn(4))
        node->m.fixed.cxMin = static_cast<int>(below(200));
    if (oneIn(4))
        node->m.fixed.cyMin = static_cast<int>(below(120));
}
