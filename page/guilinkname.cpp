// page/guilinkname.cpp: see guilinkname.h.
#include "page/guilinkname.h"

#include "foundation/vela-qt.h"
#include "page/guifiletype.h"
#include "page/guihtml.h"
#include "page/guipagehost.h"
#include "page/guipageroot.h"

#include <algorithm>

namespace {

/// The value of a hexadecimal digit, -1 for any other character.
int hexValue(unsigned short unit)
{
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    unsigned lower = unit | 0x20u;
    return lower >= 'a' && lower <= 'f' ? static_cast<int>(lower - 'a') + 10 : -1;
}

/// The code at "%XY", 0 when there is none.
unsigned short percentCode(unsigned short const* at, unsigned short const* end)
{
    if (*at != '%' || end - at < 3)
        return 0;
    int high = hexValue(at[1]);
    int low = hexValue(at[2]);
    return high < 0 || low < 0 ? 0 : static_cast<unsigned short>(high * 16 + low);
}

bool isScheme(sstring const& text)
{
    auto isLetter = [](unsigned short unit) { return (unit | 0x20u) >= 'a' && (unit | 0x20u) <= 'z'; };
    unsigned short const* units = text.getUnicode();
    return text.getLength() != 0 && std::all_of(units, units + text.getLength(), isLetter);
}

/// What stands before the first colon, in small letters, if it can be the scheme of an address; else "".
QString schemeOf(sstring const& link)
{
    QStringView const text = sstoview(link);
    QStringView const scheme = text.left(std::max<qsizetype>(text.indexOf(u':'), 0));
    auto isLetter = [](QChar unit) { return unit.unicode() < 128 && unit.isLetter(); };
    auto belongs = [&](QChar unit) {
        return isLetter(unit) || (unit >= u'0' && unit <= u'9') || QStringView(u"+-.").contains(unit);
    };
    bool const isScheme =
        !scheme.isEmpty() && isLetter(scheme[0]) && std::all_of(scheme.begin(), scheme.end(), belongs);
    return isScheme ? scheme.toString().toLower() : QString();
}

} // namespace

sstring guiDecodePercent(sstring const& link)
{
    sstring decoded;
    unsigned short const* at = link.getUnicode();
    unsigned short const* end = at + link.getLength();
    while (at < end) {
        unsigned short code = percentCode(at, end);
        decoded += code != 0 ? code : *at;
        at += code != 0 ? 3 : 1;
    }
    return decoded;
}

void guiSplitTarget(sstring const& link, sstring& target, sstring& rest)
{
    sstring whole = link; // the outputs may be the input
    unsigned close = whole.find(static_cast<unsigned short>('}'));
    bool hasTarget = whole.getLength() != 0 && whole[0u] == '{' && close != sstring::npos;
    target = hasTarget ? whole.subString(1, close - 1) : sstring("_self");
    rest = hasTarget ? whole.subString(close + 1) : whole;
}

void guiSplitBookmark(sstring const& link, sstring& file, sstring& bookmark)
{
    sstring whole = link;
    unsigned mark = whole.find(static_cast<unsigned short>('#'));
    bookmark = mark == sstring::npos ? sstring() : whole.subString(mark + 1);
    file = mark == sstring::npos ? whole : whole.subString(0, mark);
}

bool guiIsFullName(sstring const& file)
{
    if (file.getLength() != 0 && file[0u] == '/')
        return true;
    unsigned colon = file.find(sstring("://"));
    return colon != sstring::npos && isScheme(file.subString(0, colon));
}

guiLinkKind guiKindOfLink(sstring const& link)
{
    QString const scheme = schemeOf(link);
    if (scheme.isEmpty() || scheme == u"file" || scheme == u"vfs" || scheme == u"event")
        return guiLinkKind::kPage;
    bool const isOutside = scheme == u"http" || scheme == u"https" || scheme == u"mailto";
    return isOutside ? guiLinkKind::kOutside : guiLinkKind::kUnknown;
}

sstring guiDirectoryOf(sstring const& file)
{
    unsigned slash = file.rfind(static_cast<unsigned short>('/'));
    return slash == sstring::npos ? sstring() : file.subString(0, slash + 1);
}

sstring guiPageDirectory(guiHtml const* node)
{
    guiHtml const* page = node->getParent() ? node->getParent() : node;
    while (page->getParent() && !page->hasString(kStringFile))
        page = page->getParent();
    return guiDirectoryOf(page->getString(kStringFile));
}

sstring guiFullName(guiHtml* node, sstring const& file)
{
    sstring name = guiIsFullName(file) ? file : guiPageDirectory(node) + file;
    return guiPageHost::current().resolvePath(guiPageObjectOf(node), name);
}

bool guiIsPageFile(sstring const& file) { return getFindFileType(file) == kFileOther; }
