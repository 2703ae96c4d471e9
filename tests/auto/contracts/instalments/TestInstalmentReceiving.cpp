// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/CDlgCalcPayment.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/auto/contracts/PlannedContract.h"
#include "tests/support/BooksAgree.h"
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString refused(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

}

// Instalments that are paid in parts, and opened again.
class TestInstalmentReceiving : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<PlannedContract> m_contract;

    QString value(const QString &statement) { return m_office->database().value(statement); }
    QString mark(int number) { return value(u"SELECT iStatus FROM AutomobilPayments WHERE iNum=%1"_s.arg(number)); }

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
        m_contract = std::make_unique<PlannedContract>(*m_office);
    }

    void instalmentIsPaidByTheSumOfItsReceipts()
    {
        m_contract->receive(2, 50);
        QCOMPARE(mark(2), u"0"_s);
        QCOMPARE(m_contract->row(2).state().rest, 62.0);
        m_contract->receive(2, 60);
        QCOMPARE(mark(2), u"0"_s);
        m_contract->receive(2, 2);
        QCOMPARE(mark(2), u"1"_s);
        QCOMPARE(int(m_contract->row(2).state().kind), int(InstalmentState::Paid));
        QCOMPARE(value(u"SELECT SUM(iStatus) FROM AutomobilPayments"_s), u"1"_s);
        QCOMPARE(value(booksAgree(Accounts::documentKindReceipt)), u"3/0/0"_s);
    }

    void receiptSaysWhatItIsFor()
    {
        m_office->database().run(u"UPDATE AutomobilContracts SET iNum=45"_s);
        m_contract->receive(2, 50);
        QCOMPARE(value(u"SELECT CONCAT_WS('|',iTable,iRecordID,iPaymentID,iFor,iSide,sFor) FROM Receipts"_s),
                 u"69|%1|%2|2|2|قسط 2 قرارداد 45"_s.arg(m_contract->key).arg(m_contract->row(2).id));
    }

    void voidReceiptOpensItAgain()
    {
        const int first = m_contract->receive(2, 50);
        const int second = m_contract->receive(2, 62);
        QCOMPARE(mark(2), u"1"_s);
        ReceiptPosting::makeVoid(second, u"اشتباه"_s);
        QCOMPARE(mark(2), u"0"_s);
        QCOMPARE(m_contract->row(2).state().rest, 62.0);
        ReceiptPosting::makeVoid(first, u"اشتباه"_s);
        QCOMPARE(int(m_contract->row(2).state().kind), int(InstalmentState::Unpaid));
        QCOMPARE(m_contract->owes(m_contract->buyer), 100.0);
    }

    void whatIsPaidBackCountsNoMore()
    {
        m_contract->receive(2, 112);
        ReceiptPosting::save({.kind = CTblReceipts::paid,
                              .personID = m_contract->buyer,
                              .date = GetDBSetting()->GetDBServerDate(),
                              .account = 110101,
                              .parts = {{12, u"برگشت"_s, {.recordKind = CTblAutomobilContracts::recordKind, .recordID = m_contract->key, .paymentID = m_contract->row(2).id, .what = ReceiptPurpose::Instalment, .side = 2}}}});
        QCOMPARE(mark(2), u"0"_s);
        QCOMPARE(m_contract->row(2).state().rest, 12.0);
    }

    void olderInstalmentMarkedWithoutAReceiptStaysPaid()
    {
        m_office->database().run(u"UPDATE AutomobilPayments SET iStatus=1 WHERE iNum=1"_s);
        m_contract->receive(2, 112);
        QCOMPARE(int(m_contract->row(1).state().kind), int(InstalmentState::Paid));
        QCOMPARE(mark(1), u"1"_s);
    }

    void instalmentIsWholeInTheDecimalsOfTheUnit_data()
    {
        QTest::addColumn<int>("decimals");
        QTest::addColumn<double>("first");
        QTest::addColumn<double>("last");
        QTest::newRow("no decimals") << 0 << 333. << 334.;
        QTest::newRow("two decimals") << 2 << 333.33 << 333.34;
    }

    void instalmentIsWholeInTheDecimalsOfTheUnit()
    {
        QFETCH(int, decimals);
        QFETCH(double, first);
        QFETCH(double, last);
        GetDBSetting()->SetMoneyDecimals(decimals);
        m_office->database().run(u"DELETE FROM AutomobilPayments WHERE iNum>3"_s);
        m_office->database().run(u"UPDATE AutomobilPayments SET dAmount=1000.0/3,dExtra=0"_s);
        m_contract->receive(1, first);
        m_contract->receive(3, first);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iStatus ORDER BY iNum) FROM AutomobilPayments"_s), u"1,0,0"_s);
        m_contract->receive(3, last - first);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iStatus ORDER BY iNum) FROM AutomobilPayments"_s), u"1,0,1"_s);
        GetDBSetting()->SetMoneyDecimals(0);
    }

    void twoDesksTakeAPartOfOneInstalmentAndTheSecondIsToldOnce()
    {
        const ReceiptPurpose mine = m_contract->purpose(2);
        m_contract->receive(2, 50);
        const QString told = refused([&] { m_contract->receive(2, 112, mine); });
        QVERIFY2(told.contains(u"قسط شماره 2"_s) && told.contains(u"«مدیر»"_s) && told.contains(u"62"_s), qPrintable(told));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"1"_s);
        // Whoever then still receives it means another part.
        m_contract->receive(2, 62, mine);
        QCOMPARE(mark(2), u"1"_s);
    }

    void wholeInstalmentIsTakenOnce()
    {
        const ReceiptPurpose mine = m_contract->purpose(2);
        m_contract->receive(2, 112);
        for (int press = 0; press < 2; ++press)
            QVERIFY(refused([&] { m_contract->receive(2, 112, mine); }).startsWith(u"قسط شماره 2 را کاربر «مدیر» "_s));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"1"_s);
    }

    void voidContractTakesNoMoney()
    {
        const ReceiptPurpose mine = m_contract->purpose(2);
        m_office->database().run(u"UPDATE AutomobilContracts SET iStatus=1"_s);
        QCOMPARE(refused([&] { m_contract->receive(2, 112, mine); }), u"این قرارداد باطل شده است."_s);
    }

    // --- The window ---

    void windowShowsThreeStatesWithReceivedAndRest()
    {
        m_contract->receive(1, 112);
        m_contract->receive(2, 50);
        const CDlgCalcPayment dialog(m_contract->key, m_contract->buyer, 0);
        const auto shown = [&dialog](int row) {
            QStringList cells;
            for (int column = 3; column < 7; ++column)
                cells.append(dialog.list()->cellText(row, column));
            return cells.join(u'|');
        };
        QCOMPARE(shown(0), u"112|پرداخت شده|112|0"_s);
        QCOMPARE(shown(1), u"112|بخشی پرداخت شده|50|62"_s);
        QCOMPARE(shown(2), u"112|پرداخت نشده|0|112"_s);
        QVERIFY(dialog.isNoteShown());
        QVERIFY(!dialog.button(u"ذخيره اقساط"_s)->isEnabled());
    }

    void partlyPaidInstalmentKeepsThePlanAsItIs()
    {
        CDlgCalcPayment dialog(m_contract->key, m_contract->buyer, 0);
        dialog.calculate();
        m_contract->receive(2, 50);
        const QString before = m_contract->plan();
        dialog.button(u"ذخيره اقساط"_s)->click();
        QVERIFY(g_pDlgWarning->takeShown().join(u'|').contains(u"دریافت شده است"_s));
        dialog.deletePlan();
        QCOMPARE(m_contract->plan(), before);
    }

    void windowProposesTheRest()
    {
        m_contract->receive(2, 50);
        CDlgCalcPayment dialog(m_contract->key, m_contract->buyer, 0);
        dialog.list()->selectRow(1);
        QVERIFY(dialog.button(u"دريافت قسط"_s)->isEnabled());
        double proposed = 0;
        TestOffice::whenModal("CDlgCashFromPerson", [&proposed](QWidget *window) {
            proposed = named<KEdit>(*window, u"مبلغ :"_s)->number();
            static_cast<QDialog *>(window)->accept();
        });
        dialog.receiveSelected();
        QCOMPARE(proposed, 62.0);
        QCOMPARE(mark(2), u"1"_s);
        QCOMPARE(dialog.list()->cellText(1, 4), u"پرداخت شده"_s);
    }

    void buyerTypedByHandIsEnteredOnTheSpot_data()
    {
        QTest::addColumn<bool>("entered");
        QTest::newRow("entered") << true;
        QTest::newRow("left") << false;
    }

    void buyerTypedByHandIsEnteredOnTheSpot()
    {
        QFETCH(bool, entered);
        m_office->database().run(u"UPDATE AutomobilContracts SET iPersonSecondID=0,iPersonContract2=2,sName2='زهرا نوری',sMobile2='09121112233'"_s);
        m_office->database().run(u"UPDATE AutomobilPayments SET iPersonID=0"_s);
        CDlgCalcPayment dialog(m_contract->key, 0, 0);
        dialog.list()->selectRow(0);
        g_pDlgYesNo->answerNext(entered ? KMessageDialog::Yes : KMessageDialog::No);
        if (entered) {
            TestOffice::whenModal("CDlgAddPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
            TestOffice::whenModal("CDlgCashFromPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        }
        dialog.receiveSelected();
        const QString person = value(u"SELECT iPersonSecondID FROM AutomobilContracts"_s);
        QCOMPARE(person != u"0"_s, entered);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iPersonID) FROM Receipts"_s), entered ? person : QString());
        QCOMPARE(value(u"SELECT GROUP_CONCAT(DISTINCT iPersonID) FROM AutomobilPayments"_s), person);
        QCOMPARE(mark(1), entered ? u"1"_s : u"0"_s);
    }

    void contractWithoutABuyerSaysSo()
    {
        m_office->database().run(u"UPDATE AutomobilContracts SET iPersonSecondID=0,iPersonContract2=1,sName2=''"_s);
        CDlgCalcPayment dialog(m_contract->key, 0, 0);
        dialog.list()->selectRow(0);
        dialog.receiveSelected();
        QVERIFY(g_pDlgWarning->takeShown().join(u'|').contains(u"خریداری ندارد"_s));
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
    }

    void lateFeeHasAColumnWhereTheOfficeTakesOne()
    {
        ContractSettings settings = ContractSettings::load();
        settings.lateFeePercent = 0.5;
        settings.lateFeeGrace = 3;
        settings.save();
        const QDate today = GetDBSetting()->GetDBServerDate().date();
        m_office->database().run(u"UPDATE AutomobilPayments SET date='%1' WHERE iNum=1"_s.arg(today.addDays(-13).toString(Qt::ISODate)));
        const CDlgCalcPayment dialog(m_contract->key, m_contract->buyer, 0);
        for (int row = 0; row < dialog.list()->count(); ++row) {
            if (dialog.list()->model()->index(row, 1).data().toString() == shamsiText(today.addDays(-13)))
                QCOMPARE(dialog.list()->cellText(row, 7), u"6"_s);
        }
        QCOMPARE(dialog.list()->model()->headerData(7, Qt::Horizontal).toString(), u"جریمه دیرکرد"_s);
    }
};

static const RegisteredTest<TestInstalmentReceiving, KApplication> registeredInstalmentReceiving;
#include "TestInstalmentReceiving.moc"
