// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupFiles.h"
#include "host/backup/BackupRestoring.h"
#include "host/backup/BackupTaking.h"
#include "host/server/Platform.h"
#include "host/server/ServerDamage.h"
#include "host/server/ServerLog.h"
#include "host/server/WayBack.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

QString valueFrom(const EmbeddedServer &server, const char *statement)
{
    KConnection connection(server.connectionSettings());
    const KConnection::Result result = connection.run(QByteArray(statement));
    return QString::fromUtf8(mysql_fetch_row(result.get())[0]);
}

}

// Files of a real server that are overwritten, cut off and removed. Each is named, with the backup and the way to it, and no start makes
// anything worse: that way leads to the rows of the backup.
class TestServerDamage : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_whole;   // an office that ended cleanly, with a dump
    std::unique_ptr<QTemporaryDir> m_crashed; // and one whose server was killed
    std::unique_ptr<QTemporaryDir> m_temporary;

    DataFolder folder() const { return DataFolder(m_temporary->filePath(u"office"_s)); }
    QString inDatabase(const QString &file) const { return folder().databasePath() + u'/' + file; }

    static void copyTree(const QString &from, const QString &to)
    {
        QVERIFY(QDir().mkpath(to));
        QDirIterator files(from, QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString target = to + path.mid(from.size());
            if (files.fileInfo().isDir())
                QVERIFY(QDir().mkpath(target));
            else
                QVERIFY2(QFile::copy(path, target), qPrintable(path));
        }
    }

    void fill(EmbeddedServer &server)
    {
        KConnection connection(server.connectionSettings());
        connection.run(QByteArrayLiteral("CREATE TABLE Persons(iID INT NOT NULL AUTO_INCREMENT PRIMARY KEY, sName VARCHAR(200)) ENGINE=InnoDB"));
        connection.run(QByteArrayLiteral("INSERT INTO Persons(sName) SELECT REPEAT('x',150) FROM seq_1_to_5000"));
        connection.run(QByteArrayLiteral("CREATE TABLE Receipts(iID INT NOT NULL AUTO_INCREMENT PRIMARY KEY, dAmount DOUBLE) ENGINE=InnoDB"));
        connection.run(QByteArrayLiteral("INSERT INTO Receipts(dAmount) VALUES(1),(2),(3)"));
    }

    void use(const QTemporaryDir &original)
    {
        m_temporary = std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate());
        copyTree(original.filePath(u"office"_s), folder().path());
        // The journal of what the copied office's last server said is not this one's.
        QFile::remove(folder().serverLogPath());
    }

    QString dump() const { return QDir(folder().backupsPath()).entryList({u"*.sql.zst"_s}).constLast(); }

    // What the files under the database hold, by their names.
    QMap<QString, QByteArray> contents() const
    {
        QMap<QString, QByteArray> all;
        QDirIterator files(folder().databasePath(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly))
                all.insert(file.fileName().mid(folder().databasePath().size() + 1), QCryptographicHash::hash(file.readAll(), QCryptographicHash::Md5));
        }
        return all;
    }

    enum Harm {
        Removed,
        Emptied,
        CutOff,
        BeginningOverwritten,
        MiddleOverwritten,
        Overwritten
    };

    void harm(const QString &path, Harm harm)
    {
        if (QFileInfo(path).isDir()) {
            QVERIFY(QDir(path).removeRecursively());
            return;
        }
        QFile file(path);
        if (harm == Removed) {
            QVERIFY2(file.remove(), qPrintable(path));
            return;
        }
        QVERIFY2(file.open(QIODevice::ReadWrite), qPrintable(path));
        const qint64 size = file.size();
        constexpr qint64 page = 16384;
        switch (harm) {
        case Emptied:
            QVERIFY(file.resize(0));
            return;
        case CutOff:
            QVERIFY(file.resize(qMin(size / 3, 12 * page)));
            return;
        case BeginningOverwritten:
            file.write(QByteArray(qMin(size, page), '\xde'));
            return;
        case MiddleOverwritten:
            QVERIFY(file.seek(8 * page + 100));
            file.write(QByteArray(200, '\xde'));
            return;
        default:
            file.write(QByteArray(qMin<qint64>(size, 8 << 20), '\xde'));
        }
    }

    ServerError refusal(EmbeddedServer &server)
    {
        try {
            server.start();
        } catch (const ServerError &error) {
            return error;
        }
        return {ServerError::Kind::Cancelled, u"it started"_s};
    }

    void saysTheWay(const QString &message)
    {
        QVERIFY2(message.contains(dump()), qPrintable(message));
        QVERIFY2(message.contains(u"tzhost --data-dir "_s), qPrintable(message));
        QVERIFY2(message.contains(folder().path()), qPrintable(message));
    }

    // As the command of the message does.
    void goesBack()
    {
        const BackupFile newest = BackupFiles::in(folder().backupsPath(), ServerOptions::databaseName()).constFirst();
        const QString damaged = BackupRestoring::intoNewFolder(folder(), newest, {}, {}, PrivateTestServer::options());
        QVERIFY(QFileInfo(damaged).isDir());
        EmbeddedServer server(folder(), PrivateTestServer::options());
        server.start();
        QCOMPARE(valueFrom(server, "SELECT COUNT(*) FROM Persons"), u"5000"_s);
        QCOMPARE(valueFrom(server, "SELECT SUM(dAmount) FROM Receipts"), u"6"_s);
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (auto *original : {&m_whole, &m_crashed}) {
            *original = std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate());
            EmbeddedServer server(DataFolder((*original)->filePath(u"office"_s)), PrivateTestServer::options());
            server.start();
            fill(server);
            static_cast<void>(BackupTaking(server.connectionSettings()).take({server.folder().backupsPath()}));
            const qint64 process = server.processId();
            if (original == &m_crashed) {
                platform::forceStop(process);
                QTRY_VERIFY(!platform::isAlive(process));
            }
        }
    }

    void cleanup() { KConnection::closeThreadConnections(); }

    void fileWithoutWhichNoServerStarts_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("harm");
        QTest::addColumn<bool>("crashed");
        QTest::addColumn<QString>("named");
        const auto row = [](const char *name, const QString &file, Harm harm, const QString &named, bool crashed = false) {
            QTest::newRow(name) << file << int(harm) << crashed << named;
        };
        const QString system = u"ibdata1"_s;
        row("system file removed", system, Removed, system);
        row("system file removed after a crash", system, Removed, system, true);
        row("system file emptied", system, Emptied, system);
        row("system file cut off", system, CutOff, system);
        row("system file's beginning overwritten", system, BeginningOverwritten, system);
        row("system file overwritten", system, Overwritten, system);
        const QString redo = u"ib_logfile0"_s;
        row("redo log removed", redo, Removed, redo);
        row("redo log removed after a crash", redo, Removed, redo, true);
        row("redo log emptied", redo, Emptied, redo);
        row("redo log's beginning overwritten", redo, BeginningOverwritten, redo);
        row("redo log's beginning overwritten after a crash", redo, BeginningOverwritten, redo, true);
        row("redo log overwritten", redo, Overwritten, redo);
        row("accounts' data removed", u"mysql/global_priv.MAD"_s, Removed, u"mysql/global_priv.MAD"_s);
        row("accounts' data overwritten", u"mysql/global_priv.MAD"_s, Overwritten, u"mysql/global_priv.MAD"_s);
        row("accounts' index removed", u"mysql/global_priv.MAI"_s, Removed, u"mysql/global_priv.MAI"_s);
        row("accounts' index overwritten", u"mysql/global_priv.MAI"_s, Overwritten, u"mysql"_s);
        row("accounts' definition removed", u"mysql/global_priv.frm"_s, Removed, u"mysql"_s);
        row("rights' index overwritten", u"mysql/db.MAI"_s, Overwritten, u"mysql"_s);
        row("system tables removed", u"mysql"_s, Removed, u"database"_s);
        row("system log's control file overwritten", u"aria_log_control"_s, Overwritten, u"aria_log_control"_s);
        row("system log's control file emptied", u"aria_log_control"_s, Emptied, u"aria_log_control"_s);
        row("system log overwritten", u"aria_log.00000001"_s, Overwritten, u"aria_log.00000001"_s);
        row("system log emptied", u"aria_log.00000001"_s, Emptied, u"aria_log.00000001"_s);
        row("office's tables removed", u"tzauto"_s, Removed, u"database/tzauto"_s);
        row("office's tables removed after a crash", u"tzauto"_s, Removed, u"database/tzauto"_s, true);
    }

    void fileWithoutWhichNoServerStarts()
    {
        QFETCH(QString, file);
        QFETCH(int, harm);
        QFETCH(bool, crashed);
        QFETCH(QString, named);
        use(crashed ? *m_crashed : *m_whole);
        this->harm(inDatabase(file), static_cast<Harm>(harm));
        const auto before = contents();
        EmbeddedServer server(folder(), PrivateTestServer::options());
        const ServerError error = refusal(server);
        QCOMPARE(error.kind(), ServerError::Kind::Damaged);
        QVERIFY2(error.userMessage().contains(named), qPrintable(error.userMessage()));
        saysTheWay(error.userMessage());
        // No table has changed, and nothing has been made anew beside what is left of it.
        const auto after = contents();
        for (auto each = before.begin(); each != before.end(); ++each) {
            if (each.key().startsWith(u"tzauto/"_s) || each.key() == file)
                QVERIFY2(after.value(each.key()) == each.value(), qPrintable(each.key()));
        }
        QCOMPARE(after.contains(u"ibdata1"_s), before.contains(u"ibdata1"_s));
        QCOMPARE(after.contains(u"ib_logfile0"_s), before.contains(u"ib_logfile0"_s));
        if (harm == Removed && file == u"ibdata1"_s)
            goesBack();
    }

    // The server recovers what a crash left half written, from the redo log.
    void tableOfACrashedServerIsRecovered()
    {
        use(*m_crashed);
        harm(inDatabase(u"tzauto/Persons.ibd"_s), MiddleOverwritten);
        EmbeddedServer server(folder(), PrivateTestServer::options());
        server.start();
        QCOMPARE(valueFrom(server, "SELECT COUNT(sName) FROM Persons"), u"5000"_s);
    }

    void systemLogIsPutAsideAndTheOfficeIsWhole_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("control file") << u"aria_log_control"_s;
        QTest::newRow("log") << u"aria_log.00000001"_s;
    }

    // As the message about these says.
    void systemLogIsPutAsideAndTheOfficeIsWhole()
    {
        QFETCH(QString, file);
        use(*m_whole);
        harm(inDatabase(file), Overwritten);
        EmbeddedServer server(folder(), PrivateTestServer::options());
        QVERIFY(refusal(server).userMessage().contains(u"aria_log"_s));
        for (const QString &log : QDir(folder().databasePath()).entryList({u"aria_log*"_s}))
            QVERIFY(QFile::rename(inDatabase(log), folder().path() + u'/' + log));
        server.start();
        QCOMPARE(valueFrom(server, "SELECT COUNT(*) FROM Persons"), u"5000"_s);
    }

    void damagedTable_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("harm");
        const QString rows = u"tzauto/Persons.ibd"_s;
        QTest::newRow("rows removed") << rows << int(Removed);
        QTest::newRow("rows emptied") << rows << int(Emptied);
        QTest::newRow("rows cut off") << rows << int(CutOff);
        QTest::newRow("beginning overwritten") << rows << int(BeginningOverwritten);
        QTest::newRow("middle overwritten") << rows << int(MiddleOverwritten);
        QTest::newRow("all overwritten") << rows << int(Overwritten);
        QTest::newRow("definition overwritten") << u"tzauto/Persons.frm"_s << int(BeginningOverwritten);
        QTest::newRow("definition removed") << u"tzauto/Persons.frm"_s << int(Removed);
        QTest::newRow("definition emptied") << u"tzauto/Persons.frm"_s << int(Emptied);
    }

    // The server starts, and the other tables can be used.
    void damagedTable()
    {
        QFETCH(QString, file);
        QFETCH(int, harm);
        use(*m_whole);
        this->harm(inDatabase(file), static_cast<Harm>(harm));
        EmbeddedServer server(folder(), PrivateTestServer::options());
        server.start();
        try {
            valueFrom(server, "SELECT SUM(LENGTH(sName)) FROM Persons");
            QFAIL("the table is not damaged");
        } catch (const CMySQLException &) {
        }
        QCOMPARE(valueFrom(server, "SELECT SUM(dAmount) FROM Receipts"), u"6"_s);
        try {
            static_cast<void>(BackupTaking(server.connectionSettings()).take({folder().backupsPath()}));
            QFAIL("a damaged table was dumped");
        } catch (const ServerError &error) {
            QCOMPARE(error.kind(), ServerError::Kind::Damaged);
            QVERIFY2(error.userMessage().contains(u"اشخاص"_s), qPrintable(error.userMessage()));
        }
        const QString message = ServerDamage::ofTable(u"Persons"_s).message(folder());
        QVERIFY(message.contains(u"«اشخاص»"_s));
        saysTheWay(message);
        server.stop();
        if (harm == Removed || file.endsWith(u"frm"_s))
            goesBack();
    }

    void wordsOfTheServer_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("file");
        QTest::newRow("a server that starts well") << u"[Note] InnoDB: Initializing buffer pool\n[Note] ready for connections"_s << QString();
        QTest::newRow("undo file") << u"[ERROR] InnoDB: Unable to open undo tablespace './undo002'."_s << u"undo002"_s;
        QTest::newRow("table read while it was used")
            << u"[ERROR] InnoDB: Failed to read page 20 from file './tzauto/Docs.ibd': Page read from tablespace is corrupted."_s
            << u"tzauto/Docs.ibd"_s;
        QTest::newRow("table that the redo log needs")
            << u"[ERROR] InnoDB: Cannot apply log to [page id: space=5, page number=0] of corrupted file './tzauto/Docs.ibd'\n"
               "[ERROR] InnoDB: Plugin initialization aborted with error Data structure corruption"_s
            << u"tzauto/Docs.ibd"_s;
        QTest::newRow("cut redo log")
            << u"[ERROR] InnoDB: The log was only scanned up to 112236, while the current LSN at the time of the latest checkpoint 44404 was 2928546!"_s
            << u"ib_logfile0"_s;
        QTest::newRow("system file and redo log together")
            << u"[ERROR] InnoDB: redo log file './ib_logfile0' exists. Creating system tablespace with existing redo log file is not recommended."_s
            << u"ibdata1"_s;
        QTest::newRow("unknown option") << u"[ERROR] unknown variable 'x=1'"_s << QString();
    }

    void wordsOfTheServer()
    {
        QFETCH(QString, words);
        QFETCH(QString, file);
        const std::optional<ServerDamage> damage = ServerDamage::in(words);
        QCOMPARE(damage ? damage->file : QString(), file);
    }

    void serverThatBreaksOffNamesTheTable()
    {
        use(*m_whole);
        folder().create();
        QFile log(folder().serverLogPath());
        QVERIFY(log.open(QIODevice::WriteOnly));
        log.write("[ERROR] InnoDB: File './tzauto/Persons.ibd' is corrupted\n[ERROR] mysqld got signal 6 ;\n");
        log.close();
        const ServerError error = ServerLog(folder()).error(ServerError::Kind::EndedUnexpectedly, u"it crashed"_s);
        QCOMPARE(error.kind(), ServerError::Kind::Damaged);
        QVERIFY(error.userMessage().contains(u"اشخاص"_s));
        saysTheWay(error.userMessage());
    }

    void withoutABackupTheFolderIsToBeKept()
    {
        use(*m_whole);
        QVERIFY(QDir(folder().backupsPath()).removeRecursively());
        for (const QString &message : {WayBack(folder()).sentences(), ServerDamage::ofTable(u"Persons"_s).message(folder())}) {
            QVERIFY(message.contains(u"نسخه پشتیبانی نیست"_s));
            QVERIFY(!message.contains(u"tzhost --"_s));
        }
    }

    void newestDumpsAreNamedWithTheirDates()
    {
        use(*m_whole);
        const QString taken = dump();
        for (const QString &stamp : {u"20200320-101500"_s, u"20990101-000000"_s, u"20240320-235900"_s, u"20230101-120000"_s}) {
            QFile dump(folder().backupsPath() + u"/tzauto-%1.sql"_s.arg(stamp));
            QVERIFY(dump.open(QIODevice::WriteOnly));
        }
        const QString text = WayBack(folder()).sentences();
        QVERIFY2(text.contains(u"1477/10/12 00:00"_s), qPrintable(text));
        QVERIFY(text.indexOf(u"tzauto-20990101-000000.sql"_s) < text.indexOf(taken));
        QVERIFY(text.contains(u"1403/01/01 23:59"_s));
        QVERIFY(!text.contains(u"20230101"_s));
        QVERIFY(WayBack(folder()).command().endsWith(u"tzauto-20990101-000000.sql"_s));
    }

    void commandTakesStrangeFolderNames()
    {
        m_temporary = std::make_unique<QTemporaryDir>(PrivateTestServer::folderTemplate());
        const DataFolder strange(m_temporary->filePath(u"دفتر it's $HOME"_s));
        strange.create();
        const QString dump = strange.backupsPath() + u"/tzauto-20260321-080000.sql.zst"_s;
        QFile file(dump);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QProcess terminal;
        terminal.start(u"sh"_s, {u"-c"_s, u"tzhost() { for each in \"$@\"; do echo \"$each\"; done; }\n"_s + WayBack(strange).command()});
        QVERIFY(terminal.waitForFinished(60000));
        QCOMPARE(QString::fromUtf8(terminal.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts),
                 (QStringList{u"--data-dir"_s, strange.path(), u"--restore"_s, dump}));
    }
};

static const RegisteredTest<TestServerDamage, QCoreApplication> registeredServerDamage;
#include "TestServerDamage.moc"
