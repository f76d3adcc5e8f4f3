// tests/page/colours_test.cpp: the colours that a page does not choose, on desktops of several colours, and how well
// they read.
#include "page/guicolor.h"
#include "page/guicontrast.h"
#include "page/guihtmltext.h"
#include "page/guiinks.h"
#include "page/guipicture.h"
#include "tests/page/pagewindow.h"

#include <QPalette>
#include <QPixmap>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

constexpr guiColor kNavy{0, 0, 128};

/// The colours of a desktop.
struct desktop
{
    char const* name;
    QRgb window;
    QRgb base;
    QRgb button;
    QRgb text;
    QRgb link;
    QRgb highlight;
};
constexpr desktop kLight{"light", 0xFFEFEFEF, 0xFFFFFFFF, 0xFFEFEFEF, 0xFF000000, 0xFF0000FF, 0xFF308CC6};
constexpr desktop kGray{"gray", 0xFFD4D0C8, 0xFFFFFFFF, 0xFFD4D0C8, 0xFF000000, 0xFF0000FF, 0xFF0A246A};
constexpr desktop kDark{"dark", 0xFF232629, 0xFF1B1E20, 0xFF31363B, 0xFFEFF0F1, 0xFF1D99F3, 0xFF3DAEE9};
constexpr desktop kDarkWithoutLinks{"dark, blue links", 0xFF323232, 0xFF242424, 0xFF373737,
                                    0xFFC8C8C8,         0xFF0000FF, 0xFF15539E};
constexpr desktop kStrongDark{"strong, dark", 0xFF000000, 0xFF000000, 0xFF000000, 0xFFFFFFFF, 0xFF00AAFF, 0xFF1A1AFF};
constexpr desktop kStrongLight{"strong, light", 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFF000000, 0xFF00AAFF, 0xFFFFAA00};
constexpr desktop kAll[] = {kLight, kGray, kDark, kDarkWithoutLinks, kStrongDark, kStrongLight};

QPalette paletteOf(desktop const& colors)
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor::fromRgb(colors.window));
    palette.setColor(QPalette::Base, QColor::fromRgb(colors.base));
    palette.setColor(QPalette::Button, QColor::fromRgb(colors.button));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, QColor::fromRgb(colors.text));
    palette.setColor(QPalette::Link, QColor::fromRgb(colors.link));
    palette.setColor(QPalette::Highlight, QColor::fromRgb(colors.highlight));
    return palette;
}

guiColor colorOf(QRgb pixel) { return {qRed(pixel), qGreen(pixel), qBlue(pixel)}; }

/// A page in a window on such a desktop.
struct ColoredPage
{
    ColoredPage(desktop const& colors, char const* page)
    {
        window.widget->setPalette(paletteOf(colors));
        EXPECT_EQ(window.root.setText(sstring(page), sstring()), 1);
    }

    guiHtml* cell() { return window.root.getNamed(sstring("cell")); }
    guiInks inks() { return guiInksOf(cell()); }

    PageWindow window;
};

constexpr char const* kPlain = "<table name=cell width=50 height=50><tr><td>text</td></tr></table>";

} // namespace

TEST(Contrast, IsTheRatioOfWcag)
{
    EXPECT_NEAR(guiContrast(guiColor::Black, guiColor::White), 21, 1e-9);
    EXPECT_NEAR(guiContrast(guiColor::White, guiColor::White), 1, 1e-9);
    EXPECT_NEAR(guiContrast(guiColor{118, 118, 118}, guiColor::White), 4.54, 0.01);
    EXPECT_NEAR(guiContrast(guiColor::BrightBlue, guiColor::White), 8.59, 0.01);
}

TEST(Contrast, AColourIsMadeReadableByNoMoreThanItTakes)
{
    guiColor const ground = colorOf(kDark.window);
    guiColor const raised = guiReadable(guiColor::BrightBlue, ground, kGoodContrast);
    EXPECT_GE(guiContrast(raised, ground), kGoodContrast);
    EXPECT_LT(guiContrast(raised, ground), kGoodContrast + 2);
    EXPECT_EQ(guiReadable(guiColor::White, ground, kGoodContrast), guiColor::White);
    EXPECT_EQ(guiReadable(guiColor::BrightRed, guiColor{128, 128, 128}, 20), guiColor::Black);
}

