// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupFiles.h"

#include "host/backup/BackupTools.h"
#include "host/backup/BackupWriter.h"
#include "host/server/DumpFiles.h"
#include "host/server/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

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
    // The names that we give, and no others: the folder may be anybody's.
    static const QRegularExpression ours(u"^.+-\\d{8}-\\d{6}(?:-\\d{1,6})?\\.sql\\.zst(?:\\.enc)?(\\.part|\\.json|\\.json\\.new)$"_s);
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files | QDir::NoSymLinks);
    for (const QFileInfo &file : files) {
        const QRegularExpressionMatch match = ours.match(file.fileName());
        if (!match.hasMatch())
            continue;
        if (match.captured(1) == BackupWriter::unfinished()) {
            platform::FileLock lock(file.filePath());
            // One that is being written is locked by its writer.
            if (lock.tryLock() == platform::FileLock::Result::Taken)
                QFile::remove(file.filePath());
            continue;
        }
        const QString backup = file.filePath().chopped(match.capturedLength(1));
        const bool isAlone = match.captured(1) == u".json.new" || !(QFileInfo::exists(backup) || QFileInfo::exists(backup + BackupWriter::unfinished()));
        if (isAlone && file.lastModified().secsTo(QDateTime::currentDateTime()) > secondsOfLeftManifests)
            QFile::remove(file.filePath());
    }
}

BackupFile copy(const BackupFile &file, const QString &folder, const std::function<bool()> &goesOn)
{
    if (!QFileInfo(folder).isDir())
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"پوشه دوم پشتیبان %1 در دسترس نیست؛ دیسک یا پوشه اشتراکی آن را وصل نمایید."_s.arg(ServerError::shownPath(folder)),
                          folder + u" is not there"_s);
    removeLeft(folder);
    QString target = folder + u'/' + QFileInfo(file.path()).fileName();
    BackupFile there(target);
    if (QFileInfo::exists(target)) {
        const bool isSame = file.manifest() && there.manifest() && there.size() == file.size() && there.manifest()->digest == file.manifest()->digest;
        if (isSame) {
            there.setManifest(*file.manifest());
            return there;
        }
        // Another office's backup of the same second.
        target = freePath(folder, file.manifest() ? file.manifest()->database : QFileInfo(file.path()).baseName(), file.format(), file.taken());
    }
    QFile source(file.path());
    if (!source.open(QIODevice::ReadOnly))
        throw ServerError(ServerError::Kind::DumpFailed, u"پرونده %1 خوانده نشد."_s.arg(ServerError::shownPath(file.path())),
                          source.errorString());
    BackupWriter writer(target);
    for (;;) {
        const QByteArray chunk = source.read(copiedAtOnce);
        if (chunk.isEmpty())
            break;
        if (goesOn && !goesOn())
            throw BackupTools::cancelled();
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
