// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/IncomeBars.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString otherIncome = u"other income"_s;
const QString otherExpenses = u"other expenses"_s;

// Accounts of these balances, debit above 0.
QList<IncomeAndExpenses::Account> accounts(int firstCode, const QList<double> &nets)
{
    QList<IncomeAndExpenses::Account> accounts;
    for (const double net : nets)
        accounts.append({AccountLevel::Moeen, firstCode++, u"name"_s, {net > 0 ? net : 0, net < 0 ? -net : 0}});
    return accounts;
}

IncomeBars bars(const QList<double> &income, const QList<double> &expenses)
{
    ComprehensiveReport report;
    report.income.accounts = accounts(410101, income);
    report.expenses.accounts = accounts(610101, expenses);
    return IncomeBars::of(report, otherIncome, otherExpenses);
}

QList<double> amounts(const IncomeBars &bars)
{
    QList<double> amounts;
    for (const IncomeBars::Bar &bar : bars.bars)
        amounts.append(bar.amount);
    return amounts;
}

}

class TestIncomeBars : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void largestFirstIncomeAboveExpenses()
    {
        const IncomeBars drawn = bars({-10, -30, -20}, {5, 7});
        QCOMPARE(amounts(drawn), (QList<double>{30, 20, 10, 7, 5}));
        QCOMPARE(drawn.bars.at(0).name, u"410102 - name"_s);
        QVERIFY(drawn.bars.at(2).isIncome);
        QVERIFY(!drawn.bars.at(3).isIncome);
        QCOMPARE(drawn.bars.at(3).name, u"610102 - name"_s);
    }

    void incomeInDebitAndExpensesInCreditAreBelowZero()
    {
        QCOMPARE(amounts(bars({40, -1}, {-50, 2})), (QList<double>{-40, 1, -50, 2}));
    }

    void whatDoesNotFitIsOneBarMore()
    {
        QList<double> income(IncomeBars::mostOfASide, -100);
        QCOMPARE(bars(income, {}).bars.size(), IncomeBars::mostOfASide);
        income << -3 << 1;
        const IncomeBars drawn = bars(income, {9});
        QCOMPARE(drawn.bars.size(), IncomeBars::mostOfASide + 2);
        const IncomeBars::Bar &rest = drawn.bars.at(IncomeBars::mostOfASide);
        QCOMPARE(rest.name, otherIncome);
        QCOMPARE(rest.amount, 2.0);
        QVERIFY(rest.isIncome);
        QCOMPARE(bars({}, QList<double>(7, 1)).bars.constLast().name, otherExpenses);
    }

    void barsAreCutWhereOneHidesTheOthers_data()
    {
        QTest::addColumn<QList<double>>("expenses"); // the first ones are cut
        QTest::addColumn<int>("cut");
        QTest::addColumn<double>("highest");
        QTest::newRow("one alone") << QList<double>{9e6} << 0 << 1e7;
        QTest::newRow("twenty times the next") << QList<double>{2000, 100} << 0 << 2000.;
        QTest::newRow("above twenty times the next") << QList<double>{2001, 100, 90} << 1 << 100.;
        QTest::newRow("a thousand times the next") << QList<double>{1e9, 1e6, 1e6} << 1 << 1e6;
        QTest::newRow("two of a kind above the others") << QList<double>{1e6, 9e5, 1000} << 2 << 1000.;
        QTest::newRow("small ones below those that are compared") << QList<double>{1e9, 1e6, 1} << 1 << 1e6;
    }

    void barsAreCutWhereOneHidesTheOthers()
    {
        QFETCH(QList<double>, expenses);
        QFETCH(int, cut);
        const IncomeBars drawn = bars({}, expenses);
        for (int i = 0; i < drawn.bars.size(); ++i)
            QCOMPARE(drawn.isCut(drawn.bars.at(i)), i < cut);
        QTEST(drawn.highest * drawn.unit, "highest");
    }

    void axis_data()
    {
        QTest::addColumn<QList<double>>("income");
        QTest::addColumn<double>("unit");
        QTest::addColumn<double>("lowest");
        QTest::addColumn<double>("highest");
        QTest::addColumn<double>("step");
        constexpr double million = 1e6;
        QTest::newRow("of no account is not empty") << QList<double>{} << 1. << 0. << 1. << 1.;
        QTest::newRow("of less than one has no step below one") << QList<double>{-0.4} << 1. << 0. << 1. << 1.;
        QTest::newRow("of one account") << QList<double>{-5000} << 1. << 0. << 5000. << 1000.;
        QTest::newRow("ends behind the largest") << QList<double>{-5001} << 1. << 0. << 6000. << 2000.;
        QTest::newRow("just below ten millions") << QList<double>{-9'999'999} << 1. << 0. << 10 * million << 2 * million;
        QTest::newRow("goes by millions from ten on") << QList<double>{-10'000'000} << million << 0. << 10. << 2.;
        QTest::newRow("below zero alone") << QList<double>{70'000'000} << million << -80. << 0. << 20.;
        QTest::newRow("on both sides of zero") << QList<double>{35'000'000, -70'000'000} << million << -50. << 100. << 50.;
    }

    void axis()
    {
        QFETCH(QList<double>, income);
        const IncomeBars drawn = bars(income, {});
        QTEST(drawn.unit, "unit");
        QTEST(drawn.lowest, "lowest");
        QTEST(drawn.highest, "highest");
        QTEST(drawn.step, "step");
    }
};

static const RegisteredTest<TestIncomeBars> registeredIncomeBars;
#include "TestIncomeBars.moc"
