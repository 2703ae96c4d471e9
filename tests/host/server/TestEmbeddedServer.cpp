// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupTaking.h"
#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"
#include "host/server/ServerState.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

// The value of a statement on a running server, through a connection of its own.
QString valueOf(const EmbeddedServer &server, const QByteArray &statement)
{
    KConnection connection(server.connectionSettings());
    const KConnection::Result result = connection.run(statement);
    const MYSQL_ROW row = result ? mysql_fetch_row(result.get()) : nullptr;
    return row && row[0] ? QString::fromUtf8(row[0]) : QString();
}

void keepOneRow(const EmbeddedServer &server)
{
    KConnection connection(server.connectionSettings());
    connection.run(QByteArrayLiteral("CREATE TABLE kept (s VARCHAR(50)) ENGINE=InnoDB"));
    connection.run("INSERT INTO kept VALUES ('" + u"پیکان"_s.toUtf8() + "')");
}

bool rowIsThere(const EmbeddedServer &server)
{
    return valueOf(server, "SELECT s FROM kept") == u"پیکان"_s;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QList<qint64> serversOf(const DataFolder &folder)
{
    return platform::processesWithArgument(ServerConfig::fromFile(folder.serverConfigPath()));
}

// The kind of error with which start fails; Kind::Cancelled when it starts.
ServerError refusal(EmbeddedServer &server)
{
    try {
        server.start();
    } catch (const ServerError &error) {
        return error;
    }
    return {ServerError::Kind::Cancelled, {}};
}

}

class TestEmbeddedServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void theFirstStartMakesTheDatabaseAndALaterOneKeepsIt();
    void theServerRunsAsItsRulesSay();
    void anotherServersTemporaryTablesAreLeftAlone();
    void theOwnerReachesItWithTheOrdinaryClient();
    void strangeFolderNamesWork_data();
    void strangeFolderNamesWork();
    void aTooLongPathWorks();
    void aHostileClientConfigurationInTheHomeFolderIsNotRead();
    void aStaleSocketAndPidAreCleared();
    void aPidThatBelongsToAnotherProgramIsLeftAlone();
    void aServerLeftBehindIsEndedFirst();
    void aSecondStartOnTheSameFolderIsRefused();
    void aFirstStartThatWasCutOffIsBegunAgain();
    void aLostOrForeignAccountIsMadeAnew();
    void aFolderThatIsNoDatabaseIsRefused();
    void aServerThatDoesNotComeUpIsReportedWithinTheLimit_data();
    void aServerThatDoesNotComeUpIsReportedWithinTheLimit();
    void aFullDiskIsSaidBeforeTheServerBreaksOff();
    void aLostDatabaseIsNoNewOffice_data();
    void aLostDatabaseIsNoNewOffice();
    void damagedOptionsAreWrittenAnew();
    void aDataFolderWithoutWritePermissionIsNamed();
    void aProgressThatThrowsLeavesNoServer();
    void whatNeedsNoDatabaseIsDoneOnceWhileItBegins();
    void theLogsOfTheLastTwoStartsAreKept();

private:
    std::unique_ptr<QTemporaryDir> m_temporary;
    EmbeddedServer::Options m_options = PrivateTestServer::options();
    DataFolder folder() const { return DataFolder(m_temporary->filePath(u"office"_s)); }
};

void TestEmbeddedServer::init()
{
    m_temporary = std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate());
}

void TestEmbeddedServer::cleanup()
{
    QCOMPARE(serversOf(folder()), QList<qint64>());
    m_temporary.reset();
}

void TestEmbeddedServer::theFirstStartMakesTheDatabaseAndALaterOneKeepsIt()
{
    // With the options of an office, so that what is printed is what an office waits.
    EmbeddedServer server(folder());
    QStringList told;
    QElapsedTimer timer;
    timer.start();
    server.start([&](const QString &text) { told << text; });
    const qint64 first = timer.restart();
    QVERIFY(server.isRunning());
    QVERIFY(told.size() >= 2);
    keepOneRow(server);
    const KConnectionSettings before = server.connectionSettings();

    timer.restart();
    server.stop();
    const qint64 stop = timer.restart();
    QVERIFY(!server.isRunning());
    QVERIFY(ServerState::load(folder()).endedCleanly);
    server.start();
    const qint64 later = timer.elapsed();
    QVERIFY(rowIsThere(server));
    QVERIFY(!ServerState::load(folder()).endedCleanly);
    QCOMPARE(server.connectionSettings().password, before.password);
    QCOMPARE(server.connectionSettings().socketPath, before.socketPath);
    qInfo("first start %lld ms, stop %lld ms, later start %lld ms", first, stop, later);
}

