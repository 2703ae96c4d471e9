// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/figures/Commission.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

namespace {

using Field = CommissionField;

CommissionTiers threeTiers()
{
    return {{1000, 2000, 3000}, {1, 2, 3}, true};
}

// A contract whose figures agree with each other: amount 1000, commission 10, tax 9 %, duty 1 % on both sides.
CommissionFields settled()
{
    CommissionFields fields;
    for (CommissionParty *party : {&fields.first, &fields.second}) {
        party->taxPercent = 9;
        party->dutyPercent = 1;
    }
    fields.amount = 1000;
    afterChange(Field::Amount, fields, threeTiers());
    return fields;
}

void change(CommissionFields &fields, Field field, double value)
{
    setCommissionValue(fields, field, value);
    afterChange(field, fields, threeTiers());
}

bool same(double actual, double expected)
{
    return qAbs(actual - expected) < 1e-9;
}

}

class TestCommission : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commissionByTier_data();
    void commissionByTier();
    void amountFillsEverythingCoherently();
    void amountAboveTheLastTierStillSettlesPaymentsAndDiscounts();
    void commissionRecomputesTotalTaxesAndDuties();
    void commissionTotalIsOfThePartyWhoseTaxChangedLast();
    void taxPercentRecomputesThatTaxOnly_data();
    void taxPercentRecomputesThatTaxOnly();
    void typedTaxOrDutyRecomputesTheTotal_data();
    void typedTaxOrDutyRecomputesTheTotal();
    void totalIsSharedAndTheLastChangeSetsIt();
    void totalSetsBothPayments();
    void discountLowersThatPaymentOnly_data();
    void discountLowersThatPaymentOnly();
    void discountPercentRecomputesTheDiscount_data();
    void discountPercentRecomputesTheDiscount();
    void zeroDiscountPercentMakesTheDiscountExactlyZero_data();
    void zeroDiscountPercentMakesTheDiscountExactlyZero();
    void showroomPaysOnlyTaxAndDutyOnTheCommission_data();
    void showroomPaysOnlyTaxAndDutyOnTheCommission();
    void showroomPaysItsTaxAlsoWhenTheTotalStaysTheSame();
    void kindShowroomTakesTheDiscountAway();
    void kindOrdinaryOrTypedByHandPaysTotalLessDiscount_data();
    void kindOrdinaryOrTypedByHandPaysTotalLessDiscount();
    void noKindLeavesThePaymentAloneAfterTheAmount();
    void sameValueSetsOffNothing();
    void paymentHasNoDependants();
};

void TestCommission::commissionByTier_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<bool>("thirdInUse");
    QTest::addColumn<double>("commission"); // 77 stands before the change
    QTest::newRow("amount zero") << 0.0 << true << 0.0;
    QTest::newRow("within the first tier") << 500.0 << true << 5.0;
    QTest::newRow("exactly T1 uses C1") << 1000.0 << true << 10.0;
    QTest::newRow("one cent above T1 uses C2") << 1000.01 << true << 20.0002;
    QTest::newRow("exactly T2 uses C2") << 2000.0 << true << 40.0;
    QTest::newRow("one cent above T2 uses C3") << 2000.01 << true << 60.0003;
    QTest::newRow("exactly T3 uses C3") << 3000.0 << true << 90.0;
    QTest::newRow("above T3 leaves the commission as typed") << 3000.01 << true << 77.0;
    QTest::newRow("above T2 with the third tier off leaves the commission untouched") << 2000.01 << false << 77.0;
    QTest::newRow("within T3 with the third tier off leaves the commission untouched") << 3000.0 << false << 77.0;
    QTest::newRow("exactly T2 with the third tier off") << 2000.0 << false << 40.0;
}

void TestCommission::commissionByTier()
{
    QFETCH(double, amount);
    QFETCH(bool, thirdInUse);
    QFETCH(double, commission);
    CommissionTiers tiers = threeTiers();
    tiers.thirdInUse = thirdInUse;
    CommissionFields fields;
    fields.commission = 77;
    fields.amount = amount;
    afterChange(Field::Amount, fields, tiers);
    QVERIFY2(same(fields.commission, commission), qPrintable(QString::number(fields.commission, 'g', 17)));
    QCOMPARE(tierCommission(amount, tiers).has_value(), commission != 77);
}

