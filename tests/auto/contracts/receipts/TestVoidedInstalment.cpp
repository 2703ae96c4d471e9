// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentReceiving.h"
#include "suite/treasury/CDlgReceipts.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/receipts/PostedContract.h"
#include "tests/support/Hand.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

// An instalment's receipt that is made void in the list of receipts.
class TestVoidedInstalment : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PostedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase()
    {
        m_contract.reset();
        m_office.reset();
    }
    void init()
    {
        m_office->clear();
        m_contract = std::make_unique<PostedContract>(*m_office);
    }

    void isOpenAgainAndReceivedOnceMore()
    {
        m_office->database().run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID,iNum,dAmount,iStatus,date) "
                                 "VALUES(%1,%2,3,700,0,NOW())"_s.arg(m_contract->key)
                                     .arg(m_contract->buyer));
        const int payment = value(u"SELECT MAX(iID) FROM AutomobilPayments"_s).toInt();
        const QString state = u"SELECT iStatus FROM AutomobilPayments WHERE iID=%1"_s.arg(payment);
        PostedContract::receive(m_contract->buyer, 700, u"قسط"_s, InstalmentReceiving::purpose(m_contract->key, payment, 3));
        QCOMPARE(value(state), u"1"_s);
        const int receipt = value(u"SELECT MAX(iID) FROM Receipts"_s).toInt();

        CDlgReceipts page;
        page.open();
        QVERIFY(page.list()->selectKey(receipt));
        QVERIFY(page.list()->cellText(page.list()->currentRow(), u"for").startsWith(u"قسط 3 قرارداد "_s));
        Hand::inNextWindow([](QDialog *window) {
            named<KEdit>(*window, u"دلیل :"_s)->setText(u"مبلغ اشتباه بود"_s);
            window->accept();
        });
        QVERIFY(page.runCommand(u"void"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        QCOMPARE(value(state), u"0"_s);
        QCOMPARE(value(u"SELECT CONCAT_WS('|',iStatus,sVoidReason) FROM Receipts WHERE iID=%1"_s.arg(receipt)), u"1|مبلغ اشتباه بود"_s);

        PostedContract::receive(m_contract->buyer, 700, u"قسط"_s, InstalmentReceiving::purpose(m_contract->key, payment, 3));
        QCOMPARE(value(state), u"1"_s);
        QCOMPARE(value(u"SELECT SUM(dAmount) FROM Receipts WHERE iStatus=0 AND iPaymentID=%1"_s.arg(payment)), u"700"_s);
    }
};

static const RegisteredTest<TestVoidedInstalment, QApplication> registeredVoidedInstalment;
#include "TestVoidedInstalment.moc"