void TestEmbeddedServer::theServerRunsAsItsRulesSay()
{
    EmbeddedServer server(folder());
    server.start();
    const QList<std::pair<QByteArray, QString>> rules{
        {"@@skip_networking", u"1"_s},
        {"@@innodb_flush_log_at_trx_commit", u"1"_s},
        {"@@character_set_server", u"utf8mb4"_s},
        {"@@innodb_buffer_pool_size", QString::number(64 * 1024 * 1024)},
        {"@@innodb_flush_method", u"fsync"_s},
        {"@@local_infile", u"0"_s},
        {"@@global.sql_mode LIKE '%STRICT_TRANS_TABLES%'", u"1"_s},
        {"(SELECT GROUP_CONCAT(User,'@',Host) FROM mysql.global_priv WHERE User NOT IN ('mariadb.sys','PUBLIC'))",
         u"tzauto@localhost"_s},
    };
    for (const auto &[expression, expected] : rules)
        QCOMPARE(QString::fromUtf8(expression) + valueOf(server, "SELECT " + expression), QString::fromUtf8(expression) + expected);
    KConnectionSettings wrong = server.connectionSettings();
    wrong.password = u"wrong"_s;
    QVERIFY_THROWS_EXCEPTION(CMySQLException, KConnection(wrong).run(QByteArrayLiteral("SELECT 1")));
}

void TestEmbeddedServer::anotherServersTemporaryTablesAreLeftAlone()
{
    EmbeddedServer first(folder(), m_options);
    first.start();
    KConnection connection(first.connectionSettings());
    connection.run(QByteArrayLiteral("CREATE TEMPORARY TABLE working (i INT) ENGINE=Aria"));
    connection.run(QByteArrayLiteral("INSERT INTO working VALUES (1)"));
    EmbeddedServer second(DataFolder(m_temporary->filePath(u"second"_s)), m_options);
    second.start();
    QCOMPARE(QDir(folder().temporaryPath()).entryList({u"#sql*.MAI"_s}, QDir::Files).size(), 1);
    connection.run(QByteArrayLiteral("DROP TEMPORARY TABLE working"));
    const KConnection::Result warnings = connection.run(QByteArrayLiteral("SHOW WARNINGS"));
    QCOMPARE(mysql_num_rows(warnings.get()), 0ULL);
}

void TestEmbeddedServer::theOwnerReachesItWithTheOrdinaryClient()
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    keepOneRow(server);
    QProcess client;
    client.start(ServerPrograms::installed().client,
                 {ServerConfig::fromFile(folder().clientConfigPath()), u"-N"_s, u"-e"_s,
                  u"SELECT DATABASE(), s FROM kept"_s});
    QVERIFY(client.waitForFinished());
    QCOMPARE(QString::fromUtf8(client.readAllStandardError()), QString());
    QCOMPARE(QString::fromUtf8(client.readAllStandardOutput()), u"tzauto\tپیکان\n"_s);
}

void TestEmbeddedServer::strangeFolderNamesWork_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("Persian with blanks") << u"نمایشگاه اتومبیل ۱۴۰۵"_s;
    QTest::newRow("signs") << u"a #1 \"best\" one's [x]=\\n;$HOME"_s;
}

void TestEmbeddedServer::strangeFolderNamesWork()
{
    QFETCH(const QString, name);
    EmbeddedServer server(DataFolder(m_temporary->filePath(name)), m_options);
    server.start();
    keepOneRow(server);
    server.restart();
    QVERIFY(rowIsThere(server));
}

void TestEmbeddedServer::aTooLongPathWorks()
{
    const QString name = QString(100, QLatin1Char('n'));
    EmbeddedServer server(DataFolder(m_temporary->filePath(name + QLatin1Char('/') + name)), m_options);
    server.start();
    QVERIFY(QFile::encodeName(server.connectionSettings().socketPath).size() <= 100);
    QCOMPARE(valueOf(server, "SELECT 1"), u"1"_s);
}

