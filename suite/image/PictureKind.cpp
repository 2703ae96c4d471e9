// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/PictureKind.h"

#include <QtEndian>

namespace {

constexpr uchar markerStart = 0xFF;
constexpr uchar endOfImage = 0xD9;

uchar byteAt(const QByteArray &data, qsizetype position)
{
    return position < data.size() ? static_cast<uchar>(data.at(position)) : 0;
}

// Without a length behind it: 01 and the restart marks.
bool standsAlone(uchar marker)
{
    return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

// Position of the next marker's own byte from there on; -1 without one. Inside a scan FF 00 is a byte of the picture.
qsizetype nextMarker(const QByteArray &data, qsizetype position)
{
    for (qsizetype at = data.indexOf(char(markerStart), position); at >= 0; at = data.indexOf(char(markerStart), at + 1)) {
        const uchar marker = byteAt(data, at + 1);
        if (marker != markerStart && marker != 0 && !standsAlone(marker))
            return at + 1 < data.size() ? at + 1 : -1;
    }
    return -1;
}

// From segment to segment, because the thumbnail in one has an end of its own.
bool jpegHasEnd(const QByteArray &data)
{
    for (qsizetype at = nextMarker(data, 2); at >= 0;) {
        const uchar marker = byteAt(data, at);
        if (marker == endOfImage)
            return true;
        if (at + 3 > data.size())
            return false;
        const qsizetype length = qFromBigEndian<quint16>(data.constData() + at + 1);
        at = nextMarker(data, at + 1 + length);
    }
    return false;
}

}

PictureKind::Kind PictureKind::of(const QByteArray &data)
{
    if (data.startsWith("\xFF\xD8\xFF"))
        return Jpeg;
    if (data.startsWith("\x89PNG\r\n\x1A\n"))
        return Png;
    if (data.startsWith("RIFF") && data.mid(8, 4) == "WEBP")
        return WebP;
    return None;
}

QByteArray PictureKind::decoder(Kind kind)
{
    switch (kind) {
    case Jpeg:
        return "jpeg";
    case Png:
        return "png";
    case WebP:
        return "webp";
    case None:
        break;
    }
    return {};
}

bool PictureKind::isComplete(Kind kind, const QByteArray &data)
{
    return kind != Jpeg || jpegHasEnd(data);
}
