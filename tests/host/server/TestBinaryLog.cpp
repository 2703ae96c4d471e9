// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/BinaryLog.h"
#include "host/server/BinaryLogFile.h"
#include "host/server/BinaryLogReplay.h"
#include "host/server/EmbeddedServer.h"
#include "host/server/Platform.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

// Of the changes that are set to a moment, by a clock that was set back since the file was begun.
const QDateTime noon(QDate::currentDate().addDays(-1), QTime(12, 0), Qt::UTC);

QStringList columnOf(KConnection &connection, const QByteArray &statement)
{
    QStringList values;
    const KConnection::Result result = connection.run(statement);
    while (const MYSQL_ROW row = mysql_fetch_row(result.get()))
        values << QString::fromUtf8(row[0]);
    return values;
}

// Statements that follow are logged as of that moment on this computer's clock.
void at(KConnection &connection, const QDateTime &office)
{
    const QDateTime local(office.date(), office.time(), Qt::LocalTime);
    connection.run("SET TIMESTAMP=" + QByteArray::number(local.toSecsSinceEpoch()));
}

BinaryLogReplay::Mark markOf(KConnection &connection)
{
    const KConnection::Result result = connection.run(QByteArrayLiteral("SHOW MASTER STATUS"));
    const MYSQL_ROW row = mysql_fetch_row(result.get());
    return row ? BinaryLogReplay::Mark{QString::fromUtf8(row[0]), QByteArray(row[1]).toLongLong()} : BinaryLogReplay::Mark();
}

void changeByte(const QString &path, qint64 position)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.seek(position));
    char byte = 0;
    QVERIFY(file.getChar(&byte));
    QVERIFY(file.seek(position));
    QVERIFY(file.putChar(static_cast<char>(byte ^ 0x10)));
}

}

class TestBinaryLog : public QObject
{
    Q_OBJECT

    QTemporaryDir m_temporary{PrivateTestServer::folderTemplate()};
    int m_offices = 0;

    DataFolder newFolder(bool keeps)
    {
        const DataFolder folder(m_temporary.filePath(u"office%1"_s.arg(++m_offices)));
        // A new database takes longer than all that is done with it.
        QProcess copying;
        copying.start(u"cp"_s, {u"-a"_s, m_temporary.filePath(u"original"_s), folder.path()});
        if (!copying.waitForFinished() || copying.exitCode() != 0)
            qFatal("the office was not copied");
        BinaryLog(folder).setWanted(keeps);
        return folder;
    }

    static EmbeddedServer::Options options() { return PrivateTestServer::options(); }
    static KConnectionSettings anyDatabase(const EmbeddedServer &server) { return server.connectionSettings(); }

    static void makeTables(KConnection &connection)
    {
        connection.run(QByteArrayLiteral("CREATE TABLE kept (iID INT PRIMARY KEY, s VARCHAR(100), o LONGBLOB) ENGINE=InnoDB"));
        connection.run("INSERT INTO kept VALUES (1,'" + u"پیکان"_s.toUtf8() + "',NULL)");
        // What a backup of this moment holds.
        connection.run(QByteArrayLiteral("CREATE DATABASE loaded"));
        connection.run(QByteArrayLiteral("CREATE TABLE loaded.kept LIKE kept"));
        connection.run(QByteArrayLiteral("INSERT INTO loaded.kept SELECT * FROM kept"));
    }

    static QStringList rowsOf(KConnection &connection, const QByteArray &database)
    {
        return columnOf(connection, "SELECT CONCAT(iID,'|',IFNULL(s,''),'|',IFNULL(MD5(o),'')) FROM " + database + ".kept ORDER BY iID");
    }

private Q_SLOTS:
    void initTestCase() { EmbeddedServer(DataFolder(m_temporary.filePath(u"original"_s)), options()).start(); }

