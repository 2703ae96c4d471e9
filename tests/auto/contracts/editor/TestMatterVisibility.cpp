// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/MatterFields.h"
#include "auto/contracts/editor/MatterVisibility.h"
#include "tests/support/RegisteredTest.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class TestMatterVisibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsThatATypeDoesNotUse_data()
    {
        QTest::addColumn<int>("contractType");
        QTest::addColumn<QString>("unused");
        QTest::newRow("sale: no cash line, no rent, no instalments")
            << 0
            << u"dFixAmount dAmountRent sRentTime dateRent dateRentExpire sNumOfMonths sNumOfInstallment sUsanceNum "
               "dDelayAmount"_s;
        QTest::newRow("rent: no cash line, no instalments")
            << 1 << u"dFixAmount sNumOfInstallment sUsanceNum dDelayAmount"_s;
        QTest::newRow("instalment sale: no cash line, no notary document, months, cheque text, remainder or rent amount")
            << 2
            << u"dFixAmount dateDocument dateOffice sNumOfMonths sDescCheck dRemainingAmount sDescRemainingAmount "
               "dAmountRent"_s;
    }

    void fieldsThatATypeDoesNotUse()
    {
        QFETCH(int, contractType);
        QFETCH(QString, unused);
        QSet<QString> found;
        for (const KFormField &field : matterFields()) {
            if (!MatterVisibility::isUsed(contractType, field.column))
                found.insert(field.column);
        }
        const QStringList wanted = unused.split(u' ');
        QCOMPARE(found, QSet<QString>(wanted.begin(), wanted.end()));
    }

    void letterAndUnknownTypesUseNothing_data()
    {
        QTest::addColumn<int>("contractType");
        QTest::newRow("letter") << 3;
        QTest::newRow("above all types") << 4;
        QTest::newRow("below all types") << -1;
    }

    void letterAndUnknownTypesUseNothing()
    {
        QFETCH(int, contractType);
        for (const KFormField &field : matterFields())
            QVERIFY2(!MatterVisibility::isUsed(contractType, field.column), qPrintable(field.column));
        QVERIFY(!MatterVisibility::hasTerms(contractType));
        QVERIFY(!MatterVisibility::hasInstalments(contractType));
    }

    void termsAreThoseOfRentAndInstalmentSalesAndThePlanThatOfTheLatter()
    {
        QVERIFY(!MatterVisibility::hasTerms(0));
        QVERIFY(MatterVisibility::hasTerms(1));
        QVERIFY(MatterVisibility::hasTerms(2));
        QVERIFY(!MatterVisibility::hasInstalments(0));
        QVERIFY(!MatterVisibility::hasInstalments(1));
        QVERIFY(MatterVisibility::hasInstalments(2));
    }

    void fieldsAreFiftyOneColumnsEachOnce()
    {
        QSet<QString> columns;
        QSet<QString> names;
        for (const KFormField &field : matterFields()) {
            columns.insert(field.column);
            names.insert(field.accessibleName.isEmpty() ? field.label : field.accessibleName);
        }
        QCOMPARE(columns.size(), 51);
        QCOMPARE(names.size(), 51);
    }
};

static const RegisteredTest<TestMatterVisibility> registeredMatterVisibility;

#include "TestMatterVisibility.moc"
