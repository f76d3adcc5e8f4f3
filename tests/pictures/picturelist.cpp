// tests/pictures/picturelist.cpp: the pictures, and pixels of them that were worked out from the pages' numbers: where
// a border begins, how thick it is, how wide a share of the width is.
#include "tests/pictures/picturelist.h"

namespace {

constexpr unsigned kWhite = 0xFFFFFF;
constexpr unsigned kDark = 0x24384F;
constexpr unsigned kMaroon = 0x800000;
constexpr unsigned kRose = 0xE0A0A0;
constexpr unsigned kSand = 0xE9E5DA;
constexpr unsigned kEtchDark = 0x808080;

/// A page that is taken as it opens.
Picture plain(std::string const& page) { return {page, page, {}}; }

std::vector<Picture> plainPictures()
{
    std::vector<Picture> list;
    for (char const* page : {"borders",          "borders-wide", "window-border",  "group-boxes", "group-boxes-inside",
                             "group-box-widths", "tiles",        "tiles-missing",  "scrolling",   "page-scrolls",
                             "scrolling-fixed",  "alignment",    "alignment-down", "links",       "frames",
                             "frame-grid",       "rules",        "headings",       "colours",     "fonts",
                             "styles",           "directions",   "scripts",        "lists",       "spacing",
                             "nested",           "page-colours", "window-colour",  "long-words"})
        list.push_back(plain(page));
    return list;
}

/// Places of the links of links.html.
constexpr int kFirstLinkX = 100;
constexpr int kFirstLinkY = 18;
constexpr int kSecondLinkX = 190;
constexpr int kLongLinkX = 60;
constexpr int kLongLinkY = 46;
constexpr int kBoldLinkX = 20;
constexpr int kBoldLinkY = 80;

std::vector<Picture> actedPictures()
{
    return {
        {"highlight", "highlight", [](PictureWindow& window) { window.highlight("chosen"); }},
        {"links-hovered", "links", [](PictureWindow& window) { window.pointAt(kFirstLinkX, kFirstLinkY); }},
        {"links-crossed", "links",
         [](PictureWindow& window) {
             window.pointAt(kFirstLinkX, kFirstLinkY);
             window.pointAt(kSecondLinkX, kFirstLinkY);
         }},
        {"links-left", "links",
         [](PictureWindow& window) {
             window.pointAt(kFirstLinkX, kFirstLinkY);
             window.pointAt(2, 2);
         }},
        {"links-long-hovered", "links", [](PictureWindow& window) { window.pointAt(kLongLinkX, kLongLinkY); }},
        {"links-coloured-hovered", "links", [](PictureWindow& window) { window.pointAt(kBoldLinkX, kBoldLinkY); }},
        {"links-pressed", "links", [](PictureWindow& window) { window.press(kFirstLinkX, kFirstLinkY); }},
        {"links-disabled", "links", [](PictureWindow& window) { window.disable("text"); }},
        {"scrolling-scrolled", "scrolling",
         [](PictureWindow& window) {
             window.scroll("inner", 25, 30);
             window.scroll("outer", 20, 20);
         }},
        {"scrolling-end", "scrolling", [](PictureWindow& window) { window.scroll("outer", 1000, 1000); }},
        {"page-scrolled", "page-scrolls", [](PictureWindow& window) { window.scroll("", 40, 60); }},
        {"frames-followed", "frames", [](PictureWindow& window) { window.press(15, 76); }},
    };
}

} // namespace

void PrintTo(Picture const& picture, std::ostream* out) { *out << picture.name; }

std::vector<Picture> const& pictures()
{
    static std::vector<Picture> const list = [] {
        std::vector<Picture> all = plainPictures();
        std::vector<Picture> acted = actedPictures();
        all.insert(all.end(), acted.begin(), acted.end());
        return all;
    }();
    return list;
}