TEST(Inks, OfTheDesktopReadOnItsGround)
{
    for (desktop const& each : kAll) {
        ColoredPage page(each, kPlain);
        guiColor const ground = colorOf(each.window);
        guiInks const inks = page.inks();
        EXPECT_GE(guiContrast(inks.text, ground), 7) << each.name;
        EXPECT_GE(guiContrast(inks.link, ground), 7) << each.name;
        EXPECT_GE(guiContrast(guiPlainInkOf(page.cell()), ground), 7) << each.name;
    }
}

TEST(Inks, OnALightDesktopAreThoseOfALightPage)
{
    guiInks const inks = ColoredPage(kLight, kPlain).inks();
    EXPECT_EQ(inks.text, guiColor::Black);
    EXPECT_EQ(inks.link, guiColor::BrightBlue);
    EXPECT_EQ(inks.activeLink, guiColor::BrightRed);
}

TEST(Inks, OnADarkDesktopAreTheDesktopsOwn)
{
    guiInks const inks = ColoredPage(kDark, kPlain).inks();
    EXPECT_EQ(inks.text, colorOf(kDark.text));
    EXPECT_GE(guiContrast(inks.activeLink, colorOf(kDark.window)), 7);
}

TEST(Inks, FollowThePaletteOfTheWindow)
{
    ColoredPage page(kLight, kPlain);
    EXPECT_EQ(page.inks().text, guiColor::Black);
    page.window.widget->setPalette(paletteOf(kDark));
    EXPECT_EQ(page.inks().text, colorOf(kDark.text));
    page.window.widget->setPalette(paletteOf(kLight));
    EXPECT_EQ(page.inks().text, guiColor::Black);
}

TEST(Inks, OfAPageWithALightGroundAreTheSameOnEveryDesktop)
{
    for (desktop const& each : kAll) {
        guiInks const inks = ColoredPage(each, "<body bgcolor=white><table name=cell><td>text</td></table>").inks();
        EXPECT_EQ(inks.text, guiColor::Black) << each.name;
        EXPECT_EQ(inks.link, guiColor::BrightBlue) << each.name;
    }
}

TEST(Inks, OnAGivenDarkGroundAreLight)
{
    for (desktop const& each : kAll) {
        guiInks const inks =
            ColoredPage(each, "<body bgcolor=white><table name=cell bgcolor=navy><td>a</td></table>").inks();
        EXPECT_EQ(inks.text, guiColor::White) << each.name;
        EXPECT_GE(guiContrast(inks.link, kNavy), 7) << each.name;
    }
}

TEST(Inks, ThatThePageGivesNeverChange)
{
    ColoredPage page(kDark, "<body text=#111111 link=#222222 alink=#333333><table name=cell><td>text</td></table>");
    EXPECT_EQ(page.inks().text, (guiColor{0x11, 0x11, 0x11}));
    EXPECT_EQ(page.inks().link, (guiColor{0x22, 0x22, 0x22}));
    EXPECT_EQ(page.inks().activeLink, (guiColor{0x33, 0x33, 0x33}));
}

TEST(Inks, ThatAreGivenAsTheUsualOnesNeverChangeEither)
{
    ColoredPage page(kDark, "<body text=black><table name=cell><td>text</td></table>");
    EXPECT_EQ(page.inks().text, guiColor::Black);
    EXPECT_NE(page.inks().link, guiColor::BrightBlue);
}

TEST(Inks, OnAPictureReadOnTheMeanOfItsColours)
{
    ColoredPage page(kLight, kPlain);
    QPixmap night(4, 4);
    night.fill(QColor(10, 10, 40));
    page.cell()->setBackgroundImage(sstring("night.png"));
    page.cell()->setBackgroundPicture(std::make_shared<guiPicture const>(guiPicture{night, night.size()}));
    EXPECT_EQ(page.inks().text, guiColor::White);
    QPixmap glass(4, 4);
    glass.fill(Qt::transparent);
    page.cell()->setBackgroundPicture(std::make_shared<guiPicture const>(guiPicture{glass, glass.size()}));
    EXPECT_EQ(page.inks().text, guiColor::Black);
}

