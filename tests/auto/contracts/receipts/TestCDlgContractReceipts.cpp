// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/receipts/CDlgContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/receipts/PostedContract.h"
#include "tests/support/RegisteredTest.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int amountColumn = 5;
constexpr int stateColumn = 9;
constexpr int voidingColumn = 10;

}

// The receipts of a contract, and the way to them from a refused deletion.
class TestCDlgContractReceipts : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PostedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    void receive(double amount)
    {
        CTblAutomobilContracts contract;
        m_contract->receive(m_contract->seller, amount, u"علی الحساب"_s,
                            ContractReceipts::commission(m_contract->load(contract), 1));
    }

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
        receive(1500);
    }

    void theListShowsWhatWasReceived()
    {
        receive(700);
        CDlgContractReceipts dialog(m_contract->key);
        QVERIFY(dialog.windowTitle().startsWith(u"دریافت‌های قرارداد"_s));
        QCOMPARE(dialog.list()->count(), 2);
        QStringList cells;
        for (int column = 2; column <= stateColumn; ++column)
            cells << dialog.list()->cellText(0, column);
        cells.removeAt(6); // the document's number
        QCOMPARE(cells, (QStringList{u"دریافت"_s, u"رضا احمدی"_s, u"فروشنده"_s, u"1,500"_s, u"نقدی"_s, u"علی الحساب"_s, u"معتبر"_s}));
        QVERIFY(dialog.totalText().contains(u"2,200"_s));
        QCOMPARE(dialog.list()->currentRow(), 0);
        QVERIFY(dialog.voidButton()->isEnabled());
    }

    void theListIsPrintedAsItStands()
    {
        CDlgContractReceipts dialog(m_contract->key);
        const ListReport report = dialog.report();
        QCOMPARE(report.rows().size(), 1);
        QCOMPARE(report.shownTitle(), dialog.windowTitle());
        QCOMPARE(report.text(u"LeftTop"_s), dialog.totalText());
        m_office->logInAs(u"clerk"_s, u"Receipts"_s, KSecurity::allRights & ~KSecurity::PrintList);
        dialog.printButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Receipts"_s, KSecurity::PrintList)});
    }

    void theSelectedReceiptIsPrinted()
    {
        CDlgContractReceipts dialog(m_contract->key);
        bool shown = false;
        TestOffice::whenModal("CDlgPaper", [&shown](QWidget *window) {
            shown = true;
            static_cast<QDialog *>(window)->reject();
        });
        dialog.paperButton()->click();
        QVERIFY(shown);
    }

    // An older instalment that is marked as paid has no paper, and can be opened again.
    void instalmentWithoutAReceiptHasNoPaperAndIsOpenedAgain()
    {
        m_office->database().run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iPersonID,iNum,dAmount,iStatus,date) VALUES(%1,%2,1,112,1,'2020-01-01')"_s
                                     .arg(m_contract->key)
                                     .arg(m_contract->buyer));
        CDlgContractReceipts dialog(m_contract->key);
        QCOMPARE(dialog.list()->cellText(0, stateColumn), u"بدون سند"_s);
        QVERIFY(!dialog.paperButton()->isEnabled() && dialog.voidButton()->isEnabled());
        dialog.reason()->setText(u"پرداخت نشده بود"_s);
        dialog.voidButton()->click();
        QVERIFY(g_pDlgYesNo->takeShown().value(0).contains(u"112 ریال"_s));
        QCOMPARE(value(u"SELECT iStatus FROM AutomobilPayments"_s), u"0"_s);
        QCOMPARE(dialog.list()->count(), 1);
        QVERIFY(dialog.paperButton()->isEnabled());
    }

    void voidAsksForAReasonFirst()
    {
        CDlgContractReceipts dialog(m_contract->key);
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        dialog.voidButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"لطفا دلیل ابطال را وارد نمایید."_s});
        QVERIFY(dialog.reason()->hasFocus());
        QCOMPARE(value(u"SELECT iStatus FROM Receipts"_s), u"0"_s);
    }

    void voidIsAskedAndDone_data()
    {
        QTest::addColumn<bool>("yes");
        QTest::newRow("yes") << true;
        QTest::newRow("no") << false;
    }

    void voidIsAskedAndDone()
    {
        QFETCH(bool, yes);
        CDlgContractReceipts dialog(m_contract->key);
        dialog.reason()->setText(u"دوبار ثبت شده"_s);
        g_pDlgYesNo->answerNext(yes ? KMessageDialog::Yes : KMessageDialog::No);
        dialog.voidButton()->click();
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(value(u"SELECT iStatus FROM Receipts"_s), yes ? u"1"_s : u"0"_s);
        QCOMPARE(dialog.list()->cellText(0, voidingColumn).contains(u"دوبار ثبت شده"_s), yes);
        QCOMPARE(dialog.list()->cellText(0, stateColumn), yes ? u"باطل"_s : u"معتبر"_s);
        QCOMPARE(dialog.voidButton()->isEnabled(), !yes);
        QCOMPARE(dialog.reason()->text().isEmpty(), yes);
    }

    void partsOfOneHandingOverAreOfferedTogether_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("states");
        QTest::newRow("all") << int(KMessageDialog::Yes) << u"0,1,1"_s;
        QTest::newRow("only this one") << int(KMessageDialog::No) << u"0,1,0"_s;
        QTest::newRow("none") << int(KMessageDialog::Cancel) << u"0,0,0"_s;
    }

    void partsOfOneHandingOverAreOfferedTogether()
    {
        QFETCH(int, answer);
        CTblAutomobilContracts contract;
        const ReceiptPurpose purpose = ContractReceipts::commission(m_contract->load(contract), 2);
        const auto posted = ReceiptPosting::save({.personID = m_contract->buyer,
                                                  .date = QDate::currentDate().startOfDay(Qt::UTC),
                                                  .account = Accounts::cash,
                                                  .parts = {{60, u"پیش پرداخت"_s, purpose}, {40, u"علی الحساب"_s}}});
        CDlgContractReceipts dialog(m_contract->key);
        for (int row = 0; row < dialog.list()->count(); ++row) {
            if (dialog.list()->cellText(row, amountColumn) == u"60")
                dialog.list()->selectRow(row);
        }
        dialog.reason()->setText(u"دوبار ثبت شده"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        g_pDlgYesNo->answerNext(static_cast<KMessageDialog::Answer>(answer));
        dialog.voidButton()->click();
        const QStringList asked = g_pDlgYesNo->takeShown();
        QCOMPARE(asked.size(), 2);
        QVERIFY2(asked.at(1).contains(u"شماره %1."_s.arg(posted.at(1).receiptID)), qPrintable(asked.at(1)));
        QTEST(value(u"SELECT GROUP_CONCAT(iStatus ORDER BY iID) FROM Receipts"_s), "states");
        QCOMPARE(dialog.reason()->text().isEmpty(), answer != KMessageDialog::Cancel);
    }

    void oneThatAnotherDeskMadeVoidIsSaidAndShown()
    {
        CDlgContractReceipts dialog(m_contract->key);
        CDlgContractReceipts other(m_contract->key);
        for (CDlgContractReceipts *window : {&other, &dialog}) {
            window->reason()->setText(u"دوبار ثبت شده"_s);
            window->voidSelected();
        }
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().contains(u"«مدیر»"_s), qPrintable(told.constFirst()));
        QVERIFY(!dialog.voidButton()->isEnabled());
        // What was typed stays.
        QCOMPARE(dialog.reason()->text(), u"دوبار ثبت شده"_s);
    }

    void voidNeedsItsRightAndAnOpenDatabase()
    {
        m_office->logInAs(u"clerk"_s, u"Receipts"_s, KSecurity::allRights & ~KSecurity::Delete);
        QVERIFY(!CDlgContractReceipts(m_contract->key).voidButton()->isEnabled());
        m_office->logInAsAdmin();
        GetDBSetting()->SetClosedDB(true);
        QVERIFY(!CDlgContractReceipts(m_contract->key).voidButton()->isEnabled());
        GetDBSetting()->SetClosedDB(false);
    }

    // --- From the list of contracts ---

    void refusedDeletionLeadsToTheReceiptsAndThenGoesThrough()
    {
        CDlgAutomobilContracts page;
        page.open();
        TestOffice::whenModal("CDlgContractReceipts", [](QWidget *window) {
            auto &dialog = static_cast<CDlgContractReceipts &>(*window);
            dialog.reason()->setText(u"اشتباه"_s);
            dialog.voidSelected();
            dialog.reject();
        });
        QVERIFY(page.runCommand(u"delete"));
        const QStringList asked = g_pDlgYesNo->takeShown();
        QVERIFY2(asked.value(0).contains(u"1,500"_s), qPrintable(asked.join(u'|')));
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"0"_s);
    }

    void refusedDeletionCanBeLeftAtThat()
    {
        CDlgAutomobilContracts page;
        page.open();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(page.list()->count(), 1);
    }

    void receiptsAreShownToWhoMaySeeThem()
    {
        m_office->logInAs(u"clerk"_s, u"Receipts"_s, 0);
        CDlgContractReceipts::Show(m_contract->key, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Receipts"_s, KSecurity::Read)});
    }
};

static const RegisteredTest<TestCDlgContractReceipts, KApplication> registeredCDlgContractReceipts;
#include "TestCDlgContractReceipts.moc"