void TestCommission::amountFillsEverythingCoherently()
{
    CommissionFields fields = settled();
    change(fields, Field::SecondDiscountPercent, 20);
    change(fields, Field::Amount, 2000);
    QVERIFY(same(fields.commission, 40));
    QVERIFY(same(fields.first.tax, 3.6));
    QVERIFY(same(fields.first.duty, 0.4));
    QVERIFY(same(fields.second.tax, 3.6));
    QVERIFY(same(fields.second.duty, 0.4));
    QVERIFY(same(fields.perPartyTotal, 44));
    QVERIFY(same(fields.second.discount, 8));
    QVERIFY(same(fields.first.pays, 44));
    QVERIFY(same(fields.second.pays, 36));
}

void TestCommission::amountAboveTheLastTierStillSettlesPaymentsAndDiscounts()
{
    CommissionFields fields = settled();
    fields.first.discountPercent = 50;
    change(fields, Field::Amount, 9000);
    QVERIFY(same(fields.commission, 10));
    QVERIFY(same(fields.perPartyTotal, 11));
    QVERIFY(same(fields.first.discount, 5));
    QVERIFY(same(fields.first.pays, 6));
    QVERIFY(same(fields.second.pays, 11));
}

void TestCommission::commissionRecomputesTotalTaxesAndDuties()
{
    CommissionFields fields = settled();
    change(fields, Field::Commission, 200);
    QVERIFY(same(fields.first.tax, 18));
    QVERIFY(same(fields.first.duty, 2));
    QVERIFY(same(fields.second.tax, 18));
    QVERIFY(same(fields.second.duty, 2));
    QVERIFY(same(fields.perPartyTotal, 220));
    QVERIFY(same(fields.first.pays, 220));
    QVERIFY(same(fields.second.pays, 220));
    QVERIFY(same(fields.amount, 1000));
}

void TestCommission::commissionTotalIsOfThePartyWhoseTaxChangedLast()
{
    CommissionFields fields;
    fields.first.taxPercent = 9;
    fields.second.taxPercent = 4;
    change(fields, Field::Commission, 100);
    QVERIFY(same(fields.perPartyTotal, 104));

    CommissionFields onlyFirst;
    onlyFirst.first.taxPercent = 9;
    change(onlyFirst, Field::Commission, 100);
    QVERIFY(same(onlyFirst.perPartyTotal, 109));

    CommissionFields untaxed;
    change(untaxed, Field::Commission, 100);
    QVERIFY(same(untaxed.perPartyTotal, 100));
}

void TestCommission::taxPercentRecomputesThatTaxOnly_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("amount");
    const auto row = [](const char *name, Field percent, Field amount) {
        QTest::newRow(name) << static_cast<int>(percent) << static_cast<int>(amount);
    };
    row("tax % of the first party", Field::FirstTaxPercent, Field::FirstTax);
    row("duty % of the first party", Field::FirstDutyPercent, Field::FirstDuty);
    row("tax % of the second party", Field::SecondTaxPercent, Field::SecondTax);
    row("duty % of the second party", Field::SecondDutyPercent, Field::SecondDuty);
}

void TestCommission::taxPercentRecomputesThatTaxOnly()
{
    QFETCH(int, percent);
    QFETCH(int, amount);
    const auto levy = static_cast<Field>(amount);
    const CommissionFields before = settled();
    CommissionFields fields = before;
    change(fields, static_cast<Field>(percent), 30);
    QVERIFY(same(commissionValue(fields, levy), 3));
    for (Field other : {Field::FirstTax, Field::FirstDuty, Field::SecondTax, Field::SecondDuty}) {
        if (other != levy)
            QVERIFY(same(commissionValue(fields, other), commissionValue(before, other)));
    }
    QVERIFY(same(fields.perPartyTotal, 11 - commissionValue(before, levy) + 3));
    QVERIFY(same(fields.first.pays, fields.perPartyTotal));
    QVERIFY(same(fields.second.pays, fields.perPartyTotal));
    change(fields, static_cast<Field>(percent), 0);
    QVERIFY(commissionValue(fields, levy) == 0);
}

void TestCommission::typedTaxOrDutyRecomputesTheTotal_data()
{
    QTest::addColumn<int>("levy");
    QTest::addColumn<double>("total"); // of commission 10 and this party's other levy
    QTest::newRow("tax of the first party") << static_cast<int>(Field::FirstTax) << 10.0 + 0.1 + 5;
    QTest::newRow("duty of the first party") << static_cast<int>(Field::FirstDuty) << 10.0 + 0.9 + 5;
    QTest::newRow("tax of the second party") << static_cast<int>(Field::SecondTax) << 10.0 + 0.1 + 5;
    QTest::newRow("duty of the second party") << static_cast<int>(Field::SecondDuty) << 10.0 + 0.9 + 5;
}

