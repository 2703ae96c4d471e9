// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>

class QMimeData;

// What a paste or a drop offers to a picture box. Addresses of the network are never followed. Inside the library only.
class PictureOffer
{
public:
    enum Kind {
        None,
        File,         // one file of this machine
        SeveralFiles, // a box of one picture takes none of them
        Data,         // a whole picture file in memory
        Pixels
    };

    // Reads only the list of what there is; the offer must not outlive mimeData.
    explicit PictureOffer(const QMimeData &mimeData);

    Kind kind() const { return m_kind; }
    // The last of them where there are several.
    QString path() const { return m_paths.isEmpty() ? QString() : m_paths.constLast(); }
    const QStringList &paths() const { return m_paths; }
    QByteArray data() const;
    QImage pixels() const;

private:
    const QMimeData &m_mimeData;
    Kind m_kind = None;
    QStringList m_paths;
    QString m_format;
};
