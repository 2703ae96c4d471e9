// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/image/PictureOffer.h"

#include <QMimeData>
#include <QUrl>

using namespace Qt::StringLiterals;

// A file before its picture: file managers offer a small preview beside the file that is meant. Encoded data before pixels:
// it passes the bounds before anything decodes it.
PictureOffer::PictureOffer(const QMimeData &mimeData)
    : m_mimeData(mimeData)
{
    for (const QUrl &url : mimeData.urls()) {
        if (url.isLocalFile())
            m_paths.append(url.toLocalFile());
    }
    if (!m_paths.isEmpty()) {
        m_kind = m_paths.size() == 1 ? File : SeveralFiles;
        return;
    }
    for (const QString &format :
         {u"image/png"_s, u"image/jpeg"_s, u"image/webp"_s}) {
        if (mimeData.hasFormat(format)) {
            m_kind = Data;
            m_format = format;
            return;
        }
    }
    if (mimeData.hasImage())
        m_kind = Pixels;
}

QByteArray PictureOffer::data() const
{
    return m_mimeData.data(m_format);
}

QImage PictureOffer::pixels() const
{
    return qvariant_cast<QImage>(m_mimeData.imageData());
}
