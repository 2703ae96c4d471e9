// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupFiles.h"

#include "host/backup/BackupWriter.h"
#include "host/server/DumpFiles.h"
#include "host/server/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 copiedAtOnce = 1024LL * 1024;
constexpr qint64 secondsOfLeftManifests = 3600;

}

namespace BackupFiles {

QList<BackupFile> in(const QString &folder, const QString &database)
{
    QList<BackupFile> backups;
    const QStringList paths = DumpFiles::in(folder, database);
    for (const QString &path : paths)
        backups.append(BackupFile(path));
    return backups;
}

QString freePath(const QString &folder, const QString &database, BackupFile::Format format, const QDateTime &taken)
{
    using Format = BackupFile::Format;
    const QString base = u"%1/%2-%3"_s.arg(folder, database, taken.toString(u"yyyyMMdd-HHmmss"_s));
    const auto isTaken = [](const QString &name) {
        for (const Format each : {Format::Plain, Format::Compressed, Format::Encrypted}) {
            const QString path = name + BackupFile::suffix(each);
            if (QFileInfo::exists(path) || QFileInfo(path).isSymLink() || QFileInfo::exists(path + BackupWriter::unfinished()))
                return true;
        }
        return false;
    };
    QString name = base;
    for (int number = 2; isTaken(name); ++number)
        name = u"%1-%2"_s.arg(base).arg(number);
    return name + BackupFile::suffix(format);
}

void removeLeft(const QString &folder)
{
    const QFileInfoList parts = QDir(folder).entryInfoList({u"*.sql*"_s + BackupWriter::unfinished()}, QDir::Files | QDir::NoSymLinks);
    for (const QFileInfo &part : parts) {
        platform::FileLock lock(part.filePath());
        // One that is being written is locked by its writer.
        if (lock.tryLock() == platform::FileLock::Result::Taken)
            QFile::remove(part.filePath());
    }
    const QFileInfoList manifests = QDir(folder).entryInfoList({u"*.sql*.json"_s, u"*.sql*.json.new"_s}, QDir::Files | QDir::NoSymLinks);
    for (const QFileInfo &manifest : manifests) {
        const QString file = manifest.filePath().left(manifest.filePath().lastIndexOf(u".json"_s));
        const bool isAlone = manifest.fileName().endsWith(u".new"_s)
            || !(QFileInfo::exists(file) || QFileInfo::exists(file + BackupWriter::unfinished()));
        if (isAlone && manifest.lastModified().secsTo(QDateTime::currentDateTime()) > secondsOfLeftManifests)
            QFile::remove(manifest.filePath());
    }
}

BackupFile copy(const BackupFile &file, const QString &folder)
{
    if (!QFileInfo(folder).isDir())
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"پوشه دوم پشتیبان %1 در دسترس نیست؛ دیسک یا پوشه اشتراکی آن را وصل نمایید."_s.arg(ServerError::shownPath(folder)),
                          folder + u" is not there"_s);
    removeLeft(folder);
    const QString target = folder + u'/' + QFileInfo(file.path()).fileName();
    QFile source(file.path());
    if (!source.open(QIODevice::ReadOnly))
        throw ServerError(ServerError::Kind::DumpFailed, u"پرونده %1 خوانده نشد."_s.arg(ServerError::shownPath(file.path())),
                          source.errorString());
    BackupWriter writer(target);
    for (;;) {
        const QByteArray chunk = source.read(copiedAtOnce);
        if (chunk.isEmpty())
            break;
        writer.writeAsIs(chunk);
    }
    if (source.error() != QFile::NoError || writer.fileBytes() != file.size())
        throw ServerError(ServerError::Kind::DumpFailed, u"پرونده %1 خوانده نشد."_s.arg(ServerError::shownPath(file.path())),
                          u"%1 of %2 bytes: %3"_s.arg(writer.fileBytes()).arg(file.size()).arg(source.errorString()));
    if (file.manifest() && !file.manifest()->digest.isEmpty() && writer.digest() != file.manifest()->digest)
        throw ServerError(ServerError::Kind::BackupDamaged, u"پرونده پشتیبان %1 آسیب دیده است."_s.arg(ServerError::shownPath(file.path())),
                          u"the digest of the copy differs"_s);
    writer.finish(file.manifest());
    return BackupFile(target);
}

}
