// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalRules.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace SeasonalRules;

class TestSeasonalRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void smallContract_data();
    void smallContract();
    void figuresOfAParty_data();
    void figuresOfAParty();
    void returnedContractsAreSummedApart();
    void onlyTheReturnedOnes();
    void nothingSmallGivesNoRow();
    void cellsOfASummedRow();
    void listedLine_data();
    void listedLine();
    void shareOfALine_data();
    void shareOfALine();
    void cellsOfAContractRow();
    void cellsOfAServiceLine();
    void kindCode_data();
    void kindCode();
    void numbersSortAndSumAsNumbers();
    void addressLength_data();
    void addressLength();
};

void TestSeasonalRules::smallContract_data()
{
    QTest::addColumn<double>("commission");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<bool>("small");
    QTest::newRow("a commission that equals the minimum amount is listed by itself") << 16'400'000. << 16'400'000. << false;
    QTest::newRow("one below it is summed") << 16'399'999. << 16'400'000. << true;
    QTest::newRow("above") << 16'400'001. << 16'400'000. << false;
    QTest::newRow("a minimum amount of 0 lists every contract by itself") << 0. << 0. << false;
}

void TestSeasonalRules::smallContract()
{
    QFETCH(double, commission);
    QFETCH(double, minimum);
    QTEST(isSmall(commission, minimum), "small");
}

void TestSeasonalRules::figuresOfAParty_data()
{
    QTest::addColumn<int>("mark");
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("tax");
    QTest::addColumn<QString>("discount");
    QTest::addColumn<QString>("total");
    QTest::newRow("pays") << 0 << u"1,000"_s << u"90"_s << u"40"_s << u"1,050"_s;
    QTest::newRow("does not pay") << 1 << u"0"_s << u"90"_s << u"0"_s << u"90"_s;
    QTest::newRow("another mark") << 2 << QString() << u"90"_s << QString() << QString();
    QTest::newRow("a negative mark") << -1 << QString() << u"90"_s << QString() << QString();
}

void TestSeasonalRules::figuresOfAParty()
{
    QFETCH(int, mark);
    SeasonalRow row;
    row.amount = 7; // of the row before
    row.discount = 7;
    row.total = 7;
    setFigures(row, 1000, {mark, 60, 30, 40});
    QTEST(row.text(SeasonalRow::Amount), "amount");
    QTEST(row.text(SeasonalRow::Tax), "tax");
    QTEST(row.text(SeasonalRow::Discount), "discount");
    QTEST(row.text(SeasonalRow::Total), "total");
}

void TestSeasonalRules::returnedContractsAreSummedApart()
{
    SmallContracts small;
    small.add({100, false, {0, 1, 2, 3}, {0, 4, 5, 6}});
    small.add({50, false, {1, 10, 20, 30}, {2, 40, 50, 60}}); // the marks do not count
    small.add({7, true, {0, 1, 1, 1}, {0, 1, 1, 1}});
    const QVector<SeasonalRow> rows = small.rows();
    QCOMPARE(rows.size(), 2);
    QVERIFY(!rows.at(0).returned);
    QCOMPARE(rows.at(0).amount.value(), 300.0);
    QCOMPARE(rows.at(0).tax, 55.0);
    QCOMPARE(rows.at(0).discount.value(), 99.0);
    QCOMPARE(rows.at(0).total.value(), 300.0 + 55 + 77 - 99);
    QVERIFY(rows.at(1).returned);
    QCOMPARE(rows.at(1).amount.value(), 14.0);
    QCOMPARE(rows.at(1).total.value(), 14.0 + 2 + 2 - 2);
}

void TestSeasonalRules::onlyTheReturnedOnes()
{
    SmallContracts small;
    small.add({0, false, {0, 9, 9, 0}, {}}); // an amount of 0 gives no row, whatever the tax
    small.add({1, true, {}, {}});
    QCOMPARE(small.rows().size(), 1);
    QVERIFY(small.rows().constFirst().returned);
}

void TestSeasonalRules::nothingSmallGivesNoRow()
{
    QVERIFY(SmallContracts().rows().isEmpty());
}

