// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/DatabaseDump.h"

#include "host/server/DumpFiles.h"
#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"
#include "host/server/ServerLog.h"
#include "host/server/TableNames.h"
#include "host/server/ToolProcess.h"
#include "suite/db/KLongWork.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

// A file that only this user can read and that is deleted with the object; for passwords and for a tool's output.
std::unique_ptr<QTemporaryFile> privateFile(const QByteArray &content = {})
{
    for (const QString &folder : platform::runtimeFolders()) {
        if (!platform::makePrivateFolder(folder) || !platform::isPrivateFolder(folder))
            continue;
        auto file = std::make_unique<QTemporaryFile>(folder + u"/tool-XXXXXX"_s);
        if (file->open() && file->write(content) == content.size() && file->flush())
            return file;
    }
    throw ServerError(ServerError::Kind::DumpFailed,
                      u"پرونده موقت در %1 ساخته نشد؛ فضا و اجازه نوشتن در آن را بررسی نمایید."_s
                          .arg(ServerError::shownPath(platform::runtimeFolders().constLast())),
                      u"no private folder for a temporary file"_s);
}

QString wordsOf(QTemporaryFile &file)
{
    file.seek(0);
    return QString::fromUtf8(file.readAll()).trimmed();
}

QString damagedTableMessage(const QString &table)
{
    return u"نسخه پشتیبان ساخته نشد، چون جدول «%1» آسیب دیده یا گم شده است."_s.arg(TableNames::shown(table));
}

ServerError failed(const QString &userMessage, const QString &folder, const QString &detail)
{
    if (ServerLog::knownFailure(detail) == ServerError::Kind::DiskFull)
        return {ServerError::Kind::DiskFull, DataFolder(folder).diskFullMessage(), detail};
    // Couldn't execute 'show create table `Persons`': ... (1877), or: Error 1034: ... when dumping table `Persons` at row: 20
    static const QRegularExpression damage(u"(?:Error |\\()(?:1016|1017|1030|1033|1034|1035|1194|1195|1712|1812|1877|1932)\\b"_s);
    static const QRegularExpression table(u"table `(\\w+)`"_s);
    if (damage.match(detail).hasMatch())
        return {ServerError::Kind::Damaged,
                damagedTableMessage(table.match(detail).captured(1)), detail};
    return {ServerError::Kind::DumpFailed, userMessage, detail};
}

void continueUnlessCancelled(const DatabaseDump::Progress &progress, qint64 done, qint64 expected)
{
    if (progress && !progress(done, expected))
        throw ServerError(ServerError::Kind::Cancelled,
                          u"کار به درخواست شما متوقف شد و چیزی تغییر نکرد."_s,
                          u"cancelled by the user"_s);
}

QByteArray name(const QString &identifier)
{
    return '`' + identifier.toUtf8().replace('`', "``") + '`';
}

QStringList tablesOf(KConnection &connection, const QString &database)
{
    const KConnection::Result result = connection.run(
        "SELECT table_name FROM information_schema.tables WHERE table_type='BASE TABLE' AND table_schema="
        + KSql::quoted(database));
    QStringList tables;
    while (const MYSQL_ROW row = mysql_fetch_row(result.get()))
        tables << QString::fromUtf8(row[0]);
    return tables;
}

}

DatabaseDump::DatabaseDump(const KConnectionSettings &settings, const QString &folder, const ServerPrograms &programs)
    : m_settings(settings)
    , m_folder(folder)
    , m_programs(programs)
{
}

QString DatabaseDump::take(const Progress &progress) const
{
    const QString userMessage = u"نسخه پشتیبان در پوشه %1 ساخته نشد؛ اجازه نوشتن و فضای آن را بررسی و دوباره تلاش کنید."_s
                                    .arg(ServerError::shownPath(m_folder));
    QString reason;
    if (!platform::makePrivateFolder(m_folder, &reason))
        throw failed(userMessage, m_folder, m_folder + u": "_s + reason);
    QString target = freeFileName();
    const QString aside = target + u".part"_s;
    // Created here first, so that only the user can read it from its first byte on.
    if (platform::writePrivateFile(aside, {}, &reason) != platform::WriteResult::Written)
        throw failed(userMessage, m_folder, aside + u": "_s + reason);
    try {
        // Asked first: it finds the node that answers, where several are named.
        const qint64 expected = sizeOfTables();
        requireDefinitions();
        const auto options = privateFile(ServerConfig::clientOptions(KConnection::atNodeInUse(m_settings)));
        const auto words = privateFile();
        ToolProcess dump;
        dump.program = m_programs.dump;
        dump.arguments = {ServerConfig::fromFile(options->fileName()),
                          u"--single-transaction"_s,
                          u"--quick"_s,
                          u"--hex-blob"_s,
                          u"--skip-triggers"_s,
                          u"--no-tablespaces"_s,
                          u"--default-character-set=utf8mb4"_s,
                          u"--max-allowed-packet=1G"_s,
                          m_settings.database};
        dump.outputFile = aside;
        dump.errorFile = words->fileName();
        const int code = dump.run([&](qint64) { continueUnlessCancelled(progress, QFileInfo(aside).size(), expected); });
        if (code != 0 || !isWhole(aside))
            throw failed(userMessage, m_folder,
                         u"%1 ended with %2: %3"_s.arg(dump.program).arg(code).arg(wordsOf(*words)));
        if (!QFile::rename(aside, target))
            throw failed(userMessage, m_folder, u"cannot rename %1"_s.arg(aside));
    } catch (const CMySQLException &error) {
        QFile::remove(aside);
        throw failed(userMessage, m_folder, error.GetErrorMessage());
    } catch (...) {
        QFile::remove(aside);
        throw;
    }
    return target;
}

