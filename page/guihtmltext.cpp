// page/guihtmltext.cpp: the size of a text node, and where it paints. drawText() is in guihtmltext-draw.cpp, the
// handling of links in guihtmltext-links.cpp.
#include "page/guihtmltext.h"

#include "foundation/vela-threadrole.h"
#include "page/guifontepoch.h"
#include "page/guihtmlsize.h"
#include "page/guihtmltext-fonts.h"
#include "page/guilayoutcounters.h"
#include "page/guisavedpainter.h"
#include "page/guitextmarks.h"

#include <QPainter>

#include <algorithm>
#include <limits>

guiHtml& guiHtmlText::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (other.getType() == kTypeText)
        mx.text = static_cast<guiHtmlText&>(other).mx.text;
    return *this;
}

guiHtml* guiHtmlText::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

/// Colours are chosen only for painting.
textParams guiHtmlText::ownParams(bool isPainted)
{
    textParams params;
    params.font = getDefaultFont(&params.points);
    params.align = m.alignX;
    params.direction = m.direction;
    params.scale = guiTextScaleOf(this);
    if (isPainted) {
        guiInks const inks = guiInksOf(this);
        params.textColor = inks.text;
        params.linkColor = inks.link;
        params.activeLinkColor = inks.activeLink;
        params.onMark = {guiColor::Black, m.linkColor, m.activeLinkColor};
    }
    return params;
}

int guiHtmlText::paintText(QPainter* painter, guiRect* box, sstring const& text, int* widthOut)
{
    textParams const params = ownParams(painter != nullptr);
    return drawText(painter, box, text, &params, widthOut, &mx);
}

// During a layout the font is looked up once, however often the run is measured.
bool guiHtmlText::isFontKnown() const
{
    return guiLayoutRun::fontsAreChecked() && mx.text.isMeasured() && mx.measures.fontEpoch == guiFontEpoch::number();
}

int guiHtmlText::getPreferredWidth()
{
    ++guiLayoutCounters::widthQueries;
    int width = 0;
    if (std::optional<guiTextMeasures::extent> const known = mx.measures.preferred(); known && isFontKnown())
        width = known->width;
    else
        layOut(nullptr, {m.border, std::numeric_limits<int>::max(), m.border, 0}, &width);
    return guiClampPixels(std::int64_t{width} + 2 * std::int64_t{m.border});
}

guiRect guiHtmlText::boxForWidth(unsigned long width) const
{
    std::int64_t const inner = guiClampPixels(width) - 2 * std::int64_t{m.border};
    return {m.border, guiClampPixels(inner), m.border, 0};
}

int guiHtmlText::getHeightEstimate(unsigned long width)
{
    ++guiLayoutCounters::heightQueries;
    guiRect const box = boxForWidth(width);
    if (isFontKnown() && !mx.measures.hasLinks())
        if (std::optional<int> const known = mx.measures.heightFor(box.width - 2 * scaled(kTextMargin)))
            return *known;
    return layOut(nullptr, box, nullptr);
}

// In the node's own font: a larger letter in the first line is rare, and nothing is painted outside of the node for it.
std::optional<int> guiHtmlText::getBaseLine()
{
    if (mx.text.getLength() == 0)
        return std::nullopt;
    guiTextFont const& font = guiTextFonts::of(getDefaultFont(nullptr));
    return guiClampPixels(m.border) + font.lineSpacing() - font.descent();
}

void guiHtmlText::updateActiveWidths() { ++guiLayoutCounters::widthPasses; }

void guiHtmlText::updateActiveHeights()
{
    ++guiLayoutCounters::heightPasses;
    m.layout.heightsFor = guiClampPixels(m.activeCy);
    m.layout.learn(guiLayoutMemo::kHeights | guiLayoutMemo::kNoSprings | guiLayoutMemo::kNoBars,
                   guiLayoutRun::number());
}

// The last measurement may have been at another width, but the links must be where the text is painted.
void guiHtmlText::setRect(guiRect* rect)
{
    assertOnGuiThread();
    ++guiLayoutCounters::placements;
    m.rect = *rect;
    if (!mx.measures.hasLinks())
        m.layout.learn(guiLayoutMemo::kPlaced, m.layout.run);
    if (mx.hotspots.empty())
        return;
    guiRect const box = boxForWidth(static_cast<unsigned long>(std::max(m.rect.width, 0)));
    if (mx.measures.hotspotWidth != box.width)
        layOut(nullptr, box, nullptr);
}

void guiHtmlText::paintTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region)
{
    guiHtml::paintTo(painter, x, y, widget, region);
    int const border = guiClampPixels(m.border);
    guiRect const box{x + m.rect.left + border, m.rect.width - 2 * border, y + m.rect.top + border,
                      m.rect.height - 2 * border};
    QRect const inner = QRect(box.left, box.top, box.width, box.height).adjusted(m.space, m.space, -m.space, -m.space);
    QRegion const clip = region ? region->intersected(inner) : QRegion(inner);
    if (clip.isEmpty() || !getTopLevelWidget())
        return;
    guiSavedPainter const saved(*painter);
    painter->setClipRegion(clip);
    guiTextMarker const marker(*this);
    layOut(painter, box, nullptr, marker ? &marker : nullptr);
}