void TestSeasonalRules::cellsOfASummedRow()
{
    SmallContracts small;
    small.add({1000, true, {0, 60, 30, 0}, {0, 60, 30, 10}});
    SeasonalRow row = small.rows().constFirst();
    row.number = 5;
    const QString none;
    const QString blank = u" "_s;
    const QString zero = u"0"_s;
    const QStringList wanted{u"5"_s, none, blank, u"بلی"_s, u"2,000"_s,
                             u"120"_s, zero, none, none, none, none, none, blank, none, none, none, none, none, none,
                             u"بلی"_s, u"10"_s, u"2,170"_s, zero, blank, zero,
                             none, none, none, none, none};
    QCOMPARE(row.texts(), wanted);
    QCOMPARE(row.subject(), u"مجموع معاملات کوچک"_s);
}

void TestSeasonalRules::listedLine_data()
{
    QTest::addColumn<double>("count");
    QTest::addColumn<double>("price");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<bool>("listed");
    QTest::newRow("a negative price of nothing") << 0. << -5. << 0. << false;
    QTest::newRow("a negative quantity of nothing") << -5. << 0. << 0. << false;
    QTest::newRow("nothing at all") << 0. << 0. << 0. << true;
    QTest::newRow("as much as the minimum amount") << 2. << 500. << 1000. << true;
    QTest::newRow("below it the line is left out") << 2. << 499.9 << 1000. << false;
    QTest::newRow("a negative quantity is skipped") << -2. << 5000. << 1000. << false;
    QTest::newRow("a negative price is skipped") << 2. << -5000. << 1000. << false;
    QTest::newRow("both negative are skipped, though their product is not") << -2. << -5000. << 1000. << false;
}

void TestSeasonalRules::listedLine()
{
    QFETCH(double, count);
    QFETCH(double, price);
    QFETCH(double, minimum);
    QTEST(isLineListed(count, price, minimum), "listed");
}

void TestSeasonalRules::shareOfALine_data()
{
    QTest::addColumn<double>("count");
    QTest::addColumn<double>("price");
    QTest::addColumn<double>("total");
    QTest::addColumn<double>("tax");
    QTest::addColumn<double>("duty");
    QTest::addColumn<double>("discount");
    QTest::newRow("a quarter") << 1. << 250. << 1000. << 15. << 5. << 10.;
    QTest::newRow("three quarters") << 3. << 250. << 1000. << 45. << 15. << 30.;
    QTest::newRow("all of it") << 2. << 500. << 1000. << 60. << 20. << 40.;
    QTest::newRow("nothing of an invoice of 0") << 2. << 500. << 0. << 0. << 0. << 0.;
}

void TestSeasonalRules::shareOfALine()
{
    QFETCH(double, count);
    QFETCH(double, price);
    QFETCH(double, total);
    SeasonalRow row;
    row.source = SeasonalRow::Source::InvoiceLine;
    row.code = 17;
    QCOMPARE(row.subject(), u"فاکتور شماره 17"_s);
    setFigures(row, count, price, {total, 40, 60, 20});
    QCOMPARE(row.amount.value(), count * price);
    QTEST(row.tax, "tax");
    QTEST(row.duties, "duty");
    QTEST(row.discount.value(), "discount");
    QCOMPARE(row.total.value(), count * price + row.tax + row.duties - row.discount.value());
}

namespace {

SeasonalRow filledRow()
{
    SeasonalRow row;
    row.number = 3;
    row.description = u"مبایعه نامه"_s;
    row.amount = 1000;
    row.tax = 90;
    row.discount = 40;
    row.total = 1050;
    row.code = 17;
    row.date = ConvertToMiladi(1405, 2, 3);
    row.documentNumber = 8;
    row.documentDate = ConvertToMiladi(1405, 2, 4);
    TaxParty party;
    party.natural = false;
    party.postalCode = u"1234567890"_s;
    party.areaCode = u"021"_s;
    party.telephone = u"22334455"_s;
    party.address = u"تهران"_s;
    party.name = u"شرکت"_s;
    party.family = u"آریا"_s;
    party.economicCode = u"411"_s;
    party.nationalCode = u"10100"_s;
    party.kindCode = 6;
    party.zone = 4;
    party.provinceCode = 23;
    party.cityCode = 1;
    row.party = std::make_shared<const TaxParty>(party);
    return row;
}

}

