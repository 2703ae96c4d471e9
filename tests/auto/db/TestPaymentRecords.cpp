// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilPayments.h"
#include "auto/db/CTblAutomobilTariffs.h"
#include "tests/auto/ModuleTables.h"
#include "tests/auto/db/ColumnTable.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestPaymentRecords : public QObject
{
    Q_OBJECT

    TestDatabase m_database;

    static void compareBindings(KMySQL &record, const QString &file)
    {
        QCOMPARE(ColumnTable::bound(record), ColumnTable::wanted(file));
    }

private Q_SLOTS:
    void initTestCase() { prepareModuleTables(m_database); }

    void bindingsStandInOrderWithCaptionsAndLookups()
    {
        CTblAutomobilPayments payments;
        QCOMPARE(payments.columns().size(), size_t(15));
        compareBindings(payments, u"AutomobilPayments_columns.tsv"_s);
        CTblAutomobilTariffs tariffs;
        QCOMPARE(tariffs.columns().size(), size_t(6));
        compareBindings(tariffs, u"AutomobilTariffs_columns.tsv"_s);
    }

    void tariffCaptionOfTheAmountIsCost()
    {
        CTblAutomobilTariffs tariffs;
        QCOMPARE(tariffs.column(u"dAmount")->caption, u"هزينه"_s);
    }

    void constructionSetsZeroAndEmpty()
    {
        CTblAutomobilPayments payment;
        for (const KMySQL::Column &column : payment.columns()) {
            const QVariant value = payment.value(column.name);
            QVERIFY2(column.kind == KMySQL::ColumnKind::Text       ? value.toString().isEmpty()
                         : column.kind == KMySQL::ColumnKind::Date ? !value.toDateTime().isValid()
                                                                   : value.toDouble() == 0,
                     qPrintable(column.name));
        }
        const int before = CTblAutomobilTariffs::liveCount();
        const CTblAutomobilTariffs tariff;
        QVERIFY(tariff.m_sDesc.isEmpty());
        QVERIFY(tariff.m_sTitle.isEmpty());
        QCOMPARE(CTblAutomobilTariffs::liveCount(), before + 1);
    }

    void paymentAddedThroughTheClassIsUnpaid()
    {
        CTblAutomobilPayments payment;
        payment.Open(true, false, true);
        payment.AddNew();
        payment.m_iAutomobilContractID = 4;
        payment.m_dAmount = 112;
        payment.m_date = QDateTime(QDate(2026, 4, 21), QTime(0, 0), Qt::UTC);
        payment.Update(true);
        QCOMPARE(m_database.value(u"SELECT iStatus FROM AutomobilPayments"_s), u"0"_s);
        QVERIFY(!payment.column(u"iStatus"));
        CTblAutomobilPayments again;
        QVERIFY(again.IsRecordExist(u"iID"_s, qint32(payment.GetLastInsertedID())));
        QCOMPARE(again.m_dAmount, 112.0);
        QCOMPARE(again.m_date, payment.m_date);
    }

    void tariffIsStoredAndReadBack()
    {
        CTblAutomobilTariffs tariff;
        tariff.Open(true, false, true);
        tariff.AddNew();
        tariff.m_sTitle = u"حق ثبت"_s;
        tariff.m_dAmount = 250000;
        tariff.Update(true);
        CTblAutomobilTariffs again;
        QVERIFY(again.IsRecordExist(u"iID"_s, qint32(tariff.GetLastInsertedID())));
        QCOMPARE(again.m_sTitle, u"حق ثبت"_s);
        QCOMPARE(again.m_dAmount, 250000.0);
    }
};

static const RegisteredTest<TestPaymentRecords, QCoreApplication> registeredPaymentRecords;
#include "TestPaymentRecords.moc"
