// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "auto/contracts/instalments/CDlgPlanChoice.h"
#include "auto/contracts/instalments/InstalmentReceiving.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/auto/contracts/editor/ContractEditorTest.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

// The editor on an instalment sale of 1,000,000 that has a plan.
class TestContractPlan : public ContractEditorTest
{
    Q_OBJECT

    int m_contract = 0;

    QString plan() { return value(u"SELECT CONCAT_WS('/',COUNT(*),SUM(dAmount),SUM(iStatus)) FROM AutomobilPayments"_s); }

    void receive(double amount)
    {
        const StoredInstalments::Row row = StoredInstalments::load(m_contract).front();
        ReceiptPosting::save({.personID = m_buyer,
                              .date = GetDBSetting()->GetDBServerDate(),
                              .account = 110101,
                              .parts = {{amount, u"a"_s, InstalmentReceiving::purpose(m_contract, row.id, 1, row.received)}}});
    }

    static void answer(PlanChoice choice, bool confirmed = true)
    {
        TestOffice::whenModal("CDlgPlanChoice", [choice, confirmed](QWidget *window) {
            auto *dialog = static_cast<CDlgPlanChoice *>(window);
            QVERIFY(dialog->choose(choice));
            if (confirmed)
                dialog->accept();
            else
                dialog->cancel();
        });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        begin();
        auto first = filledNew();
        first->accept();
        m_contract = first->key();
        m_office->database().run(u"UPDATE AutomobilContracts SET iContractType=2,dFixAmount=0,dAgreeAmount=0"_s);
        const InstalmentTerms terms{1'000'000, 0, RateUnit::Monthly, InterestMethod::WholePrincipal, 10, 1, IntervalUnit::Months, ConvertToMiladi(1405, 1, 1)};
        StoredInstalments::save({m_contract, 1, m_buyer}, {}, terms, instalmentPlan(terms));
        g_pDlgMessage->takeShown();
        g_pDlgWarning->takeShown();
    }

    void restIsSpreadAsAnswered()
    {
        receive(100'000);
        auto editor = opened(m_contract);
        type(*editor, "dAmount", "1900000");
        answer(PlanChoice::Spread);
        editor->accept();
        QVERIFY(!editor->isVisible());
        QCOMPARE(plan(), u"10/1900000/1"_s);
        QCOMPARE(value(u"SELECT dRemainingAmount FROM AutomobilContracts"_s), u"1900000"_s);
        QCOMPARE(value(booksAgree(Accounts::documentKindContract)), u"1/0/0"_s);
    }

    void goingBackLeavesTheWindowWithWhatWasTyped()
    {
        auto editor = opened(m_contract);
        type(*editor, "dAmount", "1900000");
        answer(PlanChoice::Spread, false);
        editor->accept();
        QVERIFY(editor->isVisible());
        QCOMPARE(shown(*editor, "dAmount"), 1'900'000.0);
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s), u"1000000"_s);
        QCOMPARE(plan(), u"10/1000000/0"_s);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        // The next press asks again.
        answer(PlanChoice::Leave);
        editor->accept();
        QVERIFY(!editor->isVisible());
        QCOMPARE(value(u"SELECT dAmount FROM AutomobilContracts"_s), u"1900000"_s);
        QCOMPARE(plan(), u"10/1000000/0"_s);
    }

    void newPlanIsOpenedAfterSaving()
    {
        auto editor = opened(m_contract);
        type(*editor, "dAmount", "2000000");
        answer(PlanChoice::NewPlan);
        TestOffice::whenModal("CDlgCalcPayment", [](QWidget *window) {
            auto *dialog = static_cast<CDlgCalcPayment *>(window);
            QCOMPARE(dialog->shownTotal(), 2'000'000.0);
            QCOMPARE(dialog->list()->count(), 10);
            dialog->savePlan();
            dialog->cancel();
        });
        editor->accept();
        QVERIFY(!editor->isVisible());
        QCOMPARE(plan(), u"10/2000000/0"_s);
    }

    void whatIsNoInstalmentSaleAnyMoreLosesItsPlan()
    {
        auto editor = opened(m_contract);
        editor->basePage()->form()->comboBox(column("iContractType"))->setCurrentIndex(0);
        answer(PlanChoice::Delete);
        editor->accept();
        QVERIFY(!editor->isVisible());
        QCOMPARE(value(u"SELECT iContractType FROM AutomobilContracts"_s), u"0"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilPayments"_s), u"0"_s);
    }

    // The other desk receives while this one is asked: asked anew, about what is there by then.
    void instalmentReceivedWhileTheQuestionIsOpenIsSeen()
    {
        auto editor = opened(m_contract);
        type(*editor, "dAmount", "1900000");
        TestOffice::whenModal("CDlgPlanChoice", [this](QWidget *window) {
            receive(40'000);
            static_cast<QDialog *>(window)->accept();
        });
        answer(PlanChoice::Spread);
        editor->accept();
        QVERIFY(!editor->isVisible());
        QCOMPARE(plan(), u"10/1900000/0"_s);
        QVERIFY(value(u"SELECT dAmount FROM AutomobilPayments WHERE iNum=1"_s).toDouble() > 100'000);
    }

    void otherFieldsAreSavedWithoutAQuestion()
    {
        auto editor = opened(m_contract);
        edit(*editor, "sExplain")->setText(u"شرح"_s);
        editor->accept();
        QVERIFY(!editor->isVisible());
        QCOMPARE(plan(), u"10/1000000/0"_s);
    }
};

static const RegisteredTest<TestContractPlan, KApplication> registeredContractPlan;
#include "TestContractPlan.moc"
