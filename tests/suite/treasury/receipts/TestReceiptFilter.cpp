// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receipts/ReceiptFilter.h"

#include "tests/support/RegisteredTest.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestReceiptFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void conditions_data();
    void conditions();
};

void TestReceiptFilter::conditions_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QString>("condition");
    const QDateTime day(QDate(2026, 11, 20), QTime(10, 30), Qt::UTC);
    QTest::newRow("nothing asked") << KFilterValues{} << u"iStatus<>1"_s;
    QTest::newRow("void ones too") << KFilterValues{{u"voided"_s, true}} << QString();
    QTest::newRow("person") << KFilterValues{{u"person"_s, 7}} << u"iStatus<>1 AND iPersonID=7"_s;
    QTest::newRow("received") << KFilterValues{{u"kind"_s, 1}} << u"iStatus<>1 AND iKind=0"_s;
    QTest::newRow("paid") << KFilterValues{{u"kind"_s, 2}} << u"iStatus<>1 AND iKind=1"_s;
    QTest::newRow("by cheque") << KFilterValues{{u"method"_s, 4}} << u"iStatus<>1 AND iMethod=4"_s;
    QTest::newRow("whole last day") << KFilterValues{{u"from"_s, day}, {u"to"_s, day}} << u"iStatus<>1 AND date>='2026-11-20' AND date<'2026-11-21'"_s;
    QTest::newRow("amounts") << KFilterValues{{u"amountFrom"_s, 5.}, {u"amountTo"_s, 9.5}} << u"iStatus<>1 AND dAmount>=5.000000 AND dAmount<=9.500000"_s;
}

void TestReceiptFilter::conditions()
{
    QFETCH(KFilterValues, values);
    QTEST(KListFilter::condition(receiptFilters(), values, 1).text(), "condition");
}

static const RegisteredTest<TestReceiptFilter> registeredReceiptFilter;
#include "TestReceiptFilter.moc"
