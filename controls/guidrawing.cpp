// controls/guidrawing.cpp: see guidrawing.h.
#include "controls/guidrawing.h"

#include "controls/guiimage.h"
#include "controls/guiscriptvalue.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guicolor.h"
#include "page/guihtmlparser.h"
#include "page/guihtmltext-fonts.h"
#include "page/guihtmltext.h"
#include "page/guiinks.h"
#include "page/guipainting.h"
#include "page/guiqrect.h"
#include "page/guisavedpainter.h"

#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPolygonF>
#include <QRegion>
#include <algorithm>
#include <limits>
#include <utility>

namespace {

QFont fontOf(guiHtml* node, guiTextStyle const& style, int& points)
{
    QFont font = node->getDefaultFont(&points);
    if (style.face.getLength() != 0 || style.points > 0) {
        points = style.points > 0 ? style.points : points;
        QString const family = style.face.getLength() != 0 ? sstoq(style.face) : font.family();
        font = guiTextFonts::face(family, points, true, guiTextScaleOf(node).font).font();
    }
    return guiTextFonts::styled(guiTextFonts::of(font), style.bold, style.italic).font();
}

/// `inks`: null when the text is only measured.
textParams paramsOf(guiHtml* node, guiTextStyle const& style, guiInks const* inks)
{
    textParams params;
    params.font = fontOf(node, style, params.points);
    params.align = style.align;
    params.scale = guiTextScaleOf(node);
    if (!inks)
        return params;
    params.textColor = inks->text;
    if (style.color.getLength() != 0)
        params.textColor = guiHtmlParser::convColorToStruct(style.color);
    params.linkColor = inks->link;
    params.activeLinkColor = inks->activeLink;
    params.onMark = {guiColor::Black, node->m.linkColor, node->m.activeLinkColor};
    return params;
}

} // namespace

guiExtent guiMeasureText(guiHtml* node, sstring const& text, guiTextStyle const& style, int width)
{
    assertOnGuiThread();
    textParams const params = paramsOf(node, style, nullptr);
    guiRect box{0, width > 0 ? width : std::numeric_limits<int>::max(), 0, 0};
    guiExtent size;
    size.height = guiHtmlText::drawText(nullptr, &box, text, &params, &size.width, nullptr);
    return size;
}

// ---- Recording ----

void guiDrawing::fill(guiColor color, guiRect const& rect) { m_steps.emplace_back(fillStep{color, rect}); }

void guiDrawing::line(guiColor color, int x1, int y1, int x2, int y2, int lineWidth, bool isSmooth)
{
    if (lineWidth >= 0)
        m_steps.emplace_back(lineStep{color, x1, y1, x2, y2, lineWidth, isSmooth});
}

void guiDrawing::ellipse(guiColor color, guiRect const& rect, int lineWidth)
{
    if (!rect.isEmpty() && lineWidth >= 0)
        m_steps.emplace_back(ellipseStep{color, rect, lineWidth});
}

void guiDrawing::polygon(guiColor color, std::vector<double> points, int lineWidth, bool isClosed)
{
    constexpr std::size_t kTwoPoints = 4;
    if (points.size() < kTwoPoints || lineWidth < 0)
        return;
    m_steps.emplace_back(std::make_unique<polygonStep>(polygonStep{color, std::move(points), lineWidth, isClosed}));
}

void guiDrawing::image(ScriptObject* image, int x, int y, int width, int height, int offsetX, int offsetY)
{
    auto own = std::make_unique<imageStep>();
    own->object = guiKept(image);
    own->rect = {x, width, y, height};
    own->offsetX = offsetX;
    own->offsetY = offsetY;
    m_steps.emplace_back(std::move(own));
}

void guiDrawing::text(sstring const& text, guiRect const& rect, guiTextStyle const& style)
{
    m_steps.emplace_back(std::make_unique<textStep>(textStep{text, rect, style}));
}

// ---- Replaying ----

/// Draws one kind of step after the other; the painter's origin is the element's inner corner.
struct guiDrawing::player
{
    QPainter& painter;
    guiHtml* node = nullptr;
    guiExtent area;
    std::vector<step> const& steps;
    std::size_t at = 0; // the step that is drawn

    void operator()(fillStep const& step) const
    {
        painter.fillRect(guiToQRect(step.rect).intersected(QRect(0, 0, area.width, area.height)), toQColor(step.color));
    }

