// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/ProfitAndLoss.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

class TestProfitAndLoss : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void profitIsWhatIsLeftOfTheSale_data()
    {
        QTest::addColumn<double>("sold");
        QTest::addColumn<double>("purchase");
        QTest::addColumn<double>("expenses");
        QTest::addColumn<double>("notaryCost");
        QTest::addColumn<double>("notaryRemaining");
        QTest::addColumn<double>("expected");
        QTest::newRow("sold 1,000, purchase 700, expenses 50, notary cost 20, notary remaining 10 gives 220")
            << 1000.0 << 700.0 << 50.0 << 20.0 << 10.0 << 220.0;
        QTest::newRow("a sale below the purchase price is a loss") << 600.0 << 700.0 << 0.0 << 0.0 << 0.0 << -100.0;
        QTest::newRow("nothing entered") << 0.0 << 0.0 << 0.0 << 0.0 << 0.0 << 0.0;
        QTest::newRow("sold alone") << 9e9 << 0.0 << 0.0 << 0.0 << 0.0 << 9e9;
        QTest::newRow("purchase alone") << 0.0 << 5.0 << 0.0 << 0.0 << 0.0 << -5.0;
        QTest::newRow("expenses alone") << 0.0 << 0.0 << 5.0 << 0.0 << 0.0 << -5.0;
        QTest::newRow("the notary's cost is subtracted") << 0.0 << 0.0 << 0.0 << 5.0 << 0.0 << -5.0;
        QTest::newRow("and what remains of it as well") << 0.0 << 0.0 << 0.0 << 5.0 << 5.0 << -10.0;
        QTest::newRow("even") << 775.0 << 700.0 << 50.0 << 20.0 << 5.0 << 0.0;
    }

    void profitIsWhatIsLeftOfTheSale()
    {
        QFETCH(double, sold);
        QFETCH(double, purchase);
        QFETCH(double, expenses);
        QFETCH(double, notaryCost);
        QFETCH(double, notaryRemaining);
        QFETCH(double, expected);
        QCOMPARE(profitAndLoss({sold, purchase, expenses, notaryCost, notaryRemaining}), expected);
    }
};

static const RegisteredTest<TestProfitAndLoss, QCoreApplication> registeredProfitAndLoss;

#include "TestProfitAndLoss.moc"
