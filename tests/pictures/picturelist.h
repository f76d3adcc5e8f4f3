// tests/pictures/picturelist.h: which pictures there are, and what is known about their pixels without looking at them.
#pragma once

#include "tests/pictures/picturewindow.h"

#include <functional>
#include <ostream>
#include <vector>

/// One picture: NAME.png and NAME@2x.png show PAGE.html after something was done to it.
struct Picture
{
    std::string name;
    std::string page;
    std::function<void(PictureWindow&)> act; ///< empty: the page as it opens
};

void PrintTo(Picture const& picture, std::ostream* out);

/// `count` pixels of one colour, 0xRRGGBB.
struct PixelRun
{
    int count;
    unsigned color;
};

/// Pixels along a line of a picture, worked out by hand: from (x, y) to the right, or downwards.
struct PixelLine
{
    std::string picture;
    char direction; ///< 'r' or 'd'
    int x;
    int y;
    std::vector<PixelRun> runs;
};

std::vector<Picture> const& pictures();
std::vector<PixelLine> const& pixelLines();
