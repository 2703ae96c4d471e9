// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/contracts/receipts/SettlementQuestions.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/office/OtherDesk.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Contract = CTblAutomobilContracts;

KEdit *amountOf(QWidget *window)
{
    for (KEdit *edit : window->findChildren<KEdit *>()) {
        if (edit->accessibleName() == u"مبلغ :"_s)
            return edit;
    }
    return nullptr;
}

// Confirms the receipt's window that opens, with that amount; 0: as it is proposed.
void whenReceiving(double *proposed, double amount = 0)
{
    TestOffice::whenModal("CDlgCashFromPerson", [proposed, amount](QWidget *window) {
        if (proposed)
            *proposed = amountOf(window)->number();
        if (amount > 0)
            amountOf(window)->setNumber(amount);
        auto *dialog = static_cast<QDialog *>(window);
        dialog->accept();
        if (dialog->isVisible())
            dialog->reject();
    });
}

void whenReceivingIsLeft(double *proposed)
{
    TestOffice::whenModal("CDlgCashFromPerson", [proposed](QWidget *window) {
        *proposed = amountOf(window)->number();
        static_cast<QDialog *>(window)->reject();
    });
}

}

// Receiving the commission from the parties, from the list of contracts, and what the list shows of it.
class TestContractSettling : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    int m_seller = 0;
    int m_buyer = 0;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    // 1000 of commission; the seller has a discount of 100, 30 of tax and 20 of duty, the buyer 90 of tax.
    int addCharged(const std::function<void(Contract &)> &set = {})
    {
        return m_office->addContract([&](Contract &contract) {
            contract.m_iPersonFirstID = m_seller;
            contract.m_iPersonSecondID = m_buyer;
            contract.m_sName1 = u"سارا کریمی"_s;
            contract.m_sName2 = u"رضا احمدی"_s;
            contract.m_dCommission = 1000;
            contract.m_dDiscountFirst = 100;
            contract.m_dTax = 30;
            contract.m_dImposition = 20;
            contract.m_dTax2 = 90;
            contract.m_dPayFirst = 950;
            contract.m_dPaySecond = 1090;
            contract.m_iNum = 45;
            if (set)
                set(contract);
        });
    }

    static void receive(int contractID, int side, double amount, CTblReceipts::Kind kind = CTblReceipts::received)
    {
        Contract contract;
        QVERIFY(contract.IsRecordExist(u"iID"_s, contractID));
        ReceiptPurpose purpose = ContractReceipts::commission(contract, side);
        purpose.require = {};
        ReceiptPosting::save({.kind = kind,
                              .personID = side == 1 ? contract.m_iPersonFirstID : contract.m_iPersonSecondID,
                              .date = GetDBSetting()->GetDBServerDate(),
                              .account = 110101,
                              .parts = {{amount, u"a"_s, purpose}}});
    }

    static void separateLevies()
    {
        ContractSettings settings = ContractSettings::load();
        settings.levySeparate = true;
        settings.save();
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_seller = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        m_buyer = m_office->addPerson(u"رضا"_s, u"احمدی"_s);
    }

    // --- What is proposed ---

    void whatThePartyStillOwesIsProposed_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<bool>("separate");
        QTest::addColumn<double>("before"); // received from that side
        QTest::addColumn<double>("proposed");
        QTest::newRow("seller") << u"settleSeller"_s << false << 0.0 << 950.0;
        QTest::newRow("buyer") << u"settleBuyer"_s << false << 0.0 << 1090.0;
        QTest::newRow("seller, partly received") << u"settleSeller"_s << false << 400.0 << 550.0;
        QTest::newRow("buyer, partly received") << u"settleBuyer"_s << false << 1000.0 << 90.0;
        QTest::newRow("seller, levies besides") << u"settleSeller"_s << true << 0.0 << 1000.0;
        QTest::newRow("buyer, levies besides, partly received") << u"settleBuyer"_s << true << 80.0 << 1100.0;
    }

    void whatThePartyStillOwesIsProposed()
    {
        QFETCH(QString, command);
        QFETCH(bool, separate);
        QFETCH(double, before);
        const int contract = addCharged();
        if (separate)
            separateLevies();
        if (before > 0)
            receive(contract, command == u"settleSeller"_s ? 1 : 2, before);
        CDlgAutomobilContracts page;
        page.open();
        double proposed = 0;
        whenReceiving(&proposed);
        QVERIFY(page.runCommand(command));
        QTEST(proposed, "proposed");
        const bool ofSeller = command == u"settleSeller"_s;
        QCOMPARE(value(u"SELECT CONCAT_WS('/',dAmount,sDesc,iTable,iRecordID,iFor,iSide,sFor,iPersonID) FROM Receipts ORDER BY iID DESC LIMIT 1"_s),
                 u"%1/بابت کمسیون قرارداد شماره 45/69/%2/1/%3/کمیسیون قرارداد 45، %4/%5"_s.arg(QString::number(proposed), QString::number(contract),
                                                                                               ofSeller ? u"1"_s : u"2"_s, ofSeller ? u"فروشنده"_s : u"خریدار"_s,
                                                                                               QString::number(ofSeller ? m_seller : m_buyer)));
        QCOMPARE(value(u"SELECT SUM(dBed)=SUM(dBes) AND SUM(dBed)>0 FROM Docs"_s), u"1"_s);
    }

    void contractWithoutARegistryNumberIsSettledByItsCode()
    {
        addCharged([](Contract &c) {
            c.m_iNum = 0;
            c.m_iCode = 731;
        });
        CDlgAutomobilContracts page;
        page.open();
        whenReceiving(nullptr);
        QVERIFY(page.runCommand(u"settleSeller"));
        QCOMPARE(value(u"SELECT CONCAT_WS('/',sDesc,sFor) FROM Receipts"_s), u"بابت کمسیون قرارداد شماره 731/کمیسیون قرارداد 731، فروشنده"_s);
    }

    // Pressed again, the money is not taken again.
    void settledContractSaysSoBeforeMoreIsTaken_data()
    {
        QTest::addColumn<bool>("more");
        QTest::newRow("enough") << false;
        QTest::newRow("more") << true;
    }

    void settledContractSaysSoBeforeMoreIsTaken()
    {
        QFETCH(bool, more);
        addCharged();
        CDlgAutomobilContracts page;
        page.open();
        whenReceiving(nullptr);
        QVERIFY(page.runCommand(u"settleSeller"));
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(more ? KMessageDialog::Yes : KMessageDialog::No);
        double proposed = -1;
        if (more)
            whenReceivingIsLeft(&proposed);
        QVERIFY(page.runCommand(u"settleSeller"));
        const QStringList asked = g_pDlgYesNo->takeShown();
        QVERIFY2(asked.value(0).contains(u"تسویه شده است"_s) && asked.value(0).contains(u"950 ریال"_s), qPrintable(asked.join(u'|')));
        QCOMPARE(proposed, more ? 0.0 : -1.0);
        QCOMPARE(value(u"SELECT SUM(dAmount) FROM Receipts"_s), u"950"_s);
    }

    // What does not count, and what was paid back, is owed again.
    void voidReceiptsAndPaymentsBackAreOwedAgain()
    {
        const int contract = addCharged();
        receive(contract, 1, 500);
        receive(contract, 1, 300);
        receive(contract, 1, 100, CTblReceipts::paid);
        ReceiptPosting::makeVoid(value(u"SELECT MIN(iID) FROM Receipts"_s).toInt(), u"اشتباه"_s);
        double proposed = 0;
        whenReceivingIsLeft(&proposed);
        QVERIFY(!SettlementQuestions::settle(contract, 1, nullptr));
        QCOMPARE(proposed, 750.0);
    }

    // --- Who cannot pay ---

    void whoCannotPayIsSaid_data()
    {
        QTest::addColumn<QString>("columns");
        QTest::addColumn<QString>("told");
        QTest::newRow("void contract") << u"iStatus=1"_s << u"این قرارداد باطل شده است."_s;
        QTest::newRow("void contract, typed by hand") << u"iStatus=1,iPersonFirstID=0,iPersonContract1=2"_s << u"این قرارداد باطل شده است."_s;
        QTest::newRow("the showroom") << u"iPersonFirstID=0,iPersonContract1=1"_s << u"فروشنده این قرارداد خود نمایشگاه است؛ نمایشگاه از خودش دریافتی ندارد."_s;
        QTest::newRow("nobody") << u"iPersonFirstID=0,sName1=''"_s << u"فروشنده این قرارداد تعیین نشده است."_s;
    }

    void whoCannotPayIsSaid()
    {
        QFETCH(QString, columns);
        QFETCH(QString, told);
        addCharged();
        m_office->database().run(u"UPDATE AutomobilContracts SET "_s + columns);
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"inactive", true);
        page.refill();
        QVERIFY(page.runCommand(u"settleSeller"));
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{told});
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts"_s), u"0"_s);
    }

    void receivingNeedsItsRight()
    {
        const int contract = addCharged();
        m_office->logInAs(u"clerk"_s, u"Receipts"_s, KSecurity::allRights & ~KSecurity::Write);
        QVERIFY(!SettlementQuestions::settle(contract, 1, nullptr));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Receipts"_s, KSecurity::Write)});
    }

    // Entered on the spot, and then asked for what the document, which names him now, charges him.
    void partyTypedByHandIsEnteredAndPays()
    {
        const int contract = addCharged([](Contract &c) {
            c.m_iPersonSecondID = 0;
            c.m_iPersonContract2 = 2;
        });
        CDlgAutomobilContracts page;
        page.open();
        double proposed = 0;
        TestOffice::whenModal("CDlgAddPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        whenReceiving(&proposed);
        QVERIFY(page.runCommand(u"settleBuyer"));
        QCOMPARE(proposed, 1090.0);
        QCOMPARE(value(u"SELECT COUNT(*) FROM Receipts r JOIN AutomobilContracts c ON c.iID=r.iRecordID AND c.iPersonSecondID=r.iPersonID WHERE c.iID=%1"_s.arg(contract)),
                 u"1"_s);
    }

    // --- Two desks ---

    // Both have the receipt's window open: the second is told who took it, once.
    void settledAtTwoDesksIsToldOnce()
    {
        const int contract = addCharged();
        QStringList told;
        int after = 0;
        TestOffice::whenModal("CDlgCashFromPerson", [&](QWidget *window) {
            OtherDesk(*m_office, u"Receipts"_s).does([&] { receive(contract, 1, 950); });
            auto *dialog = static_cast<QDialog *>(window);
            dialog->accept();
            told = g_pDlgWarning->takeShown();
            after = value(u"SELECT COUNT(*) FROM Receipts"_s).toInt();
            dialog->reject();
        });
        SettlementQuestions::settle(contract, 1, nullptr);
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().contains(u"«sima»"_s) && told.constFirst().contains(u"950"_s), qPrintable(told.constFirst()));
        QCOMPARE(after, 1);
        QCOMPARE(value(u"SELECT SUM(dAmount) FROM Receipts"_s), u"950"_s);
    }

    // --- The list's columns ---

    void receivedColumnsAreOffAtFirstAndBehindTheOthers()
    {
        addCharged();
        CDlgAutomobilContracts page;
        const ObservedStatements statements({u"SELECT"_s});
        page.open();
        QCOMPARE(page.list()->columnOf(u"receivedSeller"), 10);
        QCOMPARE(page.list()->columnOf(u"receivedBuyer"), 11);
        QVERIFY(!page.list()->isColumnShown(u"receivedSeller") && !page.list()->isColumnShown(u"receivedBuyer"));
        QVERIFY(statements.taken().filter(u"Receipts"_s).isEmpty());
        QVERIFY(statements.taken().filter(u"dCommission"_s).isEmpty());
    }

    void receivedColumnsSayHowMuch()
    {
        const int half = addCharged();
        const int settled = addCharged();
        const int nothing = addCharged([](Contract &c) { c.m_dCommission = c.m_dDiscountFirst = c.m_dTax = c.m_dImposition = c.m_dTax2 = 0; });
        const int typed = addCharged([](Contract &c) { c.m_iPersonSecondID = 0; });
        receive(half, 1, 475);
        receive(settled, 1, 950);
        receive(settled, 2, 1090);
        CDlgAutomobilContracts page;
        page.open();
        page.list()->setColumnShown(u"receivedSeller", true);
        page.list()->setColumnShown(u"receivedBuyer", true);
        QStringList cells;
        for (const int key : {half, settled, nothing, typed}) {
            const int row = page.list()->listModel()->rowOfKey(key);
            cells << page.list()->cellText(row, u"receivedSeller") + u' ' + page.list()->cellText(row, u"receivedBuyer");
        }
        QCOMPARE(cells, (QStringList{u"50٪ 0٪"_s, u"تسویه تسویه"_s, u"- -"_s, u"0٪ -"_s}));
        // Settling shows at once.
        page.list()->selectKey(half);
        whenReceiving(nullptr);
        QVERIFY(page.runCommand(u"settleSeller"));
        QCOMPARE(page.list()->cellText(page.list()->currentRow(), u"receivedSeller"), u"تسویه"_s);
        QCOMPARE(page.list()->currentKey(), half);
    }

    // Many contracts and receipts of all kinds: each cell follows from sums that the database makes another way.
    void receivedColumnsAgreeWithTheBooks()
    {
        QList<int> contracts;
        for (int i = 0; i < 30; ++i)
            contracts << addCharged([i](Contract &c) { c.m_dCommission = 1000 + i * 37; });
        for (int i = 0; i < 120; ++i)
            receive(contracts.at(i * 7 % 30), 1 + i % 2, 40 + i * 3, i % 11 == 0 ? CTblReceipts::paid : CTblReceipts::received);
        m_office->database().run(u"UPDATE Receipts SET iStatus=1 WHERE iID%5=0"_s);
        m_office->database().run(u"UPDATE Receipts SET iStatus=2 WHERE iID%17=0"_s);
        m_office->database().run(u"UPDATE Receipts SET iSide=0 WHERE iID%3=0"_s); // from before sides were kept
        CDlgAutomobilContracts page;
        page.open();
        page.list()->setColumnShown(u"receivedSeller", true);
        page.list()->setColumnShown(u"receivedBuyer", true);
        const QString sum = u"(SELECT IFNULL(SUM(CASE iKind WHEN 0 THEN dAmount ELSE -dAmount END),0) FROM Receipts r WHERE r.iRecordID=c.iID AND r.iTable=69 "
                            "AND r.iPersonID=c.%1 AND r.iStatus NOT IN (1,2))"_s;
        const QString words = u"SELECT CASE WHEN %1>=%2 THEN 'تسویه' WHEN %1<=0 THEN '0٪' ELSE CONCAT(GREATEST(1,FLOOR(%1*100/%2)),'٪') END FROM AutomobilContracts c WHERE c.iID="_s;
        const QString ofSeller = words.arg(sum.arg(u"iPersonFirstID"_s), u"(dCommission-dDiscountFirst+dTax+dImposition)"_s);
        const QString ofBuyer = words.arg(sum.arg(u"iPersonSecondID"_s), u"(dCommission-dDiscountSecond+dTax2+dImposition2)"_s);
        QSet<QString> met;
        for (const int key : std::as_const(contracts)) {
            const int row = page.list()->listModel()->rowOfKey(key);
            QCOMPARE(page.list()->cellText(row, u"receivedSeller"), value(ofSeller + QString::number(key)));
            QCOMPARE(page.list()->cellText(row, u"receivedBuyer"), value(ofBuyer + QString::number(key)));
            met << page.list()->cellText(row, u"receivedSeller");
        }
        QVERIFY(met.size() > 5);
    }

    // However many contracts there are.
    void receivedColumnsCostOneStatement()
    {
        for (int i = 0; i < 12; ++i)
            receive(addCharged(), 1, 100);
        CDlgAutomobilContracts page;
        page.open();
        page.list()->setColumnShown(u"receivedSeller", true);
        const ObservedStatements statements({u"SELECT"_s});
        page.refill();
        QCOMPARE(statements.taken().filter(u"Receipts"_s).size(), 1);
    }
};

static const RegisteredTest<TestContractSettling, KApplication> registeredContractSettling;
#include "TestContractSettling.moc"