    void nothingIsKeptUnlessItIsAskedFor()
    {
        const DataFolder folder = newFolder(false);
        EmbeddedServer server(folder, options());
        server.start();
        KConnection connection(server.connectionSettings());
        QCOMPARE(columnOf(connection, "SELECT @@log_bin"), QStringList{u"0"_s});
        QVERIFY(!QDir(folder.path() + u"/binlog"_s).exists());
        BinaryLog::beginAnew(connection);
        QVERIFY(!QDir(folder.path() + u"/binlog"_s).exists());
    }

    void whatIsKeptIsForTheUserAloneAndSurvivesAPowerFailure()
    {
        const DataFolder folder = newFolder(true);
        EmbeddedServer server(folder, options());
        server.start();
        KConnection connection(server.connectionSettings());
        QCOMPARE(columnOf(connection, "SELECT CONCAT(@@log_bin,@@binlog_format,@@binlog_row_image,@@sync_binlog,@@binlog_checksum)"),
                 QStringList{u"ONROWFULL1CRC32"_s});
        QVERIFY(platform::isPrivateFolder(folder.path() + u"/binlog"_s));
    }

    // A start goes on with the log, in a folder that was moved meanwhile too.
    void aStartGoesOnWithTheLog()
    {
        const DataFolder folder = newFolder(true);
        BinaryLogReplay::Mark first;
        {
            EmbeddedServer server(folder, options());
            server.start();
            KConnection connection(server.connectionSettings());
            makeTables(connection);
            first = markOf(connection);
            connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (2,'before',NULL)"));
        }
        const DataFolder moved(m_temporary.filePath(u"moved"_s));
        QVERIFY(QDir().rename(folder.path(), moved.path()));
        EmbeddedServer server(moved, options());
        server.start();
        KConnection connection(server.connectionSettings());
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (3,'after',NULL)"));
        QVERIFY(BinaryLog(moved).from(first.file).size() >= 2);
        const BinaryLogReplay replay(moved);
        QVERIFY2(replay.reach(first).upToNow, qPrintable(replay.reach(first).problem));
        replay.run(anyDatabase(server), first, u"tzauto"_s, u"loaded"_s, {});
        QCOMPARE(rowsOf(connection, "loaded"), rowsOf(connection, "tzauto"));
        QCOMPARE(rowsOf(connection, "loaded").size(), 3);
    }

    void everyKindOfChangeIsRepeated()
    {
        const DataFolder folder = newFolder(true);
        EmbeddedServer server(folder, options());
        server.start();
        KConnection connection(server.connectionSettings());
        makeTables(connection);
        connection.run(QByteArrayLiteral("CREATE DATABASE other"));
        connection.run(QByteArrayLiteral("CREATE TABLE other.kept LIKE kept"));
        const BinaryLogReplay::Mark mark = markOf(connection);
        connection.run(QByteArrayLiteral("BEGIN"));
        connection.run("INSERT INTO kept VALUES (2,'" + u"یای فارسی، «گیومه»"_s.toUtf8() + "',REPEAT(X'00FF0A',700000))");
        connection.run(QByteArrayLiteral("SAVEPOINT half"));
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (9,'taken back',NULL)"));
        connection.run(QByteArrayLiteral("ROLLBACK TO SAVEPOINT half"));
        connection.run(QByteArrayLiteral("UPDATE kept SET s='changed' WHERE iID=1"));
        connection.run(QByteArrayLiteral("COMMIT"));
        connection.run(QByteArrayLiteral("ALTER TABLE kept ADD COLUMN dAmount DOUBLE NOT NULL DEFAULT 0"));
        connection.run(QByteArrayLiteral("UPDATE kept SET dAmount=1.25 WHERE iID=2"));
        connection.run(QByteArrayLiteral("INSERT INTO other.kept VALUES (5,'not ours',NULL)"));
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (3,NULL,NULL,0)"));
        connection.run(QByteArrayLiteral("DELETE FROM kept WHERE iID=3"));
        const QStringList logged = columnOf(connection, "SHOW BINARY LOGS");
        const BinaryLogReplay::Mark before = markOf(connection);

        BinaryLogReplay(folder).run(anyDatabase(server), mark, u"tzauto"_s, u"loaded"_s, {});

        QCOMPARE(rowsOf(connection, "loaded"), rowsOf(connection, "tzauto"));
        QCOMPARE(columnOf(connection, "SELECT dAmount FROM loaded.kept WHERE iID=2"), QStringList{u"1.25"_s});
        QCOMPARE(columnOf(connection, "SELECT COUNT(*) FROM other.kept"), QStringList{u"1"_s});
        // The repeating itself is no change.
        QCOMPARE(columnOf(connection, "SHOW BINARY LOGS"), logged);
        QCOMPARE(markOf(connection).position, before.position);
    }

