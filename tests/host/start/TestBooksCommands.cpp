// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/EmbeddedServer.h"
#include "host/server/InstanceLock.h"
#include "host/start/BooksCommands.h"
#include "suite/accounting/books/totals/TotalsFolding.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/db/connection/KConnection.h"
#include "tests/support/PrivateTestServer.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// The program itself, started without any display.
class TestBooksCommands : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_place;
    std::unique_ptr<EmbeddedServer> m_server;

    DataFolder folder() const { return DataFolder(m_place->filePath(u"office"_s)); }

    void startServer()
    {
        m_server = std::make_unique<EmbeddedServer>(folder(), PrivateTestServer::options());
        m_server->start();
        KConnection::configure(0, m_server->connectionSettings());
    }
    void stopServer()
    {
        KConnection::closeThreadConnections();
        m_server.reset();
    }
    static void runSql(const QByteArray &statement) { KConnection::forThread().run(statement); }

    // Exit code, then the lines of the standard output.
    QStringList command(const QStringList &arguments)
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QString::fromLatin1(name));
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        program.setProcessEnvironment(environment);
        program.start(u"" TZ_HOST_PROGRAM ""_s, QStringList{u"--data-dir"_s, folder().path()} + arguments);
        if (!program.waitForFinished(180'000))
            return {u"it did not end"_s};
        const QString said = QString::fromUtf8(program.readAllStandardOutput()).trimmed();
        return QStringList{QString::number(program.exitCode())} + said.split(u'\n', Qt::SkipEmptyParts);
    }

private Q_SLOTS:
    void init()
    {
        m_place = std::make_unique<QTemporaryDir>();
        folder().create();
        startServer();
        SuiteSchema::upgrade();
        runSql("INSERT INTO Documents(iNum,iFiscalYear,iKind,date) VALUES(1,1405,3,'2026-05-05'),(2,1405,3,'2026-05-06')");
        runSql("INSERT INTO Docs(iDocNum,iFiscalYear,iHesabKolCode,iHesabMoeenCode,dBed,dBes) VALUES(1,1405,1101,110101,100,0),(1,1405,1102,110201,0,100),"
               "(2,1405,1101,110101,20,0),(2,1405,1102,110201,0,20)");
        TotalsFolding::fold();
    }
    void cleanup() { stopServer(); }

    void sumsThatAgree()
    {
        stopServer();
        QCOMPARE(command({u"--check-books"_s}), (QStringList{u"0"_s, u"the sums of accounts agree with the documents"_s}));
    }

    // Named, then mended, also beside a program that has the office open.
    void sumsThatDiffer_data()
    {
        QTest::addColumn<bool>("isOpen");
        QTest::newRow("the office is closed") << false;
        QTest::newRow("the office is open") << true;
    }
    void sumsThatDiffer()
    {
        QFETCH(bool, isOpen);
        runSql("UPDATE AccountTotals SET dBed=dBed+1 WHERE iDay=6 AND iHesabMoeenCode=110101");
        InstanceLock lock(folder());
        if (isOpen)
            QVERIFY(lock.acquire());
        else
            stopServer();
        const QString line = u"account 110101, 2026-05-06: kept 21.00 debit, 0.00 credit of 1 rows; the documents say 20.00 debit, 0.00 credit of 1 rows"_s;
        QCOMPARE(command({u"--check-books"_s}), (QStringList{QString::number(BooksCommands::Different), line, u"1 sums differ; --mend corrects them"_s}));
        QCOMPARE(command({u"--check-books"_s, u"--mend"_s}), (QStringList{u"0"_s, line, u"1 sums mended"_s}));
        QCOMPARE(command({u"--check-books"_s}).constFirst(), u"0"_s);
    }

    // The tables may not be there, and a command changes no schema.
    void anotherVersionOfTheDatabaseIsRefused()
    {
        CTblProperties::DBWriteSettingInt(u"Schema"_s, u"Suite"_s, 16);
        stopServer();
        QCOMPARE(command({u"--check-books"_s, u"--mend"_s}), QStringList{QString::number(BooksCommands::Failed)});
    }

    void folderWithoutAnOfficeIsRefused()
    {
        stopServer();
        m_place = std::make_unique<QTemporaryDir>();
        QCOMPARE(command({u"--check-books"_s}), QStringList{QString::number(BooksCommands::Failed)});
    }
};

static const RegisteredTest<TestBooksCommands, QCoreApplication> registeredBooksCommands;
#include "TestBooksCommands.moc"
