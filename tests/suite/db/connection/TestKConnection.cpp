// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/suite/db/records/RaisedCategory.h"
#include "tests/suite/db/records/SampleRecord.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include "suite/db/connection/KTransaction.h"

#include <QCoreApplication>
#include <QTemporaryFile>
#include <QTest>

#include <atomic>
#include <future>
#include <mysql.h>
#include <thread>

using namespace Qt::StringLiterals;

class TestKConnection : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

private Q_SLOTS:
    void init() { SampleRecord::createTable(); }
    void cleanup() { KConnection::configure(0, m_database.settings()); }

    void lostConnectionEndsTheOperationAndTheNextOneConnectsAnew()
    {
        addSample(u"a"_s);
        killConnection(connectionId());
        SampleRecord record;
        QCOMPARE(raisedCategory([&] { record.Open(false, true, true); }), Category::ConnectionLost);
        QVERIFY(record.Open(false, true, true));
        QCOMPARE(record.GetRecordsCount(), 1);
    }

    void secondStatementAfterASemicolonIsNeverRun()
    {
        addSample(u"a"_s);
        CTblTemp temp;
        temp.Open(false, false, true);
        QCOMPARE(raisedCategory([&] { temp.ExecuteQuery("SELECT 1; DELETE FROM Samples", true, true); }), Category::BadStatement);
        SampleRecord record;
        record.Open(true, true, true);
        QCOMPARE(record.GetRecordsCount(), 1);
    }

    void onlyWhatChangesRowsCountsAsAChange_data()
    {
        QTest::addColumn<QByteArray>("statement");
        QTest::addColumn<int>("changes");
        QTest::newRow("read") << QByteArray("SELECT * FROM Samples") << 0;
        QTest::newRow("setting") << QByteArray("SET @a=1") << 0;
        QTest::newRow("added") << QByteArray("INSERT INTO Samples(sName) VALUES('b')") << 1;
        QTest::newRow("changed") << QByteArray("UPDATE Samples SET sNote='x'") << 1;
        QTest::newRow("nothing to change") << QByteArray("UPDATE Samples SET sName='a' WHERE iID=-1") << 0;
        QTest::newRow("deleted") << QByteArray("DELETE FROM Samples") << 1;
        QTest::newRow("nothing to delete") << QByteArray("DELETE FROM Samples WHERE iID=-1") << 0;
    }

    void onlyWhatChangesRowsCountsAsAChange()
    {
        QFETCH(QByteArray, statement);
        QFETCH(int, changes);
        addSample(u"a"_s);
        const quint64 before = KConnection::changes();
        KConnection::forThread().run(statement);
        QCOMPARE(KConnection::changes() - before, quint64(changes));
    }

    void eachThreadHasItsOwnConnection()
    {
        const int mine = connectionId();
        int theirs = 0;
        std::thread([&] { theirs = connectionId(); }).join();
        QVERIFY(theirs != 0);
        QVERIFY(mine != theirs);
        QCOMPARE(connectionId(), mine);
    }

    void connectionNeitherComesBackByItselfNorReadsLocalFiles()
    {
        MYSQL *handle = KConnection::forThread(0).handle();
        my_bool reconnects = 1;
        unsigned int readsFiles = 1;
        QCOMPARE(mysql_get_optionv(handle, MYSQL_OPT_RECONNECT, &reconnects), 0);
        QCOMPARE(mysql_get_optionv(handle, MYSQL_OPT_LOCAL_INFILE, &readsFiles), 0);
        QCOMPARE(int(reconnects), 0);
        QCOMPARE(readsFiles, 0U);
    }

    void sessionIsStrictAndSpeaksUtf8mb4()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("SELECT @@SESSION.sql_mode,@@SESSION.character_set_client,@@SESSION.character_set_results", true, true);
        QVERIFY(temp.GetTextFieldValue(0).contains(u"STRICT_TRANS_TABLES"_s));
        QVERIFY(!temp.GetTextFieldValue(0).contains(u"ONLY_FULL_GROUP_BY"_s));
        QCOMPARE(temp.GetTextFieldValue(1), u"utf8mb4"_s);
        QCOMPARE(temp.GetTextFieldValue(2), u"utf8mb4"_s);
    }

    void sessionJoinsWithoutABufferWhereTheServerHasOne()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("SELECT @@SESSION.join_cache_level", true, true);
        QCOMPARE(temp.GetLongFieldValue(0), 0);
    }

    void quotedTextComesBackAsItWas_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("quotes") << uR"('a' "b" `c`)"_s;
        QTest::newRow("backslashes") << uR"(\ \\ \n \')"_s;
        QTest::newRow("line ends") << u"a\r\nb\n"_s;
        QTest::newRow("a zero and the end of file") << u"a"_s + QChar(0) + u"b"_s + QChar(26);
        QTest::newRow("percent and underscore") << u"50% _"_s;
        QTest::newRow("a condition") << u"' OR '1'='1"_s;
        QTest::newRow("persian") << u"پژو ۲۰۶، «صندوق‌دار»"_s;
        QTest::newRow("above the basic plane") << u"خودرو 🚗"_s;
    }

    void quotedTextComesBackAsItWas()
    {
        QFETCH(QString, text);
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("SELECT " + KSql::quoted(text));
        QCOMPARE(temp.GetTextFieldValue(0), text);
    }

    void connectionThatStoodIdleIsAskedBeforeAPersonsOperation_data()
    {
        QTest::addColumn<int>("idleSeconds");
        QTest::addColumn<bool>("verify");
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("idle, asked") << 0 << true << true;
        QTest::newRow("idle, not asked") << 0 << false << false;
        QTest::newRow("used just now") << 30 << true << false;
    }

    void connectionThatStoodIdleIsAskedBeforeAPersonsOperation()
    {
        QFETCH(int, idleSeconds);
        QFETCH(bool, verify);
        QFETCH(bool, goesOn);
        KConnectionSettings settings = m_database.settings();
        settings.idleSeconds = idleSeconds;
        KConnection::configure(0, settings);
        const int killed = connectionId();
        killConnection(killed);
        SampleRecord record;
        const auto category = raisedCategory([&] { record.Open(verify, true, true); });
        QCOMPARE(category, goesOn ? std::nullopt : std::make_optional(Category::ConnectionLost));
        QVERIFY(connectionId() != killed);
    }

    void connectionThatAnswersIsKept()
    {
        KConnectionSettings settings = m_database.settings();
        settings.idleSeconds = 0;
        KConnection::configure(0, settings);
        const int id = connectionId();
        KConnection::forThread().verify();
        QCOMPARE(connectionId(), id);
    }

    void verifyingWithinATransactionNeverConnectsAnew()
    {
        KConnectionSettings settings = m_database.settings();
        settings.idleSeconds = 0;
        KConnection::configure(0, settings);
        KTransaction transaction;
        killConnection(connectionId());
        KConnection::forThread().verify();
        QCOMPARE(raisedCategory([] { connectionId(); }), Category::ConnectionLost);
        QCOMPARE(raisedCategory([] { connectionId(); }), Category::ConnectionLost);
    }

    void textsTravelAsUtf8mb4()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery("SELECT CHAR_LENGTH('پژو 🚗'),LENGTH('پژو 🚗'),CHARSET('پژو')");
        QCOMPARE(temp.GetLongFieldValue(0), 5);
        QCOMPARE(temp.GetLongFieldValue(1), 11);
        QCOMPARE(temp.GetTextFieldValue(2), u"utf8mb4"_s);
    }

    void whatAColumnCannotHoldIsRefusedAndNeverCut_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<int>("category");
        const auto row = [](const char *name, const char *values, Category category) {
            QTest::newRow(name) << u"INSERT INTO Samples(%1)"_s.arg(QString::fromUtf8(values)) << int(category);
        };
        row("text of eleven letters", "sName) VALUES('12345678901'", Category::ValueTooLong);
        row("flag above a byte", "bFlag) VALUES(300", Category::ValueTooLong);
        row("character outside the table's set", "sName) VALUES('🚗'", Category::BadCharacter);
        row("no date", "date) VALUES('2021-02-30'", Category::Other);
        row("text as a number", "iUserID) VALUES('five'", Category::BadCharacter);
        row("division by zero", "dAmount) VALUES(1/0", Category::Other);
    }

    void whatAColumnCannotHoldIsRefusedAndNeverCut()
    {
        QFETCH(QString, statement);
        QFETCH(int, category);
        CTblTemp temp;
        temp.Open(false, false, true);
        QCOMPARE(raisedCategory([&] { temp.ExecuteQuery(statement.toUtf8().constData(), true, false); }), Category(category));
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Samples"_s), u"0"_s);
    }

    void engineThatTheServerLacksIsAnError()
    {
        CTblTemp temp;
        temp.Open(false, false, true);
        QVERIFY(raisedCategory([&] { temp.ExecuteQuery("CREATE TABLE Away(iID INT) ENGINE=NoSuchEngine", true, false); }));
    }

    void columnOutsideTheGroupMayBeSelected()
    {
        addSample(u"a"_s, 3);
        CTblTemp temp;
        temp.Open(false, false, true);
        QCOMPARE(temp.ExecuteQuery("SELECT sName,MAX(dAmount) FROM Samples GROUP BY bFlag", true, true), 1);
        QCOMPARE(temp.GetTextFieldValue(0), u"a"_s);
    }

    void databaseWithoutSettingsIsAClearError()
    {
        QVERIFY(!KConnection::isConfigured(99));
        QCOMPARE(raisedCategory([] { KConnection::forThread(99); }), Category::ConnectionLost);
    }

    void serverThatIsNotThereIsALostConnection()
    {
        KConnectionSettings settings = m_database.settings();
        settings.socketPath += u".gone"_s;
        KConnection::configure(0, settings);
        QCOMPARE(raisedCategory([] { connectionId(); }), Category::ConnectionLost);
        KConnection::configure(0, m_database.settings());
        QVERIFY(connectionId() > 0);
    }

    void newSettingsReplaceTheConnectionsOfEveryThread()
    {
        std::promise<int> before;
        std::promise<void> configured;
        int after = 0;
        std::thread other([&] {
            before.set_value(connectionId());
            configured.get_future().wait();
            after = connectionId();
        });
        const int theirs = before.get_future().get();
        const int mine = connectionId();
        KConnection::configure(0, m_database.settings());
        configured.set_value();
        other.join();
        QVERIFY(after != theirs);
        QVERIFY(connectionId() != mine);
    }

    void streamedRowsComeOneByOne()
    {
        for (const char *name : {"a", "b", "c"})
            addSample(QString::fromLatin1(name));
        QByteArray names;
        {
            const KConnection::Result rows = KConnection::forThread().runStreaming("SELECT sName FROM Samples ORDER BY iID");
            while (MYSQL_ROW row = mysql_fetch_row(rows.get()))
                names += row[0];
        }
        QCOMPARE(names, QByteArray("abc"));
        QVERIFY(connectionId() > 0);
    }

    // A thread that looks for a server which is gone must leave the files of the others alone.
    void lookingForAServerThatIsGoneClosesNobodysFile()
    {
        QTemporaryFile file;
        QVERIFY(file.open() && file.write("a") == 1);
        file.close();
        std::atomic<bool> isOver = false;
        std::atomic<int> lost = 0;
        std::thread other([&, name = file.fileName()] {
            while (!isOver) {
                QFile read(name);
                char byte = 0;
                if (!read.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || read.read(&byte, 1) != 1)
                    ++lost;
            }
        });
        KConnectionSettings settings = m_database.settings();
        settings.socketPath += u".gone"_s;
        constexpr int often = 3000;
        int refused = 0;
        for (int attempt = 0; attempt < often; ++attempt) {
            try {
                KConnection(settings).run(QByteArrayLiteral("SELECT 1"));
            } catch (const CMySQLException &) {
                ++refused;
            }
        }
        isOver = true;
        other.join();
        QCOMPARE(refused, often);
        QCOMPARE(lost.load(), 0);
    }
};

static const RegisteredTest<TestKConnection, QCoreApplication> registeredKConnection;

#include "TestKConnection.moc"
