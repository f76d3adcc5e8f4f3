// controls/guipicturereader.h: decodes a picture file, with no more pixels than are shown when these are much fewer.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QPixmap>

/// What is known of a picture before it is decoded.
struct guiPictureKind
{
    QSize size; ///< turned as the camera noted; empty when the file is no picture, or too large a one
    bool isVector = false;
    bool isAnimated = false;

    /// The size to decode with: that of the picture, or the shown one when the picture is at least twice as large in
    /// both directions; always the shown one for drawings. A side of `shown` that is not above 0 follows the other.
    QSize decodedSize(QSize shown) const;
};

/// Reads from bytes that the caller owns. A picture with a side of more than kMaxSide, or of more than 256 MiB when
/// decoded, is refused. GUI thread.
class guiPictureReader
{
public:
    static constexpr int kMaxSide = 16384; // pixels

    explicit guiPictureReader(QByteArray const& bytes);

    guiPictureKind const& kind() const { return m_kind; }
    /// Null when the file is damaged.
    QPixmap decode(QSize size);

    /// What a decoded picture takes, in bytes.
    static qint64 bytesOf(QSize size) { return qint64{size.width()} * size.height() * 4; }

private:
    /// The toolkit's decoder of PNG mixes up the pixels of two colours when it is to make a picture smaller.
    QPixmap decodeWhole(QSize size);

    QBuffer m_buffer;
    QImageReader m_reader;
    bool m_isTurned = false;  // width and height are exchanged
    bool m_isBilevel = false; // one bit a pixel
    guiPictureKind m_kind;
};
