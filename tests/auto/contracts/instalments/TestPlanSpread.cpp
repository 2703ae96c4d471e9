// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/PlanSpread.h"

#include "auto/contracts/instalments/InstalmentPlan.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

using Amounts = std::vector<double>;

// A plan as it is calculated, with what was received for its instalments.
std::vector<PlanSpread::Row> rowsOf(double principal, double rate, int count, const Amounts &received, int decimals)
{
    const InstalmentPlan plan = instalmentPlan({principal, rate, RateUnit::Monthly, InterestMethod::WholePrincipal, count, 1,
                                                IntervalUnit::Months, ConvertToMiladi(1405, 1, 1)});
    Amounts amounts;
    for (const Instalment &instalment : plan.instalments)
        amounts.push_back(instalment.amount);
    const Amounts dues = amountsToReceive(amounts, decimals);
    std::vector<PlanSpread::Row> rows;
    for (std::size_t i = 0; i < dues.size(); ++i) {
        const double paid = i < received.size() ? std::min(received[i], dues[i]) : 0;
        rows.push_back({amounts[i], plan.interest / count, dues[i], dues[i] - paid});
    }
    return rows;
}

}

class TestPlanSpread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void amountsAreSpread_data()
    {
        QTest::addColumn<double>("before");
        QTest::addColumn<double>("rate");
        QTest::addColumn<int>("count");
        QTest::addColumn<Amounts>("received");
        QTest::addColumn<double>("principal");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<Amounts>("amounts");
        const auto row = [](const char *name, double before, double rate, int count, const Amounts &received, double principal, int decimals,
                            const Amounts &amounts) {
            QTest::newRow(name) << before << rate << count << received << principal << decimals << amounts;
        };
        row("nothing received, more", 1200, 0, 3, {}, 1500, 0, {500, 500, 500});
        row("nothing received, as calculated anew", 1200, 1, 12, {}, 2400, 0, Amounts(12, 224));
        row("a paid one stays", 1200, 0, 3, {400}, 1000, 0, {400, 300, 300});
        row("a partly paid one keeps its part", 1200, 0, 3, {400, 100}, 1550, 0, {400, 550, 600});
        row("interest grows with the rest", 1200, 1, 2, {612}, 1800, 0, {612, 1224});
        row("the same amount", 1200, 1, 12, {112, 50}, 1200, 0, Amounts(12, 112));
        row("the last carries the difference", 900, 0, 3, {}, 1000, 0, {333, 333, 334});
        row("two decimals", 900, 0, 3, {}, 1000, 2, {333.33, 333.33, 333.34});
        row("the largest carries it, not what is hardly open", 900, 0, 3, {0, 0, 299}, 1000, 0, {350, 350, 300});
        row("just what was received", 1200, 0, 3, {400, 100}, 500, 0, {400, 100, 0});
    }

    void amountsAreSpread()
    {
        QFETCH(double, before);
        QFETCH(double, rate);
        QFETCH(int, count);
        QFETCH(Amounts, received);
        QFETCH(double, principal);
        QFETCH(int, decimals);
        QFETCH(Amounts, amounts);
        const std::vector<PlanSpread::Row> rows = rowsOf(before, rate, count, received, decimals);
        QCOMPARE(PlanSpread::problemOf(rows, principal), PlanSpread::Problem::None);
        const std::vector<PlanSpread::Part> parts = PlanSpread::of(rows, principal, decimals);
        QCOMPARE(parts.size(), amounts.size());
        double sum = 0;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            QVERIFY2(IsEquals(parts[i].amount, amounts[i]), qPrintable(u"%1: %2"_s.arg(i).arg(parts[i].amount)));
            sum += parts[i].amount - parts[i].interest;
        }
        QVERIFY2(IsEquals(sum, principal), qPrintable(QString::number(sum, 'f', 6)));
        // What is stored is what will be received.
        Amounts stored;
        for (const PlanSpread::Part &part : parts)
            stored.push_back(part.amount);
        const Amounts dues = amountsToReceive(stored, decimals);
        for (std::size_t i = 0; i < dues.size(); ++i)
            QVERIFY(IsEquals(dues[i], stored[i]));
    }

    void everySpreadSumsUp_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<double>("rate");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<int>("paid");
        for (const int count : {1, 7, 36, 60}) {
            for (const double rate : {0., 1.75, 23.}) {
                for (const int decimals : {0, 2, 4}) {
                    for (const int paid : {0, count / 2, count - 1})
                        QTest::addRow("%d rows at %g, %d decimals, %d paid", count, rate, decimals, paid) << count << rate << decimals << paid;
                }
            }
        }
    }

    // The sum stays the principal, no part falls below what was received, and none below nothing.
    void everySpreadSumsUp()
    {
        QFETCH(int, count);
        QFETCH(double, rate);
        QFETCH(int, decimals);
        QFETCH(int, paid);
        const double before = 987'654'321;
        Amounts received(paid, 1e15);
        received.push_back(12'345);
        const std::vector<PlanSpread::Row> rows = rowsOf(before, rate, count, received, decimals);
        for (const double principal : {before * 0.9999, before * 1.3, before * 2.000001}) {
            if (PlanSpread::problemOf(rows, principal) != PlanSpread::Problem::None)
                continue;
            long double sum = 0;
            const std::vector<PlanSpread::Part> parts = PlanSpread::of(rows, principal, decimals);
            for (std::size_t i = 0; i < parts.size(); ++i) {
                sum += parts[i].amount - static_cast<long double>(parts[i].interest);
                QVERIFY(parts[i].amount >= rows[i].due - rows[i].rest - 1e-6);
                QVERIFY(qAbs(roundToDecimals(parts[i].amount, decimals) - parts[i].amount) < 1e-5);
            }
            QVERIFY(qAbs(static_cast<double>(sum) - principal) < 1e-3);
        }
    }

    void whatCannotBeSpreadIsSaid_data()
    {
        QTest::addColumn<Amounts>("received");
        QTest::addColumn<double>("principal");
        QTest::addColumn<int>("problem");
        QTest::newRow("all is paid") << Amounts{400, 400, 400} << 1500. << int(PlanSpread::Problem::NothingOpen);
        QTest::newRow("more was received") << Amounts{400, 400} << 700. << int(PlanSpread::Problem::MoreReceived);
        QTest::newRow("something is open") << Amounts{400, 400, 399} << 1200. << int(PlanSpread::Problem::None);
    }

    void whatCannotBeSpreadIsSaid()
    {
        QFETCH(Amounts, received);
        QFETCH(double, principal);
        QTEST(int(PlanSpread::problemOf(rowsOf(1200, 0, 3, received, 0), principal)), "problem");
    }
};

static const RegisteredTest<TestPlanSpread, QCoreApplication> registeredPlanSpread;
#include "TestPlanSpread.moc"
