// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

class QMimeData;

// What a paste or a drop offers to a picture box. Addresses of the network are never followed. Inside the library only.
class PictureOffer
{
public:
    enum Kind {
        None,
        File,         // one file of this machine
        SeveralFiles, // only one can be taken
        Data,         // a whole picture file in memory
        Pixels
    };

    // Reads only the list of what there is; the offer must not outlive mimeData.
    explicit PictureOffer(const QMimeData &mimeData);

    Kind kind() const { return m_kind; }
    QString path() const { return m_path; }
    QByteArray data() const;
    QImage pixels() const;

private:
    const QMimeData &m_mimeData;
    Kind m_kind = None;
    QString m_path;
    QString m_format;
};
