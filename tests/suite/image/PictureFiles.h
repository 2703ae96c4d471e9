// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageWriter>

// Pictures as files in memory, sound and otherwise.
namespace PictureFiles {

inline QByteArray written(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(90);
    if (!writer.write(image))
        qFatal("no %s picture could be written: %s", format, qPrintable(writer.errorString()));
    return bytes;
}

// The left half red, the right half blue.
inline QImage redAndBlue(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(220, 30, 30));
    for (int y = 0; y < height; ++y)
        for (int x = width / 2; x < width; ++x)
            image.setPixelColor(x, y, QColor(30, 30, 220));
    return image;
}

inline QByteArray jpeg(int width, int height)
{
    return written(redAndBlue(width, height), "jpeg");
}

// Nothing at all shows in its middle.
inline QByteArray seeThroughPng(int width, int height)
{
    QImage image = redAndBlue(width, height).convertToFormat(QImage::Format_ARGB32);
    image.setPixelColor(width / 2, height / 2, Qt::transparent);
    return written(image, "png");
}

// The JPEG with an Exif block that turns it (1 to 8) and names a camera.
inline QByteArray withExif(const QByteArray &jpeg, int orientation)
{
    QByteArray tiff("MM\0*\0\0\0\x08", 8);
    tiff += QByteArray("\0\x02", 2);
    tiff += QByteArray("\x01\x0F\0\x02\0\0\0\x07\0\0\0\x26", 12); // Make: seven characters at 38
    tiff += QByteArray("\x01\x12\0\x03\0\0\0\x01\0", 9) + char(orientation) + QByteArray("\0\0", 2);
    tiff += QByteArray("\0\0\0\0", 4);
    tiff += QByteArray("Camera\0", 7);
    const QByteArray body = QByteArray("Exif\0\0", 6) + tiff;
    const auto length = static_cast<int>(body.size()) + 2;
    QByteArray segment("\xFF\xE1", 2);
    segment += char(length >> 8);
    segment += char(length & 0xFF);
    return jpeg.left(2) + segment + body + jpeg.mid(2);
}

// A PNG of a few bytes whose header promises that many pixels.
inline QByteArray pngPromising(quint32 width, quint32 height)
{
    QByteArray png = written(QImage(1, 1, QImage::Format_RGB32), "png");
    QByteArray header("IHDR");
    for (const quint32 side : {width, height})
        for (int shift = 24; shift >= 0; shift -= 8)
            header += char(side >> shift);
    header += png.mid(24, 5);
    quint32 crc = 0xFFFFFFFF;
    for (const char byte : header) {
        crc ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (0xEDB88320 & (0 - (crc & 1)));
    }
    crc = ~crc;
    for (int shift = 24; shift >= 0; shift -= 8)
        header += char(crc >> shift);
    return png.replace(12, header.size(), header);
}

}