    void aMomentBeforeItIsReached_data()
    {
        QTest::addColumn<int>("seconds");
        QTest::addColumn<QStringList>("rows");
        QTest::newRow("before the first") << 5 << QStringList{u"1"_s};
        QTest::newRow("at the first, which is not yet") << 10 << QStringList{u"1"_s};
        QTest::newRow("after the first") << 11 << QStringList{u"1"_s, u"2"_s};
        QTest::newRow("within a transaction: none of it") << 25 << QStringList{u"1"_s, u"2"_s};
        QTest::newRow("at its end, which is not yet") << 30 << QStringList{u"1"_s, u"2"_s};
        QTest::newRow("after it") << 31 << QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s};
    }

    void aMomentBeforeItIsReached()
    {
        QFETCH(const int, seconds);
        QFETCH(const QStringList, rows);
        const DataFolder folder = newFolder(true);
        EmbeddedServer server(folder, options());
        server.start();
        KConnection connection(server.connectionSettings());
        makeTables(connection);
        const BinaryLogReplay::Mark mark = markOf(connection);
        at(connection, noon.addSecs(10));
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (2,'',NULL)"));
        at(connection, noon.addSecs(20));
        connection.run(QByteArrayLiteral("BEGIN"));
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (3,'',NULL)"));
        at(connection, noon.addSecs(30));
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (4,'',NULL)"));
        connection.run(QByteArrayLiteral("COMMIT"));
        BinaryLogReplay(folder).run(anyDatabase(server), mark, u"tzauto"_s, u"loaded"_s, noon.addSecs(seconds));
        QCOMPARE(columnOf(connection, "SELECT iID FROM loaded.kept ORDER BY iID"), rows);
    }

    // Switched off and on again, a log has a gap that nobody sees: the one before ends there.
    void aLogWithAGapEndsThere()
    {
        const DataFolder folder = newFolder(true);
        BinaryLogReplay::Mark mark;
        {
            EmbeddedServer server(folder, options());
            server.start();
            KConnection connection(server.connectionSettings());
            makeTables(connection);
            mark = markOf(connection);
            at(connection, noon);
            connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (2,'logged',NULL)"));
        }
        for (const bool wanted : {false, true}) {
            BinaryLog(folder).setWanted(wanted);
            EmbeddedServer server(folder, options());
            server.start();
            KConnection connection(server.connectionSettings());
            connection.run(wanted ? QByteArrayLiteral("INSERT INTO kept VALUES (4,'logged anew',NULL)")
                                  : QByteArrayLiteral("INSERT INTO kept VALUES (3,'not logged',NULL)"));
            const BinaryLogReplay::Reach reach = BinaryLogReplay(folder).reach(mark);
            QVERIFY(reach.possible);
            QVERIFY(!reach.upToNow);
            QCOMPARE(reach.until, noon);
            QVERIFY(!reach.problem.isEmpty());
            if (wanted) {
                BinaryLogReplay(folder).run(anyDatabase(server), mark, u"tzauto"_s, u"loaded"_s, {});
                QCOMPARE(columnOf(connection, "SELECT iID FROM loaded.kept"), (QStringList{u"1"_s, u"2"_s}));
            }
        }
    }

    void aLogBegunAnewIsNeverMixedWithTheOneBefore()
    {
        const DataFolder folder = newFolder(true);
        EmbeddedServer server(folder, options());
        server.start();
        KConnection connection(server.connectionSettings());
        makeTables(connection);
        const BinaryLogReplay::Mark before = markOf(connection);
        at(connection, noon);
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (2,'before',NULL)"));
        BinaryLog::beginAnew(connection);
        const BinaryLogReplay::Mark after = markOf(connection);
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (3,'after',NULL)"));
        QVERIFY(after.file > before.file);
        const BinaryLogReplay replay(folder);
        QVERIFY(!replay.reach(before).upToNow);
        QCOMPARE(replay.reach(before).until, noon);
        QVERIFY(replay.reach(after).upToNow);
        replay.run(anyDatabase(server), before, u"tzauto"_s, u"loaded"_s, {});
        QCOMPARE(columnOf(connection, "SELECT iID FROM loaded.kept"), (QStringList{u"1"_s, u"2"_s}));
        replay.run(anyDatabase(server), after, u"tzauto"_s, u"loaded"_s, {});
        QCOMPARE(rowsOf(connection, "loaded"), rowsOf(connection, "tzauto"));
    }

    // What was not finished when the server was killed is in neither; what comes after it is.
    void aServerThatWasKilledLeavesNoGap()
    {
        const DataFolder folder = newFolder(true);
        EmbeddedServer::Options durable = options();
        durable.unsafeButFast = false;
        BinaryLogReplay::Mark mark;
        {
            EmbeddedServer server(folder, durable);
            server.start();
            KConnection connection(server.connectionSettings());
            makeTables(connection);
            mark = markOf(connection);
            connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (2,'',NULL)"));
            connection.run(QByteArrayLiteral("BEGIN"));
            connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (3,'lost',NULL)"));
            platform::forceStop(server.processId());
            QTRY_VERIFY(!server.isRunning());
        }
        EmbeddedServer server(folder, options());
        server.start();
        KConnection connection(server.connectionSettings());
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (4,'',NULL)"));
        const BinaryLogReplay replay(folder);
        QVERIFY2(replay.reach(mark).upToNow, qPrintable(replay.reach(mark).problem));
        replay.run(anyDatabase(server), mark, u"tzauto"_s, u"loaded"_s, {});
        QCOMPARE(rowsOf(connection, "loaded"), rowsOf(connection, "tzauto"));
        QCOMPARE(rowsOf(connection, "loaded").size(), 3);
    }

    // On a full disk the server cannot begin its next file, says so in its own log, and goes on without.
    void aServerThatGivesItsLogUpLeavesNoHole()
    {
        const DataFolder folder = newFolder(true);
        const QString logs = folder.path() + u"/binlog"_s;
        BinaryLogReplay::Mark mark;
        {
            EmbeddedServer server(folder, options());
            server.start();
            KConnection connection(server.connectionSettings());
            makeTables(connection);
            mark = markOf(connection);
            connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (2,'logged',NULL)"));
            QVERIFY(QDir().rename(logs, logs + u"-gone"_s));
            try {
                connection.run(QByteArrayLiteral("FLUSH BINARY LOGS"));
            } catch (const CMySQLException &) {
                // It may say so.
            }
            QVERIFY(QDir().rename(logs + u"-gone"_s, logs));
            connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (3,'not logged',NULL)"));
            QCOMPARE(rowsOf(connection, "tzauto").size(), 3);
            QVERIFY(!BinaryLogReplay(folder).reach(mark).upToNow);
        }
        EmbeddedServer server(folder, options());
        server.start();
        KConnection connection(server.connectionSettings());
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (4,'logged anew',NULL)"));
        const BinaryLogReplay replay(folder);
        QVERIFY(replay.reach(mark).possible);
        QVERIFY(!replay.reach(mark).upToNow);
        QVERIFY(replay.reach(markOf(connection)).upToNow);
        replay.run(anyDatabase(server), mark, u"tzauto"_s, u"loaded"_s, {});
        QCOMPARE(columnOf(connection, "SELECT iID FROM loaded.kept"), (QStringList{u"1"_s, u"2"_s}));
    }

    void aDamagedLogIsToldAndGoesAsFarAsItIsWhole_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::newRow("a byte is another") << u"byte"_s;
        QTest::newRow("a file ends too early") << u"cut"_s;
        QTest::newRow("a file is missing") << u"missing"_s;
        QTest::newRow("a file is empty") << u"empty"_s;
    }

    void aDamagedLogIsToldAndGoesAsFarAsItIsWhole()
    {
        QFETCH(const QString, damage);
        const DataFolder folder = newFolder(true);
        EmbeddedServer server(folder, options());
        server.start();
        KConnection connection(server.connectionSettings());
        makeTables(connection);
        const BinaryLogReplay::Mark mark = markOf(connection);
        at(connection, noon);
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (2,'first file',NULL)"));
        BinaryLog::closeFile(connection);
        const qint64 begin = markOf(connection).position;
        at(connection, noon.addSecs(60));
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (3,'second file',NULL)"));
        BinaryLog::closeFile(connection);
        at(connection, noon.addSecs(120));
        connection.run(QByteArrayLiteral("INSERT INTO kept VALUES (4,'third file',NULL)"));
        const QStringList files = BinaryLog(folder).from(mark.file);
        QCOMPARE(files.size(), 3);
        QVERIFY(BinaryLogFile::read(files.at(1)).isWhole);
        if (damage == u"byte"_s)
            changeByte(files.at(1), begin + 60);
        else if (damage == u"missing"_s)
            QVERIFY(QFile::remove(files.at(1)));
        else
            QVERIFY(QFile::resize(files.at(1), damage == u"cut"_s ? begin + 60 : 0));

        const BinaryLogReplay replay(folder);
        const BinaryLogReplay::Reach reach = replay.reach(mark);
        QVERIFY(reach.possible);
        QVERIFY(!reach.upToNow);
        QCOMPARE(reach.until, noon);
        QVERIFY(!reach.problem.isEmpty());
        try {
            replay.run(anyDatabase(server), mark, u"tzauto"_s, u"loaded"_s, noon.addSecs(90));
            QFAIL("reaches a moment that the log does not know");
        } catch (const ServerError &error) {
            QVERIFY2(error.userMessage().contains(u"12:00:00"_s), qPrintable(error.userMessage()));
        }
        QCOMPARE(columnOf(connection, "SELECT iID FROM loaded.kept"), QStringList{u"1"_s});
        replay.run(anyDatabase(server), mark, u"tzauto"_s, u"loaded"_s, {});
        QCOMPARE(columnOf(connection, "SELECT iID FROM loaded.kept"), (QStringList{u"1"_s, u"2"_s}));
    }

    void aMarkIsNotTrusted_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("none") << QString();
        QTest::newRow("a path") << u"../../../etc/passwd"_s;
        QTest::newRow("another log's") << u"log-20200101T000000000.000001"_s;
        QTest::newRow("an option") << u"--help"_s;
    }

    void aMarkIsNotTrusted()
    {
        QFETCH(const QString, file);
        const DataFolder folder = newFolder(true);
        QCOMPARE(BinaryLog(folder).from(file), QStringList());
        const BinaryLogReplay::Reach reach = BinaryLogReplay(folder).reach({file, 4});
        QVERIFY(!reach.possible);
        QVERIFY(!reach.problem.isEmpty());
        const KConnectionSettings nowhere;
        const BinaryLogReplay::Mark mark{file, 4};
        QVERIFY_THROWS_EXCEPTION(ServerError, BinaryLogReplay(folder).run(nowhere, mark, u"tzauto"_s, u"loaded"_s, {}));
    }
};

static const RegisteredTest<TestBinaryLog, QCoreApplication> registeredBinaryLog;
#include "TestBinaryLog.moc"
