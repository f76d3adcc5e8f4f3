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
#include <algorithm>
#include <cassert>
#include <cmath>

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

/// Whether the page is in the desktop's font, which it asks for as a whole.
bool isInSystemFont(guiHtml const* node)
{
    if (!node->m.useSystemFont)
        return false;
    while (node->m.parent)
        node = node->m.parent;
    return node->m.useSystemFont;
}

/// The desktop's font at a zoom in percent.
QFont systemFont(unsigned zoom)
{
    QFont font = QApplication::font();
    if (zoom != kUnzoomed)
        font.setPixelSize(guiZoomedLength(QFontInfo(font).pixelSize(), zoom));
    return font;
}

/// The desktop's size of text in percent of that of a page.
unsigned systemScale() TARN_ON(velaGuiRole)
{
    constexpr unsigned kLeast = 25;
    constexpr unsigned kMost = 400;
    static QFont& known = *new QFont;
    static unsigned scale = 0;
    QFont const font = QApplication::font();
    if (scale == 0 || font != known) {
        known = font;
        double const own = findFontHeight(font, kDefaultPoints);
        scale = std::clamp(static_cast<unsigned>(std::lround(QFontInfo(font).pixelSize() * 100 / own)), kLeast, kMost);
    }
    return scale;
}

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

QFont guiPageFont(guiHtml const* root, int* points)
{
    assertOnGuiThread();
    if (points)
        *points = kDefaultPoints;
    unsigned const zoom = root->m.zoom;
    return root->m.useSystemFont ? systemFont(zoom)
                                 : guiTextFonts::face(QApplication::font().family(), kDefaultPoints, true, zoom).font();
}

guiTextScale guiTextScaleOf(guiHtml const* node)
{
    assertOnGuiThread();
    unsigned const zoom = node->m.zoom;
    return {isInSystemFont(node) ? zoom * systemScale() / kUnzoomed : zoom, zoom};
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
    QString const family = request.face.isEmpty() ? font.family() : request.face;
    return guiTextFonts::face(family, size, true, guiTextScaleOf(this).font).font();
}
