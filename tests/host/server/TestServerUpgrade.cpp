// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupTaking.h"
#include "host/server/ServerConfig.h"
#include "host/server/ServerState.h"
#include "tests/support/BackupText.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <mysql.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Looks through every command line and environment of the system for the folder's password, all the time.
class ProcessListWatch
{
public:
    explicit ProcessListWatch(const DataFolder &folder)
        : m_config(folder, {})
    {
        m_thread = std::thread([this] {
            while (!m_over)
                look();
        });
    }
    ~ProcessListWatch()
    {
        m_over = true;
        m_thread.join();
    }
    int looks() const { return m_looks; }
    bool passwordWasSeen() const { return m_seen; }
    bool toolWasSeen() const { return m_toolSeen; }

private:
    void look()
    {
        const QByteArray password = m_config.storedPassword().toUtf8();
        if (password.isEmpty())
            return;
        const QStringList processes = QDir(u"/proc"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &process : processes) {
            for (const QString &part : {u"cmdline"_s, u"environ"_s}) {
                const QByteArray content = bytesOf(u"/proc/%1/%2"_s.arg(process, part));
                m_seen = m_seen || content.contains(password);
                m_toolSeen = m_toolSeen || content.contains("mariadb-upgrade") || content.contains("mariadb-dump");
            }
        }
        ++m_looks;
    }

    ServerConfig m_config;
    std::atomic<bool> m_over{false};
    std::atomic<bool> m_seen{false};
    std::atomic<bool> m_toolSeen{false};
    std::atomic<int> m_looks{0};
    std::thread m_thread;
};

}

// A database that was last used by another version of the server.
class TestServerUpgrade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anotherVersionDumpsAndUpgradesAndKeepsTheData_data();
    void anotherVersionDumpsAndUpgradesAndKeepsTheData();
    void theSameVersionDumpsNothing();
    void theFileThatRanLastIsNotAskedForItsVersion();
    void aFileIsMarkedByItsNameItsSizeAndItsChange();
    void anOlderServerIsRefused();
    void anOlderPatchOfTheSameSeriesIsTaken();
    void aFailedUpgradeIsTriedAgainAtTheNextStart();
    void withoutAWayToABackupNothingIsUpgraded();
    void thePasswordIsNeitherInTheProcessListNorInTheLogs();

private:
    void makeOfficeOfVersion(const QVersionNumber &version, bool endedCleanly);
    QStringList dumps() const { return QDir(folder().backupsPath()).entryList({u"*.sql.zst"_s}, QDir::Files); }
    DataFolder folder() const { return DataFolder(m_temporary->filePath(u"office"_s)); }

    std::unique_ptr<QTemporaryDir> m_temporary;
    EmbeddedServer::Options m_options = PrivateTestServer::options();
};

void TestServerUpgrade::init()
{
    m_temporary = std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate());
    m_options.takeBackup = BackupTaking::beforeServerUpgrade(folder());
}

void TestServerUpgrade::withoutAWayToABackupNothingIsUpgraded()
{
    makeOfficeOfVersion(QVersionNumber(10, 6, 1), true);
    EmbeddedServer server(folder(), PrivateTestServer::options());
    try {
        server.start();
        QFAIL("the files were upgraded without a backup");
    } catch (const ServerError &error) {
        QCOMPARE(error.kind(), ServerError::Kind::UpgradeFailed);
    }
    QCOMPARE(ServerState::load(folder()).version, QVersionNumber(10, 6, 1));
}

// A folder with one row, whose state says that such a server used it last.
void TestServerUpgrade::makeOfficeOfVersion(const QVersionNumber &version, bool endedCleanly)
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    KConnection connection(server.connectionSettings());
    connection.run(QByteArrayLiteral("CREATE TABLE kept (i INT) ENGINE=InnoDB"));
    connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (7)"));
    connection.close();
    server.stop();
    ServerState{version, endedCleanly}.save(folder());
}

void TestServerUpgrade::anotherVersionDumpsAndUpgradesAndKeepsTheData_data()
{
    QTest::addColumn<QVersionNumber>("version");
    QTest::addColumn<bool>("endedCleanly");
    QTest::addColumn<int>("starts");
    // A start to dump and upgrade, and one of the upgraded; after a crash one more before them, to recover.
    QTest::newRow("after a clean stop") << QVersionNumber(10, 6, 1) << true << 2;
    QTest::newRow("after a crash of the old version") << QVersionNumber(10, 6, 1) << false << 3;
    QTest::newRow("an unknown version") << QVersionNumber() << false << 3;
}

void TestServerUpgrade::anotherVersionDumpsAndUpgradesAndKeepsTheData()
{
    QFETCH(const QVersionNumber, version);
    QFETCH(const bool, endedCleanly);
    QFETCH(const int, starts);
    makeOfficeOfVersion(version, endedCleanly);
    EmbeddedServer server(folder(), m_options);
    QStringList told;
    server.start([&told](const QString &text) {
        if (!told.contains(text))
            told << text;
    });
    QVERIFY(server.isRunning());
    QCOMPARE(bytesOf(folder().serverLogPath()).count("ready for connections"), starts);
    QCOMPARE(ServerState::load(folder()).version, ServerState::versionIn(server.version()));
    QCOMPARE(dumps().size(), 1);
    QVERIFY(textOfBackup(folder().backupsPath() + QLatin1Char('/') + dumps().constFirst()).contains("INSERT INTO `kept` VALUES\n(7)"));
    QVERIFY(bytesOf(folder().logsPath() + u"/server-upgrade.log"_s).contains("OK"));

    KConnection connection(server.connectionSettings());
    const KConnection::Result result = connection.run(QByteArrayLiteral("SELECT i FROM kept"));
    QCOMPARE(QByteArray(mysql_fetch_row(result.get())[0]), QByteArray("7"));
}

