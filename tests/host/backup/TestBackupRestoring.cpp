// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupFiles.h"
#include "host/backup/BackupRestoring.h"
#include "host/backup/BackupWriter.h"
#include "suite/db/connection/KLease.h"
#include "tests/host/backup/BackupOffice.h"
#include "tests/support/BackupText.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString carsChecksum = u"SELECT MD5(GROUP_CONCAT(CONCAT_WS('|', iID, sName, sEmoji, HEX(oData), IFNULL(date, 'null'), dPrice) ORDER BY iID)) FROM Cars"_s;

}

class TestBackupRestoring : public QObject
{
    Q_OBJECT

    BackupOffice m_office;

    BackupRestoring restoring() const { return BackupRestoring(const_cast<BackupOffice &>(m_office).database().settings()); }
    BackupRestoring::Request requestFor(const BackupFile &file, const QString &passphrase = {}) const
    {
        BackupRestoring::Request request;
        request.file = file;
        request.passphrase = passphrase;
        request.backupsFolder = m_office.backups();
        return request;
    }
    QString cars() { return m_office.value(u"SELECT COUNT(*) FROM Cars"_s); }
    QString tables() { return m_office.value(u"SELECT GROUP_CONCAT(table_name ORDER BY table_name) FROM information_schema.tables WHERE table_schema = DATABASE()"_s); }

    // A backup whose statements are these.
    BackupFile made(const QByteArray &statements)
    {
        const QString path = BackupFiles::freePath(m_office.office().path(), m_office.database().name(), BackupFile::Format::Compressed, QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC));
        QDir().mkpath(m_office.office().path());
        BackupWriter writer(path);
        writer.write(statements + "\n-- Dump completed\n");
        writer.close();
        writer.finish(std::nullopt);
        return BackupFile(path);
    }

    QString replacedName() { return m_office.database().name() + u"_replaced"_s; }

    // Right before a statement of that beginning runs.
    static void at(const QString &beginning, const std::function<void()> &action)
    {
        KConnection::setStatementObserver([beginning, action](const QString &statement) {
            if (statement.startsWith(beginning))
                action();
        });
    }

    bool isInABackup(const QByteArray &text)
    {
        const QList<BackupFile> backups = BackupFiles::in(m_office.backups(), m_office.database().name());
        return std::any_of(backups.begin(), backups.end(), [&](const BackupFile &backup) { return textOfBackup(backup.path()).contains(text); });
    }

