// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/BinaryLog.h"

#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"
#include "host/server/ServerError.h"
#include "suite/db/connection/KConnection.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>

#include <mysql.h>

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

const QString folderName = u"binlog"_s;
const QString asidePrefix = u"before-"_s;
const QString logPrefix = u"log-"_s;
const QString stampFormat = u"yyyyMMdd'T'HHmmsszzz"_s;
// What is known of the last server that kept the log.
const QByteArray running = QByteArrayLiteral("running\n");
const QByteArray wholeToTheEnd = QByteArrayLiteral("whole\n");
// Words of the server.
const QByteArray gaveUp = QByteArrayLiteral("Turning logging off");
const QByteArray shutDown = QByteArrayLiteral("Shutdown complete");
const QString wantedKey = u"Server/bKeepBinaryLog"_s;

QString stampNow()
{
    return QDateTime::currentDateTimeUtc().toString(stampFormat);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// log-20261122T193000000.000001: of which log, and which of its files; 0 for another name.
int numberOf(const QString &name, QString *log = nullptr)
{
    static const QRegularExpression form(u"\\A(log-[0-9T]{18})\\.([0-9]{6,9})\\z"_s);
    const QRegularExpressionMatch match = form.match(name);
    if (log)
        *log = match.captured(1);
    return match.captured(2).toInt();
}

// Both stay whole whatever happens on the way.
void keepFile(const QString &from, const QString &to)
{
    std::error_code impossible;
    std::filesystem::create_hard_link(from.toStdU16String(), to.toStdU16String(), impossible);
    // A disk without links.
    if (impossible && !QFile::copy(from, to))
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"پرونده %1 نوشته نشد؛ فضا و اجازه نوشتن در پوشه آن را بررسی نمایید."_s.arg(ServerError::shownPath(to)),
                          to + u": "_s + QString::fromStdString(impossible.message()));
}

QString makeAside(const QString &logs)
{
    const QString aside = logs + u'/' + asidePrefix + stampNow();
    QString reason;
    if (!platform::makePrivateFolder(aside, &reason))
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"پوشه %1 ساخته نشد؛ اجازه نوشتن در آن را بگیرید."_s.arg(ServerError::shownPath(aside)), aside + u": "_s + reason);
    return aside;
}

// The beginning of the paths of its files, where the server keeps a log of ours; else empty.
QString logOf(KConnection &connection)
{
    const KConnection::Result result = connection.run(QByteArrayLiteral("SELECT @@log_bin, @@log_bin_basename"));
    const MYSQL_ROW row = mysql_fetch_row(result.get());
    if (!row || !row[0] || QByteArray(row[0]) != "1" || !row[1])
        return {};
    const QString path = QFile::decodeName(row[1]);
    const QFileInfo log(path);
    return log.dir().dirName() == folderName && log.fileName().startsWith(logPrefix) ? path : QString();
}

}

BinaryLog::BinaryLog(const DataFolder &folder)
    : m_folder(folder)
{
}

QString BinaryLog::statePath() const
{
    return path() + u"/state"_s;
}

void BinaryLog::noteEnd(const KConnectionSettings &server) const
{
    if (indexes().isEmpty())
        return;
    try {
        KConnection connection(server);
        const KConnection::Result status = connection.run(QByteArrayLiteral("SHOW MASTER STATUS"));
        if (!logOf(connection).isEmpty() && mysql_fetch_row(status.get()))
            platform::writePrivateFile(statePath(), wholeToTheEnd);
    } catch (const CMySQLException &) {
        // Such a server is as good as killed.
    }
}

// The server of the last start may have gone on without its log. One that was killed said so in its own log; one that ended in order, but of
// which nothing was noted, did so or had no room to write in.
bool BinaryLog::mayLackChanges() const
{
    if (contentOf(statePath()) == wholeToTheEnd)
        return false;
    const QByteArray words = contentOf(m_folder.previousServerLogPath());
    return words.contains(gaveUp) || words.contains(shutDown);
}

QString BinaryLog::path() const
{
    return m_folder.path() + u'/' + folderName;
}

bool BinaryLog::isWanted() const
{
    return QSettings(m_folder.settingsFile(), QSettings::IniFormat).value(wantedKey, 0).toInt() != 0;
}

void BinaryLog::setWanted(bool wanted) const
{
    QSettings(m_folder.settingsFile(), QSettings::IniFormat).setValue(wantedKey, wanted ? 1 : 0);
}

QStringList BinaryLog::indexes() const
{
    return QDir(path()).entryList({logPrefix + u"*.index"_s}, QDir::Files, QDir::Name);
}

QByteArray BinaryLog::prepare(bool always) const
{
    if (!always && !isWanted()) {
        putAside();
        return {};
    }
    QString reason;
    if (!platform::makePrivateFolder(path(), &reason))
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"پوشه %1 ساخته نشد؛ اجازه نوشتن در آن را بگیرید."_s.arg(ServerError::shownPath(path())),
                          path() + u": "_s + reason);
    if (indexes().size() > 1 || mayLackChanges())
        putAside();
    const QStringList index = indexes();
    const QString log = index.isEmpty() ? logPrefix + stampNow() : renewIndex(index.constFirst());
    removeOld();
    QByteArray text = "log_bin=" + ServerConfig::quoted(path() + u'/' + log) + '\n';
    for (const char *line : {"server_id=1", "binlog_format=ROW", "binlog_row_image=FULL", "binlog_checksum=CRC32", "max_binlog_size=64M",
                             // What a power failure leaves must not be more in the tables than in the log.
                             "sync_binlog=1"})
        text += QByteArray(line) + '\n';
    platform::writePrivateFile(statePath(), running);
    text += "expire_logs_days=" + QByteArray::number(keptDays) + '\n';
    return text;
}

