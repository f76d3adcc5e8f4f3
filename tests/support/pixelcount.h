// tests/support/pixelcount.h: how much of a picture has a colour.
#pragma once

#include <QImage>

/// The number of pixels of exactly that colour.
inline int countOf(QImage const& picture, QRgb color)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixel(x, y) == color ? 1 : 0;
    return count;
}