void TestCommission::typedTaxOrDutyRecomputesTheTotal()
{
    QFETCH(int, levy);
    QFETCH(double, total);
    CommissionFields fields = settled();
    change(fields, static_cast<Field>(levy), 5);
    QVERIFY(same(fields.perPartyTotal, total));
    QVERIFY(same(commissionValue(fields, static_cast<Field>(levy)), 5));
}

void TestCommission::totalIsSharedAndTheLastChangeSetsIt()
{
    CommissionFields fields = settled();
    change(fields, Field::FirstTax, 4);
    QVERIFY(same(fields.perPartyTotal, 14.1));
    change(fields, Field::SecondDuty, 2);
    QVERIFY(same(fields.perPartyTotal, 12.9));
    QVERIFY(same(fields.first.pays, 12.9));
    change(fields, Field::FirstDutyPercent, 10);
    QVERIFY(same(fields.perPartyTotal, 15));
    QVERIFY(same(fields.second.pays, 15));
}

void TestCommission::totalSetsBothPayments()
{
    CommissionFields fields = settled();
    fields.first.discount = 3;
    change(fields, Field::PerPartyTotal, 50);
    QVERIFY(same(fields.first.pays, 50));
    QVERIFY(same(fields.second.pays, 50));
}

void TestCommission::discountLowersThatPaymentOnly_data()
{
    QTest::addColumn<int>("discount");
    QTest::addColumn<int>("pays");
    QTest::addColumn<int>("otherPays");
    QTest::newRow("first party") << static_cast<int>(Field::FirstDiscount) << static_cast<int>(Field::FirstPays)
                                 << static_cast<int>(Field::SecondPays);
    QTest::newRow("second party") << static_cast<int>(Field::SecondDiscount) << static_cast<int>(Field::SecondPays)
                                  << static_cast<int>(Field::FirstPays);
}

void TestCommission::discountLowersThatPaymentOnly()
{
    QFETCH(int, discount);
    QFETCH(int, pays);
    QFETCH(int, otherPays);
    CommissionFields fields = settled();
    change(fields, static_cast<Field>(discount), 4);
    QVERIFY(same(commissionValue(fields, static_cast<Field>(pays)), 7));
    QVERIFY(same(commissionValue(fields, static_cast<Field>(otherPays)), 11));

    CommissionFields showroom = settled();
    showroom.first.kind = showroom.second.kind = PartyKind::Showroom;
    change(showroom, static_cast<Field>(discount), 4);
    QVERIFY(same(commissionValue(showroom, static_cast<Field>(pays)), 1));
}

void TestCommission::discountPercentRecomputesTheDiscount_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("discount");
    QTest::addColumn<int>("pays");
    QTest::newRow("first party") << static_cast<int>(Field::FirstDiscountPercent)
                                 << static_cast<int>(Field::FirstDiscount) << static_cast<int>(Field::FirstPays);
    QTest::newRow("second party") << static_cast<int>(Field::SecondDiscountPercent)
                                  << static_cast<int>(Field::SecondDiscount) << static_cast<int>(Field::SecondPays);
}

void TestCommission::discountPercentRecomputesTheDiscount()
{
    QFETCH(int, percent);
    QFETCH(int, discount);
    QFETCH(int, pays);
    CommissionFields fields = settled();
    change(fields, static_cast<Field>(percent), 25);
    QVERIFY(same(commissionValue(fields, static_cast<Field>(discount)), 2.5));
    QVERIFY(same(commissionValue(fields, static_cast<Field>(pays)), 8.5));
}

void TestCommission::zeroDiscountPercentMakesTheDiscountExactlyZero_data()
{
    QTest::addColumn<double>("percent");
    QTest::addColumn<bool>("none");
    QTest::newRow("zero") << 0.0 << true;
    QTest::newRow("within 0.0001 of zero") << 0.00009 << true;
    QTest::newRow("above that") << 0.001 << false;
}

void TestCommission::zeroDiscountPercentMakesTheDiscountExactlyZero()
{
    QFETCH(double, percent);
    QFETCH(bool, none);
    CommissionFields fields = settled();
    change(fields, Field::FirstDiscountPercent, 25);
    change(fields, Field::FirstDiscountPercent, percent);
    QCOMPARE(fields.first.discount == 0, none);
    QVERIFY(same(fields.first.pays, 11 - fields.first.discount));
    change(fields, Field::Amount, 500);
    QCOMPARE(fields.first.discount == 0, none);
}

