// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/Invoice.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/InvoiceDocumentRows.h"
#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

using namespace Qt::StringLiterals;

using What = Invoice::Problem::What;

class TestInvoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineAmountIsRoundedToTheMoneyUnit_data();
    void lineAmountIsRoundedToTheMoneyUnit();
    void figuresFollowFromLinesDiscountAndPercents_data();
    void figuresFollowFromLinesDiscountAndPercents();
    void typedAmountStaysWhenTheLinesChange();
    void percentComesBackWhenItIsTypedAfterAnAmount();
    void storedAmountsGiveTheirPercents_data();
    void storedAmountsGiveTheirPercents();
    void withoutABaseThereIsNoLevy();
    void problems_data();
    void problems();
    void largestAmountDependsOnTheDecimals_data();
    void largestAmountDependsOnTheDecimals();
    void problemsComeInTheOrderOfTheWindow();
    void documentRows_data();
    void documentRows();
    void documentBalances_data();
    void documentBalances();
    void documentTextNamesKindAndNumber();
};

namespace {

const QDateTime day(QDate(2026, 5, 1), QTime(0, 0), Qt::UTC);

Invoice goodInvoice()
{
    Invoice invoice;
    invoice.personID = 7;
    invoice.date = day;
    invoice.lines = {{1, {}, 2, 500000}, {0, u"کرایه"_s, 1, 250000}};
    invoice.discount = 50000;
    invoice.tax = 72000;
    invoice.duty = 48000;
    return invoice;
}

}

void TestInvoice::lineAmountIsRoundedToTheMoneyUnit_data()
{
    QTest::addColumn<double>("count");
    QTest::addColumn<double>("price");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("amount");
    QTest::newRow("whole") << 3.0 << 1500.0 << 0 << 4500.0;
    QTest::newRow("a third of a piece") << 0.333 << 1000.0 << 0 << 333.0;
    QTest::newRow("half goes up") << 0.5 << 3.0 << 0 << 2.0;
    QTest::newRow("half that binary cannot hold") << 1.0 << 1.005 << 2 << 1.01;
    QTest::newRow("two decimals") << 3.0 << 1.115 << 2 << 3.35;
    QTest::newRow("nothing") << 0.0 << 1500.0 << 0 << 0.0;
    QTest::newRow("the largest") << 1.0 << 999999999999999.0 << 0 << 999999999999999.0;
    QTest::newRow("large") << 1000.0 << 999999999999.0 << 0 << 999999999999000.0;
}

void TestInvoice::lineAmountIsRoundedToTheMoneyUnit()
{
    QFETCH(double, count);
    QFETCH(double, price);
    QFETCH(int, decimals);
    QTEST(InvoiceFigures::lineAmount(count, price, decimals), "amount");
}

void TestInvoice::figuresFollowFromLinesDiscountAndPercents_data()
{
    QTest::addColumn<double>("price");
    QTest::addColumn<double>("discount");
    QTest::addColumn<double>("taxPercent");
    QTest::addColumn<double>("dutyPercent");
    QTest::addColumn<double>("tax");
    QTest::addColumn<double>("duty");
    QTest::addColumn<double>("total");
    QTest::newRow("plain") << 1000000.0 << 0.0 << 6.0 << 4.0 << 60000.0 << 40000.0 << 1100000.0;
    QTest::newRow("levies are on what is left after the discount") << 1000000.0 << 100000.0 << 6.0 << 4.0 << 54000.0 << 36000.0
                                                                   << 990000.0;
    QTest::newRow("fractions of a percent") << 1000000.0 << 0.0 << 4.5 << 0.0 << 45000.0 << 0.0 << 1045000.0;
    QTest::newRow("rounded") << 333.0 << 0.0 << 9.0 << 0.0 << 30.0 << 0.0 << 363.0;
    QTest::newRow("all of it discounted") << 1000.0 << 1000.0 << 9.0 << 1.0 << 0.0 << 0.0 << 0.0;
}

void TestInvoice::figuresFollowFromLinesDiscountAndPercents()
{
    QFETCH(double, price);
    QFETCH(double, discount);
    QFETCH(double, taxPercent);
    QFETCH(double, dutyPercent);
    InvoiceFigures figures(0);
    figures.setTaxPercent(taxPercent);
    figures.setDutyPercent(dutyPercent);
    figures.setLines({{1, {}, 1, price}});
    figures.setDiscount(discount);
    QCOMPARE(figures.sum(), price);
    QTEST(figures.tax().amount, "tax");
    QTEST(figures.duty().amount, "duty");
    QTEST(figures.total(), "total");
}

