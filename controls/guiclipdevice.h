// controls/guiclipdevice.h: a paint device that hands on what is painted on it to a painter, cut off where it has to
// be. Files do not cut off what a widget paints beyond its edge, or beyond that of one around it; screens do.
#pragma once

#include <QPaintDevice>
#include <QRegion>
#include <QSize>
#include <memory>

class QPainter;

/// Its origin is that of the painter. GUI thread.
class guiClipDevice : public QPaintDevice
{
public:
    /// `target`: not owned; its state is as before in the end. What is painted is cut off at `size`, and where the
    /// painter is clipped.
    guiClipDevice(QPainter& target, QSize const& size);
    ~guiClipDevice() override;
    guiClipDevice(guiClipDevice const&) = delete;
    guiClipDevice& operator=(guiClipDevice const&) = delete;

    QPaintEngine* paintEngine() const override { return m_engine.get(); }

protected:
    int metric(PaintDeviceMetric which) const override;

private:
    QPainter& m_target;
    QSize m_size;
    std::unique_ptr<QPaintEngine> m_engine;
};
