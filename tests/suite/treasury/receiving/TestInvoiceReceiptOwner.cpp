// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/InvoiceReceiptOwner.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/utility/values/Money.h"
#include "tests/suite/treasury/receiving/InvoiceOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

class TestInvoiceReceiptOwner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_office.clear(); }
    void invoicesAreOpenInTheirDirection_data();
    void invoicesAreOpenInTheirDirection();
    void partLeavesTheRest();
    void voidReceiptOpensTheInvoiceAgain();
    void moneyPaidBackOpensTheInvoiceAgain();
    void voidInvoiceIsNotOpenNorReceivedFor();
    void secondDeskIsToldWhoReceived();
    void invoiceWithMoneyIsNotMadeVoid();
    void invoiceWithMoneyKeepsItsPerson();
    void invoiceIsNotLoweredBelowItsMoney_data();
    void invoiceIsNotLoweredBelowItsMoney();
    void invoiceWithMoneyStaysASale();
    void bouncedChequeStandsUntilItIsGivenBack_data();
    void bouncedChequeStandsUntilItIsGivenBack();
    void restIsInTheDecimalsOfTheMoneyUnit_data();
    void restIsInTheDecimalsOfTheMoneyUnit();

private:
    QString refused(const std::function<void()> &work);

    InvoiceOffice m_office;
};

QString TestInvoiceReceiptOwner::refused(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

void TestInvoiceReceiptOwner::invoicesAreOpenInTheirDirection_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("returned");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("sale") << Invoice::sale << false << int(CTblReceipts::received) << u"فاکتور فروش شماره %1"_s;
    QTest::newRow("sale that came back") << Invoice::sale << true << int(CTblReceipts::paid) << u"برگشت از فروش شماره %1"_s;
    QTest::newRow("purchase") << Invoice::purchase << false << int(CTblReceipts::paid) << u"فاکتور خرید شماره %1"_s;
    QTest::newRow("purchase that went back") << Invoice::purchase << true << int(CTblReceipts::received) << u"برگشت از خرید شماره %1"_s;
}

void TestInvoiceReceiptOwner::invoicesAreOpenInTheirDirection()
{
    QFETCH(int, type);
    QFETCH(bool, returned);
    QFETCH(int, kind);
    QFETCH(QString, text);
    const int num = m_office.invoice(type, m_office.ali, returned);
    const auto direction = static_cast<CTblReceipts::Kind>(kind);
    const auto other = direction == CTblReceipts::paid ? CTblReceipts::received : CTblReceipts::paid;
    QCOMPARE(m_office.open(m_office.ali, direction), u"%1=990"_s.arg(num));
    QCOMPARE(m_office.open(m_office.ali, other), QString());
    QCOMPARE(m_office.open(m_office.pars, direction), QString());
    QCOMPARE(m_office.openItems(m_office.ali, direction).constFirst().purpose.text, text.arg(num));
    m_office.take(m_office.ali, 990, m_office.purposeOf(m_office.ali, num, direction), direction);
    QCOMPARE(m_office.open(m_office.ali, direction), QString());
    QCOMPARE(m_office.open(m_office.ali, other), QString());
}

void TestInvoiceReceiptOwner::partLeavesTheRest()
{
    const int first = m_office.invoice(Invoice::sale, m_office.ali);
    const int second = m_office.invoice(Invoice::sale, m_office.ali);
    m_office.take(m_office.ali, 90, m_office.purposeOf(m_office.ali, first));
    QCOMPARE(m_office.open(m_office.ali), u"%1=900 %2=990"_s.arg(first).arg(second));
    // What is on account is for none of them.
    m_office.take(m_office.ali, 400);
    QCOMPARE(m_office.open(m_office.ali), u"%1=900 %2=990"_s.arg(first).arg(second));
}

void TestInvoiceReceiptOwner::voidReceiptOpensTheInvoiceAgain()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    const int receipt = m_office.take(m_office.ali, 990, m_office.purposeOf(m_office.ali, num));
    QCOMPARE(m_office.open(m_office.ali), QString());
    ReceiptPosting::makeVoid(receipt, u"اشتباه"_s);
    QCOMPARE(m_office.open(m_office.ali), u"%1=990"_s.arg(num));
}

