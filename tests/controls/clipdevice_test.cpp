// tests/controls/clipdevice_test.cpp: what is painted through a device that cuts off.
#include "controls/guiclipdevice.h"
#include "tests/support/pixelcount.h"

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <gtest/gtest.h>

TEST(ClipDevice, WhatGoesBeyondItIsCutOff)
{
    QImage picture(60, 40, QImage::Format_RGB32);
    picture.fill(Qt::white);
    {
        QPainter painter(&picture);
        painter.translate(10, 10);
        guiClipDevice device(painter, QSize(20, 20));
        QPainter inner(&device);
        inner.setClipRect(0, 0, 40, 10);
        inner.fillRect(-5, -5, 50, 50, Qt::red);
        inner.save();
        inner.setClipRect(0, 10, 5, 40, Qt::ReplaceClip);
        inner.fillRect(-5, -5, 50, 50, Qt::blue);
        inner.restore();
    }
    EXPECT_EQ(countOf(picture, qRgb(255, 0, 0)), 20 * 10);
    EXPECT_EQ(countOf(picture, qRgb(0, 0, 255)), 5 * 10);
}

namespace {

/// Paints beyond its edges.
class Spilling : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(-50, -50, 200, 200, Qt::red); }
};

} // namespace

TEST(ClipDevice, AWidgetIsCutOffByThoseAroundIt)
{
    QWidget outer;
    outer.resize(60, 20);
    QWidget middle(&outer);
    middle.setGeometry(0, 0, 20, 20);
    Spilling inner(&middle);
    inner.setGeometry(10, 0, 40, 20);
    outer.show();
    QImage picture(60, 20, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    {
        guiClipDevice device(painter, outer.size());
        QPainter on(&device);
        outer.render(&on, QPoint(), QRegion(), QWidget::DrawChildren);
    }
    EXPECT_EQ(countOf(picture, qRgb(255, 0, 0)), 10 * 20);
}

TEST(ClipDevice, ThePainterIsAsBefore)
{
    QImage picture(60, 40, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setClipRect(0, 0, 10, 40);
    {
        guiClipDevice device(painter, QSize(20, 20));
        QPainter inner(&device);
        inner.translate(3, 3);
        inner.fillRect(0, 0, 50, 50, Qt::red);
    }
    painter.fillRect(0, 30, 50, 5, Qt::blue);
    EXPECT_EQ(countOf(picture, qRgb(255, 0, 0)), 7 * 17);
    EXPECT_EQ(countOf(picture, qRgb(0, 0, 255)), 10 * 5);
}
