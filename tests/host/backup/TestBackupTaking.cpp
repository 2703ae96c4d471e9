// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupFiles.h"
#include "host/backup/BackupSnapshot.h"
#include "host/backup/BackupSql.h"
#include "host/backup/BackupState.h"
#include "host/backup/BackupTaking.h"
#include "tests/host/backup/BackupOffice.h"
#include "tests/support/BackupText.h"
#include "tests/support/OrdinaryRights.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTest>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

class TestBackupTaking : public QObject
{
    Q_OBJECT

    BackupOffice m_office;

    static const BackupManifest::Table *table(const BackupFile &backup, const QString &name)
    {
        for (const BackupManifest::Table &each : backup.manifest()->tables) {
            if (each.name == name)
                return &each;
        }
        return nullptr;
    }

private Q_SLOTS:
    void init() { m_office.renew(); }

    void manifestSaysWhatWasDumped()
    {
        m_office.fill(20);
        m_office.database().run(u"CREATE TABLE Properties (sSection VARCHAR(50), sKey VARCHAR(50), sValue VARCHAR(50)) ENGINE=InnoDB"_s);
        m_office.database().run(u"INSERT INTO Properties VALUES('Schema','Suite','14'),('Schema','TzAuto','6.211')"_s);
        m_office.database().run(u"CREATE TABLE Changes (iID INT PRIMARY KEY AUTO_INCREMENT, iKind INT) ENGINE=InnoDB"_s);
        m_office.database().run(u"INSERT INTO Changes(iKind) VALUES(0),(1),(6),(9)"_s);
        m_office.database().run(u"CREATE TABLE Journal (i INT) ENGINE=MyISAM"_s);
        const BackupFile backup = m_office.taking().take({m_office.backups(), {}, BackupManifest::Reason::Closing});
        QVERIFY(backup.manifest().has_value());
        const BackupManifest &manifest = *backup.manifest();
        QCOMPARE(manifest.database, m_office.database().name());
        QVERIFY(manifest.oneSnapshot);
        QVERIFY(manifest.reason == BackupManifest::Reason::Closing);
        QCOMPARE(manifest.suiteVersion, 14);
        QCOMPARE(manifest.moduleVersion, 6.211);
        QCOMPARE(manifest.lastChange, 2);
        QCOMPARE(manifest.tables.size(), 6);
        QCOMPARE(table(backup, u"Cars"_s)->rows, 21);
        KConnection connection(m_office.database().settings());
        const QList<BackupManifest::Table> now = BackupState::tables(connection, m_office.database().name());
        QCOMPARE(now, manifest.tables);
        QVERIFY(table(backup, u"Cars"_s)->checksum.value_or(0) != 0);
        QCOMPARE(table(backup, u"Journal"_s)->rows, -1);
        QCOMPARE(manifest.books, (BackupManifest::Books{2, 1, 107.5}));
        QCOMPARE(manifest.size, QFileInfo(backup.path()).size());
        QVERIFY(textOfBackup(backup.path()).contains("INSERT INTO `Cars` VALUES"));
        QVERIFY(backup.verification().state == BackupManifest::Verification::State::None);
        QVERIFY(qAbs(manifest.takenUtc.secsTo(QDateTime::currentDateTimeUtc())) < 3600);
        QVERIFY(QFileInfo(backup.path()).fileName().contains(manifest.taken.toString(u"yyyyMMdd-HHmmss"_s)));
    }

