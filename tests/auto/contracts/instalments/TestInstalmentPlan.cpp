// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentPlan.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

class TestInstalmentPlan : public QObject
{
    Q_OBJECT

    static InstalmentTerms terms(InterestMethod method)
    {
        return {1200, 1, RateUnit::Monthly, method, 12, 1, IntervalUnit::Months, ConvertToMiladi(1405, 1, 1)};
    }

private Q_SLOTS:
    void totalAndInstalment_data()
    {
        QTest::addColumn<double>("principal");
        QTest::addColumn<double>("rate");
        QTest::addColumn<bool>("yearly");
        QTest::addColumn<bool>("whole");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("interval");
        QTest::addColumn<bool>("days");
        QTest::addColumn<double>("total");
        QTest::addColumn<double>("instalment");
        QTest::newRow("بازاري: 1,200 in 12 months at 1 percent") << 1200. << 1. << false << true << 12 << 1 << false << 1344. << 112.;
        QTest::newRow("رأس: interest 78") << 1200. << 1. << false << false << 12 << 1 << false << 1278. << 106.5;
        QTest::newRow("a yearly rate of 12 equals a monthly rate of 1") << 1200. << 12. << true << true << 12 << 1 << false << 1344. << 112.;
        QTest::newRow("a yearly rate of 12 with رأس") << 1200. << 12. << true << false << 12 << 1 << false << 1278. << 106.5;
        QTest::newRow("30 days count as one month of interest") << 1200. << 1. << false << true << 12 << 30 << true << 1344. << 112.;
        QTest::newRow("15 days count as half a month") << 1200. << 1. << false << true << 12 << 15 << true << 1272. << 106.;
        QTest::newRow("three months per instalment") << 1200. << 1. << false << true << 4 << 3 << false << 1344. << 336.;
        QTest::newRow("three months per instalment with رأس") << 1200. << 1. << false << false << 4 << 3 << false << 1290. << 322.5;
        QTest::newRow("no interest") << 1000. << 0. << false << true << 3 << 1 << false << 1000. << 1000. / 3;
        QTest::newRow("one instalment") << 1000. << 2. << false << false << 1 << 1 << false << 1020. << 1020.;
    }

    void totalAndInstalment()
    {
        QFETCH(double, principal);
        QFETCH(double, rate);
        QFETCH(bool, yearly);
        QFETCH(bool, whole);
        QFETCH(int, count);
        QFETCH(int, interval);
        QFETCH(bool, days);
        QFETCH(double, total);
        QFETCH(double, instalment);
        const InstalmentPlan plan = instalmentPlan({principal, rate, yearly ? RateUnit::Yearly : RateUnit::Monthly,
                                                    whole ? InterestMethod::WholePrincipal : InterestMethod::DecliningPrincipal,
                                                    count, interval, days ? IntervalUnit::Days : IntervalUnit::Months,
                                                    ConvertToMiladi(1405, 1, 1)});
        QCOMPARE(plan.total, total);
        QVERIFY(qAbs(plan.interest - (total - principal)) < 1e-9);
        QCOMPARE(plan.instalments.size(), size_t(count));
        for (const Instalment &row : plan.instalments)
            QCOMPARE(row.amount, instalment);
    }

    void receivedAmountsAreThePlansSum_data()
    {
        QTest::addColumn<std::vector<double>>("instalments");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<std::vector<double>>("received");
        using Amounts = std::vector<double>;
        QTest::newRow("a third of a thousand") << Amounts(3, 1000. / 3) << 0 << Amounts{333, 333, 334};
        QTest::newRow("two thirds") << Amounts(3, 2000. / 3) << 0 << Amounts{667, 667, 666};
        QTest::newRow("two decimals") << Amounts(3, 1000. / 3) << 2 << Amounts{333.33, 333.33, 333.34};
        QTest::newRow("halves") << Amounts(12, 106.5) << 0 << Amounts{107, 107, 107, 107, 107, 107, 107, 107, 107, 107, 107, 101};
        QTest::newRow("whole amounts") << Amounts(3, 112) << 0 << Amounts{112, 112, 112};
        QTest::newRow("a sum with a fraction") << Amounts(2, 50.2) << 0 << Amounts{50, 50};
        QTest::newRow("less than one each") << Amounts(5, 0.6) << 0 << Amounts{1, 1, 1, 0, 0};
        QTest::newRow("one") << Amounts{1000. / 3} << 0 << Amounts{333};
        QTest::newRow("none") << Amounts{} << 0 << Amounts{};
    }

