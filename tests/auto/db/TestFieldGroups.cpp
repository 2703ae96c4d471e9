// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

// Columns that count as one field when two desks change a row: a name that is none would leave its column out unnoticed.
class TestFieldGroups : public QObject
{
    Q_OBJECT

    template <class Record>
    static void compare()
    {
        Record record;
        QSet<QString> taken;
        for (const QStringList &group : Record::fieldGroups()) {
            QVERIFY(group.size() > 1);
            for (const QString &column : group) {
                QVERIFY2(record.column(column), qPrintable(column));
                QVERIFY2(!taken.contains(column), qPrintable(column));
                taken.insert(column);
            }
        }
    }

private Q_SLOTS:
    void contracts() { compare<CTblAutomobilContracts>(); }
    void cars() { compare<CTblAutomobilInformations>(); }
    void demands() { compare<CTblAutomobilDemands>(); }

    // Each amount that a contract's document is made of, with who owes it.
    void whatTheDocumentIsMadeOfIsOneField_data()
    {
        QTest::addColumn<QString>("column");
        for (const char *column : {"dCommission", "dateContract", "iContractType", "iNum", "iCode", "iPersonFirstID", "iPersonSecondID", "sName1",
                                   "sName2", "iPersonContract1", "iPersonContract2", "dDiscountFirst", "dDiscountSecond", "dPercentTax",
                                   "dPercentTax2", "dTax", "dTax2", "dPercentImpsition", "dPercentImposition2", "dImposition", "dImposition2"})
            QTest::newRow(column) << QString::fromLatin1(column);
    }

    void whatTheDocumentIsMadeOfIsOneField()
    {
        QFETCH(QString, column);
        QVERIFY(CTblAutomobilContracts::fieldGroups().constFirst().contains(column));
    }
};

static const RegisteredTest<TestFieldGroups, QCoreApplication> registeredFieldGroups;
#include "TestFieldGroups.moc"
