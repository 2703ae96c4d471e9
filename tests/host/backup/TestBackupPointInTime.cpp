// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupPointInTime.h"
#include "host/backup/BackupRestoring.h"
#include "host/backup/BackupTaking.h"
#include "host/server/EmbeddedServer.h"
#include "tests/host/backup/BackupOffice.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

// After the log was begun, as all that is in it.
const QDateTime tomorrow(QDate::currentDate().addDays(1), QTime(12, 0), Qt::UTC);

}

class TestBackupPointInTime : public QObject
{
    Q_OBJECT

    QTemporaryDir m_temporary{PrivateTestServer::folderTemplate()};
    std::unique_ptr<EmbeddedServer> m_server;
    BackupFile m_backup;
    int m_offices = 0;

    DataFolder folder() const { return m_server->folder(); }
    KConnectionSettings settings() const { return m_server->connectionSettings(); }

    void run(const QByteArray &statement, const QDateTime &office = {})
    {
        KConnection connection(settings());
        if (office.isValid())
            connection.run("SET TIMESTAMP=" + QByteArray::number(QDateTime(office.date(), office.time(), Qt::LocalTime).toSecsSinceEpoch()));
        connection.run(statement);
    }

    QString rows()
    {
        KConnection connection(settings());
        const KConnection::Result result = connection.run(QByteArrayLiteral("SELECT GROUP_CONCAT(iID ORDER BY iID) FROM Cars"));
        return QString::fromUtf8(mysql_fetch_row(result.get())[0]);
    }

    void begin(bool keepsLog)
    {
        const DataFolder folder(m_temporary.filePath(u"office%1"_s.arg(++m_offices)));
        // A new database takes longer than all that is done with it.
        QProcess copying;
        copying.start(u"cp"_s, {u"-a"_s, m_temporary.filePath(u"original"_s), folder.path()});
        QVERIFY(copying.waitForFinished() && copying.exitCode() == 0);
        BinaryLog(folder).setWanted(keepsLog);
        m_server = std::make_unique<EmbeddedServer>(folder, PrivateTestServer::options());
        m_server->start();
        run("CREATE TABLE Cars (iID INT PRIMARY KEY) ENGINE=InnoDB");
        run("INSERT INTO Cars VALUES (1)");
        m_backup = BackupTaking(settings()).take({folder.backupsPath()});
        run("INSERT INTO Cars VALUES (2)", tomorrow);
        run("DELETE FROM Cars WHERE iID=1", tomorrow.addSecs(60));
        run("INSERT INTO Cars VALUES (3)", tomorrow.addSecs(120));
    }

    BackupRestoring::Request request(const BackupMoment &moment) const
    {
        BackupRestoring::Request request;
        request.file = m_backup;
        request.backupsFolder = folder().backupsPath();
        request.beforeExchange = BackupPointInTime(folder()).onto(settings(), m_backup, moment);
        return request;
    }

private Q_SLOTS:
    void initTestCase() { EmbeddedServer(DataFolder(m_temporary.filePath(u"original"_s)), PrivateTestServer::options()).start(); }
    void cleanup() { m_server.reset(); }

    void aBackupIsBroughtForward_data()
    {
        QTest::addColumn<BackupMoment>("moment");
        QTest::addColumn<QString>("rows");
        QTest::newRow("to the last minute") << BackupMoment{.lastMinute = true} << u"2,3"_s;
        QTest::newRow("before the deletion") << BackupMoment{.time = tomorrow.addSecs(30)} << u"1,2"_s;
        QTest::newRow("after it") << BackupMoment{.time = tomorrow.addSecs(90)} << u"2"_s;
    }

