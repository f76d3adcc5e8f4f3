// page/guiinks.cpp: see guiinks.h.
#include "page/guiinks.h"

#include "page/guicolor.h"
#include "page/guicontrast.h"

#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QSettings>
#include <QStandardPaths>
#include <QWidget>
#include <optional>

namespace {

constexpr guiColor kLinkOnDark{140, 190, 255};
constexpr guiColor kActiveLinkOnDark{255, 150, 150};

// ---- Strong contrast ----

bool isStrong(QString const& theme)
{
    QString const name = QString(theme).remove(u' ').remove(u'-');
    return name.contains(QStringLiteral("HighContrast"), Qt::CaseInsensitive);
}

QString setting(char const* file, char const* key)
{
    QString const path = QStandardPaths::locate(QStandardPaths::GenericConfigLocation, QString::fromLatin1(file));
    return path.isEmpty() ? QString()
                          : QSettings(path, QSettings::IniFormat).value(QString::fromLatin1(key)).toString();
}

/// As the desktops write it down: the toolkit of this version does not tell.
bool readStrongTheme()
{
    return isStrong(qEnvironmentVariable("GTK_THEME")) ||
           isStrong(setting("gtk-3.0/settings.ini", "Settings/gtk-theme-name")) ||
           isStrong(setting("kdeglobals", "General/ColorScheme"));
}

std::optional<bool>& strongTheme() TARN_ON(velaGuiRole)
{
    static std::optional<bool> known;
    return known;
}

double contrastOf(QPalette const& palette, QPalette::ColorRole ink, QPalette::ColorRole ground)
{
    return guiContrast(qtogui(palette.color(QPalette::Active, ink)), qtogui(palette.color(QPalette::Active, ground)));
}

// ---- Grounds ----

/// The mean colour of a picture; none when one sees through most of it.
std::optional<guiColor> meanOf(QPixmap const& picture)
{
    constexpr int kOpaque = 128;
    QImage const mean = picture.toImage().scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QColor const color = mean.isNull() ? QColor(Qt::transparent) : mean.pixelColor(0, 0);
    return color.alpha() < kOpaque ? std::nullopt : std::optional(qtogui(color));
}

/// Most pages have one picture at most behind their text.
std::optional<guiColor> rememberedMeanOf(QPixmap const& picture) TARN_ON(velaGuiRole)
{
    static qint64 key = 0;
    static std::optional<guiColor> mean;
    if (key != picture.cacheKey()) {
        mean = meanOf(picture);
        key = picture.cacheKey();
    }
    return mean;
}

std::optional<guiColor> ownGround(guiHtml const* node)
{
    assertOnGuiThread();
    if (QPixmap const* picture = node->getBackgroundPixmap())
        return rememberedMeanOf(*picture);
    bool const isGround = node->hasBackgroundColor() && node->getBackgroundEdge() == guiEdge::kNone;
    return isGround ? std::optional(node->getBackgroundColor()) : std::nullopt;
}

std::optional<QPalette> paletteOf(guiHtml* node)
{
    QWidget const* window = node->getTopLevelWidget();
    return window ? std::optional(window->palette()) : std::nullopt;
}

// ---- Inks ----

guiInks inksOnDesktop(QPalette const& palette)
{
    guiColor const ground = qtogui(palette.color(QPalette::Window));
    guiInks inks;
    if (guiIsDark(ground)) {
        inks.text = qtogui(palette.color(QPalette::Active, QPalette::WindowText));
        guiColor const link = qtogui(palette.color(QPalette::Active, QPalette::Link));
        inks.link =
            guiContrast(link, ground) < kMarkContrast ? kLinkOnDark : link; // many palettes have none of their own
        inks.activeLink = guiReadable(kActiveLinkOnDark, ground, kGoodContrast);
    }
    inks.text = guiReadable(inks.text, ground, kGoodContrast);
    inks.link = guiReadable(inks.link, ground, kGoodContrast);
    if (guiIsHighContrast(palette))
        inks.activeLink = guiReadable(inks.activeLink, ground, kGoodContrast);
    return inks;
}

/// Pages have always had black text on grounds of middling brightness, which stays; only where it can hardly be made
/// out it is white.
guiInks inksOnPage(guiColor ground)
{
    constexpr double kHidden = 2;
    guiInks inks;
    if (guiContrast(guiColor::Black, ground) < kHidden)
        inks = {guiColor::White, guiReadable(kLinkOnDark, ground, kGoodContrast),
                guiReadable(kActiveLinkOnDark, ground, kGoodContrast)};
    inks.link = guiReadable(inks.link, ground, kLeastContrast);
    return inks;
}

/// Texts are painted one after the other on few grounds.
struct rememberedInks
{
    guiGround ground;
    qint64 palette = 0;
    guiInks inks;
};

guiInks chooseInks(guiHtml* node, guiGround const& ground) TARN_ON(velaGuiRole)
{
    static rememberedInks last{{guiColor::LightGray, true}, 0, inksOnPage(guiColor::LightGray)};
    std::optional<QPalette> const palette = ground.isGiven ? std::nullopt : paletteOf(node);
    qint64 const key = palette ? palette->cacheKey() : 0;
    bool const isKnown = last.ground.color == ground.color && last.palette == key;
    if (!isKnown)
        last = {ground, key, palette ? inksOnDesktop(*palette) : inksOnPage(ground.color)};
    return last.inks;
}

} // namespace

