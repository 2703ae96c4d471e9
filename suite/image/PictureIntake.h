// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/image/TzImageExport.h"

#include <QByteArray>
#include <QImage>

// How a picture from outside becomes one of a record's. Whatever comes in is treated as hostile: its kind is judged by its
// contents and never by a name, its size is bounded before it is read, and its pixels before it is decoded. What is kept is
// written anew, so that nothing of the file but its pixels reaches the database (no place, no camera, no thumbnail).
class TZIMAGE_EXPORT PictureIntake
{
public:
    enum class Refusal {
        None,
        Unreadable,   // no ordinary file, or one that cannot be read
        TooManyBytes, // more than maxBytes
        WrongKind,    // neither JPEG nor PNG nor WebP
        TooManyPixels,
        Broken // its kind is right, but it does not decode to the end
    };

    struct Result
    {
        Refusal refusal = Refusal::None;
        QByteArray bytes; // JPEG, or PNG where anything shines through; empty when refused
        QImage image;     // what the bytes hold
    };

    // Largest file that is taken: 20 MiB.
    static constexpr qint64 maxBytes = qint64(20) * 1024 * 1024;
    // Most pixels that are decoded. The cameras of telephones take what is sold as 64 megapixels, 9248 by 6936 for example,
    // which is more than 64 millions.
    static constexpr qint64 megapixel = 1 << 20;
    static constexpr qint64 maxPixels = 64 * megapixel;
    // Longer side of what is kept, in pixels. Smaller pictures stay as large as they are.
    static constexpr int maxSide = 1600;
    // Most bytes that are kept, so that every office server takes them in one statement: a photograph with a see-through part
    // that would need more is made smaller.
    static constexpr qint64 maxKeptBytes = qint64(3) * 1024 * 1024;

    // For the user; empty for None.
    static QString reason(Refusal refusal);

    // A whole file's contents, turned upright, scaled down and written anew.
    static Result fromData(const QByteArray &data);
    static Result fromFile(const QString &path);
    // Pixels that are in memory already (a paste, a drop).
    static Result fromImage(const QImage &image);

    // The pixels of a stored picture, upright, at most maxSide long; null when it cannot be shown. The bytes are those that
    // the database holds, written by any program, so they are bounded as strictly.
    static QImage decode(const QByteArray &stored);
};