namespace {

constexpr unsigned kCream = 0xFFF0C0;
constexpr unsigned kRed = 0xC00000;
constexpr unsigned kBlue = 0x0000C0;
constexpr unsigned kTile = 0xE8EEF6;
constexpr unsigned kSpot = 0xC03020;
std::vector<PixelLine> const theLines = {
    {"borders", 'r', 0, 40, {{6, kWhite},  {39, kCream}, {6, kWhite}, {1, kRed},   {37, kCream},
                             {1, kRed},    {6, kWhite},  {1, kRed},   {1, kBlue},  {35, kCream},
                             {1, kBlue},   {1, kRed},    {6, kWhite}, {1, kRed},   {2, kBlue},
                             {33, kCream}, {2, kBlue},   {1, kRed},   {6, kWhite}, {1, kRed},
                             {3, kBlue},   {31, kCream}, {3, kBlue},  {1, kRed},   {15, kWhite}}},
    {"borders", 'd', 215, 0, {{6, kWhite}, {1, kRed}, {3, kBlue}, {32, kCream}, {3, kBlue}, {1, kRed}, {6, kWhite}}},
    // The space around content shows what lies behind the cell.
    {"borders",
     'r',
     0,
     60,
     {{6, kWhite},
      {1, 0x008000},
      {1, 0x80C080},
      {4, kWhite},
      {72, 0xC0F0C0},
      {4, kWhite},
      {1, 0x80C080},
      {1, 0x008000},
      {6, kWhite},
      {1, 0},
      {7, 0xC0C0C0},
      {113, kWhite},
      {7, 0xC0C0C0},
      {1, 0},
      {15, kWhite}}},
    {"window-border", 'r', 0, 14, {{1, kMaroon}, {4, kRose}, {230, kWhite}, {4, kRose}, {1, kMaroon}}},
    {"window-border", 'd', 120, 0, {{1, kMaroon}, {4, kRose}, {20, kWhite}}},
    // 200, 100, 50 times two thirds is 133, 66, 33.
    {"highlight",
     'r',
     0,
     20,
     {{10, kWhite},
      {1, kDark},
      {3, 0x7F97B2},
      {97, kWhite},
      {3, 0x7F97B2},
      {1, kDark},
      {10, kWhite},
      {1, 0xC86432},
      {3, 0x854221},
      {97, kWhite},
      {3, 0x854221},
      {1, 0xC86432},
      {10, kWhite}}},
    {"group-boxes",
     'r',
     0,
     60,
     {{8, kSand}, {1, kEtchDark}, {1, kWhite}, {220, kSand}, {1, kEtchDark}, {1, kWhite}, {8, kSand}}},
    {"group-boxes", 'd', 150, 0, {{14, kSand}, {1, kEtchDark}, {1, kWhite}, {50, kSand}, {1, kEtchDark}, {1, kWhite}}},
    {"tiles", 'r', 120, 13, {{1, kMaroon}, {2, kRose}, {2, kSpot}, {10, kTile}, {2, kSpot}, {10, kTile}, {2, kSpot}}},
    {"tiles", 'r', 0, 1, {{2, kSpot}, {10, kTile}, {2, kSpot}, {10, kTile}, {2, kSpot}}},
    {"rules", 'd', 60, 0, {{4, kSand},     {1, kEtchDark}, {1, kWhite},  {12, kSand},    {1, kEtchDark}, {12, kSand},
                           {2, kEtchDark}, {1, kWhite},    {12, kSand},  {3, kEtchDark}, {3, kWhite},    {12, kSand},
                           {2, kEtchDark}, {12, kSand},    {4, kMaroon}, {12, kSand},    {1, kEtchDark}, {1, kWhite},
                           {12, kSand},    {2, kEtchDark}, {2, kWhite},  {12, kSand},    {2, kSand},     {4, kSand}}},
    {"colours", 'r', 0, 3, {{60, 0x00FFFF}, {60, 0}, {60, 0x0000FF}, {60, 0xFF00FF}}},
    {"colours", 'r', 0, 36, {{60, 0x808080}, {60, 0x008000}, {60, 0x00FF00}, {60, kMaroon}}},
    {"colours", 'r', 0, 69, {{60, 0x000080}, {60, 0x808000}, {60, 0x800080}, {60, 0xFF0000}}},
    {"colours", 'r', 0, 102, {{60, 0xC0C0C0}, {60, 0x008080}, {60, kWhite}, {60, 0xFFFF00}}},
    // 227 pixels for two halves: the last one gets what is left. A cell's ground covers its padding.
    {"spacing",
     'r',
     0,
     16,
     {{1, kMaroon},
      {1, kRose},
      {3, kWhite},
      {113, kWhite},
      {3, kDark},
      {114, kWhite},
      {3, kWhite},
      {1, kRose},
      {1, kMaroon}}},
    {"frame-grid", 'r', 0, 5, {{58, 0xC0E0FF}, {4, kDark}, {114, 0xFFE0C0}, {4, kDark}, {60, 0xC0F0C0}}},
    {"frame-grid", 'd', 10, 0, {{40, 0xC0E0FF}, {4, kDark}, {106, kCream}}},
    {"frame-grid", 'r', 180, 140, {{1, kMaroon}, {1, kWhite}, {56, kRose}, {1, kWhite}, {1, kMaroon}}},
};

} // namespace

std::vector<PixelLine> const& pixelLines() { return theLines; }
