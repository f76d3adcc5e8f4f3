// tests/support/pagewindow.h: a window without a component, and a canvas to paint its nodes on.
#pragma once

#include "controls/guiwidget.h"
#include "runtime/guihtmlbase.h"

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <functional>

/// A page root with its top-level widget, which is not shown. Nodes are appended and placed by the test.
struct PageWindow
{
    explicit PageWindow(sstring const& file = sstring(), int width = 100, int height = 100)
        : root(nullptr, nullptr, nullptr, file)
    {
        widget = root.createWidget(0);
        root.m.rect = {0, width, 0, height};
    }
    ~PageWindow()
    {
        root.destroyWidget();
        settle();
    }
    PageWindow(PageWindow const&) = delete;
    PageWindow& operator=(PageWindow const&) = delete;

    /// A plain child of `parent` (default: the root) at the rectangle left, width, top, height.
    guiHtml* add(guiRect const& rect, guiHtml* parent = nullptr) { return place(new guiHtml, rect, parent); }

    template <typename Node>
    Node* place(Node* node, guiRect const& rect, guiHtml* parent = nullptr)
    {
        (parent ? parent : &root)->append(node);
        node->m.rect = rect;
        return node;
    }

    /// Runs what waits in the event loop, deferred deletions too.
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    guiHtmlBase root;
    guiWidget* widget = nullptr;
};

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
