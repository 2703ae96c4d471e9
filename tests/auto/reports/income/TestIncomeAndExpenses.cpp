// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/IncomeAndExpenses.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace IncomeAndExpenses;

namespace {

Group sampleGroup()
{
    Group group;
    group.general = {{4101, u"خدمات"_s, 0}, {4102, u"کمیسیون"_s, 0}, {4103, u"سایر"_s, 0}};
    group.subsidiary = {{410101, u"کارشناسی"_s, 4101}, {410102, u"تخفیف"_s, 4101}, {410202, u"کمیسیون فروش"_s, 4102}};
    group.detail = {{41020201, u"شعبه یک"_s, 410202}, {41020202, u"شعبه دو"_s, 410202}};
    group.generalBalances = {{4101, {0, 999}}, {4102, {0, 999}}, {4103, {0, 5}}};
    group.subsidiaryBalances = {{410101, {0, 100}}, {410102, {30, 0}}, {410202, {0, 999}}};
    group.detailBalances = {{41020201, {0, 40}}, {41020202, {7, 7}}};
    return group;
}

QList<int> codes(const Side &side)
{
    QList<int> codes;
    for (const Account &account : side.accounts)
        codes.append(account.code);
    return codes;
}

}

class TestIncomeAndExpenses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void balancesAreTakenAtTheDeepestLevel()
    {
        Side side;
        add(side, sampleGroup());
        QCOMPARE(codes(side), (QList<int>{410101, 410102, 41020201, 4103}));
        QCOMPARE(side.accounts.at(0).level, AccountLevel::Moeen);
        QCOMPARE(side.accounts.at(2).level, AccountLevel::Tafsily);
        QCOMPARE(side.accounts.at(3).level, AccountLevel::Kol);
        QCOMPARE(side.accounts.at(1).balance.nature(), u"بد"_s);
        QCOMPARE(side.accounts.at(3).balance.nature(), u"بس"_s);
    }

    void totalHoldsEveryAccountAlsoTheBalancedOnes()
    {
        Side side;
        add(side, sampleGroup());
        QCOMPARE(side.total.bed, 37.0);
        QCOMPARE(side.total.bes, 152.0);
    }

    void groupsAddUpInTheirOrder()
    {
        Side side;
        Group second;
        second.general = {{6201, u"اجاره"_s, 0}};
        second.generalBalances = {{6201, {12, 0}}};
        add(side, sampleGroup());
        add(side, second);
        QCOMPARE(codes(side).constLast(), 6201);
        QCOMPARE(side.total.bed, 49.0);
    }

    void anEmptyGroupGivesNothing()
    {
        Side side;
        add(side, {});
        QVERIFY(side.accounts.isEmpty());
        QVERIFY(side.total.isBalanced());
        QCOMPARE(side.total.nature(), u"-"_s);
    }

    void balanced_data()
    {
        QTest::addColumn<double>("bed");
        QTest::addColumn<double>("bes");
        QTest::addColumn<bool>("listed");
        QTest::newRow("a debit of 100 and a credit of 100.00005 counts as balanced and gives no row") << 100. << 100.00005 << false;
        QTest::newRow("100.0002 does not") << 100. << 100.0002 << true;
        QTest::newRow("nothing") << 0. << 0. << false;
    }

    void balanced()
    {
        QFETCH(double, bed);
        QFETCH(double, bes);
        Group group;
        group.general = {{4101, u"خدمات"_s, 0}};
        group.generalBalances = {{4101, {bed, bes}}};
        Side side;
        add(side, group);
        QTEST(!side.accounts.isEmpty(), "listed");
    }

    void difference_data()
    {
        QTest::addColumn<double>("income");
        QTest::addColumn<double>("expense");
        QTest::addColumn<QString>("nature");
        QTest::newRow("equal income and expense totals") << 500. << 500. << u"-"_s;
        QTest::newRow("more earned than spent") << 500. << 300. << u"بس"_s;
        QTest::newRow("more spent than earned") << 300. << 500. << u"بد"_s;
    }

    void difference()
    {
        QFETCH(double, income);
        QFETCH(double, expense);
        Side earned;
        earned.total = {0, income};
        Side spent;
        spent.total = {expense, 0};
        const AccountBalance result = IncomeAndExpenses::difference(earned, spent);
        QCOMPARE(-result.net(), income - expense);
        QTEST(result.nature(), "nature");
    }

    void order_data()
    {
        QTest::addColumn<Order>("order");
        QTest::addColumn<bool>("descending");
        QTest::addColumn<QList<int>>("wanted");
        QTest::newRow("chart") << Order::Chart << false << QList<int>{410101, 410102, 41020201, 4103};
        QTest::newRow("chart, from its end") << Order::Chart << true << QList<int>{4103, 41020201, 410102, 410101};
        QTest::newRow("amount, whatever its side") << Order::Amount << false << QList<int>{4103, 410102, 41020201, 410101};
        QTest::newRow("amount, down") << Order::Amount << true << QList<int>{410101, 41020201, 410102, 4103};
        QTest::newRow("name") << Order::Name << false << QList<int>{410102, 4103, 41020201, 410101};
        QTest::newRow("nature, ties as they were") << Order::Nature << false << QList<int>{410102, 410101, 41020201, 4103};
    }

    void order()
    {
        QFETCH(Order, order);
        QFETCH(bool, descending);
        Side side;
        add(side, sampleGroup());
        sort(side.accounts, order, descending);
        QTEST(codes(side), "wanted");
    }
};

static const RegisteredTest<TestIncomeAndExpenses> registeredIncomeAndExpenses;
#include "TestIncomeAndExpenses.moc"
