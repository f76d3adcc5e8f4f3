// page/guihtml-font.cpp: the font of a node: its own, if the page names one, otherwise its parent's.
#include "foundation/vela-qt.h"
#include "page/guifontepoch.h"
#include "page/guihtml.h"
#include "page/guihtmlsize.h"
#include "page/guihtmltext-fonts.h"
#include "page/guilayoutcounters.h"

#include <QApplication>
#include <QFontInfo>

namespace {

bool decidesAboutFont(guiHtml* node)
{
    return !node->m.parent || node->hasString(kStringFace) || node->getType() == guiHtml::kTypeBase;
}

bool knowsSource(guiHtml const* node)
{
    return guiLayoutRun::isActive() && node->m.layout.knows(guiLayoutMemo::kFont, guiLayoutRun::number());
}

/// The nearest node from here up that decides about its font itself. In a layout every node passed remembers it, so
/// that a deep page is not climbed again for each of its texts.
guiHtml* fontSource(guiHtml* node)
{
    guiHtml* source = node;
    for (; !knowsSource(source) && !decidesAboutFont(source); ++guiLayoutCounters::fontClimbs)
        source = source->m.parent;
    if (knowsSource(source))
        source = source->m.layout.fontSource;
    for (; node != source && !knowsSource(node) && guiLayoutRun::isActive(); node = node->m.parent) {
        node->m.layout.fontSource = source;
        node->m.layout.learn(guiLayoutMemo::kFont, guiLayoutRun::number());
    }
    return source;
}

/// The last source asked in a layout: most nodes of a page share one.
struct rememberedFont
{
    guiHtml* source = nullptr;
    std::uint32_t run = 0;
    QFont font;
    int points = 0;
};

QFont fontFrom(guiHtml* source, int* points)
{
    static rememberedFont& last = *new rememberedFont;
    if (!guiLayoutRun::isActive())
        return source->getDefaultFont(points);
    if (last.source != source || last.run != guiLayoutRun::number())
        last = {source, guiLayoutRun::number(), source->getDefaultFont(&last.points), last.points};
    if (points)
        *points = last.points;
    return last.font;
}

/// The last root that a layout began with.
struct checkedRoot
{
    guiHtml* root = nullptr;
    QFont font;
    int points = 0;
};

QFont applicationFont(int* points)
{
    QFont const font = QApplication::font();
    if (points)
        *points = std::max(1, QFontInfo(font).pointSize());
    return font;
}

} // namespace

void guiFontEpoch::check(guiHtml* root)
{
    static checkedRoot& last = *new checkedRoot;
    int points = 0;
    QFont const font = root->getDefaultFont(&points);
    if (root == last.root && points == last.points && font == last.font)
        return;
    last = {root, font, points};
    advance();
}

// The window root overrides this: it supplies the first font.
QFont guiHtml::getDefaultFont(int* points)
{
    if (!m.parent)
        return applicationFont(points);
    if (guiHtml* source = fontSource(this); source != this)
        return fontFrom(source, points);
    int inherited = 0;
    QFont const font = m.parent->getDefaultFont(&inherited);
    guiFontRequest const request = guiReadFontRequest(sstoview(getString(kStringFace)));
    int const size = request.points ? request.points : inherited;
    if (points)
        *points = size;
    return guiTextFonts::face(request.face.isEmpty() ? font.family() : request.face, size, true).font();
}
