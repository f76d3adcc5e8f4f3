// page/guihtml-dump.cpp: the tree as text, for tests and the debugger.
#include "page/guihtml.h"

#include <QScrollBar>
#include <string>

namespace {

char const* typeWord(int type)
{
    static char const* const words[] = {"HTML", "BASE", "FORM", "IMAGE", "TEXT", "CONTROL", "FRAMESET"};
    return type >= 0 && type < 7 ? words[type] : "UNKNOWN";
}

char const* unitWord(guiSizeUnit unit)
{
    switch (unit) {
    case kUnitPixels:
        return " pixels";
    case kUnitPercent:
        return "%";
    default:
        return "/unbound";
    }
}

char const* yesNo(int flag) { return flag ? "yes" : "no"; }

char const* alignWord(guiAlignment align, char const* low, char const* high)
{
    switch (align) {
    case kAlignLeft:
        return low;
    case kAlignCenter:
        return "center";
    case kAlignRight:
        return high;
    default:
        return "unknown";
    }
}

char const* markerText(guiMarker marker)
{
    switch (marker) {
    case kMarkerNone:
        return "NULL\n\n";
    case kMarkerParagraph:
        return "PARAGRAPH\n\n";
    case kMarkerLineBreak:
        return "LINEBREAK\n\n";
    case kMarkerAlignLeft:
        return "ALIGN:LEFT\n\n";
    case kMarkerAlignCenter:
        return "ALIGN:CENTER\n\n";
    case kMarkerAlignRight:
        return "ALIGN:RIGHT\n\n";
    default:
        return "";
    }
}

std::string indent(unsigned blanks) { return std::string(blanks, ' '); }

/// Collects lines that all have the same indentation.
class dumpWriter
{
public:
    explicit dumpWriter(unsigned blanks) : m_blanks(indent(blanks)) {}
    void line(sstring const& text)
    {
        m_out += m_blanks.c_str();
        m_out += text;
    }
    void raw(sstring const& text) { m_out += text; }
    sstring const& text() const { return m_out; }

private:
    std::string m_blanks;
    sstring m_out;
};

/// A line about sizes: requests and minimums on both axes, then `end`.
sformat sizesText(char const* word, guiHtml::sizes_t const& sizes, char const* end)
{
    return sformat("%s: X=%lu%s, Y=%lu%s, cxMin=%ld, cyMin=%ld%s", word, static_cast<unsigned long>(sizes.x),
                   unitWord(sizes.unitX), static_cast<unsigned long>(sizes.y), unitWord(sizes.unitY),
                   static_cast<long>(sizes.cxMin), static_cast<long>(sizes.cyMin), end);
}

void writeGeometry(dumpWriter& out, guiHtml* node)
{
    guiRect const& rect = node->m.rect;
    out.line(sformat("rect: (%ld,%ld)-(%ld,%ld) = %ldx%ld\n", long{rect.left}, long{rect.top}, long{rect.right()},
                     long{rect.bottom()}, long{rect.width}, long{rect.height}));
    out.line(sformat("border %ld; space %ld; divide %ld\n", long{node->m.border}, long{node->m.space},
                     long{node->m.divide}));
    out.line(sizesText("static", node->m.fixed, "\n"));
    out.line(sformat("expansion: children=%s, width=%s, height=%s\n", yesNo(node->m.expandChildren),
                     yesNo(node->m.expandWidth), yesNo(node->m.expandHeight)));
    sformat preferred(", cxPref=%ld\n", long{node->getPreferredWidth()});
    out.line(sizesText("dynamic", node->m.dynamic, preferred.c_str()));
    out.line(sformat("active: cx=%lu, cy=%lu\n", static_cast<unsigned long>(node->m.activeCx),
                     static_cast<unsigned long>(node->m.activeCy)));
}

void writeLook(dumpWriter& out, guiHtml* node)
{
    guiHtml::scroll_t const& scroll = node->getScroll();
    out.line(sformat("scroll: %s=%lu, %s=%lu\n", scroll.barX ? "horz" : "", static_cast<unsigned long>(scroll.rangeX),
                     scroll.barY ? "vert" : "", static_cast<unsigned long>(scroll.rangeY)));
    out.line(sformat("align: X=%s, Y=%s\n", alignWord(node->m.alignX, "left", "right"),
                     alignWord(node->m.alignY, "top", "bottom")));
    if (!node->hasString(kStringFace))
        out.line("font: no override supplied\n");
    else
        out.line(sstring("font: ") + node->getString(kStringFace) + "\n");
}

void writeChildren(dumpWriter& out, guiHtml* node, unsigned indent)
{
    out.line("{\n");
    dumpWriter inner(indent);
    for (unsigned i = 0; i < node->getChildCount(); ++i) {
        guiHtml* entry = node->getChild(i);
        if (guiChildList::isNode(entry))
            inner.raw(entry->toString(indent));
        else
            inner.line(markerText(guiChildList::toMarker(entry)));
    }
    out.raw(inner.text());
    out.line("}\n");
}

} // namespace

sstring guiHtml::toString(unsigned indent)
{
    dumpWriter out(indent);
    out.line(sstring(typeWord(getType())) + ": " + getName() + "\n");
    if (getType() == kTypeText)
        out.line(sstring("text: ") + getRunText() + "\n");
    writeGeometry(out, this);
    writeLook(out, this);
    writeChildren(out, this, indent + 2);
    return out.text();
}