    void receivedAmountsAreThePlansSum()
    {
        QFETCH(std::vector<double>, instalments);
        QFETCH(int, decimals);
        QTEST(amountsToReceive(instalments, decimals), "received");
    }

    void manyReceivedAmountsAreThePlansSum()
    {
        const std::vector<double> plan(1200, 98'765'432'109. / 1200);
        double sum = 0;
        for (const double amount : amountsToReceive(plan, 0)) {
            QCOMPARE(amount, std::round(amount));
            sum += amount;
        }
        QCOMPARE(sum, 98'765'432'109.);
    }

    void dueDates_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<bool>("days");
        QTest::addColumn<int>("interval");
        QTest::addColumn<QStringList>("due");
        auto dates = [](std::initializer_list<const char *> texts) {
            QStringList list;
            for (const char *text : texts)
                list << QString::fromLatin1(text);
            return list;
        };
        QTest::newRow("first instalment falls one step after the start date")
            << u"1405/01/01"_s << false << 1 << dates({"1405/02/01", "1405/03/01"});
        QTest::newRow("three months move one Shamsi month per instalment")
            << u"1405/01/15"_s << false << 3 << dates({"1405/02/15", "1405/03/15", "1405/04/15"});
        QTest::newRow("last days of month 6 move by 31 days and skip into month 8")
            << u"1405/06/31"_s << false << 1 << dates({"1405/08/01"});
        QTest::newRow("thirtieth of month 6 stays in month 7")
            << u"1405/06/30"_s << false << 1 << dates({"1405/07/30", "1405/08/30"});
        QTest::newRow("month 12 of a leap year has 30 days")
            << u"1403/12/30"_s << false << 1 << dates({"1404/01/30", "1404/02/30"});
        QTest::newRow("month 12 of another year has 29 days")
            << u"1404/12/29"_s << false << 1 << dates({"1405/01/29"});
        QTest::newRow("month 11 into month 12 of another year")
            << u"1404/11/30"_s << false << 1 << dates({"1405/01/01", "1405/02/01"});
        QTest::newRow("month 11 into month 12 of a leap year")
            << u"1403/11/30"_s << false << 1 << dates({"1403/12/30", "1404/01/30"});
        QTest::newRow("30 days move by exactly 30 days")
            << u"1405/01/01"_s << true << 30 << dates({"1405/01/31", "1405/02/30", "1405/03/29"});
    }

    void dueDates()
    {
        QFETCH(QString, start);
        QFETCH(bool, days);
        QFETCH(int, interval);
        QFETCH(QStringList, due);
        InstalmentTerms wanted = terms(InterestMethod::WholePrincipal);
        wanted.start = parseShamsi(start);
        wanted.count = int(due.size());
        wanted.interval = interval;
        wanted.intervalUnit = days ? IntervalUnit::Days : IntervalUnit::Months;
        QStringList seen;
        for (const Instalment &row : instalmentPlan(wanted).instalments)
            seen << shamsiText(row.due);
        QCOMPARE(seen, due);
    }

    void termsAreLookedAtInOrder()
    {
        InstalmentTerms wrong;
        QCOMPARE(problemOf(wrong), InstalmentProblem::NoPrincipal);
        wrong.principal = -5;
        QCOMPARE(problemOf(wrong), InstalmentProblem::NoPrincipal);
        wrong.principal = 1;
        QCOMPARE(problemOf(wrong), InstalmentProblem::NoCount);
        wrong.count = 1;
        QCOMPARE(problemOf(wrong), InstalmentProblem::NoInterval);
        wrong.interval = 1;
        QCOMPARE(problemOf(wrong), InstalmentProblem::None);
    }
};

static const RegisteredTest<TestInstalmentPlan> registeredInstalmentPlan;
#include "TestInstalmentPlan.moc"
