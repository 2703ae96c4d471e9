// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

// The kinds of picture that are accepted, recognised by a file's first bytes. Inside the library only.
namespace PictureKind {

enum Kind {
    None,
    Jpeg,
    Png,
    WebP
};

Kind of(const QByteArray &data);
// Qt's name of the decoder.
QByteArray decoder(Kind kind);
// Whether the file goes on to its own end. The JPEG decoder paints what a cut file lacks in grey and calls it a picture; the
// others refuse such a file by themselves, so for them this is always true.
bool isComplete(Kind kind, const QByteArray &data);

}
