// controls/guiclipdevice.cpp: see guiclipdevice.h.
#include "controls/guiclipdevice.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

namespace {

constexpr int kDotsPerInch = 96;
constexpr double kMillimetresPerInch = 25.4;

QPainterPath pathOf(QRegion const& region)
{
    QPainterPath path;
    path.addRegion(region);
    return path;
}

/// Hands everything on. The toolkit tells it, as the system's clip, what of each widget those around it leave.
class clipEngine : public QPaintEngine
{
public:
    clipEngine(QPainter& target, QRegion const& outer)
        : QPaintEngine(AllFeatures), m_target(target), m_base(target.worldTransform()), m_outer(outer)
    {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }

    void updateState(QPaintEngineState const& now) override
    {
        DirtyFlags const changed = now.state();
        if (changed & DirtyTransform)
            m_transform = now.transform();
        if (changed & DirtyClipRegion)
            addClip(pathOf(now.clipRegion()), now.clipOperation());
        if (changed & DirtyClipPath)
            addClip(now.clipPath(), now.clipOperation());
        if (changed & DirtyClipEnabled)
            m_isClipOn = now.isClipEnabled();
        if (changed & (DirtyClipRegion | DirtyClipPath | DirtyClipEnabled))
            m_isClipKnown = false;
        takeLook(changed, now);
        m_target.setWorldTransform(m_transform * m_base);
    }

    // Whole numbers become fractions in the base class.
    using QPaintEngine::drawLines;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

    void drawPath(QPainterPath const& path) override
    {
        cut();
        m_target.drawPath(path);
    }
    void drawRects(QRectF const* rects, int count) override
    {
        cut();
        m_target.drawRects(rects, count);
    }
    void drawLines(QLineF const* lines, int count) override
    {
        cut();
        m_target.drawLines(lines, count);
    }
    void drawPolygon(QPointF const* points, int count, PolygonDrawMode mode) override
    {
        cut();
        if (mode == PolylineMode)
            m_target.drawPolyline(points, count);
        else
            m_target.drawPolygon(points, count, mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
    }
    void drawPixmap(QRectF const& place, QPixmap const& picture, QRectF const& part) override
    {
        cut();
        m_target.drawPixmap(place, picture, part);
    }
    void drawImage(QRectF const& place, QImage const& picture, QRectF const& part,
                   Qt::ImageConversionFlags flags) override
    {
        cut();
        m_target.drawImage(place, picture, part, flags);
    }
    void drawTiledPixmap(QRectF const& place, QPixmap const& tile, QPointF const& from) override
    {
        cut();
        m_target.drawTiledPixmap(place, tile, from);
    }
    void drawTextItem(QPointF const& at, QTextItem const& item) override
    {
        cut();
        m_target.drawTextItem(at, item);
    }

private:
    void takeLook(DirtyFlags changed, QPaintEngineState const& now)
    {
        if (changed & DirtyPen)
            m_target.setPen(now.pen());
        if (changed & DirtyBrush)
            m_target.setBrush(now.brush());
        if (changed & DirtyBrushOrigin)
            m_target.setBrushOrigin(now.brushOrigin());
        if (changed & DirtyFont)
            m_target.setFont(now.font());
        if (changed & DirtyBackground)
            m_target.setBackground(now.backgroundBrush());
        if (changed & DirtyBackgroundMode)
            m_target.setBackgroundMode(now.backgroundMode());
        if (changed & DirtyHints) {
            m_target.setRenderHints(~now.renderHints(), false);
            m_target.setRenderHints(now.renderHints());
        }
        if (changed & DirtyCompositionMode)
            m_target.setCompositionMode(now.compositionMode());
        if (changed & DirtyOpacity)
            m_target.setOpacity(now.opacity());
    }

    void addClip(QPainterPath const& path, Qt::ClipOperation operation)
    {
        QPainterPath const placed = m_transform.map(path);
        bool const isPart = operation == Qt::IntersectClip && m_hasClip;
        m_hasClip = operation != Qt::NoClip;
        m_clip = isPart ? m_clip.intersected(placed) : placed;
    }

    /// Before anything is painted.
    void cut()
    {
        QRegion const around = systemClip();
        if (m_isClipKnown && around == m_around)
            return;
        m_around = around;
        m_isClipKnown = true;
        m_target.setWorldTransform(m_base);
        m_target.setClipRegion(around.isEmpty() ? m_outer : m_outer.intersected(around));
        if (m_hasClip && m_isClipOn)
            m_target.setClipPath(m_clip, Qt::IntersectClip);
        m_target.setWorldTransform(m_transform * m_base);
    }

    QPainter& m_target;
    QTransform const m_base;
    QRegion const m_outer; // of the target
    QTransform m_transform;
    QPainterPath m_clip; // what the widget's own painting is clipped to, in coordinates of the device
    bool m_hasClip = false;
    bool m_isClipOn = true; // the painting can switch it off and on again
    QRegion m_around;       // what the widgets around leave
    bool m_isClipKnown = false;
};

QRegion clipOf(QPainter const& target, QSize const& size)
{
    QRegion const whole{QRect(QPoint(), size)};
    return target.hasClipping() ? whole.intersected(target.clipRegion()) : whole;
}

} // namespace

guiClipDevice::guiClipDevice(QPainter& target, QSize const& size)
    : m_target(target), m_size(size), m_engine(std::make_unique<clipEngine>(target, clipOf(target, size)))
{
    m_target.save();
}

guiClipDevice::~guiClipDevice() { m_target.restore(); }

int guiClipDevice::metric(PaintDeviceMetric which) const
{
    switch (which) {
    case PdmWidth:
        return m_size.width();
    case PdmHeight:
        return m_size.height();
    case PdmWidthMM:
        return static_cast<int>(m_size.width() * kMillimetresPerInch / kDotsPerInch);
    case PdmHeightMM:
        return static_cast<int>(m_size.height() * kMillimetresPerInch / kDotsPerInch);
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return kDotsPerInch;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    case PdmDepth:
        return 32;
    default:
        return QPaintDevice::metric(which);
    }
}
