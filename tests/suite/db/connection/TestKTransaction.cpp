// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/suite/db/records/RaisedCategory.h"
#include "tests/suite/db/records/SampleRecord.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include "suite/db/connection/KTransaction.h"

#include <QCoreApplication>
#include <QTest>

#include <functional>
#include <future>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

class TestKTransaction : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    static void setAmount(int key, int amount)
    {
        CTblTemp statement;
        statement.Open(false, false, true);
        statement.FormatAndExecuteQuery("UPDATE Samples SET dAmount=%d WHERE iID=%d", amount, key);
    }

    void createTokens()
    {
        m_database.run(u"CREATE OR REPLACE TABLE UnitTokens(sToken VARCHAR(36) PRIMARY KEY,dateCreate DATETIME,bRefused TINYINT NOT NULL DEFAULT 0) ENGINE=InnoDB"_s);
        KTableSchema::forgetAll();
    }
    int tokens() { return m_database.value(u"SELECT COUNT(*) FROM UnitTokens"_s).toInt(); }
    int rows() { return m_database.value(u"SELECT COUNT(*) FROM Samples"_s).toInt(); }

    // What the conflicting side does: it holds one row, then asks for the other.
    struct Rival
    {
        std::promise<void> holds;
        std::thread thread;

        void hold(int key, int then)
        {
            thread = std::thread([this, key, then] {
                KTransaction transaction;
                setAmount(key, 2);
                // The side that has written less is the victim of a deadlock.
                CTblTemp statement;
                statement.Open(false, false, true);
                statement.ExecuteQuery("INSERT INTO Samples(sName) SELECT seq FROM seq_1_to_100", true, true);
                holds.set_value();
                setAmount(then, 2);
                transaction.commit();
            });
            holds.get_future().wait();
        }
        ~Rival()
        {
            if (thread.joinable())
                thread.join();
        }
    };

