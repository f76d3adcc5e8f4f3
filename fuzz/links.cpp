// fuzz/links.cpp: any text as a link, followed from any node of a page with frames, with a few files and handlers.
// Percent codes, targets and bookmarks are parsed by their rules.
//
// Input: the node, the handler's answer (a line), then the link.

#include "controls/guihtmlimage.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"
#include "fuzz/qtapplication.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "tests/support/fakescript.h"
#include "tests/support/pagewindow.h"

#include <cctype>

#include <QString>

namespace {

sstring toText(std::string const& utf8)
{
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    text.remove(QChar(u'\0'));
    return sstring(reinterpret_cast<unsigned short const*>(text.utf16()));
}

using Units = std::u16string;

Units unitsOf(sstring const& text)
{
    return Units(reinterpret_cast<char16_t const*>(text.getUnicode()), text.getLength());
}

/// The code at "%XY", 0 if there is none.
char16_t codeAt(Units const& link, size_t at)
{
    if (link[at] != u'%' || at + 2 >= link.size())
        return 0;
    std::string digits;
    for (size_t i : {at + 1, at + 2})
        digits += link[i] < 128 && std::isxdigit(link[i]) ? static_cast<char>(link[i]) : '?';
    return digits.find('?') == std::string::npos ? static_cast<char16_t>(std::stoi(digits, nullptr, 16)) : u'\0';
}

Units decoded(Units const& link)
{
    Units out;
    for (size_t i = 0; i < link.size(); ++i) {
        char16_t const code = codeAt(link, i);
        out += code != 0 ? code : link[i];
        i += code != 0 ? 2 : 0;
    }
    return out;
}

bool has(Units const& text, char16_t unit) { return text.find(unit) != Units::npos; }

void checkParts(sstring const& link)
{
    Units const whole = unitsOf(link);
    require(unitsOf(guiDecodePercent(link)) == decoded(whole), "percent codes are decoded differently");

    sstring target;
    sstring rest;
    guiSplitTarget(link, target, rest);
    bool const hasTarget = whole.starts_with(u'{') && has(whole, u'}');
    Units const braces = hasTarget ? u"{" + unitsOf(target) + u"}" : Units();
    require(braces + unitsOf(rest) == whole, "the target is cut wrongly");
    require(hasTarget || target == "_self", "a link without a target has one");

    sstring file;
    sstring mark;
    guiSplitBookmark(link, file, mark);
    Units const behind = has(whole, u'#') ? Units(u"#").append(unitsOf(mark)) : Units();
    require(unitsOf(file) + behind == whole, "the bookmark is cut wrongly");
    require(!has(unitsOf(file), u'#'), "a file name with a bookmark");
    require(whole.starts_with(unitsOf(guiDirectoryOf(link))), "the directory is not the begin of the name");
    guiIsPageFile(link);
}

/// The files that exist, with links to each other.
void addFiles(FakeHost& host)
{
    host.files["/app/pages/main.html"] = "<a href='next.html'>x</a>";
    host.files["/app/pages/next.html"] = "<table name=right><td name=inner><a name=mark>y</a></td></table>";
    host.files["/app/pages/frames.html"] =
        "<frameset cols='*,*'><frame name=left src=next.html><frame name=right src=frames.html></frameset>";
    host.files["/app/pages/picture.png"] = "";
}

guiHtml* anyNode(guiHtml* node, unsigned steps)
{
    for (; steps != 0; --steps) {
        guiHtml* child = node->getLastChild();
        if (!child)
            break;
        node = child;
    }
    return node;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    startQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    FuzzBytes input(bytes, size);
    unsigned const place = input.byte();
    std::string const rest = input.rest();
    std::string reply = rest.substr(0, rest.find('\n'));
    sstring const link = toText(reply.size() < rest.size() ? rest.substr(reply.size() + 1) : rest);
    checkParts(link);

    FakeHost host;
    addFiles(host);
    FakeObject page;
    FakeObject own;
    {
        guiHtmlBase root(&page, nullptr, nullptr, sstring("/app/pages/main.html"));
        page.methods["a"] = [&](std::string const&) { return reply; };
        page.methods["again"] = [&](std::string const&) {
            root.setText(sstring("<table name=left>new</table>"), sstring("/app/pages/"));
            return reply;
        };
        own.methods["own"] = page.methods["a"];
        root.setText(sstring("<frameset rows='50%,*'><frame name=left><frame name=right></frameset>"
                             "<table name=cell><td><a href='x' name=bottom>z</a></td></table><img name=picture>"),
                     sstring("/app/pages/"));
        guiHtml* from = anyNode(&root, place % 5);
        guiNodeWatch watch(from);
        from->onHyperlink(link, place & 64 ? &own : nullptr);
        if (guiHtml* still = watch.get())
            still->onEvent(link, place & 128 ? &page : nullptr);
        PageWindow::settle();
    }
    PageWindow::settle();
    require(guiNodeWatch::count() == 0, "a watch of a node was left over");
    return 0;
}