void TestEmbeddedServer::aHostileClientConfigurationInTheHomeFolderIsNotRead()
{
    const QTemporaryDir home;
    const QByteArray hostile = "datadir=/nonexistent\nsocket=/nonexistent/s\nport=1\n";
    write(home.filePath(u".my.cnf"_s),
          "[client]\nuser=somebody\npassword=wrong\nhost=192.0.2.1\nprotocol=tcp\n" + hostile + "[mysqld]\n" + hostile
              + "[mariadbd]\n" + hostile + "[server]\nunknown-option=1\n[mysql]\ninit-command=\"DROP DATABASE tzauto\"\n");
    QList<std::pair<QByteArray, QByteArray>> before;
    for (const auto &[name, value] : QList<std::pair<QByteArray, QByteArray>>{
             {"HOME", home.path().toUtf8()}, {"MYSQL_HOME", home.path().toUtf8()}, {"MYSQL_PWD", "wrong"}, {"MYSQL_HOST", "192.0.2.1"}, {"MYSQL_UNIX_PORT", "/nonexistent/s"}, {"MYSQL_TCP_PORT", "1"}}) {
        before << std::pair(name, qgetenv(name));
        qputenv(name, value);
    }
    const auto restored = qScopeGuard([&before] {
        for (const auto &[name, value] : before)
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
    });

    // The trap is a trap: a server without our options file falls into it.
    QProcess trapped;
    trapped.start(m_options.programs.server, {u"--print-defaults"_s});
    QVERIFY(trapped.waitForFinished());
    QVERIFY(trapped.readAllStandardOutput().contains("--datadir=/nonexistent"));

    EmbeddedServer server(folder(), m_options);
    server.start();
    keepOneRow(server);
    server.restart();
    QVERIFY(rowIsThere(server));
    QProcess client;
    client.start(m_options.programs.client, {ServerConfig::fromFile(folder().clientConfigPath()), u"-e"_s, u"SELECT 1"_s});
    QVERIFY(client.waitForFinished());
    QCOMPARE(client.exitCode(), 0);
}

void TestEmbeddedServer::aStaleSocketAndPidAreCleared()
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    keepOneRow(server);
    server.stop();
    write(server.connectionSettings().socketPath, {});
    // A number that no process has.
    write(folder().databasePath() + u"/server.pid"_s, "4194304999\n");
    server.start();
    QVERIFY(rowIsThere(server));
    QCOMPARE(contentOf(folder().databasePath() + u"/server.pid"_s).trimmed().toLongLong(), server.processId());
}

void TestEmbeddedServer::aPidThatBelongsToAnotherProgramIsLeftAlone()
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    server.stop();
    QProcess other;
    other.start(u"sleep"_s, {u"60"_s});
    QVERIFY(other.waitForStarted());
    write(folder().databasePath() + u"/server.pid"_s, QByteArray::number(other.processId()) + '\n');
    server.start();
    QVERIFY(server.isRunning());
    QVERIFY(!other.waitForFinished(100));
    other.kill();
    QVERIFY(other.waitForFinished());
}

void TestEmbeddedServer::aServerLeftBehindIsEndedFirst()
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    keepOneRow(server);
    server.stop();
    QProcess left;
    left.setStandardErrorFile(QProcess::nullDevice());
    left.start(m_options.programs.server, {ServerConfig::fromFile(folder().serverConfigPath())});
    QVERIFY(left.waitForStarted());
    const qint64 leftId = left.processId();
    const auto answers = [&server] {
        try {
            return rowIsThere(server);
        } catch (const CMySQLException &) {
            return false;
        }
    };
    QTRY_VERIFY(answers());
    server.start();
    QVERIFY(rowIsThere(server));
    QVERIFY(server.processId() != leftId);
    QVERIFY(left.waitForFinished(1000));
    QCOMPARE(left.exitStatus(), QProcess::NormalExit);
}

void TestEmbeddedServer::aSecondStartOnTheSameFolderIsRefused()
{
    EmbeddedServer first(folder(), m_options);
    first.start();
    EmbeddedServer second(folder(), m_options);
    const ServerError error = refusal(second);
    QCOMPARE(error.kind(), ServerError::Kind::InUse);
    QVERIFY(error.userMessage().contains(folder().path()));
    QVERIFY(first.isRunning());
    QCOMPARE(valueOf(first, "SELECT 1"), u"1"_s);
    first.stop();
    second.start();
    QVERIFY(second.isRunning());
}

void TestEmbeddedServer::aFirstStartThatWasCutOffIsBegunAgain()
{
    folder().create();
    QVERIFY(QDir().mkpath(folder().databasePath() + u".new/mysql"_s));
    write(folder().databasePath() + u".new/ibdata1"_s, "half");
    QVERIFY(QDir().mkpath(folder().databasePath()));
    EmbeddedServer server(folder(), m_options);
    server.start();
    QCOMPARE(valueOf(server, "SELECT 1"), u"1"_s);
    QVERIFY(!QFile::exists(folder().databasePath() + u".new"_s));
}

