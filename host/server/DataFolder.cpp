// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/DataFolder.h"

#include "host/server/Platform.h"
#include "host/server/ServerError.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

// The path with the links of its existing part resolved; the rest does not exist yet.
QString resolved(const QString &path)
{
    QString existing = QDir::cleanPath(QDir::current().absoluteFilePath(path));
    QString rest;
    while (!QFileInfo::exists(existing) && !QFileInfo(existing).isRoot()) {
        rest.prepend(QLatin1Char('/') + QFileInfo(existing).fileName());
        existing = QFileInfo(existing).path();
    }
    const QString canonical = QFileInfo(existing).canonicalFilePath();
    return QDir::cleanPath((canonical.isEmpty() ? existing : canonical) + rest);
}

ServerError notWritable(const QString &folder, const QString &reason)
{
    return {ServerError::Kind::FolderNotWritable,
            u"در پوشه %1 نمی‌توان چیزی نوشت؛ اجازه نوشتن در آن را بگیرید یا پوشه دیگری برای اطلاعات "
            "انتخاب نمایید."_s
                .arg(ServerError::shownPath(folder)),
            u"cannot write to %1: %2"_s.arg(folder, reason)};
}

}

DataFolder::DataFolder(const QString &path)
    : m_path(resolved(path)) { }

QString DataFolder::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/tzauto/office"_s;
}

QString DataFolder::demoPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/tzauto/demo"_s;
}

void DataFolder::create() const
{
    for (const QString &folder : {m_path, backupsPath(), logsPath(), settingsPath(), temporaryPath()}) {
        QString reason;
        if (!platform::makePrivateFolder(folder, &reason))
            throw notWritable(m_path, folder + u": "_s + reason);
        const QString probe = folder + u"/.write-check"_s;
        const platform::WriteResult result = platform::writePrivateFile(probe, "tzauto\n", &reason);
        QFile::remove(probe);
        if (result == platform::WriteResult::NoRoom)
            throw ServerError(ServerError::Kind::DiskFull, diskFullMessage(), folder + u": "_s + reason);
        if (result == platform::WriteResult::Refused)
            throw notWritable(m_path, folder + u": "_s + reason);
    }
    close();
}

// From the outside in: once the folder itself is closed, nobody comes between.
void DataFolder::close() const
{
    QString openPart;
    const auto requirePrivate = [&](const QString &path) {
        if (!platform::makePrivate(path, &openPart))
            throw ServerError(ServerError::Kind::FolderNotPrivate,
                              u"پوشه %1 برای کاربران دیگر این رایانه باز است و بسته نشد؛ اجازه دیگران را از آن بردارید یا پوشه "
                              "دیگری برای اطلاعات انتخاب نمایید."_s
                                  .arg(ServerError::shownPath(m_path)),
                              openPart);
    };
    for (const QString &path : {m_path, clientConfigPath(), serverConfigPath(), statePath()})
        requirePrivate(path);
    // Only our own parts: a folder that was chosen may hold other things.
    for (const QString &folder : {databasePath(), backupsPath(), logsPath(), settingsPath(), temporaryPath()}) {
        requirePrivate(folder);
        QDirIterator parts(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (parts.hasNext())
            requirePrivate(parts.next());
    }
}

QString DataFolder::socketPath(const QString &purpose) const
{
    const QByteArray digest = QCryptographicHash::hash(m_path.toUtf8(), QCryptographicHash::Sha256).toHex().left(12);
    const QString name = u"/%1-%2.sock"_s.arg(QString::fromLatin1(digest), purpose);
    QString reason;
    for (const QString &folder : platform::runtimeFolders()) {
        QString path = folder + name;
        if (QFile::encodeName(path).size() > platform::longestSocketPath())
            reason = u"%1 is too long"_s.arg(path);
        else if (platform::makePrivateFolder(folder, &reason) && platform::isPrivateFolder(folder))
            return path;
    }
    throw notWritable(platform::runtimeFolders().constLast(),
                      u"no private folder for sockets: "_s + reason);
}

QString DataFolder::diskFullMessage() const
{
    return u"دیسکی که پوشه %1 در آن است پر شده است؛ فضا آزاد نمایید و دوباره تلاش کنید. اطلاعات ذخیره "
           "شده قبلی سالم است."_s
               .arg(ServerError::shownPath(m_path));
}
