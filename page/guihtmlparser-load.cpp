// page/guihtmlparser-load.cpp: fills a node from page text.
#include "page/guihtml.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlparser.h"
#include "page/guilayouthold.h"
#include "page/guinodewatch.h"
#include "page/guipagefile.h"
#include "page/guipageroot.h"
#include "page/guizoom.h"

#include <QWidget>
#include <cstring>
#include <vector>

namespace {

/// The text as UTF-16 in the machine's byte order. The byte-order mark in front overrides a "charset" in the page,
/// which says how the file was encoded. The html element makes a part of a page parse like a whole one.
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
    bool mayLoad; // dynamicLoad() may have something to do
};

/// Parses the text into nodes. A function of its own so that the parser and its copy of the text are freed before the
/// layout: on a page of 50 MB they take several times that much.
pulledPage pullPage(guiHtml* node, sstring const& content, sstring const& directory, sstring const& file)
{
    std::vector<unsigned char> page = toBytes(content);
    textstream stream(page.data(), static_cast<unsigned>(page.size()), 0);
    mlParser markup(&stream);
    guiHtmlParser parser(&markup, directory, file);
    int const result = parser.pullPage(node);
    return {result, parser.mayLoad()};
}

void endContent(guiHtml* node, guiPageRoot* root)
{
    guiNodeWatch self(node);
    root->endElements(node);
    if (self.alive())
        root->eraseFormValues(node);
}

} // namespace

int guiHtml::setText(sstring const& content, sstring const& directory)
{
    assertOnGuiThread();
    sstring const file = guiPageOrigin::take();
    guiLayoutHold hold;
    guiNodeWatch self(this);
    if (guiPageRoot* root = getBaseHtml())
        endContent(this, root);
    if (!self.alive())
        return 0;
    destroyChildren();
    if (!self.alive())
        return 0;
    unsigned const zoom = m.zoom;
    guiZoomNode(this, kUnzoomed);
    resetScroll();
    m.tabOrderDirty = 1;

    pulledPage const page = pullPage(this, content, directory, file);
    if (zoom != kUnzoomed)
        guiZoomTree(this, zoom);
    if (guiPageRoot* root = getBaseHtml())
        root->loadFormValues(this);

    // Content filters and custom elements run script, which may delete this node.
    if (self.alive() && (page.mayLoad || hasString(kStringSource) || hasString(kStringBackground)))
        dynamicLoad();
    if (guiPageRoot* root = self.alive() ? getBaseHtml() : nullptr)
        root->startElements(this);
    if (!self.alive())
        return 0;
    QWidget* widget = getTopLevelWidget();
    if (widget && widget->isVisible())
        onShow();
    updateLayout(1);
    hold.release();
    return page.result;
}