    void operator()(lineStep const& step) const
    {
        guiSavedPainter const saved(painter);
        painter.setPen(QPen(toQColor(step.color), step.lineWidth));
        painter.setRenderHint(QPainter::Antialiasing, step.isSmooth);
        if (step.isSmooth)
            centreStrokes();
        painter.drawLine(step.x1, step.y1, step.x2, step.y2);
    }

    void operator()(ellipseStep const& step) const
    {
        guiSavedPainter const saved(painter);
        double const inset = step.lineWidth / 2.0; // the whole stroke lies inside
        prepareShape(step.color, step.lineWidth, true);
        painter.drawEllipse(QRectF(guiToQRect(step.rect)).adjusted(inset, inset, -inset, -inset));
    }

    void operator()(std::unique_ptr<polygonStep> const& step) const
    {
        guiSavedPainter const saved(painter);
        prepareShape(step->color, step->lineWidth, step->isClosed);
        if (step->lineWidth > 0)
            centreStrokes();
        QPolygonF points;
        points.reserve(static_cast<qsizetype>(step->points.size() / 2));
        for (std::size_t i = 0; i + 1 < step->points.size(); i += 2)
            points << QPointF(step->points[i], step->points[i + 1]);
        if (step->isClosed)
            painter.drawPolygon(points);
        else
            painter.drawPolyline(points);
    }

    void operator()(std::unique_ptr<imageStep> const& step) const
    {
        if (!step->picture)
            return;
        QSize const own = step->picture->deviceIndependentSize().toSize();
        QRect target(step->rect.left, step->rect.top, own.width(), own.height());
        if (step->rect.width != -1)
            target.setWidth(std::min(step->rect.width, area.width));
        if (step->rect.height != -1)
            target.setHeight(std::min(step->rect.height, area.height));
        if (target.isEmpty())
            return;
        QRegion const clip(target);
        drawClippedTile(&painter, *step->picture, target.left() + step->offsetX, target.top() + step->offsetY, &clip);
    }

    void operator()(std::unique_ptr<textStep> const& step) const
    {
        guiSavedPainter const saved(painter);
        painter.setClipRect(guiToQRect(step->rect), Qt::IntersectClip);
        guiInks const inks = guiInksOn(node, groundOf(step->rect));
        textParams const params = paramsOf(node, step->style, &inks);
        guiRect box = step->rect;
        guiHtmlText::drawText(&painter, &box, step->text, &params, nullptr, nullptr);
    }

private:
    /// What was filled last where the rectangle begins, or what the element stands on.
    guiGround groundOf(guiRect const& rect) const
    {
        QPoint const corner(rect.left, rect.top);
        for (std::size_t i = at; i-- > 0;)
            if (auto const* fill = std::get_if<fillStep>(&steps[i]); fill && guiToQRect(fill->rect).contains(corner))
                return {fill->color, true};
        return guiGroundOf(node);
    }

    /// Coordinates name pixels: a stroke runs through their middle.
    void centreStrokes() const { painter.translate(0.5, 0.5); }

    void prepareShape(guiColor color, int lineWidth, bool isClosed) const
    {
        painter.setRenderHint(QPainter::Antialiasing);
        bool const isFilled = lineWidth == 0 && isClosed;
        painter.setBrush(isFilled ? QBrush(toQColor(color)) : QBrush(Qt::NoBrush));
        painter.setPen(isFilled ? QPen(Qt::NoPen) : QPen(toQColor(color), std::max(1, lineWidth)));
    }
};

void guiDrawing::takeImages()
{
    assertOnGuiThread();
    for (step& each : m_steps) {
        auto* held = std::get_if<std::unique_ptr<imageStep>>(&each);
        if (!held || !(*held)->object)
            continue;
        if (QPixmap const* picture = guiImage_getPixmap((*held)->object.get()))
            (*held)->picture = std::make_shared<QPixmap>(*picture);
        (*held)->object.reset();
    }
}

void guiDrawing::paintTo(QPainter& painter, guiHtml* node, int x, int y) const
{
    assertOnGuiThread();
    if (m_steps.empty())
        return;
    guiSavedPainter const saved(painter);
    painter.translate(x, y);
    painter.setClipRect(QRect(0, 0, m_size.width, m_size.height), Qt::IntersectClip);
    player play{painter, node, m_size, m_steps};
    for (step const& each : m_steps) {
        std::visit(play, each);
        ++play.at;
    }
}