void TestEmbeddedServer::aLostOrForeignAccountIsMadeAnew()
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    keepOneRow(server);
    server.stop();
    QVERIFY(QFile::remove(folder().clientConfigPath()));
    server.start();
    QVERIFY(rowIsThere(server));
    server.stop();
    ServerConfig(folder(), m_options).writeClientOptions(u"/tmp/x"_s, u"of-another-folder"_s);
    server.start();
    QVERIFY(rowIsThere(server));
}

void TestEmbeddedServer::aFolderThatIsNoDatabaseIsRefused()
{
    folder().create();
    QVERIFY(QDir().mkpath(folder().databasePath()));
    write(folder().databasePath() + u"/letter.txt"_s, "not ours");
    EmbeddedServer server(folder(), m_options);
    const ServerError error = refusal(server);
    QCOMPARE(error.kind(), ServerError::Kind::Damaged);
    QVERIFY(error.userMessage().contains(folder().path()));
    QCOMPARE(contentOf(folder().databasePath() + u"/letter.txt"_s), QByteArray("not ours"));
}

void TestEmbeddedServer::aServerThatDoesNotComeUpIsReportedWithinTheLimit_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<bool>("databaseIsThere");
    QTest::addColumn<ServerError::Kind>("kind");
    const QByteArray ends = "#!/bin/sh\necho '[ERROR] unknown variable' >&2\nexit 7\n";
    const QByteArray hangs = "#!/bin/sh\ncase \"$2\" in --version) exit 0;; esac\necho $$ > \"$0.pid\"\nexec sleep 60\n";
    const QByteArray full = "#!/bin/sh\necho '[ERROR] InnoDB: Error number 28 means No space left on device' >&2\nexit 1\n";
    QTest::newRow("not installed, first start") << QByteArray() << false << ServerError::Kind::ProgramMissing;
    QTest::newRow("not installed, later start") << QByteArray() << true << ServerError::Kind::ProgramMissing;
    QTest::newRow("ends at once, first start") << ends << false << ServerError::Kind::DidNotStart;
    QTest::newRow("ends at once, later start") << ends << true << ServerError::Kind::DidNotStart;
    QTest::newRow("hangs, first start") << hangs << false << ServerError::Kind::Timeout;
    QTest::newRow("hangs, later start") << hangs << true << ServerError::Kind::Timeout;
    QTest::newRow("full disk, first start") << full << false << ServerError::Kind::DiskFull;
    QTest::newRow("full disk, later start") << full << true << ServerError::Kind::DiskFull;
}