void TestInvoiceReceiptOwner::moneyPaidBackOpensTheInvoiceAgain()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    const ReceiptPurpose purpose = m_office.purposeOf(m_office.ali, num);
    m_office.take(m_office.ali, 990, purpose);
    ReceiptPurpose back = purpose;
    back.require = {};
    m_office.take(m_office.ali, 190, back, CTblReceipts::paid);
    QCOMPARE(m_office.open(m_office.ali), u"%1=190"_s.arg(num));
}

void TestInvoiceReceiptOwner::voidInvoiceIsNotOpenNorReceivedFor()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    const ReceiptPurpose seen = m_office.purposeOf(m_office.ali, num);
    InvoicePosting::makeVoid(num);
    QCOMPARE(m_office.open(m_office.ali), QString());
    const QString told = refused([&] { m_office.take(m_office.ali, 990, seen); });
    QVERIFY2(told.startsWith(u"کاربر «admin» در "_s) && told.contains(u"باطل کرده است"_s), qPrintable(told));
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
}

void TestInvoiceReceiptOwner::secondDeskIsToldWhoReceived()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    const ReceiptPurpose seenHere = m_office.purposeOf(m_office.ali, num);
    const ReceiptPurpose seenThere = m_office.purposeOf(m_office.ali, num);
    m_office.take(m_office.ali, 990, seenThere);
    const QString told = refused([&] { m_office.take(m_office.ali, 990, seenHere); });
    QVERIFY2(told.startsWith(u"کاربر «admin» در "_s) && told.contains(u"مانده «فاکتور فروش شماره %1»"_s.arg(num)), qPrintable(told));
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM Receipts"_s), u"1"_s);
}

void TestInvoiceReceiptOwner::invoiceIsNotLoweredBelowItsMoney_data()
{
    QTest::addColumn<double>("taken");
    QTest::addColumn<double>("price"); // of its one line; 90 more are owed less the discount of 100
    QTest::addColumn<bool>("isRefused");
    QTest::newRow("nothing received") << 0. << 500. << false;
    QTest::newRow("still above it") << 400. << 500. << false;
    QTest::newRow("just what was received") << 490. << 500. << false;
    QTest::newRow("below it") << 491. << 500. << true;
    QTest::newRow("raised") << 990. << 1500. << false;
    QTest::newRow("paid whole and left as it is") << 990. << 1000. << false;
}

void TestInvoiceReceiptOwner::invoiceIsNotLoweredBelowItsMoney()
{
    QFETCH(double, taken);
    QFETCH(double, price);
    QFETCH(bool, isRefused);
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    if (taken > 0)
        m_office.take(m_office.ali, taken, m_office.purposeOf(m_office.ali, num));
    Invoice invoice = InvoicePosting::load(num);
    invoice.lines[0].price = price;
    const QString told = refused([&] { InvoicePosting::save(invoice); });
    QVERIFY2(told.contains(u"مبلغ %1 "_s.arg(taken)) == isRefused && told.isEmpty() != isRefused, qPrintable(told));
    QCOMPARE(m_office.database.value(u"SELECT dAmount FROM Factors"_s), QString::number(isRefused ? 1000 : price));
}

void TestInvoiceReceiptOwner::invoiceWithMoneyStaysASale()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    m_office.take(m_office.ali, 90, m_office.purposeOf(m_office.ali, num));
    Invoice invoice = InvoicePosting::load(num);
    invoice.returned = true;
    QVERIFY(refused([&] { InvoicePosting::save(invoice); }).contains(u"مبلغ 90 "_s));
    QCOMPARE(InvoicePosting::load(num).returned, false);
}

void TestInvoiceReceiptOwner::bouncedChequeStandsUntilItIsGivenBack_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("stands");
    QTest::newRow("in hand") << int(ChequeState::InHand) << true;
    QTest::newRow("bounced") << int(ChequeState::Bounced) << true;
    QTest::newRow("given back") << int(ChequeState::Returned) << false;
}

