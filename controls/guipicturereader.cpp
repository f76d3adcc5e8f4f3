// controls/guipicturereader.cpp: see guipicturereader.h.
#include "controls/guipicturereader.h"

#include "foundation/vela-threadrole.h"

#include <algorithm>
#include <cassert>

namespace {

constexpr int kMaxMiB = 256; // decoded
constexpr int kMaxSide = guiPictureReader::kMaxSide;

bool isAllowed(QSize size)
{
    return !size.isEmpty() && size.width() <= kMaxSide && size.height() <= kMaxSide &&
           guiPictureReader::bytesOf(size) <= qint64{kMaxMiB} << 20;
}

int following(int side, int other, int own)
{
    return static_cast<int>(std::clamp<qint64>((qint64{side} * other + own / 2) / own, 1, kMaxSide));
}

} // namespace

QSize guiPictureKind::decodedSize(QSize shown) const
{
    assert(!size.isEmpty());
    if (shown.width() <= 0 && shown.height() <= 0)
        return size;
    if (shown.width() <= 0)
        shown.setWidth(following(shown.height(), size.width(), size.height()));
    if (shown.height() <= 0)
        shown.setHeight(following(shown.width(), size.height(), size.width()));
    if (isVector)
        return isAllowed(shown) ? shown : size;
    bool const isMuchSmaller = shown.width() <= size.width() / 2 && shown.height() <= size.height() / 2;
    return isMuchSmaller ? shown : size;
}

guiPictureReader::guiPictureReader(QByteArray const& bytes)
{
    assertOnGuiThread();
    m_buffer.setData(bytes);
    m_buffer.open(QIODevice::ReadOnly);
    m_reader.setDevice(&m_buffer);
    m_reader.setAutoTransform(true);
    QImageReader::setAllocationLimit(kMaxMiB);
    QSize const stored = m_reader.size();
    if (!isAllowed(stored))
        return;
    m_isTurned = m_reader.transformation() & QImageIOHandler::TransformationRotate90;
    m_kind.size = m_isTurned ? stored.transposed() : stored;
    QImage::Format const format = m_reader.imageFormat();
    m_isBilevel = format == QImage::Format_Mono || format == QImage::Format_MonoLSB;
    m_kind.isVector = m_reader.format().startsWith("svg");
    m_kind.isAnimated = m_reader.supportsAnimation() && m_reader.imageCount() != 1;
}

QPixmap guiPictureReader::decode(QSize size)
{
    if (size == m_kind.size)
        return QPixmap::fromImageReader(&m_reader);
    if (m_isBilevel)
        return decodeWhole(size);
    m_reader.setScaledSize(m_isTurned ? size.transposed() : size);
    return QPixmap::fromImageReader(&m_reader);
}

QPixmap guiPictureReader::decodeWhole(QSize size)
{
    QImage const whole = m_reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    return QPixmap::fromImage(whole.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}
