// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/DatabaseBootstrap.h"

#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"
#include "host/server/ServerError.h"
#include "host/server/ServerLog.h"
#include "host/server/WayBack.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// What the server stores for a password. Computed here, so that the statement, which the server logs when it
// fails, does not hold the password itself.
QByteArray storedHash(const QString &password)
{
    const QByteArray once = QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Sha1);
    return '*' + QCryptographicHash::hash(once, QCryptographicHash::Sha1).toHex().toUpper();
}

// The bootstrap reads one statement per line and runs without the grant tables in memory, so that only a row
// makes an account.
QByteArray accountStatement(const QString &password)
{
    return "REPLACE INTO mysql.global_priv VALUES ('localhost','" + ServerOptions::databaseName().toLatin1()
        + "','{\"access\":18446744073709551615,\"plugin\":\"mysql_native_password\",\"authentication_string\":\""
        + storedHash(password) + "\"}');\n";
}

}

DatabaseBootstrap::DatabaseBootstrap(const DataFolder &folder, const ServerOptions &options)
    : m_folder(folder)
    , m_options(options)
{
}

void DatabaseBootstrap::finishRestoring() const
{
    const QString restored = m_folder.restoredDatabasePath();
    if (QFileInfo(restored).isDir() && !QFileInfo::exists(m_folder.databasePath()) && !QDir().rename(restored, m_folder.databasePath()))
        throw ServerLog(m_folder).error(ServerError::Kind::FolderNotWritable, u"cannot rename %1"_s.arg(restored));
    for (const QString &left : {restored, m_folder.restoringPath()})
        QDir(left).removeRecursively();
}

bool DatabaseBootstrap::exists() const
{
    const QDir database(m_folder.databasePath());
    if (!database.exists() || database.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        return false;
    if (QFileInfo(database.filePath(u"mysql"_s)).isDir())
        return true;
    throw ServerError(
        ServerError::Kind::Damaged,
        u"پوشه %1 پایگاه داده کاملی نیست؛ آن را از نسخه پشتیبان بازگردانید یا کنار بگذارید."_s
                .arg(ServerError::shownPath(m_folder.databasePath()))
            + u'\n' + WayBack(m_folder).sentences(),
        u"%1 holds no system tables"_s.arg(m_folder.databasePath()));
}

void DatabaseBootstrap::create(const QString &password, const ToolProcess::Pulse &pulse) const
{
    const QString aside = m_folder.databasePath() + u".new"_s;
    QDir(aside).removeRecursively();
    QString reason;
    if (!platform::makePrivateFolder(aside, &reason))
        throw ServerLog(m_folder).error(ServerError::Kind::FolderNotWritable, aside + u": "_s + reason);
    run(aside,
        "create database mysql;\nuse mysql;\n" + systemTables() + accountStatement(password) + "create database "
            + ServerOptions::databaseName().toLatin1() + ";\n",
        pulse);
    // An empty folder of that name is no obstacle.
    QDir().rmdir(m_folder.databasePath());
    if (!QDir().rename(aside, m_folder.databasePath()))
        throw ServerLog(m_folder).error(ServerError::Kind::FolderNotWritable,
                                        u"cannot rename %1"_s.arg(aside));
}

void DatabaseBootstrap::resetAccount(const QString &password, const ToolProcess::Pulse &pulse) const
{
    run(m_folder.databasePath(), accountStatement(password), pulse);
}

QByteArray DatabaseBootstrap::systemTables() const
{
    QByteArray all;
    // The accounts that the server's own set-up would add are left out: they have no password.
    for (const QString &name : {u"system_tables"_s, u"performance_tables"_s}) {
        QFile file(u"%1/mysql_%2.sql"_s.arg(m_options.programs.scripts, name));
        if (!file.exists())
            file.setFileName(u"%1/mariadb_%2.sql"_s.arg(m_options.programs.scripts, name));
        if (!file.open(QIODevice::ReadOnly))
            throw ToolProcess::missing(m_options.programs.server, u"cannot read %1"_s.arg(file.fileName()));
        all += file.readAll() + '\n';
    }
    return all;
}

void DatabaseBootstrap::run(const QString &databasePath, const QByteArray &statements,
                            const ToolProcess::Pulse &pulse) const
{
    ToolProcess server;
    server.program = m_options.programs.server;
    server.arguments = {ServerConfig::fromFile(m_folder.serverConfigPath()), u"--bootstrap"_s, u"--skip-log-bin"_s,
                        u"--datadir="_s + databasePath};
    server.input = statements;
    server.errorFile = m_folder.serverLogPath();
    server.limitMilliseconds = m_options.startLimitMilliseconds;
    int code = 0;
    try {
        code = server.run(pulse);
    } catch (const ServerError &error) {
        if (error.kind() != ServerError::Kind::Timeout)
            throw;
        throw ServerLog(m_folder).error(ServerError::Kind::Timeout, error.detail());
    }
    if (code != 0)
        throw ServerLog(m_folder).error(ServerError::Kind::DidNotStart,
                                        u"the bootstrap ended with %1"_s.arg(code));
}