    void aBackupIsBroughtForward()
    {
        QFETCH(const BackupMoment, moment);
        QFETCH(const QString, rows);
        begin(true);
        QVERIFY(BackupPointInTime(folder()).reach(m_backup).upToNow);
        const BackupFile copy = BackupRestoring(settings()).restore(request(moment));
        QCOMPARE(this->rows(), rows);
        // The log begins anew: what leads up to now from another state is another log.
        const BackupPointInTime later(folder());
        QVERIFY(!later.reach(m_backup).upToNow);
        QVERIFY(later.reach(m_backup).possible);
        QVERIFY(!later.reach(copy).upToNow);
        run("INSERT INTO Cars VALUES (9)");
        const BackupFile after = BackupTaking(settings()).take({folder().backupsPath()});
        QVERIFY(later.reach(after).upToNow);
        // Even so the old one goes as far as before.
        static_cast<void>(BackupRestoring(settings()).restore(request({.lastMinute = true})));
        QCOMPARE(this->rows(), u"2,3"_s);
    }

    // Tables that were replaced stand beside for a while; the log goes on with those that took their place.
    void aCopyOfWhatWasReplacedHasNoPlaceInTheLog()
    {
        begin(true);
        run("CREATE DATABASE tzauto_replaced");
        run("CREATE TABLE tzauto_replaced.Cars LIKE Cars");
        KConnectionSettings replaced = settings();
        replaced.database = u"tzauto_replaced"_s;
        BackupTaking::Request request{folder().backupsPath()};
        request.knownAs = settings().database;
        const BackupFile copy = BackupTaking(replaced).take(request);
        QCOMPARE(copy.manifest()->logFile, QString());
        QVERIFY(!BackupPointInTime(folder()).reach(copy).possible);
    }

    void aPlainRestoringBeginsTheLogAnewToo()
    {
        begin(true);
        BackupRestoring::Request plain = request({.lastMinute = true});
        plain.beforeExchange = {};
        static_cast<void>(BackupRestoring(settings()).restore(plain));
        QCOMPARE(rows(), u"1"_s);
        QVERIFY(!BackupPointInTime(folder()).reach(m_backup).upToNow);
    }

    void whatCannotBeReachedChangesNothing_data()
    {
        QTest::addColumn<bool>("keepsLog");
        QTest::addColumn<BackupMoment>("moment");
        QTest::newRow("without a log: the last minute") << false << BackupMoment{.lastMinute = true};
        QTest::newRow("without a log: a moment") << false << BackupMoment{.time = tomorrow.addSecs(30)};
        QTest::newRow("a moment before the backup") << true << BackupMoment{.time = tomorrow.addDays(-2)};
    }

    void whatCannotBeReachedChangesNothing()
    {
        QFETCH(const bool, keepsLog);
        QFETCH(const BackupMoment, moment);
        begin(keepsLog);
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(BackupRestoring(settings()).restore(request(moment))); });
        QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
        QVERIFY(!error.userMessage().isEmpty());
        QCOMPARE(rows(), u"2,3"_s);
        if (keepsLog)
            QVERIFY(BackupPointInTime(folder()).reach(m_backup).upToNow);
    }

    void aDamagedFolderComesBackToTheLastMinute()
    {
        begin(true);
        const DataFolder damaged = folder();
        m_server->stop();
        const QString aside = BackupRestoring::intoNewFolder(damaged, m_backup, {}, {}, PrivateTestServer::options(),
                                                             BackupPointInTime(damaged).ontoNew(m_backup, {.lastMinute = true}));
        QVERIFY(QFileInfo::exists(aside));
        m_server->start();
        QCOMPARE(rows(), u"2,3"_s);
        QVERIFY(!BackupPointInTime(damaged).reach(m_backup).upToNow);
        run("INSERT INTO Cars VALUES (4)");
        const BackupFile after = BackupTaking(settings()).take({damaged.backupsPath()});
        QVERIFY(BackupPointInTime(damaged).reach(after).upToNow);
    }
};

Q_DECLARE_METATYPE(BackupMoment)

static const RegisteredTest<TestBackupPointInTime, QCoreApplication> registeredBackupPointInTime;
#include "TestBackupPointInTime.moc"