private Q_SLOTS:
    void init() { SampleRecord::createTable(); }
    void cleanup()
    {
        KConnection::closeThreadConnections();
        m_database.run(u"DROP TABLE IF EXISTS UnitTokens"_s);
        KTableSchema::forgetAll();
    }

    void connectionLostWithinATransactionDoesNotComeBackInTheMiddle()
    {
        const int id = connectionId();
        {
            KTransaction transaction;
            addSample(u"first"_s);
            killConnection(id);
            QCOMPARE(raisedCategory([&] { addSample(u"second"_s); }), Category::ConnectionLost);
            QCOMPARE(raisedCategory([&] { addSample(u"third"_s); }), Category::ConnectionLost);
            QCOMPARE(raisedCategory([&] { transaction.commit(); }), Category::ConnectionLost);
        }
        SampleRecord record;
        record.Open(true, true, true);
        QCOMPARE(record.GetRecordsCount(), 0);
    }

    // Whoever waits in vain has not been rolled back, so that waiting again would only take longer.
    void lockWaitHasItsCategory()
    {
        const qint32 key = addSample(u"a"_s);
        KTransaction holder;
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.FormatAndExecuteQuery("UPDATE Samples SET dAmount=1 WHERE iID=%d", key);
        std::optional<Category> category;
        std::thread([&] {
            category = raisedCategory([&] {
                CTblTemp other;
                other.Open(false, false, true);
                other.ExecuteQuery("SET SESSION innodb_lock_wait_timeout=1", true, true);
                other.FormatAndExecuteQuery("UPDATE Samples SET dAmount=2 WHERE iID=%d", key);
            });
        }).join();
        QCOMPARE(category, Category::LockWait);
    }

    // The server itself rolls a deadlock's victim back, whole. What ran after it would be saved on its own.
    void deadlockEndsTheTransactionAlsoForWhoeverPassesOverIt()
    {
        const qint32 mine = addSample(u"mine"_s);
        const qint32 theirs = addSample(u"theirs"_s);
        KTransaction transaction;
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.FormatAndExecuteQuery("UPDATE Samples SET dAmount=1 WHERE iID=%d", mine);
        std::promise<void> locked;
        std::thread other([&] {
            KTransaction heavier;
            CTblTemp statement;
            statement.Open(false, false, true);
            statement.FormatAndExecuteQuery("UPDATE Samples SET dAmount=2 WHERE iID=%d", theirs);
            // The side that has written less is the victim.
            statement.ExecuteQuery("INSERT INTO Samples(sName) SELECT seq FROM seq_1_to_100", true, true);
            locked.set_value();
            statement.FormatAndExecuteQuery("UPDATE Samples SET dAmount=2 WHERE iID=%d", mine);
            heavier.commit();
        });
        locked.get_future().wait();
        const auto category =
            raisedCategory([&] { temp.FormatAndExecuteQuery("UPDATE Samples SET dAmount=1 WHERE iID=%d", theirs); });
        other.join();
        QCOMPARE(category, Category::LockConflict);
        QCOMPARE(raisedCategory([&] { addSample(u"after"_s); }), Category::LockConflict);
        QCOMPARE(raisedCategory([&] { transaction.commit(); }), Category::LockConflict);
        SampleRecord record;
        record.m_filter = "sName='after'";
        std::thread([&] {
            record.Open(true, true, true);
            KConnection::closeThreadConnections();
        }).join();
        QCOMPARE(record.GetRecordsCount(), 0);
    }

    void transactionRollsBackUnlessCommitted()
    {
        {
            KTransaction transaction;
            addSample(u"a"_s);
        }
        {
            KTransaction transaction;
            addSample(u"b"_s);
            transaction.commit();
        }
        SampleRecord record;
        record.Open(true, true, true);
        QCOMPARE(record.GetRecordsCount(), 1);
        QCOMPARE(record.m_sName, u"b"_s);
    }

    void innerGuardThatIsNotCommittedDoomsTheWhole()
    {
        {
            KTransaction outer;
            addSample(u"a"_s);
            {
                KTransaction inner;
                addSample(u"b"_s);
            }
            QVERIFY(raisedCategory([&] { outer.commit(); }).has_value());
        }
        SampleRecord record;
        record.Open(true, true, true);
        QCOMPARE(record.GetRecordsCount(), 0);
    }

    void innerGuardJoinsTheOuterOne()
    {
        const ObservedStatements statements({u"START"_s, u"COMMIT"_s, u"ROLLBACK"_s});
        {
            KTransaction outer;
            {
                KTransaction inner;
                addSample(u"a"_s);
                inner.commit();
            }
            QVERIFY(KConnection::forThread().inTransaction());
            outer.commit();
        }
        QVERIFY(!KConnection::forThread().inTransaction());
        QCOMPARE(statements.taken(), (QStringList{u"START TRANSACTION"_s, u"COMMIT"_s}));
        QCOMPARE(rows(), 1);
    }

    void outerGuardThatIsNotCommittedTakesTheInnerOneBack()
    {
        {
            KTransaction outer;
            {
                KTransaction inner;
                addSample(u"a"_s);
                inner.commit();
            }
        }
        QCOMPARE(rows(), 0);
        KTransaction next;
        addSample(u"b"_s);
        next.commit();
        QCOMPARE(rows(), 1);
    }

    // What a session holds (locks by name, variables, its settings) is still there in the replay.
    void replayKeepsItsConnection()
    {
        const qint32 mine = addSample(u"mine"_s);
        const qint32 theirs = addSample(u"theirs"_s);
        CTblTemp session;
        session.Open(false, false, true);
        session.ExecuteQuery("SET @mark=7", true, true);
        const int connection = connectionId();
        QList<int> connections;
        QList<int> codes;
        Rival rival;
        KTransaction::runReplayable([&] {
            connections << connectionId();
            try {
                if (connections.size() == 1) {
                    setAmount(mine, 1);
                    rival.hold(theirs, mine);
                } else {
                    // Until the rival is done, so that the replay meets no conflict.
                    rival.thread.join();
                }
                setAmount(theirs, 1);
            } catch (const CMySQLException &error) {
                codes << int(error.serverCode());
                throw;
            }
        });
        QCOMPARE(codes, QList<int>{1213});
        QCOMPARE(connections, (QList<int>{connection, connection}));
        session.ExecuteQuery("SELECT @mark", true, true);
        QCOMPARE(session.GetLongFieldValue(0), 7);
        QCOMPARE(m_database.value(u"SELECT dAmount FROM Samples WHERE iID=%1"_s.arg(theirs)), u"1"_s);
    }

    void onlyALockConflictIsReplayed_data()
    {
        QTest::addColumn<std::function<void()>>("failure");
        QTest::newRow("duplicate key") << std::function<void()>([] { addSample(u"a"_s); });
        QTest::newRow("bad statement") << std::function<void()>([] { CTblTemp().ExecuteQuery("SELEKT 1", true, true); });
        QTest::newRow("lock wait") << std::function<void()>([] { throw CMySQLException(Category::LockWait, 1205, u"waited"_s); });
        QTest::newRow("lost connection") << std::function<void()>([] {
            killConnection(connectionId());
            addSample(u"b"_s);
        });
        QTest::newRow("an error of the work itself") << std::function<void()>([] { throw std::runtime_error("no"); });
    }

    void onlyALockConflictIsReplayed()
    {
        QFETCH(std::function<void()>, failure);
        int runs = 0;
        bool raised = false;
        try {
            KTransaction::runReplayable([&] {
                ++runs;
                addSample(u"a"_s);
                failure();
            });
        } catch (const std::exception &) {
            raised = true;
        }
        QVERIFY(raised);
        QCOMPARE(runs, 1);
        QCOMPARE(rows(), 0);
        QVERIFY(!KConnection::forThread().inTransaction());
    }

    void withinAnOuterTransactionWorkRunsOnce()
    {
        int inner = 0;
        int outer = 0;
        KTransaction::runReplayable([&] {
            ++outer;
            KTransaction::runReplayable([&] {
                ++inner;
                addSample(u"a"_s);
                if (outer == 1)
                    throw CMySQLException(Category::LockConflict, 1213, u"deadlock"_s);
            });
        });
        QCOMPARE(outer, 2);
        QCOMPARE(inner, 2);
        QCOMPARE(rows(), 1);
    }

    void replayableWorkRunsAgainAfterALockConflictFiveTimesAtMost_data()
    {
        QTest::addColumn<int>("conflicts");
        QTest::addColumn<int>("runs");
        QTest::addColumn<bool>("done");
        QTest::newRow("none") << 0 << 1 << true;
        QTest::newRow("two") << 2 << 3 << true;
        QTest::newRow("five") << 5 << 6 << true;
        QTest::newRow("six are too many") << 6 << 6 << false;
    }

    void replayableWorkRunsAgainAfterALockConflictFiveTimesAtMost()
    {
        QFETCH(int, conflicts);
        QFETCH(int, runs);
        QFETCH(bool, done);
        int run = 0;
        const auto category = raisedCategory([&] {
            KTransaction::runReplayable([&] {
                ++run;
                addSample(u"a"_s);
                if (run <= conflicts)
                    throw CMySQLException(Category::LockConflict, 1213, u"deadlock"_s);
            });
        });
        QCOMPARE(run, runs);
        QCOMPARE(!category.has_value(), done);
        SampleRecord record;
        record.Open(true, true, true);
        QCOMPARE(record.GetRecordsCount(), done ? 1 : 0);
    }

    void unitThatChangedRowsLeavesItsToken()
    {
        createTokens();
        KTransaction::runReplayable([] { addSample(u"a"_s); });
        QCOMPARE(tokens(), 1);
        // A single change is a unit as well.
        addSample(u"b"_s);
        setAmount(1, 5);
        QCOMPARE(tokens(), 3);
        KTransaction::runReplayable([] {
            SampleRecord record;
            record.Open(true, true, true);
        });
        {
            KTransaction givenUp;
            addSample(u"c"_s);
        }
        QCOMPARE(tokens(), 3);
    }

    void outcomeIsAskedByTheToken()
    {
        createTokens();
        addSample(u"a"_s);
        const QString saved = m_database.value(u"SELECT sToken FROM UnitTokens"_s);
        QCOMPARE(KTransaction::outcomeOf(saved), KTransaction::Outcome::Saved);
        QCOMPARE(KTransaction::outcomeOf(u"never"_s), KTransaction::Outcome::NotSaved);
        // Also where the first answer was lost, and only the row that it wrote is there.
        QCOMPARE(KTransaction::outcomeOf(u"never"_s), KTransaction::Outcome::NotSaved);
        // What was told to be unsaved cannot be saved any more.
        QCOMPARE(raisedCategory([&] { m_database.run(u"INSERT INTO UnitTokens(sToken,dateCreate) VALUES('never',NOW())"_s); }), Category::DuplicateKey);
    }

    // The server has not noticed yet that the connection is gone: nobody can say how it will end.
    void outcomeOfAnOpenTransactionIsUnknown()
    {
        createTokens();
        KConnectionSettings impatient = m_database.settings();
        impatient.lockWaitSeconds = 1;
        KConnection::configure(0, impatient);
        KTransaction open;
        CTblTemp statement;
        statement.Open(false, false, true);
        statement.ExecuteQuery("INSERT INTO UnitTokens(sToken,dateCreate) VALUES('open',NOW())", true, true);
        QCOMPARE(KTransaction::outcomeOf(u"open"_s), KTransaction::Outcome::Unknown);
    }

    void tokensOlderThanAWeekAreRemoved()
    {
        createTokens();
        m_database.run(u"INSERT INTO UnitTokens(sToken,dateCreate) VALUES('old',NOW()-INTERVAL 8 DAY),('new',NOW()-INTERVAL 6 DAY)"_s);
        KTransaction::removeOldTokens();
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(sToken) FROM UnitTokens"_s), u"new"_s);
    }

    void lockedRecordIsTheRowAsItIsNow()
    {
        const qint32 key = addSample(u"a"_s, 1);
        SampleRecord record;
        QCOMPARE(raisedCategory([&] { record.lockRecord(key); }), Category::Other);
        KTransaction transaction;
        // The transaction's own view of the table begins here.
        QVERIFY(record.IsRecordExist(u"iID"_s, key));
        std::thread([&] {
            setAmount(key, 2);
            KConnection::closeThreadConnections();
        }).join();
        QVERIFY(record.lockRecord(key));
        QCOMPARE(record.m_dAmount, 2.0);
        QVERIFY(!record.lockRecord(key + 1));
        QCOMPARE(record.m_dAmount, 0.0);
    }
};

static const RegisteredTest<TestKTransaction, QCoreApplication> registeredKTransaction;

#include "TestKTransaction.moc"
