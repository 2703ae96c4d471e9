// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentRow.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/DocumentWriter.h"
#include "suite/utility/values/Money.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestDocumentRow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setDefaultMoneyDecimals(0); }

    void sumIsTakenOfEachSide()
    {
        const AccountBalance sum = documentSum({{Accounts::cash, 0, 300, 0, {}},
                                                {Accounts::persons, 7, 0, 100, {}},
                                                {Accounts::bank, 0, 0, 250, {}},
                                                {Accounts::bank, 0, 20, 0, {}}});
        QCOMPARE(sum.bed, 320.0);
        QCOMPARE(sum.bes, 350.0);
    }

    void noRowsBalance()
    {
        QVERIFY(documentSum({}).isBalanced());
        QVERIFY(DocumentWriter::imbalance({}).isEmpty());
    }

    void refusalSaysBothSides_data()
    {
        QTest::addColumn<double>("debit");
        QTest::addColumn<double>("credit");
        QTest::addColumn<QString>("refusal");
        QTest::newRow("equal") << 1500.0 << 1500.0 << QString();
        QTest::newRow("less than 0.0001 apart") << 1500.00005 << 1500.0 << QString();
        QTest::newRow("0.0002 apart") << 1500.0002 << 1500.0 << u"سند تراز نیست: بدهکار 1,500، بستانکار 1,500."_s;
        QTest::newRow("more debit") << 1501.0 << 1500.0 << u"سند تراز نیست: بدهکار 1,501، بستانکار 1,500."_s;
        QTest::newRow("credit alone") << 0.0 << 7.0 << u"سند تراز نیست: بدهکار 0، بستانکار 7."_s;
    }

    void refusalSaysBothSides()
    {
        QFETCH(double, debit);
        QFETCH(double, credit);
        QTEST(DocumentWriter::imbalance({{Accounts::cash, 0, debit, 0, {}}, {Accounts::bank, 0, 0, credit, {}}}), "refusal");
    }
};

static const RegisteredTest<TestDocumentRow> registeredDocumentRow;
#include "TestDocumentRow.moc"
