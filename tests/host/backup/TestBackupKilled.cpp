// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupFiles.h"
#include "host/backup/BackupRestoring.h"
#include "host/backup/BackupScratch.h"
#include "host/backup/BackupSql.h"
#include "host/backup/BackupVerification.h"
#include "host/server/Platform.h"
#include "tests/host/backup/BackupOffice.h"
#include "tests/support/BackupText.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

QString cellOf(const KConnectionSettings &settings, const char *statement)
{
    KConnection connection(settings);
    return QString::fromUtf8(BackupSql::value(connection, statement));
}

}

// Programs that are killed at work, and what the next one finds.
class TestBackupKilled : public QObject
{
    Q_OBJECT

    BackupOffice m_office;

    void kill(const QString &work, const QString &point, const KConnectionSettings &settings, const DataFolder &folder, const BackupFile &file = {})
    {
        QProcess victim;
        victim.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        victim.start(QFileInfo(QCoreApplication::applicationFilePath()).path() + u"/tzbackupvictim"_s, {work, point});
        for (const QString &line : {settings.socketPath, settings.user, settings.password, settings.database, folder.path(), file.path()})
            victim.write(line.toUtf8() + '\n');
        QVERIFY(victim.waitForFinished(120'000));
        QVERIFY2(victim.exitStatus() == QProcess::CrashExit, "it came to its end");
    }

    static bool everyPoint() { return qEnvironmentVariableIsSet("TZ_EVERY_POINT"); }
    QString cars() { return m_office.value(u"SELECT COUNT(*) FROM Cars"_s); }

private Q_SLOTS:
    void init()
    {
        m_office.renew();
        m_office.office().create();
    }

    void whileABackupIsTaken()
    {
        m_office.fill(60'000);
        kill(u"take"_s, u"midway"_s, m_office.database().settings(), m_office.office());
        QVERIFY(BackupFiles::in(m_office.backups(), m_office.database().name()).isEmpty());
        QCOMPARE(m_office.files().filter(u".part"_s).size(), 1);
        // Nobody is held up any more, and the next backup cleans.
        m_office.database().run(u"DELETE FROM Cars WHERE iID=1"_s);
        const BackupFile backup = m_office.take();
        QCOMPARE(m_office.files().size(), 2);
        QVERIFY(textOfBackup(backup.path()).contains("-- Dump completed"));
    }

    void whileABackupIsVerified()
    {
        m_office.fill(10'000);
        BackupFile backup = m_office.take();
        kill(u"verify"_s, u"midway"_s, m_office.database().settings(), m_office.office(), backup);
        const auto scratches = [this] { return QDir(m_office.office().temporaryPath()).entryList({u"scratch-*"_s}, QDir::Dirs); };
        QCOMPARE(scratches().size(), 1);
        QVERIFY(BackupFile(backup.path()).verification().state == BackupManifest::Verification::State::None);
        BackupScratch::removeLeft(m_office.office());
        QCOMPARE(scratches(), QStringList());
    }

    void whileABackupIsRestored_data()
    {
        QTest::addColumn<QString>("point");
        QTest::newRow("while it is loaded") << u"midway"_s;
        QTest::newRow("right before the exchange") << u"exchange"_s;
    }

    void whileABackupIsRestored()
    {
        QFETCH(QString, point);
        m_office.fill(10'000);
        const BackupFile backup = m_office.take();
        m_office.database().run(u"DELETE FROM Cars WHERE iID > 5"_s);
        kill(u"restore"_s, point, m_office.database().settings(), m_office.office(), backup);
        QCOMPARE(cars(), u"5"_s);
        QVERIFY(!m_office.databasesBeside().isEmpty());
        // What the killed program's client still has on its way ends by itself.
        const BackupRestoring restoring(m_office.database().settings());
        QTRY_VERIFY((restoring.cleanLeft(), m_office.databasesBeside().isEmpty()));
        QCOMPARE(cars(), u"5"_s);
        // The restoring succeeds now.
        static_cast<void>(restoring.restore({backup, {}, m_office.backups()}));
        QCOMPARE(cars(), u"10001"_s);
    }

    // What was saved between the copy and the exchange is in the replaced tables alone.
    void afterTheTablesHaveChangedPlaces()
    {
        m_office.fill(10);
        const BackupFile backup = m_office.take();
        m_office.database().run(u"DELETE FROM Cars WHERE iID > 5"_s);
        kill(u"restore"_s, u"exchanged"_s, m_office.database().settings(), m_office.office(), backup);
        QCOMPARE(cars(), u"11"_s);
        const BackupRestoring restoring(m_office.database().settings());
        const QString replaced = m_office.database().name() + u"_replaced"_s;
        QTRY_COMPARE((restoring.cleanLeft(), m_office.databasesBeside()), QStringList{replaced});
        QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM `%1`.Cars WHERE sName='late'"_s.arg(replaced)), u"1"_s);
        static_cast<void>(restoring.restore({backup, {}, m_office.backups()}));
        QCOMPARE(cars(), u"11"_s);
        QCOMPARE(m_office.databasesBeside(), QStringList());
        int holdIt = 0;
        for (const BackupFile &each : BackupFiles::in(m_office.backups(), m_office.database().name()))
            holdIt += textOfBackup(each.path()).contains("'late'") ? 1 : 0;
        QCOMPARE(holdIt, 1);
    }

    void whileADamagedFolderIsReplaced_data()
    {
        QTest::addColumn<QString>("point");
        if (everyPoint())
            QTest::newRow("while it is loaded") << u"midway"_s;
        QTest::newRow("right before the folders change places") << u"exchange"_s;
    }

    void whileADamagedFolderIsReplaced()
    {
        QFETCH(QString, point);
        m_office.fill(10'000);
        const BackupFile backup = m_office.take();
        const QTemporaryDir place(PrivateTestServer::folderTemplate());
        const DataFolder folder(place.filePath(u"office"_s));
        {
            EmbeddedServer server(folder, PrivateTestServer::options());
            server.start();
            KConnection(server.connectionSettings()).run(QByteArrayLiteral("CREATE TABLE Old (i INT) ENGINE=InnoDB"));
        }
        kill(u"newfolder"_s, point, {}, folder, backup);
        {
            EmbeddedServer server(folder, PrivateTestServer::options());
            server.start();
            QCOMPARE(cellOf(server.connectionSettings(), "SELECT COUNT(*) FROM Old"), u"0"_s);
            QVERIFY(!QFileInfo::exists(folder.restoringPath()));
        }
        const QString damaged = BackupRestoring::intoNewFolder(folder, backup, {}, {}, PrivateTestServer::options());
        QVERIFY(QFileInfo(damaged + u"/ibdata1"_s).isFile());
        EmbeddedServer server(folder, PrivateTestServer::options());
        server.start();
        QCOMPARE(cellOf(server.connectionSettings(), "SELECT COUNT(*) FROM Cars"), u"10001"_s);
    }

    // The server itself dies while the tables change places, a little later each time: all of them are the old ones or the new ones.
    void serverDiesWhileTheTablesChangePlaces()
    {
        constexpr int tables = 25;
        const QTemporaryDir place(PrivateTestServer::folderTemplate());
        const DataFolder folder(place.filePath(u"office"_s));
        // One that keeps what is saved, like an office's.
        EmbeddedServer server(folder);
        server.start();
        const KConnectionSettings settings = server.connectionSettings();
        const auto fill = [&](const QByteArray &generation) {
            KConnection connection(settings);
            for (int number = 0; number < tables; ++number) {
                const QByteArray table = 'T' + QByteArray::number(number);
                connection.run("CREATE TABLE IF NOT EXISTS " + table + " (i INT) ENGINE=InnoDB");
                connection.run("DELETE FROM " + table);
                connection.run("INSERT INTO " + table + " VALUES(" + generation + ")");
            }
        };
        // How many tables there are, and of which generations.
        const auto generations = [&] {
            KConnection connection(settings);
            QSet<QByteArray> found;
            const QStringList present = BackupSql::tablesOf(connection, settings.database);
            for (const QString &table : present)
                found.insert(BackupSql::value(connection, "SELECT MIN(i) FROM " + BackupSql::name(table)));
            return std::pair(present.size(), found);
        };
        fill("2");
        const BackupFile backup = BackupTaking(settings).take({folder.backupsPath()});
        int restored = 0;
        // At each point in the long run; else at some of them.
        const int rounds = everyPoint() ? 40 : 3;
        for (int round = 0; round < rounds; ++round) {
            fill("1");
            BackupRestoring::Request request{backup, {}, folder.backupsPath()};
            request.copiesFirst = false;
            std::thread killer;
            request.beforeExchange = [&](const QString &) {
                killer = std::thread([&, process = server.processId()] {
                    std::this_thread::sleep_for(std::chrono::milliseconds(everyPoint() ? 3 * round : 10 * round * round));
                    platform::forceStop(process);
                });
            };
            try {
                static_cast<void>(BackupRestoring(settings).restore(request));
            } catch (const ServerError &) {
                // It lost its server in the middle.
            } catch (const CMySQLException &) {
                // It lost it when it wanted to clean.
            }
            killer.join();
            server.restart();
            BackupRestoring(settings).cleanLeft();
            const auto [count, found] = generations();
            QCOMPARE(count, tables);
            QCOMPARE(found.size(), 1);
            restored += found.contains("2") ? 1 : 0;
            KConnection connection(settings);
            QVERIFY(!BackupSql::hasDatabase(connection, settings.database + u"_replaced"_s));
            QVERIFY(!BackupSql::hasDatabase(connection, settings.database + u"_restoring"_s));
        }
        qInfo() << "restored all the same:" << restored << "of" << rounds;
    }

    void officeWhoseDatabaseIsAsideIsNoNewOne()
    {
        const QTemporaryDir place(PrivateTestServer::folderTemplate());
        const DataFolder folder(place.filePath(u"office"_s));
        QVERIFY(QDir().mkpath(folder.databasePath() + u"-damaged-20260101-000000"_s));
        EmbeddedServer server(folder, PrivateTestServer::options());
        const ServerError error = BackupOffice::failureOf([&] { server.start(); });
        QCOMPARE(error.kind(), ServerError::Kind::Damaged);
        QVERIFY(!QFileInfo::exists(folder.databasePath()));
    }

    // Between the two renames: the damaged database is aside, the restored one has not its name yet.
    void whileTheFoldersChangePlaces_data()
    {
        QTest::addColumn<bool>("restoresAgain");
        QTest::newRow("and the program is started") << false;
        QTest::newRow("and another restoring fails") << true;
    }

    void whileTheFoldersChangePlaces()
    {
        QFETCH(bool, restoresAgain);
        const QTemporaryDir place(PrivateTestServer::folderTemplate());
        const DataFolder folder(place.filePath(u"office"_s));
        {
            EmbeddedServer server(folder, PrivateTestServer::options());
            server.start();
            KConnection(server.connectionSettings()).run(QByteArrayLiteral("CREATE TABLE Restored (i INT) ENGINE=InnoDB"));
        }
        QVERIFY(QDir().rename(folder.databasePath(), folder.restoredDatabasePath()));
        QVERIFY(QDir().mkdir(folder.databasePath() + u"-damaged-20260101-000000"_s));
        if (restoresAgain) {
            m_office.fill(1);
            const BackupFile backup = m_office.take();
            QVERIFY(QFile::resize(backup.path(), 10));
            QVERIFY(BackupOffice::failureOf([&] { BackupRestoring::intoNewFolder(folder, backup, {}, {}, PrivateTestServer::options()); }).kind() == ServerError::Kind::BackupDamaged);
        }
        EmbeddedServer server(folder, PrivateTestServer::options());
        server.start();
        QCOMPARE(cellOf(server.connectionSettings(), "SELECT COUNT(*) FROM Restored"), u"0"_s);
        QVERIFY(!QFileInfo::exists(folder.restoredDatabasePath()));
    }
};

static const RegisteredTest<TestBackupKilled, QCoreApplication> registeredBackupKilled;
#include "TestBackupKilled.moc"