void TestInvoice::typedAmountStaysWhenTheLinesChange()
{
    InvoiceFigures figures(0);
    figures.setTaxPercent(9);
    figures.setLines({{1, {}, 1, 1000}});
    figures.setTax(80);
    QCOMPARE(figures.tax().percent, 8.0);
    figures.setLines({{1, {}, 2, 1000}});
    QCOMPARE(figures.tax().amount, 80.0);
    QCOMPARE(figures.tax().percent, 4.0);
    QCOMPARE(figures.total(), 2080.0);
}

void TestInvoice::percentComesBackWhenItIsTypedAfterAnAmount()
{
    InvoiceFigures figures(0);
    figures.setLines({{1, {}, 1, 1000}});
    figures.setDuty(77);
    figures.setDutyPercent(2);
    QCOMPARE(figures.duty().amount, 20.0);
    figures.setLines({{1, {}, 3, 1000}});
    QCOMPARE(figures.duty().amount, 60.0);
}

void TestInvoice::storedAmountsGiveTheirPercents_data()
{
    QTest::addColumn<double>("tax");
    QTest::addColumn<double>("percent");
    QTest::addColumn<bool>("typed");
    QTest::newRow("nine percent") << 90000.0 << 9.0 << false;
    QTest::newRow("with decimals") << 45000.0 << 4.5 << false;
    QTest::newRow("none") << 0.0 << 0.0 << false;
    QTest::newRow("an amount that no percentage of four decimals gives") << 0.4 << 0.0 << true;
}

void TestInvoice::storedAmountsGiveTheirPercents()
{
    QFETCH(double, tax);
    InvoiceFigures figures(0);
    figures.load({{1, {}, 1, 1100000}}, 100000, tax, 0);
    QTEST(figures.tax().percent, "percent");
    QTEST(figures.tax().typed, "typed");
    QCOMPARE(figures.tax().amount, tax);
    // A round percentage stays round.
    figures.load({{1, {}, 1, 333}}, 0, 30, 0);
    QCOMPARE(figures.tax().percent, 9.0);
    figures.setLines({{1, {}, 1, 1000}});
    QCOMPARE(figures.tax().amount, 90.0);
}

void TestInvoice::withoutABaseThereIsNoLevy()
{
    InvoiceFigures figures(0);
    figures.setTaxPercent(9);
    QCOMPARE(figures.tax().amount, 0.0);
    figures.setDiscount(500);
    QCOMPARE(figures.tax().amount, 0.0);
    figures.setLines({{1, {}, 1, 1500}});
    QCOMPARE(figures.tax().amount, 90.0);
}

void TestInvoice::problems_data()
{
    QTest::addColumn<std::function<void(Invoice &)>>("spoil");
    QTest::addColumn<int>("what");
    QTest::addColumn<int>("line");
    const auto row = [](const char *name, const std::function<void(Invoice &)> &spoil, What what, int line = -1) {
        QTest::newRow(name) << spoil << static_cast<int>(what) << line;
    };
    row(
        "nobody", [](Invoice &i) { i.personID = 0; }, What::NoPerson);
    row(
        "no date", [](Invoice &i) { i.date = {}; }, What::NoDate);
    row(
        "no lines", [](Invoice &i) { i.lines.clear(); }, What::NoLines);
    row(
        "a line of nothing", [](Invoice &i) { i.lines[1].desc = u"  "_s; }, What::LineOfNothing, 1);
    row(
        "no count", [](Invoice &i) { i.lines[0].count = 0; }, What::LineWithoutCount, 0);
    row(
        "a negative count", [](Invoice &i) { i.lines[1].count = -1; }, What::LineWithoutCount, 1);
    row(
        "no price", [](Invoice &i) { i.lines[1].price = 0; }, What::LineWithoutPrice, 1);
    row(
        "a price below the money unit", [](Invoice &i) { i.lines[1].price = 0.4; }, What::LineWithoutPrice, 1);
    row(
        "an amount that the books cannot hold", [](Invoice &i) { i.lines[1].count = 1e9; i.lines[1].price = 1e6; },
        What::AmountTooLarge, 1);
    row(
        "a total that the books cannot hold", [](Invoice &i) { i.tax = 999999999999999.0; }, What::AmountTooLarge);
    row(
        "a discount above the sum", [](Invoice &i) { i.discount = 1250001; }, What::DiscountAboveSum);
    row(
        "a negative tax", [](Invoice &i) { i.tax = -1; }, What::NegativeFigure);
}

void TestInvoice::problems()
{
    QFETCH(std::function<void(Invoice &)>, spoil);
    Invoice invoice = goodInvoice();
    QVERIFY(invoice.problems(0).isEmpty());
    spoil(invoice);
    const QList<Invoice::Problem> found = invoice.problems(0);
    QCOMPARE(found.size(), 1);
    QTEST(static_cast<int>(found.constFirst().what), "what");
    QTEST(found.constFirst().line, "line");
    QVERIFY(!Invoice::message(found.constFirst()).isEmpty());
}

