// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/InvoiceReceiptOwner.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "tests/suite/treasury/InvoiceOffice.h"
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
