// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/figures/ContractSettlement.h"
#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestContractSettlement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setDefaultMoneyDecimals(0); }

    void restAndWordsFollowFromWhatIsChargedAndReceived_data()
    {
        QTest::addColumn<int>("decimals");
        QTest::addColumn<double>("charged");
        QTest::addColumn<double>("received");
        QTest::addColumn<double>("rest");
        QTest::addColumn<QString>("words");
        QTest::newRow("nothing received") << 0 << 1000.0 << 0.0 << 1000.0 << u"0٪"_s;
        QTest::newRow("half") << 0 << 1000.0 << 500.0 << 500.0 << u"50٪"_s;
        QTest::newRow("all") << 0 << 1000.0 << 1000.0 << 0.0 << u"تسویه"_s;
        QTest::newRow("more than all") << 0 << 1000.0 << 1200.0 << 0.0 << u"تسویه"_s;
        QTest::newRow("nearly all is not all") << 0 << 1000000.0 << 999999.0 << 1.0 << u"99٪"_s;
        QTest::newRow("nearly nothing is not nothing") << 0 << 1000000.0 << 1.0 << 999999.0 << u"1٪"_s;
        QTest::newRow("a third, rounded down") << 0 << 300.0 << 199.0 << 101.0 << u"66٪"_s;
        QTest::newRow("a fraction that nobody can pay") << 0 << 1000.4 << 1000.0 << 0.0 << u"تسویه"_s;
        QTest::newRow("the same, in a unit with decimals") << 2 << 1000.4 << 1000.0 << 0.4 << u"99٪"_s;
        QTest::newRow("rounded up") << 0 << 1000.5 << 1000.0 << 1.0 << u"99٪"_s;
        QTest::newRow("nothing to pay") << 0 << 0.0 << 0.0 << 0.0 << u"-"_s;
        QTest::newRow("nothing to pay and yet received") << 0 << 0.0 << 50.0 << 0.0 << u"-"_s;
        QTest::newRow("a discount above what is charged") << 0 << -10.0 << 0.0 << 0.0 << u"-"_s;
        QTest::newRow("paid back what was received") << 0 << 1000.0 << 0.0 << 1000.0 << u"0٪"_s;
        QTest::newRow("paid back more than was received") << 0 << 1000.0 << -100.0 << 1100.0 << u"0٪"_s;
        QTest::newRow("sums that a double holds inexactly") << 2 << 0.3 << 0.1 + 0.2 << 0.0 << u"تسویه"_s;
    }

    void restAndWordsFollowFromWhatIsChargedAndReceived()
    {
        QFETCH(int, decimals);
        QFETCH(double, charged);
        QFETCH(double, received);
        setDefaultMoneyDecimals(decimals);
        const ContractSettlement settlement{charged, received};
        QTEST(settlement.rest(), "rest");
        QTEST(settlement.inWords(), "words");
        QCOMPARE(settlement.isSettled(), settlement.inWords() == u"تسویه"_s);
    }
};

static const RegisteredTest<TestContractSettlement> registeredContractSettlement;
#include "TestContractSettlement.moc"