private Q_SLOTS:
    void init() { m_office.renew(); }
    void cleanup() { KConnection::setStatementObserver({}); }

    void restoringBringsEverythingBack_data()
    {
        QTest::addColumn<QString>("passphrase");
        QTest::newRow("compressed") << QString();
        QTest::newRow("encrypted") << u"گذرواژه"_s;
    }

    void restoringBringsEverythingBack()
    {
        QFETCH(QString, passphrase);
        m_office.fill(3);
        const QString before = m_office.value(carsChecksum);
        QVERIFY(!before.isEmpty());
        const BackupFile backup = m_office.take(passphrase);
        m_office.database().run(u"UPDATE Cars SET sName = 'later'"_s);
        m_office.database().run(u"ALTER TABLE Cars DROP COLUMN sEmoji"_s);
        m_office.database().run(u"CREATE TABLE Later (i INT)"_s);
        m_office.database().run(u"DROP TABLE Docs"_s);
        const BackupFile copy = restoring().restore(requestFor(backup, passphrase));
        QCOMPARE(m_office.value(carsChecksum), before);
        QCOMPARE(tables(), u"Cars,Docs,Documents"_s);
        QCOMPARE(m_office.databasesBeside(), QStringList());
        // The state before is in the copy, and from there comes back too.
        QVERIFY(copy.exists() && copy.manifest()->reason == BackupManifest::Reason::BeforeRestore);
        static_cast<void>(restoring().restore(requestFor(copy)));
        QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM Cars WHERE sName='later'"_s), u"4"_s);
        QCOMPARE(tables(), u"Cars,Documents,Later"_s);
    }

    // A connection that is closed keeps its lock until the server notices, and the next restoring would be refused.
    void theLockIsGivenBackBeforeTheConnectionEnds()
    {
        QStringList said;
        KConnection::setStatementObserver([&said](const QString &statement) {
            if (statement.contains(u"_LOCK("_s))
                said << statement.section(u'(', 0, 0);
        });
        restoring().cleanLeft();
        QCOMPARE(said, QStringList()); // nothing is left
        const QString beside = m_office.database().name() + u"_replaced"_s;
        m_office.database().run(u"CREATE DATABASE `%1`"_s.arg(beside));
        restoring().cleanLeft();
        KConnection::setStatementObserver({});
        m_office.database().run(u"DROP DATABASE IF EXISTS `%1`"_s.arg(beside));
        QCOMPARE(said, (QStringList{u"SELECT GET_LOCK"_s, u"DO RELEASE_LOCK"_s}));
    }

    void olderPlainDumpIsRestored()
    {
        m_office.fill(3);
        const QString before = m_office.value(carsChecksum);
        const QByteArray text = textOfBackup(m_office.take().path());
        const QString path = m_office.backups() + u'/' + m_office.database().name() + u"-20200102-030405.sql"_s;
        QFile plain(path);
        QVERIFY(plain.open(QIODevice::WriteOnly));
        plain.write(text);
        plain.close();
        m_office.database().run(u"DELETE FROM Cars"_s);
        static_cast<void>(restoring().restore(requestFor(BackupFile(path))));
        QCOMPARE(m_office.value(carsChecksum), before);
    }

    void restoringIsNotedAndEndsWhatProgramsHeld()
    {
        m_office.fill(1);
        m_office.database().run(u"CREATE TABLE Changes (iID INT NOT NULL AUTO_INCREMENT PRIMARY KEY, sTable VARCHAR(100), iRecordID INT, iKind INT, iUserID INT, sComputer VARCHAR(100), date DATETIME, sValues MEDIUMTEXT) ENGINE=InnoDB"_s);
        KLease::createTable();
        m_office.database().run(u"INSERT INTO Leases(sName,sHolder,sText,dateTaken,dateSeen) VALUES('upgrade','x','x',NOW(),NOW())"_s);
        const BackupFile backup = m_office.take();
        static_cast<void>(restoring().restore(requestFor(backup)));
        QCOMPARE(m_office.value(u"SELECT CONCAT_WS('|',sTable,iRecordID,iKind) FROM Changes"_s), u"Backup|0|5"_s);
        QVERIFY(m_office.value(u"SELECT sValues FROM Changes"_s).contains(backup.taken().toString(u"yyyy-MM-dd"_s)));
        QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM Leases"_s), u"0"_s);
    }

    void cancelledRestoringChangesNothing()
    {
        m_office.fill(60'000);
        const BackupFile backup = m_office.take();
        m_office.database().run(u"DELETE FROM Cars WHERE iID > 5"_s);
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(restoring().restore(requestFor(backup), [](qint64 done, qint64) { return done == 0; })); });
        QCOMPARE(error.kind(), ServerError::Kind::Cancelled);
        QCOMPARE(cars(), u"5"_s);
        QCOMPARE(m_office.databasesBeside(), QStringList());
    }

    void whatCannotBeRestoredChangesNothing_data()
    {
        QTest::addColumn<int>("harm");
        QTest::addColumn<ServerError::Kind>("kind");
        QTest::newRow("cut off") << 0 << ServerError::Kind::BackupDamaged;
        QTest::newRow("altered") << 1 << ServerError::Kind::BackupDamaged;
        QTest::newRow("bad statement") << 2 << ServerError::Kind::DumpFailed;
        QTest::newRow("no tables") << 3 << ServerError::Kind::DumpFailed;
        QTest::newRow("wrong passphrase") << 4 << ServerError::Kind::WrongPassphrase;
        QTest::newRow("schema of a newer program, by its manifest") << 5 << ServerError::Kind::NewerBackup;
        QTest::newRow("schema of a newer program, by its tables") << 6 << ServerError::Kind::NewerBackup;
        QTest::newRow("a hook that fails") << 7 << ServerError::Kind::DidNotStart;
        QTest::newRow("no such file") << 8 << ServerError::Kind::DumpFailed;
    }

    void whatCannotBeRestoredChangesNothing()
    {
        QFETCH(int, harm);
        QFETCH(ServerError::Kind, kind);
        m_office.fill(2000);
        BackupFile backup = m_office.take(harm == 4 ? u"right"_s : QString());
        BackupRestoring::Request request = requestFor(backup, u"wrong"_s);
        if (harm == 0) {
            QVERIFY(QFile::resize(backup.path(), backup.size() / 2));
        } else if (harm == 1) {
            QFile file(backup.path());
            QVERIFY(file.open(QIODevice::ReadWrite));
            file.seek(backup.size() / 2);
            file.write("altered");
        } else if (harm == 2) {
            request.file = made("CREATE TABLE a (i INT);\nINSERT ONTO a VALUES(1);");
        } else if (harm == 3) {
            request.file = made("SELECT 1;");
        } else if (harm == 5) {
            BackupManifest manifest = *backup.manifest();
            manifest.suiteVersion = 9999;
            backup.setManifest(manifest);
            request.file = BackupFile(backup.path());
        } else if (harm == 6) {
            request.file = made("CREATE TABLE Properties (sSection VARCHAR(50), sKey VARCHAR(50), sValue VARCHAR(50));\n"
                                "INSERT INTO Properties VALUES('Schema','Suite','9999');");
        } else if (harm == 7) {
            request.beforeExchange = [](const QString &) { throw ServerError(ServerError::Kind::DidNotStart, u"نشد"_s); };
        } else if (harm == 8) {
            request.file = BackupFile(u"/nonexistent.sql.zst"_s);
        }
        m_office.database().run(u"DELETE FROM Cars WHERE iID > 5"_s);
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(restoring().restore(request)); });
        QVERIFY2(error.kind() == kind, error.what());
        QVERIFY(!error.userMessage().isEmpty());
        QCOMPARE(cars(), u"5"_s);
        QCOMPARE(tables(), u"Cars,Docs,Documents"_s);
        QCOMPARE(m_office.databasesBeside(), QStringList());
    }

    void tableWithATriggerIsNamed()
    {
        m_office.fill(1);
        const BackupFile backup = m_office.take();
        m_office.database().run(u"CREATE TRIGGER watch BEFORE INSERT ON Cars FOR EACH ROW SET NEW.dPrice = 1"_s);
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(restoring().restore(requestFor(backup))); });
        QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
        QVERIFY(error.userMessage().contains(u"Cars.watch"_s));
        QCOMPARE(m_office.files().size(), 2);
        QCOMPARE(m_office.databasesBeside(), QStringList());
    }

    void viewsStay()
    {
        m_office.fill(1);
        m_office.database().run(u"CREATE VIEW Dear AS SELECT * FROM Cars WHERE dPrice > 1000"_s);
        const BackupFile backup = m_office.take();
        m_office.database().run(u"DELETE FROM Cars"_s);
        static_cast<void>(restoring().restore(requestFor(backup)));
        QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM Dear"_s), u"1"_s);
        QCOMPARE(m_office.databasesBeside(), QStringList());
    }

    // As an administrator's own dump, or a hostile one: nothing but the aside database is touched.
    void statementsForTheLivingDatabaseDoNotReachIt_data()
    {
        QTest::addColumn<QByteArray>("statements");
        QTest::newRow("another database is chosen") << QByteArray("USE `%1`;\nDROP TABLE IF EXISTS Cars;\nCREATE TABLE Cars (i INT);");
        QTest::newRow("a table of its by its full name") << QByteArray("DELETE FROM `%1`.Cars;\nCREATE TABLE a (i INT);");
        QTest::newRow("it is dropped") << QByteArray("DROP DATABASE `%1`;");
        QTest::newRow("an account is made") << QByteArray("CREATE USER made@localhost;\nCREATE TABLE a (i INT);");
    }

    void statementsForTheLivingDatabaseDoNotReachIt()
    {
        QFETCH(QByteArray, statements);
        m_office.fill(5);
        const BackupFile backup = made(statements.replace("%1", m_office.database().name().toUtf8()));
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(restoring().restore(requestFor(backup))); });
        QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
        QCOMPARE(cars(), u"6"_s);
        QCOMPARE(tables(), u"Cars,Docs,Documents"_s);
        QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM mysql.global_priv WHERE User LIKE 'tzload%' OR User='made'"_s), u"0"_s);
    }

    // A large attachment: as a literal it fits into the server's packet, in hexadecimal it does not.
    void rowThatFillsAPacketComesBack()
    {
        m_office.fill(1);
        m_office.database().run(u"INSERT INTO Cars(sName,oData) VALUES('large',REPEAT('x',12000000))"_s);
        const BackupFile backup = m_office.take();
        const QString before = m_office.value(u"SELECT @@GLOBAL.max_allowed_packet"_s);
        m_office.database().run(u"SET GLOBAL max_allowed_packet=16777216"_s);
        KConnection::closeThreadConnections();
        m_office.database().run(u"DELETE FROM Cars"_s);
        BackupRestoring::Request request = requestFor(backup);
        request.copiesFirst = false;
        static_cast<void>(restoring().restore(request));
        QCOMPARE(m_office.value(u"SELECT @@GLOBAL.max_allowed_packet"_s), u"16777216"_s);
        m_office.database().run(u"SET GLOBAL max_allowed_packet=%1"_s.arg(before));
        QCOMPARE(m_office.value(u"SELECT MAX(LENGTH(oData)) FROM Cars"_s), u"12000000"_s);
    }

    // Rows that somebody saves at the last moment are in the copy of the state before.
    void whatIsSavedMeanwhileIsInTheCopy()
    {
        m_office.fill(5);
        const BackupFile backup = m_office.take();
        BackupRestoring::Request request = requestFor(backup);
        request.beforeExchange = [&](const QString &) { m_office.database().run(u"INSERT INTO Cars(sName) VALUES('meanwhile')"_s); };
        const BackupFile copy = restoring().restore(request);
        QCOMPARE(cars(), u"6"_s);
        QVERIFY(textOfBackup(copy.path()).contains("'meanwhile'"));
    }

    void whatIsSavedAfterTheCopyIsCopiedToo()
    {
        m_office.fill(5);
        const BackupFile backup = m_office.take();
        at(u"RENAME TABLE"_s, [&] { m_office.database().run(u"INSERT INTO Cars(sName) VALUES('late')"_s); });
        const BackupFile copy = restoring().restore(requestFor(backup));
        QVERIFY(textOfBackup(copy.path()).contains("'late'"));
        QCOMPARE(cars(), u"6"_s);
        QCOMPARE(m_office.databasesBeside(), QStringList());
    }

    // It is restored, and said so; what was saved last stands in the replaced tables until a backup holds it.
    void whatIsSavedAfterTheCopyStaysUntilItIsCopied()
    {
        m_office.fill(5);
        const BackupFile backup = m_office.take();
        QStringList warnings;
        BackupRestoring::Request request = requestFor(backup);
        request.warn = [&](const QString &words) { warnings << words; };
        const QString away = m_office.backups() + u"-away"_s;
        at(u"RENAME TABLE"_s, [&] {
            m_office.database().run(u"INSERT INTO Cars(sName) VALUES('late')"_s);
            QVERIFY(QDir().rename(m_office.backups(), away));
            QFile inTheWay(m_office.backups());
            QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        });
        const BackupFile copy = restoring().restore(request);
        KConnection::setStatementObserver({});
        QVERIFY(!copy.path().isEmpty());
        QCOMPARE(cars(), u"6"_s);
        QCOMPARE(warnings.size(), 1);
        QVERIFY(warnings.constFirst().contains(replacedName()));
        for (int start = 0; start < 2; ++start) {
            restoring().cleanLeft();
            QVERIFY(m_office.databasesBeside().contains(replacedName()));
        }
        // As long as it cannot be copied nothing else is restored, and nothing is lost.
        m_office.database().run(u"DELETE FROM Cars WHERE iID > 2"_s);
        request.file = BackupFile(away + u'/' + QFileInfo(backup.path()).fileName());
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(restoring().restore(request)); });
        QVERIFY(error.userMessage().contains(replacedName()));
        QCOMPARE(m_office.databasesBeside(), QStringList{replacedName()});
        QCOMPARE(cars(), u"2"_s);
        QVERIFY(QFile::remove(m_office.backups()) && QDir().rename(away, m_office.backups()));
        QVERIFY(!isInABackup("'late'"));
        request.file = backup;
        static_cast<void>(restoring().restore(request));
        QVERIFY(isInABackup("'late'"));
        QCOMPARE(cars(), u"6"_s);
        QCOMPARE(m_office.databasesBeside(), QStringList());
        QCOMPARE(warnings.size(), 2);
        static_cast<void>(restoring().restore(request));
        QCOMPARE(warnings.size(), 2);
    }

    void whatFailsWhileTheReplacedTablesGoIsNoFailure()
    {
        m_office.fill(5);
        const BackupFile backup = m_office.take();
        m_office.database().run(u"DELETE FROM Cars WHERE iID > 2"_s);
        bool isGone = false;
        at(u"SET STATEMENT foreign_key_checks=0 FOR DROP TABLE `"_s + replacedName(), [&] {
            m_office.database().run(u"DROP DATABASE `%1`"_s.arg(replacedName()));
            isGone = true;
        });
        BackupRestoring::Request request = requestFor(backup);
        QStringList warnings;
        request.warn = [&](const QString &words) { warnings << words; };
        QVERIFY(restoring().restore(request).exists());
        KConnection::setStatementObserver({});
        QVERIFY(isGone);
        QCOMPARE(cars(), u"6"_s);
        QCOMPARE(warnings, QStringList());
        restoring().cleanLeft();
        QCOMPARE(m_office.databasesBeside(), QStringList());
    }

    void databaseOfAnotherIsNamedAndStays_data()
    {
        QTest::addColumn<QString>("ending");
        QTest::newRow("where the backup is loaded") << u"_restoring"_s;
        QTest::newRow("where the replaced tables go") << u"_replaced"_s;
    }

    void databaseOfAnotherIsNamedAndStays()
    {
        QFETCH(QString, ending);
        m_office.fill(5);
        const BackupFile backup = m_office.take();
        const QString others = m_office.database().name() + ending;
        m_office.database().run(u"CREATE DATABASE `%1`"_s.arg(others));
        m_office.database().run(u"CREATE TABLE `%1`.Theirs (i INT) ENGINE=InnoDB"_s.arg(others));
        m_office.database().run(u"DELETE FROM Cars WHERE iID > 2"_s);
        restoring().cleanLeft();
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(restoring().restore(requestFor(backup))); });
        QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
        QVERIFY(error.userMessage().contains(others));
        QCOMPARE(cars(), u"2"_s);
        QCOMPARE(m_office.databasesBeside(), QStringList{others});
        QCOMPARE(m_office.value(u"SELECT COUNT(*) FROM `%1`.Theirs"_s.arg(others)), u"0"_s);
        m_office.database().run(u"DROP DATABASE `%1`"_s.arg(others));
    }

    // Commands of the client that would run programs.
    void statementsCannotRunPrograms()
    {
        const QString trace = m_office.office().path() + u"/trace"_s;
        m_office.fill(1);
        const BackupFile backup = made("\\! touch " + trace.toUtf8() + "\nsystem touch " + trace.toUtf8() + "\nCREATE TABLE a (i INT);");
        static_cast<void>(BackupOffice::failureOf([&] { static_cast<void>(restoring().restore(requestFor(backup))); }));
        QVERIFY(!QFile::exists(trace));
    }

    void othersAtWorkAreNamedAndMayBeOverruled()
    {
        m_office.fill(1);
        const BackupFile backup = m_office.take();
        KLease::createTable();
        QCOMPARE(restoring().othersAtWork(), QStringList());
        const std::unique_ptr<KLease> other = KLease::tryTake(u"Session of-another-program"_s, u"رایانه دفتر دوم"_s);
        QVERIFY(other != nullptr);
        QCOMPARE(restoring().othersAtWork(), QStringList{u"رایانه دفتر دوم"_s});
        const ServerError error = BackupOffice::failureOf([&] { static_cast<void>(restoring().restore(requestFor(backup))); });
        QCOMPARE(error.kind(), ServerError::Kind::InUse);
        QVERIFY(error.userMessage().contains(u"رایانه دفتر دوم"_s));
        BackupRestoring::Request insisting = requestFor(backup);
        insisting.despiteOthers = true;
        static_cast<void>(restoring().restore(insisting));
        QCOMPARE(tables(), u"Cars,Docs,Documents"_s);
    }

    void leftDatabases_data()
    {
        QTest::addColumn<QString>("present");
        QTest::addColumn<QString>("restoring");
        QTest::addColumn<QString>("replaced");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("beside");
        QTest::addColumn<QString>("mark"); // of the replaced ones
        const QString ours = u"TzAuto restoring"_s;
        const QString copied = u"TzAuto restoring, copied"_s;
        QTest::newRow("nothing is left") << u"a,b"_s << u"-"_s << u"-"_s << u"a,b"_s << 0 << ours;
        QTest::newRow("killed while loading") << u"a,b"_s << u"a"_s << u"-"_s << u"a,b"_s << 0 << ours;
        QTest::newRow("killed before the exchange") << u"a,b"_s << u"a,b"_s << u""_s << u"a,b"_s << 0 << ours;
        QTest::newRow("killed after the exchange") << u"a,b"_s << u""_s << u"a,b,c"_s << u"a,b"_s << 1 << ours;
        QTest::newRow("killed after the exchange and the copy") << u"a,b"_s << u""_s << u"a,b,c"_s << u"a,b"_s << 0 << copied;
        QTest::newRow("killed while the replaced ones go") << u"a,b"_s << u""_s << u"c"_s << u"a,b"_s << 0 << copied;
        QTest::newRow("nothing but the replaced ones") << u""_s << u""_s << u"a,b"_s << u"a,b"_s << 0 << ours;
        QTest::newRow("nothing but those that nobody wants copied") << u""_s << u""_s << u"a,b"_s << u"a,b"_s << 0 << copied;
        QTest::newRow("cut in the middle of the exchange") << u"b"_s << u"a,b"_s << u"a"_s << u"a,b"_s << 0 << ours;
        QTest::newRow("nobody can tell which are meant") << u"a,b"_s << u"b"_s << u"a"_s << u"a,b"_s << 2 << ours;
    }

    void leftDatabases()
    {
        QFETCH(QString, present);
        QFETCH(QString, restoring);
        QFETCH(QString, replaced);
        QFETCH(QString, after);
        QFETCH(int, beside);
        QFETCH(QString, mark);
        const QString name = m_office.database().name();
        const auto make = [&](const QString &database, const QString &tables, const QString &comment) {
            if (tables == u"-"_s)
                return;
            m_office.database().run(u"CREATE DATABASE IF NOT EXISTS `%1` COMMENT '%2'"_s.arg(database, comment));
            for (const QString &table : tables.split(u',', Qt::SkipEmptyParts))
                m_office.database().run(u"CREATE TABLE `%1`.`%2` (i INT) ENGINE=InnoDB"_s.arg(database, table));
        };
        make(name, present, {});
        make(name + u"_restoring"_s, restoring, u"TzAuto restoring"_s);
        make(name + u"_replaced"_s, replaced, mark);
        this->restoring().cleanLeft();
        QCOMPARE(tables(), after);
        QCOMPARE(m_office.databasesBeside().size(), beside);
        for (const QString &each : m_office.databasesBeside())
            m_office.database().run(u"DROP DATABASE `%1`"_s.arg(each));
    }

    // Another program restores at this moment.
    void restoringUnderWayIsLeftAlone()
    {
        m_office.fill(1);
        const BackupFile backup = m_office.take();
        BackupRestoring::Request request = requestFor(backup);
        bool looked = false;
        request.beforeExchange = [&](const QString &database) {
            restoring().cleanLeft();
            looked = m_office.databasesBeside().contains(database);
            QCOMPARE(BackupOffice::failureOf([&] { static_cast<void>(restoring().restore(requestFor(backup))); }).kind(), ServerError::Kind::InUse);
        };
        static_cast<void>(restoring().restore(request));
        QVERIFY(looked);
        QCOMPARE(m_office.databasesBeside(), QStringList());
    }
};

static const RegisteredTest<TestBackupRestoring, QCoreApplication> registeredBackupRestoring;
#include "TestBackupRestoring.moc"
