// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ReceiptSpread.h"

#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int contractKind = 69;
constexpr int invoiceKind = 7;

ReceiptPurpose instalment(int contract, int payment)
{
    return {.recordKind = contractKind, .recordID = contract, .paymentID = payment, .what = ReceiptPurpose::Instalment};
}

ReceiptPurpose commission(int contract, int side)
{
    return {.recordKind = contractKind, .recordID = contract, .what = ReceiptPurpose::Commission, .side = side};
}

ReceiptPurpose invoice(int num)
{
    return {.recordKind = invoiceKind, .recordID = num, .what = ReceiptPurpose::Invoice};
}

// Three instalments of one contract and its commission, an invoice, and an instalment of another contract.
QList<OpenItem> openItems()
{
    return {{commission(12, 2), 50}, {instalment(12, 101), 100}, {instalment(12, 102), 60.5}, {instalment(12, 103), 100}, {invoice(7), 30}, {instalment(13, 201), 500}};
}

// "record/payment=amount", the account alone as "0/0=amount".
QString shown(const QList<ReceiptSpread::Share> &shares)
{
    QStringList texts;
    for (const ReceiptSpread::Share &share : shares)
        texts.append(u"%1/%2=%3"_s.arg(share.purpose.recordID).arg(share.purpose.paymentID).arg(DToStr(share.amount)));
    return texts.join(u' ');
}

}

class TestReceiptSpread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void amountGoesOnFromItemToItem_data();
    void amountGoesOnFromItemToItem();
    void sharesComeToTheAmount();
    void sidesOfAContractAreNotTheSame();
    void firstDueIsWhatIsPaidFirst_data();
    void firstDueIsWhatIsPaidFirst();
};

void TestReceiptSpread::firstDueIsWhatIsPaidFirst_data()
{
    QTest::addColumn<QList<int>>("days"); // from a day on; 0: at once
    QTest::addColumn<int>("first");
    QTest::newRow("nothing open") << QList<int>() << -1;
    QTest::newRow("one") << QList<int>{30} << 0;
    QTest::newRow("in their order") << QList<int>{30, 60} << 0;
    QTest::newRow("an older one of another record") << QList<int>{60, 90, 30} << 2;
    QTest::newRow("at once before every day") << QList<int>{30, 0, 0} << 1;
}

void TestReceiptSpread::firstDueIsWhatIsPaidFirst()
{
    QFETCH(QList<int>, days);
    const QDateTime start(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC);
    QList<OpenItem> items;
    for (const int day : std::as_const(days))
        items.append({invoice(int(items.size())), 10, day == 0 ? QDateTime() : start.addDays(day)});
    const OpenItem *first = ReceiptSpread::firstDue(items);
    QTEST(first ? first->purpose.recordID : -1, "first");
}

void TestReceiptSpread::amountGoesOnFromItemToItem_data()
{
    QTest::addColumn<ReceiptPurpose>("purpose");
    QTest::addColumn<double>("amount");
    QTest::addColumn<double>("surplus");
    QTest::addColumn<QString>("shares");
    const auto row = [](const char *name, const ReceiptPurpose &purpose, double amount, double surplus, const QString &shares) {
        QTest::newRow(name) << purpose << amount << surplus << shares;
    };
    row("a part", instalment(12, 101), 40, 0, u"12/101=40"_s);
    row("the whole", instalment(12, 101), 100, 0, u"12/101=100"_s);
    row("within 0.0001 of it", instalment(12, 101), 100.00004, 0, u"12/101=100"_s);
    row("into the next", instalment(12, 101), 130, 30, u"12/101=100 12/102=30"_s);
    row("over the next", instalment(12, 101), 200, 100, u"12/101=100 12/102=60.5 12/103=39.5"_s);
    row("all behind it, then what came before", instalment(12, 102), 200, 139.5, u"12/102=60.5 12/103=100 12/0=39.5"_s);
    row("more than the record owes", instalment(12, 103), 400, 300, u"12/103=100 12/0=50 12/101=100 12/102=60.5 0/0=89.5"_s);
    row("commission goes on to the instalments", commission(12, 2), 70, 20, u"12/0=50 12/101=20"_s);
    row("nothing else of the record", invoice(7), 31, 1, u"7/0=30 0/0=1"_s);
    row("another record is left alone", instalment(13, 201), 600, 100, u"13/201=500 0/0=100"_s);
    row("nothing known of it", instalment(99, 901), 600, 0, u"99/901=600"_s);
    row("on account", {}, 600, 0, u"0/0=600"_s);
}

void TestReceiptSpread::amountGoesOnFromItemToItem()
{
    QFETCH(ReceiptPurpose, purpose);
    QFETCH(double, amount);
    QFETCH(double, surplus);
    QCOMPARE(ReceiptSpread::surplus(amount, purpose, openItems()), surplus);
    QTEST(shown(ReceiptSpread::of(amount, purpose, openItems())), "shares");
}

void TestReceiptSpread::sharesComeToTheAmount()
{
    for (double amount = 0.5; amount < 900; amount += 13.25) {
        for (const OpenItem &item : openItems()) {
            double sum = 0;
            for (const ReceiptSpread::Share &share : ReceiptSpread::of(amount, item.purpose, openItems())) {
                QVERIFY(share.amount > 0);
                sum += share.amount;
            }
            QVERIFY(IsEquals(sum, amount));
        }
    }
}

void TestReceiptSpread::sidesOfAContractAreNotTheSame()
{
    QVERIFY(ReceiptSpread::isSame(commission(12, 2), commission(12, 2)));
    QVERIFY(!ReceiptSpread::isSame(commission(12, 1), commission(12, 2)));
    QCOMPARE(ReceiptSpread::find(openItems(), commission(12, 1)), nullptr);
    QCOMPARE(ReceiptSpread::find(openItems(), {}), nullptr);
}

static const RegisteredTest<TestReceiptSpread> registeredReceiptSpread;
#include "TestReceiptSpread.moc"
