// fuzz/page.cpp: any text as a page, laid out at a size that depends on it. What must hold for every page holds; laying
// it out again changes nothing, directly or after a layout at another size. The input is the page itself.
#include "foundation/hashlist.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"
#include "fuzz/qtapplication.h"
#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"
#include "tests/page/referencelayout.h"
#include "tests/support/layoutpromises.h"
#include "tests/support/pagewindow.h"

#include <memory>
#include <vector>

#include <QImage>
#include <QPainter>
#include <QString>

namespace {

void collectRects(guiHtml* node, std::vector<guiRect>& rects)
{
    rects.push_back(node->m.rect);
    for (guiHtml* child : guiNodesOf(node))
        collectRects(child, rects);
}

std::vector<guiRect> rectsAt(PageWindow& page, int width, int height)
{
    page.widget->resize(width, height);
    guiRect rect{0, width, 0, height};
    page.root.calcDynamicLayout();
    page.root.setRect(&rect);
    std::vector<guiRect> rects;
    collectRects(&page.root, rects);
    return rects;
}

/// Whether the page is small and simple enough for the reference layout, which is slow and has no limits.
bool isSimple(guiHtml* node, unsigned depth, unsigned& nodes)
{
    bool const hasHugeNumber = std::max({node->m.fixed.x, node->m.fixed.y}) > 5000 ||
                               std::max({node->m.fixed.cxMin, node->m.fixed.cyMin}) > 5000 || node->m.border > 5000 ||
                               node->m.space > 5000 || node->m.divide > 5000;
    // Nested percentages, which the reference layout does not limit.
    bool const isCut = std::max(node->m.activeCx, node->m.activeCy) >= unsigned{kMaxLayoutPixels};
    int const type = node->getType();
    bool const isKnown = type == guiHtml::kTypePlain || type == guiHtml::kTypeBase || type == guiHtml::kTypeText;
    if (++nodes > 60 || depth > 5 || hasHugeNumber || isCut || !isKnown)
        return false;
    for (guiHtml* child : guiNodesOf(node))
        if (!isSimple(child, depth + 1, nodes))
            return false;
    return true;
}

void check(guiHtml* root, int width, int height)
{
    if (std::string const broken = brokenLayoutPromise(root); !broken.empty())
        finding(broken);
    unsigned nodes = 0;
    if (!isSimple(root, 0, nodes))
        return;
    if (std::string const difference = referenceLayout(root, width, height).difference(); !difference.empty())
        finding("the second computation says " + difference);
}

void paint(PageWindow& page, int width, int height)
{
    QImage image(std::min(width, 400), std::min(height, 300), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return;
    image.fill(Qt::white);
    QPainter painter(&image);
    page.root.paintTo(&painter, 0, 0, page.widget, nullptr);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    startQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    std::string const text(reinterpret_cast<char const*>(bytes), size);
    FuzzRandom random{std::string_view(text)};
    QString markup = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    markup.remove(QChar(u'\0'));

    static hashlist<guiHtml> nodes{257};
    guiHtml::setRegistry(&nodes);
    {
        PageWindow page;
        page.root.setText(sstring(reinterpret_cast<unsigned short const*>(markup.utf16())), sstring());
        int const width = static_cast<int>(random.below(900)) + 1;
        int const height = static_cast<int>(random.below(700)) + 1;
        std::vector<guiRect> const first = rectsAt(page, width, height);
        check(&page.root, width, height);
        require(rectsAt(page, width, height) == first, "a second layout differs");
        rectsAt(page, static_cast<int>(random.below(900)) + 1, static_cast<int>(random.below(700)) + 1);
        require(rectsAt(page, width, height) == first, "a detour over another size changes the layout");
        paint(page, width, height);
        require(page.root.toString(0).getLength() != 0, "an empty dump");
        for (guiHtml* child : guiNodesOf(&page.root))
            std::unique_ptr<guiHtml>(child->Clone(nullptr));
    }
    require(nodes.size() == 0, "a node is left over");
    require(guiNodeWatch::count() == 0, "a watch of a node is left over");
    return 0;
}