    // Documents of two rows that balance, each in one transaction, while backups are taken: every backup holds whole documents and
    // exactly the rows that its manifest names. A writer that is kept waiting for two seconds fails.
    void countsAreOfTheMomentOfTheDumpWhileOthersWrite()
    {
        m_office.fill(3000);
        std::atomic<bool> over{false};
        std::atomic<int> failures{0};
        std::atomic<int> saved{0};
        std::vector<std::thread> writers;
        for (int writer = 0; writer < 3; ++writer) {
            writers.emplace_back([&, writer] {
                try {
                    KConnection connection(m_office.database().settings());
                    connection.run(QByteArrayLiteral("SET SESSION lock_wait_timeout=2"));
                    for (int number = 10; !over; ++number) {
                        const QByteArray document = QByteArray::number(number * 3 + writer);
                        connection.run(QByteArrayLiteral("START TRANSACTION"));
                        connection.run("INSERT INTO Documents(iNum,iFiscalYear) VALUES(" + document + ",1405)");
                        connection.run("INSERT INTO Docs(iDocNum,iFiscalYear,dBed,dBes) VALUES(" + document + ",1405,5,0)");
                        connection.run("INSERT INTO Docs(iDocNum,iFiscalYear,dBed,dBes) VALUES(" + document + ",1405,0,5)");
                        connection.run(QByteArrayLiteral("COMMIT"));
                        ++saved;
                    }
                } catch (const CMySQLException &error) {
                    qWarning() << error.what();
                    ++failures;
                }
            });
        }
        QList<BackupFile> backups;
        for (int turn = 0; turn < 4; ++turn) {
            const int before = saved;
            backups << m_office.take();
            QTRY_VERIFY(saved > before + 5 || failures > 0);
        }
        over = true;
        for (std::thread &writer : writers)
            writer.join();
        QCOMPARE(failures.load(), 0);
        for (const BackupFile &backup : std::as_const(backups)) {
            QVERIFY(backup.manifest()->oneSnapshot);
            QCOMPARE(backup.manifest()->books.unbalanced, 1);
            const QByteArray text = textOfBackup(backup.path());
            const qsizetype from = text.indexOf("INSERT INTO `Documents` VALUES");
            QVERIFY(from > 0);
            const QByteArray documents = text.mid(from, text.indexOf("UNLOCK TABLES", from) - from);
            QCOMPARE(documents.count("\n("), table(backup, u"Documents"_s)->rows);
            QCOMPARE(table(backup, u"Docs"_s)->rows, 2 * table(backup, u"Documents"_s)->rows);
        }
        QVERIFY(table(backups.constLast(), u"Docs"_s)->rows > table(backups.constFirst(), u"Docs"_s)->rows);
    }

    // A desk that waits in the middle of saving: the backup goes on without its moment, and nobody else waits for long.
    void openTransactionOfAnotherHoldsNobodyUp()
    {
        m_office.fill(100);
        KConnection waiting(m_office.database().settings());
        waiting.run(QByteArrayLiteral("START TRANSACTION"));
        waiting.run(QByteArrayLiteral("UPDATE Cars SET sName='held' WHERE iID=1"));
        std::atomic<bool> over{false};
        std::atomic<int> failures{0};
        std::thread writer([&] {
            try {
                KConnection connection(m_office.database().settings());
                connection.run(QByteArrayLiteral("SET SESSION lock_wait_timeout=5"));
                while (!over)
                    connection.run(QByteArrayLiteral("INSERT INTO Docs(dBed) VALUES(1)"));
            } catch (const CMySQLException &error) {
                qWarning() << error.what();
                ++failures;
            }
        });
        const BackupFile backup = m_office.take();
        over = true;
        writer.join();
        waiting.run(QByteArrayLiteral("ROLLBACK"));
        QCOMPARE(failures.load(), 0);
        QVERIFY(textOfBackup(backup.path()).contains("INSERT INTO `Cars` VALUES"));
        QCOMPARE(table(backup, u"Cars"_s)->rows, 101);
    }

    // Its connection says nothing for as long as the dump takes.
    void snapshotIsNotCutOffWhenItIsIdle()
    {
        BackupSnapshot snapshot(m_office.database().settings());
        QVERIFY(snapshot.hold());
        snapshot.letGo();
        QCOMPARE(BackupSql::value(snapshot.connection(), "SELECT @@SESSION.idle_transaction_timeout"), QByteArray("0"));
    }

    // As on an office server, whose account may not hold the others.
    void accountThatMayNotHoldWritersSaysSoInTheManifest()
    {
        m_office.fill(5);
        const QString account = u"teller%1"_s.arg(QCoreApplication::applicationPid());
        m_office.database().run(u"CREATE USER '%1'@'localhost' IDENTIFIED BY 'x'"_s.arg(account));
        m_office.database().run(u"GRANT ALL ON `%1`.* TO '%2'@'localhost'"_s.arg(m_office.database().name(), account));
        KConnectionSettings settings = m_office.database().settings();
        settings.user = account;
        settings.password = u"x"_s;
        const BackupFile backup = BackupTaking(settings).take({m_office.backups()});
        // One that may hold them need not be shown the binary log.
        m_office.database().run(u"GRANT RELOAD ON *.* TO '%1'@'localhost'"_s.arg(account));
        const BackupFile held = BackupTaking(settings).take({m_office.backups()});
        QVERIFY(held.manifest()->oneSnapshot && held.manifest()->logFile.isEmpty());
        m_office.database().run(u"DROP USER '%1'@'localhost'"_s.arg(account));
        QVERIFY(!backup.manifest()->oneSnapshot);
        QCOMPARE(table(backup, u"Cars"_s)->rows, 6);
        QVERIFY(textOfBackup(backup.path()).contains("INSERT INTO `Cars` VALUES"));
    }

