// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KLongWork.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/connection/KWaiter.h"
#include "tests/suite/db/records/RaisedCategory.h"
#include "tests/suite/db/records/SampleRecord.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QTest>

#include <future>
#include <mysql.h>

using namespace Qt::StringLiterals;

namespace {

// Keeps what it was told, and gives up when it is told to.
class NotedWaits : public KWaiter
{
public:
    NotedWaits() { KConnection::setWaiter(this); }
    ~NotedWaits() override { KConnection::setWaiter(nullptr); }

    bool began() noexcept override
    {
        ++m_operations;
        return m_isOfOperations;
    }
    void slow() noexcept override { ++m_slow; }
    bool goOn(std::chrono::milliseconds waited) noexcept override
    {
        ++m_calls;
        m_last = waited;
        if (m_meanwhile)
            std::exchange(m_meanwhile, nullptr)();
        return waited < m_until;
    }
    void ended() noexcept override { ++m_ends; }

    bool m_isOfOperations = false;
    int m_operations = 0;
    int m_slow = 0;
    int m_calls = 0;
    int m_ends = 0;
    std::chrono::milliseconds m_last{0};
    std::chrono::milliseconds m_until = std::chrono::hours(1);
    std::function<void()> m_meanwhile;
};

void sleepOnServer(const char *seconds)
{
    KConnection::forThread().run(QByteArray("SELECT SLEEP(") + seconds + ')');
}

// Holds the row of a key until it is released.
class RowHeld
{
public:
    explicit RowHeld(qint32 key)
        : m_thread([this, key] {
            KTransaction transaction;
            KConnection::forThread().run("UPDATE Samples SET dAmount=7 WHERE iID=" + QByteArray::number(key));
            m_holds.set_value();
            m_released.get_future().wait();
        })
    {
        m_holds.get_future().wait();
    }
    ~RowHeld()
    {
        m_released.set_value();
        m_thread.join();
    }
    RowHeld(const RowHeld &) = delete;
    RowHeld &operator=(const RowHeld &) = delete;

private:
    std::promise<void> m_holds;
    std::promise<void> m_released;
    std::thread m_thread;
};

}

class TestServerWait : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    KConnectionSettings settings(int answerSeconds, int lockSeconds) const
    {
        KConnectionSettings settings = m_database.settings();
        settings.answerTimeoutSeconds = answerSeconds;
        settings.lockWaitSeconds = lockSeconds;
        return settings;
    }

    void createLeases()
    {
        m_database.run(u"CREATE OR REPLACE TABLE Leases(sName VARCHAR(100) PRIMARY KEY,sHolder VARCHAR(200) NOT NULL,"
                       "sText VARCHAR(200) CHARACTER SET utf8mb4,dateSeen DATETIME NOT NULL)"_s);
    }

