// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KTransaction.h"
#include "suite/db/connection/KWaiter.h"
#include "tests/suite/db/records/RaisedCategory.h"
#include "tests/suite/db/records/SampleRecord.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QTest>

#include <mysql.h>

using namespace Qt::StringLiterals;

using Fault = FaultProxy::Fault;

// What a program is told when the line breaks at COMMIT.
class TestUnitOutcome : public QObject
{
    Q_OBJECT

    TestDatabase m_database;
    std::unique_ptr<FaultProxy> m_proxy;

    int rows()
    {
        KConnection direct(m_database.settings());
        const KConnection::Result found = direct.run(QByteArrayLiteral("SELECT COUNT(*) FROM Samples"));
        return QByteArray(mysql_fetch_row(found.get())[0]).toInt();
    }

private Q_SLOTS:
    void init()
    {
        KConnection::configure(0, m_database.settings());
        SampleRecord::createTable();
        m_database.run(u"CREATE OR REPLACE TABLE UnitTokens(sToken VARCHAR(36) PRIMARY KEY,dateCreate DATETIME,bRefused TINYINT NOT NULL DEFAULT 0) ENGINE=InnoDB"_s);
        KTableSchema::forgetAll();
        KConnectionSettings settings = m_database.settings();
        settings.lockWaitSeconds = 1;
        m_proxy = std::make_unique<FaultProxy>(settings);
        KConnection::configure(0, m_proxy->settings());
        KConnection::forThread().run(QByteArrayLiteral("SELECT 1"));
    }
    void cleanup()
    {
        KTransaction::setLookAgain({});
        m_proxy->setReachable(true);
        // Whatever a test left open is looked up here, so that the next one begins without.
        raisedCategory([] { KTransaction settled; });
        KConnection::configure(0, m_database.settings());
        m_proxy.reset();
    }

    void lineCutAtCommitIsLookedUp_data()
    {
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<bool>("saved");
        QTest::newRow("before the server gets it") << Fault::CutBeforeCommit << false;
        QTest::newRow("before its answer arrives") << Fault::CutAfterCommit << true;
    }

    // What was saved is told so, as if the answer had come; what was not can be saved by doing it again.
    void lineCutAtCommitIsLookedUp()
    {
        QFETCH(Fault, fault);
        QFETCH(bool, saved);
        m_proxy->failAtCommit(fault);
        const auto category = raisedCategory([] { addSample(u"a"_s); });
        QCOMPARE(category, saved ? std::nullopt : std::make_optional(Category::ConnectionLost));
        QCOMPARE(rows(), saved ? 1 : 0);
        if (!saved)
            addSample(u"a"_s);
        QCOMPARE(rows(), 1);
    }

    void whileNoServerAnswersTheQuestionIsAskedUntilOneDoes_data() { lineCutAtCommitIsLookedUp_data(); }

    void whileNoServerAnswersTheQuestionIsAskedUntilOneDoes()
    {
        QFETCH(Fault, fault);
        QFETCH(bool, saved);
        int questions = 0;
        KTransaction::setLookAgain([&] {
            if (++questions == 3)
                m_proxy->setReachable(true);
            return true;
        });
        m_proxy->failAtCommit(fault, false);
        const auto category = raisedCategory([] { addSample(u"a"_s); });
        QCOMPARE(questions, 3);
        QCOMPARE(category, saved ? std::nullopt : std::make_optional(Category::ConnectionLost));
        QCOMPARE(rows(), saved ? 1 : 0);
    }

    void outcomeLeftOpenIsLookedUpBeforeTheNextUnit_data() { lineCutAtCommitIsLookedUp_data(); }

    // The advised second try books once, whatever had become of the first.
    void outcomeLeftOpenIsLookedUpBeforeTheNextUnit()
    {
        QFETCH(Fault, fault);
        QFETCH(bool, saved);
        const auto save = [] { KTransaction::runReplayable([] { CTblTemp().ExecuteQuery("INSERT INTO Samples(sNote) VALUES('twice')"); }); };
        m_proxy->failAtCommit(fault, false);
        QCOMPARE(raisedCategory(save), Category::OutcomeUnknown);
        QCOMPARE(raisedCategory(save), Category::OutcomeUnknown);
        m_proxy->setReachable(true);
        QCOMPARE(raisedCategory(save), saved ? std::make_optional(Category::SavedAfterAll) : std::nullopt);
        QCOMPARE(rows(), 1);
        save();
        QCOMPARE(rows(), 2);
    }

    void workGoesOnWhileTheQuestionIsAsked()
    {
        std::optional<Category> meanwhile;
        KTransaction::setLookAgain([&] {
            m_proxy->setReachable(true);
            meanwhile = raisedCategory([] { connectionId(); });
            return true;
        });
        m_proxy->failAtCommit(Fault::CutAfterCommit, false);
        addSample(u"a"_s);
        QCOMPARE(meanwhile, std::nullopt);
    }

    void givingUpTheWaitForCommitLooksToo()
    {
        struct GivesUp : KWaiter
        {
            bool goOn(std::chrono::milliseconds) noexcept override { return false; }
            void ended() noexcept override { }
        } waiter;
        KConnection::setWaiter(&waiter);
        m_proxy->failAtCommit(Fault::SilentAfterCommit);
        const auto category = raisedCategory([] { addSample(u"a"_s); });
        KConnection::setWaiter(nullptr);
        QCOMPARE(category, std::nullopt);
        QCOMPARE(rows(), 1);
    }

    void unitThatChangedNothingHasNoOutcomeToLookUp()
    {
        m_proxy->failAtCommit(Fault::CutAfterCommit);
        QCOMPARE(raisedCategory([] { KTransaction::runReplayable([] { connectionId(); }); }), Category::ConnectionLost);
        QVERIFY(connectionId() > 0);
    }
};

static const RegisteredTest<TestUnitOutcome, QCoreApplication> registeredUnitOutcome;

#include "TestUnitOutcome.moc"
