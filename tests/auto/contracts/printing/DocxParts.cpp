// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/contracts/printing/DocxParts.h"

#include <QFile>
#include <QXmlStreamReader>

#include <zip.h>

DocxParts readDocx(const QString &path)
{
    DocxParts parts;
    zip_t *archive = zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, nullptr);
    if (!archive)
        return parts;
    for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(zip_get_num_entries(archive, 0)); ++i) {
        zip_stat_t entry;
        zip_stat_index(archive, i, 0, &entry);
        QByteArray bytes(static_cast<qsizetype>(entry.size), Qt::Uninitialized);
        zip_file_t *file = zip_fopen_index(archive, i, 0);
        if (file && zip_fread(file, bytes.data(), entry.size) == static_cast<zip_int64_t>(entry.size))
            parts.insert(QString::fromUtf8(entry.name), bytes);
        if (file)
            zip_fclose(file);
    }
    zip_discard(archive);
    return parts;
}

bool writeDocx(const QString &path, const DocxParts &parts)
{
    zip_t *archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    if (!archive)
        return false;
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        zip_source_t *source = zip_source_buffer(archive, part->constData(), static_cast<zip_uint64_t>(part->size()), 0);
        zip_file_add(archive, part.key().toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
    }
    return zip_close(archive) == 0;
}

QString shownText(const DocxParts &parts)
{
    QString text;
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        if (!part.key().startsWith(QLatin1String("word/")) || !part.key().endsWith(QLatin1String(".xml")))
            continue;
        QXmlStreamReader xml(*part);
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("t"))
                text += xml.readElementText() + QLatin1Char('\n');
        }
    }
    return text;
}
