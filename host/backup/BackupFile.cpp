// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupFile.h"

#include "host/server/DataFolder.h"
#include "host/server/Platform.h"
#include "host/server/ServerError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

BackupFile::BackupFile(const QString &path)
    : m_path(QDir::cleanPath(QDir::current().absoluteFilePath(path)))
    , m_exists(platform::isPlainFile(m_path))
    , m_format(formatOf(m_path))
{
    if (!m_exists)
        return;
    m_size = QFileInfo(m_path).size();
    if (!platform::isPlainFile(manifestPath())) {
        if (m_format != Format::Plain || QFileInfo::exists(manifestPath()))
            m_fault = u"no manifest"_s;
        return;
    }
    QFile file(manifestPath());
    if (!file.open(QIODevice::ReadOnly)) {
        m_fault = file.errorString();
        return;
    }
    m_manifest = BackupManifest::fromJson(file.read(BackupManifest::largestSize + 1), &m_fault);
}

QDateTime BackupFile::taken() const
{
    if (m_manifest)
        return m_manifest->taken;
    static const QRegularExpression stamp(u"-(\\d{8}-\\d{6})(-\\d+)?\\.sql"_s);
    QDateTime named = QDateTime::fromString(stamp.match(QFileInfo(m_path).fileName()).captured(1), u"yyyyMMdd-HHmmss"_s);
    if (!named.isValid())
        named = QFileInfo(m_path).lastModified();
    named.setTimeSpec(Qt::UTC);
    return named;
}

BackupManifest::Verification BackupFile::verification() const
{
    return m_manifest ? m_manifest->verification : BackupManifest::Verification();
}

void BackupFile::setManifest(const BackupManifest &manifest)
{
    const QString folder = QFileInfo(m_path).path();
    QString reason;
    switch (platform::writePrivateFile(manifestPath(), manifest.toJson(), &reason)) {
    case platform::WriteResult::Written:
        m_manifest = manifest;
        m_fault.clear();
        return;
    case platform::WriteResult::NoRoom:
        throw ServerError(ServerError::Kind::DiskFull, DataFolder(folder).diskFullMessage(), manifestPath() + u": "_s + reason);
    default:
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"در پوشه %1 نمی‌توان چیزی نوشت؛ اجازه نوشتن در آن را بگیرید یا پوشه دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(folder)),
                          manifestPath() + u": "_s + reason);
    }
}

bool BackupFile::remove() const
{
    // The manifest after its file: alone it is nothing, and is cleaned away.
    if (platform::isPlainFile(m_path) && !QFile::remove(m_path))
        return false;
    QFile::remove(manifestPath());
    return true;
}

BackupFile::Format BackupFile::formatOf(const QString &path)
{
    for (const Format format : {Format::Encrypted, Format::Compressed}) {
        if (path.endsWith(suffix(format)))
            return format;
    }
    return path.endsWith(u".enc") ? Format::Encrypted : path.endsWith(u".zst") ? Format::Compressed
                                                                               : Format::Plain;
}

QString BackupFile::suffix(Format format)
{
    switch (format) {
    case Format::Compressed:
        return u".sql.zst"_s;
    case Format::Encrypted:
        return u".sql.zst.enc"_s;
    default:
        return u".sql"_s;
    }
}
