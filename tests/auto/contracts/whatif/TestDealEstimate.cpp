// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/whatif/DealEstimate.h"

#include "tests/support/RegisteredTest.h"

#include <QTest>

namespace {

DealTerms ownCar()
{
    DealTerms terms;
    terms.price = 1000;
    terms.purchase = 700;
    terms.expenses = 50;
    terms.notary = 20;
    terms.tiers = {{1000, 2000, 3000}, {1, 2, 3}, true};
    terms.taxPercent = 9;
    terms.dutyPercent = 1;
    return terms;
}

bool isNear(double actual, double expected)
{
    return qAbs(actual - expected) < 1e-6;
}

}

// What a deal would bring follows from the rules of the contract, of the plan and of the car's sale.
class TestDealEstimate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aCarThatTheOfficeBought()
    {
        const DealEstimate deal = DealEstimate::of(ownCar());
        QVERIFY(isNear(deal.figures.commission, 10));
        QVERIFY(isNear(deal.figures.first.pays, 11));
        QVERIFY(isNear(deal.sellerGets, 989));
        QVERIFY(isNear(deal.buyerPays, 1011));
        QVERIFY(isNear(deal.saleMargin, 230));
        QVERIFY(isNear(deal.commissionMargin, 20));
        QVERIFY(isNear(deal.margin(), 250));
        QVERIFY(!deal.plan);
    }

    void ofACustomersCarThePriceIsNotTheOffices()
    {
        DealTerms terms = ownCar();
        terms.purchase = 0;
        const DealEstimate deal = DealEstimate::of(terms);
        QVERIFY(!deal.isOwnCar);
        QVERIFY(isNear(deal.margin(), 20));
    }

    void discountsComeOffTheCommission()
    {
        DealTerms terms = ownCar();
        terms.buyerDiscountPercent = 10;
        terms.sellerDiscountPercent = 50;
        const DealEstimate deal = DealEstimate::of(terms);
        QVERIFY(isNear(deal.figures.second.pays, 10));
        QVERIFY(isNear(deal.figures.first.pays, 6));
        QVERIFY(isNear(deal.commissionMargin, 14));
        QVERIFY(isNear(deal.buyerPays, 1010));
    }

    void aboveTheLastTierTheCommissionIsEntered()
    {
        DealTerms terms = ownCar();
        terms.price = 5000;
        terms.commissionByHand = 100;
        const DealEstimate deal = DealEstimate::of(terms);
        QVERIFY(deal.isCommissionByHand);
        QVERIFY(isNear(deal.figures.first.pays, 110));
        QVERIFY(isNear(deal.commissionMargin, 200));
        // Within the tiers what was entered before counts no more.
        terms.price = 1000;
        QVERIFY(isNear(DealEstimate::of(terms).figures.commission, 10));
    }

    void whatIsLeftIsSplitIntoInstalments()
    {
        DealTerms terms = ownCar();
        terms.paidAtOnce = 400;
        terms.instalments.count = 6;
        terms.instalments.interval = 1;
        terms.instalments.rate = 2;
        terms.instalments.start = QDate(2026, 3, 21);
        const DealEstimate deal = DealEstimate::of(terms);
        QVERIFY(deal.plan);
        QCOMPARE(deal.plan->instalments.size(), std::size_t(6));
        QVERIFY(isNear(deal.plan->interest, 72));
        QVERIFY(isNear(deal.plan->instalments.front().amount, 112));
        QVERIFY(isNear(deal.margin(), 322));
    }

    void withoutCountIntervalOrRestThereIsNoPlan_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("interval");
        QTest::addColumn<double>("atOnce");
        QTest::newRow("no count") << 0 << 1 << 0.0;
        QTest::newRow("no interval") << 3 << 0 << 0.0;
        QTest::newRow("all is paid") << 3 << 1 << 1000.0;
    }

    void withoutCountIntervalOrRestThereIsNoPlan()
    {
        QFETCH(int, count);
        QFETCH(int, interval);
        QFETCH(double, atOnce);
        DealTerms terms = ownCar();
        terms.instalments.count = count;
        terms.instalments.interval = interval;
        terms.instalments.start = QDate(2026, 3, 21);
        terms.paidAtOnce = atOnce;
        QVERIFY(!DealEstimate::of(terms).plan);
    }
};

static const RegisteredTest<TestDealEstimate> registeredDealEstimate;
#include "TestDealEstimate.moc"