void TestSeasonalRules::cellsOfAContractRow()
{
    const QStringList wanted{u"3"_s, u"3"_s, u"مبایعه نامه"_s, u"خیر"_s,
                             u"1,000"_s, u"90"_s, u"حقوقی"_s,
                             u"1234567890"_s, u"021"_s, u"22334455"_s,
                             u"تهران"_s, u"شرکت"_s, u"آریا"_s, u"411"_s,
                             u"10100"_s, u"6"_s, u"4"_s, u"23"_s,
                             u"1"_s, u"خیر"_s, u"40"_s, u"1,050"_s,
                             u"17"_s, u"1405/02/03"_s, u"0"_s, u"نقد"_s,
                             u"خدمت"_s, u"8"_s, u"1405/02/04"_s, u"12"_s};
    QCOMPARE(filledRow().texts(), wanted);
}

void TestSeasonalRules::cellsOfAServiceLine()
{
    SeasonalRow row = filledRow();
    row.source = SeasonalRow::Source::InvoiceLine;
    row.returned = true;
    row.serviceCode = 55;
    row.duties = 12;
    QCOMPARE(row.text(SeasonalRow::Serial), u"55"_s);
    QCOMPARE(row.text(SeasonalRow::Returned), u"بلی"_s);
    QCOMPARE(row.text(SeasonalRow::Duties), u"12"_s);
    row.serviceCode = 0;
    QCOMPARE(row.text(SeasonalRow::Serial), u"3"_s);
}

void TestSeasonalRules::kindCode_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    for (int code = 5; code <= 8; ++code)
        QTest::addRow("%d", code) << code << QString::number(code);
    for (const int code : {0, 4, 9, -5})
        QTest::addRow("%d is left empty", code) << code << QString();
}

void TestSeasonalRules::kindCode()
{
    QFETCH(int, code);
    SeasonalRow row;
    TaxParty party;
    party.kindCode = code;
    row.party = std::make_shared<const TaxParty>(party);
    QTEST(row.text(SeasonalRow::PartyKind), "text");
}

void TestSeasonalRules::numbersSortAndSumAsNumbers()
{
    const SeasonalRow row = filledRow();
    for (const int column : {SeasonalRow::RowNumber, SeasonalRow::Serial, SeasonalRow::Amount, SeasonalRow::Tax,
                             SeasonalRow::Discount, SeasonalRow::Total, SeasonalRow::Code, SeasonalRow::Duties,
                             SeasonalRow::DocumentNumber}) {
        QString plain = row.text(column);
        QCOMPARE(row.value(column).typeId(), int(QMetaType::Double));
        QCOMPARE(row.value(column).toDouble(), plain.remove(u',').toDouble());
    }
    QCOMPARE(row.value(SeasonalRow::Date).toDate(), row.date);
    SeasonalTotals totals;
    totals.add(row);
    totals.add(row);
    QCOMPARE(totals.amount, 2000.0);
    QCOMPARE(totals.tax, 180.0);
    QCOMPARE(totals.discount, 80.0);
    QCOMPARE(totals.total, 2100.0);
}

void TestSeasonalRules::addressLength_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("tooLong");
    QTest::newRow("an address of exactly 80 characters is not marked") << 80 << false;
    QTest::newRow("one of 81 is") << 81 << true;
    QTest::newRow("none") << 0 << false;
}

void TestSeasonalRules::addressLength()
{
    QFETCH(int, length);
    TaxParty party;
    party.address = QString(length, u'آ');
    SeasonalRow row;
    QVERIFY(!row.isAddressTooLong());
    row.party = std::make_shared<const TaxParty>(party);
    QTEST(row.isAddressTooLong(), "tooLong");
}

static const RegisteredTest<TestSeasonalRules> registeredSeasonalRules;
#include "TestSeasonalRules.moc"