TEST(Edges, ReadOnEveryDesktopAndAreTheUsualOnesOnALightOne)
{
    ColoredPage light(kLight, kPlain);
    EXPECT_EQ(guiEdgesOf(light.cell()).dark, guiColor::DarkGray);
    EXPECT_EQ(guiEdgesOf(light.cell()).light, guiColor::White);
    for (desktop const& each : {kDark, kDarkWithoutLinks, kStrongDark, kStrongLight}) {
        ColoredPage page(each, kPlain);
        EXPECT_GE(guiContrast(guiEdgesOf(page.cell()).dark, colorOf(each.window)), kMarkContrast) << each.name;
    }
}

TEST(Edges, ThatThePageGivesNeverChange)
{
    ColoredPage page(kDark, "<table name=cell border=2 bordercolor=#C0C0C0 bordercolordark=gray><td>a</td></table>");
    Canvas canvas;
    QPainter painter(&canvas.image);
    guiRect rect{0, 20, 0, 20};
    page.cell()->paintBorder(&painter, &rect, 0);
    EXPECT_EQ(canvas.at(0, 5), rgbOf(guiColor::LightGray));
    EXPECT_EQ(canvas.at(1, 5), rgbOf(guiColor::DarkGray));
}

TEST(StrongContrast, IsAPaletteOfBlackAndWhite)
{
    EXPECT_TRUE(guiIsHighContrast(paletteOf(kStrongDark)));
    EXPECT_TRUE(guiIsHighContrast(paletteOf(kStrongLight)));
    EXPECT_FALSE(guiIsHighContrast(paletteOf(kLight)));
    EXPECT_FALSE(guiIsHighContrast(paletteOf(kDark)));
}

TEST(StrongContrast, IsAThemeOfThatName)
{
    qputenv("GTK_THEME", "HighContrastInverse");
    guiForgetDesktopColors();
    EXPECT_TRUE(guiIsHighContrast(paletteOf(kLight)));
    qunsetenv("GTK_THEME");
    guiForgetDesktopColors();
    EXPECT_FALSE(guiIsHighContrast(paletteOf(kLight)));
}

TEST(StrongContrast, MakesMarksOfTheKeyboardReadable)
{
    for (desktop const& each : {kStrongDark, kStrongLight})
        EXPECT_GE(guiContrast(guiFocusInk(paletteOf(each)), colorOf(each.window)), 7) << each.name;
    EXPECT_EQ(guiFocusInk(paletteOf(kLight)), colorOf(kLight.highlight)); // as the desktop has it
}

namespace {

/// How many pixels of a painted page have the colour.
int countOf(QImage const& image, guiColor color)
{
    int found = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            found += (image.pixel(x, y) & 0xFFFFFF) == (rgbOf(color) & 0xFFFFFF);
    return found;
}

/// The page as it is painted, letters without smoothing, on an untouched canvas of 200 by 100.
QImage paintedOn(desktop const& colors, char const* text)
{
    ColoredPage page(colors, text);
    guiRect rect{0, 200, 0, 100};
    page.window.root.updateLayout(0);
    page.window.root.setRect(&rect);
    Canvas canvas(200, 100);
    QPainter painter(&canvas.image);
    painter.setRenderHint(QPainter::TextAntialiasing, false);
    page.window.root.paintTo(&painter, 0, 0, page.window.widget, nullptr);
    painter.end();
    return canvas.image;
}

} // namespace

TEST(PaintedPage, HasTextAndRulesThatReadOnADarkDesktop)
{
    QImage const dark = paintedOn(kDark, "<hr noshade size=4>text");
    guiColor const line = guiMixed(colorOf(kDark.window), guiColor::White, 0.42);
    EXPECT_EQ(countOf(dark, guiColor::DarkGray), 0);
    EXPECT_GT(countOf(dark, line), 100);
    EXPECT_GT(countOf(paintedOn(kLight, "<hr noshade size=4>text"), guiColor::DarkGray), 100);
}

TEST(PaintedPage, HasDarkTextOnTheGroundOfAMarkingPen)
{
    constexpr guiColor kPen{255, 241, 118};
    guiColor const text = colorOf(kDark.text);
    QImage const marked = paintedOn(kDark, "<mark>HHHH</mark>");
    EXPECT_GT(countOf(marked, kPen), 0);
    EXPECT_EQ(countOf(marked, text), 0);
}
