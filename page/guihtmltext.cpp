// page/guihtmltext.cpp: the text node: how large it is, and where it paints. drawText() is in guihtmltext-draw.cpp,
// what the mouse does to links in guihtmltext-links.cpp.
#include "page/guihtmltext.h"

#include "page/guihtmlsize.h"
#include "page/guihtmltext-measure.h"
#include "page/guilayoutcounters.h"

#include <QPainter>

#include <algorithm>
#include <limits>

guiHtmlText::mx_t::mx_t() = default;
guiHtmlText::mx_t::~mx_t() = default;

guiHtml& guiHtmlText::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (other.getType() == kTypeText)
        mx.text = static_cast<guiHtmlText&>(other).mx.text;
    return *this;
}

guiHtml* guiHtmlText::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

int guiHtmlText::paintText(QPainter* painter, guiRect* box, sstring const& text, int* widthOut)
{
    textParams params;
    params.font = getDefaultFont(&params.points);
    params.textColor = m.textColor;
    params.linkColor = m.linkColor;
    params.activeLinkColor = m.activeLinkColor;
    params.align = m.alignX;
    return drawText(painter, box, text, &params, widthOut, &mx);
}

int guiHtmlText::getPreferredWidth()
{
    ++guiLayoutCounters::widthQueries;
    guiRect box{m.border, std::numeric_limits<int>::max(), m.border, 0};
    int width = 0;
    paintText(nullptr, &box, mx.text, &width);
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
    guiRect box = boxForWidth(width);
    return paintText(nullptr, &box, mx.text, nullptr);
}

// The last height measured may have been one for another width: links must be found where the text is painted.
void guiHtmlText::setRect(guiRect* rect)
{
    guiHtml::setRect(rect);
    if (mx.hotspots.empty())
        return;
    guiRect box = boxForWidth(static_cast<unsigned long>(std::max(m.rect.width, 0)));
    if (mx.measures->hotspotWidth != box.width)
        paintText(nullptr, &box, mx.text, nullptr);
}

void guiHtmlText::paintTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region)
{
    guiHtml::paintTo(painter, x, y, widget, region);
    int const border = guiClampPixels(m.border);
    guiRect box{x + m.rect.left + border, m.rect.width - 2 * border, y + m.rect.top + border,
                m.rect.height - 2 * border};
    QRect const inner = QRect(box.left, box.top, box.width, box.height).adjusted(m.space, m.space, -m.space, -m.space);
    QRegion const clip = region ? region->intersected(inner) : QRegion(inner);
    if (clip.isEmpty() || !getTopLevelWidget())
        return;
    painter->save();
    painter->setClipRegion(clip);
    paintText(painter, &box, mx.text, nullptr);
    painter->restore();
}
