// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/suite/db/records/RaisedCategory.h"
#include "tests/suite/db/records/SampleRecord.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include "suite/db/connection/KReadAhead.h"
#include "suite/db/connection/KTransaction.h"

#include <QCoreApplication>
#include <QTest>

#include <mysql.h>
#include <thread>

using namespace Qt::StringLiterals;

// Several statements under way at once, on a line that is slow enough to tell one round trip from two.
class TestKConversation : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    std::unique_ptr<FaultProxy> m_line;

    static KConnection &connection() { return KConnection::forThread(0); }

    // Another desk, whose connection is its own.
    static void elsewhere(const QByteArray &statement) { (void)KConnection::forThread(1).run(statement); }

    static QByteArray text(const QByteArray &statement)
    {
        const KConnection::Result result = connection().run(statement);
        const MYSQL_ROW row = result ? mysql_fetch_row(result.get()) : nullptr;
        return row ? QByteArray(row[0]) : QByteArray();
    }

    static int answer(const QByteArray &statement) { return text(statement).toInt(); }

    static void run(const QByteArray &statement) { (void)connection().run(statement); }

    // The connection stands already, and its session is set up.
    template <class Work>
    int tripsOf(Work work)
    {
        answer("SELECT 1");
        const int before = m_line->trips();
        work();
        return m_line->trips() - before;
    }

    int rows() { return m_database.value(u"SELECT COUNT(*) FROM Samples"_s).toInt(); }
    int tokens() { return m_database.value(u"SELECT COUNT(*) FROM UnitTokens"_s).toInt(); }