    void encryptedOneShowsNothing()
    {
        m_office.fill(5);
        const BackupFile backup = m_office.take(u"گذرواژه"_s);
        QVERIFY(backup.path().endsWith(u".sql.zst.enc"_s));
        QVERIFY(backup.manifest()->encrypted);
        QVERIFY(textOfBackup(backup.path(), u"گذرواژه"_s).contains("CREATE TABLE `Cars`"));
        QVERIFY(BackupOffice::failureOf([&] { textOfBackup(backup.path(), u"other"_s); }).kind() == ServerError::Kind::WrongPassphrase);
    }

    void twoOfOneSecondAreBothKept()
    {
        m_office.fill(1);
        const BackupFile first = m_office.take();
        const BackupFile second = m_office.take();
        QVERIFY(first.path() != second.path());
        const QList<BackupFile> listed = BackupFiles::in(m_office.backups(), m_office.database().name());
        QCOMPARE(listed.size(), 2);
        QCOMPARE(listed[0].path(), second.path());
    }

    void namedFileIsWrittenButReplacesNothing()
    {
        m_office.fill(1);
        QVERIFY(QDir().mkpath(m_office.office().path()));
        const QString path = m_office.office().path() + u"/mine.sql.zst"_s;
        BackupTaking::Request request;
        request.file = path;
        QCOMPARE(m_office.taking().take(request).path(), path);
        QVERIFY(textOfBackup(path).contains("Cars"));
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(m_office.taking().take(request)); });
        QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
        QVERIFY(error.userMessage().contains(path));
    }

    void cancelledOneLeavesNothing()
    {
        m_office.fill(60'000);
        qint64 told = 0;
        const ServerError error = BackupOffice::failureOf([&] {
            static_cast<void>(m_office.taking().take({m_office.backups()}, [&told](qint64, qint64 expected) {
                told = expected;
                return false;
            }));
        });
        QCOMPARE(error.kind(), ServerError::Kind::Cancelled);
        QVERIFY(told > 0);
        QCOMPARE(m_office.files(), QStringList());
    }

    void whoeverIsToldMayWrite()
    {
        m_office.fill(30'000);
        int told = 0;
        static_cast<void>(m_office.taking().take({m_office.backups()}, [&](qint64, qint64) {
            m_office.database().run(u"INSERT INTO Docs(dBed) VALUES(1)"_s);
            ++told;
            return true;
        }));
        QVERIFY(told > 0);
    }

    void missingToolIsNamed()
    {
        m_office.fill(1);
        ServerPrograms programs = ServerPrograms::installed();
        programs.dump = u"/nonexistent/mariadb-dump"_s;
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(BackupTaking(m_office.database().settings(), programs).take({m_office.backups()})); });
        QCOMPARE(error.kind(), ServerError::Kind::ProgramMissing);
        QVERIFY(error.userMessage().contains(programs.dump));
        QCOMPARE(m_office.files(), QStringList());
    }

    // The tool ends well, but in the middle.
    void dumpThatBreaksOffLeavesNothing()
    {
        m_office.fill(1);
        const QString script = m_office.office().path() + u"-dump"_s;
        QFile file(script);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\necho 'CREATE TABLE half (i INT);'\n");
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        file.close();
        ServerPrograms programs = ServerPrograms::installed();
        programs.dump = script;
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(BackupTaking(m_office.database().settings(), programs).take({m_office.backups()})); });
        QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
        QCOMPARE(m_office.files(), QStringList());
    }

    void folderWithoutWritePermissionIsNamed()
    {
        m_office.fill(1);
        QVERIFY(QDir().mkpath(m_office.backups()));
        QVERIFY(QFile::setPermissions(m_office.backups(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
        const OrdinaryRights ordinary;
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(m_office.take()); });
        QCOMPARE(error.kind(), ServerError::Kind::FolderNotWritable);
        QVERIFY(error.userMessage().contains(m_office.backups()));
    }

    void databaseThatIsNotThereLeavesNothing()
    {
        KConnectionSettings settings = m_office.database().settings();
        settings.database = u"never_made"_s;
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(BackupTaking(settings).take({m_office.backups()})); });
        QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
        QVERIFY(error.detail().contains(u"never_made"_s));
        QCOMPARE(m_office.files(), QStringList());
    }
};

static const RegisteredTest<TestBackupTaking, QCoreApplication> registeredBackupTaking;
#include "TestBackupTaking.moc"
