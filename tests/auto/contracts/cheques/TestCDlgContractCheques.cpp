// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cheques/CDlgContractCheques.h"

#include "auto/contracts/document/ContractPosting.h"
#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractMatter.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/treasury/receiving/CDlgVoiding.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/auto/contracts/cheques/ContractOfCheques.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>

// The button on the matter page, the window behind it, and the fields that follow.
class TestCDlgContractCheques : public QObject
{
    Q_OBJECT

    using Editor = CDlgAddAutomobilContract;

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<ContractOfCheques> m_contract;

    std::unique_ptr<Editor> opened(ContractEditorMode mode = ContractEditorMode::Edit) const
    {
        auto editor = std::make_unique<Editor>(m_contract->key, mode);
        if (!editor->load())
            qFatal("the contract is gone");
        editor->show();
        return editor;
    }
    static KEdit *edit(const Editor &editor, const char *column) { return editor.matterPage()->form()->edit(QString::fromLatin1(column)); }
    static QString shown(const Editor &editor)
    {
        QStringList texts;
        for (const char *column : {"sCheckCount", "dAgreeAmount", "sCheckNum", "sBankName", "sBranchName", "sBranchCode"})
            texts.append(edit(editor, column)->plainText());
        return texts.join(u'/');
    }
    // Presses the button and does that while the window is open. False when no window came up.
    static bool whileOpen(const Editor &editor, const std::function<void(CDlgContractCheques &)> &work)
    {
        bool isOpened = false;
        Hand::inNextWindow([&](QDialog *window) {
            auto *cheques = qobject_cast<CDlgContractCheques *>(window);
            isOpened = cheques != nullptr;
            if (cheques)
                work(*cheques);
        });
        editor.matterPage()->chequesButton()->click();
        return isOpened;
    }
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
        m_contract = std::make_unique<ContractOfCheques>(*m_office);
        for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgYesNo})
            dialog->takeShown();
    }

    void fieldsAreFilledOnClosing()
    {
        const auto editor = opened();
        QVERIFY(whileOpen(*editor, [&](CDlgContractCheques &) {
            m_contract->receive(u"77"_s, 500, m_contract->price());
            m_contract->receive(u"78"_s, 700, m_contract->price());
        }));
        QCOMPARE(shown(*editor), u"2/1,200/77، 78/ملت/ونک/6510"_s);
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
        QVERIFY(editor->holdsTypedWork());
        // One more replaces what the register said before, without a question.
        QVERIFY(whileOpen(*editor, [&](CDlgContractCheques &) { m_contract->receive(u"79"_s, 100, m_contract->price()); }));
        QCOMPARE(shown(*editor), u"3/1,300/77 تا 79/ملت/ونک/6510"_s);
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
    }

    void whatWasTypedIsAskedFor_data()
    {
        QTest::addColumn<bool>("yes");
        QTest::newRow("replaced") << true;
        QTest::newRow("kept") << false;
    }

    void whatWasTypedIsAskedFor()
    {
        QFETCH(bool, yes);
        const auto editor = opened();
        edit(*editor, "sBankName")->setText(u"صادرات"_s);
        g_pDlgYesNo->answerNext(yes ? KMessageDialog::Yes : KMessageDialog::No);
        QVERIFY(whileOpen(*editor, [&](CDlgContractCheques &) { m_contract->receive(u"77"_s, 500, m_contract->price()); }));
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(edit(*editor, "sBankName")->text(), yes ? u"ملت"_s : u"صادرات"_s);
        QCOMPARE(edit(*editor, "sCheckCount")->text(), yes ? u"1"_s : QString());
    }

    void lookingAloneAsksAndChangesNothing()
    {
        m_contract->receive(u"77"_s, 500, m_contract->price());
        const auto editor = opened();
        edit(*editor, "sBankName")->setText(u"صادرات"_s);
        QVERIFY(whileOpen(*editor, [](CDlgContractCheques &) {}));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
        QCOMPARE(edit(*editor, "sBankName")->text(), u"صادرات"_s);
    }

    void withoutChequesTheFieldsStay()
    {
        const auto editor = opened();
        edit(*editor, "sCheckCount")->setText(u"3"_s);
        QVERIFY(whileOpen(*editor, [](CDlgContractCheques &) {}));
        QCOMPARE(edit(*editor, "sCheckCount")->text(), u"3"_s);
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
    }

    void tooLongIsCutAndTold()
    {
        const auto editor = opened();
        QVERIFY(whileOpen(*editor, [&](CDlgContractCheques &) {
            for (int number = 10; number < 40; number += 2)
                m_contract->receive(QString::number(number), 1, m_contract->price());
        }));
        QCOMPARE(edit(*editor, "sCheckNum")->text().size(), 50);
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().contains(u"شماره چک"_s), qPrintable(told.constFirst()));
    }

    void contractThatIsNotReadyIsTold_data()
    {
        QTest::addColumn<bool>("isNew");
        QTest::newRow("never saved") << true;
        QTest::newRow("buyer typed by hand") << false;
    }

    void contractThatIsNotReadyIsTold()
    {
        QFETCH(bool, isNew);
        if (!isNew)
            m_office->database().run(u"UPDATE AutomobilContracts SET iPersonSecondID=0"_s);
        const auto editor = opened(isNew ? ContractEditorMode::New : ContractEditorMode::Edit);
        editor->matterPage()->chequesButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    }

    void shownContractTakesNone_data()
    {
        QTest::addColumn<bool>("closed");
        QTest::newRow("show mode") << false;
        QTest::newRow("closed database") << true;
    }

    void shownContractTakesNone()
    {
        QFETCH(bool, closed);
        m_contract->receive(u"77"_s, 500, m_contract->price());
        if (closed)
            GetDBSetting()->SetClosedDB(true);
        const auto editor = opened(ContractEditorMode::Show);
        QVERIFY(whileOpen(*editor, [](CDlgContractCheques &window) {
            QCOMPARE(window.list()->count(), 1);
            QVERIFY(!window.addButton()->isVisible());
            QVERIFY(!window.purposeBox()->isVisible());
            QVERIFY(!window.list()->isRowMenuOffered());
        }));
        QCOMPARE(shown(*editor), u"/0////"_s);
        GetDBSetting()->SetClosedDB(false);
    }

    void withoutTheRightItIsTold()
    {
        m_office->logInAs(u"sima"_s, ChequeChanging::rightsForm(), KSecurity::Access);
        CTblAutomobilContracts contract;
        CDlgContractCheques::Show(m_contract->load(contract), false, nullptr);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(ChequeChanging::rightsForm(), KSecurity::Read)});
    }

    // A cheque, and the next leaf of the same book a month later.
    void chequesAreEntered()
    {
        CTblAutomobilContracts contract;
        CDlgContractCheques window(m_contract->load(contract), false);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(!window.nextButton()->isEnabled());
        const QDate due = addShamsiMonths(ContractOfCheques::today().date(), 2);
        Hand::inNextWindow([&](QDialog *entry) {
            Hand::named<KEdit>(entry, u"مبلغ :"_s)->setText(u"500"_s);
            Hand::named<KEdit>(entry, u"شناسه صیادی :"_s)->setText(u"1234567890123456"_s);
            Hand::named<KEdit>(entry, u"شماره چک :"_s)->setText(u"099"_s);
            Hand::named<KDateEdit>(entry, u"سررسید :"_s)->setText(shamsiText(due));
            Hand::named<KEdit>(entry, u"بانک :"_s)->setText(u"ملت"_s);
            entry->accept();
        });
        window.addButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        QCOMPARE(window.list()->count(), 1);
        QVERIFY(window.nextButton()->isEnabled());
        Hand::inNextWindow([&](QDialog *entry) {
            QCOMPARE(Hand::named<KEdit>(entry, u"شماره چک :"_s)->plainText(), u"100"_s);
            QCOMPARE(Hand::named<KDateEdit>(entry, u"سررسید :"_s)->date(), addShamsiMonths(due, 1));
            QCOMPARE(Hand::named<KEdit>(entry, u"شناسه صیادی :"_s)->plainText(), QString());
            QCOMPARE(Hand::named<KEdit>(entry, u"مبلغ :"_s)->text(), u"500"_s);
            Hand::named<KEdit>(entry, u"شناسه صیادی :"_s)->setText(u"1234567890123457"_s);
            entry->accept();
        });
        window.nextButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
        QCOMPARE(window.list()->count(), 2);
        QVERIFY(window.totalText().contains(u"2 فقره"_s) && window.totalText().contains(u"1,000"_s));
        QCOMPARE(value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',iMethod,iTable,iRecordID,iFor,iSide,iPersonID)) FROM Receipts"_s),
                 u"4/69/%1/3/2/%2,4/69/%1/3/2/%2"_s.arg(m_contract->key).arg(m_contract->buyer));
        // Mistyped.
        window.list()->selectRow(0);
        Hand::inNextWindow([](QDialog *asking) {
            QVERIFY(qobject_cast<CDlgVoiding *>(asking));
            Hand::type(u"مبلغ"_s);
            asking->accept();
        });
        window.voidSelected();
        QVERIFY(window.totalText().contains(u"1 فقره"_s));
    }

    // The plan was made without it; nothing of the cheque goes on to instalments that way.
    void chequeAboveWhatIsLeftOfThePriceIsAllForThePrice()
    {
        ContractSettings settings = ContractSettings::load();
        settings.postPlan = true;
        settings.save();
        CTblAutomobilContracts contract;
        m_contract->load(contract).Edit();
        KTransaction transaction;
        QVERIFY(ContractPosting::post(contract));
        contract.Update(true);
        transaction.commit();
        m_contract->addInstalment(9900);
        CDlgContractCheques window(m_contract->load(contract), false);
        Hand::inNextWindow([&](QDialog *entry) {
            QCOMPARE(Hand::named<KEdit>(entry, u"مبلغ :"_s)->text(), u"100"_s);
            Hand::named<KEdit>(entry, u"مبلغ :"_s)->setText(u"150"_s);
            Hand::named<KEdit>(entry, u"شناسه صیادی :"_s)->setText(u"1234567890123456"_s);
            Hand::named<KDateEdit>(entry, u"سررسید :"_s)->setDate(ContractOfCheques::today().date().addDays(40));
            Hand::named<KEdit>(entry, u"بانک :"_s)->setText(u"ملت"_s);
            entry->accept();
        });
        window.addButton()->click();
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList());
        QCOMPARE(value(u"SELECT GROUP_CONCAT(CONCAT_WS('/',dAmount,iFor,iPaymentID)) FROM Receipts"_s), u"150/3/0"_s);
    }
};

static const RegisteredTest<TestCDlgContractCheques, QApplication> registeredCDlgContractCheques;
#include "TestCDlgContractCheques.moc"