void TestInvoice::largestAmountDependsOnTheDecimals_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("price");
    QTest::addColumn<int>("problems");
    QTest::newRow("whole, the largest") << 0 << 999999999999999.0 << 0;
    QTest::newRow("whole, above it") << 0 << 1e15 << 1;
    QTest::newRow("with decimals, the largest") << 2 << 99999999999.0 << 0;
    QTest::newRow("with decimals, above it") << 2 << 1e11 << 1;
}

void TestInvoice::largestAmountDependsOnTheDecimals()
{
    QFETCH(int, decimals);
    QFETCH(double, price);
    Invoice invoice = goodInvoice();
    invoice.lines = {{0, u"برج"_s, 1, price}};
    invoice.discount = invoice.tax = invoice.duty = 0;
    QTEST(static_cast<int>(invoice.problems(decimals).size()), "problems");
}

void TestInvoice::problemsComeInTheOrderOfTheWindow()
{
    Invoice empty;
    const QList<Invoice::Problem> found = empty.problems(0);
    QCOMPARE(found.size(), 3);
    QVERIFY(found.at(0).what == What::NoPerson && found.at(1).what == What::NoDate && found.at(2).what == What::NoLines);
    Invoice whole = goodInvoice();
    whole.discount = 1250000;
    QVERIFY(whole.problems(0).isEmpty());
}

void TestInvoice::documentRows_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("returned");
    QTest::addColumn<QString>("rows");
    QTest::newRow("sale") << int(CTblFactors::sale) << false
                          << "110301/7/1080/0 410102/0/100/0 410101/0/0/1000 210501/0/0/108 210502/0/0/72";
    QTest::newRow("purchase") << int(CTblFactors::purchase) << false
                              << "610101/0/1000/0 610502/0/108/0 610503/0/72/0 110301/7/0/1080 610102/0/0/100";
    QTest::newRow("returned sale") << int(CTblFactors::sale) << true
                                   << "410101/0/1000/0 210501/0/108/0 210502/0/72/0 110301/7/0/1080 410102/0/0/100";
    QTest::newRow("returned purchase") << int(CTblFactors::purchase) << true
                                       << "110301/7/1080/0 610102/0/100/0 610101/0/0/1000 610502/0/0/108 610503/0/0/72";
}

void TestInvoice::documentRows()
{
    QFETCH(int, type);
    QFETCH(bool, returned);
    QStringList rows;
    for (const DocumentRow &row :
         invoiceDocumentRows({type, returned, 12, 7, u"علی رضایی"_s, 1000, 100, 108, 72}))
        rows.append(u"%1/%2/%3/%4"_s.arg(row.account).arg(row.personID).arg(row.debit).arg(row.credit));
    QTEST(rows.join(u' '), "rows");
}

void TestInvoice::documentBalances_data()
{
    QTest::addColumn<InvoiceForDocument>("invoice");
    QTest::addColumn<int>("rows");
    const QString name = u"علی"_s;
    QTest::newRow("no discount, no levies") << InvoiceForDocument{7, false, 1, 7, name, 1000, 0, 0, 0} << 2;
    QTest::newRow("wholly discounted") << InvoiceForDocument{7, false, 1, 7, name, 1000, 1000, 0, 0} << 2;
    QTest::newRow("decimals") << InvoiceForDocument{8, false, 1, 7, name, 10.1, 0.3, 0.88, 0.1} << 5;
    QTest::newRow("a return") << InvoiceForDocument{8, true, 1, 7, name, 10.1, 0, 0.88, 0} << 3;
}

void TestInvoice::documentBalances()
{
    QFETCH(InvoiceForDocument, invoice);
    const QList<DocumentRow> rows = invoiceDocumentRows(invoice);
    QTEST(int(rows.size()), "rows");
    double debit = 0;
    double credit = 0;
    for (const DocumentRow &row : rows) {
        debit += row.debit;
        credit += row.credit;
        QVERIFY((row.debit > 0) != (row.credit > 0));
        QCOMPARE(row.personID != 0, row.account == Accounts::persons);
    }
    QVERIFY(IsEquals(debit, credit));
}

void TestInvoice::documentTextNamesKindAndNumber()
{
    QCOMPARE(invoiceDocumentDescription(CTblFactors::sale, false, 12), u"فاکتور فروش ش :12"_s);
    QCOMPARE(invoiceDocumentDescription(CTblFactors::purchase, true, 3), u"برگشت از خرید ش :3"_s);
    const QList<DocumentRow> rows = invoiceDocumentRows({7, false, 12, 7, u"علی رضایی"_s, 1000, 0, 90, 0});
    QCOMPARE(rows.at(0).description, u"فاکتور فروش ش :12"_s);
    QCOMPARE(rows.at(2).description, u"مالیات ارزش افزوده فاکتور فروش ش :12 علی رضایی"_s);
}

static const RegisteredTest<TestInvoice, QCoreApplication> registeredInvoice;
#include "TestInvoice.moc"