private Q_SLOTS:
    void init()
    {
        KConnection::configure(0, m_database.settings());
        SampleRecord::createTable();
    }
    void cleanup()
    {
        KConnection::setIdentity({});
        KConnection::closeThreadConnections();
    }

    void whoeverWaitsIsToldAfterASecondAndAtTheEnd()
    {
        NotedWaits waits;
        sleepOnServer("0.5");
        QCOMPARE(waits.m_calls, 0);
        QCOMPARE(waits.m_slow, 1);
        QCOMPARE(waits.m_ends, 1);
        sleepOnServer("1.5");
        QVERIFY(waits.m_calls > 0);
        QVERIFY(waits.m_last >= std::chrono::seconds(1));
        QCOMPARE(waits.m_ends, 2);
    }

    // Each of its answers is there soon enough, all of them are not.
    void anOperationWaitsForAllItsAnswers()
    {
        NotedWaits waits;
        waits.m_isOfOperations = true;
        for (int statement = 0; statement < 3; ++statement)
            sleepOnServer("0.25");
        QCOMPARE(waits.m_operations, 1);
        QCOMPARE(waits.m_slow, 1);
        QCOMPARE(waits.m_calls, 0);
        for (int statement = 0; statement < 20; ++statement)
            sleepOnServer("0.05");
        QVERIFY(waits.m_calls > 1);
        QVERIFY(waits.m_last >= std::chrono::seconds(1));
        QCOMPARE(waits.m_ends, 0);
        KConnection::endOperation();
        QCOMPARE(waits.m_ends, 1);
        const int calls = waits.m_calls;
        sleepOnServer("0.25");
        QCOMPARE(waits.m_operations, 2);
        QCOMPARE(waits.m_calls, calls);
        KConnection::endOperation();
        QCOMPARE(waits.m_ends, 2);
        // Nothing was slow in this one.
        sleepOnServer("0");
        KConnection::endOperation();
        QCOMPARE(waits.m_ends, 2);
    }

    // What is asked about the outcome waits anew.
    void aFailureEndsTheOperation()
    {
        NotedWaits waits;
        waits.m_isOfOperations = true;
        waits.m_until = std::chrono::milliseconds(1200);
        QCOMPARE(raisedCategory([] { sleepOnServer("5"); }), Category::GivenUp);
        QCOMPARE(waits.m_ends, 1);
        sleepOnServer("0.05");
        QCOMPARE(waits.m_operations, 2);
        sleepOnServer("0.3");
        QCOMPARE(raisedCategory([] { KConnection::forThread().run(QByteArray("SELECT * FROM NoSuchTable")); }), Category::BadStatement);
        QCOMPARE(waits.m_ends, 2);
        sleepOnServer("0");
        QCOMPARE(waits.m_operations, 3);
    }

    void givenUpWaitCutsTheConnectionAndSavesNothing()
    {
        const qint32 key = addSample(u"a"_s);
        const int before = connectionId();
        const RowHeld held(key);
        NotedWaits waits;
        waits.m_until = std::chrono::milliseconds(1200);
        QCOMPARE(raisedCategory([&] {
                     KTransaction transaction;
                     addSample(u"b"_s);
                     KConnection::forThread().run("UPDATE Samples SET dAmount=1 WHERE iID=" + QByteArray::number(key));
                     transaction.commit();
                 }),
                 Category::GivenUp);
        QCOMPARE(waits.m_ends, 1);
        waits.m_until = std::chrono::hours(1);
        QVERIFY(connectionId() != before);
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Samples"_s), u"1"_s);
    }

    void statementBegunDuringAWaitIsRefusedAndTheWaitGoesOn()
    {
        NotedWaits waits;
        std::optional<Category> nested;
        bool wasWaiting = false;
        waits.m_meanwhile = [&] {
            wasWaiting = KConnection::isWaiting();
            nested = raisedCategory([] { connectionId(); });
        };
        const KConnection::Result rows = KConnection::forThread().run(QByteArrayLiteral("SELECT SLEEP(1.3),42"));
        QCOMPARE(QByteArray(mysql_fetch_row(rows.get())[1]), QByteArray("42"));
        QVERIFY(wasWaiting);
        QVERIFY(!KConnection::isWaiting());
        QCOMPARE(nested, Category::Other);
    }

    // The server's end, for one, is noticed while somebody waits for it, and closes all connections.
    void connectionClosedDuringAWaitIsLost_data()
    {
        QTest::addColumn<bool>("configured");
        QTest::newRow("closed") << false;
        QTest::newRow("replaced by other settings") << true;
    }

    void connectionClosedDuringAWaitIsLost()
    {
        QFETCH(bool, configured);
        NotedWaits waits;
        waits.m_meanwhile = [&] {
            if (configured)
                KConnection::configure(0, m_database.settings());
            KConnection::closeThreadConnections();
        };
        QCOMPARE(raisedCategory([] { sleepOnServer("20"); }), Category::ConnectionLost);
        QCOMPARE(waits.m_ends, 1);
        QVERIFY(connectionId() > 0);
    }

    void silentServerIsLostAfterItsTime()
    {
        FaultProxy proxy(settings(1, 5));
        KConnection::configure(0, proxy.settings());
        const int before = connectionId();
        proxy.setSilent(true);
        QCOMPARE(raisedCategory([] { connectionId(); }), Category::ConnectionLost);
        proxy.setSilent(false);
        QVERIFY(connectionId() != before);
    }

    void serverThatIsSilentWhileItIsConnectedToIsLostToo()
    {
        FaultProxy proxy(settings(30, 5));
        KConnectionSettings through = proxy.settings();
        through.connectTimeoutSeconds = 1;
        KConnection::configure(0, through);
        proxy.setSilent(true);
        QCOMPARE(raisedCategory([] { connectionId(); }), Category::ConnectionLost);
    }

    void idleConnectionToASilentServerIsLeftForANewOne()
    {
        FaultProxy proxy(settings(30, 5));
        KConnectionSettings through = proxy.settings();
        through.idleSeconds = 0;
        through.connectTimeoutSeconds = 1;
        KConnection::configure(0, through);
        connectionId();
        proxy.setSilent(true);
        KConnection::forThread().verify();
        QCOMPARE(raisedCategory([] { connectionId(); }), Category::ConnectionLost);
    }

    void longWorkMayTakeItsTimeAndAsksNobody()
    {
        KConnection::configure(0, settings(1, 1));
        KTransaction::runReplayable([] { addSample(u"a"_s); });
        NotedWaits waits;
        {
            const KLongWork work;
            sleepOnServer("1.5");
            QCOMPARE(m_database.value(u"SELECT @@lock_wait_timeout+@@innodb_lock_wait_timeout"_s), u"120"_s);
        }
        QCOMPARE(waits.m_calls, 0);
        QCOMPARE(m_database.value(u"SELECT @@lock_wait_timeout+@@innodb_lock_wait_timeout"_s), u"2"_s);
        QCOMPARE(raisedCategory([] { sleepOnServer("5"); }), Category::ConnectionLost);
    }

    void sessionWaitsFiveSecondsForALock()
    {
        QCOMPARE(m_database.value(u"SELECT CONCAT_WS('/',@@lock_wait_timeout,@@innodb_lock_wait_timeout)"_s), u"5/5"_s);
    }

    // A row that it locked would otherwise stay locked for as long as the server keeps its connection, which may be hours.
    void transactionOfAProgramThatIsCutOffEndsAfterTwoMinutes()
    {
        QCOMPARE(m_database.value(u"SELECT @@idle_transaction_timeout"_s), u"120"_s);
    }

    void lockWaitIsNeverReplayed()
    {
        const qint32 key = addSample(u"a"_s);
        KConnection::configure(0, settings(30, 1));
        const RowHeld held(key);
        int runs = 0;
        QCOMPARE(raisedCategory([&] {
                     KTransaction::runReplayable([&] {
                         ++runs;
                         KConnection::forThread().run("UPDATE Samples SET dAmount=1 WHERE iID=" + QByteArray::number(key));
                     });
                 }),
                 Category::LockWait);
        QCOMPARE(runs, 1);
    }

    void messageNamesWhoHoldsTheRow_data()
    {
        QTest::addColumn<QString>("identity");
        QTest::addColumn<QString>("named");
        QTest::newRow("as it introduced itself") << u"سارا، رایانه پذیرش"_s << u"سارا، رایانه پذیرش"_s;
        QTest::newRow("by account and computer") << QString() << m_database.settings().user + u"@localhost"_s;
    }

    void messageNamesWhoHoldsTheRow()
    {
        QFETCH(QString, identity);
        QFETCH(QString, named);
        createLeases();
        const qint32 key = addSample(u"a"_s);
        KConnection::configure(0, settings(30, 3));
        KConnection::setIdentity(identity);
        const RowHeld held(key);
        QString message;
        QCOMPARE(raisedCategory([&] {
                     KTransaction transaction;
                     KConnection::forThread().run("UPDATE Samples SET dAmount=1 WHERE iID=" + QByteArray::number(key));
                 },
                                nullptr, &message),
                 Category::LockWait);
        QVERIFY2(message.contains(named), qPrintable(message));
    }

    void introductionThatCannotBeMadeDoesNotStopTheUnit_data()
    {
        QTest::addColumn<bool>("locked");
        QTest::newRow("the table is locked by others") << true;
        QTest::newRow("there is no such table") << false;
    }

    void introductionThatCannotBeMadeDoesNotStopTheUnit()
    {
        QFETCH(bool, locked);
        createLeases();
        KConnection other(m_database.settings());
        other.run(locked ? QByteArray("LOCK TABLES Leases WRITE") : QByteArray("DROP TABLE Leases"));
        KConnection::configure(0, settings(30, 1));
        const int connection = connectionId();
        KConnection::setIdentity(u"سارا"_s);
        addSample(u"a"_s);
        QCOMPARE(connectionId(), connection);
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Samples"_s), u"1"_s);
    }

    void introductionsDoNotHeapUp()
    {
        createLeases();
        m_database.run(u"INSERT INTO Leases(sName,sHolder,dateSeen) VALUES('connection/old/1/1','',UTC_TIMESTAMP()-INTERVAL 8 DAY),"
                       "('upgrade','',UTC_TIMESTAMP()-INTERVAL 8 DAY)"_s);
        KConnection::setIdentity(u"سارا"_s);
        addSample(u"a"_s);
        addSample(u"b"_s);
        QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(sName) FROM Leases WHERE sText IS NULL"_s), u"upgrade"_s);
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Leases WHERE sText='سارا' AND sName LIKE 'connection/%'"_s), u"1"_s);
    }

    void waitForATableThatIsReadIsALockWaitToo()
    {
        KConnection::configure(0, settings(30, 1));
        addSample(u"a"_s);
        std::promise<void> reads;
        std::promise<void> done;
        std::thread reader([&] {
            KTransaction transaction;
            KConnection::forThread().run(QByteArrayLiteral("SELECT * FROM Samples"));
            reads.set_value();
            done.get_future().wait();
        });
        reads.get_future().wait();
        const auto category = raisedCategory(
            [] { KConnection::forThread().run(QByteArrayLiteral("ALTER TABLE Samples ADD COLUMN iMore INT")); });
        done.set_value();
        reader.join();
        QCOMPARE(category, Category::LockWait);
    }
};

static const RegisteredTest<TestServerWait, QCoreApplication> registeredServerWait;

#include "TestServerWait.moc"
