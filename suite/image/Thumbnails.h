// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/image/TzImageExport.h"

#include <QByteArray>
#include <QHash>
#include <QImage>
#include <QList>
#include <QString>

// Small pictures of records, beside the pictures that they are made of: whatever shows many records reads these and never a whole
// picture. Made in the transaction that writes a record's picture, and deleted with the record.
class TZIMAGE_EXPORT Thumbnails
{
public:
    // A table whose records have a picture.
    struct Source
    {
        QString table;
        int recordKind = 0;
        QString column; // of the picture
    };

    // Longest sides in pixels: a card's picture at 200 %.
    static constexpr int maxWidth = 480;
    static constexpr int maxHeight = 320;
    // Records of one step of buildStep.
    static constexpr int recordsPerStep = 16;

    // A JPEG, on white where the picture lets something shine through; empty for bytes that cannot be shown.
    static QByteArray made(const QByteArray &stored);
    // The same of a picture that is decoded, with other longest sides; a smaller one keeps its size. The file holds its pixels and nothing
    // else that came with it.
    static QByteArray made(const QImage &picture, const QSize &longest);

    // From now on those of the table follow its rows.
    static void follow(const Source &source);
    static void unfollow(const Source &source);

    // Makes one record's anew; within the caller's transaction.
    static void make(const Source &source, qint32 key, int database = 0);
    // Makes some of those that are missing, of the records with a key lower than before, which becomes that of the last one it came to: begin with
    // the largest number. False: there are no more. A record without a picture, or with one that cannot be shown, gets an empty one, so that it
    // is not looked at again. shown: those with a picture are added to it.
    static bool buildStep(const Source &source, qint32 &before, QList<qint32> *shown = nullptr, int database = 0);
    // Makes all that are missing.
    static void build(const Source &source, int database = 0);
};
