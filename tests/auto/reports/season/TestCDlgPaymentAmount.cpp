// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/reports/season/CDlgPaymentAmount.h"
#include "auto/reports/season/PayableAmount.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/invoices/CTblFactorStuffs.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/accounting/office/Placeholders.h"
#include "tests/office/TestOffice.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int year = 1405;

QDateTime at(int month, int day, int hour = 0)
{
    return QDateTime(ConvertToMiladi(year, month, day), QTime(hour, 0), Qt::UTC);
}

struct Line
{
    int type = CTblFactors::sale;
    double amount = 0;
    QDateTime date = at(2, 10);
    int status = CTblFactors::valid;
    int service = 1;
    int person = 1;
};

void addInvoice(const Line &line)
{
    CTblFactors invoice;
    invoice.Open(true, false, true);
    invoice.AddNew();
    invoice.m_iType = line.type;
    invoice.m_iStatus = line.status;
    invoice.m_iPersonID = line.person;
    invoice.m_date = line.date;
    invoice.Update(true);
    CTblFactorStuffs stuff;
    stuff.Open(true, false, true);
    stuff.AddNew();
    stuff.m_iFactorNum = int(invoice.GetLastInsertedID());
    stuff.m_iType = line.type;
    stuff.m_iServiceID = line.service;
    stuff.m_dAmount = line.amount;
    stuff.Update(true);
}

}

class TestCDlgPaymentAmount : public QObject
{
    Q_OBJECT

    TestOffice m_office;

    void addContract(const QDateTime &date, double commission, int status = 0)
    {
        m_office.addContract([&](CTblAutomobilContracts &contract) {
            contract.m_dateContract = date;
            contract.m_dCommission = commission;
            contract.m_iStatus = status;
        });
    }

private Q_SLOTS:
    void init() { m_office.clear(); }

    void aSeasonWithoutContractsOrInvoicesShowsZeroInAllThreeFields()
    {
        const CDlgPaymentAmount dialog(0, year);
        for (const char *label : {"جمع فروش :", "جمع خريد :", "نتيجه :"}) {
            const KEdit *edit = named<KEdit>(dialog, QString::fromUtf8(label));
            QVERIFY2(edit, label);
            QCOMPARE(edit->text(), u"0"_s);
            QVERIFY(edit->isReadOnly());
        }
        QCOMPARE(dialog.windowTitle(), u"پرداختي"_s);
    }

    void commissionCountsTwice()
    {
        addContract(at(1, 1), 1000);
        addContract(at(3, 31, 23), 500);
        addContract(at(4, 1), 70);
        const PayableAmount amount = PayableAmount::ofSeason(0, year);
        QCOMPARE(amount.sales, 3000.0);
        QCOMPARE(amount.purchases, 0.0);
        QCOMPARE(amount.result(), 3000.0);
        QCOMPARE(PayableAmount::ofSeason(1, year).sales, 140.0);
    }

    void purchaseInvoicesCountToTheSalesAndSalesInvoicesToThePurchases()
    {
        addContract(at(2, 1), 100);
        addInvoice({.type = CTblFactors::purchase, .amount = 30});
        addInvoice({.type = CTblFactors::sale, .amount = 500});
        const PayableAmount amount = PayableAmount::ofSeason(0, year);
        QCOMPARE(amount.sales, 230.0);
        QCOMPARE(amount.purchases, 500.0);
        QCOMPARE(amount.result(), -270.0);
    }

    void aNegativeResultIsShownAsItIs()
    {
        addInvoice({.type = CTblFactors::sale, .amount = 1234567});
        const CDlgPaymentAmount dialog(0, year);
        const KEdit *result = named<KEdit>(dialog, u"نتيجه :"_s);
        QCOMPARE(result->text(), u"-1,234,567"_s);
        QVERIFY(result->isEntryValid()); // and not marked as a wrong entry
    }

    void contractOfAnOpenEditorIsNotCounted()
    {
        addContract(at(1, 1), 1000);
        const int open = m_office.addContract([](CTblAutomobilContracts &contract) {
            contract.m_dateContract = at(1, 2);
            contract.m_dCommission = 70;
        });
        QCOMPARE(PayableAmount::ofSeason(0, year).sales, 2140.0);
        Placeholders::add({u"AutomobilContracts"_s, open}, u"another desk"_s);
        QCOMPARE(PayableAmount::ofSeason(0, year).sales, 2000.0);
    }

    void voidAndIncompleteOnesAreNotCounted_data()
    {
        QTest::addColumn<Line>("line");
        QTest::newRow("void invoices are not counted") << Line{.amount = 9, .status = CTblFactors::voided};
        QTest::newRow("lines without a service are not counted") << Line{.amount = 9, .service = 0};
        QTest::newRow("invoices without a person are not counted") << Line{.amount = 9, .person = 0};
        QTest::newRow("the day before the season") << Line{.amount = 9, .date = at(1, 1).addSecs(-1)};
        QTest::newRow("the first moment after the season") << Line{.amount = 9, .date = at(4, 1)};
    }

    void voidAndIncompleteOnesAreNotCounted()
    {
        QFETCH(Line, line);
        for (const int type : {CTblFactors::sale, CTblFactors::purchase}) {
            line.type = type;
            addInvoice(line);
            addInvoice({.type = type, .amount = 1, .date = at(3, 31, 23)});
        }
        QCOMPARE(PayableAmount::ofSeason(0, year).sales, 1.0);
        QCOMPARE(PayableAmount::ofSeason(0, year).purchases, 1.0);
    }

    void voidContractsAreNotCounted()
    {
        addContract(at(2, 1), 100, 1);
        QCOMPARE(PayableAmount::ofSeason(0, year).sales, 0.0);
    }

    void aSeasonOfFourOrMoreHoldsNothing()
    {
        addContract(at(2, 1), 100);
        QCOMPARE(PayableAmount::ofSeason(4, year).sales, 0.0);
    }

    void eachAmountStandsBesideTheMoneyUnit()
    {
        GetDBSetting()->SetMoneyUnitName(u"تومان"_s);
        const CDlgPaymentAmount dialog(0, year);
        int units = 0;
        const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
        for (const QLabel *label : labels)
            units += label->text() == u"تومان"_s;
        QCOMPARE(units, 3);
        QCOMPARE(dialog.findChildren<QPushButton *>().size(), 1);
        QCOMPARE(dialog.findChildren<QPushButton *>().constFirst()->text(), u"بازگشت"_s);
    }
};

Q_DECLARE_METATYPE(Line)

static const RegisteredTest<TestCDlgPaymentAmount, KApplication> registeredCDlgPaymentAmount;

#include "TestCDlgPaymentAmount.moc"