void TestEmbeddedServer::aServerThatDoesNotComeUpIsReportedWithinTheLimit()
{
    QFETCH(const QByteArray, script);
    QFETCH(const bool, databaseIsThere);
    QFETCH(const ServerError::Kind, kind);
    if (databaseIsThere)
        EmbeddedServer(folder(), m_options).start();
    EmbeddedServer::Options options = m_options;
    options.programs.server = m_temporary->filePath(u"mariadbd"_s);
    options.startLimitMilliseconds = 500;
    if (!script.isEmpty()) {
        write(options.programs.server, script);
        QVERIFY(QFile::setPermissions(options.programs.server, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    EmbeddedServer server(folder(), options);
    QElapsedTimer timer;
    timer.start();
    const ServerError error = refusal(server);
    QCOMPARE(error.kind(), kind);
    QVERIFY2(timer.elapsed() < 5000, "the limit was half a second, and three more to end the process");
    QVERIFY2(error.userMessage().contains(m_temporary->path()), qPrintable(error.userMessage()));
    QVERIFY(!error.detail().isEmpty());
    QVERIFY(!server.isRunning());
    QCOMPARE(server.processId(), 0);
    if (kind == ServerError::Kind::Timeout) {
        const qint64 hung = contentOf(options.programs.server + u".pid"_s).trimmed().toLongLong();
        QVERIFY(hung > 0);
        QVERIFY(!platform::isAlive(hung));
    }

    // Once the cause is gone, the same folder starts.
    EmbeddedServer again(folder(), m_options);
    again.start();
    QVERIFY(again.isRunning());
}

void TestEmbeddedServer::aFullDiskIsSaidBeforeTheServerBreaksOff()
{
    EmbeddedServer::Options full = m_options;
    full.freeMiBForNewDatabase = std::numeric_limits<int>::max();
    EmbeddedServer first(folder(), full);
    QCOMPARE(refusal(first).kind(), ServerError::Kind::DiskFull);
    QVERIFY(!QFile::exists(folder().databasePath()));
    {
        EmbeddedServer server(folder(), m_options);
        server.start();
        keepOneRow(server);
    }
    full.freeMiBToStart = std::numeric_limits<int>::max();
    EmbeddedServer later(folder(), full);
    const ServerError error = refusal(later);
    QCOMPARE(error.kind(), ServerError::Kind::DiskFull);
    QVERIFY(error.userMessage().contains(folder().path()));
    EmbeddedServer again(folder(), m_options);
    again.start();
    QVERIFY(rowIsThere(again));
}

void TestEmbeddedServer::aLostDatabaseIsNoNewOffice_data()
{
    QTest::addColumn<bool>("emptied");
    QTest::newRow("its folder is emptied") << true;
    QTest::newRow("its folder is gone") << false;
}

void TestEmbeddedServer::aLostDatabaseIsNoNewOffice()
{
    QFETCH(bool, emptied);
    EmbeddedServer server(folder(), m_options);
    server.start();
    server.stop();
    QVERIFY(QDir(folder().databasePath()).removeRecursively());
    if (emptied)
        QVERIFY(QDir().mkpath(folder().databasePath()));
    const ServerError error = refusal(server);
    QCOMPARE(error.kind(), ServerError::Kind::Damaged);
    QVERIFY(!QFileInfo::exists(folder().databasePath() + u"/mysql"_s));
}

void TestEmbeddedServer::damagedOptionsAreWrittenAnew()
{
    m_options.takeBackup = BackupTaking::beforeServerUpgrade(folder());
    EmbeddedServer server(folder(), m_options);
    server.start();
    keepOneRow(server);
    server.stop();
    write(folder().serverConfigPath(), "[mariadbd]\nnonsense=1\n[[[\n");
    write(folder().statePath(), "}");
    server.start();
    QVERIFY(rowIsThere(server));
}

void TestEmbeddedServer::aDataFolderWithoutWritePermissionIsNamed()
{
    QFile file(m_temporary->filePath(u"office"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    EmbeddedServer server(DataFolder(m_temporary->filePath(u"office/inside"_s)), m_options);
    const ServerError error = refusal(server);
    QCOMPARE(error.kind(), ServerError::Kind::FolderNotWritable);
    QVERIFY(error.userMessage().contains(server.folder().path()));
    file.close();
    QVERIFY(file.remove());
}

void TestEmbeddedServer::aProgressThatThrowsLeavesNoServer()
{
    EmbeddedServer server(folder(), m_options);
    int calls = 0;
    const auto throwing = [&calls](const QString &) {
        if (++calls == 3)
            throw std::runtime_error("closed by the user");
    };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, server.start(throwing));
    QVERIFY(!server.isRunning());
    QCOMPARE(serversOf(folder()), QList<qint64>());
    server.start();
    QVERIFY(server.isRunning());
}

void TestEmbeddedServer::whatNeedsNoDatabaseIsDoneOnceWhileItBegins()
{
    EmbeddedServer server(folder(), m_options);
    int done = 0;
    bool isReady = true;
    const auto meanwhile = [&] {
        ++done;
        QCOMPARE(serversOf(folder()).size(), 1);
        isReady = contentOf(folder().serverLogPath()).contains("ready for connections");
    };
    server.start({}, meanwhile);
    QCOMPARE(done, 1);
    QVERIFY(!isReady);
    server.start({}, meanwhile);
    QCOMPARE(done, 1);
    server.stop();
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, server.start({}, [] { throw std::runtime_error("no module"); }));
    QCOMPARE(serversOf(folder()), QList<qint64>());
}

void TestEmbeddedServer::theLogsOfTheLastTwoStartsAreKept()
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    server.stop();
    const QByteArray first = contentOf(folder().serverLogPath());
    QVERIFY(first.contains("ready for connections"));
    server.start();
    server.stop();
    QCOMPARE(contentOf(folder().previousServerLogPath()), first);
    const QByteArray second = contentOf(folder().serverLogPath());
    server.start();
    server.stop();
    QCOMPARE(contentOf(folder().previousServerLogPath()), second);
    QCOMPARE(QDir(folder().logsPath()).entryList(QDir::Files).size(), 2);
}

static const RegisteredTest<TestEmbeddedServer, QCoreApplication> registeredEmbeddedServer;
#include "TestEmbeddedServer.moc"
