// tests/support/moviefile.h: writes movie files for tests, chunk by chunk.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <cstdint>

inline QByteArray number(std::uint32_t value)
{
    QByteArray bytes;
    for (int i = 0; i < 4; ++i)
        bytes.append(static_cast<char>(value >> 8 * i));
    return bytes;
}

/// Name, size, data and, for an odd size, a byte behind it.
inline QByteArray chunk(char const* name, QByteArray const& data)
{
    QByteArray padded = data.size() % 2 ? data + '\0' : data;
    return QByteArray(name, 4) + number(static_cast<std::uint32_t>(data.size())) + padded;
}

inline QByteArray png(int width, int height, QColor const& color)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

inline QByteArray avzFrame(unsigned milliseconds, QByteArray const& picture)
{
    return chunk("vidf", number(milliseconds) + picture);
}

inline QByteArray avz(QByteArray const& chunks) { return chunk("RIFF", "AVZ " + chunks); }

/// Main header with 40 milliseconds per frame.
inline QByteArray avih(unsigned frames, unsigned width, unsigned height)
{
    QByteArray fields = number(40000) + QByteArray(12, '\0') + number(frames) + QByteArray(12, '\0') + number(width) +
                        number(height) + QByteArray(16, '\0');
    return chunk("avih", fields);
}

inline QByteArray audioStream(QByteArray const& format)
{
    return chunk("LIST", "strl" + chunk("strh", "auds" + QByteArray(44, '\0')) + chunk("strf", format));
}

inline QByteArray avi(QByteArray const& headers, QByteArray const& movie)
{
    return chunk("RIFF",
                 "AVI " + chunk("LIST", "hdrl" + headers) + chunk("JUNK", "abc") + chunk("LIST", "movi" + movie));
}