private Q_SLOTS:
    void init()
    {
        KConnection::configure(1, m_database.settings());
        SampleRecord::createTable();
        m_database.run(u"CREATE OR REPLACE TABLE UnitTokens(sToken VARCHAR(36) PRIMARY KEY,dateCreate DATETIME,bRefused TINYINT NOT NULL DEFAULT 0) ENGINE=InnoDB"_s);
        KTableSchema::forgetAll();
        (void)KTableSchema::of(u"UnitTokens"_s, 0);
        m_line = std::make_unique<FaultProxy>(m_database.settings());
        m_line->setDelay(5);
        KConnection::configure(0, m_line->settings());
    }

    void cleanup()
    {
        KConnection::configure(0, m_database.settings());
        KConnection::closeThreadConnections();
        m_line.reset();
        m_database.run(u"DROP TABLE IF EXISTS UnitTokens"_s);
        KTableSchema::forgetAll();
    }

    void aStatementIsOneRoundTrip()
    {
        QCOMPARE(tripsOf([] { QCOMPARE(answer("SELECT 7"), 7); }), 1);
    }

    void aConnectionAndItsSessionAreCountedToo()
    {
        KConnection::closeThreadConnections();
        const int before = m_line->trips();
        QCOMPARE(answer("SELECT 7"), 7);
        QVERIFY(m_line->trips() - before > 2);
    }

    // The beginning is confirmed before anything is written; the token and what follows have no trip of their own.
    void aUnitThatWritesIsThreeRoundTrips()
    {
        QCOMPARE(tripsOf([] {
                     KTransaction unit;
                     run("INSERT INTO Samples(sName) VALUES('a')");
                     unit.commit();
                 }),
                 3);
        QCOMPARE(rows(), 1);
        QCOMPARE(tokens(), 1);
    }

    void aUnitThatReadsFirstBeginsWithIt()
    {
        QCOMPARE(tripsOf([] {
                     KTransaction unit;
                     QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 0);
                     run("INSERT INTO Samples(sName) VALUES('a')");
                     run("INSERT INTO Samples(sName) VALUES('b')");
                     unit.commit();
                 }),
                 4);
        QCOMPARE(rows(), 2);
        QCOMPARE(tokens(), 1);
    }

    void aUnitThatAsksNothingIsNotBegun()
    {
        ObservedStatements statements({u"START"_s, u"COMMIT"_s, u"ROLLBACK"_s});
        QCOMPARE(tripsOf([] {
                     KTransaction kept;
                     kept.commit();
                     KTransaction leftAlone;
                 }),
                 0);
        QCOMPARE(statements.taken(), QStringList());
    }

    void whatFollowsGoesOutWithTheNextStatement()
    {
        QCOMPARE(tripsOf([] {
                     KTransaction unit;
                     connection().runFirst("INSERT INTO Samples(sName) VALUES('first')");
                     connection().follow("INSERT INTO Samples(sName) VALUES('behind')");
                     run("UPDATE Samples SET dAmount=1 WHERE sName='first'");
                     QCOMPARE(connection().affectedRows(), 1);
                     unit.commit();
                 }),
                 3);
        QCOMPARE(rows(), 2);
    }

    // Each answer belongs to its question, and the number of the new row to the statement that was run.
    void theKeyOfTheNewRowIsThatOfTheStatement()
    {
        KTransaction unit;
        connection().follow("INSERT INTO Samples(iID,sName) VALUES(900,'behind')");
        run("INSERT INTO Samples(iID,sName) VALUES(NULL,'own')");
        const quint64 key = connection().lastInsertedId();
        QCOMPARE(quint64(answer("SELECT iID FROM Samples WHERE sName='own'")), key);
        unit.commit();
    }

    void whatFollowsAndFailsFailsTheStatement()
    {
        {
            KTransaction unit;
            connection().follow("INSERT INTO NoSuchTable VALUES(1)");
            QCOMPARE(raisedCategory([] { run("INSERT INTO Samples(sName) VALUES('a')"); }), Category::BadStatement);
            // The answers behind it were heard all the same.
            QCOMPARE(answer("SELECT 11"), 11);
        }
        QCOMPARE(rows(), 0);
        QCOMPARE(tokens(), 0);
    }

    // The server goes on with what is on its way: where the statement met no row, failed, or ended the whole unit, that must do nothing.
    void whatFollowsAsksWhetherARowWasChanged_data()
    {
        QTest::addColumn<QByteArray>("statement");
        QTest::addColumn<int>("followed");
        QTest::newRow("changed") << QByteArray("UPDATE Samples SET dAmount=2 WHERE sName='mine'") << 1;
        QTest::newRow("met, and left as it is") << QByteArray("UPDATE Samples SET sName='mine' WHERE sName='mine'") << 1;
        QTest::newRow("met none") << QByteArray("UPDATE Samples SET dAmount=2 WHERE sName='nobody'") << 0;
        QTest::newRow("failed") << QByteArray("INSERT INTO Samples(iID,sName) SELECT iID,'twice' FROM Samples WHERE sName='mine'") << 0;
        QTest::newRow("ended the unit") << QByteArray("SIGNAL SQLSTATE '40001' SET MYSQL_ERRNO=1213") << 0;
    }

    void whatFollowsAsksWhetherARowWasChanged()
    {
        QFETCH(QByteArray, statement);
        QFETCH(int, followed);
        run("INSERT INTO Samples(sName) VALUES('mine')");
        try {
            KTransaction unit;
            QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 1);
            connection().follow("INSERT INTO Samples(sName) SELECT 'behind' FROM DUAL WHERE " + KConnection::whereChanged());
            connection().run(statement);
            unit.commit();
        } catch (const CMySQLException &) {
            QCOMPARE(followed, 0);
        }
        QCOMPARE(rows(), 1 + followed);
    }

    // By a real deadlock: the server ends the unit of one of the two, and what that one sent along would stand alone.
    void whatFollowsAStatementThatADeadlockEndedDoesNothing()
    {
        run("INSERT INTO Samples(sName) VALUES('a'),('b')");
        KConnection other(m_database.settings());
        other.run(QByteArray("START TRANSACTION"));
        // The heavier of the two is kept.
        for (int row = 0; row < 20; ++row)
            other.run("INSERT INTO Samples(sName) VALUES('heavy" + QByteArray::number(row) + "')");
        other.run(QByteArray("UPDATE Samples SET dAmount=1 WHERE sName='a'"));
        std::optional<Category> raised;
        {
            KTransaction unit;
            run("UPDATE Samples SET dAmount=2 WHERE sName='b'");
            std::thread waits([&other] { other.run(QByteArray("UPDATE Samples SET dAmount=1 WHERE sName='b'")); });
            QTest::qWait(200);
            connection().follow("INSERT INTO Samples(sName) SELECT 'behind' FROM DUAL WHERE " + KConnection::whereChanged());
            raised = raisedCategory([] { run("UPDATE Samples SET dAmount=2 WHERE sName='a'"); });
            waits.join();
        }
        other.run(QByteArray("ROLLBACK"));
        QVERIFY(raised == Category::LockConflict);
        QCOMPARE(answer("SELECT COUNT(*) FROM Samples WHERE sName='behind'"), 0);
        QCOMPARE(rows(), 2);
    }

    // One that is never sent takes along what was to follow it.
    void whatFollowsAStatementThatWasNotSentIsForgotten()
    {
        {
            KTransaction unit;
            run("INSERT INTO Samples(sName) VALUES('a')");
            KConnection::closeThreadConnections();
            connection().follow("INSERT INTO Samples(sName) VALUES('behind')");
            QVERIFY(raisedCategory([] { run("INSERT INTO Samples(sName) VALUES('b')"); }));
        }
        QCOMPARE(answer("SELECT 61"), 61);
        QCOMPARE(rows(), 0);
    }

    void aUnitFailsWithAReadThatWasSentAhead()
    {
        const KReadAhead reading;
        KTransaction unit;
        KReadAhead::expect(QByteArray("SELECT * FROM NoSuchTable FOR UPDATE"));
        QCOMPARE(raisedCategory([] { answer("SELECT 71"); }), Category::BadStatement);
    }

    void whatIsExpectedBehindAWriteIsReadAfterIt()
    {
        const KReadAhead reading;
        QCOMPARE(tripsOf([] {
                     KTransaction unit;
                     KReadAhead::expectBehind("SELECT COUNT(*) FROM Samples");
                     connection().runFirst("INSERT INTO Samples(sName) VALUES('a')");
                     QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 1);
                     KReadAhead::expectBehind("SELECT COUNT(*) FROM Samples");
                     run("INSERT INTO Samples(sName) VALUES('b')");
                     run("INSERT INTO Samples(sName) VALUES('c')");
                     QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 3);
                     unit.commit();
                 }),
                 5);
    }

    void aFailedStatementLeavesTheOthersAnswersInOrder()
    {
        const KReadAhead reading;
        KReadAhead::expect(QByteArray("SELECT 21"));
        KReadAhead::expect(QByteArray("SELECT * FROM NoSuchTable"));
        KReadAhead::expect(QByteArray("SELECT 22"));
        QCOMPARE(raisedCategory([] { run("SELECT * FROM NoSuchTableEither"); }), Category::BadStatement);
        QCOMPARE(answer("SELECT 22"), 22);
        QCOMPARE(answer("SELECT 21"), 21);
        QCOMPARE(raisedCategory([] { run("SELECT * FROM NoSuchTable"); }), Category::BadStatement);
    }

    void whatIsExpectedGoesOutWithTheNextStatement()
    {
        QCOMPARE(tripsOf([] {
                     const KReadAhead reading;
                     KReadAhead::expect(QByteArray("SELECT 31"));
                     KReadAhead::expect(QByteArray("SELECT 32"));
                     QCOMPARE(answer("SELECT 30"), 30);
                     QCOMPARE(answer("SELECT 32"), 32);
                     QCOMPARE(answer("SELECT 31"), 31);
                 }),
                 1);
    }

    void anAnswerIsUsedOnce()
    {
        const KReadAhead reading;
        KReadAhead::expect(QByteArray("SELECT COUNT(*) FROM Samples"));
        answer("SELECT 1");
        QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 0);
        elsewhere("INSERT INTO Samples(sName) VALUES('theirs')");
        QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 1);
    }

    void nothingIsReadAheadWithoutOne()
    {
        ObservedStatements statements({u"SELECT"_s});
        KReadAhead::expect(QByteArray("SELECT 41"));
        answer("SELECT 40");
        QCOMPARE(statements.taken(), QStringList(u"SELECT 40"_s));
    }

    // A read that goes out among a unit's writes would be out of date with the next of them; behind its COMMIT it is not.
    void whatIsExpectedWaitsForTheEndOfAUnit()
    {
        const KReadAhead reading;
        QCOMPARE(tripsOf([] {
                     KTransaction unit;
                     KReadAhead::expect(QByteArray("SELECT COUNT(*) FROM Samples"));
                     run("INSERT INTO Samples(sName) VALUES('a')");
                     unit.commit();
                     QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 1);
                 }),
                 3);
    }

    void aWriteMakesReadAheadForgotten()
    {
        const KReadAhead reading;
        KReadAhead::expect(QByteArray("SELECT COUNT(*) FROM Samples"));
        answer("SELECT 1");
        run("INSERT INTO Samples(sName) VALUES('a')");
        QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 1);
    }

    // What a unit decides by is read in it.
    void aUnitReadsAnew()
    {
        const KReadAhead reading;
        KReadAhead::expect(QByteArray("SELECT COUNT(*) FROM Samples"));
        answer("SELECT 1");
        elsewhere("INSERT INTO Samples(sName) VALUES('theirs')");
        KTransaction unit;
        QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 1);
        unit.commit();
    }

    void theEndOfReadingForgets()
    {
        {
            const KReadAhead reading;
            KReadAhead::expect(QByteArray("SELECT COUNT(*) FROM Samples"));
            answer("SELECT 1");
        }
        elsewhere("INSERT INTO Samples(sName) VALUES('theirs')");
        QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 1);
    }

    // From then on a user decides, and another desk may be quicker.
    void aWindowEndsReadingAhead()
    {
        const KReadAhead reading;
        KReadAhead::expect(QByteArray("SELECT COUNT(*) FROM Samples"));
        answer("SELECT 1");
        KReadAhead::endAll();
        elsewhere("INSERT INTO Samples(sName) VALUES('theirs')");
        QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 1);
        // Nor does the window inherit it.
        KReadAhead::expect(QByteArray("SELECT 51"));
        QCOMPARE(tripsOf([] { answer("SELECT 51"); }), 1);
    }

    void whatIsReadBehindACommitSeesWhatItSaved()
    {
        const KReadAhead reading;
        QCOMPARE(tripsOf([] {
                     KTransaction unit;
                     run("INSERT INTO Samples(sName) VALUES('a')");
                     KReadAhead::expect(QByteArray("SELECT COUNT(*) FROM Samples"));
                     KReadAhead::expect(QByteArray("SELECT COUNT(*)+1 FROM Samples"));
                     unit.commit();
                     QCOMPARE(answer("SELECT COUNT(*) FROM Samples"), 1);
                     QCOMPARE(answer("SELECT COUNT(*)+1 FROM Samples"), 2);
                 }),
                 3);
    }

    // It is saved by then.
    void aCommitStandsWhateverIsReadBehindIt()
    {
        const KReadAhead reading;
        KTransaction unit;
        run("INSERT INTO Samples(sName) VALUES('a')");
        KReadAhead::expect(QByteArray("SELECT * FROM NoSuchTable"));
        KReadAhead::expect(QByteArray("SELECT 81"));
        unit.commit();
        QCOMPARE(rows(), 1);
        QCOMPARE(answer("SELECT 81"), 81);
        QCOMPARE(raisedCategory([] { run("SELECT * FROM NoSuchTable"); }), Category::BadStatement);
    }

    // More than the line holds while nobody reads: neither side may wait for the other for ever.
    void answersLargerThanTheLineArrive()
    {
        const KReadAhead reading;
        for (int part = 0; part < 6; ++part)
            KReadAhead::expect("SELECT REPEAT('" + QByteArray::number(part) + "',3000000)");
        for (int part = 5; part >= 0; --part) {
            const QByteArray whole = text("SELECT REPEAT('" + QByteArray::number(part) + "',3000000)");
            QCOMPARE(whole.size(), 3000000);
            QCOMPARE(whole.count(char('0' + part)), 3000000);
        }
    }

    void statementsTooLargeForOnePacketStillArrive()
    {
        const QByteArray padding(20000, 'x');
        const KReadAhead reading;
        for (int part = 0; part < 5; ++part)
            KReadAhead::expect("SELECT " + QByteArray::number(part) + "/*" + padding + "*/");
        for (int part = 0; part < 5; ++part)
            QCOMPARE(answer("SELECT " + QByteArray::number(part) + "/*" + padding + "*/"), part);
    }

    void aLineCutAmongAnswersLosesNoneThatCount()
    {
        const QByteArray killsItself = "KILL CONNECTION_ID()";
        {
            KTransaction unit;
            run("INSERT INTO Samples(sName) VALUES('a')");
            connection().follow("INSERT INTO Samples(sName) VALUES('b')");
            QVERIFY(raisedCategory([&] { run(killsItself); }) == CMySQLException::Category::ConnectionLost);
            QVERIFY(raisedCategory([] { run("INSERT INTO Samples(sName) VALUES('c')"); }) == CMySQLException::Category::ConnectionLost);
        }
        QCOMPARE(rows(), 0);
        QCOMPARE(answer("SELECT 51"), 51);
    }

    void aLineCutAtCommitIsSettledByTheToken_data()
    {
        QTest::addColumn<FaultProxy::Fault>("fault");
        QTest::addColumn<int>("saved");
        QTest::newRow("before it arrived") << FaultProxy::Fault::CutBeforeCommit << 0;
        QTest::newRow("after it was done") << FaultProxy::Fault::CutAfterCommit << 1;
    }

    void aLineCutAtCommitIsSettledByTheToken()
    {
        QFETCH(FaultProxy::Fault, fault);
        QFETCH(int, saved);
        m_line->failAtCommit(fault);
        const auto work = [] {
            KTransaction unit;
            run("INSERT INTO Samples(sName) VALUES('a')");
            unit.commit();
        };
        if (saved != 0)
            work();
        else
            QVERIFY(raisedCategory(work) == CMySQLException::Category::ConnectionLost);
        QCOMPARE(rows(), saved);
    }

    // The beginning is sent with the first statement, so a connection that went stale before it costs nothing.
    void aConnectionLostBeforeTheFirstStatementComesBack()
    {
        answer("SELECT 1");
        KTransaction unit;
        KConnection::closeThreadConnections();
        run("INSERT INTO Samples(sName) VALUES('a')");
        unit.commit();
        QCOMPARE(rows(), 1);
        QCOMPARE(tokens(), 1);
    }

    // The desk that removes them must not wait for a unit that is open elsewhere.
    void oldTokensGoPastThoseOfOpenUnits()
    {
        m_database.run(u"INSERT INTO UnitTokens(sToken,dateCreate) VALUES('old',NOW()-INTERVAL 8 DAY),('young',NOW())"_s);
        KTransaction unit;
        run("INSERT INTO Samples(sName) VALUES('a')");
        std::thread([] {
            KTransaction::removeOldTokens(1);
            KConnection::closeThreadConnections();
        }).join();
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(sToken) FROM UnitTokens WHERE sToken IN ('old','young')"_s), u"young"_s);
        unit.commit();
        QCOMPARE(tokens(), 2);
    }
};

static const RegisteredTest<TestKConversation, QCoreApplication> registeredConversation;

#include "TestKConversation.moc"
