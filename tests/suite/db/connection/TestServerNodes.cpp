// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KTransaction.h"
#include "tests/suite/db/records/RaisedCategory.h"
#include "tests/suite/db/records/SampleRecord.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

// Two lines to one server stand for two nodes that hold the same data.
class TestServerNodes : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    std::unique_ptr<FaultProxy> m_first;
    std::unique_ptr<FaultProxy> m_second;

    static KServerAddress addressOf(const FaultProxy &node) { return {node.settings().host, node.settings().port}; }
    // Where the next connection of this program leads to first.
    static KServerAddress inUse() { return {KConnection::settings(0).host, KConnection::settings(0).port}; }

private Q_SLOTS:
    void init()
    {
        KConnection::configure(0, m_database.settings());
        SampleRecord::createTable();
        m_first = std::make_unique<FaultProxy>(m_database.settings());
        m_second = std::make_unique<FaultProxy>(m_database.settings());
        KConnectionSettings settings = m_first->settings();
        settings.furtherNodes = {addressOf(*m_second)};
        KConnection::configure(0, settings);
    }
    void cleanup()
    {
        KConnection::configure(0, m_database.settings());
        m_first.reset();
        m_second.reset();
    }

    void firstNodeIsTakenAndKept()
    {
        connectionId();
        QCOMPARE(inUse(), addressOf(*m_first));
        m_second->setReachable(false);
        QCOMPARE(raisedCategory([] { connectionId(); }), std::nullopt);
    }

    void nextNodeIsTakenWhenOneIsGoneAndKeptWhenItComesBack()
    {
        connectionId();
        m_first->setReachable(false);
        QCOMPARE(raisedCategory([] { connectionId(); }), Category::ConnectionLost);
        addSample(u"a"_s);
        QCOMPARE(inUse(), addressOf(*m_second));
        m_first->setReachable(true);
        KConnection::closeThreadConnections();
        connectionId();
        QCOMPARE(inUse(), addressOf(*m_second));
    }

    void otherThreadsGoWhereThisOneWent()
    {
        m_first->setReachable(false);
        connectionId();
        m_first->setReachable(true);
        std::optional<KServerAddress> theirs;
        std::thread([&] {
            connectionId();
            theirs = inUse();
        }).join();
        QCOMPARE(theirs, addressOf(*m_second));
    }

    void silentNodeIsPassedOver()
    {
        m_first->setSilent(true);
        connectionId();
        QCOMPARE(inUse(), addressOf(*m_second));
    }

    void withoutAnyNodeTheConnectionIsLost()
    {
        m_first->setReachable(false);
        m_second->setReachable(false);
        QCOMPARE(raisedCategory([] { connectionId(); }), Category::ConnectionLost);
    }

    void wrongPasswordIsAskedOfOneNodeOnly()
    {
        KConnectionSettings wrong = KConnection::settings(0);
        wrong.password = u"guess"_s;
        KConnection connection(wrong);
        unsigned int code = 0;
        try {
            connection.run(QByteArrayLiteral("SELECT 1"));
        } catch (const CMySQLException &error) {
            code = error.serverCode();
        }
        QCOMPARE(code, 1045U);
        QCOMPARE(inUse(), addressOf(*m_first));
    }

    // The node that was to commit is gone: the other one knows what became of it.
    void outcomeIsAskedOfTheNextNode()
    {
        m_database.run(u"CREATE OR REPLACE TABLE UnitTokens(sToken VARCHAR(36) PRIMARY KEY,dateCreate DATETIME,bRefused TINYINT NOT NULL DEFAULT 0) ENGINE=InnoDB"_s);
        KTableSchema::forgetAll();
        connectionId();
        m_first->failAtCommit(FaultProxy::Fault::CutAfterCommit, false);
        addSample(u"a"_s);
        QCOMPARE(inUse(), addressOf(*m_second));
        QCOMPARE(m_database.value(u"SELECT COUNT(*) FROM Samples"_s), u"1"_s);
    }
};

static const RegisteredTest<TestServerNodes, QCoreApplication> registeredServerNodes;

#include "TestServerNodes.moc"