// The folder may have been moved since, and the oldest files give way to a new one. Returns the log's name.
QString BinaryLog::renewIndex(const QString &index) const
{
    const QString log = index.chopped(6);
    const QFileInfoList files = QDir(path()).entryInfoList({log + u".*"_s}, QDir::Files, QDir::Name | QDir::Reversed);
    QByteArray lines;
    qint64 room = roomBytes;
    bool fits = true;
    for (const QFileInfo &file : files) {
        if (numberOf(file.fileName()) == 0)
            continue;
        room -= file.size();
        // The newest stays, however long it is: the server goes on from it.
        fits = fits && (room >= 0 || lines.isEmpty());
        if (fits)
            lines.prepend(QFile::encodeName(file.absoluteFilePath()) + '\n');
        else
            QFile::remove(file.absoluteFilePath());
    }
    const QString target = path() + u'/' + index;
    if (lines.isEmpty()) {
        QFile::remove(target);
        return logPrefix + stampNow();
    }
    QString reason;
    if (platform::writePrivateFile(target, lines, &reason) != platform::WriteResult::Written)
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"پرونده %1 نوشته نشد؛ اجازه نوشتن در این پوشه را بگیرید."_s.arg(ServerError::shownPath(target)),
                          target + u": "_s + reason);
    return log;
}

void BinaryLog::removeOld() const
{
    const QString oldest = asidePrefix + QDateTime::currentDateTimeUtc().addDays(-keptDays).toString(stampFormat);
    for (const QFileInfo &aside : QDir(path()).entryInfoList({asidePrefix + u"*"_s}, QDir::Dirs | QDir::NoSymLinks)) {
        if (aside.fileName() < oldest)
            QDir(aside.absoluteFilePath()).removeRecursively();
    }
}

void BinaryLog::putAside() const
{
    const QStringList files = QDir(path()).entryList({logPrefix + u"*"_s}, QDir::Files);
    if (files.isEmpty())
        return;
    const QString aside = makeAside(path());
    for (const QString &file : files) {
        if (!QFile::rename(path() + u'/' + file, aside + u'/' + file))
            throw ServerError(ServerError::Kind::FolderNotWritable,
                              u"در پوشه %1 نمی‌توان چیزی نوشت؛ اجازه نوشتن در آن را بگیرید."_s.arg(ServerError::shownPath(path())),
                              u"cannot rename %1"_s.arg(file));
    }
}

void BinaryLog::closeFile(KConnection &connection)
{
    if (!logOf(connection).isEmpty())
        connection.run(QByteArrayLiteral("FLUSH BINARY LOGS"));
}

// The numbers go on, so that no file of the new log is taken for one of the old.
void BinaryLog::beginAnew(KConnection &connection)
{
    const QString log = logOf(connection);
    if (log.isEmpty())
        return;
    const QDir logs = QFileInfo(log).dir();
    connection.run(QByteArrayLiteral("FLUSH BINARY LOGS"));
    const QFileInfoList files = logs.entryInfoList({QFileInfo(log).fileName() + u".*"_s}, QDir::Files, QDir::Name);
    const QString aside = makeAside(logs.absolutePath());
    int newest = 0;
    for (const QFileInfo &file : files) {
        const int number = numberOf(file.fileName());
        if (number == 0)
            continue;
        keepFile(file.absoluteFilePath(), aside + u'/' + file.fileName());
        newest = qMax(newest, number);
    }
    connection.run("RESET MASTER TO " + QByteArray::number(newest + 1));
}

QStringList BinaryLog::from(const QString &name) const
{
    QString log;
    const int first = numberOf(name, &log);
    if (first == 0)
        return {};
    QStringList folders{path()};
    for (const QFileInfo &aside : QDir(path()).entryInfoList({asidePrefix + u"*"_s}, QDir::Dirs | QDir::NoSymLinks, QDir::Name))
        folders << aside.absoluteFilePath();
    for (const QString &folder : std::as_const(folders)) {
        QStringList found;
        for (int number = first;; ++number) {
            const QString file = u"%1/%2.%3"_s.arg(folder, log).arg(number, 6, 10, QChar(u'0'));
            if (QFileInfo(file).isSymLink() || !QFileInfo(file).isFile())
                break;
            found << file;
        }
        if (!found.isEmpty())
            return found;
    }
    return {};
}

bool BinaryLog::isInUse(const QString &file) const
{
    const QFileInfo asked(file);
    if (asked.dir() != QDir(path()) || contentOf(m_folder.serverLogPath()).contains(gaveUp))
        return false;
    const QStringList all = asked.dir().entryList({asked.completeBaseName() + u".*"_s}, QDir::Files, QDir::Name);
    return std::ranges::all_of(all, [number = numberOf(asked.fileName())](const QString &other) { return numberOf(other) <= number; });
}
