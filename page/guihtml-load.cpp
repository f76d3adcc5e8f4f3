// page/guihtml-load.cpp: gives a node its content from page text.
#include "page/guihtml.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "page/guihtmlparser.h"
#include "page/guilayouthold.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"

#include <QWidget>
#include <cstring>
#include <vector>

namespace {

/// The text as UTF-16 in the machine's byte order, behind a byte-order mark: a "charset" that the page names says how
/// its file was encoded, not this. Both a whole page and a part of one have one element around everything.
std::vector<unsigned char> toBytes(sstring const& text)
{
    constexpr char16_t kOpening[] = u"\xFEFF<html>";
    constexpr char16_t kClosing[] = u"</html>";
    constexpr std::size_t kUnit = sizeof(char16_t);
    constexpr std::size_t kBefore = sizeof kOpening - kUnit;
    constexpr std::size_t kBehind = sizeof kClosing - kUnit;
    std::size_t const inside = kUnit * text.getLength();
    std::vector<unsigned char> bytes(kBefore + inside + kBehind);
    std::memcpy(bytes.data(), kOpening, kBefore);
    std::memcpy(bytes.data() + kBefore, text.getUnicode(), inside);
    std::memcpy(bytes.data() + kBefore + inside, kClosing, kBehind);
    return bytes;
}

struct pulledPage
{
    int result;
    bool mayLoad; // some element names a file
};

/// Makes the elements of a text. Its copy and its sections are gone before anything is laid out: a page of 50 MB would
/// need several times as much at once else.
pulledPage pullPage(guiHtml* node, sstring const& content, sstring const& directory)
{
    std::vector<unsigned char> page = toBytes(content);
    textstream stream(page.data(), static_cast<unsigned>(page.size()), 0);
    mlParser markup(&stream);
    guiHtmlParser parser(&markup, directory);
    int const result = parser.pullPage(node);
    return {result, parser.mayLoad()};
}

} // namespace

int guiHtml::setText(sstring const& content, sstring const& directory)
{
    guiLayoutHold hold;
    guiNodeWatch self(this);
    if (guiPageRoot* root = getBaseHtml())
        root->eraseFormValues(this);
    destroyChildren();
    if (!self.alive())
        return 0;
    resetScroll();
    m.tabOrderDirty = 1;

    pulledPage const page = pullPage(this, content, directory);
    if (guiPageRoot* root = getBaseHtml())
        root->loadFormValues(this);

    // Files pass content filters, which are scripts, and so are elements that go: this node may not outlive them.
    if (self.alive() && (page.mayLoad || hasString(kStringSource) || hasString(kStringBackground)))
        dynamicLoad();
    if (!self.alive())
        return 0;
    QWidget* widget = getTopLevelWidget();
    if (widget && widget->isVisible())
        onShow();
    updateLayout(1);
    hold.release();
    return page.result;
}
