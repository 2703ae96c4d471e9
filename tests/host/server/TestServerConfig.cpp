// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ServerConfig.h"
#include "host/server/ServerLog.h"
#include "host/server/ServerState.h"
#include "host/server/ToolProcess.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestServerConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theServerReadsAPathAsItWasWritten_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << u"office"_s;
        QTest::newRow("blanks") << u" two  blanks "_s;
        QTest::newRow("Persian") << u"نمایشگاه اتومبیل"_s;
        QTest::newRow("number sign") << u"a #1 office"_s;
        QTest::newRow("quotes") << u"the \"best\" one's"_s;
        QTest::newRow("backslash") << u"a\\sb\\n"_s;
        QTest::newRow("equals and bracket") << u"[x]=1;y"_s;
    }

    // Asked of the server's own reader of options files.
    void theServerReadsAPathAsItWasWritten()
    {
        QFETCH(const QString, name);
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.filePath(name));
        folder.create();
        ServerConfig(folder, PrivateTestServer::options()).writeServerOptions(u"/tmp/x.sock"_s);
        QProcess server;
        server.start(ServerPrograms::installed().server,
                     {ServerConfig::fromFile(folder.serverConfigPath()), u"--print-defaults"_s});
        QVERIFY(server.waitForFinished());
        const QString read = QString::fromUtf8(server.readAllStandardOutput());
        QVERIFY2(read.contains(u"--datadir=%1 --"_s.arg(folder.databasePath())), qPrintable(read));
    }

    void theStoredPasswordIsReadBack()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        const ServerConfig config(folder, PrivateTestServer::options());
        QCOMPARE(config.storedPassword(), QString());
        const QString password = ServerConfig::newPassword();
        config.writeClientOptions(u"/tmp/x.sock"_s, password);
        QCOMPARE(config.storedPassword(), password);
        QVERIFY(password.size() >= 32);
        QVERIFY(ServerConfig::newPassword() != password);
    }

    void onlyTheUserReadsTheOptionsFiles()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        // A file made readable to others does not pass its mode on.
        QFile loose(folder.clientConfigPath());
        QVERIFY(loose.open(QIODevice::WriteOnly));
        loose.close();
        QVERIFY(loose.setPermissions(QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
        const ServerConfig config(folder, PrivateTestServer::options());
        config.writeClientOptions(u"/tmp/x.sock"_s, u"secret"_s);
        const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther
            | QFile::WriteOther | QFile::ExeOther;
        QCOMPARE(QFile::permissions(folder.clientConfigPath()) & others, QFile::Permissions());
    }

    void theToolsGetNothingOfTheUsersDatabaseEnvironment()
    {
        qputenv("MYSQL_PWD", "secret");
        qputenv("MARIADB_HOST", "192.0.2.1");
        const QProcessEnvironment environment = ToolProcess::environment();
        qunsetenv("MYSQL_PWD");
        qunsetenv("MARIADB_HOST");
        QVERIFY(!environment.contains(u"MYSQL_PWD"_s));
        QVERIFY(!environment.contains(u"MARIADB_HOST"_s));
        QVERIFY(environment.contains(u"PATH"_s));
    }

    void theServerIsToldToKeepWhatWasSaved()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        ServerConfig(folder, EmbeddedServer::Options()).writeServerOptions(u"/tmp/x.sock"_s);
        QFile file(folder.serverConfigPath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        for (const char *line : {"innodb_flush_log_at_trx_commit=1\n", "skip_networking\n", "character_set_server=utf8mb4\n"})
            QVERIFY2(text.contains(line), line);
        QVERIFY(!text.contains("nosync"));
    }

    void aVersionIsFoundInWhatTheServerSays_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVersionNumber>("version");
        QTest::newRow("running") << u"10.11.14-MariaDB-0+deb12u2"_s << QVersionNumber(10, 11, 14);
        QTest::newRow("printed") << u"mariadbd  Ver 11.4.2-MariaDB for Linux on x86_64 (Source)"_s
                                 << QVersionNumber(11, 4, 2);
        QTest::newRow("none") << u"command not found"_s << QVersionNumber();
        QTest::newRow("empty") << QString() << QVersionNumber();
    }

    void aVersionIsFoundInWhatTheServerSays()
    {
        QFETCH(const QString, text);
        QFETCH(const QVersionNumber, version);
        QCOMPARE(ServerState::versionIn(text), version);
    }

    void anUnreadableStateIsTakenForTheWorse()
    {
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        QVERIFY(ServerState::load(folder).version.isNull());
        ServerState{QVersionNumber(10, 11, 3), true}.save(folder);
        QCOMPARE(ServerState::load(folder).version, QVersionNumber(10, 11, 3));
        QVERIFY(ServerState::load(folder).endedCleanly);
        QFile file(folder.statePath());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("{\"version\": \"10.1") > 0);
        file.close();
        QVERIFY(ServerState::load(folder).version.isNull());
        QVERIFY(!ServerState::load(folder).endedCleanly);
    }

    void aKnownFailureIsReadFromTheLog_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<ServerError::Kind>("kind");
        QTest::newRow("full disk") << u"[ERROR] mariadbd: Disk full (./office/t.MAI); waiting for someone to free some space"_s
                                   << ServerError::Kind::DiskFull;
        QTest::newRow("full disk while growing a file")
            << u"[ERROR] InnoDB: Operating system error number 28 in a file operation."_s << ServerError::Kind::DiskFull;
        QTest::newRow("full disk, then the server's own report")
            << u"[ERROR] [FATAL] InnoDB: Error (Out of disk space) in rollback.\n"_s + u"trace\n"_s.repeated(100)
            << ServerError::Kind::DiskFull;
        QTest::newRow("another server on the files") << u"[ERROR] InnoDB: Unable to lock ./ibdata1 error: 11"_s
                                                     << ServerError::Kind::InUse;
        QTest::newRow("files of another user")
            << u"[ERROR] mariadbd: File './aria_log_control' not found (Errcode: 13 \"Permission denied\")"_s
            << ServerError::Kind::FolderNotWritable;
        QTest::newRow("unknown") << u"[ERROR] unknown variable 'x=1'"_s << ServerError::Kind::DidNotStart;
    }

    void aKnownFailureIsReadFromTheLog()
    {
        QFETCH(const QString, words);
        QFETCH(const ServerError::Kind, kind);
        const QTemporaryDir temporary;
        const DataFolder folder(temporary.path());
        folder.create();
        QFile log(folder.serverLogPath());
        QVERIFY(log.open(QIODevice::WriteOnly) && log.write(words.toUtf8()) > 0);
        log.close();
        const ServerError error = ServerLog(folder).error(ServerError::Kind::DidNotStart, u"ended with 1"_s);
        QCOMPARE(error.kind(), kind);
        QVERIFY2(error.userMessage().contains(folder.path()), qPrintable(error.userMessage()));
        QVERIFY(words.contains(error.detail().section(QLatin1Char('\n'), -1)));
    }
};

static const RegisteredTest<TestServerConfig, QCoreApplication> registeredServerConfig;
#include "TestServerConfig.moc"
