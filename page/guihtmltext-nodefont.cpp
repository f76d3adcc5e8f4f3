// page/guihtmltext-nodefont.cpp: the font of a node: its own if the page names one, otherwise that of its parent.
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guifontepoch.h"
#include "page/guihtml.h"
#include "page/guihtmlsize.h"
#include "page/guihtmltext-fonts.h"
#include "page/guilayoutcounters.h"

#include <QApplication>
#include <QFontInfo>
#include <cassert>

namespace {

bool choosesFont(guiHtml* node)
{
    return !node->m.parent || node->hasString(kStringFace) || node->getType() == guiHtml::kTypeBase;
}

bool knowsSource(guiHtml const* node)
{
    return guiLayoutRun::isActive() && node->m.layout.knows(guiLayoutMemo::kFont, guiLayoutRun::number());
}

/// The nearest node, from this one upwards, that chooses its own font. During a layout the nodes on the way remember
/// it, so that the walk is not repeated for each text of a deep page.
guiHtml* fontSource(guiHtml* node)
{
    guiHtml* source = node;
    for (; !knowsSource(source) && !choosesFont(source); ++guiLayoutCounters::fontClimbs)
        source = source->m.parent;
    if (knowsSource(source))
        source = source->m.layout.fontSource;
    assert(choosesFont(source));
    for (; node != source && !knowsSource(node) && guiLayoutRun::isActive(); node = node->m.parent) {
        node->m.layout.fontSource = source;
        node->m.layout.learn(guiLayoutMemo::kFont, guiLayoutRun::number());
    }
    return source;
}

/// The font source that was asked last during a layout: most nodes of a page share one.
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

/// The root that the last layout began with, and its font then.
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
    assertOnGuiThread();
    assert(!root->m.parent);
    static checkedRoot& last = *new checkedRoot;
    int points = 0;
    QFont const font = root->getDefaultFont(&points);
    if (root == last.root && points == last.points && font == last.font)
        return;
    last = {root, font, points};
    advance();
}

// The root of a window overrides this: all other fonts derive from its font.
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
