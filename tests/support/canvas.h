// tests/support/canvas.h: a picture to paint nodes on.
#pragma once

#include "page/guihtml.h"

#include <QImage>
#include <QPainter>
#include <QRegion>
#include <functional>
#include <string>

/// A picture whose pixels are kUntouched until something is painted on them.
struct Canvas
{
    static constexpr QRgb kUntouched = 0xFFFF00FF;

    explicit Canvas(int width = 60, int height = 60) : image(width, height, QImage::Format_ARGB32_Premultiplied)
    {
        image.fill(kUntouched);
    }

    /// Paints a node whose parent's content starts at (x, y), clipped to the region if one is given.
    void paint(guiHtml* node, guiWidget* widget, QRegion const* region = nullptr, int x = 0, int y = 0)
    {
        QPainter painter(&image);
        node->paintTo(&painter, x, y, widget, region);
    }

    QRgb at(int x, int y) const { return image.pixel(x, y); }

    /// "" when every pixel is what `expected` says, else where the first difference is.
    std::string difference(std::function<QRgb(int x, int y)> const& expected) const
    {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != expected(x, y))
                    return "at (" + std::to_string(x) + "," + std::to_string(y) + ") is " + hex(image.pixel(x, y)) +
                           " instead of " + hex(expected(x, y));
        return "";
    }

    static std::string hex(QRgb pixel) { return QString::number(pixel, 16).toStdString(); }

    QImage image;
};

inline QRgb rgbOf(guiColor color) { return qRgb(color.red, color.green, color.blue); }
