// tests/pictures/comparison.h: how alike two pictures are.
#pragma once

#include <QImage>
#include <QString>

/// Pixels of two pictures of one size that differ by more than rounding does.
struct Difference
{
    int pixels = 0;    ///< how many; all of them when the sizes differ
    QRect area;        ///< around them
    int strongest = 0; ///< the largest distance of a colour component, 0 to 255
};

/// A component may be off by this much, 0 to 255, before a pixel counts as different: other versions of the font
/// library round the edges of letters otherwise.
constexpr int kSameColor = 16;
/// So many pixels may differ before the pictures do.
constexpr int kStrayPixels = 6;

Difference difference(QImage const& one, QImage const& other);

/// The stored picture, the seen one, and what differs in red, side by side.
QImage differencePicture(QImage const& stored, QImage const& seen);

/// The mean distance of the colour components of two pictures of one size, 0 to 255.
double meanDistance(QImage const& one, QImage const& other);

/// How abruptly neighbouring pixels change: the sum of the squared steps between them. A picture scaled up smoothly has
/// steps too, but small ones.
double sharpness(QImage const& image);

/// How many pixels differ from their right or lower neighbour in the same square of two by two: none in a picture whose
/// pixels were doubled.
int finePixels(QImage const& image);
