// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupFiles.h"
#include "host/backup/BackupSql.h"
#include "host/frame/HostOptions.h"
#include "host/server/BinaryLog.h"
#include "host/server/InstanceLock.h"
#include "host/server/Platform.h"
#include "host/start/BackupCommands.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/BackupText.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

// The program itself, started without any display.
class TestBackupCommands : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_place;
    std::unique_ptr<QTemporaryDir> m_original; // an office with a few rows, whose server has ended

    struct Answer
    {
        int code = -1;
        QString result;
        QString words;
    };

    DataFolder folder() const { return DataFolder(m_place->filePath(u"office"_s)); }
    QString file(const QString &name) const { return m_place->filePath(name); }

    Answer run(const QStringList &arguments, const QByteArray &input = {})
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QString::fromLatin1(name));
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        program.setProcessEnvironment(environment);
        program.start(u"" TZ_HOST_PROGRAM ""_s, QStringList{u"--data-dir"_s, folder().path()} + arguments);
        program.write(input);
        program.closeWriteChannel();
        if (!program.waitForFinished(180'000))
            return {};
        return {program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()).trimmed(), QString::fromUtf8(program.readAllStandardError())};
    }

    QString writeSecret(const QByteArray &text)
    {
        const QString path = file(u"secret"_s);
        platform::writePrivateFile(path, text);
        return path;
    }

    static void fill(EmbeddedServer &server)
    {
        KConnection connection(server.connectionSettings());
        connection.run(QByteArrayLiteral("CREATE TABLE Persons(iID INT NOT NULL AUTO_INCREMENT PRIMARY KEY, sName VARCHAR(200)) ENGINE=InnoDB"));
        connection.run(QByteArrayLiteral("INSERT INTO Persons(sName) SELECT REPEAT('x',150) FROM seq_1_to_500"));
    }

    QString persons()
    {
        EmbeddedServer server(folder(), PrivateTestServer::options());
        server.start();
        KConnection connection(server.connectionSettings());
        return QString::fromUtf8(BackupSql::value(connection, "SELECT COUNT(*) FROM Persons"));
    }

    // A row more, and tomorrow noon a hundred less; returns when that was.
    QDateTime addOneAndDelete()
    {
        const QDateTime deleted(QDate::currentDate().addDays(1), QTime(12, 0, 30));
        EmbeddedServer server(folder(), PrivateTestServer::options());
        server.start();
        KConnection connection(server.connectionSettings());
        connection.run(QByteArrayLiteral("INSERT INTO Persons(sName) VALUES('later')"));
        connection.run("SET TIMESTAMP=" + QByteArray::number(deleted.toSecsSinceEpoch()));
        connection.run(QByteArrayLiteral("DELETE FROM Persons WHERE iID<=100"));
        return deleted;
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_original = std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate());
        EmbeddedServer server(DataFolder(m_original->filePath(u"office"_s)), PrivateTestServer::options());
        server.start();
        fill(server);
    }

    void init()
    {
        m_place = std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate());
        QProcess copying;
        copying.start(u"cp"_s, {u"-a"_s, m_original->filePath(u"office"_s), folder().path()});
        QVERIFY(copying.waitForFinished());
        QCOMPARE(copying.exitCode(), 0);
    }

    void backupOfAClosedOffice()
    {
        const QString path = file(u"mine.sql.zst"_s);
        const Answer answer = run({u"--backup"_s, path});
        QVERIFY2(answer.code == BackupCommands::Done, qPrintable(answer.words));
        QCOMPARE(answer.result, path);
        QVERIFY(textOfBackup(path).contains("INSERT INTO `Persons`"));
        QVERIFY(BackupFile(path).manifest()->reason == BackupManifest::Reason::CommandLine);
        // The same name once more.
        QCOMPARE(run({u"--backup"_s, path}).code, int(BackupCommands::Failed));
        const Answer verified = run({u"--verify"_s, path, u"--normal-priority"_s});
        QVERIFY2(verified.code == BackupCommands::Done, qPrintable(verified.words));
        QCOMPARE(verified.result, u"passed: 1 tables, 500 rows"_s);
        // With nothing to compare it with it does not pass for proved, and a manifest that lies there broken is a fault.
        const QString manifest = path + u".json"_s;
        QVERIFY(platform::writePrivateFile(manifest, "not json") == platform::WriteResult::Written);
        QCOMPARE(run({u"--verify"_s, path, u"--normal-priority"_s}).code, int(BackupCommands::Different));
        QVERIFY(QFile::remove(manifest));
        const Answer loaded = run({u"--verify"_s, path, u"--normal-priority"_s});
        QCOMPARE(loaded.code, int(BackupCommands::Done));
        QCOMPARE(loaded.result, u"loaded, but it has no manifest to compare it with: 1 tables, 500 rows"_s);
    }

    void backupWhileTheOfficeIsOpen()
    {
        InstanceLock lock(folder());
        QVERIFY(lock.acquire());
        EmbeddedServer server(folder(), PrivateTestServer::options());
        server.start();
        // As cron has it, whose session has no runtime folder, or one of its own.
        const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
        qputenv("XDG_RUNTIME_DIR", file(u"elsewhere"_s).toUtf8());
        const Answer answer = run({u"--backup"_s, folder().backupsPath()});
        runtime.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", runtime);
        QVERIFY2(answer.code == BackupCommands::Done, qPrintable(answer.words));
        const QList<BackupFile> listed = BackupFiles::in(folder().backupsPath(), ServerOptions::databaseName());
        QCOMPARE(listed.size(), 1);
        QCOMPARE(answer.result, listed.constFirst().path());
        QVERIFY(server.isRunning());
        const Answer list = run({u"--list-backups"_s});
        QCOMPARE(list.code, int(BackupCommands::Done));
        QCOMPARE(list.result.split(u'\t').mid(2), (QStringList{u"not verified"_s, answer.result}));
        // But nothing takes the place of what others work on.
        const Answer refused = run({u"--restore"_s, answer.result});
        QCOMPARE(refused.code, int(BackupCommands::InUse));
        QVERIFY(refused.words.contains(folder().path()));
    }

    void restoringKeepsACopyOfWhatWas()
    {
        const QString path = file(u"mine.sql.zst"_s);
        QCOMPARE(run({u"--backup"_s, path}).code, int(BackupCommands::Done));
        {
            EmbeddedServer server(folder(), PrivateTestServer::options());
            server.start();
            KConnection(server.connectionSettings()).run(QByteArrayLiteral("DELETE FROM Persons WHERE iID > 7"));
        }
        const Answer answer = run({u"--restore"_s, path});
        QVERIFY2(answer.code == BackupCommands::Done, qPrintable(answer.words));
        QCOMPARE(persons(), u"500"_s);
        const QList<BackupFile> copies = BackupFiles::in(folder().backupsPath(), ServerOptions::databaseName());
        QCOMPARE(copies.size(), 1);
        QVERIFY(answer.result.endsWith(copies.constFirst().path()));
        QCOMPARE(run({u"--restore"_s, copies.constFirst().path()}).code, int(BackupCommands::Done));
        QCOMPARE(persons(), u"7"_s);
    }

    void folderThatDoesNotOpenIsRestored_data()
    {
        QTest::addColumn<QString>("harmed");
        QTest::newRow("the server does not start") << u"ibdata1"_s;
        QTest::newRow("a table cannot be read") << u"tzauto/Persons.ibd"_s;
        QTest::newRow("there is no database") << QString();
    }

    void folderThatDoesNotOpenIsRestored()
    {
        QFETCH(QString, harmed);
        const QString path = file(u"mine.sql.zst"_s);
        QCOMPARE(run({u"--backup"_s, path}).code, int(BackupCommands::Done));
        if (harmed.isEmpty())
            QVERIFY(QDir(folder().path()).removeRecursively());
        else
            QVERIFY(QFile::resize(folder().databasePath() + u'/' + harmed, 0));
        const Answer answer = run({u"--restore"_s, path});
        QVERIFY2(answer.code == BackupCommands::Done, qPrintable(answer.words));
        QCOMPARE(persons(), u"500"_s);
        const QStringList aside = QDir(folder().path()).entryList({u"database-damaged-*"_s}, QDir::Dirs);
        QCOMPARE(aside.size(), harmed.isEmpty() ? 0 : 1);
        for (const QString &each : aside)
            QVERIFY(answer.result.endsWith(each));
    }

    void encryptedBackup()
    {
        const QString secret = writeSecret("گذرواژه\n");
        const QString path = file(u"mine.sql.zst.enc"_s);
        QCOMPARE(run({u"--backup"_s, path, u"--passphrase-file"_s, secret}).code, int(BackupCommands::Done));
        QVERIFY(textOfBackup(path, u"گذرواژه"_s).contains("Persons"));
        QCOMPARE(run({u"--restore"_s, path, u"--passphrase-file"_s, u"-"_s}, "other\n").code, int(BackupCommands::WrongPassphrase));
        QCOMPARE(run({u"--verify"_s, path, u"--normal-priority"_s}).code, int(BackupCommands::WrongPassphrase));
        QCOMPARE(run({u"--verify"_s, path, u"--normal-priority"_s, u"--passphrase-file"_s, u"-"_s}, "گذرواژه\n").code, int(BackupCommands::Done));
        const Answer decrypted = run({u"--decrypt"_s, path, u"--output"_s, file(u"open.sql.zst"_s), u"--passphrase-file"_s, secret});
        QVERIFY2(decrypted.code == BackupCommands::Done, qPrintable(decrypted.words));
        QCOMPARE(textOfBackup(file(u"open.sql.zst"_s)), textOfBackup(path, u"گذرواژه"_s));
        QVERIFY(!(QFile::permissions(file(u"open.sql.zst"_s)) & (QFile::ReadGroup | QFile::ReadOther)));
        // The secret that others can read, and the name that does not say what is in the file.
        QVERIFY(QFile::setPermissions(secret, QFile::ReadOwner | QFile::ReadOther));
        QCOMPARE(run({u"--verify"_s, path, u"--normal-priority"_s, u"--passphrase-file"_s, secret}).code, int(BackupCommands::Failed));
        QVERIFY(QFile::setPermissions(secret, QFile::ReadOwner));
        QCOMPARE(run({u"--backup"_s, file(u"other.sql.zst"_s), u"--passphrase-file"_s, secret}).code, int(BackupCommands::WrongOptions));
    }

    void damagedBackupIsTold()
    {
        const QString path = file(u"mine.sql.zst"_s);
        QCOMPARE(run({u"--backup"_s, path}).code, int(BackupCommands::Done));
        QVERIFY(QFile::resize(path, QFileInfo(path).size() - 10));
        const Answer verified = run({u"--verify"_s, path, u"--normal-priority"_s});
        QCOMPARE(verified.code, int(BackupCommands::Different));
        QCOMPARE(verified.result, u"failed"_s);
        QVERIFY(verified.words.contains(path));
        QCOMPARE(run({u"--restore"_s, path}).code, int(BackupCommands::Different));
        QCOMPARE(persons(), u"500"_s);
    }

    void restoringGoesOnToTheLastMinuteOrToAMoment()
    {
        BinaryLog(folder()).setWanted(true);
        const QString path = file(u"mine.sql.zst"_s);
        QCOMPARE(run({u"--backup"_s, path}).code, int(BackupCommands::Done));
        const QDateTime deleted = addOneAndDelete();
        const auto moment = [](const QDateTime &time) { return u"%1 %2"_s.arg(shamsiText(time.date()), time.time().toString(u"HH:mm:ss"_s)); };
        // What a log does not know it does not make up.
        const Answer early = run({u"--restore"_s, path, u"--to"_s, moment(deleted.addYears(-1))});
        QCOMPARE(early.code, int(BackupCommands::Failed));
        QVERIFY2(early.words.contains(u"پیش از این پشتیبان"_s), qPrintable(early.words));
        QCOMPARE(persons(), u"401"_s);
        const Answer last = run({u"--restore"_s, path, u"--to"_s, u"now"_s});
        QVERIFY2(last.code == BackupCommands::Done && !last.words.contains(u"می‌توان تا"_s), qPrintable(last.words));
        QCOMPARE(persons(), u"401"_s);
        // From here on the log of then no longer leads up to now.
        const Answer again = run({u"--restore"_s, path, u"--to"_s, u"now"_s});
        QVERIFY2(again.code == BackupCommands::Partly && again.words.contains(u"می‌توان تا"_s), qPrintable(again.words));
        QCOMPARE(persons(), u"401"_s);
        const Answer late = run({u"--restore"_s, path, u"--to"_s, moment(deleted.addDays(1))});
        QVERIFY2(late.code == BackupCommands::Failed && late.words.contains(u"می‌توان تا"_s), qPrintable(late.words));
        QCOMPARE(persons(), u"401"_s);
        const Answer before = run({u"--restore"_s, path, u"--to"_s, deleted.toString(u"yyyy-MM-dd'T'HH:mm:ss"_s)});
        QVERIFY2(before.code == BackupCommands::Done, qPrintable(before.words));
        QCOMPARE(persons(), u"501"_s);
    }

    void folderThatIsNoOfficeStaysSo()
    {
        QVERIFY(QDir(folder().path()).removeRecursively());
        QCOMPARE(run({u"--backup"_s, file(u"mine.sql.zst"_s)}).code, int(BackupCommands::Failed));
        QVERIFY(!QFileInfo::exists(folder().path()));
        QVERIFY(!QFileInfo::exists(file(u"mine.sql.zst"_s)));
    }

    void optionsThatMakeNoSense_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("two commands") << u"--backup a --verify b"_s;
        QTest::newRow("decrypting to nowhere") << u"--decrypt a --passphrase-file b"_s;
        QTest::newRow("decrypting without a passphrase") << u"--decrypt a --output b"_s;
        QTest::newRow("output alone") << u"--output a"_s;
        QTest::newRow("priority without verifying") << u"--backup a --normal-priority"_s;
        QTest::newRow("passphrase alone") << u"--passphrase-file a"_s;
        QTest::newRow("moment alone") << u"--to now"_s;
        QTest::newRow("moment of a backup") << u"--backup a --to now"_s;
        QTest::newRow("moment on an office server") << u"--connect h/d --user u --password-file p --restore a --to now"_s;
        QTest::newRow("demo office") << u"--demo --list-backups"_s;
        QTest::newRow("office server without a password") << u"--connect h/d --user u --backup a"_s;
    }

    void optionsThatMakeNoSense()
    {
        QFETCH(QString, line);
        for (const bool persian : {false, true})
            QVERIFY(!HostOptions::parse(line.split(u' '), persian).error.isEmpty());
    }

    void wrongOptionsEndWithTheirOwnCode()
    {
        for (const QString &line : {u"--backup a --verify b"_s, u"--restore a --to yesterday"_s}) {
            const Answer answer = run(line.split(u' '));
            QCOMPARE(answer.code, int(BackupCommands::WrongOptions));
            QVERIFY(!answer.words.isEmpty());
        }
    }

    void officeServer()
    {
        PrivateTestServer shared;
        fill(shared.server());
        const KConnectionSettings settings = shared.server().connectionSettings();
        // A server without a network is reached by nobody: told, and nothing is written.
        const QString secret = writeSecret(settings.password.toUtf8());
        const Answer answer = run({u"--connect"_s, u"127.0.0.1:1/tzauto"_s, u"--user"_s, u"tzauto"_s, u"--password-file"_s, secret, u"--backup"_s, file(u"mine.sql.zst"_s)});
        QCOMPARE(answer.code, int(BackupCommands::Failed));
        QVERIFY(!QFileInfo::exists(file(u"mine.sql.zst"_s)));
    }
};

static const RegisteredTest<TestBackupCommands, QCoreApplication> registeredBackupCommands;
#include "TestBackupCommands.moc"