void TestServerUpgrade::theSameVersionDumpsNothing()
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    server.restart();
    QVERIFY(server.isRunning());
    QCOMPARE(dumps(), QStringList());
}

// A program in the server's place that notes what it is asked before it is the server.
void TestServerUpgrade::theFileThatRanLastIsNotAskedForItsVersion()
{
    const QString asked = m_temporary->filePath(u"asked"_s);
    const QString program = m_temporary->filePath(u"mariadbd"_s);
    const auto install = [&](const QByteArray &comment) {
        QFile file(program);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("#!/bin/sh\n# " + comment + "\necho \"$*\" >> '" + asked.toUtf8() + "'\nexec '" + PrivateTestServer::options().programs.server.toUtf8() + "' \"$@\"\n");
        file.close();
        QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    };
    EmbeddedServer::Options options = m_options;
    options.programs.server = program;
    const auto askedAtAStart = [&] {
        QFile::remove(asked);
        EmbeddedServer server(folder(), options);
        server.start();
        server.stop();
        return bytesOf(asked).count("--version");
    };
    install("one");
    QCOMPARE(askedAtAStart(), 0); // a new database fits every server
    QCOMPARE(askedAtAStart(), 0);
    QTest::qWait(20);
    install("two");
    QCOMPARE(askedAtAStart(), 1);
    QCOMPARE(askedAtAStart(), 0);
    ServerState state = ServerState::load(folder());
    QVERIFY(!state.program.isEmpty());
    state.program.clear();
    state.save(folder());
    QCOMPARE(askedAtAStart(), 1);
    // Also where the program that ran last belongs to a version that this one is older than.
    state.program = ServerState::markOf(PrivateTestServer::options().programs.server);
    state.version = QVersionNumber(99, 1, 2);
    state.save(folder());
    EmbeddedServer server(folder(), options);
    QVERIFY_THROWS_EXCEPTION(ServerError, server.start());
}

void TestServerUpgrade::aFileIsMarkedByItsNameItsSizeAndItsChange()
{
    const QString path = m_temporary->filePath(u"program"_s);
    const auto write = [&](const QByteArray &content) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
    };
    QCOMPARE(ServerState::markOf({}), QString());
    QCOMPARE(ServerState::markOf(path), QString());
    write("one");
    const QString mark = ServerState::markOf(path);
    QVERIFY(!mark.isEmpty());
    QCOMPARE(ServerState::markOf(path), mark);
    QVERIFY(QFile::copy(path, path + u'2'));
    QVERIFY(ServerState::markOf(path + u'2') != mark);
    QTest::qWait(20);
    write("two");
    QVERIFY(ServerState::markOf(path) != mark);
}

void TestServerUpgrade::anOlderServerIsRefused()
{
    makeOfficeOfVersion(QVersionNumber(99, 1, 2), true);
    EmbeddedServer server(folder(), m_options);
    try {
        server.start();
        QFAIL("an older server opened the files of a newer one");
    } catch (const ServerError &error) {
        QCOMPARE(error.kind(), ServerError::Kind::OlderServer);
        QVERIFY(error.userMessage().contains(folder().path()));
        QVERIFY(error.userMessage().contains(u"99.1.2"_s));
    }
    QCOMPARE(dumps(), QStringList());
}

void TestServerUpgrade::anOlderPatchOfTheSameSeriesIsTaken()
{
    EmbeddedServer server(folder(), m_options);
    server.start();
    const QVersionNumber installed = ServerState::versionIn(server.version());
    server.stop();
    ServerState{QVersionNumber(installed.majorVersion(), installed.minorVersion(), 999), true}.save(folder());
    server.start();
    QCOMPARE(ServerState::load(folder()).version, installed);
    QCOMPARE(dumps(), QStringList());
}

void TestServerUpgrade::aFailedUpgradeIsTriedAgainAtTheNextStart()
{
    makeOfficeOfVersion(QVersionNumber(10, 6, 1), true);
    EmbeddedServer::Options broken = m_options;
    broken.programs.upgrade = u"/bin/false"_s;
    EmbeddedServer server(folder(), broken);
    try {
        server.start();
        QFAIL("the upgrade failed");
    } catch (const ServerError &error) {
        QCOMPARE(error.kind(), ServerError::Kind::UpgradeFailed);
        QVERIFY(error.userMessage().contains(folder().backupsPath()));
    }
    QVERIFY(!server.isRunning());
    QCOMPARE(ServerState::load(folder()).version, QVersionNumber(10, 6, 1));
    EmbeddedServer again(folder(), m_options);
    again.start();
    QCOMPARE(dumps().size(), 2);
}

void TestServerUpgrade::thePasswordIsNeitherInTheProcessListNorInTheLogs()
{
    const ProcessListWatch watch(folder());
    makeOfficeOfVersion(QVersionNumber(10, 6, 1), false);
    {
        EmbeddedServer server(folder(), m_options);
        server.start();
    }
    QVERIFY(watch.looks() > 10);
    QVERIFY(watch.toolWasSeen());
    QVERIFY(!watch.passwordWasSeen());
    const QByteArray password = ServerConfig(folder(), m_options).storedPassword().toUtf8();
    QVERIFY(password.size() >= 32);
    const QFileInfoList logs = QDir(folder().logsPath()).entryInfoList(QDir::Files) + QDir(folder().backupsPath()).entryInfoList(QDir::Files);
    QVERIFY(logs.size() >= 3);
    for (const QFileInfo &log : logs)
        QVERIFY2(!bytesOf(log.filePath()).contains(password), qPrintable(log.filePath()));
}

static const RegisteredTest<TestServerUpgrade, QCoreApplication> registeredServerUpgrade;
#include "TestServerUpgrade.moc"
