// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cars/SaleFromContract.h"

#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestSaleFromContract : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whichContractsSell_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("sells");
        QTest::newRow("sale agreement") << 0 << true;
        QTest::newRow("rent") << 1 << false;
        QTest::newRow("instalment sale") << 2 << true;
        QTest::newRow("letter") << 3 << false;
    }

    void whichContractsSell()
    {
        QFETCH(int, type);
        QTEST(SaleFromContract::isSale(type), "sells");
    }

    void valuesGoIntoTheColumnsOfTheSale()
    {
        QStringList values;
        for (const SaleValue &one : SaleFromContract::valuesOf({.buyerID = 7, .date = QDateTime(QDate(2026, 1, 2), QTime(0, 0), Qt::UTC), .amount = 100, .commission = 3, .registry = u"12"_s}))
            values << one.column + u'=' + one.value.toString();
        QCOMPARE(values, QStringList({u"iPersonBuyerID=7"_s, u"dateBuy=2026-01-02T00:00:00.000Z"_s, u"sRegistryNum=12"_s, u"dAmountContract=100"_s, u"dAmountCommission=3"_s, u"dSoldAmount=100"_s}));
    }

    void whatTheContractDoesNotStateIsLeftOut()
    {
        const QList<SaleValue> values = SaleFromContract::valuesOf({.amount = 100});
        QCOMPARE(values.size(), 2);
        for (const SaleValue &one : values)
            QVERIFY(!SaleFromContract::isEmpty(one.value));
    }

    void emptyValues()
    {
        for (const QVariant &empty : {QVariant(0), QVariant(0.0), QVariant(u" "_s), QVariant(QDateTime())})
            QVERIFY(SaleFromContract::isEmpty(empty));
        for (const QVariant &stated : {QVariant(1), QVariant(0.5), QVariant(u"x"_s), QVariant(QDateTime(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC))})
            QVERIFY(!SaleFromContract::isEmpty(stated));
    }
};

static const RegisteredTest<TestSaleFromContract> registeredSaleFromContract;
#include "TestSaleFromContract.moc"