QString DatabaseDump::freeFileName() const
{
    const QString base = u"%1/%2-%3"_s
                             .arg(m_folder, m_settings.database,
                                  QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s));
    QString path = base + u".sql"_s;
    for (int number = 2; QFile::exists(path); ++number)
        path = u"%1-%2.sql"_s.arg(base).arg(number);
    return path;
}

qint64 DatabaseDump::sizeOfTables() const
{
    KConnection connection(m_settings);
    const KConnection::Result result = connection.run("SELECT SUM(data_length) FROM information_schema.tables WHERE table_schema="
                                                      + KSql::quoted(m_settings.database));
    const MYSQL_ROW row = result ? mysql_fetch_row(result.get()) : nullptr;
    return row && row[0] ? QByteArray(row[0]).toLongLong() : 0;
}

// A table whose definition is lost would be left out without a word.
void DatabaseDump::requireDefinitions() const
{
    QString lost;
    try {
        KConnection connection(m_settings);
        const QStringList defined = tablesOf(connection, m_settings.database);
        const KConnection::Result stored = connection.run(KSql("SELECT NAME FROM information_schema.INNODB_SYS_TABLES"));
        while (const MYSQL_ROW row = mysql_fetch_row(stored.get())) {
            const QString table = QString::fromUtf8(row[0]);
            const QString name = table.section(u'/', 1);
            // With a # in it: a table of the server's own, for a moment.
            if (table.startsWith(m_settings.database + u'/') && !name.contains(u'#') && !defined.contains(name, Qt::CaseInsensitive))
                lost = name;
        }
    } catch (const CMySQLException &) {
        // An office server does not tell every account, and some servers tell nobody.
    }
    if (!lost.isEmpty())
        throw ServerError(ServerError::Kind::Damaged, damagedTableMessage(lost), u"the definition of "_s + lost + u" is lost"_s);
}

bool DatabaseDump::isWhole(const QString &file)
{
    QFile dump(file);
    if (!dump.open(QIODevice::ReadOnly))
        return false;
    dump.seek(qMax<qint64>(0, dump.size() - 512));
    return dump.readAll().contains("\n-- Dump completed");
}

QStringList DatabaseDump::existing() const
{
    return DumpFiles::in(m_folder, m_settings.database);
}

void DatabaseDump::restore(const QString &file, const Progress &progress) const
{
    const QString userMessage = u"پرونده %1 بازگردانده نشد و پایگاه داده همان است که بود؛ پرونده دیگری انتخاب نمایید."_s
                                    .arg(ServerError::shownPath(file));
    if (!isWhole(file))
        throw failed(userMessage, m_folder, u"%1 is no whole dump"_s.arg(file));
    const QString aside = m_settings.database + u"_restoring"_s;
    KConnectionSettings server = m_settings;
    server.database.clear();
    const KLongWork work;
    try {
        KConnection connection(server);
        connection.run("DROP DATABASE IF EXISTS " + name(aside));
        connection.run("CREATE DATABASE " + name(aside));
        try {
            load(file, aside, progress);
            exchangeTables(aside);
        } catch (...) {
            connection.run("DROP DATABASE IF EXISTS " + name(aside));
            throw;
        }
        connection.run("DROP DATABASE IF EXISTS " + name(aside));
    } catch (const CMySQLException &error) {
        throw failed(userMessage, m_folder, error.GetErrorMessage());
    }
}

void DatabaseDump::load(const QString &file, const QString &database, const Progress &progress) const
{
    const auto options = privateFile(ServerConfig::clientOptions(KConnection::atNodeInUse(m_settings)));
    const auto words = privateFile();
    const qint64 expected = QFileInfo(file).size();
    ToolProcess client;
    client.program = m_programs.client;
    client.arguments = {ServerConfig::fromFile(options->fileName()), u"--batch"_s,
                        u"--default-character-set=utf8mb4"_s, u"--max-allowed-packet=1G"_s, database};
    client.inputFile = file;
    client.errorFile = words->fileName();
    const int code = client.run([&](qint64 done) { continueUnlessCancelled(progress, done, expected); });
    if (code != 0)
        throw failed(
            u"پرونده %1 بازگردانده نشد و پایگاه داده همان است که بود؛ پرونده دیگری انتخاب نمایید."_s
                .arg(ServerError::shownPath(file)),
            m_folder, u"%1 ended with %2: %3"_s.arg(client.program).arg(code).arg(wordsOf(*words)));
}

// One RENAME moves the old tables out and the new ones in, so that nobody ever sees none or only half of them.
void DatabaseDump::exchangeTables(const QString &aside) const
{
    KConnectionSettings server = m_settings;
    server.database.clear();
    KConnection connection(server);
    const QByteArray replaced = name(m_settings.database + u"_replaced"_s);
    const QByteArray database = name(m_settings.database);
    connection.run("DROP DATABASE IF EXISTS " + replaced);
    connection.run("CREATE DATABASE " + replaced);
    QByteArrayList moves;
    const QStringList before = tablesOf(connection, m_settings.database);
    for (const QString &table : before)
        moves << database + '.' + name(table) + " TO " + replaced + '.' + name(table);
    const QStringList restored = tablesOf(connection, aside);
    for (const QString &table : restored)
        moves << name(aside) + '.' + name(table) + " TO " + database + '.' + name(table);
    if (!moves.isEmpty())
        connection.run("RENAME TABLE " + moves.join(", "));
    connection.run("DROP DATABASE " + replaced);
}
