// tests/pictures/comparison.cpp: see comparison.h.
#include "tests/pictures/comparison.h"

#include <QPainter>
#include <algorithm>
#include <cstdlib>

namespace {

int distance(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

/// Calls visit(x, y, distance) for every pixel that both pictures have.
template <typename Visit>
void comparePixels(QImage const& one, QImage const& other, Visit visit)
{
    QSize common = one.size().boundedTo(other.size());
    for (int y = 0; y < common.height(); ++y)
        for (int x = 0; x < common.width(); ++x)
            visit(x, y, distance(one.pixel(x, y), other.pixel(x, y)));
}

} // namespace

Difference difference(QImage const& one, QImage const& other)
{
    Difference result;
    if (one.size() != other.size()) {
        result.area = one.rect().united(other.rect());
        result.pixels = result.area.width() * result.area.height();
        result.strongest = 255;
        return result;
    }
    comparePixels(one, other, [&](int x, int y, int by) {
        result.strongest = std::max(result.strongest, by);
        if (by <= kSameColor)
            return;
        ++result.pixels;
        result.area |= QRect(x, y, 1, 1);
    });
    return result;
}

QImage differencePicture(QImage const& stored, QImage const& seen)
{
    constexpr int kGap = 8;
    QSize part = stored.size().expandedTo(seen.size());
    QImage sheet(3 * part.width() + 2 * kGap, part.height(), QImage::Format_RGB32);
    sheet.fill(Qt::darkGray);
    QPainter painter(&sheet);
    painter.drawImage(0, 0, stored);
    painter.drawImage(part.width() + kGap, 0, seen);
    int left = 2 * (part.width() + kGap);
    painter.fillRect(left, 0, part.width(), part.height(), Qt::white);
    painter.setOpacity(0.25);
    painter.drawImage(left, 0, stored);
    painter.setOpacity(1);
    comparePixels(stored, seen, [&](int x, int y, int by) {
        if (by > kSameColor)
            painter.fillRect(left + x, y, 1, 1, Qt::red);
    });
    return sheet;
}

double meanDistance(QImage const& one, QImage const& other)
{
    double sum = 0;
    comparePixels(one, other, [&](int, int, int by) { sum += by; });
    return sum / std::max(1, one.width() * one.height());
}

double sharpness(QImage const& image)
{
    double sum = 0;
    for (int y = 1; y < image.height(); ++y)
        for (int x = 1; x < image.width(); ++x) {
            int across = distance(image.pixel(x, y), image.pixel(x - 1, y));
            int down = distance(image.pixel(x, y), image.pixel(x, y - 1));
            sum += across * across + down * down;
        }
    return sum;
}

int finePixels(QImage const& image)
{
    int count = 0;
    for (int y = 0; y + 1 < image.height(); y += 2)
        for (int x = 0; x + 1 < image.width(); x += 2) {
            QRgb first = image.pixel(x, y);
            for (QPoint next : {QPoint(x + 1, y), QPoint(x, y + 1), QPoint(x + 1, y + 1)})
                count += distance(first, image.pixel(next)) > kSameColor;
        }
    return count;
}
