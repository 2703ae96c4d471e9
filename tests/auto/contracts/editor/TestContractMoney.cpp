// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/CDlgContractReceipts.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QTest>

using namespace Qt::StringLiterals;

// The editor on a contract whose buyer has paid his commission.
class TestContractMoney : public ContractEditorTest
{
    Q_OBJECT

    int m_contract = 0;
    int m_receipt = 0;

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        begin();
        auto first = filledNew();
        first->accept();
        m_contract = first->key();
        CTblAutomobilContracts contract;
        QVERIFY(contract.IsRecordExist(u"iID"_s, m_contract));
        m_receipt = ReceiptPosting::save({.personID = m_buyer,
                                          .date = GetDBSetting()->GetDBServerDate(),
                                          .account = 110101,
                                          .parts = {{5000, u"a"_s, ContractReceipts::commission(contract, 2)}}})
                        .constFirst()
                        .receiptID;
        g_pDlgMessage->takeShown();
        g_pDlgWarning->takeShown();
        g_pDlgYesNo->takeShown();
    }

    void refusalShowsTheWayToTheReceipts_data()
    {
        QTest::addColumn<bool>("inactive"); // otherwise another buyer
        QTest::addColumn<bool>("shown");
        QTest::addColumn<QString>("told");
        QTest::newRow("inactive") << true << false << u"غیرفعال نمی‌شود"_s;
        QTest::newRow("inactive, receipts shown") << true << true << u"غیرفعال نمی‌شود"_s;
        QTest::newRow("another buyer") << false << true << u"شخص دیگری نمی‌شود"_s;
    }

    void refusalShowsTheWayToTheReceipts()
    {
        QFETCH(bool, inactive);
        QFETCH(bool, shown);
        QFETCH(QString, told);
        auto editor = opened(m_contract);
        edit(*editor, "sExplain")->setText(u"شرح"_s);
        if (inactive)
            editor->activeBox()->setChecked(false);
        else
            editor->basePage()->secondParty()->takePerson(m_office->addPerson(u"نادر"_s, u"نوری"_s));
        g_pDlgYesNo->answerNext(shown ? KMessageDialog::Yes : KMessageDialog::No);
        int listed = 0;
        if (shown)
            TestOffice::whenModal("CDlgContractReceipts", [&listed](QWidget *window) {
                listed = static_cast<CDlgContractReceipts *>(window)->list()->count();
                static_cast<QDialog *>(window)->reject();
            });
        editor->accept();
        const QString asked = g_pDlgYesNo->takeShown().join(u'|');
        QVERIFY2(asked.contains(told) && asked.contains(u"5,000"_s), qPrintable(asked));
        QCOMPARE(listed, shown ? 1 : 0);
        // Nothing typed is lost, nothing is saved.
        QVERIFY(editor->isVisible());
        QCOMPARE(edit(*editor, "sExplain")->text(), u"شرح"_s);
        QCOMPARE(value(u"SELECT CONCAT_WS('/',iStatus,iPersonSecondID,IFNULL(sExplain,'')) FROM AutomobilContracts"_s), u"0/%1/"_s.arg(m_buyer));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void receiptMadeVoidItIsSaved()
    {
        auto editor = opened(m_contract);
        editor->activeBox()->setChecked(false);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        TestOffice::whenModal("CDlgContractReceipts", [this](QWidget *window) {
            ReceiptPosting::makeVoid(m_receipt, u"اشتباه"_s);
            static_cast<QDialog *>(window)->reject();
        });
        editor->accept();
        QVERIFY(editor->isVisible());
        editor->accept();
        QVERIFY(!editor->isVisible());
        QCOMPARE(value(u"SELECT iStatus FROM AutomobilContracts"_s), u"1"_s);
    }
};

static const RegisteredTest<TestContractMoney, KApplication> registeredContractMoney;
#include "TestContractMoney.moc"
