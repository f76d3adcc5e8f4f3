// runtime/guidriverpicture.cpp: see guidriverpicture.h.
#include "runtime/guidriverpicture.h"

#include "foundation/vela-threadrole.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

namespace {

QImage pictureOf(QWidget* window) { return window->grab().toImage().convertToFormat(QImage::Format_RGB32); }

bool differs(QRgb a, QRgb b, int tolerance)
{
    int const most =
        std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
    return most > tolerance;
}

int countDiffering(QImage const& a, QImage const& b, int tolerance)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += differs(a.pixel(x, y), b.pixel(x, y), tolerance) ? 1 : 0;
    return count;
}

QString sizeText(QSize const& size) { return QStringLiteral("%1 by %2").arg(size.width()).arg(size.height()); }

} // namespace

QJsonObject guiDriver_savePicture(QWidget* window, QString const& file)
{
    assertOnGuiThread();
    QDir().mkpath(QFileInfo(file).path());
    if (!pictureOf(window).save(file))
        return {{"problem", QStringLiteral("the file %1 cannot be written").arg(file)}};
    return {};
}

QJsonObject guiDriver_comparePicture(QWidget* window, QString const& file, int tolerance)
{
    assertOnGuiThread();
    if (!QFileInfo::exists(file))
        return {{"isMissing", true}};
    QImage const wanted = QImage(file).convertToFormat(QImage::Format_RGB32);
    if (wanted.isNull())
        return {{"problem", QStringLiteral("the file %1 is no picture").arg(file)}};
    QImage const actual = pictureOf(window);
    if (wanted.size() != actual.size())
        return {{"isSize", false}, {"wanted", sizeText(wanted.size())}, {"actual", sizeText(actual.size())}};
    return {{"isSize", true}, {"differing", countDiffering(wanted, actual, tolerance)}};
}
