// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/PictureIntake.h"

#include "suite/image/PictureKind.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Refusal = PictureIntake::Refusal;

// Good enough for a second look at a scratch, at a few hundred kilobytes a picture.
constexpr int jpegQuality = 85;
// Deeper colours take eight bytes a pixel while they are decoded.
constexpr qint64 mebibyte = 1 << 20;
constexpr int largestAllocationMiB = static_cast<int>(PictureIntake::maxPixels * 8 / mebibyte) + 1;

PictureIntake::Result refused(Refusal why)
{
    return {why, {}, {}};
}

// Lets the decoders have the memory that the largest allowed picture needs. Their limit belongs to the whole program, so it
// is put back.
class AllocationLimit
{
public:
    AllocationLimit()
        : m_before(QImageReader::allocationLimit())
    {
        QImageReader::setAllocationLimit(largestAllocationMiB);
    }
    ~AllocationLimit() { QImageReader::setAllocationLimit(m_before); }
    AllocationLimit(const AllocationLimit &) = delete;
    AllocationLimit &operator=(const AllocationLimit &) = delete;

private:
    int m_before;
};

bool isTooLarge(const QSize &size)
{
    return qint64(size.width()) * size.height() > PictureIntake::maxPixels;
}

// A long thin strip keeps a pixel in its thin direction.
QSize keptSize(const QSize &size)
{
    const int longer = std::max(size.width(), size.height());
    if (longer <= PictureIntake::maxSide)
        return size;
    const QSizeF scaled = QSizeF(size) * PictureIntake::maxSide / longer;
    return scaled.toSize().expandedTo(QSize(1, 1));
}

// Upright pixels, scaled down by the decoder, which need not hold the whole picture for it.
Refusal readPixels(const QByteArray &data, QImage *image)
{
    if (data.size() > PictureIntake::maxBytes)
        return Refusal::TooManyBytes;
    const PictureKind::Kind kind = PictureKind::of(data);
    if (kind == PictureKind::None)
        return Refusal::WrongKind;
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    // The kind that the first bytes show, and no other decoder's guess.
    QImageReader reader(&buffer, PictureKind::decoder(kind));
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty())
        return Refusal::Broken;
    if (isTooLarge(size))
        return Refusal::TooManyPixels;
    if (!PictureKind::isComplete(kind, data))
        return Refusal::Broken;
    if (const QSize kept = keptSize(size); kept != size)
        reader.setScaledSize(kept);
    const AllocationLimit limit;
    *image = reader.read();
    return image->isNull() ? Refusal::Broken : Refusal::None;
}

bool showsThrough(const QImage &image)
{
    if (!image.hasAlphaChannel())
        return false;
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(pixels.constScanLine(y));
        if (std::any_of(line, line + pixels.width(), [](QRgb pixel) { return qAlpha(pixel) < 255; }))
            return true;
    }
    return false;
}

// The pixels alone, in the colours of a screen: texts, resolution and colour profile of the source stay behind.
QImage bare(const QImage &source)
{
    QImage image =
        source.convertToFormat(showsThrough(source) ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (image.colorSpace().isValid())
        image.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
    if (const QSize kept = keptSize(image.size()); kept != image.size())
        image = image.scaled(kept, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                    .convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    return QImage(image.constBits(), image.width(), image.height(), image.bytesPerLine(), image.format()).copy();
}

QByteArray encoded(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, image.hasAlphaChannel() ? "png" : "jpeg");
    if (!image.hasAlphaChannel())
        writer.setQuality(jpegQuality);
    return writer.write(image) ? bytes : QByteArray();
}

PictureIntake::Result written(const QImage &source)
{
    PictureIntake::Result result;
    result.image = bare(source);
    result.bytes = encoded(result.image);
    while (result.bytes.size() > PictureIntake::maxKeptBytes) {
        const QSize smaller = result.image.size() * 3 / 4;
        result.image = bare(result.image.scaled(smaller, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        result.bytes = encoded(result.image);
    }
    return result.bytes.isEmpty() ? refused(Refusal::Broken) : result;
}

}

QString PictureIntake::reason(Refusal refusal)
{
    switch (refusal) {
    case Refusal::Unreadable:
        return u"فایل تصویر خوانده نشد."_s;
    case Refusal::TooManyBytes:
        return u"اندازه تصویر بیشتر از %1 مگابایت است و پذیرفته نشد."_s
            .arg(maxBytes >> 20);
    case Refusal::WrongKind:
        return u"این فایل تصویر نیست یا از نوع پذیرفته شده نیست. لطفا تصویر JPEG یا PNG یا WebP انتخاب نمایید."_s;
    case Refusal::TooManyPixels:
        return u"ابعاد تصویر بیش از اندازه بزرگ است (سقف %1 مگاپیکسل)."_s
            .arg(maxPixels / megapixel);
    case Refusal::Broken:
        return u"این تصویر خراب است و خوانده نشد."_s;
    case Refusal::None:
        break;
    }
    return {};
}

PictureIntake::Result PictureIntake::fromData(const QByteArray &data)
{
    QImage image;
    const Refusal refusal = readPixels(data, &image);
    return refusal == Refusal::None ? written(image) : refused(refusal);
}

PictureIntake::Result PictureIntake::fromFile(const QString &path)
{
    QFile file(path);
    // A pipe or a device would never come to its end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return refused(Refusal::Unreadable);
    // One byte more than allowed reveals a file that is too large, also one that has grown since it was chosen.
    const QByteArray data = file.read(maxBytes + 1);
    if (file.error() != QFileDevice::NoError)
        return refused(Refusal::Unreadable);
    return fromData(data);
}

PictureIntake::Result PictureIntake::fromImage(const QImage &image)
{
    if (image.isNull())
        return refused(Refusal::Broken);
    return isTooLarge(image.size()) ? refused(Refusal::TooManyPixels) : written(image);
}

QImage PictureIntake::decode(const QByteArray &stored)
{
    QImage image;
    return readPixels(stored, &image) == Refusal::None ? bare(image) : QImage();
}
