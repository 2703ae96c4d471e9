// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupLoading.h"

#include "host/backup/BackupReader.h"
#include "host/backup/BackupSql.h"
#include "host/backup/BackupTools.h"
#include "host/server/ServerConfig.h"
#include "host/server/ToolProcess.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

// A row whose statement was written in hexadecimal takes twice the packet with which it was saved. Larger ones are taken while one lives, where
// the account may say so.
class LargePackets
{
public:
    explicit LargePackets(const KConnectionSettings &server)
        : m_connection(server)
    {
        m_before = BackupSql::value(m_connection, "SELECT @@GLOBAL.max_allowed_packet");
        set("1073741824");
    }
    ~LargePackets() { set(m_before); }
    LargePackets(const LargePackets &) = delete;
    LargePackets &operator=(const LargePackets &) = delete;

private:
    void set(const QByteArray &bytes)
    {
        try {
            m_connection.run("SET GLOBAL max_allowed_packet=" + bytes);
        } catch (const CMySQLException &) {
            // A row that is too large for the server then ends the loading.
        }
    }

    KConnection m_connection;
    QByteArray m_before;
};

// An account for one loading, which may touch one database alone. Its name is always the same for the database, so that one that a kill
// left is used again.
class ConfinedAccount
{
public:
    ConfinedAccount(const KConnectionSettings &server, const QString &database)
        : m_connection(server)
        , m_settings(server)
    {
        const QByteArray digest = QCryptographicHash::hash(database.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
        m_settings.user = u"tzload_"_s + QString::fromLatin1(digest);
        m_settings.password = ServerConfig::newPassword();
        m_account = BackupSql::text(m_settings.user) + '@' + (server.host.isEmpty() ? "'localhost'" : "'%'");
        // In a grant these two stand for any letters.
        const QString pattern = QString(database).replace(u'_', u"\\_"_s).replace(u'%', u"\\%"_s);
        try {
            m_connection.run("CREATE OR REPLACE USER " + m_account + " IDENTIFIED BY " + BackupSql::text(m_settings.password));
            m_isMade = true;
            m_connection.run("GRANT ALL PRIVILEGES ON " + BackupSql::name(pattern) + ".* TO " + m_account);
        } catch (const CMySQLException &error) {
            if (error.category() == CMySQLException::Category::ConnectionLost)
                throw;
            drop();
            return;
        }
        try {
            m_connection.run("GRANT BINLOG ADMIN ON *.* TO " + m_account);
        } catch (const CMySQLException &) {
            // Then the log gets what is loaded too.
        }
    }
    ~ConfinedAccount() { drop(); }
    ConfinedAccount(const ConfinedAccount &) = delete;
    ConfinedAccount &operator=(const ConfinedAccount &) = delete;

    // False: the office's account may not make others.
    bool isMade() const { return m_isMade; }
    KConnectionSettings settings() const { return m_settings; }

private:
    void drop()
    {
        if (!m_isMade)
            return;
        m_isMade = false;
        try {
            m_connection.run("DROP USER IF EXISTS " + m_account);
        } catch (const CMySQLException &) {
            // It may touch nothing that matters, and nobody knows its password.
        }
    }

    KConnection m_connection;
    KConnectionSettings m_settings;
    QByteArray m_account;
    bool m_isMade = false;
};

// The binary log is for what people change; where the account may not say so, the log gets it too.
bool mayLeaveLogOut(const KConnectionSettings &settings)
{
    try {
        KConnection connection(settings);
        connection.run(QByteArrayLiteral("SET SESSION sql_log_bin=0"));
        return true;
    } catch (const CMySQLException &error) {
        if (error.category() == CMySQLException::Category::ConnectionLost)
            throw;
        return false;
    }
}

}

BackupLoading::BackupLoading(const KConnectionSettings &server, const ServerPrograms &programs)
    : m_server(server)
    , m_programs(programs)
{
    m_server.database.clear();
}

void BackupLoading::load(const BackupFile &file, const QString &database, const QString &passphrase, const Progress &progress) const
{
    const QString failed = u"پرونده %1 بازگردانده نشد؛ پرونده دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(file.path()));
    const QString folder = QFileInfo(file.path()).path();
    BackupReader reader(file, passphrase);
    try {
        const KConnectionSettings server = KConnection::atNodeInUse(m_server);
        const LargePackets packets(server);
        const auto account = m_confined ? std::make_unique<ConfinedAccount>(server, database) : nullptr;
        const KConnectionSettings loader = account && account->isMade() ? account->settings() : server;
        const auto options = BackupTools::privateFile(ServerConfig::clientOptions(loader));
        const auto words = BackupTools::privateFile();
        ToolProcess client;
        client.program = m_programs.client;
        // In the sandbox a file of statements cannot make the client run programs or read other files.
        client.arguments = {ServerConfig::fromFile(options->fileName()), u"--batch"_s, u"--loose-sandbox"_s,
                            u"--default-character-set=utf8mb4"_s, u"--max-allowed-packet=1G"_s};
        if (m_confined && !account->isMade())
            client.arguments << u"--one-database"_s;
        if (mayLeaveLogOut(loader))
            client.arguments << u"--init-command=SET SESSION sql_log_bin=0"_s;
        client.arguments << database;
        client.source = [&reader] { return reader.next(); };
        client.errorFile = words->fileName();
        client.lowPriority = m_low;
        const int code = client.run([&](qint64) {
            if (progress && !progress(reader.done(), file.size()))
                throw BackupTools::cancelled();
        });
        if (code != 0)
            throw BackupTools::failure(failed, folder, u"%1 ended with %2: %3"_s.arg(client.program).arg(code).arg(BackupTools::wordsOf(*words)));
    } catch (const CMySQLException &error) {
        throw BackupTools::failure(failed, folder, error.GetErrorMessage());
    }
}