bool guiIsHighContrast(QPalette const& palette)
{
    assertOnGuiThread();
    constexpr double kBlackOnWhite = 20.9;
    std::optional<bool>& theme = strongTheme();
    if (!theme)
        theme = readStrongTheme();
    return *theme || (contrastOf(palette, QPalette::WindowText, QPalette::Window) > kBlackOnWhite &&
                      contrastOf(palette, QPalette::Text, QPalette::Base) > kBlackOnWhite &&
                      contrastOf(palette, QPalette::ButtonText, QPalette::Button) > kBlackOnWhite);
}

void guiForgetDesktopColors()
{
    assertOnGuiThread();
    strongTheme().reset();
}

guiGround guiGroundOf(guiHtml* node)
{
    for (guiHtml const* at = node; at; at = at->m.parent)
        if (std::optional<guiColor> const own = ownGround(at))
            return {*own, true};
    std::optional<QPalette> const palette = paletteOf(node);
    return palette ? guiGround{qtogui(palette->color(QPalette::Window)), false} : guiGround{guiColor::LightGray, false};
}

guiInks guiInksOn(guiHtml* node, guiGround const& ground)
{
    assertOnGuiThread();
    unsigned const given = node->m.givenColors;
    guiInks inks = chooseInks(node, ground);
    if (given & kGivenText)
        inks.text = node->m.textColor;
    if (given & kGivenLink)
        inks.link = node->m.linkColor;
    if (given & kGivenActiveLink)
        inks.activeLink = node->m.activeLinkColor;
    return inks;
}

guiInks guiInksOf(guiHtml* node) { return guiInksOn(node, guiGroundOf(node)); }

guiColor guiPlainInkOf(guiHtml* node)
{
    assertOnGuiThread();
    return chooseInks(node, guiGroundOf(node)).text;
}

guiEdges guiEdgesOf(guiHtml* node)
{
    constexpr double kShadow = 0.35;
    constexpr double kFrame = 0.3;
    constexpr double kLine = 0.42;
    guiGround const ground = guiGroundOf(node->m.parent ? node->m.parent : node);
    std::optional<QPalette> const palette = ground.isGiven ? std::nullopt : paletteOf(node);
    if (!palette)
        return {};
    bool const isDark = guiIsDark(ground.color);
    guiColor const ink = isDark ? guiColor::White : guiColor::Black;
    if (guiIsHighContrast(*palette))
        return {ground.color, ink, ink};
    if (!isDark)
        return {};
    return {guiMixed(ground.color, guiColor::Black, kShadow), guiMixed(ground.color, ink, kFrame),
            guiMixed(ground.color, ink, kLine)};
}

guiColor guiFocusInk(QPalette const& palette)
{
    guiColor const mark = qtogui(palette.color(QPalette::Highlight));
    guiColor const ground = qtogui(palette.color(QPalette::Window));
    return guiIsHighContrast(palette) ? guiReadable(mark, ground, kGoodContrast) : mark;
}