void TestCommission::showroomPaysOnlyTaxAndDutyOnTheCommission_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("taxAndDuty");
    QTest::newRow("after the amount") << static_cast<int>(Field::Amount) << 2000.0 << 4.0;
    QTest::newRow("after the commission") << static_cast<int>(Field::Commission) << 200.0 << 20.0;
    QTest::newRow("after its tax %") << static_cast<int>(Field::FirstTaxPercent) << 20.0 << 2.1;
    QTest::newRow("after its duty") << static_cast<int>(Field::FirstDuty) << 3.0 << 3.9;
    QTest::newRow("after the other party's tax") << static_cast<int>(Field::SecondTax) << 5.0 << 1.0;
    QTest::newRow("after a discount") << static_cast<int>(Field::FirstDiscount) << 5.0 << 1.0;
    QTest::newRow("after a discount %") << static_cast<int>(Field::FirstDiscountPercent) << 5.0 << 1.0;
}

void TestCommission::showroomPaysOnlyTaxAndDutyOnTheCommission()
{
    QFETCH(int, field);
    QFETCH(double, value);
    QFETCH(double, taxAndDuty);
    CommissionFields fields = settled();
    fields.first.kind = PartyKind::Showroom;
    afterChange(Field::FirstKind, fields, threeTiers());
    QVERIFY(same(fields.first.pays, 1));
    change(fields, static_cast<Field>(field), value);
    QVERIFY2(same(fields.first.pays, taxAndDuty), qPrintable(QString::number(fields.first.pays)));
}

void TestCommission::showroomPaysItsTaxAlsoWhenTheTotalStaysTheSame()
{
    CommissionFields fields;
    fields.first.kind = PartyKind::Showroom;
    fields.second.taxPercent = 9;
    change(fields, Field::Commission, 100);
    QVERIFY(same(fields.perPartyTotal, 109));
    QVERIFY(same(fields.first.pays, 0));
    change(fields, Field::FirstTaxPercent, 9);
    QVERIFY(same(fields.perPartyTotal, 109));
    QVERIFY(same(fields.first.pays, 9));
}

void TestCommission::kindShowroomTakesTheDiscountAway()
{
    CommissionFields fields = settled();
    change(fields, Field::SecondDiscountPercent, 25);
    fields.second.kind = PartyKind::Showroom;
    const CommissionParty first = fields.first;
    afterChange(Field::SecondKind, fields, threeTiers());
    QVERIFY(fields.second.discountPercent == 0);
    QVERIFY(fields.second.discount == 0);
    QVERIFY(same(fields.second.pays, 1));
    QVERIFY(fields.first == first);
}

void TestCommission::kindOrdinaryOrTypedByHandPaysTotalLessDiscount_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("ordinary") << static_cast<int>(PartyKind::Ordinary);
    QTest::newRow("typed by hand") << static_cast<int>(PartyKind::Other);
}

void TestCommission::kindOrdinaryOrTypedByHandPaysTotalLessDiscount()
{
    QFETCH(int, kind);
    CommissionFields fields = settled();
    fields.first.kind = PartyKind::Showroom;
    afterChange(Field::FirstKind, fields, threeTiers());
    fields.first.discount = 2;
    fields.first.kind = static_cast<PartyKind>(kind);
    afterChange(Field::FirstKind, fields, threeTiers());
    QVERIFY(same(fields.first.pays, 9));
}

void TestCommission::noKindLeavesThePaymentAloneAfterTheAmount()
{
    CommissionFields fields = settled();
    fields.first.kind = PartyKind::None;
    fields.first.pays = 123;
    change(fields, Field::Amount, 9000);
    QVERIFY(same(fields.first.pays, 123));
    QVERIFY(same(fields.second.pays, 11));
}

void TestCommission::sameValueSetsOffNothing()
{
    CommissionFields fields = settled();
    const CommissionFields before = fields;
    for (const Field field : {Field::Amount, Field::Commission, Field::FirstKind}) {
        afterChange(field, fields, threeTiers());
        QVERIFY(fields == before);
    }
}

void TestCommission::paymentHasNoDependants()
{
    CommissionFields fields = settled();
    CommissionFields expected = fields;
    expected.first.pays = 1;
    expected.second.pays = 2;
    change(fields, Field::FirstPays, 1);
    change(fields, Field::SecondPays, 2);
    QVERIFY(fields == expected);
}

static const RegisteredTest<TestCommission> registeredCommission;
#include "TestCommission.moc"