void TestInvoiceReceiptOwner::bouncedChequeStandsUntilItIsGivenBack()
{
    QFETCH(int, state);
    QFETCH(bool, stands);
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    const Cheque cheque{.sayad = u"1234567890123456"_s, .bank = u"ملت"_s, .due = m_office.day};
    const ReceiptPosting::Part part{990, u"چک"_s, m_office.purposeOf(m_office.ali, num)};
    const int id = ReceiptPosting::save({.personID = m_office.ali, .date = m_office.day, .method = CTblReceipts::cheque, .cheque = cheque, .parts = {part}}).constFirst().chequeID;
    if (state != int(ChequeState::InHand))
        ChequeChanging::change({.seen = ChequeChanging::seen(id), .to = static_cast<ChequeState>(state), .date = m_office.day});
    QCOMPARE(!InvoicePosting::voidRefusal(num).isEmpty(), stands);
    QCOMPARE(!refused([&] { InvoicePosting::makeVoid(num); }).isEmpty(), stands);
}

void TestInvoiceReceiptOwner::restIsInTheDecimalsOfTheMoneyUnit_data()
{
    QTest::addColumn<double>("tax"); // of an invoice of 936 without it
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("rest");
    QTest::newRow("less than half") << 54.4 << 0 << u"990"_s;
    QTest::newRow("more than half") << 54.6 << 0 << u"991"_s;
    QTest::newRow("kept") << 54.6 << 1 << u"990.6"_s;
}

// An invoice from when the office kept more decimals: what is proposed is what is open.
void TestInvoiceReceiptOwner::restIsInTheDecimalsOfTheMoneyUnit()
{
    QFETCH(double, tax);
    QFETCH(int, decimals);
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    m_office.database.run(u"UPDATE Factors SET dTax=%1"_s.arg(tax));
    GetDBSetting()->SetMoneyDecimals(decimals);
    const QList<OpenItem> items = m_office.openItems(m_office.ali);
    QCOMPARE(items.size(), 1);
    QTEST(DToStr(items.constFirst().rest), "rest");
    m_office.take(m_office.ali, items.constFirst().rest, items.constFirst().purpose);
    const QString left = m_office.open(m_office.ali);
    GetDBSetting()->SetMoneyDecimals(0);
    QCOMPARE(left, QString());
    QVERIFY(num > 0);
}

void TestInvoiceReceiptOwner::invoiceWithMoneyIsNotMadeVoid()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    const int receipt = m_office.take(m_office.ali, 90, m_office.purposeOf(m_office.ali, num));
    const QString told = refused([&] { InvoicePosting::makeVoid(num); });
    QVERIFY2(told.contains(u"مبلغ 90 "_s), qPrintable(told));
    QCOMPARE(InvoicePosting::voidRefusal(num), told);
    QCOMPARE(InvoicePosting::changeRefusal(num), QString());
    QCOMPARE(m_office.database.value(u"SELECT iStatus FROM Factors"_s), u"0"_s);
    ReceiptPosting::makeVoid(receipt, u"اشتباه"_s);
    QCOMPARE(InvoicePosting::voidRefusal(num), QString());
    InvoicePosting::makeVoid(num);
    QCOMPARE(m_office.database.value(u"SELECT iStatus FROM Factors"_s), u"1"_s);
}

void TestInvoiceReceiptOwner::invoiceWithMoneyKeepsItsPerson()
{
    const int num = m_office.invoice(Invoice::sale, m_office.ali);
    m_office.take(m_office.ali, 90, m_office.purposeOf(m_office.ali, num));
    Invoice edited = InvoicePosting::load(num);
    edited.personID = m_office.pars;
    QVERIFY(refused([&] { InvoicePosting::save(edited); }).contains(u"دریافت یا پرداخت شده است"_s));
    QCOMPARE(InvoicePosting::load(num).personID, m_office.ali);
    edited = InvoicePosting::load(num);
    edited.desc = u"شرح دیگر"_s;
    InvoicePosting::save(edited);
    QCOMPARE(InvoicePosting::load(num).desc, u"شرح دیگر"_s);
}

static const RegisteredTest<TestInvoiceReceiptOwner, QCoreApplication> registeredInvoiceReceiptOwner;
#include "TestInvoiceReceiptOwner.moc"
